#pragma once

#include <QString>
#include <array>

// The texts of the database layer's errors. The start-up fills entries 0..3 once with
// CargarMensajes before any database is opened; the rest stay empty.
extern std::array<QString, 20> MensajesError;

void CargarMensajes();
