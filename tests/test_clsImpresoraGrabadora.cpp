#include "common/ErrorVB.h"
#include "printing/clsImpresoraGrabadora.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using Texto = clsImpresoraGrabadora::TextoImpreso;

// Letter with quarter-inch margins: 11520 x 15120 twips printable, 96 x 63 character cells.
TEST(clsImpresoraGrabadora, EscalaConvierteMedidasYPosiciones) {
    struct Caso {
        int Escala;
        double AnchoImprimible, AltoImprimible;
        double X, Y; // set in the scale
        double TwipsX, TwipsY;
    };
    const Caso casos[] = {
        {clsImpresora::EscalaTwips, 11520, 15120, 1200, 480, 1200, 480},
        {clsImpresora::EscalaCaracteres, 96, 63, 10, 5, 1200, 1200},
    };
    for (const Caso& caso : casos) {
        clsImpresoraGrabadora impresora;
        impresora.SetScaleMode(caso.Escala);
        EXPECT_DOUBLE_EQ(impresora.ScaleWidth(), caso.AnchoImprimible);
        EXPECT_DOUBLE_EQ(impresora.ScaleHeight(), caso.AltoImprimible);
        EXPECT_DOUBLE_EQ(impresora.Width(), 12240);
        EXPECT_DOUBLE_EQ(impresora.Height(), 15840);
        impresora.SetCurrentX(caso.X);
        impresora.SetCurrentY(caso.Y);
        // The position survives a change of scale: it is one place on the sheet.
        impresora.SetScaleMode(clsImpresora::EscalaTwips);
        EXPECT_DOUBLE_EQ(impresora.CurrentX(), caso.TwipsX) << caso.Escala;
        EXPECT_DOUBLE_EQ(impresora.CurrentY(), caso.TwipsY) << caso.Escala;
    }
}

TEST(clsImpresoraGrabadora, MideConLaMetricaFija) {
    struct Caso {
        int Escala;
        double Tamano;
        bool Negrita;
        QString Texto;
        double Ancho, Alto;
    };
    const Caso casos[] = {
        {clsImpresora::EscalaTwips, 10, false, "abc", 360, 240},
        {clsImpresora::EscalaTwips, 10, true, "abc", 396, 240},
        {clsImpresora::EscalaTwips, 9, false, "", 0, 216},
        {clsImpresora::EscalaCaracteres, 10, false, "abc", 3, 1},
        {clsImpresora::EscalaCaracteres, 9, false, "abcdefghij", 9, 0.9},
        // Several lines: the widest line, every line's height.
        {clsImpresora::EscalaCaracteres, 10, false, "ab\r\nabcd\nx", 4, 3},
    };
    for (const Caso& caso : casos) {
        clsImpresoraGrabadora impresora;
        impresora.SetScaleMode(caso.Escala);
        impresora.SetFontSize(caso.Tamano);
        impresora.SetFontBold(caso.Negrita);
        EXPECT_DOUBLE_EQ(impresora.TextWidth(caso.Texto), caso.Ancho) << caso.Texto.toStdString();
        EXPECT_DOUBLE_EQ(impresora.TextHeight(caso.Texto), caso.Alto) << caso.Texto.toStdString();
    }
}

TEST(clsImpresoraGrabadora, PrintEscribeYPasaALaLineaSiguiente) {
    clsImpresoraGrabadora impresora;
    impresora.SetScaleMode(clsImpresora::EscalaCaracteres);
    impresora.SetFontName("Arial");
    impresora.SetFontSize(10);
    impresora.SetCurrentX(10);
    impresora.SetCurrentY(11);
    impresora.Print("first\r\n  second");
    EXPECT_DOUBLE_EQ(impresora.CurrentX(), 0);
    EXPECT_DOUBLE_EQ(impresora.CurrentY(), 13);
    impresora.Print(); // an empty line only moves down
    EXPECT_DOUBLE_EQ(impresora.CurrentY(), 14);
    impresora.SetFontBold(true);
    impresora.Print("third");

    struct Esperado {
        double X, Y;
        QString Texto;
        bool Negrita;
    };
    const Esperado esperados[] = {
        {10, 11, "first", false}, {0, 12, "  second", false}, {0, 14, "third", true}};
    ASSERT_EQ(impresora.Textos().size(), 3);
    for (int i = 0; i < 3; ++i) {
        const Texto& texto = impresora.Textos()[i];
        EXPECT_DOUBLE_EQ(texto.X, esperados[i].X) << i;
        EXPECT_DOUBLE_EQ(texto.Y, esperados[i].Y) << i;
        EXPECT_EQ(texto.Texto, esperados[i].Texto);
        EXPECT_EQ(texto.Negrita, esperados[i].Negrita);
        EXPECT_EQ(texto.Fuente, "Arial");
        EXPECT_EQ(texto.Escala, clsImpresora::EscalaCaracteres);
        EXPECT_EQ(texto.Pagina, 1);
    }
}

TEST(clsImpresoraGrabadora, UnaLineaQueNoCabePasaDePagina) {
    clsImpresoraGrabadora impresora(12240, 15840, 360);
    impresora.SetScaleMode(clsImpresora::EscalaCaracteres);
    impresora.SetFontSize(10); // one line per cell: 63 lines fit
    for (int i = 0; i < 64; ++i)
        impresora.Print(QString::number(i));
    ASSERT_EQ(impresora.Textos().size(), 64);
    EXPECT_EQ(impresora.Textos()[62].Pagina, 1);
    EXPECT_DOUBLE_EQ(impresora.Textos()[62].Y, 62);
    EXPECT_EQ(impresora.Textos()[63].Pagina, 2);
    EXPECT_DOUBLE_EQ(impresora.Textos()[63].Y, 0);
    EXPECT_EQ(impresora.PaginasPasadas(), 1);
    EXPECT_EQ(impresora.Page(), 2);
}

TEST(clsImpresoraGrabadora, LineasPaginasYDocumento) {
    clsImpresoraGrabadora impresora;
    impresora.SetScaleMode(clsImpresora::EscalaCaracteres);
    impresora.Line(0, 2, 50, 2);
    EXPECT_DOUBLE_EQ(impresora.CurrentX(), 50); // a line leaves the position at its end
    EXPECT_DOUBLE_EQ(impresora.CurrentY(), 2);
    impresora.NewPage();
    EXPECT_EQ(impresora.Page(), 2);
    EXPECT_DOUBLE_EQ(impresora.CurrentX(), 0);
    EXPECT_DOUBLE_EQ(impresora.CurrentY(), 0);
    impresora.Line(1, 1, 2, 3);
    impresora.EndDoc();
    EXPECT_EQ(impresora.Page(), 1);
    EXPECT_EQ(impresora.DocumentosTerminados(), 1);

    ASSERT_EQ(impresora.Lineas().size(), 2);
    const auto& primera = impresora.Lineas()[0];
    EXPECT_EQ(primera.Pagina, 1);
    EXPECT_DOUBLE_EQ(primera.Y1, 480); // recorded in twips
    EXPECT_DOUBLE_EQ(primera.X2, 6000);
    EXPECT_EQ(impresora.Lineas()[1].Pagina, 2);
    EXPECT_EQ(impresora.Llamadas(), QStringList({"ScaleMode 4", "Line (0, 2)-(50, 2)", "NewPage",
                                                 "Line (1, 1)-(2, 3)", "EndDoc"}));
}

TEST(clsImpresoraGrabadora, ValoresInvalidosNoCambianNada) {
    struct Caso {
        const char* Nombre;
        std::function<void(clsImpresora&)> Cambiar;
    };
    const Caso casos[] = {
        {"ScaleMode", [](clsImpresora& i) { i.SetScaleMode(3); }},
        {"FontSize", [](clsImpresora& i) { i.SetFontSize(0); }},
        {"Copies", [](clsImpresora& i) { i.SetCopies(0); }},
    };
    for (const Caso& caso : casos) {
        clsImpresoraGrabadora impresora;
        try {
            caso.Cambiar(impresora);
            ADD_FAILURE() << caso.Nombre;
        } catch (const ErrorVB& error) {
            EXPECT_EQ(error.Numero(), 380) << caso.Nombre;
        }
        EXPECT_EQ(impresora.ScaleMode(), clsImpresora::EscalaTwips);
        EXPECT_DOUBLE_EQ(impresora.FontSize(), 10);
        EXPECT_EQ(impresora.Copies(), 1);
    }
}

TEST(clsImpresoraGrabadora, FallaUnaVezEnLaLlamadaPedida) {
    clsImpresoraGrabadora impresora;
    impresora.FallarEn("Print", ErrorVB(482, "Printer", "Printer error"), 2);
    impresora.SetCurrentX(100);
    impresora.Print("first");
    EXPECT_THROW(impresora.Print("lost"), ErrorVB);
    impresora.Print("kept");
    ASSERT_EQ(impresora.Textos().size(), 2);
    EXPECT_EQ(impresora.Textos()[0].Texto, "first");
    EXPECT_EQ(impresora.Textos()[1].Texto, "kept");
}

} // namespace
