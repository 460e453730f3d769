#include "errors/clsMensajeError.h"

#include "common/clsConfiguracionRegional.h"
#include "common/modFunciones.h"
#include "printing/clsImpresora.h"

namespace {

const QString FormatoFechaHora = QStringLiteral("mm/dd/yyyy hh:mm:ss");
const QString FormatoHora = QStringLiteral("hh:mm:ss");

// The description wraps at 70 character cells, its later lines ten blanks in.
constexpr double AnchoDescripcion = 70;
constexpr int SangriaDescripcion = 10;
constexpr double ColumnaDatos = 10;

} // namespace

clsMensajeError::clsMensajeError(qint32 xNumero, const QString& xDescripcion,
                                 const QString& xFuente, const QString& xFormulario,
                                 const QString& xProcedimiento, const QDateTime& xFecha)
    : mNumero(xNumero), mDescripcion(xDescripcion), mFuente(xFuente), mFormulario(xFormulario),
      mProcedimiento(xProcedimiento), mFecha(xFecha) {}

QString clsMensajeError::Fecha(const clsConfiguracionRegional& xRegional) const {
    return xRegional.FormatoFecha(mFecha, FormatoFechaHora);
}

QString clsMensajeError::Hora(const clsConfiguracionRegional& xRegional) const {
    return xRegional.FormatoFecha(mFecha, FormatoHora);
}

// The title centred on line 1, the facts from column 10. The description's continuation lines
// start at the left edge, so MultiLinea indents them by ten blanks to stand under the labels.
// "Form´s Module" carries the procedure and "Procedure" the source, as the window's captions
// pair them.
void clsMensajeError::Imprimir(clsImpresora& xImpresora,
                               const clsConfiguracionRegional& xRegional) const {
    const QString titulo = QStringLiteral("An Error was occurred");
    xImpresora.SetScaleMode(clsImpresora::EscalaCaracteres);
    xImpresora.SetFontName(QStringLiteral("MS Sans Serif"));
    xImpresora.SetFontSize(9);
    xImpresora.SetCurrentX((xImpresora.ScaleWidth() - xImpresora.TextWidth(titulo)) / 2);
    xImpresora.SetCurrentY(1);
    xImpresora.Print(titulo);

    const auto linea = [&xImpresora](double xY, const QString& xTexto) {
        xImpresora.SetCurrentX(ColumnaDatos);
        xImpresora.SetCurrentY(xY);
        xImpresora.Print(xTexto);
    };
    linea(5, QStringLiteral("Date: ") + Fecha(xRegional));
    linea(6, QStringLiteral("Time: ") + Hora(xRegional));
    linea(7, QStringLiteral("Computer: ") + Computadora());
    linea(10, QStringLiteral("Number: ") + Numero());
    linea(11, QStringLiteral("Description: ") +
                  modFunciones::MultiLinea(mDescripcion, AnchoDescripcion, SangriaDescripcion,
                                           xImpresora.AnchoDe()));
    linea(14, QStringLiteral("Form: ") + mFormulario);
    linea(15, QStringLiteral("Form\u00B4s Module: ") + mProcedimiento);
    linea(16, QStringLiteral("Procedure: ") + mFuente);
    xImpresora.EndDoc();
    xImpresora.SetScaleMode(clsImpresora::EscalaTwips);
}
