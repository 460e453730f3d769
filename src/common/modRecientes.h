#pragma once

#include <QString>
#include <QStringList>

// The handhelds opened last (folders or zip backups), most recent first, kept in the program's
// settings (QSettings) from one run to the next.
namespace modRecientes {
constexpr int Maximo = 8;
QStringList Lista();
// Puts the handheld at the top of the list; the same handheld named another way (a relative
// path, a trailing slash) is the same entry. The oldest entries beyond Maximo go.
void Agregar(const QString& xRuta);
} // namespace modRecientes
