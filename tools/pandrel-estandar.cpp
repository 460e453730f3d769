// Builds a handheld of the built-in applications' databases with what real backups seldom hold
// (see modHandheldEstandar): pandrel-estandar FOLDER, or pandrel-estandar --japanese FOLDER for
// a Japanese one; then pandrel FOLDER, and "Open Records" on a database.

#include "constructor/modHandheldEstandar.h"

#include <QCoreApplication>
#include <QDir>
#include <cstdio>
#include <stdexcept>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QStringList argumentos = app.arguments().mid(1);
    const bool japones = !argumentos.isEmpty() && argumentos.first() == "--japanese";
    if (japones) argumentos.removeFirst();
    if (argumentos.size() != 1) {
        std::fprintf(stderr, "usage: pandrel-estandar [--japanese] FOLDER\n");
        return 2;
    }
    const QString carpeta = argumentos.first();
    try {
        QDir(carpeta).removeRecursively();
        if (!QDir().mkpath(carpeta)) throw std::runtime_error("cannot create the folder");
        if (japones)
            modHandheldEstandar::GuardarJapones(carpeta);
        else
            modHandheldEstandar::Guardar(carpeta);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "pandrel-estandar: %s\n", error.what());
        return 1;
    }
    return 0;
}
