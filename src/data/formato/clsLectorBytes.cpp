#include "data/formato/clsLectorBytes.h"

bool clsLectorBytes::IrA(qsizetype xPosicion) {
    if (xPosicion < 0 || xPosicion > mDatos.size()) return false;
    mPosicion = xPosicion;
    return true;
}

bool clsLectorBytes::Saltar(qsizetype xCantidad) {
    if (xCantidad < 0 || xCantidad > Restantes()) return false;
    mPosicion += xCantidad;
    return true;
}

bool clsLectorBytes::LeerBytes(qsizetype xCantidad, QByteArrayView& xTramo) {
    if (xCantidad < 0 || xCantidad > Restantes()) return false;
    xTramo = mDatos.sliced(mPosicion, xCantidad);
    mPosicion += xCantidad;
    return true;
}

bool clsLectorBytes::LeerTextoTerminado(QByteArrayView& xTexto) {
    const qsizetype fin = mDatos.indexOf('\0', mPosicion);
    if (fin < 0) return false;
    xTexto = mDatos.sliced(mPosicion, fin - mPosicion);
    mPosicion = fin + 1;
    return true;
}
