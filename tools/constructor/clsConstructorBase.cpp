#include "constructor/clsConstructorBase.h"

#include <QFile>
#include <QStringEncoder>
#include <QtEndian>
#include <cstring>
#include <stdexcept>

namespace {

const QDateTime kEpocaPalm(QDate(1904, 1, 1), QTime(0, 0), Qt::UTC);

void AgregarU16(QByteArray& xDestino, quint16 xValor) {
    xDestino.append(char(xValor >> 8)).append(char(xValor & 0xFF));
}

void AgregarU32(QByteArray& xDestino, quint32 xValor) {
    for (int desplazamiento = 24; desplazamiento >= 0; desplazamiento -= 8)
        xDestino.append(char((xValor >> desplazamiento) & 0xFF));
}

void PonerU16(QByteArray& xDestino, int xPosicion, quint16 xValor) {
    xDestino[xPosicion] = char(xValor >> 8);
    xDestino[xPosicion + 1] = char(xValor & 0xFF);
}

// Width of a blank value of each type: what the converter records as the minimum record length.
int AnchoMinimo(clsConstructorBase::TipoCampo xTipo) {
    switch (xTipo) {
    case clsConstructorBase::Int:
        return 2;
    case clsConstructorBase::Long:
    case clsConstructorBase::Single:
    case clsConstructorBase::Date:
        return 4;
    default:
        return 1;
    }
}

} // namespace

clsConstructorBase::clsConstructorBase(const QString& xNombre, const QString& xTipo,
                                       const QString& xCreador, const QString& xCodigoPagina)
    : mCodigoPagina(xCodigoPagina) {
    mArchivo.Nombre = Texto(xNombre, mCodigoPagina);
    mArchivo.Tipo = Codigo(xTipo);
    mArchivo.Creador = Codigo(xCreador);
    mArchivo.Version = 1;
    const QDateTime fecha(QDate(2005, 3, 14), QTime(9, 30), Qt::UTC);
    Fechas(fecha, fecha, fecha);
}

void clsConstructorBase::Fechas(const QDateTime& xCreacion, const QDateTime& xModificacion,
                                const QDateTime& xBackup) {
    mArchivo.FechaCreacion = SegundosPalm(xCreacion);
    mArchivo.FechaModificacion = SegundosPalm(xModificacion);
    mArchivo.FechaBackup = SegundosPalm(xBackup);
}

void clsConstructorBase::Version(quint16 xVersion) {
    mArchivo.Version = xVersion;
}

void clsConstructorBase::Categorias(const QStringList& xNombres) {
    mCategorias = xNombres;
    mArchivo.AppInfo = BloqueCategorias();
}

// Category block (276 bytes): renamed bits u16, 16 names of 16 bytes, 16 IDs, last ID, padding.
QByteArray clsConstructorBase::BloqueCategorias() const {
    QByteArray bloque;
    AgregarU16(bloque, 0);
    for (int i = 0; i < 16; ++i) {
        QByteArray nombre =
            i < mCategorias.size() ? Texto(mCategorias[i], mCodigoPagina).left(15) : QByteArray();
        nombre.append(QByteArray(16 - nombre.size(), '\0'));
        bloque.append(nombre);
    }
    for (int i = 0; i < 16; ++i)
        bloque.append(char(i < mCategorias.size() ? i : 0));
    bloque.append(char(qMax(0, int(mCategorias.size()) - 1))).append('\0');
    return bloque;
}

// The converter's layout after the category block: "APPFORG2" in a 12-byte field at 276; at 288
// the schema size, the name-table offset, the field count and the minimum record length (16-bit
// words); four unused bytes; from 300 one descriptor of three words (name offset, type code, 0)
// per field; then the table name and the field names, zero-terminated. Offsets are from 276.
void clsConstructorBase::EsquemaAppForge(const QString& xTabla, const QVector<Campo>& xCampos) {
    mCampos = xCampos;
    QByteArray bloque = BloqueCategorias();
    QByteArray marca("APPFORG2");
    marca.append(QByteArray(4, '\0'));
    bloque.append(marca);
    const int inicioPalabras = bloque.size();
    bloque.append(QByteArray(12, '\0'));

    QByteArray nombres = Texto(xTabla, mCodigoPagina).append('\0');
    QByteArray descriptores;
    int longitudMinima = 0;
    for (const Campo& campo : xCampos) {
        AgregarU16(descriptores, quint16(nombres.size()));
        AgregarU16(descriptores, campo.Tipo);
        AgregarU16(descriptores, 0);
        nombres.append(Texto(campo.Nombre, mCodigoPagina)).append('\0');
        longitudMinima += AnchoMinimo(campo.Tipo);
    }
    bloque.append(descriptores).append(nombres);

    const int tablaNombres = 300 + descriptores.size() - 276;
    PonerU16(bloque, inicioPalabras, quint16(bloque.size() - 276));
    PonerU16(bloque, inicioPalabras + 2, quint16(tablaNombres));
    PonerU16(bloque, inicioPalabras + 4, quint16(xCampos.size()));
    PonerU16(bloque, inicioPalabras + 6, quint16(longitudMinima));
    mArchivo.AppInfo = bloque;
}

QByteArray clsConstructorBase::CodificarRegistro(const QVariantList& xValores) const {
    if (xValores.size() != mCampos.size())
        throw std::runtime_error("a record needs one value per field");
    QByteArray bytes;
    for (int i = 0; i < mCampos.size(); ++i) {
        const QVariant& valor = xValores[i];
        switch (mCampos[i].Tipo) {
        case Byte:
            bytes.append(char(valor.toUInt() & 0xFF));
            break;
        case Int:
            AgregarU16(bytes, quint16(qint16(valor.toInt())));
            break;
        case Long:
            AgregarU32(bytes, quint32(qint32(valor.toInt())));
            break;
        case Single: {
            const float numero = valor.toFloat();
            quint32 patron;
            std::memcpy(&patron, &numero, sizeof patron);
            AgregarU32(bytes, patron);
            break;
        }
        case String:
            bytes.append(Texto(valor.toString(), mCodigoPagina)).append('\0');
            break;
        case Boolean:
            bytes.append(char(valor.toBool() ? 1 : 0));
            break;
        case Date:
            AgregarU32(bytes, SegundosPalm(valor.toDateTime()));
            break;
        }
    }
    return bytes;
}

void clsConstructorBase::AgregarRegistro(const QVariantList& xValores, qint32 xAtributos,
                                         qint32 xCategoria) {
    AgregarRegistroCrudo(CodificarRegistro(xValores), xAtributos, xCategoria);
}

void clsConstructorBase::AgregarRegistroCrudo(const QByteArray& xBytes, qint32 xAtributos,
                                              qint32 xCategoria) {
    EntradaRegistroPDB entrada;
    entrada.Atributos = clsArchivoPDB::UnirAtributos(xAtributos, xCategoria);
    entrada.ID = mSiguienteID++;
    entrada.Datos = xBytes;
    mArchivo.Registros.append(entrada);
    mArchivo.SemillaID = mSiguienteID;
}

void clsConstructorBase::AgregarRecurso(const QString& xTipo, quint16 xID,
                                        const QByteArray& xBytes) {
    mArchivo.Atributos |= clsArchivoPDB::AtributoRecursos;
    mArchivo.Recursos.append({Codigo(xTipo), xID, xBytes});
}

void clsConstructorBase::Guardar(const QString& xRuta) const {
    QFile archivo(xRuta);
    if (!archivo.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        archivo.write(mArchivo.Escribir()) < 0)
        throw std::runtime_error(
            QStringLiteral("cannot write %1: %2").arg(xRuta, archivo.errorString()).toStdString());
}

quint32 clsConstructorBase::Codigo(const QString& xCuatroLetras) {
    const QByteArray letras = xCuatroLetras.toLatin1().leftJustified(4, ' ', true);
    return qFromBigEndian<quint32>(letras.constData());
}

quint32 clsConstructorBase::SegundosPalm(const QDateTime& xFecha) {
    return quint32(kEpocaPalm.secsTo(xFecha));
}

QByteArray clsConstructorBase::Texto(const QString& xTexto, const QString& xCodigoPagina) {
    QStringEncoder codificador(xCodigoPagina.toLatin1().constData());
    if (!codificador.isValid()) return xTexto.toLatin1();
    return codificador.encode(xTexto);
}
