#include "common/modEscrituraFecha.h"

#include "common/clsBufferTexto.h"

#include <algorithm>
#include <memory>

namespace modEscrituraFecha {

namespace {

// xValor at xDestino with zeros in front up to xAncho digits, as clsEscritorTexto::Entero writes
// it; returns the end.
inline char16_t* Numero(char16_t* xDestino, int xValor, int xAncho) {
    if (xValor >= 0 && xValor < 100 && xAncho <= 2) {
        if (xValor >= 10 || xAncho == 2) *xDestino++ = static_cast<char16_t>(u'0' + xValor / 10);
        *xDestino++ = static_cast<char16_t>(u'0' + xValor % 10);
        return xDestino;
    }
    return clsBufferTexto::EscribirEntero(xDestino, xValor, qMin(xAncho, 15));
}

// A day's text kept by EscribirDiaNumerico. A thousand days by day number: the dates of three
// years stay side by side.
constexpr qint64 DiasGuardados = 1024;
constexpr qsizetype LargoGuardado = 30;
struct DiaEscrito {
    quint64 Version = 0; // 0: nothing kept here yet
    qint64 Juliano = 0;
    qsizetype Largo = 0;
    char16_t Letras[LargoGuardado];
};

} // namespace

char16_t* EscribirFechaNumerica(char16_t* xDestino, const PartesFecha& xFecha,
                                const Patron& xPatron) {
    for (const Pieza& pieza : xPatron) {
        switch (pieza.Clase) {
        case Pieza::Literal:
        case Pieza::AmPm: {
            const QString& texto =
                pieza.Clase == Pieza::Literal || xFecha.Hora < 12 ? pieza.Texto : pieza.Texto2;
            for (const QChar letra : texto)
                *xDestino++ = letra.unicode();
            break;
        }
        case Pieza::Dia:
            xDestino = Numero(xDestino, xFecha.DiaDelMes, pieza.Ancho);
            break;
        case Pieza::Mes:
            xDestino = Numero(xDestino, xFecha.Mes, pieza.Ancho);
            break;
        case Pieza::Anio2:
            xDestino = Numero(xDestino, xFecha.Anio % 100, 2);
            break;
        case Pieza::Anio4:
            xDestino = Numero(xDestino, xFecha.Anio, 4);
            break;
        case Pieza::DiaDelAnio:
            xDestino = Numero(xDestino, xFecha.Dia.dayOfYear(), 1);
            break;
        case Pieza::Hora12:
            xDestino = Numero(xDestino, xFecha.Hora % 12 == 0 ? 12 : xFecha.Hora % 12, pieza.Ancho);
            break;
        case Pieza::Hora24:
            xDestino = Numero(xDestino, xFecha.Hora, pieza.Ancho);
            break;
        case Pieza::Minuto:
            xDestino = Numero(xDestino, xFecha.Minuto, pieza.Ancho);
            break;
        case Pieza::Segundo:
            xDestino = Numero(xDestino, xFecha.Segundo, pieza.Ancho);
            break;
        case Pieza::Milisegundo:
            xDestino = Numero(xDestino, xFecha.Milisegundo, pieza.Ancho);
            break;
        default:
            break;
        }
    }
    return xDestino;
}

bool SoloHora(const Patron& xPatron) {
    return std::all_of(xPatron.begin(), xPatron.end(), [](const Pieza& xPieza) {
        switch (xPieza.Clase) {
        case Pieza::Literal:
        case Pieza::Hora12:
        case Pieza::Hora24:
        case Pieza::Minuto:
        case Pieza::Segundo:
        case Pieza::Milisegundo:
        case Pieza::AmPm:
            return true;
        default:
            return false;
        }
    });
}

char16_t* EscribirDiaNumerico(char16_t* xDestino, const QDate& xDia, const Patron& xPatron,
                              quint64 xVersion) {
    thread_local std::unique_ptr<DiaEscrito[]> dias;
    if (!dias) dias = std::make_unique<DiaEscrito[]>(DiasGuardados);
    const qint64 juliano = xDia.toJulianDay();
    DiaEscrito& dia = dias[static_cast<quint64>(juliano) % DiasGuardados];
    if (dia.Version == xVersion && dia.Juliano == juliano)
        return std::copy(dia.Letras, dia.Letras + dia.Largo, xDestino);
    char16_t* const fin = EscribirFechaNumerica(xDestino, PartesFecha(xDia, 0), xPatron);
    if (fin - xDestino > LargoGuardado) return fin;
    dia.Version = xVersion;
    dia.Juliano = juliano;
    dia.Largo = fin - xDestino;
    std::copy(xDestino, fin, dia.Letras);
    return fin;
}

} // namespace modEscrituraFecha
