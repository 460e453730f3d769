#include "common/modRecientes.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace {
const QString kClave = QStringLiteral("Handhelds/Recent");

QString Normalizar(const QString& xRuta) {
    return QDir::cleanPath(QFileInfo(xRuta).absoluteFilePath());
}
} // namespace

namespace modRecientes {

QStringList Lista() {
    QStringList lista = QSettings().value(kClave).toStringList();
    lista.removeAll(QString());
    return lista.mid(0, Maximo);
}

void Agregar(const QString& xRuta) {
    const QString ruta = Normalizar(xRuta);
    QStringList lista = Lista();
    lista.removeIf([&ruta](const QString& x) { return Normalizar(x) == ruta; });
    lista.prepend(ruta);
    QSettings().setValue(kClave, lista.mid(0, Maximo));
}

} // namespace modRecientes
