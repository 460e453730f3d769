#pragma once

#include <QString>

// Where the files this program writes for the person (an export, a printed report) may go: to a
// new name, or over a regular file, links followed as the writing follows them, that is none of
// the current handheld's own files. Anything else (a folder, a FIFO, a device, a database or the
// archive being read) is refused before a byte is written.
namespace modDestino {

// Why no file may be written at xArchivo; "" when one may.
QString Rechazo(const QString& xArchivo);
// Raises ErrorVB 75 with source xFuente when Rechazo gives a reason.
void Comprobar(const QString& xArchivo, const QString& xFuente);

} // namespace modDestino
