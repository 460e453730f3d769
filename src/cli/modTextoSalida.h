#pragma once

#include <QStringView>
#include <QtGlobal>
#include <array>

// Looks at the text of pandrel-cli's lines, which write tab, line feed, carriage return and
// backslash as \t, \n, \r and \\.
namespace modTextoSalida {

// How many tabs, line feeds, carriage returns and backslashes (in that order) xTexto holds. A
// record's line runs through this, so it looks at eight letters at a time where it can.
std::array<qsizetype, 4> Especiales(QStringView xTexto);

} // namespace modTextoSalida
