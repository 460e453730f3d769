#include "common/ErrorVB.h"
#include "constructor/clsConstructorBase.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/clsPalmPDB.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/clsNavegadorRegistros.h"
#include "support/modPrueba.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QTemporaryDir>
#include <QTimeZone>
#include <gtest/gtest.h>
#include <memory>

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
        modPrueba::PrepararTextos();
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
        {true, 2, 2, 3, false}, {false, 2, 2, 5, false}, {false, 2, 1, 6, true},
        {false, 2, 0, 6, true}, {true, 0, 0, 1, false},  {true, -1, 5, 6, true},
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

// Which rows go and which reloads are the window's part; here: the count and the refusal.
TEST_F(NavegadorTest, DeletingLowersTheCountOrLeavesTheGridWhenRefused) {
    mNavegador.CargarTabla(true, 2, false);
    mNavegador.EstablecerCantidadRegistros(5);
    const qint32 id = mTabla.RowData(2);
    EXPECT_EQ(mNavegador.EliminarRegistro(2), Nav::Eliminacion::FilaQuitada);
    EXPECT_EQ(mNavegador.CantidadRegistros(), 4);
    EXPECT_EQ(mNavegador.FilaDeRegistro(id), -1);
    EXPECT_EQ(EnDisco().size(), 4);
    // The only data row: the grid is to be reloaded.
    EXPECT_EQ(mNavegador.EliminarRegistro(1), Nav::Eliminacion::Recargar);
    // A record no longer there cannot be deleted again: the grid stays.
    mNavegador.CargarTodos();
    ASSERT_TRUE(mBase->DeleteRecord(mTabla.RowData(1)));
    const int filas = mTabla.Rows();
    EXPECT_EQ(mNavegador.EliminarRegistro(1), Nav::Eliminacion::Rechazada);
    EXPECT_EQ(mTabla.Rows(), filas);
    EXPECT_EQ(Nav::FilaTrasEliminar(2, 4), 2);
    EXPECT_EQ(Nav::FilaTrasEliminar(3, 3), 2);
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

// The batch size box's arrows stay within -1 (all) and 1000; the update dialog asks again only
// for the errors of a value the codec refused; the position text shows the first record.
TEST(NavegadorReglas, StepsRefusedValuesAndPositions) {
    const struct {
        const char* Cantidad;
        int Paso;
        const char* Despues;
    } pasos[] = {{"40", 1, "41"},    {"-1", -1, "-1"},  {"0", -1, "-1"}, {"1000", 1, "1000"},
                 {"999", 1, "1000"}, {"12x", -1, "11"}, {"", 1, "1"},    {"5000", -1, "1000"}};
    for (const auto& paso : pasos)
        EXPECT_EQ(Nav::CantidadTrasPaso(paso.Cantidad, paso.Paso), paso.Despues) << paso.Cantidad;
    for (const qint32 numero : {6, 9, 13})
        EXPECT_TRUE(Nav::ValorRechazado(ErrorVB(numero, "UpdateRecord", ""))) << numero;
    for (const qint32 numero :
         {0, 5, 7, ErroresFuente::EscrituraFallida, ErroresFuente::BaseCambiada})
        EXPECT_FALSE(Nav::ValorRechazado(ErrorVB(numero, "UpdateRecord", ""))) << numero;

    clsGrillaFlexible tabla;
    Nav navegador(tabla);
    EXPECT_EQ(navegador.TextoPosicionInicial(), "Record 0/ 0");
    navegador.EstablecerCantidadRegistros(45);
    EXPECT_EQ(navegador.TextoPosicionInicial(), "Record 1/ 45");
    EXPECT_EQ(Nav::TextoPosicionMasAncho(), "Record 65535/ 65535");
}

} // namespace
