#pragma once

#include <QByteArray>
#include <QLatin1StringView>
#include <QString>
#include <QStringView>

// The content lines vCard (RFC 2426) and iCalendar (RFC 5545) files are made of: NAME:VALUE in
// UTF-8, folded so that no line passes 75 octets (a continuation line starts with a blank), each
// ended by CR LF.
namespace modLineasContenido {

// xTexto as a text value: backslash, semicolon and comma escaped with a backslash, each line
// break (LF, CR LF or CR) written as \n.
QString Escapar(QStringView xTexto);

// Appends the line xNombre:xValor, xValor already escaped. A UTF-8 character is never split.
void Linea(QByteArray& xSalida, QLatin1StringView xNombre, QStringView xValor);

} // namespace modLineasContenido
