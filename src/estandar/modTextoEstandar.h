#pragma once

#include "common/clsBufferTexto.h"
#include "common/clsConfiguracionRegional.h"

#include <QString>
#include <QVariant>

// The texts of a standard database's field values: as the record browser shows them (the record
// text of the database-access contract) and as a CSV file carries them.
namespace modTextoEstandar {

// Appends one field's text as the record reader writes AppForge fields: a String in double
// quotes when the separator is the comma, a day and time as the general date text, a truth
// value as True or False; a null value writes nothing. With the tab as separator, a text stays
// on one line of its cell: a tab inside it becomes a blank and a line break a pilcrow (¶).
void AgregarValor(clsBufferTexto& xTexto, const QVariant& xValor, bool xEsTexto,
                  const QString& xSeparator, const clsConfiguracionRegional& xRegional);

// The value in a form programs read whatever the desktop's settings: a day as 2021-02-20, a
// day and time as 2021-02-20 08:30, a truth value as True or False, a list of days joined by
// commas; "" for a null value.
QString TextoIntercambio(const QVariant& xValor);

} // namespace modTextoEstandar
