#include "data/modEntradaCatalogo.h"

#include <gtest/gtest.h>

namespace {

// An entry is read as the tree, the panels and pandrel-cli read it: the name up to the first "*".
TEST(modEntradaCatalogo, LeerEntradaTomaElNombreHastaLaPrimeraEstrella) {
    const struct {
        const char* Entrada;
        const char* Nombre;
        qint64 Clase;
    } casos[] = {
        {"Notes*4", "Notes", 4}, {"a*b*1", "a", 0},
        {"a*5b*1", "a", 5},      {"Sin estrella", "Sin estrella", 0},
        {"*12", "", 12},         {"x*99999999999999999999", "x", qint64(9e18)},
    };
    for (const auto& caso : casos) {
        const modEntradaCatalogo::EntradaBase leida =
            modEntradaCatalogo::LeerEntrada(QString::fromLatin1(caso.Entrada));
        EXPECT_EQ(leida.Nombre, caso.Nombre) << caso.Entrada;
        EXPECT_EQ(leida.Clase, caso.Clase) << caso.Entrada;
    }
    EXPECT_EQ(modEntradaCatalogo::Entrada("Notes", 4), "Notes*4");
    EXPECT_EQ(modEntradaCatalogo::Entradas("A*1\tB*4\ttail", "\t"), QStringList({"A*1", "B*4"}));
    EXPECT_EQ(modEntradaCatalogo::Entradas("", "\t"), QStringList());
}

} // namespace
