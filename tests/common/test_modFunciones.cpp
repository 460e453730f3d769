#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "common/modFunciones.h"

#include <gtest/gtest.h>

namespace {

TEST(OrdenarVector, OrdenaSegunSentido) {
    const struct {
        QStringList Entrada;
        int Sentido;
        QStringList Esperado;
    } casos[] = {
        {{}, 1, {}},
        {{"pear", "apple", "fig"}, 0, {"pear", "fig", "apple"}},
        // A binary comparison puts upper-case letters before every lower-case one.
        {{"b", "a", "B", "A"}, 1, {"A", "B", "a", "b"}},
        {{"ab*1", "a*4", "abc"}, 1, {"a*4", "ab*1", "abc"}},
        {{"c", "a", "b"}, 2, {"c", "a", "b"}}, // an unknown direction leaves the list alone
    };
    for (const auto& caso : casos) {
        QStringList lista = caso.Entrada;
        modFunciones::OrdenarVector(lista, caso.Sentido);
        EXPECT_EQ(lista, caso.Esperado) << caso.Entrada.join(' ').toStdString();
    }
}

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
        {u"  a b  ", u" ", u"a b"}, {u"\t a \t", u" ", u"\t a \t"},
        {u"\t a \t", u" \t", u"a"}, {u"   ", u" ", u""},
        {u"", u" ", u""},           {u" \n x\n ", u" ", u"\n x\n"},
    };
    for (const Caso& caso : casos)
        EXPECT_EQ(modFunciones::SinBlancos(caso.Texto, caso.Blancos).toString(),
                  QString::fromUtf16(caso.Esperado))
            << QString::fromUtf16(caso.Texto).toStdString();
}

// One rounding for every size in KB: the header panel ("#0.##") and the handheld information
// show the same hundredths, a half going to the even one.
TEST(Kilobytes, UnaSolaReglaDeRedondeo) {
    const clsConfiguracionRegional ingles(QLocale(QLocale::English, QLocale::UnitedStates));
    const struct {
        double Bytes;
        double KB;
        const char* Informacion;
        const char* Panel;
    } casos[] = {
        {640, 0.62, "0.62 KB", "0.62 KB"},  // 0.625: the half goes down to the even 2
        {1920, 1.88, "1.88 KB", "1.88 KB"}, // 1.875: up to the even 8
        {1000, 0.98, "0.98 KB", "0.98 KB"}, // 0.9765625
        {1023, 1, "1 KB", "1. KB"},         // 0.999...
        {5, 0, "0 KB", "0. KB"},            // less than half a hundredth
        {8589934592.0, 8388608, "8388608 KB", "8388608. KB"}, // beyond 32 bits
    };
    for (const auto& caso : casos) {
        EXPECT_EQ(modFunciones::Kilobytes(caso.Bytes), caso.KB) << caso.Bytes;
        EXPECT_EQ(ingles.TextoKilobytes(caso.Bytes), caso.Informacion);
        EXPECT_EQ(ingles.TextoKilobytes(caso.Bytes, "#0.##"), caso.Panel);
    }
}

// The number a text starts with, blanks anywhere in it skipped; the catalogue's kind numbers, the
// find's numbers and the batch size all read through it.
TEST(Val, ElNumeroAlPrincipioDelTexto) {
    const struct {
        const char* Texto;
        double Valor;
    } casos[] = {
        {"4", 4},       {" -4.5x", -4.5}, {"1 2", 12},   {"\t7\n", 7}, {"+3", 3}, {"- 3", -3},
        {"1.2.3", 1.2}, {"1e5", 1},       {".5", 0.5},   {"x", 0},     {"", 0},   {"-", 0},
        {"+-3", 0},     {"0-5", 0},       {"12*1*", 12}, {"b*1*", 0},
    };
    for (const auto& caso : casos)
        EXPECT_EQ(modFunciones::Val(QString::fromLatin1(caso.Texto)), caso.Valor) << caso.Texto;
}

TEST(NombreUsuario, UnNombreLargoSeCortaEnSuDecimoquintoCaracter) {
    const struct {
        QString Nombre, Cortado;
    } casos[] = {{"administrators", "administrators"},
                 {"studentaccount1", "studentaccount"},
                 {"shortname-with-s", "shortname"},
                 {QString(300, 'a'), ""}};
    for (const auto& caso : casos)
        EXPECT_EQ(modFunciones::CortarNombreUsuario(caso.Nombre), caso.Cortado);
}

} // namespace
