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

// The error report: 9-point type in character cells, 70 wide, 10 blanks in. Each character is
// 0.9 of a cell, so at most 77 characters fit on a line.
TEST(MultiLinea, MideEnLaEscalaDelDispositivo) {
    QStringList palabras;
    for (int i = 0; i < 19; ++i)
        palabras << QString(9, QChar('a' + i));
    const clsImpresoraGrabadora impresora = Dispositivo(9);
    const QStringList lineas =
        modFunciones::MultiLinea(palabras.join(' '), 70, 10, impresora.AnchoDe()).split("\r\n");

    ASSERT_EQ(lineas.size(), 3);
    EXPECT_EQ(lineas[0], palabras.mid(0, 7).join(' '));                    // 69 characters
    EXPECT_EQ(lineas[1], QString(10, ' ') + palabras.mid(7, 6).join(' ')); // 69 with the indent
    EXPECT_EQ(lineas[2], QString(10, ' ') + palabras.mid(13).join(' '));
    for (const QString& linea : lineas)
        EXPECT_LE(impresora.TextWidth(linea), 70);

    // The same text in twips is measured in twips: 70 twips hold no character at all.
    clsImpresoraGrabadora enTwips;
    enTwips.SetFontSize(9);
    EXPECT_EQ(modFunciones::MultiLinea("ab cd", 70, 0, enTwips.AnchoDe()), "a-\r\nb\r\nc-\r\nd");
}

TEST(MultiLinea, LaFallaDelDispositivoSubeConSuRastro) {
    clsImpresoraGrabadora impresora = Dispositivo();
    impresora.FallarEn("TextWidth", ErrorVB(482, "Pandrel", "Printer error"));
    modPrueba::EsperarError(
        [&] { modFunciones::MultiLinea("one two", 70, 10, impresora.AnchoDe()); }, 482,
        "Pandrel.modFunciones.MultiLinea\r\n", "Printer error");
}

} // namespace
