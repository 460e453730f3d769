#pragma once

#include "explorer/modExportacion.h"

#include <QString>
#include <QStringList>
#include <optional>

class clsPDBInterface;

// The commands of pandrel-cli that write a file the explorer writes too: the export of a
// database's records and its printed report.
namespace modComandosInforme {

// export DB FILE [--csv] [--rfc4180]
struct OrdenExportar {
    QString Archivo;
    int IndiceFiltro = 1; // as the save dialog reports it: 1 tab, 2 comma
    modExportacion::Formato Formato = modExportacion::Formato::Tabulado;
};
// The command's arguments after DB; nothing when they are wrong.
std::optional<OrdenExportar> LeerOrdenExportar(const QStringList& xArgumentos);
// Writes every record of the open database as the explorer's export does; a missing folder is
// created and an existing file replaced. Returns the name of the file written.
QString Exportar(clsPDBInterface& xBase, const OrdenExportar& xOrden);

} // namespace modComandosInforme
