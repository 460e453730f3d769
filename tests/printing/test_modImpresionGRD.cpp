#include "common/ErrorVB.h"
#include "common/modFunciones.h"
#include "printing/modImpresionGRD.h"
#include "support/clsGrillaPrueba.h"
#include "support/clsImpresoraGrabadora.h"

#include <gtest/gtest.h>

namespace {

using Texto = clsImpresoraGrabadora::TextoImpreso;

// The recording printer measures a 10-point character as 120 twips and a line as 240; its sheet
// is 12240 x 15840 twips, so the usable width is 11540.
constexpr double kAnchoUtil = 11540;

// A grid of two printed columns (text left, number right) plus the spare one, wide enough that
// the type keeps its size: its widths and the 50-twip gaps come to 12100 twips.
void LlenarGrilla(clsGrillaPrueba& xGrilla, int xFilas) {
    xGrilla.SetCols(3);
    xGrilla.AddItem("Name\tQty\tspare");
    xGrilla.SetColWidth(0, 8000);
    xGrilla.SetColAlignment(0, clsGrillaImpresion::IzquierdaCentro);
    xGrilla.SetColWidth(1, 4000);
    xGrilla.SetColAlignment(1, clsGrillaImpresion::DerechaArriba);
    xGrilla.SetColWidth(2, 0);
    for (int fila = 1; fila <= xFilas; ++fila)
        xGrilla.AddItem(QString("row %1\t%1\thidden").arg(fila));
}

struct Resultado {
    bool Impreso = false;
    QStringList Avisos;
    QStringList Punteros;
};

Resultado Imprimir(const clsGrillaPrueba& xGrilla, std::shared_ptr<clsImpresora> xImpresora,
                   const QString& xTitulo = "Explorer [Stock]") {
    clsColImpresionGrd encabezado, pie;
    encabezado.Add("Data Base Report", clsItemImpresionGrd::Centro);
    pie.Add("End of Report", clsItemImpresionGrd::Centro);
    Resultado resultado;
    modImpresionGRD::DialogoImpresora dialogo{
        [&](qint32& xCopias) {
            xCopias = 2;
            return xImpresora;
        },
        [&](const QString& xTexto, const QString& xTitulo) {
            resultado.Avisos << xTitulo + ": " + xTexto;
        },
        [&](bool xEspera) { resultado.Punteros << (xEspera ? "wait" : "arrow"); }};
    resultado.Impreso = modImpresionGRD::OutImpresion(xTitulo, xGrilla, dialogo, encabezado, pie);
    return resultado;
}

const Texto* Buscar(const clsImpresoraGrabadora& xImpresora, const QString& xTexto, int xVez = 1) {
    for (const Texto& texto : xImpresora.Textos())
        if (texto.Texto == xTexto && --xVez == 0) return &texto;
    return nullptr;
}

TEST(modImpresionGRD, PagesHoldLRowsThenLMinusOneWithTheHeadOnEachAndTheFootOnce) {
    // The head ends at 2257 twips, so a page holds (15840 - 2257 + 1000) / 360 - 1 = 40 rows.
    clsGrillaPrueba grilla;
    LlenarGrilla(grilla, 100);
    auto impresora = std::make_shared<clsImpresoraGrabadora>();
    const Resultado resultado = Imprimir(grilla, impresora);
    ASSERT_TRUE(resultado.Impreso);
    EXPECT_EQ(resultado.Punteros, QStringList({"wait", "arrow"}));
    EXPECT_EQ(impresora->DocumentosTerminados(), 1);
    EXPECT_TRUE(impresora->Llamadas().contains("Copies 2"));

    const struct {
        int Fila, Pagina;
        double Y;
    } filas[] = {
        {1, 1, 2257},  {40, 1, 2257 + 39 * 240}, {41, 2, 2257}, {79, 2, 2257 + 38 * 240},
        {80, 3, 2257},
    };
    for (const auto& fila : filas) {
        const Texto* celda = Buscar(*impresora, QString("row %1").arg(fila.Fila));
        ASSERT_NE(celda, nullptr) << fila.Fila;
        EXPECT_EQ(celda->Pagina, fila.Pagina) << fila.Fila;
        EXPECT_DOUBLE_EQ(celda->Y, fila.Y) << fila.Fila;
    }
    EXPECT_EQ(modImpresionGRD::NombrePropio("field sales  team"), "Field Sales  Team");
    for (int pagina = 1; pagina <= 3; ++pagina) {
        const Texto* numero = Buscar(*impresora, QString("Page : %1").arg(pagina));
        ASSERT_NE(numero, nullptr) << pagina;
        EXPECT_EQ(numero->Pagina, pagina);
        EXPECT_DOUBLE_EQ(numero->X, kAnchoUtil - 8 * 120) << "right-aligned";
        EXPECT_EQ(Buscar(*impresora, "Name", pagina)->Pagina, pagina) << "column titles";
    }
    const QString usuario = modImpresionGRD::NombrePropio(modFunciones::NombreUsuario());
    EXPECT_TRUE(usuario.isEmpty() || Buscar(*impresora, usuario, 3)) << "the user on every page";
    EXPECT_EQ(Buscar(*impresora, "hidden"), nullptr) << "the spare column is never printed";
    const Texto* fin = Buscar(*impresora, "End of Report");
    ASSERT_NE(fin, nullptr);
    EXPECT_EQ(fin->Pagina, 3);
    EXPECT_EQ(Buscar(*impresora, "End of Report", 2), nullptr);
    EXPECT_DOUBLE_EQ(fin->Y, 2257 + 21 * 240);
    // Three rules in each page's head and one over the foot, each reaching 100 twips past the
    // usable width.
    EXPECT_EQ(impresora->Lineas().size(), 3 * 3 + 1);
    for (const auto& raya : impresora->Lineas()) {
        EXPECT_EQ(raya.X1, 0);
        EXPECT_EQ(raya.X2, kAnchoUtil + 100);
        EXPECT_EQ(raya.Y1, raya.Y2);
    }
}

TEST(modImpresionGRD, PlacesTitlesAndCellsByAlignmentAndCutsAllButTheLastColumn) {
    clsGrillaPrueba grilla;
    LlenarGrilla(grilla, 0);
    grilla.AddItem(QString(80, 'w') + "\t" + QString(60, '9'));
    auto impresora = std::make_shared<clsImpresoraGrabadora>();
    ASSERT_TRUE(Imprimir(grilla, impresora).Impreso);

    // Column 0 takes 8050 / 12100 of the usable width; column 1 starts 50 twips after it.
    const double ancho0 = std::floor(kAnchoUtil * 8050 / 12100);
    const double inicio1 = ancho0 + 50;
    const double ancho1 = std::floor(kAnchoUtil * 4050 / 12100);
    const struct {
        QString Texto;
        double X, Y;
        double Tamano;
        bool Negrita;
    } esperados[] = {
        {"Explorer [Stock]", (kAnchoUtil - 16 * 14 * 12 * 1.1) / 2, 1201, 14, true},
        {"Data Base Report", (kAnchoUtil - 16 * 120) / 2, 1537, 10, false},
        {"Name", 0, 2017, 10, false},
        {"Qty", inicio1 + ancho1 - 3 * 120, 2017, 10, false},
        // 80 characters of 120 twips do not fit before the next column: 64 do (7727 twips to the
        // next column).
        {QString(64, 'w'), 0, 2257, 10, false},
        // A cell's share leaves out the gap, so the number stands left of its title's edge.
        {QString(60, '9'), inicio1 + std::floor(kAnchoUtil * 4000 / 12100) - 60 * 120, 2257, 10,
         false},
    };
    for (const auto& esperado : esperados) {
        const Texto* texto = Buscar(*impresora, esperado.Texto);
        ASSERT_NE(texto, nullptr) << esperado.Texto.toStdString();
        EXPECT_DOUBLE_EQ(texto->X, esperado.X) << esperado.Texto.toStdString();
        EXPECT_DOUBLE_EQ(texto->Y, esperado.Y) << esperado.Texto.toStdString();
        EXPECT_EQ(texto->Tamano, esperado.Tamano) << esperado.Texto.toStdString();
        EXPECT_EQ(texto->Negrita, esperado.Negrita) << esperado.Texto.toStdString();
    }
    EXPECT_TRUE(std::any_of(impresora->Textos().begin(), impresora->Textos().end(),
                            [](const Texto& t) { return t.Texto.startsWith("Date : "); }));

    // Right-aligned, the cut cell is still wider than its share: it starts at its column's start
    // instead of running over the column before it.
    grilla.SetColAlignment(0, clsGrillaImpresion::DerechaArriba);
    auto derecha = std::make_shared<clsImpresoraGrabadora>();
    ASSERT_TRUE(Imprimir(grilla, derecha).Impreso);
    const Texto* cortado = Buscar(*derecha, QString(64, 'w'));
    ASSERT_NE(cortado, nullptr);
    EXPECT_DOUBLE_EQ(cortado->X, 0);

    // A cell exactly as wide as the room up to the next column is printed whole: column 0 then
    // has floor(11540 * 10070 / 14120) = 8230 twips and the gap, room for 69 characters.
    grilla.SetColWidth(0, 10020);
    grilla.SetColWidth(1, 4000);
    grilla.AddItem(QString(69, 'x') + "\t1");
    auto justa = std::make_shared<clsImpresoraGrabadora>();
    ASSERT_TRUE(Imprimir(grilla, justa).Impreso);
    EXPECT_NE(Buscar(*justa, QString(69, 'x')), nullptr);
}

TEST(modImpresionGRD, ANarrowGridPrintsInALargerType) {
    const struct {
        qint32 Ancho;
        double Tamano;
    } casos[] = {{12000, 10}, {5000, 24}};
    for (const auto& caso : casos) {
        clsGrillaPrueba grilla;
        LlenarGrilla(grilla, 1);
        grilla.SetColWidth(0, caso.Ancho / 2 - 50);
        grilla.SetColWidth(1, caso.Ancho / 2 - 50);
        auto impresora = std::make_shared<clsImpresoraGrabadora>();
        ASSERT_TRUE(Imprimir(grilla, impresora).Impreso);
        EXPECT_EQ(Buscar(*impresora, "Name")->Tamano, caso.Tamano) << caso.Ancho;
        EXPECT_EQ(Buscar(*impresora, "1")->Tamano, caso.Tamano) << caso.Ancho;
    }
}

// A failure that arose in the module leaves with the tag of the procedure it arose in; one that
// already carries another source keeps it.
TEST(modImpresionGRD, FailuresCarryTheProcedureTag) {
    const struct {
        QString Llamada;
        QString Fuente;
        int Vez;
        QString Esperada;
    } casos[] = {
        {"Line", "Pandrel", 1, "Pandrel.ImpresionLVW.ImprimirEncabezado"},
        {"Line", "Pandrel", 3, "PandrelImprimirRotulo"},
        {"NewPage", "Pandrel", 1, "Pandrel.ImpresionLVW.Veri_Hoja"},
        {"Line", "Pandrel", 4, "Pandrel.ImpresionLVW.ImprimirPiePagina"},
        {"EndDoc", "Pandrel", 1, "Pandrel.ImpresionLVW.OutImpresion"},
        {"NewPage", "clsImpresoraQt", 1, "clsImpresoraQt"},
    };
    for (const auto& caso : casos) {
        clsGrillaPrueba grilla;
        LlenarGrilla(grilla, caso.Llamada == "NewPage" ? 50 : 1);
        auto impresora = std::make_shared<clsImpresoraGrabadora>();
        impresora->FallarEn(caso.Llamada, ErrorVB(482, caso.Fuente, "Printer error"), caso.Vez);
        try {
            Imprimir(grilla, impresora);
            ADD_FAILURE() << caso.Esperada.toStdString();
        } catch (const ErrorVB& error) {
            EXPECT_EQ(error.Fuente(), caso.Esperada);
            EXPECT_EQ(error.Numero(), 482);
        }
    }
}

} // namespace
