#include "data/modEntradaCatalogo.h"

#include "common/modFunciones.h"

namespace modEntradaCatalogo {

QString Entrada(const QString& xNombre, qint64 xClase) {
    return xNombre + QLatin1Char('*') + QString::number(xClase);
}

EntradaBase LeerEntrada(QStringView xEntrada) {
    const qsizetype estrella = xEntrada.indexOf(QLatin1Char('*'));
    if (estrella < 0) return {xEntrada.toString(), 0};
    const double clase = modFunciones::Val(xEntrada.mid(estrella + 1));
    return {xEntrada.left(estrella).toString(), static_cast<qint64>(qBound(-9e18, clase, 9e18))};
}

QStringList Entradas(const QString& xLista, const QString& xSeparador) {
    QStringList entradas = xLista.split(xSeparador);
    entradas.removeLast();
    return entradas;
}

} // namespace modEntradaCatalogo
