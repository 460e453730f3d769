#pragma once

#include "printing/clsColImpresionGrd.h"

#include <QString>
#include <QtGlobal>
#include <functional>
#include <memory>

class clsGrillaImpresion;
class clsImpresora;

// Prints a grid as a paginated report: on every page a head (the user's name, page number, date
// and time, the centred title and the free head lines) and the column titles, then the rows;
// the free foot lines once after the last row. Each column takes the share of the printed width
// that it has of the grid's width and keeps its alignment; the grid's last column is never
// printed. The layout is worked out against the printer interface, so any printer will do.
//
// Failures are passed on to the caller: one that arose here carries the program's name and the
// procedure's tag as its source, one from deeper keeps its own.
namespace modImpresionGRD {

// The printer dialog step, answered by the window or a script.
struct DialogoImpresora {
    // Shows the printer dialog; returns the printer chosen and sets the copies asked for, or
    // returns none when the person cancelled. Raises ErrorVB when no printer is ready.
    std::function<std::shared_ptr<clsImpresora>(qint32& xCopias)> Mostrar;
    // The message box shown when the dialog failed or was cancelled.
    std::function<void(const QString& xTexto, const QString& xTitulo)> Avisar;
    // The hourglass while the report is made (true) and the normal pointer after (false).
    std::function<void(bool xEspera)> Esperar;
};

// The whole report; true when the printer dialog was confirmed and the report printed.
bool OutImpresion(const QString& xTitulo, const clsGrillaImpresion& xGrilla,
                  const DialogoImpresora& xDialogo, const clsColImpresionGrd& xEncabezado,
                  const clsColImpresionGrd& xPie);

// A name with the first letter of each word in capitals, as the page head shows the user.
QString NombrePropio(const QString& xNombre);

} // namespace modImpresionGRD
