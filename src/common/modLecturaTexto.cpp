#include "common/modLecturaTexto.h"

#include "common/modFunciones.h"

#include <cstring>
#include <limits>

namespace modLecturaTexto {

namespace {

int AnioCompleto(const Componente& xAnio) {
    if (xAnio.Digitos > 2) return xAnio.Valor;
    return xAnio.Valor < 30 ? 2000 + xAnio.Valor : 1900 + xAnio.Valor;
}

bool DiaValido(int xAnio, int xMes, int xDia, QDate& xFecha) {
    if (xAnio < 100 || xAnio > 9999) return false;
    xFecha = QDate(xAnio, xMes, xDia);
    return xFecha.isValid();
}

bool ParecidoAnio(const Componente& xComponente) {
    return xComponente.Digitos > 2 || xComponente.Valor > 31;
}

// Day, month and year in the order given ('d', 'M', 'y').
bool EnOrden(const Componente* xPartes, const char* xOrden, QDate& xFecha) {
    int dia = 0, mes = 0, anio = 0;
    for (int k = 0; k < 3; ++k) {
        const Componente& parte = xPartes[k];
        if (xOrden[k] == 'y') {
            if (parte.Digitos == 0) return false;
            anio = AnioCompleto(parte);
        } else if (xOrden[k] == 'M') {
            mes = parte.Valor;
        } else {
            if (parte.Digitos == 0) return false;
            dia = parte.Valor;
        }
    }
    return DiaValido(anio, mes, dia, xFecha);
}

} // namespace

QStringView SinBlancos(const QString& xTexto) {
    return modFunciones::SinBlancos(xTexto, u" \t");
}

bool LeerHexOctal(QStringView xTexto, double& xValor) {
    if (xTexto.size() < 3 || xTexto.at(0) != QLatin1Char('&')) return false;
    const QChar clase = xTexto.at(1).toUpper();
    const int base = clase == QLatin1Char('H') ? 16 : clase == QLatin1Char('O') ? 8 : 0;
    if (base == 0) return false;
    bool correcto = false;
    const qulonglong valor = xTexto.mid(2).toULongLong(&correcto, base);
    if (!correcto || valor > 0xFFFFFFFFull) return false;
    const bool corto = base == 16 ? valor <= 0xFFFF : valor <= 0177777;
    xValor = corto ? static_cast<qint16>(static_cast<quint16>(valor))
                   : static_cast<qint32>(static_cast<quint32>(valor));
    return true;
}

long long ExponenteDecimal(const QByteArray& xNormal) {
    const qsizetype e = xNormal.indexOf('e');
    const QByteArray mantisa = e < 0 ? xNormal : xNormal.left(e);
    const long long explicito = e < 0 ? 0 : xNormal.mid(e + 1).toLongLong();
    const qsizetype punto = mantisa.contains('.') ? mantisa.indexOf('.') : mantisa.size();
    for (qsizetype k = 0; k < mantisa.size(); ++k) {
        if (mantisa.at(k) >= '1' && mantisa.at(k) <= '9')
            return explicito + (k < punto ? punto - k - 1 : punto - k);
    }
    return std::numeric_limits<long long>::min();
}

bool ResolverDia(const std::vector<Componente>& xPartes, const char* xOrden, int xAnioActual,
                 QDate& xFecha) {
    const Componente actual{xAnioActual, 4};
    int nombrados = 0;
    for (const Componente& parte : xPartes)
        nombrados += parte.Digitos == 0 ? 1 : 0;
    if (nombrados > 1 || xPartes.size() > 3) return false;
    if (nombrados == 1) {
        std::vector<Componente> numeros;
        int mes = 0;
        for (const Componente& parte : xPartes) {
            if (parte.Digitos == 0)
                mes = parte.Valor;
            else
                numeros.push_back(parte);
        }
        if (numeros.empty()) return false;
        if (numeros.size() == 1) {
            if (ParecidoAnio(numeros[0]))
                return DiaValido(AnioCompleto(numeros[0]), mes, 1, xFecha);
            return DiaValido(xAnioActual, mes, numeros[0].Valor, xFecha);
        }
        const bool anioPrimero = ParecidoAnio(numeros[0]);
        const Componente& dia = anioPrimero ? numeros[1] : numeros[0];
        const Componente& anio = anioPrimero ? numeros[0] : numeros[1];
        return DiaValido(AnioCompleto(anio), mes, dia.Valor, xFecha);
    }
    if (xPartes.size() == 2) {
        const Componente& a = xPartes[0];
        const Componente& b = xPartes[1];
        if (ParecidoAnio(a)) return DiaValido(AnioCompleto(a), b.Valor, 1, xFecha);
        if (ParecidoAnio(b)) return DiaValido(AnioCompleto(b), a.Valor, 1, xFecha);
        const bool mesPrimero = std::strchr(xOrden, 'M') < std::strchr(xOrden, 'd') ||
                                std::strchr(xOrden, 'd') == nullptr;
        const Componente partes[3] = {a, b, actual};
        const char* ordenes[2] = {mesPrimero ? "Mdy" : "dMy", mesPrimero ? "dMy" : "Mdy"};
        return EnOrden(partes, ordenes[0], xFecha) || EnOrden(partes, ordenes[1], xFecha);
    }
    if (xPartes.size() == 3) {
        if (ParecidoAnio(xPartes[0]))
            return EnOrden(xPartes.data(), "yMd", xFecha) || EnOrden(xPartes.data(), "ydM", xFecha);
        const char* ordenes[] = {xOrden, "Mdy", "dMy", "yMd"};
        for (const char* orden : ordenes) {
            if (EnOrden(xPartes.data(), orden, xFecha)) return true;
        }
        return false;
    }
    return false;
}

} // namespace modLecturaTexto
