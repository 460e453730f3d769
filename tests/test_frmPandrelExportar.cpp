#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "constructor/clsConstructorBase.h"
#include "data/MensajesError.h"
#include "data/clsFuenteCarpeta.h"
#include "data/modHandheld.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/clsVistaGrilla.h"
#include "explorer/frmPandrel.h"
#include "printing/clsImpresoraGrabadora.h"
#include "printing/clsImpresoraQt.h"
#include "shell/modDialogos.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace {

using C = clsConstructorBase;

// "Stock": 45 records, more than the first batch of 40, of a String, a Single and a Long.
void CrearHandheld(const QString& xCarpeta) {
    C base("Stock", "DATA", "Stck");
    base.Categorias({"Unfiled"});
    base.EsquemaAppForge("Stock", {{"Item", C::String}, {"Price", C::Single}, {"Qty", C::Long}});
    base.AgregarRegistro({"Bolts, \"M8\"", 3.5, 7});
    for (int i = 2; i <= 45; ++i)
        base.AgregarRegistro({QString("Item %1").arg(i), i, i * 10});
    QDir().mkpath(xCarpeta);
    base.Guardar(xCarpeta + "/Stock.pdb");
}

QByteArray Leer(const QString& xArchivo) {
    QFile archivo(xArchivo);
    return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
}

class frmPandrelExportarTest : public ::testing::Test {
protected:
    void SetUp() override {
        CargarMensajes();
        clsConfiguracionRegional::EstablecerActual(QLocale(QLocale::German, QLocale::Germany));
        mCarpeta = mDirectorio.path() + "/Handheld";
        CrearHandheld(mCarpeta);
        modDialogos::ResponderMensajes([this](const modDialogos::PeticionMensaje& xPeticion) {
            Mensajes << xPeticion.Titulo + ": " + xPeticion.Texto;
            return Respuesta;
        });
        modHandheld::EstablecerFuente(std::make_shared<clsFuenteCarpeta>(mCarpeta));
        mVentana = std::make_unique<frmPandrel>();
        mVentana->show();
        mVentana->Form_Load();
        auto* arbol = mVentana->findChild<QTreeWidget*>("tvwDataBases");
        QTreeWidgetItem* creador = arbol->topLevelItem(0)->child(0);
        creador->setExpanded(true);
        QTreeWidgetItem* base = creador->child(0);
        arbol->scrollToItem(base);
        arbol->doItemsLayout();
        QTest::mouseClick(arbol->viewport(), Qt::LeftButton, {},
                          arbol->visualItemRect(base).topLeft() + QPoint(4, 4));
        ASSERT_EQ(Grilla().Rows(), 41) << "the first batch";
    }
    void TearDown() override {
        modDialogos::ResponderMensajes({});
        modDialogos::ResponderArchivos({});
        modDialogos::ResponderImpresora({});
        clsImpresoraQt::Sustituir({});
    }

    clsGrillaFlexible& Grilla() const {
        return mVentana->findChild<clsVistaGrilla*>("grdTabla")->Grilla();
    }
    void Pulsar(const QString& xClave) const {
        for (QAction* boton : mVentana->findChild<QToolBar*>("tlbOpciones")->actions())
            if (boton->data().toString() == xClave) boton->trigger();
    }
    // The save dialog answers xArchivo with the filter at xFiltro (0 tab, 1 comma).
    void Exportar(const QString& xArchivo, int xFiltro) {
        modDialogos::ResponderArchivos(
            [&](const modDialogos::PeticionArchivo& xPeticion, QString* xElegido) {
                Filtros = xPeticion.Filtro;
                *xElegido = xPeticion.Filtro.split(";;").value(xFiltro);
                return xArchivo;
            });
        Pulsar("Exportar");
    }

    QTemporaryDir mDirectorio;
    QString mCarpeta;
    std::unique_ptr<frmPandrel> mVentana;
    QStringList Mensajes;
    QMessageBox::StandardButton Respuesta = QMessageBox::Yes;
    QString Filtros;
};

// Every record is loaded first; the file is the grid's text with the Single's decimal comma
// turned into a full stop, Strings quoted only in CSV.
TEST_F(frmPandrelExportarTest, ExportWritesEveryRecordInTheChosenFormat) {
    const struct {
        int Filtro;
        QString Archivo;
        QByteArray Cabecera;
    } casos[] = {
        {0, "/out/stock.txt", "Item\tPrice\tQty\r\nBolts, \"M8\"\t3.5\t7\r\nItem 2\t2\t20\r\n"},
        {1, "/out/stock.csv", "Item,Price,Qty\r\n\"Bolts, \"M8\"\",3.5,7\r\n\"Item 2\",2,20\r\n"},
    };
    for (const auto& caso : casos) {
        Exportar(mDirectorio.path() + "/out/stock.", caso.Filtro);
        EXPECT_EQ(Filtros, "Tab Delimited (*.txt);;Comma Delimited(*.csv)");
        const QByteArray escrito = Leer(mDirectorio.path() + caso.Archivo);
        EXPECT_TRUE(escrito.startsWith(caso.Cabecera)) << escrito.left(80).toStdString();
        EXPECT_EQ(escrito.count("\r\n"), 46);
        EXPECT_TRUE(
            escrito.endsWith(caso.Filtro == 0 ? "Item 45\t45\t450\r\n" : "\"Item 45\",45,450\r\n"));
        EXPECT_EQ(Grilla().Rows(), 46);
    }
    EXPECT_EQ(Mensajes, QStringList({"Explorer [Stock]: The Folder " + mDirectorio.path() +
                                     "/out/ not exist.\r\nDo you want to create this Folder?"}));
}

TEST_F(frmPandrelExportarTest, CancelAndNoLeaveEverythingAsItWas) {
    Exportar("", 0);
    Respuesta = QMessageBox::No;
    Exportar(mDirectorio.path() + "/new/stock", 0);
    EXPECT_FALSE(QDir(mDirectorio.path() + "/new").exists());
    EXPECT_EQ(Mensajes.size(), 1);
    EXPECT_EQ(Grilla().Rows(), 41) << "nothing was loaded";

    // A failure goes to the error report under the export's procedure, and leaves no file.
    QFile(mDirectorio.path() + "/plain").open(QIODevice::WriteOnly);
    Respuesta = QMessageBox::Yes;
    QStringList vistos;
    QTimer reloj;
    QObject::connect(&reloj, &QTimer::timeout, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal) return;
        for (const QLabel* etiqueta : modal->findChildren<QLabel*>())
            vistos << etiqueta->text();
        modal->close();
    });
    reloj.start(10);
    Exportar(mDirectorio.path() + "/plain/stock.txt", 0);
    EXPECT_TRUE(vistos.contains("ExportarInformacion")) << vistos.join('|').toStdString();
    EXPECT_FALSE(QFile::exists(mDirectorio.path() + "/plain/stock.txt"));
}

TEST_F(frmPandrelExportarTest, PrintPrintsTheGridAsItStandsUnderTheCaption) {
    auto grabadora = std::make_shared<clsImpresoraGrabadora>();
    clsImpresoraQt::Sustituir([&](QPrinter&) { return grabadora; });
    bool confirmar = true;
    modDialogos::ResponderImpresora([&](QPrinter&) { return confirmar; });
    Pulsar("Imprimir");
    QStringList textos;
    for (const auto& texto : grabadora->Textos())
        textos << texto.Texto;
    for (const QString esperado :
         {"Explorer [Stock]", "Data Base Report", "Item", "Item 40", "End of Report"})
        EXPECT_TRUE(textos.contains(esperado)) << esperado.toStdString();
    EXPECT_FALSE(textos.contains("Item 41")) << "only the rows in the grid";
    EXPECT_EQ(grabadora->DocumentosTerminados(), 1);
    EXPECT_TRUE(Mensajes.isEmpty());

    confirmar = false;
    Pulsar("Imprimir");
    grabadora = std::make_shared<clsImpresoraGrabadora>();
    grabadora->FallarEn("EndDoc", ErrorVB(482, "clsImpresoraQt", "Printer error"));
    confirmar = true;
    Pulsar("Imprimir");
    EXPECT_EQ(Mensajes,
              QStringList({"Error: Error de la Impresora, verifique que esté lista para imprimir.",
                           "Explorer [Stock]: Printing error."}));
}

// The real Qt printer writes a PDF when the dialog chose a file.
TEST_F(frmPandrelExportarTest, PrintToAPdfFile) {
    const QString archivo = mDirectorio.path() + "/stock.pdf";
    modDialogos::ResponderImpresora([&](QPrinter& xImpresora) {
        xImpresora.setOutputFormat(QPrinter::PdfFormat);
        xImpresora.setOutputFileName(archivo);
        return true;
    });
    Pulsar("Imprimir");
    EXPECT_TRUE(Leer(archivo).startsWith("%PDF"));
    EXPECT_TRUE(Mensajes.isEmpty());
}

} // namespace
