#include "data/formato/modCamposRegistro.h"

#include "common/ErrorVB.h"
#include "common/modFunciones.h"

#include <cstring>
#include <limits>

using namespace modFuncionesConversion;

namespace modCamposRegistro {

namespace {

quint8 ByteEn(const QByteArray& xBuffer, qint32 xPos, const char* xFuente) {
    if (xPos < 0 || xPos >= xBuffer.size())
        throw ErrorVB::SubscriptOutOfRange(QString::fromLatin1(xFuente));
    return static_cast<quint8>(xBuffer.at(xPos));
}

// Moves the bytes from xInicio on by xCambio places, growing or shrinking the buffer. Growing
// moves only the bytes from xInicio on: the places it opens are the caller's to write. The
// counters are 16-bit, so a record beyond 32767 bytes overflows.
void DesplazarBytes(QByteArray& xBuffer, qint32 xInicio, qint32 xCambio) {
    const QString fuente = QStringLiteral("UpdateRecord");
    constexpr qint64 MaximoContador = std::numeric_limits<qint16>::max();
    if (xCambio > 0) {
        const qint64 anterior = xBuffer.size();
        if (anterior - 1 + xCambio > MaximoContador) throw ErrorVB::Overflow(fuente);
        if (xInicio < 0) throw ErrorVB::SubscriptOutOfRange(fuente);
        xBuffer.resize(anterior + xCambio, '\0');
        if (xInicio < anterior)
            std::memmove(xBuffer.data() + xInicio + xCambio, xBuffer.constData() + xInicio,
                         static_cast<size_t>(anterior - xInicio));
        return;
    }
    if (xCambio < 0) {
        const qint64 ultimo = static_cast<qint64>(xBuffer.size()) - 1;
        if (ultimo >= MaximoContador) throw ErrorVB::Overflow(fuente);
        if (xInicio <= ultimo) {
            if (xInicio < 0 || xInicio + static_cast<qint64>(xCambio) < 0)
                throw ErrorVB::SubscriptOutOfRange(fuente);
            std::memmove(xBuffer.data() + xInicio + xCambio, xBuffer.constData() + xInicio,
                         static_cast<size_t>(xBuffer.size() - xInicio));
        }
        if (xBuffer.size() + xCambio < 0) throw ErrorVB::SubscriptOutOfRange(fuente);
        xBuffer.resize(xBuffer.size() + xCambio);
    }
}

} // namespace

const QString& NombreTipo(qint16 xCodigo) {
    static const QString nombres[] = {
        QString(),
        QStringLiteral("Byte"),
        QStringLiteral("Int"),
        QStringLiteral("Long"),
        QStringLiteral("Single"),
        QStringLiteral("String"),
        QStringLiteral("Boolean"),
        QStringLiteral("Date"),
    };
    return nombres[xCodigo >= TipoByte && xCodigo <= TipoDate ? xCodigo : 0];
}

CodigoTipo CodigoDeNombre(const QString& xNombre) {
    for (quint8 codigo = TipoByte; codigo <= TipoDate; ++codigo) {
        if (xNombre == NombreTipo(codigo)) return static_cast<CodigoTipo>(codigo);
    }
    return Desconocido;
}

qint32 PosicionEn(qint64 xPosicion, const char* xFuente) {
    if (xPosicion > std::numeric_limits<qint32>::max() ||
        xPosicion < std::numeric_limits<qint32>::min())
        throw ErrorVB::Overflow(QString::fromLatin1(xFuente));
    return static_cast<qint32>(xPosicion);
}

namespace {

// The body of AgregarCampo, written into the field loop of AgregarCampos too.
Q_ALWAYS_INLINE void Campo(clsBufferTexto& xTexto, const QByteArray& xRegistro, quint8 xCodigoTipo,
                           qint32& xPos, const QString& xSeparator, const TablaCodigoPagina& xTabla,
                           const clsConfiguracionRegional& xRegional) {
    const qsizetype inicio = xTexto.Cantidad();
    switch (xCodigoTipo) {
    case TipoByte:
        xTexto.Entero(ByteEn(xRegistro, xPos, "ReadRecord"));
        xPos = PosicionEn(xPos + qint64(1), "ReadRecord");
        break;
    case TipoInt:
        xTexto.Entero(LeerInt(xRegistro, xPos));
        break;
    case TipoLong:
        xTexto.Entero(LeerLong(xRegistro, xPos));
        break;
    case TipoSingle:
        xRegional.AgregarTextoSingle(xTexto, LeerSingle(xRegistro, xPos));
        break;
    case TipoString: {
        const bool comillas = xSeparator.size() == 1 && xSeparator.front() == QLatin1Char(',');
        const QByteArrayView bytes = TramoTexto(xRegistro, xPos);
        if (comillas) xTexto.Letra(u'"');
        xTabla.Agregar(bytes, xTexto);
        if (comillas) xTexto.Letra(u'"');
        break;
    }
    case TipoBoolean:
        if (ByteEn(xRegistro, xPos, "ReadRecord") != 0)
            xTexto.Letras("True", 4);
        else
            xTexto.Letras("False", 5);
        xPos = PosicionEn(xPos + qint64(1), "ReadRecord");
        break;
    case TipoDate: {
        QDate dia;
        qint32 segundos = 0;
        LeerDiaYHora(xRegistro, xPos, dia, segundos);
        xRegional.AgregarFechaGeneral(xTexto, dia, segundos);
        break;
    }
    default:
        break;
    }
    // Numbers and truth values are written without blanks around them.
    if (xCodigoTipo >= TipoSingle && xCodigoTipo != TipoBoolean) xTexto.RecortarBlancos(inicio);
}

} // namespace

void AgregarCampo(clsBufferTexto& xTexto, const QByteArray& xRegistro, quint8 xCodigoTipo,
                  qint32& xPos, const QString& xSeparator, const TablaCodigoPagina& xTabla,
                  const clsConfiguracionRegional& xRegional) {
    Campo(xTexto, xRegistro, xCodigoTipo, xPos, xSeparator, xTabla, xRegional);
}

// The field loop of every record read: no function is called per field.
void AgregarCampos(clsBufferTexto& xTexto, const QByteArray& xRegistro,
                   const std::vector<quint8>& xTipos, qint16 xCampos, const QString& xSeparator,
                   const TablaCodigoPagina& xTabla, const clsConfiguracionRegional& xRegional) {
    const bool unaLetra = xSeparator.size() == 1;
    qint32 pos = 0;
    for (qint16 i = 0; i < xCampos; ++i) {
        if (i >= static_cast<qsizetype>(xTipos.size()))
            throw ErrorVB::SubscriptOutOfRange(QStringLiteral("ReadRecord"));
        Campo(xTexto, xRegistro, xTipos[i], pos, xSeparator, xTabla, xRegional);
        if (unaLetra)
            xTexto.Letra(xSeparator.front().unicode());
        else
            xTexto.Texto(xSeparator);
    }
}

qint32 PosicionCampo(const QByteArray& xRegistro, const std::vector<quint8>& xTipos,
                     qint32 xNroCampo, const TablaCodigoPagina& xTabla) {
    const qint64 ultimo = static_cast<qint64>(xNroCampo) - 1;
    if (ultimo > std::numeric_limits<qint16>::max() || ultimo < std::numeric_limits<qint16>::min())
        throw ErrorVB::Overflow(QStringLiteral("UpdateRecord"));
    qint32 pos = 0;
    for (qint32 k = 0; k < xNroCampo; ++k) {
        if (k >= static_cast<qsizetype>(xTipos.size()))
            throw ErrorVB::SubscriptOutOfRange(QStringLiteral("UpdateRecord"));
        switch (xTipos[k]) {
        case TipoByte:
        case TipoBoolean:
            pos = PosicionEn(pos + qint64(1), "UpdateRecord");
            break;
        case TipoInt:
            LeerInt(xRegistro, pos);
            break;
        case TipoLong:
        case TipoDate:
            LeerLong(xRegistro, pos);
            break;
        case TipoSingle:
            LeerSingle(xRegistro, pos);
            break;
        case TipoString:
            LeerTexto(xRegistro, pos, xTabla);
            break;
        case Desconocido:
            break;
        }
    }
    return pos;
}

void CodificarCampo(QByteArray& xRegistro, const std::vector<quint8>& xTipos, qint32 xNroCampo,
                    const QString& xValor, const TablaCodigoPagina& xTabla) {
    qint32 pos = PosicionCampo(xRegistro, xTipos, xNroCampo, xTabla);
    if (xNroCampo < 0 || xNroCampo >= static_cast<qsizetype>(xTipos.size()))
        throw ErrorVB::SubscriptOutOfRange(QStringLiteral("UpdateRecord"));
    const clsConfiguracionRegional& regional = clsConfiguracionRegional::Actual();
    switch (xTipos[xNroCampo]) {
    case TipoString: {
        qint32 fin = pos;
        LeerTexto(xRegistro, fin, xTabla);
        const qint32 terminador = fin - 1;
        // The text's length counts the bytes it takes in the handheld's code page.
        const QByteArray nuevo = xTabla.Codificar(modFunciones::SinBlancos(xValor).toString(),
                                                  QStringLiteral("UpdateRecord"));
        const qint32 cambio =
            PosicionEn(static_cast<qint64>(nuevo.size()) + pos - terminador, "UpdateRecord");
        DesplazarBytes(xRegistro, terminador, cambio);
        EscribirTextoCodificado(xRegistro, pos, nuevo);
        break;
    }
    case TipoDate:
        EscribirFecha(xRegistro, pos, regional.CDate(xValor));
        break;
    case TipoByte: {
        const quint8 valor = regional.CByte(xValor);
        ByteEn(xRegistro, pos, "UpdateRecord");
        xRegistro[pos] = static_cast<char>(valor);
        break;
    }
    case TipoBoolean: {
        const bool valor = regional.CBool(xValor);
        ByteEn(xRegistro, pos, "UpdateRecord");
        xRegistro[pos] = valor ? 1 : 0;
        break;
    }
    case TipoInt:
        EscribirInt(xRegistro, pos, regional.CInt(xValor));
        break;
    case TipoLong:
        EscribirLong(xRegistro, pos, regional.CLng(xValor));
        break;
    case TipoSingle: {
        const float valor = regional.CSng(xValor);
        qint32 patron;
        std::memcpy(&patron, &valor, sizeof patron);
        EscribirLong(xRegistro, pos, patron);
        break;
    }
    case Desconocido:
        break;
    }
}

} // namespace modCamposRegistro
