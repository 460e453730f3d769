#pragma once

#include "common/clsEscrituraSegura.h"
#include "printing/ventanas/clsImpresoraQt.h"

#include <QPageLayout>
#include <QPdfWriter>
#include <QString>

// A report printed to a PDF file that is put in place only when whole: the document is written
// beside the file's name and renamed over it at EndDoc, so a print that fails half way (or a
// program killed) leaves the file that was there, or none, as an export does. A link at the name
// is followed as an export follows it.
class clsImpresoraPdf : public clsImpresoraQt {
public:
    // Raises ErrorVB 75 when the file cannot be begun.
    clsImpresoraPdf(const QString& xArchivo, const QPageLayout& xHoja, int xResolucion);
    // A document not ended by EndDoc is dropped.
    ~clsImpresoraPdf() override;

protected:
    // Raises ErrorVB 75, the file left as it was, when the document cannot be put in place.
    void TerminarDocumento() override;

private:
    QString mArchivo;
    clsEscrituraSegura mEscritura;
    QPdfWriter mPdf; // writes into mEscritura, so it comes after it
};
