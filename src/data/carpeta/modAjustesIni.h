#pragma once

#include <QByteArrayView>
#include <QString>
#include <QVariantMap>

// Handheld.ini, the description of a handheld beside its databases (a file of the folder or an
// entry of the archive), read from its bytes: "[Section]" lines and "Key=value" lines under them,
// blank lines and lines that begin with ';' or '#' skipped. Values are texts, blanks around them
// and a pair of double quotes around the whole value taken off; a key before any section stands
// alone.
namespace modAjustesIni {

// No Handheld.ini is larger: a file that is, is not one.
constexpr qint64 TamanoMaximo = 1024 * 1024;

// Handheld.ini as it was found.
struct Ajustes {
    bool Presente = false; // there is a Handheld.ini
    QString Error;         // why it cannot be read; "" when it was
    QVariantMap Valores;   // by "Section/Key"
};

// The values of xTexto by "Section/Key"; false, with xError saying which line is wrong, when it
// is not such a text.
bool Leer(QByteArrayView xTexto, QVariantMap& xValores, QString& xError);

// The Handheld.ini of the folder xCarpeta, read without waiting: anything but a regular file (a
// FIFO, a folder, a link that leads nowhere) cannot be read.
Ajustes LeerDeCarpeta(const QString& xCarpeta);

// The message of a Handheld.ini that cannot be read; xDonde names the handheld ("the handheld
// folder \"...\"").
QString TextoIlegible(const QString& xDonde, const QString& xMotivo);

} // namespace modAjustesIni
