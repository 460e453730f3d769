#pragma once

#include <QString>
#include <QtGlobal>

class clsGrillaFlexible;

// The find rules of the records grid, with no window: the grid is sorted ascending by the searched
// column, then walked from the first data row down to the first row that matches.
namespace modBuscarRegistro {

// How a field type is compared.
enum ClaseTipo { Texto, Fecha, Numero };

ClaseTipo ClaseDeTipo(const QString& xTipo);
// The grid sort a search applies first: text for texts, numeric for dates and numbers.
qint32 OrdenDeClase(ClaseTipo xClase);

// Whether a cell matches, in this order: exact with case (trimmed texts equal), exact without
// case (upper-cased trimmed texts equal), else by class: a text begins with the searched one
// (with case) or is at or after it (without); a date or number equals it (with case) or is at or
// after it (without). A date that does not convert raises ErrorVB 13.
bool Coincide(const QString& xCelda, const QString& xBuscado, ClaseTipo xClase, bool xMayMin,
              bool xCompleta);

// Sorts the grid by xColumna for xTipo and returns the first row that matches, 0 for none.
qint32 Buscar(clsGrillaFlexible& xGrilla, qint32 xColumna, const QString& xTipo,
              const QString& xBuscado, bool xMayMin, bool xCompleta);

} // namespace modBuscarRegistro
