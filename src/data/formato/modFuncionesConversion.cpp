#include "data/formato/modFuncionesConversion.h"

#include "common/ErrorVB.h"
#include "common/modFecha.h"
#include "common/modFunciones.h"

#include <QHash>
#include <QStringDecoder>
#include <QStringEncoder>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <mutex>

namespace modFuncionesConversion {

namespace {

// Seconds from 1904-01-01 to 1972-01-01: dates are reckoned from the later epoch past this many
// seconds, which keeps every addition inside 32 bits.
constexpr qint64 SegundosEntreEpocas = 2145916800;
constexpr double DosALa32 = 4294967296.0;
constexpr double DiaSegundaEpoca = 26299;

const QDateTime& PrimeraEpoca() {
    static const QDateTime epoca = modFecha::Crear(1904, 1, 1);
    return epoca;
}

const QDateTime& SegundaEpoca() {
    static const QDateTime epoca = modFecha::Crear(1972, 1, 1);
    return epoca;
}

QString Fuente(const char* xRutina) {
    return QStringLiteral("modFuncionesConversion.") + QLatin1String(xRutina);
}

qint32 Sumar(qint32 xPos, qint64 xCantidad, const char* xRutina) {
    const qint64 suma = static_cast<qint64>(xPos) + xCantidad;
    if (suma > std::numeric_limits<qint32>::max() || suma < std::numeric_limits<qint32>::min())
        throw ErrorVB::Overflow(Fuente(xRutina));
    return static_cast<qint32>(suma);
}

// Checks that bytes xPos .. xPos + xAncho - 1 lie inside the buffer.
void VerificarRango(const QByteArray& xBuffer, qint32 xPos, qint32 xAncho, const char* xRutina) {
    const qint32 ultimo = Sumar(xPos, xAncho - 1, xRutina);
    if (xPos < 0 || ultimo >= xBuffer.size()) throw ErrorVB::SubscriptOutOfRange(Fuente(xRutina));
}

quint32 LeerCuatro(const QByteArray& xBuffer, qint32& xPos, const char* xRutina) {
    VerificarRango(xBuffer, xPos, 4, xRutina);
    const auto* p = reinterpret_cast<const uchar*>(xBuffer.constData()) + xPos;
    const quint32 valor =
        (quint32(p[0]) << 24) | (quint32(p[1]) << 16) | (quint32(p[2]) << 8) | quint32(p[3]);
    xPos = Sumar(xPos, 4, xRutina);
    return valor;
}

void EscribirBytes(QByteArray& xBuffer, qint32& xPos, quint32 xValor, int xAncho,
                   const char* xRutina) {
    VerificarRango(xBuffer, xPos, xAncho, xRutina);
    char* p = xBuffer.data() + xPos;
    for (int k = 0; k < xAncho; ++k)
        p[k] = static_cast<char>(xValor >> (8 * (xAncho - 1 - k)));
    xPos = Sumar(xPos, xAncho, xRutina);
}

// A page the handheld's texts can be in keeps the zero byte, digits and letters as ASCII has
// them: texts are zero-terminated and the AppForge marker is compared as ASCII. That rules out
// UTF-16 and EBCDIC pages.
bool GuardaAscii(const char* xNombre) {
    const QByteArray ascii = QByteArrayLiteral("0189AZaz APPFORG2");
    QStringDecoder decodificador(xNombre, QStringDecoder::Flag::Stateless);
    if (!decodificador.isValid()) return false;
    return QString(decodificador(ascii)) == QLatin1String(ascii) &&
           QString(decodificador(QByteArrayView("\0", 1))) == QString(QChar(0));
}

// True when some byte of the upper half leads a two-byte character: with a trail byte that every
// multi-byte page accepts, the pair decodes to one character.
bool EsMultibyte(const char* xNombre) {
    QStringDecoder decodificador(xNombre, QStringDecoder::Flag::Stateless);
    const char estela = '\xA1';
    const QString sola = decodificador(QByteArrayView(&estela, 1));
    for (int byte = 0x80; byte < 0x100; ++byte) {
        const char par[2] = {static_cast<char>(byte), estela};
        const QString texto = decodificador(QByteArrayView(par, 2));
        if (texto.size() == 1 && texto != sola) return true;
    }
    return false;
}

} // namespace

// ---- Code page tables
// ----------------------------------------------------------------------------

TablaCodigoPagina::TablaCodigoPagina(const QString& xCodigoPagina)
    : mNombre(xCodigoPagina), mNombreLatin1(xCodigoPagina.toLatin1()) {
    if (!GuardaAscii(mNombreLatin1.constData()))
        throw ErrorVB(5, Fuente("TablaCodigoPagina"),
                      QStringLiteral("Invalid procedure call or argument"));
    mMultibyte = EsMultibyte(mNombreLatin1.constData());
    mDecodificador = QStringDecoder(mNombreLatin1.constData(), QStringDecoder::Flag::Stateless);
    mCodificador = QStringEncoder(mNombreLatin1.constData(), QStringEncoder::Flag::Stateless);
    if (!mMultibyte) LlenarTabla();
}

void TablaCodigoPagina::LlenarTabla() {
    mBytes.assign(65536, -1);
    for (int byte = 0; byte < 256; ++byte) {
        const char uno = static_cast<char>(byte);
        const QString texto = mDecodificador(QByteArrayView(&uno, 1));
        const bool definido = texto.size() == 1 && texto.front() != QChar::ReplacementCharacter &&
                              !(texto.front().unicode() == 0x1A && byte != 0x1A);
        mCaracteres[byte] = definido ? texto.front() : QChar(byte);
    }
    for (int byte = 255; byte >= 0; --byte)
        mBytes[mCaracteres[byte].unicode()] = static_cast<qint16>(byte);
}

QString TablaCodigoPagina::Decodificar(QByteArrayView xBytes) const {
    if (mMultibyte) return mDecodificador(xBytes);
    QString texto(xBytes.size(), Qt::Uninitialized);
    QChar* destino = texto.data();
    for (qsizetype k = 0; k < xBytes.size(); ++k)
        destino[k] = mCaracteres[static_cast<quint8>(xBytes[k])];
    return texto;
}

bool TablaCodigoPagina::Cabe(QStringView xTexto, QByteArray* xBytes) const {
    if (!mMultibyte) {
        QByteArray bytes(xTexto.size(), Qt::Uninitialized);
        for (qsizetype k = 0; k < xTexto.size(); ++k) {
            const qint16 byte = mBytes[xTexto[k].unicode()];
            if (byte < 0) return false;
            bytes[k] = static_cast<char>(byte);
        }
        if (xBytes) *xBytes = std::move(bytes);
        return true;
    }
    mCodificador.resetState();
    QByteArray bytes = mCodificador(xTexto);
    // A converter may write a look-alike for a character it lacks: only a text that reads back
    // as itself is the person's text.
    if (mCodificador.hasError() || Decodificar(bytes) != xTexto) return false;
    if (xBytes) *xBytes = std::move(bytes);
    return true;
}

QByteArray TablaCodigoPagina::Codificar(const QString& xTexto, const QString& xFuente) const {
    QByteArray bytes;
    if (Cabe(xTexto, &bytes)) {
        // A text ends at its first zero byte: one inside it would end the text there and make the
        // rest of the record be read as the fields after it.
        if (bytes.contains('\0'))
            throw ErrorVB(ErrorTextoNoCodificable, xFuente,
                          QStringLiteral("The text \"%1\" holds a NUL character (U+0000), which "
                                         "cannot be stored inside a text; nothing was written.")
                              .arg(modFunciones::Cita(
                                  QString(xTexto).replace(QChar(0), QLatin1String("\\0")))));
        return bytes;
    }
    QString caracter;
    for (qsizetype k = 0; k < xTexto.size() && caracter.isEmpty(); ++k) {
        const qsizetype largo = xTexto[k].isHighSurrogate() && k + 1 < xTexto.size() ? 2 : 1;
        if (!Cabe(QStringView(xTexto).mid(k, largo), nullptr)) caracter = xTexto.mid(k, largo);
        k += largo - 1;
    }
    throw ErrorVB(ErrorTextoNoCodificable, xFuente,
                  QStringLiteral("The text \"%1\" holds \"%2\" (U+%3), which the handheld's code "
                                 "page %4 cannot hold; nothing was written.")
                      .arg(modFunciones::Cita(xTexto), caracter,
                           QString::number(caracter.isEmpty() ? 0 : caracter.toUcs4().value(0), 16)
                               .toUpper()
                               .rightJustified(4, QLatin1Char('0')),
                           mNombre));
}

QByteArray TablaCodigoPagina::CodificarSustituyendo(QStringView xTexto) const {
    mCodificador.resetState();
    return mCodificador(xTexto);
}

bool TablaCodigoPagina::Conocida(const QString& xCodigoPagina) {
    return GuardaAscii(xCodigoPagina.toLatin1().constData());
}

// Tables are built on first use and never freed, so a reference handed out stays good; the lock
// keeps two threads that ask at once from building into the list together.
const TablaCodigoPagina& TablaCodigoPagina::Para(const QString& xCodigoPagina) {
    static QHash<QString, std::shared_ptr<const TablaCodigoPagina>> tablas;
    static std::mutex cerrojo;
    const std::lock_guard<std::mutex> tomado(cerrojo);
    const QString clave = xCodigoPagina.toLower();
    auto encontrada = tablas.constFind(clave);
    if (encontrada == tablas.constEnd())
        encontrada = tablas.insert(
            clave, std::shared_ptr<const TablaCodigoPagina>(new TablaCodigoPagina(xCodigoPagina)));
    return **encontrada;
}

const TablaCodigoPagina& TablaCodigoPagina::Predeterminada() {
    static const TablaCodigoPagina& tabla = Para(QStringLiteral("windows-1252"));
    return tabla;
}

// ---- Readers
// ---------------------------------------------------------------------------------------

qint32 LeerLong(const QByteArray& xBuffer, qint32& xPos) {
    return static_cast<qint32>(LeerCuatro(xBuffer, xPos, "LeerLong"));
}

float LeerSingle(const QByteArray& xBuffer, qint32& xPos) {
    const quint32 patron = LeerCuatro(xBuffer, xPos, "LeerSingle");
    float valor;
    std::memcpy(&valor, &patron, sizeof valor);
    return valor;
}

qint16 LeerInt(const QByteArray& xBuffer, qint32& xPos) {
    VerificarRango(xBuffer, xPos, 2, "LeerInt");
    quint8 bytes[2] = {0, 0};
    int cuenta = 0;
    for (int k = 0; k < 2; ++k) {
        const auto byte = static_cast<quint8>(xBuffer.at(xPos + 1 - k));
        if (byte > 0) bytes[cuenta++] = byte;
    }
    xPos = Sumar(xPos, 2, "LeerInt");
    return static_cast<qint16>(bytes[0] | (bytes[1] << 8));
}

QDateTime LeerFecha(const QByteArray& xBuffer, qint32& xPos) {
    QDate dia;
    qint32 segundos = 0;
    LeerDiaYHora(xBuffer, xPos, dia, segundos);
    return QDateTime(dia, QTime::fromMSecsSinceStartOfDay(segundos * 1000), Qt::UTC);
}

// The stored count is unsigned: the seconds since the first epoch, whole days and the rest.
void LeerDiaYHora(const QByteArray& xBuffer, qint32& xPos, QDate& xDia, qint32& xSegundos) {
    static const qint64 primerDia = PrimeraEpoca().date().toJulianDay();
    const quint32 segundos = LeerCuatro(xBuffer, xPos, "LeerFecha");
    xDia = QDate::fromJulianDay(primerDia + segundos / 86400);
    xSegundos = static_cast<qint32>(segundos % 86400);
}

QByteArrayView TramoTexto(const QByteArray& xBuffer, qint32& xPos) {
    if (xPos < 0 || xPos >= xBuffer.size()) throw ErrorVB::SubscriptOutOfRange(Fuente("LeerTexto"));
    const char* inicio = xBuffer.constData() + xPos;
    const auto* cero = static_cast<const char*>(
        std::memchr(inicio, 0, static_cast<size_t>(xBuffer.size() - xPos)));
    if (!cero) throw ErrorVB::SubscriptOutOfRange(Fuente("LeerTexto"));
    const auto largo = static_cast<qsizetype>(cero - inicio);
    xPos = Sumar(xPos, largo + 1, "LeerTexto");
    return QByteArrayView(inicio, largo);
}

void AgregarTexto(QString& xDestino, const QByteArray& xBuffer, qint32& xPos,
                  const TablaCodigoPagina& xTabla) {
    const QByteArrayView bytes = TramoTexto(xBuffer, xPos);
    if (xTabla.Multibyte()) {
        xDestino += xTabla.Decodificar(bytes);
        return;
    }
    const qsizetype antes = xDestino.size();
    xDestino.resize(antes + bytes.size());
    QChar* destino = xDestino.data() + antes;
    for (qsizetype k = 0; k < bytes.size(); ++k)
        destino[k] = xTabla.Caracter(static_cast<quint8>(bytes[k]));
}

QString LeerTexto(const QByteArray& xBuffer, qint32& xPos, const TablaCodigoPagina& xTabla) {
    QString texto;
    AgregarTexto(texto, xBuffer, xPos, xTabla);
    return texto;
}

// ---- Writers
// ---------------------------------------------------------------------------------------

void EscribirLong(QByteArray& xBuffer, qint32& xPos, qint32 xValor) {
    EscribirBytes(xBuffer, xPos, static_cast<quint32>(xValor), 4, "EscribirLong");
}

void EscribirInt(QByteArray& xBuffer, qint32& xPos, qint16 xValor) {
    EscribirBytes(xBuffer, xPos, static_cast<quint16>(xValor), 2, "EscribirInt");
}

// Whole seconds from the first epoch up to 1972-01-01, from the second one after it; a count
// above 2^31 is stored as its unsigned 32-bit pattern. Exactly 2^31 does not fit and overflows.
void EscribirFecha(QByteArray& xBuffer, qint32& xPos, const QDateTime& xFecha) {
    const QDateTime fecha(xFecha.date(), xFecha.time(), Qt::UTC);
    double segundos;
    if (modFecha::ADia(fecha) <= DiaSegundaEpoca)
        segundos = static_cast<double>(PrimeraEpoca().secsTo(fecha));
    else
        segundos = static_cast<double>(SegundaEpoca().secsTo(fecha) + SegundosEntreEpocas);
    if (segundos > 2147483648.0) segundos -= DosALa32;
    const double redondo = std::nearbyint(segundos);
    if (redondo > std::numeric_limits<qint32>::max() ||
        redondo < std::numeric_limits<qint32>::min())
        throw ErrorVB::Overflow(Fuente("EscribirFecha"));
    EscribirBytes(xBuffer, xPos, static_cast<quint32>(static_cast<qint32>(redondo)), 4,
                  "EscribirFecha");
}

void EscribirTexto(QByteArray& xBuffer, qint32& xPos, const QString& xTexto,
                   const TablaCodigoPagina& xTabla) {
    EscribirTextoCodificado(xBuffer, xPos, xTabla.Codificar(xTexto, Fuente("EscribirTexto")));
}

void EscribirTextoCodificado(QByteArray& xBuffer, qint32& xPos, QByteArrayView xBytes) {
    const auto largo = static_cast<qint32>(xBytes.size());
    if (largo > 0) VerificarRango(xBuffer, xPos, largo, "EscribirTexto");
    const qint32 terminador = Sumar(xPos, largo, "EscribirTexto");
    if (terminador < 0) throw ErrorVB::SubscriptOutOfRange(Fuente("EscribirTexto"));
    if (largo > 0) std::memcpy(xBuffer.data() + xPos, xBytes.data(), size_t(largo));
    // The buffer grows to reach one byte past the terminator: a spare zero at the record's end.
    const qint32 ultimo = Sumar(terminador, 1, "EscribirTexto");
    if (xBuffer.size() - 1 < ultimo) xBuffer.resize(qsizetype(ultimo) + 1, '\0');
    xBuffer[terminador] = '\0';
    xPos = Sumar(terminador, 1, "EscribirTexto");
}

} // namespace modFuncionesConversion
