#pragma once

#include <QChar>
#include <QLocale>
#include <QString>
#include <QtGlobal>
#include <vector>

// Date patterns compiled once into pieces: the locale's formats (QLocale's pattern letters) and
// the desktop's format letters.
namespace modPatronFecha {

// One piece of a compiled date pattern: a field of the date or time, or literal text.
struct Pieza {
    enum Tipo : quint8 {
        Literal,
        Dia,
        NombreDiaCorto,
        NombreDiaLargo,
        Mes,
        NombreMesCorto,
        NombreMesLargo,
        Anio2,
        Anio4,
        DiaDelAnio,
        Hora12,
        Hora24,
        Minuto,
        Segundo,
        Milisegundo,
        AmPm
    };
    Tipo Clase;
    quint8 Ancho;   // digits: 1 without a leading zero, more padded to that many
    QString Texto;  // the literal text, or the morning text of AmPm
    QString Texto2; // the afternoon text of AmPm
};
using Patron = std::vector<Pieza>;

// A locale's date or time format, with the year always in four digits and without the time
// zone, as the desktop writes its general dates.
Patron CompilarLocale(const QString& xFormato, const QLocale& xLocale);
// The desktop's format letters; "ddddd" is the short date xFechaCorta.
Patron CompilarFormato(const QString& xFormato, const QLocale& xLocale, QChar xSeparadorFecha,
                       QChar xSeparadorHora, const Patron& xFechaCorta);
// The first separator among the pattern's literals, xPredeterminado when there is none.
QChar PrimerSeparador(const Patron& xPatron, QChar xPredeterminado);
// The longest text a pattern of numbers and literals gives; -1 when it holds names of days or
// months.
qsizetype LargoMaximo(const Patron& xPatron);

} // namespace modPatronFecha
