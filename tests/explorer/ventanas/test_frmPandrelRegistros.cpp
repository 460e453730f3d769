// The records half of the explorer, driven as a person does: the toolbar, the keys, the dialogs
// (answered in place of the person) and the file on disk read back after every change.
#include "constructor/clsConstructorBase.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/clsPalmPDB.h"
#include "data/modHandheld.h"
#include "errors/ventanas/frmMensajeError.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/ventanas/clsVistaGrilla.h"
#include "explorer/ventanas/frmActualizarValor.h"
#include "explorer/ventanas/frmBuscarRegistro.h"
#include "explorer/ventanas/frmPandrel.h"
#include "printing/ventanas/clsImpresoraQt.h"
#include "support/clsImpresoraGrabadora.h"
#include "support/ventanas/clsPruebaVentana.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimeZone>
#include <QTreeWidget>
#include <functional>
#include <memory>

namespace {

constexpr int kRegistros = 45;

// Stock: 45 records; every fifth is dirty; categories cycle through four names.
void CrearHandheld(const QString& xCarpeta) {
    clsConstructorBase base("Stock", "DATA", "AFst");
    base.Categorias({"Unfiled", "Shelf", "Back", "Front"});
    base.EsquemaAppForge("Stock", {{"Name", clsConstructorBase::String},
                                   {"Qty", clsConstructorBase::Int},
                                   {"Ok", clsConstructorBase::Boolean},
                                   {"When", clsConstructorBase::Date}});
    for (int i = 0; i < kRegistros; ++i)
        base.AgregarRegistro({QString("Item%1").arg(i, 2, 10, QChar('0')), (i * 7) % 50, i % 2 == 0,
                              QDateTime(QDate(2000 + i % 9, 1, 1), QTime(), QTimeZone::utc())},
                             i % 5 == 0 ? 0x40 : 0, i % 4);
    base.Guardar(QDir(xCarpeta).filePath("Stock.pdb"));
}

using modDialogosPrueba::AlAbrir;

class frmPandrelRegistrosTest : public clsPruebaVentana {
protected:
    void SetUp() override {
        clsPruebaVentana::SetUp();
        Respuesta = QMessageBox::Yes;
        CrearHandheld(mCarpeta.path());
        modHandheld::EstablecerFuente(std::make_shared<clsFuenteCarpeta>(mCarpeta.path()));
        mVentana = std::make_unique<frmPandrel>();
        mVentana->show();
        mVentana->Form_Load();
        ElegirStock();
        mGrilla = mVentana->findChild<clsVistaGrilla*>("grdTabla");
    }
    QTreeWidget* Arbol() const { return mVentana->findChild<QTreeWidget*>("tvwDataBases"); }
    void ElegirStock() {
        QTreeWidgetItem* creador = Arbol()->topLevelItem(0)->child(0);
        creador->setExpanded(true);
        Arbol()->setCurrentItem(creador->child(0));
        emit Arbol()->itemClicked(creador->child(0), 0);
    }
    clsGrillaFlexible& Tabla() const { return mGrilla->Grilla(); }
    QString Texto(const char* xNombre) const {
        return clsPruebaVentana::Texto(mVentana.get(), xNombre);
    }
    void Tecla(QWidget* xControl, Qt::Key xTecla) { QTest::keyClick(xControl, xTecla); }
    void Boton(const char* xClave) {
        for (QAction* boton : mVentana->findChildren<QAction*>())
            if (boton->objectName() == xClave) boton->trigger();
    }

    // The database as it is on disk now.
    struct Disco {
        QStringList Registros; // comma-separated record texts
        QList<qint32> Ids;
    };
    Disco EnDisco() const {
        clsPalmPDB base(std::make_shared<clsFuenteCarpeta>(mCarpeta.path()));
        base.OpenFile("Stock");
        Disco disco;
        bool inicio = true;
        QString registro;
        for (qint32 id; (id = base.ReadRecord(inicio, registro, ",")) != -1;) {
            disco.Registros << registro;
            disco.Ids << id;
        }
        return disco;
    }
    qint32 AtributosEnDisco(qint32 xID) const {
        clsPalmPDB base(std::make_shared<clsFuenteCarpeta>(mCarpeta.path()));
        base.OpenFile("Stock");
        return base.RecordAttributes(xID);
    }

    std::unique_ptr<frmPandrel> mVentana;
    clsVistaGrilla* mGrilla = nullptr;
};

TEST_F(frmPandrelRegistrosTest, BatchesUntilTheEndKeepTheCurrentRow) {
    auto* siguientes = mVentana->findChild<QPushButton*>("cmbRecuperarSiguientes");
    auto* cantidad = mVentana->findChild<QLineEdit*>("txtRegistrosARecuperar");
    ASSERT_EQ(Tabla().Rows(), 41);
    EXPECT_EQ(Texto("lblCantidadRegistros"), "Record 1/ 45");
    mGrilla->SetRow(7);
    // The second click, past the end, reads nothing more.
    for (int vez = 0; vez < 2; ++vez) {
        siguientes->click();
        EXPECT_EQ(Tabla().Rows(), 46);
        EXPECT_EQ(Texto("lblTotalRecuperado"), "45");
        EXPECT_EQ(mGrilla->Row(), 7);
    }
    // The count box keeps only what a number is made of.
    cantidad->clear();
    QTest::keyClicks(cantidad, "1a5x-.,");
    EXPECT_EQ(cantidad->text(), "15-.,");
    // Enter in the count box reloads the database with its batch size.
    cantidad->setText("5");
    Tecla(cantidad, Qt::Key_Return);
    EXPECT_EQ(Tabla().Rows(), 6);
    // Only modified: the dirty records alone; a category shows its index after "/ ". Each reload
    // sorts again by Ok, which takes the first record from row 1: the panel shows where it went.
    auto* cabecera = mGrilla->horizontalHeader();
    QTest::mouseClick(cabecera->viewport(), Qt::LeftButton, {},
                      QPoint(cabecera->sectionViewportPosition(2) + 5, 5));
    cantidad->setText("-1");
    mVentana->findChild<QCheckBox*>("chkSoloModificados")->setChecked(true);
    EXPECT_EQ(Tabla().Rows(), 1 + 9);
    mVentana->findChild<QComboBox*>("cmbCategorias")->setCurrentIndex(3);
    EXPECT_EQ(Tabla().Rows(), 1 + 9);
    EXPECT_EQ(mGrilla->Row(), 5);
    EXPECT_EQ(Texto("lblCantidadRegistros"), "Record 5/ 2");
    EXPECT_EQ(Texto("lblRecordID"), QString::number(Tabla().RowData(5)));
}

TEST_F(frmPandrelRegistrosTest, KeysAddDeleteAndEscapeDoesNothing) {
    mVentana->findChild<QLineEdit*>("txtRegistrosARecuperar")->setText("-1");
    Tecla(mGrilla, Qt::Key_Escape);
    EXPECT_TRUE(Mensajes.isEmpty());

    // Insert: a blank record appended, on disk; the count after "/ " stays.
    Tecla(mGrilla, Qt::Key_Insert);
    EXPECT_EQ(Mensajes.takeLast().Texto, "Do you want to add a new record?");
    ASSERT_EQ(Tabla().Rows(), 42);
    Disco disco = EnDisco();
    ASSERT_EQ(disco.Ids.size(), kRegistros + 1);
    EXPECT_EQ(Tabla().RowData(41), disco.Ids.last());
    // No: nothing changes.
    Respuesta = QMessageBox::No;
    Tecla(mGrilla, Qt::Key_Insert);
    EXPECT_EQ(EnDisco().Ids.size(), kRegistros + 1);
    Respuesta = QMessageBox::Yes;

    // Delete in the middle keeps the row number; at the end the new last row becomes current.
    mGrilla->setFocus();
    struct Caso {
        int Fila, Actual;
    } casos[] = {{5, 5}, {40, 39}};
    for (const Caso& c : casos) {
        mGrilla->SetRow(c.Fila);
        const qint32 id = Tabla().RowData(c.Fila);
        Tecla(mGrilla, Qt::Key_Delete);
        EXPECT_EQ(Mensajes.takeLast().Texto, "Do you want to delete the current record?");
        EXPECT_EQ(mGrilla->Row(), c.Actual);
        EXPECT_FALSE(EnDisco().Ids.contains(id));
    }
    EXPECT_EQ(Texto("lblCantidadRegistros"), "Record 39/ 43");
}

TEST_F(frmPandrelRegistrosTest, TheUpdateDialogWritesOrRefuses) {
    struct Caso {
        int Columna;
        QString Valor;
        bool Acepta;
        QString Campo; // the field as read back from the file
    } casos[] = {{0, "X", true, "\"X\""}, {1, "70000", false, "7"}};
    for (const Caso& c : casos) {
        mGrilla->setCurrentIndex(Tabla().index(2, c.Columna));
        const qint32 id = Tabla().RowData(2);
        bool quedoAbierto = false;
        AlAbrir<frmActualizarValor>([&](frmActualizarValor* xDialogo) {
            auto* nuevo = xDialogo->findChild<QLineEdit*>("txtValorNuevo");
            EXPECT_EQ(nuevo->selectedText(), nuevo->text());
            nuevo->setText(c.Valor);
            QTest::keyClick(nuevo, Qt::Key_Return);
            quedoAbierto = xDialogo->isVisible();
            if (quedoAbierto) QTest::keyClick(nuevo, Qt::Key_Escape);
        });
        Tecla(mGrilla, Qt::Key_Return);
        EXPECT_EQ(quedoAbierto, !c.Acepta)
            << qPrintable(c.Valor) << qPrintable(TextosMensajes().join("|"));
        const QString campo =
            EnDisco().Registros.at(EnDisco().Ids.indexOf(id)).section(',', c.Columna, c.Columna);
        EXPECT_EQ(campo, c.Campo) << qPrintable(c.Valor);
        if (c.Acepta)
            EXPECT_EQ(Tabla().TextMatrix(2, c.Columna), c.Valor);
        else
            EXPECT_EQ(Mensajes.takeLast().Texto,
                      "The record can´t be updated.\r\nPlease, check the value assigned.");
    }
}

// F3 opens Find; the matching is modBuscarRegistro's.
TEST_F(frmPandrelRegistrosTest, FindingByAColumn) {
    struct Caso {
        int Columna;
        QString Texto;
        bool MayMin;
        QString Encontrado; // "" for "Text not found"
    } casos[] = {{0, "item1", false, "Item10"}, {0, "item1", true, ""}};
    for (const Caso& c : casos) {
        AlAbrir<frmBuscarRegistro>([&](frmBuscarRegistro* xDialogo) {
            xDialogo->findChild<QComboBox*>("Cmb_Columnas")->setCurrentIndex(c.Columna);
            auto* valor = xDialogo->findChild<QLineEdit*>("Txt_Valor");
            valor->setText(c.Texto);
            xDialogo->findChild<QCheckBox*>("Chk_MayMin")->setChecked(c.MayMin);
            QTest::keyClick(valor, Qt::Key_Return);
            if (xDialogo->isVisible()) {
                EXPECT_EQ(valor->selectedText(), c.Texto);
                QTest::keyClick(valor, Qt::Key_Escape);
            }
        });
        mGrilla->SetRow(3);
        Tecla(mGrilla, Qt::Key_F3);
        if (c.Encontrado.isEmpty()) {
            EXPECT_EQ(Mensajes.takeLast().Texto, "Text not found");
            EXPECT_EQ(mGrilla->Row(), 3);
        } else {
            EXPECT_EQ(Tabla().TextMatrix(mGrilla->Row(), c.Columna), c.Encontrado);
            // The found row is the top row, unless the grid cannot scroll that far.
            EXPECT_TRUE(mGrilla->rowAt(0) == mGrilla->Row() ||
                        mGrilla->verticalScrollBar()->value() ==
                            mGrilla->verticalScrollBar()->maximum());
            EXPECT_EQ(Texto("lblRecordID"), QString::number(Tabla().RowData(mGrilla->Row())));
        }
    }
}

// The found row is 16-bit: a hit in row 50,040 goes to the error report window as an overflow,
// and the grid stays on its record instead of moving to a wrapped row.
TEST_F(frmPandrelRegistrosTest, AFindBeyondRow32767IsAnOverflow) {
    Tabla().AddItems(QStringList(50000, "Aisle"), QVector<qint32>(50000, 1));
    mGrilla->SetRow(3);
    QString numero;
    AlAbrir<frmBuscarRegistro>([&](frmBuscarRegistro* xDialogo) {
        auto* valor = xDialogo->findChild<QLineEdit*>("Txt_Valor");
        valor->setText("Item39");
        AlAbrir<frmMensajeError>([&](frmMensajeError* xVentana) {
            numero = xVentana->findChild<QLabel*>("lblErrorNumero")->text();
            xVentana->close();
        });
        QTest::keyClick(valor, Qt::Key_Return);
        QTest::keyClick(valor, Qt::Key_Escape);
    });
    Tecla(mGrilla, Qt::Key_F3);
    EXPECT_EQ(numero, "6");
    EXPECT_EQ(Tabla().TextMatrix(mGrilla->Row(), 0), "Item02") << "the same record is current";
}

// Export asks the file and format, loads every record and writes them; cancel and No change
// nothing; a failure goes to the error report under the export's procedure.
TEST_F(frmPandrelRegistrosTest, ExportWritesEveryRecordToTheChosenFile) {
    const auto exportar = [&](const QString& xArchivo, int xFiltro) {
        modDialogos::ResponderArchivos(
            [&](const modDialogos::PeticionArchivo& xPeticion, QString* xElegido) {
                *xElegido = xPeticion.Filtro.split(";;").value(xFiltro);
                return xArchivo;
            });
        Boton("Exportar");
        modDialogos::ResponderArchivos({});
    };
    const QString carpeta = mCarpeta.path() + "/out/";
    const QString pregunta =
        "The Folder " + carpeta + " not exist.\r\nDo you want to create this Folder?";
    Respuesta = QMessageBox::No;
    exportar("", 0);
    exportar(carpeta + "stock", 0);
    EXPECT_EQ(Tabla().Rows(), 41) << "nothing was loaded";
    Respuesta = QMessageBox::Yes;
    exportar(carpeta + "stock", 0);
    exportar(carpeta + "stock.", 1);
    EXPECT_EQ(Tabla().Rows(), kRegistros + 1);
    EXPECT_EQ(TextosMensajes(), QStringList({pregunta, pregunta}));
    // The format the chosen filter names; the bytes are modExportacion's.
    for (const char* archivo : {"stock.txt", "stock.csv"}) {
        QFile escrito(carpeta + archivo);
        ASSERT_TRUE(escrito.open(QIODevice::ReadOnly)) << archivo;
        const QByteArray bytes = escrito.readAll();
        EXPECT_TRUE(bytes.startsWith(QString(archivo).endsWith("csv") ? "Name," : "Name\t"));
        EXPECT_EQ(bytes.count("\r\n"), kRegistros + 1);
    }

    QStringList vistos;
    AlAbrir<frmMensajeError>([&](frmMensajeError* xVentana) {
        for (const QLabel* etiqueta : xVentana->findChildren<QLabel*>())
            vistos << etiqueta->text();
        xVentana->close();
    });
    exportar(carpeta + "stock.txt/inner.txt", 0);
    EXPECT_TRUE(vistos.contains("ExportarInformacion")) << vistos.join('|').toStdString();
}

// Print prints the grid as it stands under the caption; a cancelled dialog and a failing printer
// each give their message box.
TEST_F(frmPandrelRegistrosTest, PrintPrintsTheGridUnderTheCaption) {
    auto grabadora = std::make_shared<clsImpresoraGrabadora>();
    clsImpresoraQt::Sustituir([&](QPrinter&) { return grabadora; });
    bool confirmar = true;
    modDialogos::ResponderImpresora([&](QPrinter&) { return confirmar; });
    Boton("Imprimir");
    QStringList textos;
    for (const auto& texto : grabadora->Textos())
        textos << texto.Texto;
    for (const QString esperado :
         {"Explorer [Stock]", "Data Base Report", "Item39", "End of Report"})
        EXPECT_TRUE(textos.contains(esperado)) << esperado.toStdString();
    EXPECT_FALSE(textos.contains("Item40")) << "only the rows the grid holds";

    confirmar = false; // the dialog cancelled
    Boton("Imprimir");
    confirmar = true;
    grabadora = std::make_shared<clsImpresoraGrabadora>();
    grabadora->FallarEn("EndDoc", ErrorVB(482, "clsImpresoraQt", "Printer error"));
    Boton("Imprimir");
    clsImpresoraQt::Sustituir({});
    EXPECT_EQ(TextosMensajes(),
              QStringList({"Error de la Impresora, verifique que esté lista para imprimir.",
                           "Printing error."}));
}

// Another program replaced the file with another database: a write (through the explorer's trap,
// or through the update dialog, which handles its errors itself) is refused in the error report
// window, the file stays as that program left it and the tree is read again, nothing chosen.
TEST_F(frmPandrelRegistrosTest, AWriteToAFileThatNowHoldsAnotherDatabaseReloadsTheTree) {
    const std::pair<const char*, std::function<void()>> escrituras[] = {
        {"attribute box", [&] { mVentana->findChild<QCheckBox*>("chkSecret")->click(); }},
        {"update dialog",
         [&] {
             mGrilla->setCurrentIndex(Tabla().index(2, 1));
             AlAbrir<frmActualizarValor>([](frmActualizarValor* xDialogo) {
                 auto* nuevo = xDialogo->findChild<QLineEdit*>("txtValorNuevo");
                 nuevo->setText("5");
                 QTest::keyClick(nuevo, Qt::Key_Return);
                 if (xDialogo->isVisible()) QTest::keyClick(nuevo, Qt::Key_Escape);
             });
             Tecla(mGrilla, Qt::Key_Return);
         }},
    };
    const QString archivo = QDir(mCarpeta.path()).filePath("Stock.pdb");
    ASSERT_TRUE(QFile::copy(archivo, archivo + ".orig"));
    clsConstructorBase otra("Other", "DATA", "AFot");
    otra.EsquemaAppForge("Other", {{"Qty", clsConstructorBase::Int}});
    otra.AgregarRegistro({1});
    for (const auto& [caso, escribir] : escrituras) {
        QFile::remove(archivo);
        ASSERT_TRUE(QFile::copy(archivo + ".orig", archivo));
        ElegirStock();
        ASSERT_TRUE(mGrilla->isVisible()) << caso;
        otra.Guardar(archivo);
        QString informe;
        AlAbrir<frmMensajeError>([&](frmMensajeError* xVentana) {
            informe = xVentana->findChild<QPlainTextEdit*>("txtErrorDescrip")->toPlainText();
            xVentana->close();
        });
        escribir();
        QApplication::processEvents();
        EXPECT_TRUE(informe.contains("changed on disk")) << caso << ": " << qPrintable(informe);
        QFile enDisco(archivo);
        ASSERT_TRUE(enDisco.open(QIODevice::ReadOnly));
        EXPECT_EQ(enDisco.readAll(), otra.Archivo().Escribir()) << caso;
        EXPECT_FALSE(mGrilla->isVisible()) << caso;
        EXPECT_EQ(mVentana->windowTitle(), "Explorer") << caso;
        // The creators again, each with its databases still to be read.
        QTreeWidgetItem* creador = Arbol()->topLevelItem(0)->child(0);
        ASSERT_NE(creador, nullptr) << caso;
        EXPECT_FALSE(creador->isExpanded()) << caso;
        EXPECT_EQ(creador->child(0)->text(0), "") << caso;
    }
}

} // namespace
