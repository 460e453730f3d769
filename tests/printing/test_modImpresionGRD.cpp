#include "common/ErrorVB.h"
#include "common/modFunciones.h"
#include "printing/modImpresionGRD.h"
#include "support/clsGrillaPrueba.h"
#include "support/clsImpresoraGrabadora.h"

#include <gtest/gtest.h>

namespace {

using Texto = clsImpresoraGrabadora::TextoImpreso;

// The recording printer measures a 10-point character as 120 twips and a line as 240; its sheet
// is 12240 x 15840 twips with quarter-inch margins. The usable width is 11420, so that the rules,
// 100 twips longer, end at the printable area's edge.
constexpr double kAnchoUtil = 11420;
constexpr double kAnchoImprimible = 11520;
constexpr double kAltoImprimible = 15120;

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

// Every text lies inside the printable area.
void EnLosMargenes(const clsImpresoraGrabadora& xImpresora) {
    for (const Texto& texto : xImpresora.Textos()) {
        const double ancho = texto.Texto.size() * texto.Tamano * 12 * (texto.Negrita ? 1.1 : 1);
        EXPECT_GE(texto.X, 0) << texto.Texto.toStdString();
        EXPECT_LE(texto.X + ancho, kAnchoImprimible) << texto.Texto.toStdString();
        EXPECT_LE(texto.Y + texto.Tamano * 24, kAltoImprimible) << texto.Texto.toStdString();
    }
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
}

TEST(modImpresionGRD, PlacesTitlesAndCellsByAlignmentAndCutsThemToTheirColumn) {
    clsGrillaPrueba grilla;
    LlenarGrilla(grilla, 0);
    grilla.AddItem(QString(80, 'w') + "\t" + QString(20, '9'));
    grilla.AddItem("x\t" + QString(60, '8'));
    auto impresora = std::make_shared<clsImpresoraGrabadora>();
    ASSERT_TRUE(Imprimir(grilla, impresora).Impreso);

    // The columns and the 50-twip gap between them share the usable width: column 0 takes
    // 8050 / 12100 of 11370 twips, and column 1 starts 50 twips after it.
    const double ancho0 = std::floor(11370.0 * 8050 / 12100);
    const double inicio1 = ancho0 + 50;
    const double ancho1 = std::floor(11370.0 * 4050 / 12100);
    ASSERT_LE(inicio1 + ancho1, kAnchoUtil);
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
        // 80 characters of 120 twips do not fit before the next column: 63 do.
        {QString(63, 'w'), 0, 2257, 10, false},
        // A cell's share leaves out the gap, so the number stands left of its title's edge.
        {QString(20, '9'), inicio1 + std::floor(11370.0 * 4000 / 12100) - 20 * 120, 2257, 10,
         false},
        // The last column is cut only at the margin, where the rules end, and a text wider than
        // its column starts at the column's start, not over the column before it.
        {QString(32, '8'), inicio1, 2497, 10, false},
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
    EnLosMargenes(*impresora);
    for (const auto& raya : impresora->Lineas())
        EXPECT_EQ(raya.X2, kAnchoImprimible);

    // Right-aligned, the cut cell is still wider than its share: it starts at its column's start.
    grilla.SetColAlignment(0, clsGrillaImpresion::DerechaArriba);
    auto derecha = std::make_shared<clsImpresoraGrabadora>();
    ASSERT_TRUE(Imprimir(grilla, derecha).Impreso);
    const Texto* cortado = Buscar(*derecha, QString(63, 'w'));
    ASSERT_NE(cortado, nullptr);
    EXPECT_DOUBLE_EQ(cortado->X, 0);
}

// A grid narrower than its room prints in a larger type, and its rows are counted in that type:
// each row whole on one page under the head and the column titles, nothing past the margins.
TEST(modImpresionGRD, ALargerTypeKeepsEveryRowWholeOnAPageUnderItsHead) {
    const struct {
        qint32 Ancho;
        double Tamano;
        int Paginas;
    } casos[] = {{12000, 10, 2}, {5000, 22, 4}, {2600, 43, 9}};
    for (const auto& caso : casos) {
        clsGrillaPrueba grilla;
        LlenarGrilla(grilla, 60);
        grilla.SetColWidth(0, caso.Ancho / 2 - 50);
        grilla.SetColWidth(1, caso.Ancho / 2 - 50);
        auto impresora = std::make_shared<clsImpresoraGrabadora>();
        ASSERT_TRUE(Imprimir(grilla, impresora).Impreso);
        EXPECT_EQ(Buscar(*impresora, "Name")->Tamano, caso.Tamano) << caso.Ancho;
        EXPECT_EQ(impresora->PaginasPasadas() + 1, caso.Paginas) << caso.Ancho;
        for (int fila = 1; fila <= 60; ++fila) {
            const Texto* nombre = Buscar(*impresora, QString("row %1").arg(fila));
            const Texto* numero = Buscar(*impresora, QString::number(fila));
            ASSERT_TRUE(nombre && numero) << caso.Ancho << " " << fila;
            EXPECT_EQ(nombre->Pagina, numero->Pagina) << caso.Ancho << " " << fila;
            EXPECT_EQ(nombre->Y, numero->Y) << caso.Ancho << " " << fila;
            EXPECT_EQ(nombre->Tamano, caso.Tamano) << caso.Ancho << " " << fila;
        }
        for (int pagina = 1; pagina <= caso.Paginas; ++pagina) {
            const Texto* titulo = Buscar(*impresora, "Name", pagina);
            ASSERT_NE(titulo, nullptr) << caso.Ancho << " " << pagina;
            EXPECT_EQ(titulo->Pagina, pagina) << caso.Ancho;
        }
        EnLosMargenes(*impresora);
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
