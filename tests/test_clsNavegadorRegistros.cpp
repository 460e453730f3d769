#include "common/clsConfiguracionRegional.h"
#include "constructor/clsConstructorBase.h"
#include "data/MensajesError.h"
#include "data/clsFuenteCarpeta.h"
#include "data/clsPalmPDB.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/clsNavegadorRegistros.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QTemporaryDir>
#include <QTimeZone>
#include <gtest/gtest.h>
#include <memory>

QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& xTexto, std::ostream* xSalida) {
    *xSalida << '"' << xTexto.toStdString() << '"';
}
QT_END_NAMESPACE

namespace {

using Nav = clsNavegadorRegistros;

QDateTime Fecha(int a, int m, int d) {
    return QDateTime(QDate(a, m, d), QTime(8, 0), QTimeZone::utc());
}

// Items: five records whose names, quantities, flags and dates each sort differently from the
// order on file, so a sort that does nothing or sorts the wrong way is caught.
class NavegadorTest : public ::testing::Test {
protected:
    void SetUp() override {
        CargarMensajes();
        clsConfiguracionRegional::EstablecerActual(
            QLocale(QLocale::English, QLocale::UnitedStates));
        ASSERT_TRUE(mCarpeta.isValid());
        Crear(5);
        mBase = std::make_unique<clsPalmPDB>(std::make_shared<clsFuenteCarpeta>(mCarpeta.path()));
        ASSERT_TRUE(mBase->OpenFile("Items"));
        mNavegador.EstablecerBase(mBase.get());
        mCampos.SetCols(3);
        mNavegador.CargarFormatoTabla(mCampos);
    }

    void Crear(int xCantidad) {
        clsConstructorBase base("Items", "DATA", "AFit");
        base.Categorias({"Unfiled"});
        base.EsquemaAppForge("Items", {{"Name", clsConstructorBase::String},
                                       {"Qty", clsConstructorBase::Int},
                                       {"Ok", clsConstructorBase::Boolean},
                                       {"When", clsConstructorBase::Date}});
        const QVariantList filas[] = {
            {"pear", 30, true, Fecha(2004, 1, 1)}, {"Apple", 4, false, Fecha(1999, 1, 1)},
            {"fig", -7, true, Fecha(2010, 1, 1)},  {"Date", 100, false, Fecha(2001, 1, 1)},
            {"kiwi", 5, true, Fecha(1990, 1, 1)},
        };
        for (int i = 0; i < xCantidad; ++i)
            base.AgregarRegistro(filas[i]);
        base.Guardar(QDir(mCarpeta.path()).filePath("Items.pdb"));
    }

    // The records as they are on disk now, read by a database object of its own.
    QStringList EnDisco() const {
        clsPalmPDB otra(std::make_shared<clsFuenteCarpeta>(mCarpeta.path()));
        otra.OpenFile("Items");
        QStringList registros;
        bool inicio = true;
        QString registro;
        while (otra.ReadRecord(inicio, registro, ",") != -1)
            registros << registro;
        return registros;
    }

    QStringList Columna(int xColumna) const {
        QStringList celdas;
        for (int f = 1; f < mTabla.Rows(); ++f)
            celdas << mTabla.TextMatrix(f, xColumna);
        return celdas;
    }

    QTemporaryDir mCarpeta;
    std::unique_ptr<clsPalmPDB> mBase;
    clsGrillaFlexible mTabla;
    clsGrillaFlexible mCampos;
    Nav mNavegador{mTabla};
};

TEST_F(NavegadorTest, TheLayoutFollowsTheSchema) {
    QAbstractItemModelTester tester(&mTabla);
    ASSERT_EQ(mTabla.Cols(), 5);
    EXPECT_EQ(mTabla.TextMatrix(0, 0), "Name");
    EXPECT_EQ(mTabla.ColWidth(4), 0);
    EXPECT_EQ(mCampos.Rows(), 5);
    EXPECT_EQ(mCampos.TextMatrix(4, 1), "Date");
    // The header alone: no fixed row, every field column fixed.
    EXPECT_EQ(mTabla.FixedRows(), 0);
    EXPECT_EQ(mTabla.FixedCols(), 4);
}

TEST_F(NavegadorTest, BatchesReadOnUntilTheEnd) {
    struct Paso {
        bool Reiniciar;
        qint16 Cantidad;
        int Agregadas, Filas;
        bool Fin;
    } pasos[] = {
        {true, 2, 2, 3, false},  {false, 2, 2, 5, false}, {false, 2, 1, 6, true},
        {false, 2, 0, 6, true},  {true, 0, 0, 1, false},  {true, -1, 5, 6, true},
        {false, -1, 0, 6, true},
    };
    for (const Paso& p : pasos) {
        EXPECT_EQ(mNavegador.CargarTabla(p.Reiniciar, p.Cantidad, false), p.Agregadas);
        EXPECT_EQ(mTabla.Rows(), p.Filas);
        EXPECT_EQ(mNavegador.FinAlcanzado(), p.Fin);
        EXPECT_EQ(mTabla.FixedRows(), p.Filas > 1 ? 1 : 0);
        EXPECT_EQ(mTabla.FixedCols(), p.Filas > 1 ? 0 : 4);
    }
    // Each row carries its record's ID, and every record is there once.
    for (int f = 1; f < mTabla.Rows(); ++f)
        EXPECT_EQ(mNavegador.FilaDeRegistro(mTabla.RowData(f)), f);
    EXPECT_EQ(Columna(0), QStringList({"pear", "Apple", "fig", "Date", "kiwi"}));
}

TEST_F(NavegadorTest, SortsByFieldType) {
    EXPECT_EQ(Nav::ModoOrdenTipo("Long", 100), clsGrillaFlexible::NumericoAscendente);
    EXPECT_EQ(Nav::ModoOrdenTipo("Date", 3), clsGrillaFlexible::Personalizado);
    EXPECT_EQ(Nav::ModoOrdenTipo("Boolean", 3), clsGrillaFlexible::TextoAscendente);
    EXPECT_EQ(Nav::ModoOrdenTipo("Blob", 7), 7);

    mNavegador.CargarTodos();
    struct Caso {
        qint16 Columna;
        QStringList Nombres; // column 0 after the sort
    } casos[] = {
        {1, {"fig", "Apple", "kiwi", "pear", "Date"}},
        {3, {"fig", "Apple", "kiwi", "pear", "Date"}}, // a date column keeps the order
        {0, {"Apple", "Date", "fig", "kiwi", "pear"}},
        {2, {"Apple", "Date", "fig", "kiwi", "pear"}}, // "False" before "True", stable
    };
    for (const Caso& c : casos) {
        mNavegador.OrdenarPorColumna(c.Columna);
        EXPECT_EQ(Columna(0), c.Nombres) << c.Columna;
        EXPECT_EQ(mNavegador.ColumnaOrden(), c.Columna);
    }
    // The same database keeps its sort across a reload; another one forgets it.
    mNavegador.RecordarBase("Items");
    mNavegador.OrdenarPorColumna(1);
    mNavegador.CargarTodos();
    EXPECT_EQ(mNavegador.RecordarBase("Items"), 1);
    EXPECT_EQ(Columna(0).first(), "fig");
    EXPECT_EQ(mNavegador.RecordarBase("Other"), Nav::SinColumna);
    EXPECT_EQ(mNavegador.ModoOrden(), Nav::SinOrden);
}

TEST_F(NavegadorTest, AnEditedRowKeepsItsRecordAfterTheSort) {
    mNavegador.CargarTodos();
    mNavegador.OrdenarPorColumna(1);
    const qint32 fila = mNavegador.FilaDeRegistro(mTabla.RowData(1)); // fig, -7
    const qint32 id = mTabla.RowData(fila);
    ASSERT_EQ(mBase->UpdateRecord(id, 1, "500"), id);
    const qint32 nueva = mNavegador.ActualizarFila(fila, 1, "500", id);
    EXPECT_EQ(nueva, 5);
    EXPECT_EQ(mTabla.TextMatrix(nueva, 0), "fig");
    EXPECT_EQ(EnDisco().at(2).section(',', 0, 2), "\"fig\",500,True");
}

TEST_F(NavegadorTest, DeletingKeepsTheCurrentRowRules) {
    struct Caso {
        int Cargar, Fila;
        Nav::Eliminacion Resultado;
        int FilaActual;
        QStringList Quedan;
    } casos[] = {
        {5, 2, Nav::Eliminacion::FilaQuitada, 2, {"pear", "fig", "Date", "kiwi"}},
        {4, 4, Nav::Eliminacion::FilaQuitada, 3, {"pear", "fig", "Date"}},
        {1, 1, Nav::Eliminacion::Recargar, 1, {"fig", "Date"}},
    };
    for (const Caso& c : casos) {
        mNavegador.CargarTabla(true, c.Cargar, false);
        mNavegador.EstablecerCantidadRegistros(10);
        const QString borrado = mTabla.TextMatrix(c.Fila, 0);
        EXPECT_EQ(mNavegador.EliminarRegistro(c.Fila), c.Resultado);
        EXPECT_EQ(mNavegador.CantidadRegistros(), 9);
        // The grid no longer shows it (a reload is the window's), the file no longer holds it.
        if (c.Resultado == Nav::Eliminacion::FilaQuitada) {
            EXPECT_EQ(Nav::FilaTrasEliminar(c.Fila, mTabla.Rows()), c.FilaActual);
            EXPECT_FALSE(Columna(0).contains(borrado));
        }
        QStringList nombres;
        for (const QString& r : EnDisco())
            nombres << r.section(',', 0, 0).remove('"');
        EXPECT_EQ(nombres, c.Quedan);
    }
    // A record no longer there cannot be deleted again: the grid stays.
    mNavegador.CargarTodos();
    const qint32 id = mTabla.RowData(1);
    ASSERT_TRUE(mBase->DeleteRecord(id));
    const int filas = mTabla.Rows();
    EXPECT_EQ(mNavegador.EliminarRegistro(1), Nav::Eliminacion::Rechazada);
    EXPECT_EQ(mTabla.Rows(), filas);
}

TEST_F(NavegadorTest, AddingToAnEmptyTableTurnsTheHeaderRowFixed) {
    mBase->DeleteAllRecords();
    mNavegador.CargarTodos();
    ASSERT_EQ(mTabla.Rows(), 1);
    EXPECT_EQ(mNavegador.TextoPosicion(0), "Record 0/ 0");
    const qint32 id = mNavegador.AgregarRegistro();
    ASSERT_NE(id, -1);
    EXPECT_EQ(mTabla.Rows(), 2);
    EXPECT_EQ(mTabla.RowData(1), id);
    EXPECT_EQ(mTabla.FixedRows(), 1);
    EXPECT_EQ(mTabla.FixedCols(), 0);
    EXPECT_EQ(EnDisco().size(), 1);
    mNavegador.EstablecerCantidadRegistros(7);
    EXPECT_EQ(mNavegador.TextoPosicion(1), "Record 1/ 7");
}

TEST(NavegadorReglas, AttributeByteAndCountKeys) {
    EXPECT_EQ(Nav::ByteAtributos(true, true, true, true), 0xd8);
    EXPECT_EQ(Nav::ByteAtributos(false, true, false, false), 0x40);
    EXPECT_EQ(Nav::ByteAtributos(false, false, true, true), 0x18);
    for (const QChar c : QStringLiteral("0123456789,-.\b"))
        EXPECT_TRUE(Nav::CaracterCantidadAceptado(c)) << c.unicode();
    for (const QChar c : QStringLiteral("a+ eE/"))
        EXPECT_FALSE(Nav::CaracterCantidadAceptado(c)) << c.unicode();
}

} // namespace
