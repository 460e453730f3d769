// Times the windows on the benchmark handhelds that bench-inputs builds (FOLDER/many, FOLDER/big):
//   start-up   the program opened on 1,000 databases until its first explorer shows the tree;
//   choose     choosing the 65,535-record AppForge database until its panels and first batch show;
//   all        the same with the batch size -1 (every record);
//   export     Export pressed after the first batch: every other record loaded, then the
//              tab-delimited file written (FOLDER/window-export.txt).
// Usage: bench-explorador FOLDER [REPETITIONS]. Runs on the offscreen platform unless told.

#include "shell/frmInicio.h"
#include "shell/modDialogos.h"
#include "shell/modMain.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QToolBar>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

double Milisegundos(const QElapsedTimer& xReloj) {
    return xReloj.nsecsElapsed() / 1e6;
}

double Mediana(QVector<double> xValores) {
    std::sort(xValores.begin(), xValores.end());
    return xValores.at(xValores.size() / 2);
}

QTreeWidgetItem* Base(QTreeWidget* xArbol, const QString& xNombre) {
    QTreeWidgetItem* raiz = xArbol->topLevelItem(0);
    for (int i = 0; raiz && i < raiz->childCount(); ++i) {
        QTreeWidgetItem* creador = raiz->child(i);
        creador->setExpanded(true);
        for (int j = 0; j < creador->childCount(); ++j)
            if (creador->child(j)->text(0) == xNombre) return creador->child(j);
        creador->setExpanded(false);
    }
    return nullptr;
}

// Chooses a database as a click does and waits until the window has painted the result.
double Elegir(QTreeWidget* xArbol, QTreeWidgetItem* xNodo) {
    QElapsedTimer reloj;
    reloj.start();
    xArbol->setCurrentItem(xNodo);
    emit xArbol->itemClicked(xNodo, 0);
    QApplication::processEvents();
    return Milisegundos(reloj);
}

} // namespace

int main(int argc, char** argv) {
    QElapsedTimer proceso;
    proceso.start();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication aplicacion(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: bench-explorador FOLDER [REPETITIONS]\n");
        return 2;
    }
    const QString carpeta = QString::fromLocal8Bit(argv[1]);
    const int repeticiones = argc > 2 ? std::max(1, atoi(argv[2])) : 5;

    // Start-up on the handheld of 1,000 databases, counted from the process start.
    frmInicio* inicio = modMain::Main(carpeta + QStringLiteral("/many"));
    inicio->Boton(QStringLiteral("Archivos"))->trigger();
    QApplication::processEvents();
    auto* muchas = inicio->findChild<QMdiArea*>()->subWindowList().value(0);
    auto* arbolMuchas = muchas ? muchas->widget()->findChild<QTreeWidget*>() : nullptr;
    const double arranque = Milisegundos(proceso);
    const int creadores = arbolMuchas ? arbolMuchas->topLevelItem(0)->childCount() : 0;
    std::printf("start-up, 1,000 databases, first explorer's tree: %.1f ms (%d creators)\n",
                arranque, creadores);
    inicio->close();
    QApplication::processEvents();

    // The large database, each choice in the same explorer.
    inicio = modMain::Main(carpeta + QStringLiteral("/big"));
    inicio->Boton(QStringLiteral("Archivos"))->trigger();
    QApplication::processEvents();
    QWidget* explorador = inicio->findChild<QMdiArea*>()->subWindowList().value(0)->widget();
    auto* arbol = explorador->findChild<QTreeWidget*>();
    auto* cantidad = explorador->findChild<QLineEdit*>(QStringLiteral("txtRegistrosARecuperar"));
    QTreeWidgetItem* grande = Base(arbol, QStringLiteral("BenchBig"));
    if (!grande) {
        std::fprintf(stderr, "BenchBig is not in %s/big\n", qPrintable(carpeta));
        return 1;
    }
    QVector<double> primeras, todas;
    for (int i = 0; i < repeticiones; ++i) {
        cantidad->setText(QStringLiteral("40"));
        primeras << Elegir(arbol, grande);
        cantidad->setText(QStringLiteral("-1"));
        todas << Elegir(arbol, grande);
    }
    std::printf("choose the 65,535-record database, panels and first batch of 40: median %.1f ms, "
                "worst %.1f ms (%d runs)\n",
                Mediana(primeras), *std::max_element(primeras.begin(), primeras.end()),
                repeticiones);
    const auto* recuperados = explorador->findChild<QLabel*>(QStringLiteral("lblTotalRecuperado"));
    std::printf("choose it with every record (-1): median %.1f ms (%s rows)\n", Mediana(todas),
                qPrintable(recuperados->text()));

    // Export from the first batch, the file replaced each time.
    const QString salida = carpeta + QStringLiteral("/window-export.txt");
    modDialogos::ResponderArchivos(
        [&](const modDialogos::PeticionArchivo&, QString*) { return salida; });
    modDialogos::ResponderMensajes(
        [](const modDialogos::PeticionMensaje&) { return QMessageBox::Yes; });
    QAction* exportar = nullptr;
    for (QAction* boton :
         explorador->findChild<QToolBar*>(QStringLiteral("tlbOpciones"))->actions())
        if (boton->data().toString() == QStringLiteral("Exportar")) exportar = boton;
    // The processor time too, which other work on the machine does not inflate.
    QVector<double> exportaciones, procesador;
    for (int i = 0; i < repeticiones; ++i) {
        cantidad->setText(QStringLiteral("40"));
        Elegir(arbol, grande);
        QElapsedTimer reloj;
        reloj.start();
        const std::clock_t inicioProcesador = std::clock();
        exportar->trigger();
        QApplication::processEvents();
        exportaciones << Milisegundos(reloj);
        procesador << double(std::clock() - inicioProcesador) * 1000 / CLOCKS_PER_SEC;
    }
    std::printf("export after the first batch (every record loaded, then written): median %.1f ms, "
                "worst %.1f ms, processor %.1f ms (%s rows)\n",
                Mediana(exportaciones),
                *std::max_element(exportaciones.begin(), exportaciones.end()), Mediana(procesador),
                qPrintable(recuperados->text()));
    inicio->close();
    return 0;
}
