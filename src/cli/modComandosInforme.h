#pragma once

#include "explorer/modExportacion.h"

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

class QCoreApplication;
class clsEstandarPDB;
class clsPDBInterface;

// The commands of pandrel-cli that write a file the explorer writes too: the export of a
// database's records and its printed report.
namespace modComandosInforme {

// The application object of the run: one that can draw when the command line's command may
// print a report (report, batch), a plain one otherwise, so that the other commands start without
// the graphics libraries.
std::unique_ptr<QCoreApplication> CrearAplicacion(int& xArgc, char** xArgv);

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
// The export of a built-in application's database: the file's extension chooses the format
// (.vcf, .ics, .csv for today's programs, .txt for the explorer's export, whose --csv and
// --rfc4180 apply to it alone); any other is refused, as is a format the database does not fit.
QString ExportarEstandar(clsEstandarPDB& xBase, const OrdenExportar& xOrden);

// report DB --pdf FILE: the command's arguments after DB, the PDF file; nothing when wrong.
std::optional<QString> LeerOrdenInforme(const QStringList& xArgumentos);
// Prints every record of the open database xNombre as the explorer's Print does, to a PDF file
// that is put in place only when whole.
void Informe(clsPDBInterface& xBase, const QString& xNombre, const QString& xArchivo);

} // namespace modComandosInforme
