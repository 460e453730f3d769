#pragma once

#include <QString>
#include <array>

// The texts of the database layer's errors, by message number. The start-up fills entries 0..3
// once with CargarMensajes before any database is opened; the rest stay empty, and nothing
// changes them after.
const std::array<QString, 20>& MensajesError();

// Fills the table; a second call changes nothing.
void CargarMensajes();
