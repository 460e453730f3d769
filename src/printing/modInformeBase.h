#pragma once

#include "printing/modImpresionGRD.h"

#include <QString>

class clsGrillaImpresion;
class clsPDBInterface;

// The database report: the records grid printed as a grid report under the explorer's caption,
// with one head line that says what kind of database is open and one foot line that closes it.
namespace modInformeBase {

// Returns whether the printer dialog was confirmed; failures are raised as they come.
bool ImprimirInforme(clsPDBInterface& xBase, const QString& xTitulo,
                     const clsGrillaImpresion& xTabla,
                     const modImpresionGRD::DialogoImpresora& xDialogo);

} // namespace modInformeBase
