#include "common/ErrorVB.h"
#include "printing/clsImpresoraQt.h"

#include <QFile>
#include <QPageLayout>
#include <QPageSize>
#include <QPrinter>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

// A Letter sheet with half-inch margins, written to a PDF file.
void PrepararPdf(QPrinter& xImpresora, const QString& xArchivo) {
    xImpresora.setOutputFormat(QPrinter::PdfFormat);
    xImpresora.setOutputFileName(xArchivo);
    xImpresora.setPageLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait,
                                         QMarginsF(36, 36, 36, 36), QPageLayout::Point));
}

TEST(clsImpresoraQt, MideLaHojaYElTextoEnLaEscalaActual) {
    QTemporaryDir carpeta;
    QPrinter pdf(QPrinter::HighResolution);
    PrepararPdf(pdf, carpeta.filePath("medidas.pdf"));
    clsImpresoraQt impresora(pdf);

    struct Caso {
        int Escala;
        double AnchoImprimible, AltoImprimible;
        double TwipsPorUnidadX, TwipsPorUnidadY;
    };
    const Caso casos[] = {{clsImpresora::EscalaTwips, 10800, 14400, 1, 1},
                          {clsImpresora::EscalaCaracteres, 90, 60, 120, 240}};
    impresora.SetFontName("Arial");
    impresora.SetFontSize(10);
    double anchoTwips = 0;
    double altoTwips = 0;
    for (const Caso& caso : casos) {
        impresora.SetScaleMode(caso.Escala);
        EXPECT_NEAR(impresora.Width(), 12240, 1);
        EXPECT_NEAR(impresora.Height(), 15840, 1);
        EXPECT_NEAR(impresora.ScaleWidth(), caso.AnchoImprimible, 0.1);
        EXPECT_NEAR(impresora.ScaleHeight(), caso.AltoImprimible, 0.1);
        const double ancho = impresora.TextWidth("An Error was occurred") * caso.TwipsPorUnidadX;
        const double alto = impresora.TextHeight("W") * caso.TwipsPorUnidadY;
        if (caso.Escala == clsImpresora::EscalaTwips) {
            anchoTwips = ancho;
            altoTwips = alto;
        }
        EXPECT_NEAR(ancho, anchoTwips, 0.01);
        EXPECT_NEAR(alto, altoTwips, 0.01);
    }
    // A 10-point line is a little more than 10 points (200 twips) high; the title's 21 characters
    // of a proportional type are between 4 and 7 points wide each.
    EXPECT_GT(altoTwips, 200);
    EXPECT_LT(altoTwips, 300);
    EXPECT_GT(anchoTwips, 21 * 80);
    EXPECT_LT(anchoTwips, 21 * 140);
    // Bold and larger type measure wider.
    impresora.SetScaleMode(clsImpresora::EscalaTwips);
    impresora.SetFontBold(true);
    EXPECT_GT(impresora.TextWidth("An Error was occurred"), anchoTwips);
    impresora.SetFontBold(false);
    impresora.SetFontSize(20);
    EXPECT_NEAR(impresora.TextWidth("An Error was occurred"), 2 * anchoTwips, anchoTwips * 0.1);
}

TEST(clsImpresoraQt, EscribeElDocumentoAlTerminarlo) {
    QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath("informe.pdf");
    QPrinter pdf(QPrinter::HighResolution);
    PrepararPdf(pdf, archivo);
    {
        clsImpresoraQt impresora(pdf);
        impresora.SetScaleMode(clsImpresora::EscalaCaracteres);
        impresora.SetCurrentX(10);
        impresora.SetCurrentY(5);
        impresora.Print("Date: 11/23/2026 10:00:00");
        impresora.Line(0, 7, 90, 7);
        impresora.NewPage();
        EXPECT_EQ(impresora.Page(), 2);
        impresora.Print("second page");
        impresora.EndDoc();
        EXPECT_EQ(impresora.Page(), 1);
    }
    QFile pdfEscrito(archivo);
    ASSERT_TRUE(pdfEscrito.open(QIODevice::ReadOnly));
    const QByteArray contenido = pdfEscrito.readAll();
    EXPECT_TRUE(contenido.startsWith("%PDF"));
    EXPECT_EQ(contenido.count("/Type /Page\n") + contenido.count("/Type /Page\r"), 2)
        << "two pages";
}

TEST(clsImpresoraQt, UnaImpresoraQueNoAbreEsUnError) {
    QPrinter pdf(QPrinter::HighResolution);
    PrepararPdf(pdf, "/nonexistent-folder/report.pdf");
    clsImpresoraQt impresora(pdf);
    try {
        impresora.Print("lost");
        FAIL() << "printing on a printer that cannot start went unnoticed";
    } catch (const ErrorVB& error) {
        EXPECT_EQ(error.Numero(), 482);
        EXPECT_EQ(error.Descripcion(), "Printer error");
    }
}

} // namespace
