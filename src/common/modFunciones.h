#pragma once

#include <QString>
#include <QStringList>

// General helpers shared by the whole program.
namespace modFunciones {

// Exchange sort of a list of texts in place with a binary (case-sensitive) comparison: sentido 1
// ascending, 0 descending, any other value leaves the list as it is. The counters are 16-bit, so
// a list of more than 32767 texts raises ErrorVB 6 (overflow) and is left untouched.
void OrdenarVector(QStringList& lista, int sentido);

// Creates the folder and every missing folder above it; raises ErrorVB when it cannot.
void CrearCarpeta(const QString& xCarpeta);

// Login name of the user of this computer (at most 255 characters).
QString NombreUsuario();

} // namespace modFunciones
