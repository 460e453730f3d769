#pragma once

#include "printing/clsGrillaImpresion.h"

#include <QList>
#include <QStringList>

// A grid for report tests: rows of tab-separated cells, a width and an alignment per column.
class clsGrillaPrueba : public clsGrillaImpresion {
public:
    void SetCols(qint32 xColumnas) {
        mAnchos.resize(xColumnas);
        mAlineaciones.resize(xColumnas);
    }
    void AddItem(const QString& xTexto) { mFilas.append(xTexto.split('\t')); }
    void SetColWidth(qint32 xColumna, qint32 xTwips) { mAnchos[xColumna] = xTwips; }
    void SetColAlignment(qint32 xColumna, qint32 xCodigo) { mAlineaciones[xColumna] = xCodigo; }

    qint32 Rows() const override { return qint32(mFilas.size()); }
    qint32 Cols() const override { return qint32(mAnchos.size()); }
    QString TextMatrix(qint32 xFila, qint32 xColumna) const override {
        return mFilas[xFila].value(xColumna);
    }
    qint32 ColWidth(qint32 xColumna) const override { return mAnchos[xColumna]; }
    qint32 ColAlignment(qint32 xColumna) const override { return mAlineaciones[xColumna]; }

private:
    QList<QStringList> mFilas;
    QList<qint32> mAnchos;
    QList<qint32> mAlineaciones;
};
