#pragma once

#include "common/clsBufferTexto.h"
#include "common/modPatronFecha.h"

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QtGlobal>
#include <vector>

// The desktop's regional settings: number and date texts, and the conversions of a user's text
// into a typed value. The windows use the system locale, pandrel-cli en_US unless told otherwise,
// tests pick theirs. Conversions raise ErrorVB 13 (type mismatch) for a text that does not convert
// and 6 (overflow) for a value out of range. An object changes only by assignment, so threads
// may read one at once.
class clsConfiguracionRegional {
public:
    explicit clsConfiguracionRegional(const QLocale& xLocale = QLocale::system());

    // The settings the program uses. EstablecerActual replaces them; it is called at start-up,
    // before any thread reads them, and never while a listing's threads run.
    static const clsConfiguracionRegional& Actual();
    static void EstablecerActual(const QLocale& xLocale);

    const QLocale& Locale() const { return mLocale; }

    // Shortest decimal text of a number, no grouping: 2048, 1.5.
    QString TextoNumero(double xValor) const;
    // General number text of a Single: shortest form, at most 7 significant digits.
    QString TextoSingle(float xValor) const;
    void AgregarTextoSingle(QString& xDestino, float xValor) const;
    void AgregarTextoSingle(clsBufferTexto& xDestino, float xValor) const;
    // General date-time text: short date and long time; the date alone at midnight, the time
    // alone on day 0 (1899-12-30).
    QString TextoFechaGeneral(const QDateTime& xFecha) const;
    void AgregarFechaGeneral(QString& xDestino, const QDateTime& xFecha) const;
    // The same for the day xDia at xSegundos seconds after midnight.
    void AgregarFechaGeneral(clsBufferTexto& xDestino, const QDate& xDia, int xSegundos) const;
    // Short date text.
    QString TextoFechaCorta(const QDateTime& xFecha) const;
    // A number through a format of digits: "0.00", "#0.##" (which always keeps its separator).
    QString Formato(double xValor, const QString& xFormato) const;
    // A size in KB: modFunciones::Kilobytes of xBytes as TextoNumero writes it (1.5 KB, 1 KB), or
    // through xFormato when given (the header panel's "#0.##": 1. KB), then " KB".
    QString TextoKilobytes(double xBytes, const QString& xFormato = QString()) const;
    // A date through a format such as "mm/dd/yyyy hh:mm:ss" or "hh:mm:ss" (mm after hh is minutes).
    QString FormatoFecha(const QDateTime& xFecha, const QString& xFormato) const;

    quint8 CByte(const QString& xTexto) const;
    qint16 CInt(const QString& xTexto) const;
    qint32 CLng(const QString& xTexto) const;
    float CSng(const QString& xTexto) const;
    double CDbl(const QString& xTexto) const;
    bool CBool(const QString& xTexto) const;
    QDateTime CDate(const QString& xTexto) const;

    using PiezaFecha = modPatronFecha::Pieza;
    using PatronFecha = modPatronFecha::Patron;

private:
    QString Fecha(const QDateTime& xFecha, const PatronFecha& xPatron) const;
    double LeerNumero(const QString& xTexto, const char* xFuente) const;

    QLocale mLocale;
    QChar mDecimal;
    QChar mGrupo;
    QString mMenos;
    QString mAM;
    QString mPM;
    QChar mSeparadorFecha;
    QChar mSeparadorHora;
    char mOrdenFecha[4]; // "dMy", "Mdy" or "yMd": the order of the short date
    PatronFecha mFechaCorta;
    PatronFecha mHoraLarga;
    qsizetype mLargoFechaGeneral = -1; // the longest general date text, -1 when names are in it
    bool mHoraSola = false;            // the long time writes the time of day alone
    quint64 mVersion = 0;              // which settings these are, for texts kept between calls
};
