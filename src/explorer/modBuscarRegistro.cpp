#include "explorer/modBuscarRegistro.h"

#include "common/clsConfiguracionRegional.h"
#include "common/modFunciones.h"
#include "explorer/clsGrillaFlexible.h"

namespace modBuscarRegistro {
namespace {
QString Recortado(const QString& xTexto) {
    return modFunciones::SinBlancos(xTexto).toString();
}

bool CoincideTexto(const QString& xCelda, const QString& xBuscado, bool xMayMin) {
    if (xMayMin) return xCelda.startsWith(xBuscado, Qt::CaseSensitive);
    return QString::compare(xCelda.toUpper(), xBuscado.toUpper(), Qt::CaseSensitive) >= 0;
}

bool CoincideFecha(const QString& xCelda, const QString& xBuscado, bool xMayMin) {
    const clsConfiguracionRegional& regional = clsConfiguracionRegional::Actual();
    const QDateTime celda = regional.CDate(xCelda);
    const QDateTime buscada = regional.CDate(xBuscado);
    return xMayMin ? celda == buscada : celda >= buscada;
}

bool CoincideNumero(const QString& xCelda, const QString& xBuscado, bool xMayMin) {
    const double celda = modFunciones::Val(xCelda);
    const double buscado = modFunciones::Val(xBuscado);
    return xMayMin ? celda == buscado : celda >= buscado;
}
} // namespace

ClaseTipo ClaseDeTipo(const QString& xTipo) {
    if (xTipo == QStringLiteral("String") || xTipo == QStringLiteral("Boolean")) return Texto;
    if (xTipo == QStringLiteral("Date")) return Fecha;
    return Numero;
}

qint32 OrdenDeClase(ClaseTipo xClase) {
    return xClase == Texto ? clsGrillaFlexible::TextoAscendente
                           : clsGrillaFlexible::NumericoAscendente;
}

bool Coincide(const QString& xCelda, const QString& xBuscado, ClaseTipo xClase, bool xMayMin,
              bool xCompleta) {
    const QString celda = Recortado(xCelda);
    const QString buscado = Recortado(xBuscado);
    if (xCompleta && xMayMin) return celda == buscado;
    if (xCompleta) return celda.toUpper() == buscado.toUpper();
    switch (xClase) {
    case Texto:
        return CoincideTexto(celda, buscado, xMayMin);
    case Fecha:
        return CoincideFecha(celda, buscado, xMayMin);
    case Numero:
        return CoincideNumero(celda, buscado, xMayMin);
    }
    return false;
}

qint32 Buscar(clsGrillaFlexible& xGrilla, qint32 xColumna, const QString& xTipo,
              const QString& xBuscado, bool xMayMin, bool xCompleta) {
    const ClaseTipo clase = ClaseDeTipo(xTipo);
    xGrilla.Sort(OrdenDeClase(clase), xColumna);
    for (qint32 fila = 1; fila < xGrilla.Rows(); ++fila)
        if (Coincide(xGrilla.TextMatrix(fila, xColumna), xBuscado, clase, xMayMin, xCompleta))
            return fila;
    return 0;
}

} // namespace modBuscarRegistro
