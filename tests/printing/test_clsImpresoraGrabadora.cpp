#include "common/ErrorVB.h"
#include "support/clsImpresoraGrabadora.h"
#include "support/modPrueba.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

// Letter with quarter-inch margins: 11520 x 15120 twips printable, 96 x 63 character cells.
TEST(clsImpresoraGrabadora, MedidasYPosicionesEnCadaEscala) {
    struct Caso {
        int Escala;
        double Tamano;
        bool Negrita;
        QString Texto;
        double Ancho, Alto;         // of the text
        double AnchoHoja, AltoHoja; // printable area
    };
    const Caso casos[] = {
        {clsImpresora::EscalaTwips, 10, false, "abc", 360, 240, 11520, 15120},
        {clsImpresora::EscalaTwips, 10, true, "abc", 396, 240, 11520, 15120},
        {clsImpresora::EscalaCaracteres, 10, false, "abc", 3, 1, 96, 63},
        {clsImpresora::EscalaCaracteres, 9, false, "abcdefghij", 9, 0.9, 96, 63},
        // Several lines: the widest line, every line's height.
        {clsImpresora::EscalaCaracteres, 10, false, "ab\r\nabcd\nx", 4, 3, 96, 63},
    };
    for (const Caso& caso : casos) {
        clsImpresoraGrabadora impresora;
        impresora.SetScaleMode(caso.Escala);
        impresora.SetFontSize(caso.Tamano);
        impresora.SetFontBold(caso.Negrita);
        EXPECT_DOUBLE_EQ(impresora.TextWidth(caso.Texto), caso.Ancho) << caso.Texto.toStdString();
        EXPECT_DOUBLE_EQ(impresora.TextHeight(caso.Texto), caso.Alto) << caso.Texto.toStdString();
        EXPECT_DOUBLE_EQ(impresora.ScaleWidth(), caso.AnchoHoja);
        EXPECT_DOUBLE_EQ(impresora.ScaleHeight(), caso.AltoHoja);
        EXPECT_DOUBLE_EQ(impresora.Width(), 12240);
        // A position is one place on the sheet whatever the scale it was given in.
        impresora.SetCurrentX(10);
        impresora.SetCurrentY(5);
        impresora.SetScaleMode(clsImpresora::EscalaTwips);
        const bool celdas = caso.Escala == clsImpresora::EscalaCaracteres;
        EXPECT_DOUBLE_EQ(impresora.CurrentX(), celdas ? 1200 : 10);
        EXPECT_DOUBLE_EQ(impresora.CurrentY(), celdas ? 1200 : 5);
    }
}

TEST(clsImpresoraGrabadora, ValoresInvalidosNoCambianNada) {
    const std::function<void(clsImpresora&)> cambios[] = {
        [](clsImpresora& i) { i.SetScaleMode(3); },
        [](clsImpresora& i) { i.SetFontSize(0); },
        [](clsImpresora& i) { i.SetCopies(0); },
    };
    for (const auto& cambiar : cambios) {
        clsImpresoraGrabadora impresora;
        EXPECT_EQ(modPrueba::ErrorDe([&] { cambiar(impresora); }).Numero(), 380);
        EXPECT_EQ(impresora.ScaleMode(), clsImpresora::EscalaTwips);
        EXPECT_DOUBLE_EQ(impresora.FontSize(), 10);
        EXPECT_EQ(impresora.Copies(), 1);
    }
}

} // namespace
