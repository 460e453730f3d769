#pragma once

#include <QDateTime>
#include <QLocale>
#include <QString>
#include <QtGlobal>

// The desktop's regional settings: number and date texts, and the conversions of a user's text
// into a typed value. The windows use the system locale, pandrel-cli en_US unless told otherwise,
// tests pick theirs. Conversions raise ErrorVB 13 (type mismatch) for a text that does not convert
// and 6 (overflow) for a value out of range.
class clsConfiguracionRegional {
public:
    explicit clsConfiguracionRegional(const QLocale& xLocale = QLocale::system());

    static const clsConfiguracionRegional& Actual();
    static void EstablecerActual(const QLocale& xLocale);

    const QLocale& Locale() const { return mLocale; }

    // Shortest decimal text of a number, no grouping: 2048, 1.5.
    QString TextoNumero(double xValor) const;
    // General number text of a Single: shortest form, at most 7 significant digits.
    QString TextoSingle(float xValor) const;
    // General date-time text: short date and long time; the date alone at midnight, the time
    // alone on day 0 (1899-12-30).
    QString TextoFechaGeneral(const QDateTime& xFecha) const;
    // Short date text.
    QString TextoFechaCorta(const QDateTime& xFecha) const;
    // A number through a format of digits: "0.00", "#0.##" (which always keeps its separator).
    QString Formato(double xValor, const QString& xFormato) const;
    // A date through a format such as "mm/dd/yyyy hh:mm:ss" or "hh:mm:ss" (mm after hh is minutes).
    QString FormatoFecha(const QDateTime& xFecha, const QString& xFormato) const;

    quint8 CByte(const QString& xTexto) const;
    qint16 CInt(const QString& xTexto) const;
    qint32 CLng(const QString& xTexto) const;
    float CSng(const QString& xTexto) const;
    double CDbl(const QString& xTexto) const;
    bool CBool(const QString& xTexto) const;
    QDateTime CDate(const QString& xTexto) const;

private:
    QLocale mLocale;
};
