#pragma once

#include "common/clsBufferTexto.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QChar>
#include <QDateTime>
#include <QString>
#include <QStringDecoder>
#include <QStringEncoder>
#include <QtGlobal>
#include <vector>

// Values of AppForge records and schemas in a byte buffer: numbers big-endian, dates as seconds
// since 1904-01-01, texts zero-terminated in the handheld's code page. Readers take the buffer and
// the position and move the position past the value; writers store the value at the position and
// move it past. An index outside the buffer raises ErrorVB 9, a position that overflows ErrorVB 6.
namespace modFuncionesConversion {

// A code page of the handheld's texts. A single-byte page is a table of its 256 characters and
// the way back, built once: a byte the page leaves undefined reads as the character of the same
// number. A multi-byte page (Shift_JIS, Big5, GBK, EUC-KR...) turns a lead byte and its trail
// byte into one character through Qt's converter. Either way a text is zero-terminated and its
// length counts bytes. A character the page cannot hold is never written: Codificar refuses it.
//
// A single-byte table is read-only once built, so threads share it; a multi-byte table's
// converters keep state while they work, so only one thread at a time may use one (the
// listing's and the export's second thread are not started for such a page).
class TablaCodigoPagina {
public:
    // The table of a code page by name, built once and kept for the life of the program.
    // Raises ErrorVB 5 when the name is not a code page that keeps ASCII as it is.
    static const TablaCodigoPagina& Para(const QString& xCodigoPagina);
    static const TablaCodigoPagina& Predeterminada(); // windows-1252
    // True when Para accepts the name.
    static bool Conocida(const QString& xCodigoPagina);

    const QString& Nombre() const { return mNombre; }
    bool Multibyte() const { return mMultibyte; }
    // Single-byte pages only.
    QChar Caracter(quint8 xByte) const { return mCaracteres[xByte]; }
    QString Decodificar(QByteArrayView xBytes) const;
    // The bytes of xTexto. Raises ErrorVB 5 (source xFuente) naming the first character the page
    // cannot hold.
    QByteArray Codificar(const QString& xTexto, const QString& xFuente) const;
    // For files other programs read (exports): a character the page cannot hold becomes the
    // page's substitute. Byte is the same for one character of a single-byte page ('?').
    QByteArray CodificarSustituyendo(QStringView xTexto) const;
    quint8 Byte(QChar xCaracter) const {
        const qint16 byte = mMultibyte ? -1 : mBytes[xCaracter.unicode()];
        return byte < 0 ? quint8(xCaracter.unicode() < 128 ? xCaracter.unicode() : '?')
                        : quint8(byte);
    }
    // Appends the characters of xBytes to xDestino: the record reader's way, a character per
    // byte straight into the buffer for single-byte pages.
    void Agregar(QByteArrayView xBytes, clsBufferTexto& xDestino) const {
        if (mMultibyte) {
            xDestino.Texto(Decodificar(xBytes));
            return;
        }
        char16_t* destino = xDestino.Reservar(xBytes.size());
        for (qsizetype k = 0; k < xBytes.size(); ++k)
            destino[k] = mCaracteres[static_cast<quint8>(xBytes[k])].unicode();
        xDestino.Usar(xBytes.size());
    }

private:
    explicit TablaCodigoPagina(const QString& xCodigoPagina);
    void LlenarTabla();
    // True when the page holds every character of xTexto; its bytes go to xBytes when given.
    bool Cabe(QStringView xTexto, QByteArray* xBytes) const;

    QString mNombre;
    QByteArray mNombreLatin1;
    bool mMultibyte = false;
    QChar mCaracteres[256];
    std::vector<qint16> mBytes; // by UTF-16 code unit; -1 where the code page has no byte
    // Made once: a converter is dear to make. Stateless, so each text stands alone.
    mutable QStringDecoder mDecodificador;
    mutable QStringEncoder mCodificador;
};

// Number of the error raised for a text the code page cannot hold.
constexpr qint32 ErrorTextoNoCodificable = 5;

float LeerSingle(const QByteArray& xBuffer, qint32& xPos);
// The two bytes are gathered skipping zero bytes, so 05 00 reads as 5, as the data on handhelds
// was written to be read.
qint16 LeerInt(const QByteArray& xBuffer, qint32& xPos);
qint32 LeerLong(const QByteArray& xBuffer, qint32& xPos);
QDateTime LeerFecha(const QByteArray& xBuffer, qint32& xPos);
// The same date as its day and the seconds since midnight, for readers of many dates.
void LeerDiaYHora(const QByteArray& xBuffer, qint32& xPos, QDate& xDia, qint32& xSegundos);
// The bytes of the zero-terminated text at xPos, without the terminator; xPos moves past it.
QByteArrayView TramoTexto(const QByteArray& xBuffer, qint32& xPos);
QString LeerTexto(const QByteArray& xBuffer, qint32& xPos,
                  const TablaCodigoPagina& xTabla = TablaCodigoPagina::Predeterminada());
// LeerTexto appending the text to xDestino.
void AgregarTexto(QString& xDestino, const QByteArray& xBuffer, qint32& xPos,
                  const TablaCodigoPagina& xTabla = TablaCodigoPagina::Predeterminada());

void EscribirLong(QByteArray& xBuffer, qint32& xPos, qint32 xValor);
void EscribirInt(QByteArray& xBuffer, qint32& xPos, qint16 xValor);
void EscribirFecha(QByteArray& xBuffer, qint32& xPos, const QDateTime& xFecha);
// Grows the buffer when the text reaches its end, leaving one spare zero byte after the
// terminator. Raises ErrorTextoNoCodificable, leaving the buffer as it was, when the code page
// cannot hold the text.
void EscribirTexto(QByteArray& xBuffer, qint32& xPos, const QString& xTexto,
                   const TablaCodigoPagina& xTabla = TablaCodigoPagina::Predeterminada());
// The same with the text's bytes already in the code page.
void EscribirTextoCodificado(QByteArray& xBuffer, qint32& xPos, QByteArrayView xBytes);

} // namespace modFuncionesConversion
