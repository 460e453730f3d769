#include "data/formato/modBasesEstandar.h"

#include "data/formato/clsLectorBytes.h"

namespace modBasesEstandar {

qint32 PaisDirecciones(QByteArrayView xAppInfo) {
    clsLectorBytes lector(xAppInfo);
    quint8 pais = 0;
    if (!lector.IrA(PosicionPais) || !lector.LeerU8(pais)) return -1;
    return pais;
}

} // namespace modBasesEstandar
