#pragma once

#include "estandar/clsEstandarPDB.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <memory>

// Exports of the standard databases for today's programs: vCard 3.0 for contacts, iCalendar 2.0
// for appointments and to-dos, CSV (RFC 4180, UTF-8, header row) for any of them. Records the
// handheld marks deleted are left out. Every file is written beside its name and renamed over it
// when whole, so a failed export leaves no partial file and an existing one as it was.
namespace modExportacionEstandar {

enum class Formato { VCard, ICalendar, CSV, Ninguno };

// The format a file name's extension asks for (.vcf, .ics, .csv, in any case); Ninguno for any
// other name.
Formato FormatoDeArchivo(const QString& xArchivo);
// Whether a database of kind xClase can be written in xFormato.
bool Admite(Formato xFormato, ClaseEstandar xClase);

// Writes the records of xBase's open standard database to xArchivo in xFormato; returns how many
// were written. Raises ErrorVB when the format does not fit the database (with a text that says
// which do), when xArchivo is no place for a file (see modDestino) or the file cannot be written;
// a missing folder is created.
qint32 Exportar(clsEstandarPDB& xBase, const QString& xArchivo, Formato xFormato,
                const QDateTime& xAhora = QDateTime::currentDateTimeUtc());

// The files a whole handheld's export writes into its folder, in order: contacts.vcf,
// calendar.ics, todos.ics, memos.csv.
QStringList ArchivosHandheld();
// Writes the handheld's contacts, calendar, to-dos and memos into xCarpeta, one file each, from
// the databases of the built-in applications (by their usual names first, then by creator).
// Returns a summary, a line per file: what was written, or why nothing was. A database that
// cannot be read stops the export and raises, leaving the files written before it.
QStringList ExportarHandheld(const std::shared_ptr<clsFuentePalm>& xFuente, const QString& xCarpeta,
                             const QDateTime& xAhora = QDateTime::currentDateTimeUtc());

} // namespace modExportacionEstandar
