#include "common/modCifras.h"

#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstring>

using modCifras::Cifras;

namespace {

void QuitarCerosFinales(Cifras& xCifras) {
    while (xCifras.Cantidad > 1 && xCifras.Digitos[xCifras.Cantidad - 1] == '0')
        --xCifras.Cantidad;
}

// Rounds half away from zero on the exact decimal expansion of the value, as the desktop does.
Cifras SignificativasExactas(double xValor, int xDigitos) {
    // Enough digits to hold the whole expansion of any double.
    static thread_local char texto[800];
    const auto resultado = std::to_chars(texto, texto + sizeof texto, std::fabs(xValor),
                                         std::chars_format::scientific, 770);
    char digitos[800];
    int cantidad = 0;
    const char* p = texto;
    for (; p < resultado.ptr && *p != 'e'; ++p) {
        if (*p != '.') digitos[cantidad++] = *p;
    }
    Cifras cifras{};
    std::from_chars(p + 1 + (p[1] == '+'), resultado.ptr, cifras.Exponente);
    bool subir = cantidad > xDigitos && digitos[xDigitos] >= '5';
    for (int k = xDigitos - 1; k >= 0; --k) {
        char digito = digitos[k];
        if (subir) {
            subir = digito == '9';
            digito = subir ? '0' : static_cast<char>(digito + 1);
        }
        cifras.Digitos[k] = digito;
    }
    cifras.Cantidad = xDigitos;
    if (subir) {
        cifras.Digitos[0] = '1';
        ++cifras.Exponente;
    }
    QuitarCerosFinales(cifras);
    return cifras;
}

// Powers of ten as doubles; exact up to 1e22, within half an ulp beyond.
struct Potencias {
    double Valor[64];
    constexpr Potencias() : Valor() {
        double potencia = 1;
        for (int k = 0; k < 64; ++k) {
            Valor[k] = potencia;
            potencia *= 10;
        }
    }
};
constexpr Potencias PotenciasDeDiez;

// The few digits of a Single by scaling in double precision, which carries far more digits than
// needed; a value that lands too near a rounding tie goes the exact way.
bool SignificativasRapidas(double xValor, int xDigitos, Cifras& xCifras) {
    const double valor = std::fabs(xValor);
    int binario = 0;
    std::frexp(valor, &binario);
    int e = static_cast<int>(std::floor((binario - 1) * 0.30102999566398120));
    const double minimo = PotenciasDeDiez.Valor[xDigitos - 1];
    const double maximo = PotenciasDeDiez.Valor[xDigitos];
    double escalado = 0;
    for (int intento = 0; intento < 3; ++intento) {
        const int k = xDigitos - 1 - e;
        if (k >= 64 || k <= -64) return false;
        escalado = k >= 0 ? valor * PotenciasDeDiez.Valor[k] : valor / PotenciasDeDiez.Valor[-k];
        if (escalado >= maximo)
            ++e;
        else if (escalado < minimo)
            --e;
        else
            break;
    }
    if (escalado < minimo || escalado >= maximo) return false;
    if (std::fabs(escalado - std::floor(escalado) - 0.5) < 1e-6) return false;
    auto entero = static_cast<qint64>(std::nearbyint(escalado));
    if (entero >= static_cast<qint64>(maximo)) {
        entero /= 10;
        ++e;
    }
    for (int k = xDigitos - 1; k >= 0; --k) {
        xCifras.Digitos[k] = static_cast<char>('0' + entero % 10);
        entero /= 10;
    }
    xCifras.Cantidad = xDigitos;
    xCifras.Exponente = e;
    QuitarCerosFinales(xCifras);
    return true;
}

// A double whose shortest exact text has at most 15 digits: those are its 15-digit rounding,
// since a double's rounding interval is narrower than the spacing of 15-digit decimals.
bool SignificativasCortas(double xValor, int xDigitos, Cifras& xCifras) {
    char texto[40];
    const auto resultado = std::to_chars(texto, texto + sizeof texto, std::fabs(xValor),
                                         std::chars_format::scientific);
    const char* p = texto;
    for (; p < resultado.ptr && *p != 'e'; ++p) {
        if (*p == '.') continue;
        if (xCifras.Cantidad == xDigitos) return false;
        xCifras.Digitos[xCifras.Cantidad++] = *p;
    }
    std::from_chars(p + 1 + (p[1] == '+'), resultado.ptr, xCifras.Exponente);
    QuitarCerosFinales(xCifras);
    return true;
}

// A Single with at most three decimals and at most seven significant digits is its own rounding:
// its digits are those of the value times 1000, which a double holds exactly for any Single.
bool CifrasDeSingleExacto(double xValor, Cifras& xCifras) {
    const double milesimas = std::fabs(xValor) * 1000;
    if (milesimas >= 1e10 || milesimas != std::floor(milesimas)) return false;
    char cifras[16] = {};
    const auto resultado =
        std::to_chars(cifras, cifras + sizeof cifras, static_cast<qint64>(milesimas));
    const int cantidad = static_cast<int>(resultado.ptr - cifras);
    int significativas = cantidad;
    while (significativas > 1 && cifras[significativas - 1] == '0')
        --significativas;
    if (significativas > 7) return false;
    std::memcpy(xCifras.Digitos, cifras, static_cast<size_t>(significativas));
    xCifras.Cantidad = significativas;
    xCifras.Exponente = cantidad - 1 - 3;
    return true;
}

} // namespace

// The significant digits of a finite, non-zero value rounded to xDigitos digits. Seven digits
// are those of a Single.
void modCifras::Significativas(double xValor, int xDigitos, Cifras& xCifras) {
    xCifras = Cifras{};
    if (xDigitos == 7 && CifrasDeSingleExacto(xValor, xCifras)) return;
    xCifras = Cifras{};
    if (xDigitos <= 9 && SignificativasRapidas(xValor, xDigitos, xCifras)) return;
    xCifras = Cifras{};
    if (xDigitos == 15 && SignificativasCortas(xValor, xDigitos, xCifras)) return;
    xCifras = SignificativasExactas(xValor, xDigitos);
}
