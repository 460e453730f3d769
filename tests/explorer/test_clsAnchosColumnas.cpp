#include "explorer/clsAnchosColumnas.h"
#include "explorer/clsGrillaFlexible.h"
#include "printing/clsGrillaComoSeVe.h"
#include "printing/modImpresionGRD.h"
#include "support/clsImpresoraGrabadora.h"

#include <gtest/gtest.h>

namespace {

// A column shows at its own width or at its widest text among the first 200 rows, in a type of
// 9 pixels a character; a hidden column stays hidden. Printed at those widths, a date whole on
// screen is whole on paper, where the nominal widths cut it.
TEST(clsAnchosColumnas, TheReportOfTheGridAsItShowsPrintsItsValuesWhole) {
    const QString fecha = QStringLiteral("12/31/2005 12:45:00 PM");
    clsGrillaFlexible grilla;
    grilla.SetCols(4);
    grilla.AddItem("Name\tWhen\tQty");
    for (const auto& [columna, ancho] : {std::pair{0, 2000}, {1, 1000}, {2, 1000}, {3, 0}})
        grilla.SetColWidth(columna, ancho);
    grilla.AddItem("Ann\t" + fecha + "\t5");
    for (int fila = 2; fila < 300; ++fila)
        grilla.AddItem((fila == 250 ? QString(60, 'n') : QString("Bob")) + "\t1/1/2005\t7");
    clsAnchosColumnas anchos([](const QString& xTexto) { return int(xTexto.size()) * 9; });
    anchos.Medir(grilla, 0, grilla.Rows() - 1);
    EXPECT_EQ(anchos.Twips(grilla, 96), QVector<qint32>({1995, (22 * 9 + 10) * 15, 1005, 0}));

    const clsGrillaComoSeVe vista(grilla, anchos.Twips(grilla, 96));
    const std::pair<const clsGrillaImpresion*, bool> casos[] = {{&grilla, false}, {&vista, true}};
    for (const auto& [impresa, entera] : casos) {
        auto impresora = std::make_shared<clsImpresoraGrabadora>();
        const modImpresionGRD::DialogoImpresora dialogo{
            [&](qint32&) { return impresora; }, [](const QString&, const QString&) {}, {}};
        ASSERT_TRUE(modImpresionGRD::OutImpresion("Explorer [Visits]", *impresa, dialogo,
                                                  clsColImpresionGrd(), clsColImpresionGrd()));
        const auto& textos = impresora->Textos();
        const auto celda = std::find_if(textos.begin(), textos.end(), [](const auto& xTexto) {
            return xTexto.Texto.startsWith("12/31");
        });
        ASSERT_NE(celda, textos.end());
        EXPECT_EQ(celda->Texto == fecha, entera) << celda->Texto.toStdString();
    }
}

} // namespace
