#include "common/ErrorVB.h"
#include "common/modFunciones.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

struct CasoOrden {
    const char* nombre;
    QStringList entrada;
    int sentido;
    QStringList esperado;
};

class OrdenarVectorTest : public ::testing::TestWithParam<CasoOrden> {};

TEST_P(OrdenarVectorTest, OrdenaSegunSentido) {
    QStringList lista = GetParam().entrada;
    modFunciones::OrdenarVector(lista, GetParam().sentido);
    EXPECT_EQ(lista, GetParam().esperado);
}

INSTANTIATE_TEST_SUITE_P(
    Casos, OrdenarVectorTest,
    ::testing::Values(
        CasoOrden{"vacia", {}, 1, {}}, CasoOrden{"uno", {"b"}, 1, {"b"}},
        CasoOrden{"ascendente", {"pear", "apple", "fig"}, 1, {"apple", "fig", "pear"}},
        CasoOrden{"descendente", {"pear", "apple", "fig"}, 0, {"pear", "fig", "apple"}},
        // A binary comparison puts upper-case letters before every lower-case one.
        CasoOrden{"binaria", {"b", "a", "B", "A"}, 1, {"A", "B", "a", "b"}},
        CasoOrden{"prefijo", {"ab*1", "a*4", "abc"}, 1, {"a*4", "ab*1", "abc"}},
        CasoOrden{"repetidos", {"x", "y", "x"}, 1, {"x", "x", "y"}},
        CasoOrden{"sentidoDesconocido", {"c", "a", "b"}, 2, {"c", "a", "b"}},
        CasoOrden{"sentidoNegativo", {"c", "a", "b"}, -1, {"c", "a", "b"}}),
    [](const auto& info) { return std::string(info.param.nombre); });

TEST(OrdenarVector, LimiteDeLosContadores) {
    struct Caso {
        int cantidad;
        bool desborda;
    } casos[] = {{32767, false}, {32768, true}};
    for (const Caso& caso : casos) {
        QStringList lista;
        for (int i = 0; i < caso.cantidad; ++i)
            lista.append(i == 0 ? QStringLiteral("z") : QStringLiteral("a"));
        try {
            modFunciones::OrdenarVector(lista, 1);
            EXPECT_FALSE(caso.desborda) << caso.cantidad;
            EXPECT_EQ(lista.last(), QStringLiteral("z"));
        } catch (const ErrorVB& e) {
            EXPECT_TRUE(caso.desborda) << caso.cantidad;
            EXPECT_EQ(e.Numero(), 6);
            EXPECT_EQ(e.Descripcion(), QStringLiteral("Overflow"));
            EXPECT_EQ(lista.first(), QStringLiteral("z")) << "the list must be left untouched";
        }
    }
}

TEST(SinBlancos, QuitaSoloLosBlancosDadosDeLosExtremos) {
    struct Caso {
        const char16_t* Texto;
        const char16_t* Blancos;
        const char16_t* Esperado;
    } casos[] = {
        {u"  a b  ", u" ", u"a b"},
        {u"\t a \t", u" ", u"\t a \t"},
        {u"\t a \t", u" \t", u"a"},
        {u"   ", u" ", u""},
        {u"", u" ", u""},
        {u"x", u" ", u"x"},
        {u" \n x\n ", u" ", u"\n x\n"},
    };
    for (const Caso& caso : casos)
        EXPECT_EQ(modFunciones::SinBlancos(caso.Texto, caso.Blancos).toString(),
                  QString::fromUtf16(caso.Esperado))
            << QString::fromUtf16(caso.Texto).toStdString();
}

TEST(CrearCarpeta, CreaCadaNivelYFallaSobreUnArchivo) {
    QTemporaryDir base;
    ASSERT_TRUE(base.isValid());
    const QString profunda = base.filePath("uno/dos/tres");
    modFunciones::CrearCarpeta(profunda);
    EXPECT_TRUE(QDir(profunda).exists());
    EXPECT_NO_THROW(modFunciones::CrearCarpeta(profunda)) << "an existing folder is fine";

    QFile archivo(base.filePath("archivo"));
    ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
    archivo.close();
    const QString malas[] = {base.filePath("archivo"), base.filePath("archivo/debajo"), "", "   "};
    for (const QString& mala : malas)
        EXPECT_THROW(modFunciones::CrearCarpeta(mala), ErrorVB) << mala.toStdString();
}

TEST(NombreUsuario, UnNombreLargoSeCortaEnSuDecimoquintoCaracter) {
    const struct {
        QString Nombre, Cortado;
    } casos[] = {{"root", "root"},
                 {"administrators", "administrators"},
                 {"studentaccount1", "studentaccount"},
                 {"shortname-with-s", "shortname"},
                 {QString(300, 'a'), ""}};
    for (const auto& caso : casos)
        EXPECT_EQ(modFunciones::CortarNombreUsuario(caso.Nombre), caso.Cortado);
}

TEST(NombreUsuario, DevuelveElUsuarioDeLaSesion) {
    const QString nombre = modFunciones::NombreUsuario();
    EXPECT_FALSE(nombre.isEmpty());
    EXPECT_LE(nombre.size(), 255);
    const QString usuario = qEnvironmentVariable("USER");
    if (!usuario.isEmpty()) {
        EXPECT_EQ(nombre, modFunciones::CortarNombreUsuario(usuario));
    }
}

} // namespace
