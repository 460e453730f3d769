#include "printing/clsColImpresionGrd.h"

#include "common/ErrorVB.h"

const clsItemImpresionGrd& clsColImpresionGrd::Add(const QString& xDetalle, qint32 xAlineacion) {
    clsItemImpresionGrd linea;
    linea.SetDetalle(xDetalle);
    linea.SetAlineacion(xAlineacion);
    mLineas.append(linea);
    return mLineas.last();
}

const clsItemImpresionGrd& clsColImpresionGrd::Item(qint32 xIndex) const {
    if (xIndex < 1 || xIndex > Count())
        throw ErrorVB::SubscriptOutOfRange(QStringLiteral("clsColImpresionGrd.Item"));
    return mLineas.at(xIndex - 1);
}
