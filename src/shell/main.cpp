#include "errors/ventanas/MostrarMensajeError.h"
#include "shell/modMain.h"

#include <QApplication>
#include <QCommandLineParser>
#include <algorithm>
#include <cstring>

namespace {
void Preparar(QCommandLineParser& xOpciones) {
    xOpciones.setApplicationDescription(
        QStringLiteral("Explore and edit the databases of a Palm OS handheld."));
    xOpciones.addHelpOption();
    xOpciones.addPositionalArgument(
        QStringLiteral("HANDHELD"),
        QStringLiteral("Folder of the handheld's .pdb and .prc files, or a .zip backup of them "
                       "(default: a working copy of the sample handheld)."),
        QStringLiteral("[HANDHELD]"));
}
} // namespace

// pandrel [HANDHELD]: explores the handheld in folder HANDHELD, or the working copy of the
// sample handheld when none is named.
int main(int argc, char** argv) {
    // The help needs no screen.
    if (std::any_of(argv + 1, argv + argc, [](const char* xArgumento) {
            return std::strcmp(xArgumento, "-h") == 0 || std::strcmp(xArgumento, "--help") == 0;
        })) {
        QCoreApplication ayuda(argc, argv);
        QCommandLineParser opciones;
        Preparar(opciones);
        opciones.process(ayuda);
    }

    QApplication aplicacion(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Pandrel"));
    // The settings (the recent handhelds) live in the program's own folder of the user's.
    QApplication::setOrganizationName(QStringLiteral("Pandrel"));
    QCommandLineParser opciones;
    Preparar(opciones);
    opciones.process(aplicacion);
    if (opciones.positionalArguments().size() > 1) opciones.showHelp(2);

    const QString nombrada = opciones.positionalArguments().value(0);
    if (!Atrapar(QStringLiteral("modMain"), QStringLiteral("Main"),
                 [&] { modMain::Main(modMain::CarpetaHandheld(nombrada)); }))
        return 1;
    return QApplication::exec();
}
