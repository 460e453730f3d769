#pragma once

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringView>
#include <vector>

// The pieces of reading a user's text as a number or a date.
namespace modLecturaTexto {

// Blanks around a number or a date are spaces and tabs.
QStringView SinBlancos(const QString& xTexto);

inline bool EsDigito(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// "&H1F" and "&O17": a 16-bit value when it fits in four hex (six octal) digits, else 32-bit.
bool LeerHexOctal(QStringView xTexto, double& xValor);

// The decimal exponent of the first significant digit of a plain number text ("-12.5e3" is 4).
long long ExponenteDecimal(const QByteArray& xNormal);

// A number or a month name of a date text, in the order written.
struct Componente {
    int Valor;
    int Digitos; // 0 for a month given by name
};

// Day, month and year from the numbers and the month name of a date text, tried in the order
// xOrden ("dMy", "Mdy" or "yMd") first; a missing year is xAnioActual.
bool ResolverDia(const std::vector<Componente>& xPartes, const char* xOrden, int xAnioActual,
                 QDate& xFecha);

} // namespace modLecturaTexto
