#include "common/ErrorVB.h"
#include "common/modFunciones.h"
#include "support/clsImpresoraGrabadora.h"
#include "support/modPrueba.h"

#include <gtest/gtest.h>

namespace {

// At 10 points in character cells the recorder measures one cell per character, so widths below
// are character counts.
clsImpresoraGrabadora Dispositivo(double xTamano = 10) {
    clsImpresoraGrabadora impresora;
    impresora.SetScaleMode(clsImpresora::EscalaCaracteres);
    impresora.SetFontSize(xTamano);
    return impresora;
}

TEST(MultiLinea, EnvuelvePorPalabras) {
    struct Caso {
        QString Texto;
        double Ancho;
        int Sangria;
        QString Esperado;
    };
    const Caso casos[] = {
        {"", 70, 10, ""},
        {"hello world", 70, 10, "hello world"},
        {"   a b   ", 70, 10, "a b"},
        {"a     b", 70, 10, "a b"},
        {"aaa bbb", 7, 2, "aaa bbb"}, // exactly the width still fits
        {"aaa bbb ccc ddd", 10, 2, "aaa bbb\r\n  ccc ddd"},
        {"aaa bbb ccc ddd eee", 9, 0, "aaa bbb\r\nccc ddd\r\neee"},
        {"one\r\ntwo", 70, 2, "one\r\n  two"},
        {"one\ntwo\r\n\r\nthree", 70, 1, "one\r\n two\r\n \r\n three"},
        {"abcdefghij", 5, 0, "abcd-\r\nefgh-\r\nij"},
        {"ab abcdefgh", 5, 1, "ab\r\n abc-\r\n def-\r\n gh"},
        {"abcde", 5, 0, "abcde"},
        {"x", 0, 0, "x"}, // nothing fits, yet every character is placed
    };
    for (const Caso& caso : casos) {
        const clsImpresoraGrabadora impresora = Dispositivo();
        EXPECT_EQ(
            modFunciones::MultiLinea(caso.Texto, caso.Ancho, caso.Sangria, impresora.AnchoDe()),
            caso.Esperado)
            << caso.Texto.toStdString();
    }
}

TEST(MultiLinea, LaFallaDelDispositivoSubeConSuRastro) {
    clsImpresoraGrabadora impresora = Dispositivo();
    impresora.FallarEn("TextWidth", ErrorVB(482, "Pandrel", "Printer error"));
    modPrueba::EsperarError(
        [&] { modFunciones::MultiLinea("one two", 70, 10, impresora.AnchoDe()); }, 482,
        "Pandrel.modFunciones.MultiLinea\r\n", "Printer error");
}

} // namespace
