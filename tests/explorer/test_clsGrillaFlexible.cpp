#include "common/ErrorVB.h"
#include "explorer/clsGrillaFlexible.h"
#include "support/modPrueba.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

// A grid of xColumnas columns whose rows are the given tab-separated texts, with data words
// 100, 101, ... in row order.
void Llenar(clsGrillaFlexible& xGrilla, qint32 xColumnas, const QStringList& xFilas) {
    xGrilla.SetCols(xColumnas);
    for (const QString& texto : xFilas) {
        const qint32 fila = xGrilla.AddItem(texto);
        xGrilla.SetRowData(fila, 100 + fila);
    }
}

QStringList Columna(const clsGrillaFlexible& xGrilla, qint32 xColumna) {
    QStringList textos;
    for (qint32 f = 0; f < xGrilla.Rows(); ++f)
        textos << xGrilla.TextMatrix(f, xColumna);
    return textos;
}

TEST(clsGrillaFlexible, IndicesOutsideTheGridRaiseSubscriptOutOfRange) {
    clsGrillaFlexible grilla;
    Llenar(grilla, 2, {"a\tb"});
    const std::function<void()> accesos[] = {
        [&] { grilla.TextMatrix(1, 0); },
        [&] { grilla.TextMatrix(0, 2); },
        [&] { grilla.TextMatrix(-1, 0); },
        [&] { grilla.SetTextMatrix(0, -1, "x"); },
        [&] { grilla.RowData(5); },
        [&] { grilla.SetRowData(1, 3); },
        [&] { grilla.ColWidth(2); },
        [&] { grilla.SetColAlignment(0, 10); },
        [&] { grilla.SetColAlignment(3, 1); },
        [&] { grilla.SetRows(-1); },
        [&] { grilla.Sort(clsGrillaFlexible::TextoAscendente, 2); },
    };
    for (const auto& acceso : accesos) {
        EXPECT_EQ(modPrueba::ErrorDe(acceso).Numero(), ErrorVB::SubindiceFueraDeRango);
    }
}

// Whatever path the sort takes (rows already in order, one row out of place either way, rows in
// any order) it gives the stable order and carries the data words: equal values keep the order
// they had, a text that is no number counts as zero, texts compare case-sensitively; a grid
// already in order, or a custom order without a compare rule, is left alone and signals nothing.
// RemoveItem keeps the fixed header.
TEST(clsGrillaFlexible, SortIsStableOnEveryPath) {
    struct Caso {
        const char* Nombre;
        QStringList Valores;
        qint32 Modo;
    } casos[] = {
        {"in order", {"1", "2", "2", "5"}, clsGrillaFlexible::NumericoAscendente},
        {"one row up", {"1", "2", "9", "3", "4"}, clsGrillaFlexible::NumericoAscendente},
        {"one row down", {"1", "3", "4", "0", "5"}, clsGrillaFlexible::NumericoAscendente},
        {"one row up past its equals",
         {"1", "2", "3", "4", "2"},
         clsGrillaFlexible::NumericoAscendente},
        {"one row among equals", {"b", "b", "a", "b", "c"}, clsGrillaFlexible::TextoAscendente},
        {"one row to an equal's place",
         {"a", "c", "c", "b", "c"},
         clsGrillaFlexible::TextoAscendente},
        {"any order", {"d", "B", "a", "b", "A", "a"}, clsGrillaFlexible::TextoAscendente},
        {"numbers in any order", {"10", "9", "-2.5", "100"}, clsGrillaFlexible::NumericoAscendente},
        {"no number is zero", {"3", "abc", "-1", "0", ""}, clsGrillaFlexible::NumericoAscendente},
        {"case-sensitive", {"b", "B", "a", "A", "10", "9"}, clsGrillaFlexible::TextoAscendente},
        {"custom", {"12/31/2001", "01/01/1999"}, clsGrillaFlexible::Personalizado},
    };
    for (const Caso& c : casos) {
        clsGrillaFlexible grilla;
        grilla.SetLocale(QLocale::c());
        grilla.SetCols(2);
        grilla.AddItem("Value");
        QVector<QPair<QString, qint32>> esperado;
        for (qsizetype i = 0; i < c.Valores.size(); ++i) {
            const qint32 fila = grilla.AddItem(c.Valores.at(i));
            grilla.SetRowData(fila, static_cast<qint32>(i));
            esperado.append({c.Valores.at(i), static_cast<qint32>(i)});
        }
        grilla.SetFixedRows(1);
        const auto original = esperado;
        std::stable_sort(esperado.begin(), esperado.end(), [&](const auto& a, const auto& b) {
            if (c.Modo == clsGrillaFlexible::NumericoAscendente)
                return a.first.toDouble() < b.first.toDouble();
            return c.Modo == clsGrillaFlexible::TextoAscendente && a.first < b.first;
        });
        QSignalSpy cambios(&grilla, &QAbstractItemModel::layoutChanged);
        grilla.Sort(c.Modo, 0);
        QVector<QPair<QString, qint32>> obtenido;
        for (qint32 f = 1; f < grilla.Rows(); ++f)
            obtenido.append({grilla.TextMatrix(f, 0), grilla.RowData(f)});
        EXPECT_EQ(obtenido, esperado) << c.Nombre;
        EXPECT_EQ(cambios.size(), esperado == original ? 0 : 1) << c.Nombre;
    }
    clsGrillaFlexible grilla;
    grilla.SetCols(1);
    grilla.AddItem("Value");
    grilla.AddItem("x");
    grilla.SetFixedRows(1);
    EXPECT_THROW(grilla.RemoveItem(0), ErrorVB);
    grilla.RemoveItem(1);
    EXPECT_EQ(grilla.Rows(), 1);
    EXPECT_EQ(grilla.FixedRows(), 0);
}

TEST(clsGrillaFlexible, NumericSortReadsTheGridsLocale) {
    clsGrillaFlexible grilla;
    grilla.SetLocale(QLocale(QLocale::German, QLocale::Germany));
    Llenar(grilla, 1, {"2,5", "10", "2,25"});
    grilla.Sort(clsGrillaFlexible::NumericoAscendente, 0);
    EXPECT_EQ(Columna(grilla, 0), (QStringList{"2,25", "2,5", "10"}));
}

TEST(clsGrillaFlexible, TheFirstFixedRowIsTheHeadingAndFixedCellsAreMarked) {
    clsGrillaFlexible grilla;
    Llenar(grilla, 3, {"Field\tType", "Name\tString"});
    EXPECT_EQ(grilla.headerData(0, Qt::Horizontal).toString(), "");
    grilla.SetFixedCols(2);
    EXPECT_TRUE(grilla.data(grilla.index(1, 1), clsGrillaFlexible::RolFija).toBool());
    EXPECT_FALSE(grilla.data(grilla.index(1, 2), clsGrillaFlexible::RolFija).toBool());

    QSignalSpy cabecera(&grilla, &QAbstractItemModel::headerDataChanged);
    grilla.SetFixedCols(0);
    grilla.SetFixedRows(1);
    EXPECT_FALSE(cabecera.isEmpty());
    EXPECT_EQ(grilla.headerData(1, Qt::Horizontal).toString(), "Type");
    EXPECT_TRUE(grilla.data(grilla.index(0, 2), clsGrillaFlexible::RolFija).toBool());
    EXPECT_FALSE(grilla.data(grilla.index(1, 0), clsGrillaFlexible::RolFija).toBool());
    grilla.SetTextMatrix(0, 1, "Kind");
    EXPECT_EQ(grilla.headerData(1, Qt::Horizontal).toString(), "Kind");
    EXPECT_EQ(grilla.data(grilla.index(1, 0), clsGrillaFlexible::RolDato).toInt(), 101);
}

TEST(clsGrillaFlexible, TheModelKeepsQtsRulesThroughEveryChange) {
    clsGrillaFlexible grilla;
    QAbstractItemModelTester probador(&grilla,
                                      QAbstractItemModelTester::FailureReportingMode::Fatal);
    grilla.SetCols(3);
    grilla.AddItem("Name\tAge");
    grilla.SetFixedCols(2);
    grilla.AddItems({"b\t3", "a\t20", "c\t1"}, {7, 8, 9});
    grilla.SetFixedCols(0);
    grilla.SetFixedRows(1);
    const QPersistentModelIndex seguido = grilla.index(2, 1);
    grilla.Sort(clsGrillaFlexible::NumericoAscendente, 1);
    EXPECT_EQ(seguido.row(), 3);
    EXPECT_EQ(seguido.data().toString(), "20");
    grilla.Sort(clsGrillaFlexible::TextoAscendente, 0);
    EXPECT_EQ(seguido.row(), 1);
    grilla.SetTextMatrix(1, 2, "spare");
    grilla.SetColWidth(2, 0);
    grilla.SetRows(1);
    grilla.SetCols(1);
    grilla.SetRows(0);
    EXPECT_EQ(grilla.rowCount(), 0);
}

} // namespace
