#include "printing/ventanas/clsImpresoraQt.h"
#include "support/modPrueba.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPrinter>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

// A Letter sheet with half-inch margins (10800 x 14400 twips printable), written to a PDF file.
void PrepararPdf(QPrinter& xImpresora, const QString& xArchivo) {
    xImpresora.setOutputFormat(QPrinter::PdfFormat);
    xImpresora.setOutputFileName(xArchivo);
    xImpresora.setPageLayout(QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait,
                                         QMarginsF(36, 36, 36, 36), QPageLayout::Point));
}

TEST(clsImpresoraQt, MideConLaFuenteDeLaImpresora) {
    QTemporaryDir carpeta;
    QPrinter pdf(QPrinter::HighResolution);
    PrepararPdf(pdf, carpeta.filePath("medidas.pdf"));
    clsImpresoraQt impresora(pdf);
    const QString titulo = "An Error was occurred";
    const double ancho = impresora.TextWidth(titulo);
    const double alto = impresora.TextHeight("W");
    EXPECT_NEAR(impresora.ScaleWidth(), 10800, 1);
    EXPECT_NEAR(impresora.ScaleHeight(), 14400, 1);
    EXPECT_GT(alto, 200); // a 10-point line is a little more than 200 twips
    EXPECT_LT(alto, 300);
    EXPECT_GT(ancho, 21 * 80);
    EXPECT_LT(ancho, 21 * 140);

    impresora.SetScaleMode(clsImpresora::EscalaCaracteres);
    EXPECT_NEAR(impresora.ScaleWidth(), 90, 0.01);
    EXPECT_NEAR(impresora.TextWidth(titulo), ancho / 120, 1e-9);
    EXPECT_NEAR(impresora.TextHeight("W"), alto / 240, 1e-9);
    impresora.SetFontSize(20);
    EXPECT_NEAR(impresora.TextWidth(titulo), 2 * ancho / 120, ancho / 1200);
    impresora.SetFontBold(true);
    EXPECT_GT(impresora.TextWidth(titulo), 2 * ancho / 120);
}

// A report printed to a PDF file through the printer dialog reaches the file only when EndDoc
// ends it: a print that fails half way leaves the file that was there. A name that is no place
// for a file is refused before anything is written, and a printer that cannot start is an error.
TEST(clsImpresoraQt, EscribeElDocumentoEnteroOFallaConUnError) {
    QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath("informe.pdf");
    for (const bool terminar : {false, true}) {
        modPrueba::Poner(archivo, "old");
        QPrinter pdf(QPrinter::HighResolution);
        PrepararPdf(pdf, archivo);
        {
            const auto impresora = clsImpresoraQt::Para(pdf);
            impresora->Print("first page");
            impresora->Line(0, 500, 5000, 500);
            impresora->NewPage();
            impresora->Print("second page");
            if (terminar) impresora->EndDoc();
        }
        const QByteArray contenido = modPrueba::Leer(archivo);
        EXPECT_EQ(contenido.startsWith("%PDF"), terminar);
        EXPECT_EQ(contenido.count("/Type /Page\n"), terminar ? 2 : 0);
    }

    QPrinter pdf(QPrinter::HighResolution);
    PrepararPdf(pdf, carpeta.path());
    EXPECT_EQ(modPrueba::ErrorDe([&] { clsImpresoraQt::Para(pdf)->Print("lost"); }).Numero(), 75)
        << "a folder is no PDF file";
    clsImpresoraQt impresora(pdf);
    PrepararPdf(pdf, "/nonexistent-folder/report.pdf");
    EXPECT_EQ(modPrueba::ErrorDe([&] { impresora.Print("lost"); }).Numero(), 482)
        << "a printer that cannot start";
}

} // namespace
