#include "printing/clsItemImpresionGrd.h"

QString clsItemImpresionGrd::Detalle() const {
    return mDetalle.trimmed();
}

void clsItemImpresionGrd::SetDetalle(const QString& xDetalle) {
    mDetalle = xDetalle.left(Ancho).leftJustified(Ancho, QLatin1Char(' '));
}
