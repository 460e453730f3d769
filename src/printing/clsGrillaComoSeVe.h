#pragma once

#include "printing/clsGrillaImpresion.h"

#include <QVector>
#include <utility>

// A grid as the person sees it: the texts and alignments of another grid, with the widths in
// twips that its columns are shown at. A report of it shares the page as the screen does.
class clsGrillaComoSeVe : public clsGrillaImpresion {
public:
    clsGrillaComoSeVe(const clsGrillaImpresion& xGrilla, QVector<qint32> xAnchos)
        : mGrilla(xGrilla), mAnchos(std::move(xAnchos)) {}

    qint32 Rows() const override { return mGrilla.Rows(); }
    qint32 Cols() const override { return mGrilla.Cols(); }
    QString TextMatrix(qint32 xFila, qint32 xColumna) const override {
        return mGrilla.TextMatrix(xFila, xColumna);
    }
    // A column the widths do not cover is the grid's to answer for (and to refuse).
    qint32 ColWidth(qint32 xColumna) const override {
        return xColumna >= 0 && xColumna < mAnchos.size() ? mAnchos.at(xColumna)
                                                          : mGrilla.ColWidth(xColumna);
    }
    qint32 ColAlignment(qint32 xColumna) const override { return mGrilla.ColAlignment(xColumna); }

private:
    const clsGrillaImpresion& mGrilla;
    QVector<qint32> mAnchos;
};
