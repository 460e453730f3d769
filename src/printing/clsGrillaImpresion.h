#pragma once

#include <QString>
#include <QtGlobal>

// What a grid report reads of a grid: its size, its texts, and each column's width in twips and
// alignment code. The explorer's flexible grid is one.
class clsGrillaImpresion {
public:
    // Column alignment codes.
    enum Alineacion : qint32 {
        IzquierdaArriba = 0,
        IzquierdaCentro = 1,
        IzquierdaAbajo = 2,
        CentroArriba = 3,
        CentroCentro = 4,
        CentroAbajo = 5,
        DerechaArriba = 6,
        DerechaCentro = 7,
        DerechaAbajo = 8,
        General = 9 // numbers right, other texts left, both vertically centred
    };

    virtual ~clsGrillaImpresion() = default;

    virtual qint32 Rows() const = 0;
    virtual qint32 Cols() const = 0;
    virtual QString TextMatrix(qint32 xFila, qint32 xColumna) const = 0;
    virtual qint32 ColWidth(qint32 xColumna) const = 0;
    virtual qint32 ColAlignment(qint32 xColumna) const = 0;
};
