#pragma once

#include "printing/clsImpresora.h"

#include <QFont>
#include <QRectF>
#include <functional>
#include <memory>

class QPagedPaintDevice;
class QPainter;
class QPrinter;

// The printer interface painting on a QPrinter (a real printer) or on another paged device (a
// PDF file, see clsImpresoraPdf). The document begins with the first output and is sent by
// EndDoc (or when the object ends with a document still open). Measures come from the device's
// own font metrics, so what TextWidth reports is what lands on the page.
class clsImpresoraQt : public clsImpresora {
public:
    explicit clsImpresoraQt(QPrinter& xImpresora);
    ~clsImpresoraQt() override;

    clsImpresoraQt(const clsImpresoraQt&) = delete;
    clsImpresoraQt& operator=(const clsImpresoraQt&) = delete;

    // The printer a window prints on once the person has chosen xImpresora in the printer
    // dialog: this class over it; a clsImpresoraPdf when it prints to a PDF file, whose name
    // must be a place for one (modDestino, else ErrorVB 75); or whatever a test put in its place.
    using Fabrica = std::function<std::shared_ptr<clsImpresora>(QPrinter&)>;
    static std::shared_ptr<clsImpresora> Para(QPrinter& xImpresora);
    // Tests print through their own printer; an empty function gives this class back.
    static void Sustituir(Fabrica xFabrica);

protected:
    // Over a paged device that is no printer: its page layout gives the sheet.
    explicit clsImpresoraQt(QPagedPaintDevice& xDispositivo);
    // True while a document is being painted.
    bool Pintando() const;

    double AnchoTexto(const QString& xLinea) const override;
    double AltoLinea() const override;
    double AnchoPagina() const override;
    double AltoPagina() const override;
    double AnchoImprimible() const override;
    double AltoImprimible() const override;
    void DibujarTexto(double xX, double xY, const QString& xLinea) override;
    void DibujarLinea(double xX1, double xY1, double xX2, double xY2) override;
    void PasarPagina() override;
    void TerminarDocumento() override;

private:
    QFont Fuente() const;
    QRectF Hoja() const;
    QRectF Imprimible() const;
    QPainter& Pintor();
    double PixelesX(double xTwips) const;
    double PixelesY(double xTwips) const;

    QPagedPaintDevice& mDispositivo;
    QPrinter* mImpresora; // the same device when it is a printer, else null
    std::unique_ptr<QPainter> mPintor;
};
