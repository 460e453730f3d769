#pragma once

#include "common/clsBufferTexto.h"

#include <QString>
#include <cmath>

// The significant digits of numbers, and the desktop's general number text written from them
// into any writer with Letra, Letras, Texto and Entero.
namespace modCifras {

// The significant digits of a finite, non-zero value rounded to xDigitos digits, with trailing
// zeros removed, and the decimal exponent of the first digit.
struct Cifras {
    char Digitos[24] = {};
    int Cantidad = 0;
    int Exponente = 0;
};

// The significant digits of a finite, non-zero value rounded to xDigitos digits. Seven digits
// are those of a Single.
void Significativas(double xValor, int xDigitos, Cifras& xCifras);

// The desktop's general number form: up to xDigitos significant digits; the exponent form
// (1.234568E+07, 1E-05) when the exponent reaches xDigitos or falls below -4.
template <typename Escritura>
void TextoGeneral(Escritura& xTexto, double xValor, int xDigitos, QChar xDecimal,
                  const QString& xMenos) {
    if (std::isnan(xValor)) {
        xTexto.Texto(std::signbit(xValor) ? QStringLiteral("-1.#QNAN") : QStringLiteral("1.#QNAN"));
        return;
    }
    if (std::isinf(xValor)) {
        xTexto.Texto(xValor < 0 ? QStringLiteral("-1.#INF") : QStringLiteral("1.#INF"));
        return;
    }
    if (xValor == 0) {
        xTexto.Letra(u'0');
        return;
    }
    Cifras cifras{};
    Significativas(xValor, xDigitos, cifras);
    if (xValor < 0) xTexto.Texto(xMenos);
    const int e = cifras.Exponente;
    if (e >= xDigitos || e < -4) {
        xTexto.Letra(cifras.Digitos[0]);
        if (cifras.Cantidad > 1) {
            xTexto.Letra(xDecimal.unicode());
            xTexto.Letras(cifras.Digitos + 1, cifras.Cantidad - 1);
        }
        xTexto.Letra(u'E');
        xTexto.Letra(e < 0 ? u'-' : u'+');
        xTexto.Entero(e < 0 ? -e : e, 2);
        return;
    }
    if (e < 0) {
        xTexto.Letra(u'0');
        xTexto.Letra(xDecimal.unicode());
        for (int cero = e + 1; cero < 0; ++cero)
            xTexto.Letra(u'0');
        xTexto.Letras(cifras.Digitos, cifras.Cantidad);
        return;
    }
    for (int k = 0; k <= e; ++k)
        xTexto.Letra(k < cifras.Cantidad ? cifras.Digitos[k] : '0');
    if (cifras.Cantidad > e + 1) {
        xTexto.Letra(xDecimal.unicode());
        xTexto.Letras(cifras.Digitos + e + 1, cifras.Cantidad - e - 1);
    }
}

// The general text of a Single with at most three decimals and seven significant digits, which
// needs no rounding: its whole part and its thousandths, as integers. False for any other value.
inline bool TextoSingleExacto(clsBufferTexto& xTexto, float xValor, QChar xDecimal,
                              const QString& xMenos) {
    const double milesimas = std::fabs(static_cast<double>(xValor)) * 1000;
    if (!(milesimas < 1e10) || milesimas != std::floor(milesimas)) return false;
    auto valor = static_cast<quint64>(milesimas);
    if (valor == 0) {
        xTexto.Letra(u'0');
        return true;
    }
    int decimales = 3;
    while (decimales > 0 && valor % 10 == 0) {
        valor /= 10;
        --decimales;
    }
    quint64 limite = 10000000; // eight digits are too many
    if (valor >= limite) return false;
    quint64 potencia = 1;
    for (int k = 0; k < decimales; ++k)
        potencia *= 10;
    if (xValor < 0) xTexto.Texto(xMenos);
    xTexto.Entero(static_cast<qint64>(valor / potencia));
    if (decimales > 0) {
        xTexto.Letra(xDecimal.unicode());
        xTexto.Entero(static_cast<qint64>(valor % potencia), decimales);
    }
    return true;
}

} // namespace modCifras
