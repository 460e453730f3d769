#pragma once

#include "common/ErrorVB.h"

#include <QString>
#include <array>

// The texts of the database layer's errors, by message number. The start-up fills entries 0..3
// once with CargarMensajes before any database is opened; the rest stay empty, and nothing
// changes them after.
const std::array<QString, 20>& MensajesError();

// Fills the table; a second call changes nothing.
void CargarMensajes();

// The database layer's numbered errors, each with its message.
namespace ErroresBase {
constexpr qint32 YaAbierta = ErrorBase + 1001;  // "Database is already open."
constexpr qint32 Cerrada = ErrorBase + 1002;    // "Database its close."
constexpr qint32 SinEsquema = ErrorBase + 1004; // "The Database selected have not Schema."
} // namespace ErroresBase

// The error xNumero (one of ErroresBase) raised by the operation xFuente, with its message.
ErrorVB ErrorDeBase(qint32 xNumero, const char* xFuente);
