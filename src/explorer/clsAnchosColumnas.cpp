#include "explorer/clsAnchosColumnas.h"

#include "printing/clsGrillaImpresion.h"

#include <algorithm>
#include <utility>

namespace {
constexpr double TwipsPorPulgada = 1440;
} // namespace

clsAnchosColumnas::clsAnchosColumnas(Medida xMedida) : mMedida(std::move(xMedida)) {}

void clsAnchosColumnas::Medir(const clsGrillaImpresion& xGrilla, qint32 xDesde, qint32 xHasta) {
    const qint32 columnas = xGrilla.Cols();
    if (mAnchoTextos.size() != columnas) mAnchoTextos.fill(0, columnas);
    const qint32 hasta = std::min({xHasta, FilasMedidas - 1, xGrilla.Rows() - 1});
    for (qint32 fila = std::max(0, xDesde); fila <= hasta; ++fila)
        for (qint32 columna = 0; columna < columnas; ++columna) {
            const int ancho = mMedida(xGrilla.TextMatrix(fila, columna)) + Margen;
            mAnchoTextos[columna] = std::max(mAnchoTextos.at(columna), ancho);
        }
}

int clsAnchosColumnas::Pixeles(const clsGrillaImpresion& xGrilla, qint32 xColumna,
                               double xPuntosPorPulgada) const {
    const qint32 ancho = xGrilla.ColWidth(xColumna);
    if (ancho == 0) return 0;
    return std::max(TwipsAPixeles(ancho, xPuntosPorPulgada), mAnchoTextos.value(xColumna));
}

QVector<qint32> clsAnchosColumnas::Twips(const clsGrillaImpresion& xGrilla,
                                         double xPuntosPorPulgada) const {
    QVector<qint32> anchos;
    for (qint32 columna = 0; columna < xGrilla.Cols(); ++columna)
        anchos << PixelesATwips(Pixeles(xGrilla, columna, xPuntosPorPulgada), xPuntosPorPulgada);
    return anchos;
}

int clsAnchosColumnas::TwipsAPixeles(qint32 xTwips, double xPuntosPorPulgada) {
    return qRound(xTwips * xPuntosPorPulgada / TwipsPorPulgada);
}

qint32 clsAnchosColumnas::PixelesATwips(int xPixeles, double xPuntosPorPulgada) {
    return qRound(xPixeles * TwipsPorPulgada / xPuntosPorPulgada);
}
