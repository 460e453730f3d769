// The part of pandrel-cli that draws: loaded only by the commands that print, so every other
// command starts without the graphics libraries. It makes the application object able to draw
// (on Qt's offscreen platform unless another is asked for), the printer that writes a PDF file,
// and the measures of the grids' type that the explorer widens its columns by.

#include "common/ventanas/modRecursosGraficos.h"
#include "printing/ventanas/clsImpresoraPdf.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QScreen>
#include <cstdio>

namespace {

// The platform's notes (a missing runtime folder, say) are not the program's: stderr carries only
// its errors and warnings.
void SoloErroresGraves(QtMsgType xTipo, const QMessageLogContext&, const QString& xMensaje) {
    if (xTipo == QtCriticalMsg || xTipo == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qUtf8Printable(xMensaje));
}

} // namespace

extern "C" Q_DECL_EXPORT QCoreApplication* PandrelAplicacionGrafica(int* xArgc, char** xArgv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(SoloErroresGraves);
    return new QGuiApplication(*xArgc, xArgv);
}

// A Letter sheet with quarter-inch margins, the sheet the report's widths are made for, at the
// resolution of a printer's high one. Raises ErrorVB when the file cannot be begun.
extern "C" Q_DECL_EXPORT clsImpresora* PandrelImpresoraPdf(const QString* xArchivo) {
    constexpr int Resolucion = 1200;
    return new clsImpresoraPdf(*xArchivo,
                               QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait,
                                           QMarginsF(18, 18, 18, 18), QPageLayout::Point),
                               Resolucion);
}

// The width of a text in the grids' type, in pixels of the screen, as a grid on screen measures it.
extern "C" Q_DECL_EXPORT int PandrelAnchoTextoGrilla(const QString* xTexto) {
    const QFontMetrics medidas(modRecursosGraficos::FuenteGrilla(QGuiApplication::font()));
    return medidas.horizontalAdvance(*xTexto);
}

extern "C" Q_DECL_EXPORT double PandrelPuntosPorPulgada() {
    const QScreen* pantalla = QGuiApplication::primaryScreen();
    return pantalla ? pantalla->logicalDotsPerInchX() : 96;
}
