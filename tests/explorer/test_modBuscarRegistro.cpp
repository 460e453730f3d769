#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/modBuscarRegistro.h"
#include "support/modPrueba.h"

#include <gtest/gtest.h>

namespace {

// A grid of one column and its spare column, the header row fixed, holding xCeldas in order.
void Llenar(clsGrillaFlexible& xGrilla, const QStringList& xCeldas) {
    xGrilla.SetCols(2);
    xGrilla.AddItem("Field");
    for (const QString& celda : xCeldas)
        xGrilla.AddItem(celda);
    if (xGrilla.Rows() > 1) xGrilla.SetFixedRows(1);
}

TEST(modBuscarRegistro, FindsTheFirstRowByTheRulesOfEachType) {
    clsConfiguracionRegional::EstablecerActual(QLocale(QLocale::English, QLocale::UnitedStates));
    struct Caso {
        const char* Nombre;
        QString Tipo;
        QStringList Celdas;
        QString Buscado;
        bool MayMin, Completa;
        QString Encontrado; // "" for none
    } casos[] = {
        {"text begins, with case", "String", {"abd", "Abc"}, "ab", true, false, "abd"},
        {"text at or after, no case", "String", {"c", "a"}, "b", false, false, "c"},
        {"boolean is a text", "Boolean", {"True", "False"}, "t", false, false, "True"},
        {"exact with case, blanks trimmed", "String", {"abc", "Abc"}, "  Abc ", true, true, "Abc"},
        {"exact with case refuses other case", "String", {"abc"}, "Abc", true, true, ""},
        {"exact without case", "String", {"abcd", "ABC"}, "abc", false, true, "ABC"},
        {"number at or after", "Int", {"9", "1", "7"}, "5", false, false, "7"},
        {"number at or after, the same", "Int", {"9", "5", "1"}, "5", false, false, "5"},
        {"number equal", "Long", {"9", "1", "7"}, "7.0", true, false, "7"},
        {"number equal, none", "Single", {"9", "1"}, "5", true, false, ""},
        {"a number's leading digits", "Int", {"12", "-3"}, " 4abc", false, false, "12"},
        {"date on or after",
         "Date",
         {"3/1/2004", "1/1/2001", "6/1/2009"},
         "2/1/2004",
         false,
         false,
         "3/1/2004"},
        {"date on or after, the same",
         "Date",
         {"2/1/2004", "1/1/2001"},
         "2/1/2004",
         false,
         false,
         "2/1/2004"},
        {"date equal", "Date", {"3/1/2004", "1/1/2001"}, "1/1/2001", true, false, "1/1/2001"},
        {"empty grid", "String", {}, "a", false, false, ""},
    };
    for (const Caso& c : casos) {
        clsGrillaFlexible grilla;
        Llenar(grilla, c.Celdas);
        const qint32 fila =
            modBuscarRegistro::Buscar(grilla, 0, c.Tipo, c.Buscado, c.MayMin, c.Completa);
        EXPECT_EQ(fila == 0 ? QString() : grilla.TextMatrix(fila, 0), c.Encontrado) << c.Nombre;
        // The grid stays sorted by the searched column: the rule finds the first at or after.
        for (qint32 f = 2; c.Tipo == "String" && f < grilla.Rows(); ++f)
            EXPECT_LE(grilla.TextMatrix(f - 1, 0), grilla.TextMatrix(f, 0)) << c.Nombre;
    }
}

TEST(modBuscarRegistro, ADateThatDoesNotConvertEndsTheSearch) {
    clsConfiguracionRegional::EstablecerActual(QLocale(QLocale::English, QLocale::UnitedStates));
    clsGrillaFlexible grilla;
    Llenar(grilla, {"3/1/2004"});
    EXPECT_EQ(modPrueba::ErrorDe([&] {
                  modBuscarRegistro::Buscar(grilla, 0, "Date", "not a date", false, false);
              }).Numero(),
              ErrorVB::TiposNoCoinciden);
}

} // namespace
