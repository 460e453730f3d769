#include "cli/modLotes.h"

#include <QByteArray>
#include <algorithm>
#include <stdio.h>

namespace modLotes {

namespace {

enum class Comillas { Ninguna, Simples, Dobles };

bool EsBlanco(QChar xLetra) {
    return xLetra == QLatin1Char(' ') || xLetra == QLatin1Char('\t') || xLetra == QLatin1Char('\n');
}

// Inside double quotes a backslash only takes away the meaning of these.
bool EscapableEntreDobles(QChar xLetra) {
    return xLetra == QLatin1Char('$') || xLetra == QLatin1Char('`') || xLetra == QLatin1Char('"') ||
           xLetra == QLatin1Char('\\') || xLetra == QLatin1Char('\n');
}

void Terminar(int xEstado, int& xPeor) {
    std::printf("#end %d\n", xEstado);
    std::fflush(stdout);
    xPeor = std::max(xPeor, xEstado);
}

// The next line of xEntrada without its end (a line feed, and a carriage return before it, as a
// script written on Windows ends its lines); false at the end of the input. A line longer than
// kLineaMaxima is read to its end but not kept: xLarga says so.
bool LeerLinea(std::FILE* xEntrada, QByteArray& xLinea, bool& xLarga) {
    xLinea.clear();
    xLarga = false;
    int letra = getc_unlocked(xEntrada);
    if (letra == EOF) return false;
    for (; letra != EOF && letra != '\n'; letra = getc_unlocked(xEntrada)) {
        if (xLinea.size() < kLineaMaxima)
            xLinea.append(static_cast<char>(letra));
        else
            xLarga = true;
    }
    if (xLinea.endsWith('\r')) xLinea.chop(1);
    return true;
}

} // namespace

Palabras Partir(const QString& xTexto, QStringList& xPalabras) {
    xPalabras.clear();
    QString palabra;
    bool enPalabra = false;
    Comillas comillas = Comillas::Ninguna;
    const qsizetype largo = xTexto.size();
    for (qsizetype i = 0; i < largo; ++i) {
        const QChar letra = xTexto[i];
        if (comillas == Comillas::Simples) {
            if (letra == QLatin1Char('\''))
                comillas = Comillas::Ninguna;
            else
                palabra += letra;
            continue;
        }
        if (letra == QLatin1Char('\\')) {
            if (i + 1 == largo) return Palabras::Incompletas;
            const QChar siguiente = xTexto[++i];
            if (comillas == Comillas::Dobles && !EscapableEntreDobles(siguiente)) palabra += letra;
            // A backslash and a line break join the two lines.
            if (siguiente != QLatin1Char('\n')) {
                palabra += siguiente;
                enPalabra = true;
            }
            continue;
        }
        if (comillas == Comillas::Dobles) {
            if (letra == QLatin1Char('"'))
                comillas = Comillas::Ninguna;
            else
                palabra += letra;
            continue;
        }
        if (letra == QLatin1Char('\'') || letra == QLatin1Char('"')) {
            comillas = letra == QLatin1Char('\'') ? Comillas::Simples : Comillas::Dobles;
            enPalabra = true;
        } else if (EsBlanco(letra)) {
            if (enPalabra) xPalabras.append(palabra);
            palabra.clear();
            enPalabra = false;
        } else if (letra == QLatin1Char('#') && !enPalabra) {
            const qsizetype finLinea = xTexto.indexOf(QLatin1Char('\n'), i);
            i = finLinea < 0 ? largo : finLinea - 1;
        } else {
            palabra += letra;
            enPalabra = true;
        }
    }
    if (comillas != Comillas::Ninguna) return Palabras::Incompletas;
    if (enPalabra) xPalabras.append(palabra);
    return Palabras::Completas;
}

int Ejecutar(std::FILE* xEntrada, const std::function<int(const QStringList&)>& xEjecutar) {
    int peor = 0;
    QString texto;
    QByteArray linea;
    bool larga = false;
    while (LeerLinea(xEntrada, linea, larga)) {
        // A line, or a command of many lines, beyond the limit is no command: it is skipped whole.
        if (larga || texto.size() + linea.size() > kLineaMaxima) {
            std::fprintf(stderr, "usage: a command longer than %d bytes was skipped\n",
                         int(kLineaMaxima));
            texto.clear();
            Terminar(2, peor);
            continue;
        }
        texto += QString::fromUtf8(linea);
        QStringList palabras;
        if (Partir(texto, palabras) == Palabras::Incompletas) {
            texto += QLatin1Char('\n');
            continue;
        }
        texto.clear();
        if (!palabras.isEmpty()) Terminar(xEjecutar(palabras), peor);
    }
    if (!texto.isEmpty()) {
        std::fputs("usage: the input ends inside a quote or after a backslash\n", stderr);
        Terminar(2, peor);
    }
    return peor;
}

} // namespace modLotes
