#include "common/modPatronFecha.h"

namespace modPatronFecha {

namespace {

void AgregarLiteral(Patron& xPatron, const QString& xTexto) {
    if (xTexto.isEmpty()) return;
    if (!xPatron.empty() && xPatron.back().Clase == Pieza::Literal)
        xPatron.back().Texto += xTexto;
    else
        xPatron.push_back({Pieza::Literal, 0, xTexto, {}});
}

void AgregarCampo(Patron& xPatron, Pieza::Tipo xClase, int xAncho) {
    xPatron.push_back({xClase, static_cast<quint8>(xAncho), {}, {}});
}

// A day or a month: one or two letters write its number, three its short name, more its long one.
void AgregarNombrable(Patron& xPatron, int xCorrida, Pieza::Tipo xNumero, Pieza::Tipo xCorto,
                      Pieza::Tipo xLargo) {
    AgregarCampo(xPatron,
                 xCorrida <= 2   ? xNumero
                 : xCorrida == 3 ? xCorto
                                 : xLargo,
                 qMin(xCorrida, 2));
}

int Corrida(const QString& xFormato, qsizetype xDesde) {
    const QChar letra = xFormato.at(xDesde);
    qsizetype hasta = xDesde;
    while (hasta < xFormato.size() && xFormato.at(hasta) == letra)
        ++hasta;
    return static_cast<int>(hasta - xDesde);
}

bool TieneAmPmQt(const QString& xFormato) {
    bool entreComillas = false;
    for (const QChar c : xFormato) {
        if (c == QLatin1Char('\''))
            entreComillas = !entreComillas;
        else if (!entreComillas && (c == QLatin1Char('a') || c == QLatin1Char('A')))
            return true;
    }
    return false;
}

// The morning and afternoon marks, both in the case the pattern asks for.
Pieza PiezaAmPm(const QString& xAm, const QString& xPm, bool xMinusculas) {
    if (xMinusculas) return {Pieza::AmPm, 0, xAm.toLower(), xPm.toLower()};
    return {Pieza::AmPm, 0, xAm.toUpper(), xPm.toUpper()};
}

void QuitarBlancosExtremos(Patron& xPatron) {
    if (!xPatron.empty() && xPatron.back().Clase == Pieza::Literal) {
        QString& texto = xPatron.back().Texto;
        while (!texto.isEmpty() && texto.back().isSpace())
            texto.chop(1);
        if (texto.isEmpty()) xPatron.pop_back();
    }
    if (!xPatron.empty() && xPatron.front().Clase == Pieza::Literal) {
        QString& texto = xPatron.front().Texto;
        while (!texto.isEmpty() && texto.front().isSpace())
            texto.remove(0, 1);
        if (texto.isEmpty()) xPatron.erase(xPatron.begin());
    }
}

} // namespace

// A locale's date or time format (QLocale's pattern letters), with the year always in four
// digits and without the time zone, as the desktop writes its general dates.
Patron CompilarLocale(const QString& xFormato, const QLocale& xLocale) {
    Patron patron;
    const bool doceHoras = TieneAmPmQt(xFormato);
    bool sinZona = false;
    qsizetype i = 0;
    while (i < xFormato.size()) {
        const QChar c = xFormato.at(i);
        if (c == QLatin1Char('\'')) {
            const qsizetype cierre = xFormato.indexOf(QLatin1Char('\''), i + 1);
            const qsizetype fin = cierre < 0 ? xFormato.size() : cierre;
            AgregarLiteral(patron,
                           fin == i + 1 ? QStringLiteral("'") : xFormato.mid(i + 1, fin - i - 1));
            i = fin + 1;
            continue;
        }
        const int corrida = Corrida(xFormato, i);
        switch (c.unicode()) {
        case 'd':
            AgregarNombrable(patron, corrida, Pieza::Dia, Pieza::NombreDiaCorto,
                             Pieza::NombreDiaLargo);
            break;
        case 'M':
            AgregarNombrable(patron, corrida, Pieza::Mes, Pieza::NombreMesCorto,
                             Pieza::NombreMesLargo);
            break;
        case 'y':
            AgregarCampo(patron, Pieza::Anio4, 4);
            break;
        case 'h':
            AgregarCampo(patron, doceHoras ? Pieza::Hora12 : Pieza::Hora24, qMin(corrida, 2));
            break;
        case 'H':
            AgregarCampo(patron, Pieza::Hora24, qMin(corrida, 2));
            break;
        case 'm':
            AgregarCampo(patron, Pieza::Minuto, qMin(corrida, 2));
            break;
        case 's':
            AgregarCampo(patron, Pieza::Segundo, qMin(corrida, 2));
            break;
        case 'z':
            AgregarCampo(patron, Pieza::Milisegundo, corrida >= 3 ? 3 : 1);
            break;
        case 't':
            sinZona = true;
            break;
        case 'a':
        case 'A': {
            const bool mayusculas = c == QLatin1Char('A');
            const QChar siguiente = i + 1 < xFormato.size() ? xFormato.at(i + 1) : QChar();
            const bool doble = siguiente == QLatin1Char('p') || siguiente == QLatin1Char('P');
            patron.push_back(PiezaAmPm(xLocale.amText(), xLocale.pmText(), !mayusculas));
            i += doble ? 2 : 1;
            continue;
        }
        default:
            AgregarLiteral(patron, QString(corrida, c));
            break;
        }
        i += corrida;
    }
    if (sinZona) QuitarBlancosExtremos(patron);
    return patron;
}

namespace {

const Pieza* CampoAnterior(const Patron& xPatron, size_t xIndice) {
    while (xIndice > 0) {
        --xIndice;
        if (xPatron[xIndice].Clase != Pieza::Literal) return &xPatron[xIndice];
    }
    return nullptr;
}

const Pieza* CampoSiguiente(const Patron& xPatron, size_t xIndice) {
    for (++xIndice; xIndice < xPatron.size(); ++xIndice) {
        if (xPatron[xIndice].Clase != Pieza::Literal) return &xPatron[xIndice];
    }
    return nullptr;
}

bool EsHora(const Pieza* xPieza) {
    return xPieza && (xPieza->Clase == Pieza::Hora12 || xPieza->Clase == Pieza::Hora24);
}

// "m" or "mm" right after an hour or right before the seconds is the minute, not the month.
void ResolverMinutos(Patron& xPatron) {
    for (size_t i = 0; i < xPatron.size(); ++i) {
        if (xPatron[i].Clase != Pieza::Mes) continue;
        const Pieza* siguiente = CampoSiguiente(xPatron, i);
        if (EsHora(CampoAnterior(xPatron, i)) || (siguiente && siguiente->Clase == Pieza::Segundo))
            xPatron[i].Clase = Pieza::Minuto;
    }
}

struct MarcaAmPm {
    const char* Marca;
    bool DelLocale;
};

} // namespace

// The desktop's format letters: d, m, y, h, n, s, AM/PM and its kin, "/" and ":" as the locale's
// separators, quoted text and backslash escapes.
Patron CompilarFormato(const QString& xFormato, const QLocale& xLocale, QChar xSeparadorFecha,
                       QChar xSeparadorHora, const Patron& xFechaCorta) {
    static const MarcaAmPm marcas[] = {{"AM/PM", false}, {"A/P", false}, {"AMPM", true}};
    Patron patron;
    const QString mayusculas = xFormato.toUpper();
    const bool doceHoras = mayusculas.contains(QLatin1String("AM/PM")) ||
                           mayusculas.contains(QLatin1String("A/P")) ||
                           mayusculas.contains(QLatin1String("AMPM"));
    qsizetype i = 0;
    while (i < xFormato.size()) {
        const QChar c = xFormato.at(i);
        if (c == QLatin1Char('"')) {
            const qsizetype cierre = xFormato.indexOf(QLatin1Char('"'), i + 1);
            const qsizetype fin = cierre < 0 ? xFormato.size() : cierre;
            AgregarLiteral(patron, xFormato.mid(i + 1, fin - i - 1));
            i = fin + 1;
            continue;
        }
        if (c == QLatin1Char('\\')) {
            if (i + 1 < xFormato.size()) AgregarLiteral(patron, xFormato.at(i + 1));
            i += 2;
            continue;
        }
        bool esMarca = false;
        for (const MarcaAmPm& marca : marcas) {
            const QLatin1String texto(marca.Marca);
            if (!mayusculas.mid(i).startsWith(texto)) continue;
            const qsizetype barra = texto.indexOf(QLatin1Char('/'));
            patron.push_back(marca.DelLocale
                                 ? Pieza{Pieza::AmPm, 0, xLocale.amText(), xLocale.pmText()}
                                 : PiezaAmPm(xFormato.mid(i, barra),
                                             xFormato.mid(i + barra + 1, texto.size() - barra - 1),
                                             c.isLower()));
            i += texto.size();
            esMarca = true;
            break;
        }
        if (esMarca) continue;
        const int corrida = Corrida(xFormato, i);
        switch (c.toLower().unicode()) {
        case 'd':
            if (corrida >= 5)
                patron.insert(patron.end(), xFechaCorta.begin(), xFechaCorta.end());
            else
                AgregarNombrable(patron, corrida, Pieza::Dia, Pieza::NombreDiaCorto,
                                 Pieza::NombreDiaLargo);
            break;
        case 'm':
            AgregarNombrable(patron, corrida, Pieza::Mes, Pieza::NombreMesCorto,
                             Pieza::NombreMesLargo);
            break;
        case 'y':
            if (corrida == 1)
                AgregarCampo(patron, Pieza::DiaDelAnio, 1);
            else
                AgregarCampo(patron, corrida == 2 ? Pieza::Anio2 : Pieza::Anio4,
                             corrida == 2 ? 2 : 4);
            break;
        case 'h':
            AgregarCampo(patron, doceHoras ? Pieza::Hora12 : Pieza::Hora24, qMin(corrida, 2));
            break;
        case 'n':
            AgregarCampo(patron, Pieza::Minuto, qMin(corrida, 2));
            break;
        case 's':
            AgregarCampo(patron, Pieza::Segundo, qMin(corrida, 2));
            break;
        case '/':
            AgregarLiteral(patron, QString(corrida, xSeparadorFecha));
            break;
        case ':':
            AgregarLiteral(patron, QString(corrida, xSeparadorHora));
            break;
        default:
            AgregarLiteral(patron, QString(corrida, c));
            break;
        }
        i += corrida;
    }
    ResolverMinutos(patron);
    return patron;
}

QChar PrimerSeparador(const Patron& xPatron, QChar xPredeterminado) {
    for (const Pieza& pieza : xPatron) {
        const QString texto = pieza.Texto.trimmed();
        if (pieza.Clase == Pieza::Literal && !texto.isEmpty() && !texto.front().isLetterOrNumber())
            return texto.front();
    }
    return xPredeterminado;
}

// The longest text a pattern of numbers and literals gives; -1 when it holds names of days or
// months, whose lengths depend on the language.
qsizetype LargoMaximo(const Patron& xPatron) {
    qsizetype largo = 0;
    for (const Pieza& pieza : xPatron) {
        switch (pieza.Clase) {
        case Pieza::Literal:
            largo += pieza.Texto.size();
            break;
        case Pieza::AmPm:
            largo += qMax(pieza.Texto.size(), pieza.Texto2.size());
            break;
        case Pieza::NombreDiaCorto:
        case Pieza::NombreDiaLargo:
        case Pieza::NombreMesCorto:
        case Pieza::NombreMesLargo:
            return -1;
        default:
            largo += qMax<qsizetype>(pieza.Ancho, 10) + 1; // the digits and a sign
            break;
        }
    }
    return largo;
}

} // namespace modPatronFecha
