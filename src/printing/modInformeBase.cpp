#include "printing/modInformeBase.h"

#include "data/clsPDBInterface.h"
#include "printing/clsColImpresionGrd.h"

namespace modInformeBase {

bool ImprimirInforme(clsPDBInterface& xBase, const QString& xTitulo,
                     const clsGrillaImpresion& xTabla,
                     const modImpresionGRD::DialogoImpresora& xDialogo) {
    clsColImpresionGrd encabezado;
    clsColImpresionGrd pie;
    encabezado.Add(xBase.IsDataBase() ? QStringLiteral("Data Base Report")
                                      : QStringLiteral("Resource Report"),
                   clsItemImpresionGrd::Centro);
    pie.Add(QStringLiteral("End of Report"), clsItemImpresionGrd::Centro);
    return modImpresionGRD::OutImpresion(xTitulo, xTabla, xDialogo, encabezado, pie);
}

} // namespace modInformeBase
