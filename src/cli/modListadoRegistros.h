#pragma once

#include "cli/clsSalida.h"
#include "data/clsPalmPDB.h"

#include <QString>

// The record listing of pandrel-cli: every record of the open database in file order, a line
// each (its ID, a tab and its text with the fields separated by xSeparador, escaped). A long
// listing is read on two threads, each taking half of the records.
namespace modListadoRegistros {

// What it prints goes to xSalida; a failure in any record raises it and leaves xSalida without
// the listing's lines, as the first failing record in file order reports it.
void Listar(clsPalmPDB& xBase, const QString& xSeparador, clsSalida& xSalida);
// The same for a database read through the contract alone, one record after another.
void Listar(clsPDBInterface& xBase, const QString& xSeparador, clsSalida& xSalida);

} // namespace modListadoRegistros
