#pragma once

#include <QString>

// Handhelds of the built-in applications' databases, made for what real backups seldom hold:
// every phone label, renamed custom fields, every repeat type with exceptions and alarms, untimed
// and private appointments, to-dos with and without a due day, memos with tabs and line breaks;
// and a Japanese handheld (no Handheld.ini, its address book made for Japan) whose names carry
// their readings. The content is the same on every run, so tests can check it.
namespace modHandheldEstandar {

// Throws std::runtime_error when a file cannot be written.
void Guardar(const QString& xCarpeta);
void GuardarJapones(const QString& xCarpeta);

} // namespace modHandheldEstandar
