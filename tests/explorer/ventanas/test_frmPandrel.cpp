#include "common/modFecha.h"
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
#include "support/modPrueba.h"
#include "support/ventanas/clsPruebaVentana.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>
#include <QToolBar>
#include <QTreeWidget>
#include <functional>
#include <memory>

namespace {

using modDialogosPrueba::AlAbrir;

// A database with three distinct header dates, so a label showing the wrong one is caught; with
// xTamano, padded by a sort-info block to that size.
void Guardar(const QString& xCarpeta, clsConstructorBase& xBase, int xTamano = 0) {
    xBase.Fechas(modFecha::Crear(2003, 5, 17, 14, 3, 9), modFecha::Crear(2004, 12, 31, 23, 59, 58),
                 modFecha::Crear(2005, 1, 2, 8, 0, 0));
    clsArchivoPDB& archivo = xBase.Archivo();
    if (xTamano > 0) archivo.SortInfo = QByteArray(xTamano - archivo.Escribir().size(), '\0');
    xBase.Guardar(xCarpeta + "/" + QString::fromLatin1(archivo.Nombre) +
                  (archivo.EsRecursos() ? ".prc" : ".pdb"));
}

constexpr int kRegistros = 45;

// Stock: 45 records; every fifth is dirty; categories cycle through four names.
void CrearStock(const QString& xCarpeta) {
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

// The test handheld:
//   AFa1: Clients (AppForge, 3 records, 3072 bytes, categories 0, 1 and 4 named),
//         ClientsApp (application, 1536 bytes), Orders (AppForge, no records, 2048 bytes)
//   memo: MemoDB (a record database without the AppForge marker)
//   othr: Prefs (type pref)
//   AFst: Stock (AppForge, 45 records)
void CrearHandheld(const QString& xCarpeta) {
    CrearStock(xCarpeta);
    clsConstructorBase clientes("Clients", "DATA", "AFa1");
    clientes.Categorias({"Unfiled", "Business", "", "", "Personal"});
    clientes.EsquemaAppForge("Clients", {{"Name", clsConstructorBase::String},
                                         {"Age", clsConstructorBase::Int},
                                         {"Active", clsConstructorBase::Boolean},
                                         {"Born", clsConstructorBase::Date}});
    clientes.AgregarRegistro({"Ann", 34, true, modFecha::Crear(1970, 1, 2, 3, 4, 5)}, 0x40, 1);
    clientes.AgregarRegistro({"Bob", -2, false, modFecha::Crear(1999, 12, 31, 0, 0, 0)}, 0, 4);
    clientes.AgregarRegistro({"Cy", 258, true, modFecha::Crear(2001, 6, 7, 8, 9, 10)}, 0x10, 0);
    Guardar(xCarpeta, clientes, 3072);

    clsConstructorBase aplicacion("ClientsApp", "appl", "AFa1");
    aplicacion.AgregarRecurso("code", 1, QByteArray(100, 'N'));
    Guardar(xCarpeta, aplicacion, 1536);

    clsConstructorBase pedidos("Orders", "DATA", "AFa1");
    pedidos.EsquemaAppForge(
        "Orders", {{"Item", clsConstructorBase::String}, {"Qty", clsConstructorBase::Long}});
    Guardar(xCarpeta, pedidos, 2048);

    clsConstructorBase memo("MemoDB", "DATA", "memo");
    memo.Categorias({"Unfiled"});
    memo.AgregarRegistroCrudo(QByteArray("hello\0", 6));
    Guardar(xCarpeta, memo);

    clsConstructorBase preferencias("Prefs", "pref", "othr");
    Guardar(xCarpeta, preferencias);

    modPrueba::Poner(xCarpeta + "/Handheld.ini",
                     "[Card]\nRomSize=1536\nRamSize=2097152\nFreeRam=1000000\n");
}

class frmPandrelTest : public clsPruebaVentana {
protected:
    // Opens an explorer over the handheld in the test's folder (or xFuente) and loads it.
    void Abrir(std::shared_ptr<clsFuentePalm> xFuente = nullptr) {
        modHandheld::EstablecerFuente(
            xFuente ? xFuente : std::make_shared<clsFuenteCarpeta>(mCarpeta.path()));
        mVentana = std::make_unique<frmPandrel>();
        QObject::connect(mVentana.get(), &frmPandrel::MensajeEstado,
                         [this](const QString& xTexto) { Estados << xTexto; });
        mVentana->show();
        mVentana->Form_Load();
        mArbol = Hijo<QTreeWidget>(mVentana.get(), "tvwDataBases");
    }

    QString Texto(const char* xEtiqueta) const {
        return clsPruebaVentana::Texto(mVentana.get(), xEtiqueta);
    }
    template <typename T> T* Control(const char* xNombre) const {
        return Hijo<T>(mVentana.get(), xNombre);
    }
    clsGrillaFlexible& Grilla(const char* xNombre) const {
        return Control<clsVistaGrilla>(xNombre)->Grilla();
    }
    static QString Clave(const QTreeWidgetItem* xNodo) {
        return xNodo->data(0, frmPandrel::RolClave).toString();
    }
    QTreeWidgetItem* Raiz() const { return mArbol->topLevelItem(0); }
    QTreeWidgetItem* Creador(const QString& xClave) const {
        for (int i = 0; i < Raiz()->childCount(); ++i)
            if (Clave(Raiz()->child(i)) == xClave) return Raiz()->child(i);
        return nullptr;
    }
    QTreeWidgetItem* Base(const QString& xCreador, const QString& xNombre) {
        QTreeWidgetItem* creador = Creador(xCreador);
        if (!creador) return nullptr;
        creador->setExpanded(true);
        for (int i = 0; i < creador->childCount(); ++i)
            if (creador->child(i)->text(0) == xNombre) return creador->child(i);
        return nullptr;
    }
    void Filtrar(int xPosicion) { Control<QComboBox>("cmbTiposDB")->setCurrentIndex(xPosicion); }
    void Elegir(QTreeWidgetItem* xNodo) {
        ASSERT_NE(xNodo, nullptr);
        mArbol->scrollToItem(xNodo);
        mArbol->doItemsLayout();
        QTest::mouseClick(mArbol->viewport(), Qt::LeftButton, {},
                          mArbol->visualItemRect(xNodo).topLeft() + QPoint(4, 4));
    }
    static QStringList Fila(const clsGrillaFlexible& xGrilla, int xFila) {
        QStringList celdas;
        for (int c = 0; c < xGrilla.Cols(); ++c)
            celdas << xGrilla.TextMatrix(xFila, c);
        return celdas;
    }

    std::unique_ptr<frmPandrel> mVentana;
    QTreeWidget* mArbol = nullptr;
    QStringList Estados;
};

// Each filter builds the tree anew: the root, a creator node per creator with a placeholder,
// whose databases are fetched once, on the first expansion.
TEST_F(frmPandrelTest, TheTreeListsTheCreatorsOfEachFilterAndFetchesTheirDatabasesOnce) {
    CrearHandheld(mCarpeta.path());
    Abrir();
    EXPECT_EQ(Control<QComboBox>("cmbTiposDB")->currentText(), "AppForge Applications");
    const struct {
        int Filtro;
        QStringList Creadores;
    } filtros[] = {
        {0, {"AFa1", "AFst"}}, {1, {"memo", "othr"}}, {2, {"AFa1", "AFst", "memo", "othr"}}};
    for (const auto& filtro : filtros) {
        Filtrar(filtro.Filtro);
        ASSERT_EQ(mArbol->topLevelItemCount(), 1);
        EXPECT_EQ(Raiz()->text(0), "Mobile");
        QStringList creadores;
        for (int i = 0; i < Raiz()->childCount(); ++i) {
            creadores << Raiz()->child(i)->text(0);
            EXPECT_EQ(Clave(Raiz()->child(i)->child(0)), "*" + creadores.last());
        }
        EXPECT_EQ(creadores, filtro.Creadores) << filtro.Filtro;
    }
    QTreeWidgetItem* creador = Creador("AFa1");
    ASSERT_NE(creador, nullptr);
    for (int vez = 0; vez < 2; ++vez) {
        creador->setExpanded(false);
        creador->setExpanded(true);
        QStringList bases;
        for (int i = 0; i < creador->childCount(); ++i)
            bases << creador->child(i)->text(0) + "=" + Clave(creador->child(i)) + "=" +
                         creador->child(i)->data(0, frmPandrel::RolImagen).toString();
        EXPECT_EQ(bases, QStringList({"Clients=ClientsAFa1=1", "ClientsApp=ClientsAppAFa1=4",
                                      "Orders=OrdersAFa1=1"}));
    }
    EXPECT_TRUE(Mensajes.isEmpty());
    EXPECT_EQ(Estados, QStringList{""});
    EXPECT_EQ(Texto("RomPalm"), "Rom: 1.5 KB");
}

TEST_F(frmPandrelTest, ChoosingAnAppForgeDatabaseShowsItsHeaderSchemaAndRecords) {
    CrearHandheld(mCarpeta.path());
    Abrir();
    Elegir(Base("AFa1", "Clients"));

    EXPECT_EQ(mVentana->windowTitle(), "Explorer [Clients]");
    EXPECT_FALSE(mVentana->Ocupado());
    EXPECT_EQ(mVentana->cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(Control<QGroupBox>("fraDataBase")->isVisible());
    // The header's texts are modTextosPanel's; the record panel shows the current row's record.
    const char* const etiquetas[] = {"lblTipo",     "lblFechaCreacion",     "lblFechaBackup",
                                     "lblTamanio",  "lblCantidadRegistros", "lblTotalRecuperado",
                                     "lblRecordID", "lblCategoria",         "lblLongitudRegistro"};
    QStringList textos;
    for (const char* etiqueta : etiquetas)
        textos << Texto(etiqueta);
    EXPECT_EQ(textos, QString("DATA|05/17/2003 14:03:09|01/02/2005 08:00:00|3. KB|Record 1/ 3|3|"
                              "1048577|1|11")
                          .split('|'));
    EXPECT_TRUE(Control<QCheckBox>("chkDirty")->isChecked());
    EXPECT_FALSE(Control<QCheckBox>("chkSecret")->isChecked());

    const clsGrillaFlexible& tabla = Grilla("grdTabla");
    ASSERT_EQ(tabla.Rows(), 4);
    EXPECT_EQ(Fila(tabla, 0), (QStringList{"Name", "Age", "Active", "Born", ""}));
    EXPECT_EQ(Fila(tabla, 1).mid(0, 3), (QStringList{"Ann", "34", "True"}));
    EXPECT_EQ(Control<clsVistaGrilla>("grdTabla")->columnWidth(0), 133); // 2000 twips at 96 DPI

    // Every named category once, in slot order, each with the ID the record panel shows.
    QComboBox* categorias = Control<QComboBox>("cmbCategorias");
    QStringList nombres;
    for (int i = 0; i < categorias->count(); ++i)
        nombres << categorias->itemText(i);
    EXPECT_EQ(nombres, (QStringList{"All", "Unfiled", "Business", "Personal"}));
    EXPECT_EQ(categorias->itemData(3).toInt(), 4);

    // Another row shows its record; the panel has room for the widest position text.
    Control<clsVistaGrilla>("grdTabla")->SetRow(3);
    EXPECT_EQ(Texto("lblCantidadRegistros"), "Record 3/ 3");
    const QLabel* posicion = Control<QLabel>("lblCantidadRegistros");
    EXPECT_GE(posicion->width(), posicion->fontMetrics().horizontalAdvance("Record 16668/ 65535"));
    EXPECT_TRUE(Control<QCheckBox>("chkSecret")->isChecked());
    EXPECT_FALSE(Control<QCheckBox>("chkDirty")->isChecked());
    EXPECT_TRUE(Mensajes.isEmpty());
}

// A record database without the marker gets the notice; "Open Records" shows a built-in
// application's records instead, read-only but for their attributes.
TEST_F(frmPandrelTest, OpenRecordsShowsABuiltInApplicationsRecords) {
    CrearHandheld(mCarpeta.path());
    Abrir();
    Filtrar(1);
    QSignalSpy aviso(mVentana.get(), &frmPandrel::AvisoConstruccion);
    Elegir(Base("memo", "MemoDB"));
    EXPECT_EQ(aviso.count(), 1);
    EXPECT_FALSE(mVentana->Ocupado());

    auto* abrir = Control<QAction>("mnuAbrirRegistros");
    ASSERT_NE(abrir, nullptr);
    mArbol->setCurrentItem(Base("othr", "Prefs"));
    abrir->trigger();
    EXPECT_EQ(mVentana->windowTitle(), "Explorer [MemoDB]") << "no standard database: nothing";
    mArbol->setCurrentItem(Base("memo", "MemoDB"));
    abrir->trigger();
    EXPECT_EQ(aviso.count(), 1);
    EXPECT_EQ(Fila(Grilla("grdTabla"), 0),
              QStringList({"Title", "Memo", "Category", "Private", ""}));
    EXPECT_EQ(Fila(Grilla("grdTabla"), 1), QStringList({"hello", "hello", "Unfiled", "False", ""}));

    const auto enDisco = [this] {
        return clsArchivoPDB::Leer(modPrueba::Leer(mCarpeta.filePath("MemoDB.pdb")));
    };
    const QByteArray antes = enDisco().Registros[0].Datos;
    for (QAction* boton : Control<QToolBar>("tlbOpciones")->actions())
        if (boton->data() != "Buscar" && boton->data() != "Exportar" && boton->data() != "Imprimir")
            boton->trigger();
    EXPECT_TRUE(Mensajes.isEmpty());
    EXPECT_EQ(Grilla("grdTabla").Rows(), 2);
    Control<QCheckBox>("chkSecret")->click();
    EXPECT_EQ(enDisco().Registros[0].Atributos, 0x10);
    EXPECT_EQ(enDisco().Registros[0].Datos, antes);

    Elegir(Base("memo", "MemoDB"));
    EXPECT_EQ(aviso.count(), 2);
}

// A handheld that cannot be read is a connection error; a card that cannot be read leaves the
// tree empty with its reason. Either way the window stays, with what was built.
TEST_F(frmPandrelTest, AStartThatFailsLeavesTheTreeEmpty) {
    const struct {
        const char* Caso;
        QByteArray Ini; // empty: no handheld at all
        QString Mensaje;
        QStringList Estados;
    } casos[] = {
        {"no handheld", {}, "Palm Database connection error.", {"Connection error"}},
        {"bad card", "[Card]\nRomSize=lots\n", "RomSize", {""}},
    };
    for (const auto& caso : casos) {
        QTemporaryDir carpeta;
        if (!caso.Ini.isEmpty()) {
            CrearHandheld(carpeta.path());
            modPrueba::Poner(carpeta.filePath("Handheld.ini"), caso.Ini);
        }
        Mensajes.clear();
        Estados.clear();
        Abrir(std::make_shared<clsFuenteCarpeta>(caso.Ini.isEmpty() ? carpeta.filePath("none")
                                                                    : carpeta.path()));
        ASSERT_EQ(Mensajes.size(), 1) << caso.Caso;
        EXPECT_TRUE(Mensajes[0].Texto.contains(caso.Mensaje)) << caso.Caso;
        EXPECT_EQ(Estados, caso.Estados) << caso.Caso;
        EXPECT_EQ(mArbol->topLevelItemCount(), 0);
        EXPECT_EQ(Control<QComboBox>("cmbTiposDB")->count(), 0);
        EXPECT_FALSE(mVentana->Ocupado());
    }
}

// The records half of the explorer, driven as a person does: the toolbar, the keys, the dialogs
// (answered in place of the person) and the file on disk read back after every change.
class frmPandrelRegistrosTest : public frmPandrelTest {
protected:
    void SetUp() override {
        frmPandrelTest::SetUp();
        Respuesta = QMessageBox::Yes;
        CrearHandheld(mCarpeta.path());
        Abrir();
        ElegirStock();
        mGrilla = Control<clsVistaGrilla>("grdTabla");
    }
    QTreeWidget* Arbol() const { return mArbol; }
    void ElegirStock() { Elegir(Base("AFst", "Stock")); }
    clsGrillaFlexible& Tabla() const { return mGrilla->Grilla(); }
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

    clsVistaGrilla* mGrilla = nullptr;
};

TEST_F(frmPandrelRegistrosTest, BatchesUntilTheEndKeepTheCurrentRow) {
    auto* siguientes = mVentana->findChild<QPushButton*>("cmbRecuperarSiguientes");
    auto* cantidad = mVentana->findChild<QLineEdit*>("txtRegistrosARecuperar");
    ASSERT_EQ(Tabla().Rows(), 41);
    EXPECT_EQ(Texto("lblCantidadRegistros"), "Record 1/ 45");
    mGrilla->SetRow(7);
    // The next batch reads to the end, the current row staying.
    siguientes->click();
    EXPECT_EQ(Tabla().Rows(), 46);
    EXPECT_EQ(Texto("lblTotalRecuperado"), "45");
    EXPECT_EQ(mGrilla->Row(), 7);
    // The count box keeps only what a number is made of.
    cantidad->clear();
    QTest::keyClicks(cantidad, "1a5x-.,");
    EXPECT_EQ(cantidad->text(), "15-.,");
    // Enter in the count box reloads the database with its batch size.
    cantidad->setText("5");
    Tecla(cantidad, Qt::Key_Return);
    EXPECT_EQ(Tabla().Rows(), 6);
    // Only modified, then a category: each reloads with the dirty records alone.
    cantidad->setText("-1");
    mVentana->findChild<QCheckBox*>("chkSoloModificados")->setChecked(true);
    EXPECT_EQ(Tabla().Rows(), 1 + 9);
    mVentana->findChild<QComboBox*>("cmbCategorias")->setCurrentIndex(3);
    EXPECT_EQ(Texto("lblCantidadRegistros"), "Record 1/ 2");
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

// F3 opens Find; the matching is modBuscarRegistro's. The found row becomes the top row, unless
// the grid cannot scroll that far.
TEST_F(frmPandrelRegistrosTest, FindingByAColumn) {
    AlAbrir<frmBuscarRegistro>([&](frmBuscarRegistro* xDialogo) {
        auto* valor = xDialogo->findChild<QLineEdit*>("Txt_Valor");
        valor->setText("item1");
        QTest::keyClick(valor, Qt::Key_Return);
        if (xDialogo->isVisible()) QTest::keyClick(valor, Qt::Key_Escape);
    });
    mGrilla->SetRow(3);
    Tecla(mGrilla, Qt::Key_F3);
    EXPECT_EQ(Tabla().TextMatrix(mGrilla->Row(), 0), "Item10");
    EXPECT_TRUE(mGrilla->rowAt(0) == mGrilla->Row() ||
                mGrilla->verticalScrollBar()->value() == mGrilla->verticalScrollBar()->maximum());
    EXPECT_EQ(Texto("lblRecordID"), QString::number(Tabla().RowData(mGrilla->Row())));
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
// nothing.
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
        const QByteArray bytes = modPrueba::Leer(carpeta + archivo);
        EXPECT_TRUE(bytes.startsWith(QString(archivo).endsWith("csv") ? "Name," : "Name\t"));
        EXPECT_EQ(bytes.count("\r\n"), kRegistros + 1);
    }
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
        EXPECT_EQ(modPrueba::Leer(archivo), otra.Archivo().Escribir()) << caso;
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
