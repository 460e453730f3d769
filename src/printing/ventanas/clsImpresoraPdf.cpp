#include "printing/ventanas/clsImpresoraPdf.h"

#include "common/ErrorVB.h"

namespace {

ErrorVB ErrorArchivo(const QString& xArchivo, const QString& xMotivo) {
    return ErrorVB(75, QStringLiteral("clsImpresoraPdf"),
                   QStringLiteral("The file %1 cannot be written (%2). Nothing was written.")
                       .arg(xArchivo, xMotivo));
}

QIODevice* Abierto(clsEscrituraSegura& xEscritura, const QString& xArchivo) {
    if (!xEscritura.Abrir()) throw ErrorArchivo(xArchivo, xEscritura.Error());
    return &xEscritura.Dispositivo();
}

} // namespace

// The base only keeps the device: the writer is made after it, before anything is painted.
clsImpresoraPdf::clsImpresoraPdf(const QString& xArchivo, const QPageLayout& xHoja, int xResolucion)
    : clsImpresoraQt(mPdf), mArchivo(xArchivo), mEscritura(xArchivo),
      mPdf(Abierto(mEscritura, xArchivo)) {
    mPdf.setResolution(xResolucion);
    mPdf.setPageLayout(xHoja);
}

// The painting ends while the writer is still there; what it wrote is never put in place.
clsImpresoraPdf::~clsImpresoraPdf() {
    clsImpresoraQt::TerminarDocumento();
}

void clsImpresoraPdf::TerminarDocumento() {
    const bool pintado = Pintando();
    clsImpresoraQt::TerminarDocumento();
    if (pintado && !mEscritura.Terminar()) throw ErrorArchivo(mArchivo, mEscritura.Error());
}
