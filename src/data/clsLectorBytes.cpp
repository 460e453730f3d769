#include "data/clsLectorBytes.h"

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

bool clsLectorBytes::LeerEntero(int xAncho, quint32& xValor) {
    if (Restantes() < xAncho) return false;
    quint32 valor = 0;
    for (int k = 0; k < xAncho; ++k)
        valor = (valor << 8) | static_cast<quint8>(mDatos[mPosicion + k]);
    mPosicion += xAncho;
    xValor = valor;
    return true;
}

bool clsLectorBytes::LeerU8(quint8& xValor) {
    quint32 valor = 0;
    if (!LeerEntero(1, valor)) return false;
    xValor = static_cast<quint8>(valor);
    return true;
}

bool clsLectorBytes::LeerU16(quint16& xValor) {
    quint32 valor = 0;
    if (!LeerEntero(2, valor)) return false;
    xValor = static_cast<quint16>(valor);
    return true;
}

bool clsLectorBytes::LeerU24(quint32& xValor) {
    return LeerEntero(3, xValor);
}

bool clsLectorBytes::LeerU32(quint32& xValor) {
    return LeerEntero(4, xValor);
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
