#pragma once

#include <QString>
#include <QStringView>
#include <QtGlobal>
#include <array>

// The text of pandrel-cli's lines, which write tab, line feed, carriage return and backslash as
// \t, \n, \r and \\.
namespace modTextoSalida {

// Stands for the separator between the fields of a record while its text is escaped: no field
// can hold it, as texts end at their first zero byte.
constexpr char16_t kMarcaSeparador = u'\0';

// xTexto as one item of a line: tab, line feed, carriage return and backslash written as \t, \n,
// \r and \\, so no item splits into two or spans lines; each kMarcaSeparador becomes
// xSeparador. xTexto itself when there is nothing to change, otherwise xEspacio filled.
QStringView Escapado(QStringView xTexto, QString& xEspacio, QStringView xSeparador = {});
QString Escapado(QStringView xTexto);

// The separator a record is read with: xSeparador itself, unless it holds a character that
// output escapes; then kMarcaSeparador, which the output turns back into xSeparador, so that only
// the fields' own characters are escaped. Neither is the comma that quotes String fields.
QString SeparadorLectura(const QString& xSeparador);

// How many tabs, line feeds, carriage returns and backslashes (in that order) xTexto holds. A
// record's line runs through this, so it looks at eight letters at a time where it can.
std::array<qsizetype, 4> Especiales(QStringView xTexto);

} // namespace modTextoSalida
