#include "constructor/clsConstructorBase.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/modHandheld.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/ventanas/clsVistaGrilla.h"
#include "explorer/ventanas/frmPandrel.h"
#include "support/clsFuenteCarpetaRara.h"
#include "support/ventanas/clsPruebaVentana.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimeZone>
#include <QToolBar>
#include <QTreeWidget>
#include <memory>

namespace {

QDateTime Fecha(int a, int m, int d, int h, int mi, int s) {
    return QDateTime(QDate(a, m, d), QTime(h, mi, s), QTimeZone::utc());
}

// A database with three distinct header dates, so a label showing the wrong one is caught; with
// xTamano, padded by a sort-info block to that size.
void Guardar(const QString& xCarpeta, clsConstructorBase& xBase, int xTamano = 0) {
    xBase.Fechas(Fecha(2003, 5, 17, 14, 3, 9), Fecha(2004, 12, 31, 23, 59, 58),
                 Fecha(2005, 1, 2, 8, 0, 0));
    clsArchivoPDB& archivo = xBase.Archivo();
    if (xTamano > 0) archivo.SortInfo = QByteArray(xTamano - archivo.Escribir().size(), '\0');
    xBase.Guardar(xCarpeta + "/" + QString::fromLatin1(archivo.Nombre) +
                  (archivo.EsRecursos() ? ".prc" : ".pdb"));
}

// The test handheld:
//   AFa1: Clients (AppForge, 3 records, 3072 bytes, categories 0, 1 and 4 named),
//         ClientsApp (application, 1536 bytes), Orders (AppForge, no records, 2048 bytes)
//   memo: MemoDB (a record database without the AppForge marker)
//   othr: Prefs (type pref)
void CrearHandheld(const QString& xCarpeta) {
    clsConstructorBase clientes("Clients", "DATA", "AFa1");
    clientes.Categorias({"Unfiled", "Business", "", "", "Personal"});
    clientes.EsquemaAppForge("Clients", {{"Name", clsConstructorBase::String},
                                         {"Age", clsConstructorBase::Int},
                                         {"Active", clsConstructorBase::Boolean},
                                         {"Born", clsConstructorBase::Date}});
    clientes.AgregarRegistro({"Ann", 34, true, Fecha(1970, 1, 2, 3, 4, 5)}, 0x40, 1);
    clientes.AgregarRegistro({"Bob", -2, false, Fecha(1999, 12, 31, 0, 0, 0)}, 0, 4);
    clientes.AgregarRegistro({"Cy", 258, true, Fecha(2001, 6, 7, 8, 9, 10)}, 0x10, 0);
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

    QFile ini(xCarpeta + "/Handheld.ini");
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[Card]\nRomSize=1536\nRamSize=2097152\nFreeRam=1000000\n");
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
    } filtros[] = {{0, {"AFa1"}}, {1, {"memo", "othr"}}, {2, {"AFa1", "memo", "othr"}}};
    for (const auto& filtro : filtros) {
        Filtrar(filtro.Filtro);
        ASSERT_EQ(mArbol->topLevelItemCount(), 1);
        EXPECT_EQ(Clave(Raiz()), "Root");
        EXPECT_EQ(Raiz()->text(0), "Mobile");
        QStringList creadores;
        for (int i = 0; i < Raiz()->childCount(); ++i) {
            const QTreeWidgetItem* creador = Raiz()->child(i);
            creadores << creador->text(0);
            ASSERT_EQ(creador->childCount(), 1);
            EXPECT_EQ(Clave(creador->child(0)), "*" + creador->text(0));
            EXPECT_FALSE(creador->isExpanded());
        }
        EXPECT_EQ(creadores, filtro.Creadores) << filtro.Filtro;
    }
    const struct {
        QString Creador;
        QStringList Nombres;
        QList<int> Imagenes;
    } creadores[] = {{"AFa1", {"Clients", "ClientsApp", "Orders"}, {1, 4, 1}},
                     {"othr", {"Prefs"}, {12}}};
    for (const auto& caso : creadores) {
        QTreeWidgetItem* creador = Creador(caso.Creador);
        ASSERT_NE(creador, nullptr);
        for (int vez = 0; vez < 2; ++vez) {
            creador->setExpanded(false);
            creador->setExpanded(true);
            QStringList nombres;
            QList<int> imagenes;
            for (int i = 0; i < creador->childCount(); ++i) {
                nombres << creador->child(i)->text(0);
                imagenes << creador->child(i)->data(0, frmPandrel::RolImagen).toInt();
                EXPECT_EQ(Clave(creador->child(i)), creador->child(i)->text(0) + caso.Creador);
            }
            EXPECT_EQ(nombres, caso.Nombres);
            EXPECT_EQ(imagenes, caso.Imagenes);
        }
    }
    EXPECT_TRUE(Mensajes.isEmpty());
    EXPECT_EQ(Estados, QStringList{""});
    EXPECT_EQ(Texto("RomPalm"), "Rom: 1.5 KB");
    EXPECT_EQ(Texto("RamDisponible"), "Available Ram: 976.56 KB");
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
    EXPECT_EQ(Fila(Grilla("grdCampos"), 4), (QStringList{"Born", "Date", ""}));

    const clsGrillaFlexible& tabla = Grilla("grdTabla");
    ASSERT_EQ(tabla.Rows(), 4);
    EXPECT_EQ(Fila(tabla, 0), (QStringList{"Name", "Age", "Active", "Born", ""}));
    EXPECT_EQ(Fila(tabla, 1).mid(0, 3), (QStringList{"Ann", "34", "True"}));
    EXPECT_EQ(tabla.ColAlignment(1), clsGrillaFlexible::DerechaArriba);
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

    // A database without records keeps its header row in the fixed colour.
    Elegir(Base("AFa1", "Orders"));
    EXPECT_EQ(tabla.Rows(), 1);
    EXPECT_EQ(tabla.FixedRows(), 0);
    EXPECT_EQ(tabla.FixedCols(), 2);
    for (const char* etiqueta : {"lblRecordID", "lblLongitudRegistro", "lblTotalRecuperado"})
        EXPECT_EQ(Texto(etiqueta), "0") << etiqueta;
    EXPECT_EQ(Texto("lblCantidadRegistros"), "Record 0/ 0");
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
    EXPECT_EQ(Texto("lblCantidadRegistros"), "Record 1/ 1");
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
        QFile leido(mCarpeta.filePath("MemoDB.pdb"));
        return leido.open(QIODevice::ReadOnly) ? clsArchivoPDB::Leer(leido.readAll())
                                               : clsArchivoPDB();
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

TEST_F(frmPandrelTest, TheRootAloneWhenNoCreatorMatches) {
    clsConstructorBase memo("MemoDB", "DATA", "memo");
    Guardar(mCarpeta.path(), memo);
    Abrir();
    ASSERT_EQ(mArbol->topLevelItemCount(), 1);
    EXPECT_EQ(Raiz()->childCount(), 0);
    // The root has no children, so choosing it tries to open a database called Mobile.
    Elegir(Raiz());
    EXPECT_EQ(mVentana->windowTitle(), "Explorer [Mobile]");
    ASSERT_EQ(Mensajes.size(), 1);
    EXPECT_EQ(Mensajes[0].Titulo, "Mobile");
    EXPECT_TRUE(Mensajes[0].Texto.contains("Mobile"));
    EXPECT_TRUE(mVentana->Ocupado());
    // While busy, a new filter does not rebuild the tree.
    Filtrar(2);
    EXPECT_EQ(Raiz()->childCount(), 0);
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
            QFile ini(carpeta.filePath("Handheld.ini"));
            ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
            ini.write(caso.Ini);
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

} // namespace
