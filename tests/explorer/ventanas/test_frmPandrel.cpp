#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "common/ventanas/modDialogos.h"
#include "constructor/clsConstructorBase.h"
#include "data/MensajesError.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/modHandheld.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/ventanas/clsVistaGrilla.h"
#include "explorer/ventanas/frmPandrel.h"
#include "support/clsFuenteCarpetaRara.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>
#include <QTimer>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <memory>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& xTexto, std::ostream* xSalida) {
    *xSalida << '"' << xTexto.toStdString() << '"';
}
QT_END_NAMESPACE

namespace {

using Campo = clsConstructorBase::Campo;

QDateTime Fecha(int a, int m, int d, int h, int mi, int s) {
    return QDateTime(QDate(a, m, d), QTime(h, mi, s), QTimeZone::utc());
}

// A database with three distinct header dates, so a label showing the wrong one is caught.
clsConstructorBase Nueva(const QString& xNombre, const QString& xTipo, const QString& xCreador) {
    clsConstructorBase base(xNombre, xTipo, xCreador);
    base.Fechas(Fecha(2003, 5, 17, 14, 3, 9), Fecha(2004, 12, 31, 23, 59, 58),
                Fecha(2005, 1, 2, 8, 0, 0));
    return base;
}

// Writes the database into the folder; with xTamano, padded by a sort-info block to that size.
void Guardar(const QString& xCarpeta, const QString& xArchivo, clsArchivoPDB xBase,
             int xTamano = 0) {
    if (xTamano > 0) xBase.SortInfo = QByteArray(xTamano - xBase.Escribir().size(), '\0');
    QDir().mkpath(xCarpeta);
    QFile archivo(QDir(xCarpeta).filePath(xArchivo));
    ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
    archivo.write(xBase.Escribir());
}

// The test handheld:
//   AFa1: Clients (AppForge, 3 records, 3072 bytes, categories 0, 1 and 4 named),
//         ClientsApp (application, 1536 bytes), Orders (AppForge, no records, 2048 bytes)
//   memo: MemoDB (a record database without the AppForge marker)
//   othr: Prefs (type pref)
void CrearHandheld(const QString& xCarpeta) {
    clsConstructorBase clientes = Nueva("Clients", "DATA", "AFa1");
    clientes.Categorias({"Unfiled", "Business", "", "", "Personal"});
    clientes.EsquemaAppForge("Clients", {{"Name", clsConstructorBase::String},
                                         {"Age", clsConstructorBase::Int},
                                         {"Active", clsConstructorBase::Boolean},
                                         {"Born", clsConstructorBase::Date}});
    clientes.AgregarRegistro({"Ann", 34, true, Fecha(1970, 1, 2, 3, 4, 5)}, 0x40, 1);
    clientes.AgregarRegistro({"Bob", -2, false, Fecha(1999, 12, 31, 0, 0, 0)}, 0, 4);
    clientes.AgregarRegistro({"Cy", 258, true, Fecha(2001, 6, 7, 8, 9, 10)}, 0x10, 0);
    Guardar(xCarpeta, "Clients.pdb", clientes.Archivo(), 3072);

    clsConstructorBase aplicacion = Nueva("ClientsApp", "appl", "AFa1");
    aplicacion.AgregarRecurso("code", 1, QByteArray(100, 'N'));
    Guardar(xCarpeta, "ClientsApp.prc", aplicacion.Archivo(), 1536);

    clsConstructorBase pedidos = Nueva("Orders", "DATA", "AFa1");
    pedidos.EsquemaAppForge(
        "Orders", {{"Item", clsConstructorBase::String}, {"Qty", clsConstructorBase::Long}});
    Guardar(xCarpeta, "Orders.pdb", pedidos.Archivo(), 2048);

    clsConstructorBase memo = Nueva("MemoDB", "DATA", "memo");
    memo.Categorias({"Unfiled"});
    memo.AgregarRegistroCrudo(QByteArray("hello\0", 6));
    Guardar(xCarpeta, "MemoDB.pdb", memo.Archivo());

    Guardar(xCarpeta, "Prefs.pdb", Nueva("Prefs", "pref", "othr").Archivo());

    QFile ini(xCarpeta + "/Handheld.ini");
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[Card]\nRomSize=1536\nRamSize=2097152\nFreeRam=1000000\n");
}

// Closes every modal window that opens (the error report, the notice) and keeps its class name.
class clsModales {
public:
    clsModales() {
        QObject::connect(&mReloj, &QTimer::timeout, [this] {
            if (QWidget* modal = QApplication::activeModalWidget()) {
                Vistas << modal->metaObject()->className();
                modal->close();
            }
        });
        mReloj.start(10);
    }
    QStringList Vistas;

private:
    QTimer mReloj;
};

class frmPandrelTest : public ::testing::Test {
protected:
    void SetUp() override {
        CargarMensajes();
        clsConfiguracionRegional::EstablecerActual(
            QLocale(QLocale::English, QLocale::UnitedStates));
        ASSERT_TRUE(mDirectorio.isValid());
        mCarpeta = mDirectorio.path() + "/Backup";
        modDialogos::ResponderMensajes([this](const modDialogos::PeticionMensaje& xPeticion) {
            Mensajes.append(xPeticion);
            return QMessageBox::Ok;
        });
    }
    void TearDown() override { modDialogos::ResponderMensajes({}); }

    // Opens an explorer over the handheld in mCarpeta and loads it.
    void Abrir(std::shared_ptr<clsFuentePalm> xFuente = nullptr) {
        modHandheld::EstablecerFuente(xFuente ? xFuente
                                              : std::make_shared<clsFuenteCarpeta>(mCarpeta));
        mVentana = std::make_unique<frmPandrel>();
        QObject::connect(mVentana.get(), &frmPandrel::MensajeEstado,
                         [this](const QString& xTexto) { Estados << xTexto; });
        mVentana->show();
        mVentana->Form_Load();
        mArbol = Hijo<QTreeWidget>("tvwDataBases");
    }

    template <typename T> T* Hijo(const char* xNombre) const {
        T* hijo = mVentana->findChild<T*>(QString::fromLatin1(xNombre));
        EXPECT_NE(hijo, nullptr) << xNombre;
        return hijo;
    }
    QString Texto(const char* xEtiqueta) const { return Hijo<QLabel>(xEtiqueta)->text(); }
    clsGrillaFlexible& Grilla(const char* xNombre) const {
        return Hijo<clsVistaGrilla>(xNombre)->Grilla();
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
    void Filtrar(int xPosicion) { Hijo<QComboBox>("cmbTiposDB")->setCurrentIndex(xPosicion); }
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

    QTemporaryDir mDirectorio;
    QString mCarpeta;
    std::unique_ptr<frmPandrel> mVentana;
    QTreeWidget* mArbol = nullptr;
    QList<modDialogos::PeticionMensaje> Mensajes;
    QStringList Estados;
};

TEST_F(frmPandrelTest, TheTreeListsTheCreatorsOfEachFilter) {
    CrearHandheld(mCarpeta);
    Abrir();
    struct Caso {
        int Filtro;
        QStringList Creadores;
    };
    const Caso casos[] = {{0, {"AFa1"}}, {1, {"memo", "othr"}}, {2, {"AFa1", "memo", "othr"}}};
    EXPECT_EQ(Hijo<QComboBox>("cmbTiposDB")->currentText(), "AppForge Applications");
    for (const Caso& caso : casos) {
        Filtrar(caso.Filtro);
        ASSERT_EQ(mArbol->topLevelItemCount(), 1);
        EXPECT_EQ(Clave(Raiz()), "Root");
        EXPECT_EQ(Raiz()->text(0), "Mobile");
        EXPECT_TRUE(Raiz()->isExpanded());
        QStringList creadores;
        for (int i = 0; i < Raiz()->childCount(); ++i) {
            const QTreeWidgetItem* creador = Raiz()->child(i);
            creadores << creador->text(0);
            EXPECT_EQ(Clave(creador), creador->text(0));
            ASSERT_EQ(creador->childCount(), 1);
            EXPECT_EQ(Clave(creador->child(0)), "*" + creador->text(0));
            EXPECT_EQ(creador->child(0)->text(0), "");
            EXPECT_FALSE(creador->isExpanded());
        }
        EXPECT_EQ(creadores, caso.Creadores) << caso.Filtro;
    }
    EXPECT_TRUE(Mensajes.isEmpty());
    EXPECT_EQ(Estados, QStringList{""});
    EXPECT_EQ(Texto("RomPalm"), "Rom: 1.5 KB");
    EXPECT_EQ(Texto("RamPalm"), "Ram: 2048 KB");
    EXPECT_EQ(Texto("RamDisponible"), "Available Ram: 976.56 KB");
    for (const char* fecha : {"lblFechaCreacion", "lblFechaModificacion", "lblFechaBackup"})
        EXPECT_EQ(Texto(fecha), "") << fecha;
}

TEST_F(frmPandrelTest, ExpandingACreatorFetchesItsDatabasesOnce) {
    CrearHandheld(mCarpeta);
    Abrir();
    Filtrar(2);
    struct Caso {
        QString Creador;
        QStringList Nombres;
        QList<int> Imagenes;
    };
    const Caso casos[] = {{"AFa1", {"Clients", "ClientsApp", "Orders"}, {1, 4, 1}},
                          {"memo", {"MemoDB"}, {1}},
                          {"othr", {"Prefs"}, {12}}};
    for (const Caso& caso : casos) {
        QTreeWidgetItem* creador = Creador(caso.Creador);
        ASSERT_NE(creador, nullptr);
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

        QTreeWidgetItem* primera = creador->child(0);
        creador->setExpanded(false);
        creador->setExpanded(true);
        EXPECT_EQ(creador->childCount(), caso.Nombres.size());
        EXPECT_EQ(creador->child(0), primera);
    }
    // A new filter builds the tree anew: placeholders again, fetched again on expansion.
    Filtrar(0);
    ASSERT_EQ(Creador("AFa1")->childCount(), 1);
    EXPECT_EQ(Clave(Creador("AFa1")->child(0)), "*AFa1");
    EXPECT_NE(Base("AFa1", "Orders"), nullptr);
}

TEST_F(frmPandrelTest, ChoosingAnAppForgeDatabaseShowsItsHeaderSchemaAndRecords) {
    CrearHandheld(mCarpeta);
    Abrir();
    Elegir(Base("AFa1", "Clients"));

    EXPECT_EQ(mVentana->windowTitle(), "Explorer [Clients]");
    EXPECT_FALSE(mVentana->Ocupado());
    EXPECT_EQ(mVentana->cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(Hijo<QGroupBox>("fraDataBase")->isVisible());
    const std::pair<const char*, QString> etiquetas[] = {
        {"lblTipo", "DATA"},
        {"lblVersion", "1.00"},
        {"lblFechaCreacion", "05/17/2003 14:03:09"},
        {"lblFechaModificacion", "12/31/2004 23:59:58"},
        {"lblFechaBackup", "01/02/2005 08:00:00"},
        {"lblTamanio", "3. KB"},
        {"lblCantidadRegistros", "Record 1/ 3"},
        {"lblTotalRecuperado", "3"},
        {"lblRecordID", "1048577"},
        {"lblCategoria", "1"},
        {"lblIndice", "0"},
        {"lblLongitudRegistro", "11"},
    };
    for (const auto& [nombre, texto] : etiquetas)
        EXPECT_EQ(Texto(nombre), texto) << nombre;
    EXPECT_TRUE(Hijo<QCheckBox>("chkDirty")->isChecked());
    EXPECT_FALSE(Hijo<QCheckBox>("chkSecret")->isChecked());

    const clsGrillaFlexible& campos = Grilla("grdCampos");
    ASSERT_EQ(campos.Rows(), 5);
    EXPECT_EQ(Fila(campos, 4), (QStringList{"Born", "Date", ""}));
    EXPECT_FALSE(Hijo<clsVistaGrilla>("grdCampos")->isHidden());

    const clsGrillaFlexible& tabla = Grilla("grdTabla");
    ASSERT_EQ(tabla.Rows(), 4);
    EXPECT_EQ(Fila(tabla, 0), (QStringList{"Name", "Age", "Active", "Born", ""}));
    EXPECT_EQ(Fila(tabla, 1).mid(0, 3), (QStringList{"Ann", "34", "True"}));
    EXPECT_EQ(tabla.ColAlignment(0), clsGrillaFlexible::IzquierdaCentro);
    EXPECT_EQ(tabla.ColAlignment(1), clsGrillaFlexible::DerechaArriba);
    EXPECT_EQ(Hijo<clsVistaGrilla>("grdTabla")->Row(), 1);
    EXPECT_EQ(Hijo<clsVistaGrilla>("grdTabla")->columnWidth(0), 133); // 2000 twips at 96 DPI

    QComboBox* categorias = Hijo<QComboBox>("cmbCategorias");
    QStringList nombres;
    for (int i = 0; i < categorias->count(); ++i)
        nombres << categorias->itemText(i);
    // Every named category once, in slot order, each with the ID the record panel shows.
    EXPECT_EQ(nombres, (QStringList{"All", "Unfiled", "Business", "Personal"}));
    EXPECT_EQ(categorias->itemData(3).toInt(), 4);
    EXPECT_TRUE(Mensajes.isEmpty());

    // Moving to another row shows that record; the panel has room for the widest position text.
    Hijo<clsVistaGrilla>("grdTabla")->SetRow(3);
    EXPECT_EQ(Texto("lblCantidadRegistros"), "Record 3/ 3");
    const QLabel* posicion = Hijo<QLabel>("lblCantidadRegistros");
    EXPECT_GE(posicion->width(), posicion->fontMetrics().horizontalAdvance("Record 16668/ 65535"));
    EXPECT_TRUE(Hijo<QCheckBox>("chkSecret")->isChecked());
    EXPECT_FALSE(Hijo<QCheckBox>("chkDirty")->isChecked());
}

TEST_F(frmPandrelTest, TheBatchSizeBoxSaysHowManyRecordsTheFirstBatchReads) {
    CrearHandheld(mCarpeta);
    Abrir();
    struct Caso {
        QString Cantidad;
        int Filas;
    };
    const Caso casos[] = {{"-1", 3}, {"0", 0}, {"1x", 1}};
    for (const Caso& caso : casos) {
        Hijo<QLineEdit>("txtRegistrosARecuperar")->setText(caso.Cantidad);
        Elegir(Base("AFa1", "Clients"));
        EXPECT_EQ(Grilla("grdTabla").Rows() - 1, caso.Filas) << caso.Cantidad.toStdString();
        EXPECT_EQ(Texto("lblTotalRecuperado"), QString::number(caso.Filas));
    }
    // A count beyond 16 bits is an overflow: the choice ends in a message and stays busy.
    Hijo<QLineEdit>("txtRegistrosARecuperar")->setText("40000");
    Elegir(Base("AFa1", "Clients"));
    ASSERT_EQ(Mensajes.size(), 1);
    EXPECT_EQ(Mensajes[0].Texto, "Overflow");
    EXPECT_EQ(Mensajes[0].Titulo, "Clients");
    EXPECT_TRUE(mVentana->Ocupado());
    EXPECT_EQ(mVentana->cursor().shape(), Qt::WaitCursor);
}

TEST_F(frmPandrelTest, ADatabaseWithoutRecordsKeepsItsHeaderInTheFixedColour) {
    CrearHandheld(mCarpeta);
    Abrir();
    Elegir(Base("AFa1", "Clients"));
    Elegir(Base("AFa1", "Orders"));
    const clsGrillaFlexible& tabla = Grilla("grdTabla");
    ASSERT_EQ(tabla.Rows(), 1);
    EXPECT_EQ(Fila(tabla, 0), (QStringList{"Item", "Qty", ""}));
    EXPECT_EQ(tabla.FixedRows(), 0);
    EXPECT_EQ(tabla.FixedCols(), 2);
    const std::pair<const char*, QString> etiquetas[] = {
        {"lblCantidadRegistros", "Record 0/ 0"},
        {"lblRecordID", "0"},
        {"lblCategoria", "0"},
        {"lblIndice", "0"},
        {"lblLongitudRegistro", "0"},
        {"lblTotalRecuperado", "0"},
        {"lblTamanio", "2. KB"},
    };
    for (const auto& [nombre, texto] : etiquetas)
        EXPECT_EQ(Texto(nombre), texto) << nombre;
    EXPECT_EQ(Grilla("grdCampos").Rows(), 3);
}

TEST_F(frmPandrelTest, ChoosingAnApplicationListsTheDatabasesOfItsCreator) {
    CrearHandheld(mCarpeta);
    Abrir(std::make_shared<clsFuenteCarpetaRara>(mCarpeta,
                                                 Rarezas{{{"Orders", ErroresFuente::BaseEnUso}}}));
    Elegir(Base("AFa1", "ClientsApp"));

    EXPECT_TRUE(Hijo<QGroupBox>("fraRecursos")->isVisible());
    EXPECT_FALSE(Hijo<QGroupBox>("fraDataBase")->isVisible());
    const clsGrillaFlexible& recursos = Grilla("grdRecursos");
    ASSERT_EQ(recursos.Rows(), 4);
    EXPECT_EQ(Fila(recursos, 0),
              (QStringList{"File", "Type", "Record Count", "Size", "Version", "Creation Date",
                           "Modification Date", "Backup Date", ""}));
    const clsConfiguracionRegional& regional = clsConfiguracionRegional::Actual();
    const QStringList fechas = {regional.TextoFechaGeneral(Fecha(2003, 5, 17, 14, 3, 9)),
                                regional.TextoFechaGeneral(Fecha(2004, 12, 31, 23, 59, 58)),
                                regional.TextoFechaGeneral(Fecha(2005, 1, 2, 8, 0, 0))};
    EXPECT_EQ(Fila(recursos, 1),
              QStringList({"Clients", "DATA", "3", "3", "1"}) + fechas + QStringList{""});
    EXPECT_EQ(Fila(recursos, 2),
              QStringList({"ClientsApp", "appl", "0", "1.5", "1"}) + fechas + QStringList{""});
    EXPECT_EQ(Fila(recursos, 3), (QStringList{"Orders (file in use) ", "Data", "Unknow", "Unknow",
                                              "Unknow", "Unknow", "Unknow", "Unknow", ""}));
    EXPECT_EQ(recursos.ColAlignment(1), clsGrillaFlexible::IzquierdaCentro);
    EXPECT_EQ(recursos.ColAlignment(2), clsGrillaFlexible::DerechaCentro);

    EXPECT_EQ(Texto("lblCantidadObjetos"), "3");
    EXPECT_EQ(Texto("lblTotalRegistros"), "3");
    EXPECT_EQ(Texto("lblTamanioAplicacion"), "4.50 KB");
    EXPECT_EQ(Texto("lblTamanio"), "1.5 KB");
    EXPECT_EQ(mVentana->windowTitle(), "Explorer [ClientsApp]");
    EXPECT_FALSE(mVentana->Ocupado());
}

TEST_F(frmPandrelTest, ARecordDatabaseWithoutTheMarkerGetsTheNotice) {
    CrearHandheld(mCarpeta);
    Abrir();
    Filtrar(1);
    QSignalSpy aviso(mVentana.get(), &frmPandrel::AvisoConstruccion);
    Elegir(Base("memo", "MemoDB"));
    EXPECT_EQ(aviso.count(), 1);
    EXPECT_EQ(Texto("lblTipo"), "DATA");
    EXPECT_EQ(Texto("lblCantidadRegistros"), "Record 1/ 1");
    EXPECT_FALSE(mVentana->Ocupado());
    EXPECT_EQ(mVentana->cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(Mensajes.isEmpty());
}

TEST_F(frmPandrelTest, TheRootAloneWhenNoCreatorMatches) {
    Guardar(mCarpeta, "MemoDB.pdb", Nueva("MemoDB", "DATA", "memo").Archivo());
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

TEST_F(frmPandrelTest, AHandheldThatCannotBeReadIsAConnectionError) {
    mCarpeta = mDirectorio.path() + "/missing";
    Abrir();
    EXPECT_EQ(Estados, QStringList{"Connection error"});
    ASSERT_EQ(Mensajes.size(), 1);
    EXPECT_EQ(Mensajes[0].Texto, "Palm Database connection error.");
    EXPECT_EQ(Mensajes[0].Icono, QMessageBox::Warning);
    EXPECT_EQ(mArbol->topLevelItemCount(), 0);
    EXPECT_EQ(Hijo<QComboBox>("cmbTiposDB")->count(), 0);
}

TEST_F(frmPandrelTest, AFaultyCardLeavesTheTreeEmpty) {
    CrearHandheld(mCarpeta);
    QFile ini(mCarpeta + "/Handheld.ini");
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write("[Card]\nRomSize=lots\n");
    ini.close();
    Abrir();
    ASSERT_EQ(Mensajes.size(), 1);
    EXPECT_EQ(Mensajes[0].Titulo, "Explorer");
    EXPECT_TRUE(Mensajes[0].Texto.contains("RomSize"));
    EXPECT_EQ(mArbol->topLevelItemCount(), 0);
    EXPECT_EQ(Hijo<QComboBox>("cmbTiposDB")->count(), 0);
    EXPECT_EQ(Estados, QStringList{""});
    EXPECT_FALSE(mVentana->Ocupado());
}

} // namespace
