#pragma once

#include "common/modPatronFecha.h"

#include <QDate>
#include <QLocale>
#include <QTime>

// Dates written through a compiled pattern: into any writer with Letra, Texto and Entero, or,
// for patterns of numbers and literals alone, straight into room reserved for them.
namespace modEscrituraFecha {

using modPatronFecha::Patron;
using modPatronFecha::Pieza;

// Day 0 of the desktop's dates: a time alone falls on it.
inline const QDate DiaCero(1899, 12, 30);

// A date and time taken apart once, for the patterns that write it.
struct PartesFecha {
    PartesFecha(const QDate& xDia, const QTime& xHora)
        : PartesFecha(xDia, xHora.msecsSinceStartOfDay()) {}
    PartesFecha(const QDate& xDia, int xMilisegundos) : Dia(xDia) {
        Calendario(xDia);
        Horas(xMilisegundos);
    }
    // The time of day alone, for the patterns SoloHora accepts: no day is worked out.
    explicit PartesFecha(int xMilisegundos) { Horas(xMilisegundos); }
    QDate Dia;
    int Anio = 0, Mes = 0, DiaDelMes = 0;

private:
    void Horas(int xMilisegundos) {
        Hora = xMilisegundos / 3600000;
        Minuto = xMilisegundos / 60000 % 60;
        Segundo = xMilisegundos / 1000 % 60;
        Milisegundo = xMilisegundos % 1000;
    }
    // Year, month and day from the day number in integer steps (proleptic Gregorian calendar,
    // as QDate counts), for the years after 1 AD; QDate itself for the others.
    void Calendario(const QDate& xDia) {
        constexpr qint64 PrimerDiaDeLaEra = 1721426; // 0001-01-01
        const qint64 juliano = xDia.toJulianDay();
        if (!xDia.isValid() || juliano < PrimerDiaDeLaEra) {
            xDia.getDate(&Anio, &Mes, &DiaDelMes);
            return;
        }
        // Days since 0000-03-01 in eras of 400 years.
        const qint64 dias = juliano - 1721120;
        const qint64 era = dias / 146097;
        const qint64 diaDeEra = dias - era * 146097;
        const qint64 anioDeEra =
            (diaDeEra - diaDeEra / 1460 + diaDeEra / 36524 - diaDeEra / 146096) / 365;
        const qint64 diaDelAnio = diaDeEra - (365 * anioDeEra + anioDeEra / 4 - anioDeEra / 100);
        const qint64 mesDesdeMarzo = (5 * diaDelAnio + 2) / 153;
        DiaDelMes = static_cast<int>(diaDelAnio - (153 * mesDesdeMarzo + 2) / 5 + 1);
        Mes = static_cast<int>(mesDesdeMarzo < 10 ? mesDesdeMarzo + 3 : mesDesdeMarzo - 9);
        Anio = static_cast<int>(anioDeEra + era * 400 + (Mes <= 2 ? 1 : 0));
    }

public:
    int Hora, Minuto, Segundo, Milisegundo;
};

// One date through a compiled pattern.
template <typename Escritura>
void EscribirFecha(Escritura& xTexto, const PartesFecha& xFecha, const Patron& xPatron,
                   const QLocale& xLocale) {
    for (const Pieza& pieza : xPatron) {
        switch (pieza.Clase) {
        case Pieza::Literal:
            xTexto.Texto(pieza.Texto);
            break;
        case Pieza::Dia:
            xTexto.Entero(xFecha.DiaDelMes, pieza.Ancho);
            break;
        case Pieza::NombreDiaCorto:
            xTexto.Texto(xLocale.dayName(xFecha.Dia.dayOfWeek(), QLocale::ShortFormat));
            break;
        case Pieza::NombreDiaLargo:
            xTexto.Texto(xLocale.dayName(xFecha.Dia.dayOfWeek(), QLocale::LongFormat));
            break;
        case Pieza::Mes:
            xTexto.Entero(xFecha.Mes, pieza.Ancho);
            break;
        case Pieza::NombreMesCorto:
            xTexto.Texto(xLocale.monthName(xFecha.Mes, QLocale::ShortFormat));
            break;
        case Pieza::NombreMesLargo:
            xTexto.Texto(xLocale.monthName(xFecha.Mes, QLocale::LongFormat));
            break;
        case Pieza::Anio2:
            xTexto.Entero(xFecha.Anio % 100, 2);
            break;
        case Pieza::Anio4:
            xTexto.Entero(xFecha.Anio, 4);
            break;
        case Pieza::DiaDelAnio:
            xTexto.Entero(xFecha.Dia.dayOfYear(), 1);
            break;
        case Pieza::Hora12:
            xTexto.Entero(xFecha.Hora % 12 == 0 ? 12 : xFecha.Hora % 12, pieza.Ancho);
            break;
        case Pieza::Hora24:
            xTexto.Entero(xFecha.Hora, pieza.Ancho);
            break;
        case Pieza::Minuto:
            xTexto.Entero(xFecha.Minuto, pieza.Ancho);
            break;
        case Pieza::Segundo:
            xTexto.Entero(xFecha.Segundo, pieza.Ancho);
            break;
        case Pieza::Milisegundo:
            xTexto.Entero(xFecha.Milisegundo, pieza.Ancho);
            break;
        case Pieza::AmPm:
            xTexto.Texto(xFecha.Hora < 12 ? pieza.Texto : pieza.Texto2);
            break;
        }
    }
}

// A pattern of numbers and literals (LargoMaximo not -1) written straight into room reserved
// for it; returns the end.
char16_t* EscribirFechaNumerica(char16_t* xDestino, const PartesFecha& xFecha,
                                const Patron& xPatron);

// True when xPatron writes the time of day alone: no day, month, year or their names.
bool SoloHora(const Patron& xPatron);

// The day xDia through a pattern of numbers and literals, as EscribirFechaNumerica writes it, kept
// on each thread for the days last written: a database's records fall on far fewer days than
// there are records. xVersion names the pattern (each set of regional settings has its own, never
// 0), so a pattern replaced by another is never taken for it.
char16_t* EscribirDiaNumerico(char16_t* xDestino, const QDate& xDia, const Patron& xPatron,
                              quint64 xVersion);

// The general text: the time alone on day 0, the date alone at midnight, else both.
template <typename Escritura>
void EscribirFechaGeneral(Escritura& xTexto, const PartesFecha& xPartes, int xMilisegundos,
                          const Patron& xFechaCorta, const Patron& xHoraLarga,
                          const QLocale& xLocale) {
    if (xPartes.Dia == DiaCero) {
        EscribirFecha(xTexto, xPartes, xHoraLarga, xLocale);
    } else if (xMilisegundos == 0) {
        EscribirFecha(xTexto, xPartes, xFechaCorta, xLocale);
    } else {
        EscribirFecha(xTexto, xPartes, xFechaCorta, xLocale);
        xTexto.Letra(u' ');
        EscribirFecha(xTexto, xPartes, xHoraLarga, xLocale);
    }
}

} // namespace modEscrituraFecha
