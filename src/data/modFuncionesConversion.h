#pragma once

#include <QByteArray>
#include <QChar>
#include <QDateTime>
#include <QString>
#include <QtGlobal>
#include <vector>

// Values of AppForge records and schemas in a byte buffer: numbers big-endian, dates as seconds
// since 1904-01-01, texts zero-terminated in the handheld's code page. Readers take the buffer and
// the position and move the position past the value; writers store the value at the position and
// move it past. An index outside the buffer raises ErrorVB 9, a position that overflows ErrorVB 6.
namespace modFuncionesConversion {

// The 256 characters of a single-byte code page and the way back. A byte the code page leaves
// undefined reads as the character of the same number; a character it lacks is written as '?'.
class TablaCodigoPagina {
public:
    // The table of a code page by name, built once and kept for the life of the program.
    // Raises ErrorVB 5 when the name is not a code page.
    static const TablaCodigoPagina& Para(const QString& xCodigoPagina);
    static const TablaCodigoPagina& Predeterminada(); // windows-1252

    QChar Caracter(quint8 xByte) const { return mCaracteres[xByte]; }
    quint8 Byte(QChar xCaracter) const;

private:
    explicit TablaCodigoPagina(const QString& xCodigoPagina);

    QChar mCaracteres[256];
    std::vector<qint16> mBytes; // by UTF-16 code unit; -1 where the code page has no byte
};

float LeerSingle(const QByteArray& xBuffer, qint32& xPos);
// The two bytes are gathered skipping zero bytes, so 05 00 reads as 5, as the data on handhelds
// was written to be read.
qint16 LeerInt(const QByteArray& xBuffer, qint32& xPos);
qint32 LeerLong(const QByteArray& xBuffer, qint32& xPos);
QDateTime LeerFecha(const QByteArray& xBuffer, qint32& xPos);
QString LeerTexto(const QByteArray& xBuffer, qint32& xPos,
                  const TablaCodigoPagina& xTabla = TablaCodigoPagina::Predeterminada());
// LeerTexto appending the text to xDestino.
void AgregarTexto(QString& xDestino, const QByteArray& xBuffer, qint32& xPos,
                  const TablaCodigoPagina& xTabla = TablaCodigoPagina::Predeterminada());

void EscribirLong(QByteArray& xBuffer, qint32& xPos, qint32 xValor);
void EscribirInt(QByteArray& xBuffer, qint32& xPos, qint16 xValor);
void EscribirFecha(QByteArray& xBuffer, qint32& xPos, const QDateTime& xFecha);
// Grows the buffer when the text reaches its end, leaving one spare zero byte after the
// terminator.
void EscribirTexto(QByteArray& xBuffer, qint32& xPos, const QString& xTexto,
                   const TablaCodigoPagina& xTabla = TablaCodigoPagina::Predeterminada());

} // namespace modFuncionesConversion
