#include "common/ErrorVB.h"
#include "common/modFunciones.h"
#include "printing/modImpresionGRD.h"
#include "support/clsGrillaPrueba.h"
#include "support/clsImpresoraGrabadora.h"
#include "support/modPrueba.h"

#include <gtest/gtest.h>
#include <numeric>

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

// The pages a text was printed on, in order.
QList<int> Paginas(const clsImpresoraGrabadora& xImpresora, const QString& xTexto) {
    QList<int> paginas;
    for (const Texto& texto : xImpresora.Textos())
        if (texto.Texto == xTexto) paginas << texto.Pagina;
    return paginas;
}

// Rows are counted in the type they print in, which a narrow grid makes larger: each row whole
// on one page under the column titles, the foot once, nothing past the margins. At 10 points the
// head ends at 2257 twips, so page 1 holds (15840 - 2257 + 1000) / 360 - 1 = 40 rows, later 39.
TEST(modImpresionGRD, PagesHoldWholeRowsInTheirTypeWithTheHeadOnEachAndTheFootOnce) {
    const struct {
        qint32 Ancho; // of each printed column
        double Tamano;
        int Paginas;
    } casos[] = {{6000, 10, 3}, {2450, 22, 7}, {1250, 43, 15}};
    for (const auto& caso : casos) {
        clsGrillaPrueba grilla;
        LlenarGrilla(grilla, 100);
        grilla.SetColWidth(0, caso.Ancho);
        grilla.SetColWidth(1, caso.Ancho);
        auto impresora = std::make_shared<clsImpresoraGrabadora>();
        const Resultado resultado = Imprimir(grilla, impresora);
        ASSERT_TRUE(resultado.Impreso);
        EXPECT_EQ(resultado.Punteros, QStringList({"wait", "arrow"}));
        EXPECT_TRUE(impresora->Llamadas().contains("Copies 2"));
        QList<int> paginas(caso.Paginas);
        std::iota(paginas.begin(), paginas.end(), 1);
        EXPECT_EQ(Paginas(*impresora, "Name"), paginas) << caso.Tamano;
        EXPECT_EQ(Buscar(*impresora, "row 1")->Tamano, caso.Tamano);
        EXPECT_EQ(Paginas(*impresora, "End of Report"), QList<int>{caso.Paginas});
        for (int fila = 1; fila <= 100; ++fila) {
            const Texto* nombre = Buscar(*impresora, QString("row %1").arg(fila));
            const Texto* numero = Buscar(*impresora, QString::number(fila));
            ASSERT_TRUE(nombre && numero) << caso.Tamano << " " << fila;
            EXPECT_EQ(std::make_pair(nombre->Pagina, nombre->Y),
                      std::make_pair(numero->Pagina, numero->Y));
            if (caso.Tamano == 10) {
                EXPECT_EQ(nombre->Pagina, fila <= 40 ? 1 : fila <= 79 ? 2 : 3);
            }
        }
        EnLosMargenes(*impresora);
        EXPECT_TRUE(Paginas(*impresora, "hidden").isEmpty()) << "the spare column is not printed";
        if (caso.Tamano != 10) continue;
        EXPECT_DOUBLE_EQ(Buscar(*impresora, "row 41")->Y, 2257);
        EXPECT_DOUBLE_EQ(Buscar(*impresora, "Page : 3")->X, kAnchoUtil - 8 * 120);
        const QString usuario = modImpresionGRD::NombrePropio(modFunciones::NombreUsuario());
        EXPECT_TRUE(usuario.isEmpty() || Buscar(*impresora, usuario, 3)) << "the user each page";
    }
    EXPECT_EQ(modImpresionGRD::NombrePropio("field sales  team"), "Field Sales  Team");
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

    // A cell exactly as wide as the room up to the next column prints whole: column 0 of 7830
    // twips has floor(11370 * 7880 / 11930) + 50 = 7560 twips, 63 characters.
    grilla.SetColWidth(0, 7830);
    auto justa = std::make_shared<clsImpresoraGrabadora>();
    ASSERT_TRUE(Imprimir(grilla, justa).Impreso);
    EXPECT_NE(Buscar(*justa, QString(63, 'w')), nullptr);
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
        modPrueba::EsperarError([&] { Imprimir(grilla, impresora); }, 482, caso.Esperada);
    }
}

} // namespace
