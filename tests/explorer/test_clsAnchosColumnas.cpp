#include "explorer/clsAnchosColumnas.h"
#include "explorer/clsGrillaFlexible.h"
#include "printing/clsGrillaComoSeVe.h"
#include "printing/modImpresionGRD.h"
#include "support/clsImpresoraGrabadora.h"

#include <gtest/gtest.h>

namespace {

// A type of 9 pixels a character, a little wider than the recording printer's 10-point one.
int Medida(const QString& xTexto) {
    return int(xTexto.size()) * 9;
}

const QString kFecha = QStringLiteral("12/31/2005 12:45:00 PM");

// Name (2000 twips), When and Qty (1000 each) and the hidden spare column; a date in row 1, and
// a long name only in row 250, past the rows that are measured.
void Llenar(clsGrillaFlexible& xGrilla) {
    xGrilla.SetCols(4);
    xGrilla.AddItem("Name\tWhen\tQty");
    const qint32 anchos[] = {2000, 1000, 1000, 0};
    for (qint32 c = 0; c < 4; ++c)
        xGrilla.SetColWidth(c, anchos[c]);
    xGrilla.SetColAlignment(1, clsGrillaImpresion::DerechaArriba);
    xGrilla.AddItem("Ann\t" + kFecha + "\t5");
    for (int fila = 2; fila < 300; ++fila)
        xGrilla.AddItem((fila == 250 ? QString(60, 'n') : QStringLiteral("Bob")) + "\t1/1/2005\t7");
}

// The texts the report printed of column xColumna's cells.
QStringList Impresos(const QList<clsImpresoraGrabadora::TextoImpreso>& xTextos,
                     const QString& xInicio) {
    QStringList textos;
    for (const auto& texto : xTextos)
        if (texto.Texto.startsWith(xInicio)) textos << texto.Texto;
    return textos;
}

// A column shows at its own width or at its widest text among the first rows, plus a margin; a
// hidden column stays hidden. The twips go to pixels at the screen's density and back.
TEST(clsAnchosColumnas, AColumnIsAsWideAsItsWidestFirstTexts) {
    clsGrillaFlexible grilla;
    Llenar(grilla);
    clsAnchosColumnas anchos(Medida);
    anchos.Medir(grilla, 0, grilla.Rows() - 1);
    const struct {
        double Densidad;
        QVector<int> Pixeles;
        QVector<qint32> Twips;
    } casos[] = {
        {96, {133, 22 * 9 + 10, 67, 0}, {1995, 3120, 1005, 0}},
        {192, {267, 208, 133, 0}, {2003, 1560, 998, 0}},
    };
    for (const auto& caso : casos) {
        QVector<int> pixeles;
        for (qint32 c = 0; c < 4; ++c)
            pixeles << anchos.Pixeles(grilla, c, caso.Densidad);
        EXPECT_EQ(pixeles, caso.Pixeles) << caso.Densidad;
        EXPECT_EQ(anchos.Twips(grilla, caso.Densidad), caso.Twips) << caso.Densidad;
    }
    anchos.Olvidar();
    EXPECT_EQ(anchos.Pixeles(grilla, 1, 96), 67);
}

// The report of the grid as it shows prints a value that is whole on screen whole on paper; the
// nominal widths cut it.
TEST(clsAnchosColumnas, TheReportOfTheGridAsItShowsPrintsItsValuesWhole) {
    clsGrillaFlexible grilla;
    Llenar(grilla);
    clsAnchosColumnas anchos(Medida);
    anchos.Medir(grilla, 0, grilla.Rows() - 1);
    const clsGrillaComoSeVe vista(grilla, anchos.Twips(grilla, 96));
    const struct {
        const clsGrillaImpresion* Grilla;
        bool Entera;
    } casos[] = {{&grilla, false}, {&vista, true}};
    for (const auto& caso : casos) {
        auto impresora = std::make_shared<clsImpresoraGrabadora>();
        const modImpresionGRD::DialogoImpresora dialogo{
            [&](qint32&) { return impresora; }, [](const QString&, const QString&) {}, {}};
        ASSERT_TRUE(modImpresionGRD::OutImpresion("Explorer [Visits]", *caso.Grilla, dialogo,
                                                  clsColImpresionGrd(), clsColImpresionGrd()));
        const QStringList fechas = Impresos(impresora->Textos(), "12/31");
        ASSERT_EQ(fechas.size(), 1);
        EXPECT_EQ(fechas.first() == kFecha, caso.Entera) << fechas.first().toStdString();
    }
}

} // namespace
