// Times the windows on the benchmark handhelds that bench-inputs builds (FOLDER/many, FOLDER/big):
//   start-up   the program opened on 1,000 databases until its first explorer shows the tree;
//   choose     choosing the 65,535-record AppForge database until its panels and first batch show;
//   all        the same with the batch size -1 (every record);
//   export     Export pressed after the first batch: every other record loaded, then the
//              tab-delimited file written (FOLDER/window-export.txt);
//   sort       a header click on a number column and on a text column, every row in the grid;
//   find       a search over every row that finds nothing (its sort included);
//   edit       Enter on a cell, a new value confirmed in the update dialog, until the file on
//              disk holds it and the grid's row and record panel show it;
//   memory     the peak resident memory of the whole program at the end.
// Usage: bench-explorador FOLDER [REPETITIONS]. Runs on the offscreen platform unless told.

#include "common/ventanas/modDialogos.h"
#include "explorer/ventanas/clsVistaGrilla.h"
#include "explorer/ventanas/frmActualizarValor.h"
#include "explorer/ventanas/frmBuscarRegistro.h"
#include "shell/frmInicio.h"
#include "shell/modMain.h"
#include "support/ventanas/modDialogosPrueba.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <sys/resource.h>
#include <time.h>

namespace {

double Milisegundos(const QElapsedTimer& xReloj) {
    return xReloj.nsecsElapsed() / 1e6;
}

double Mediana(QVector<double> xValores) {
    std::sort(xValores.begin(), xValores.end());
    return xValores.at(xValores.size() / 2);
}

double Peor(const QVector<double>& xValores) {
    return *std::max_element(xValores.begin(), xValores.end());
}

double ProcesadorMs() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
}

// Runs of one case: wall time, and processor time of the program (what it costs when other work
// shares the machine).
struct Medida {
    QVector<double> Pared, Cpu;
    QElapsedTimer Reloj;
    double CpuInicio = 0;

    void Empezar() {
        CpuInicio = ProcesadorMs();
        Reloj.start();
    }
    void Terminar() {
        Pared << Milisegundos(Reloj);
        Cpu << ProcesadorMs() - CpuInicio;
    }
    void Imprimir(const char* xCaso) const {
        std::printf("%s: median %.1f ms, worst %.1f ms, processor median %.1f ms (%d runs)\n",
                    xCaso, Mediana(Pared), Peor(Pared), Mediana(Cpu), int(Pared.size()));
    }
};

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
void Elegir(QTreeWidget* xArbol, QTreeWidgetItem* xNodo, Medida& xMedida) {
    xMedida.Empezar();
    xArbol->setCurrentItem(xNodo);
    emit xArbol->itemClicked(xNodo, 0);
    QApplication::processEvents();
    xMedida.Terminar();
}

using modDialogosPrueba::AlAbrir;

// The record actions on every row of the large database, as the user does them.
void MedirRegistros(QWidget* xExplorador, int xRepeticiones) {
    auto* grilla = xExplorador->findChild<clsVistaGrilla*>(QStringLiteral("grdTabla"));
    QHeaderView* cabecera = grilla->horizontalHeader();
    Medida numeros, textos, busquedas, ediciones;
    modDialogos::ResponderMensajes(
        [](const modDialogos::PeticionMensaje&) { return QMessageBox::Ok; });
    for (int i = 0; i < xRepeticiones; ++i) {
        numeros.Empezar();
        emit cabecera->sectionClicked(1); // Count, an Int
        numeros.Terminar();

        // Comment is not sorted yet: the search sorts it and walks every row to find nothing.
        AlAbrir<frmBuscarRegistro>([&](frmBuscarRegistro* xDialogo) {
            xDialogo->findChild<QComboBox*>(QStringLiteral("Cmb_Columnas"))->setCurrentIndex(7);
            xDialogo->findChild<QLineEdit*>(QStringLiteral("Txt_Valor"))
                ->setText(QStringLiteral("~~~"));
            busquedas.Empezar();
            xDialogo->Buscar();
            busquedas.Terminar();
            xDialogo->reject();
        });
        QTest::keyClick(grilla, Qt::Key_F3);

        textos.Empezar();
        emit cabecera->sectionClicked(4); // Name, a String
        textos.Terminar();

        // The grid is sorted by Name: the edited Name moves to its place.
        grilla->setCurrentIndex(grilla->model()->index(30000, 4));
        AlAbrir<frmActualizarValor>([i](frmActualizarValor* xDialogo) {
            auto* nuevo = xDialogo->findChild<QLineEdit*>(QStringLiteral("txtValorNuevo"));
            nuevo->setText(QStringLiteral("Customer %1").arg(i));
            QTest::keyClick(nuevo, Qt::Key_Return);
        });
        ediciones.Empezar();
        QTest::keyClick(grilla, Qt::Key_Return);
        ediciones.Terminar();
    }
    numeros.Imprimir("sort 65,535 rows by a number column");
    textos.Imprimir("sort 65,535 rows by a text column");
    busquedas.Imprimir("search over 65,535 rows, nothing found (its sort included)");
    ediciones.Imprimir("edit one field: dialog, on disk, row and record panel refreshed");
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
    Medida primeras, todas;
    for (int i = 0; i < repeticiones; ++i) {
        cantidad->setText(QStringLiteral("40"));
        Elegir(arbol, grande, primeras);
        cantidad->setText(QStringLiteral("-1"));
        Elegir(arbol, grande, todas);
    }
    primeras.Imprimir("choose the 65,535-record database, panels and first batch of 40");
    todas.Imprimir("choose it with every record (-1 = All Records)");
    const auto* recuperados = explorador->findChild<QLabel*>(QStringLiteral("lblTotalRecuperado"));
    std::printf("rows in the grid: %s\n", qPrintable(recuperados->text()));

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
    Medida exportaciones, eleccion;
    for (int i = 0; i < repeticiones; ++i) {
        cantidad->setText(QStringLiteral("40"));
        Elegir(arbol, grande, eleccion);
        exportaciones.Empezar();
        exportar->trigger();
        QApplication::processEvents();
        exportaciones.Terminar();
    }
    exportaciones.Imprimir("export after the first batch (every record loaded, then written)");
    std::printf("rows in the grid: %s\n", qPrintable(recuperados->text()));

    cantidad->setText(QStringLiteral("-1"));
    Elegir(arbol, grande, eleccion);
    MedirRegistros(explorador, repeticiones);
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    std::printf("peak memory of the whole program: %.1f MB\n", uso.ru_maxrss / 1024.0);
    inicio->close();
    return 0;
}
