// Export and print of the records grid: the file and printer dialogs and the messages here, the
// file format in modExportacion and the report in modInformeBase.
#include "explorer/ventanas/frmPandrel.h"

#include "common/ventanas/modDialogos.h"
#include "data/clsPDBInterface.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/modExportacion.h"
#include "explorer/ventanas/clsVistaGrilla.h"
#include "printing/clsGrillaComoSeVe.h"
#include "printing/modInformeBase.h"
#include "printing/ventanas/clsImpresoraQt.h"

#include <QPrinter>

void frmPandrel::ExportarInformacion() {
    QString filtro;
    const QString archivo =
        modDialogos::GuardarArchivo(this, QString(), QString(), modExportacion::kFiltros, &filtro);
    if (archivo.isEmpty()) return;
    const int indiceFiltro = modExportacion::IndiceFiltro(filtro);
    Atrapar(QStringLiteral("ExportarInformacion"), [&] {
        const QString nombre = modExportacion::NombreConExtension(archivo.trimmed(), indiceFiltro);
        if (!ValidarArchivoExportacion(nombre)) return;
        setCursor(Qt::WaitCursor);
        if (!CargarTabla(false, -1)) return;
        modExportacion::ExportarGrilla(
            grdTabla->Grilla(), nombre, modExportacion::FormatoDeFiltro(indiceFiltro),
            [this](qint32 xColumna) { return mBase->FieldType(xColumna); }, mBase->PaginaCodigos());
    });
    setCursor(Qt::ArrowCursor);
}

bool frmPandrel::ValidarArchivoExportacion(const QString& xArchivo) {
    const modExportacion::Respuestas respuestas{
        [this](const QString& xMensaje) {
            modDialogos::MsgBox(this, xMensaje, QMessageBox::Ok, QMessageBox::Warning,
                                windowTitle());
        },
        [this](const QString& xPregunta) {
            return modDialogos::Preguntar(this, xPregunta, windowTitle());
        }};
    return modExportacion::ValidarArchivoExportacion(xArchivo, respuestas);
}

// The report of the grid as it stands and as it shows, its columns as wide as on screen, under
// the window's caption.
void frmPandrel::Imprimir() {
    const modImpresionGRD::DialogoImpresora dialogo{
        [this](qint32& xCopias) -> std::shared_ptr<clsImpresora> {
            auto impresora = std::make_shared<QPrinter>(QPrinter::HighResolution);
            if (!modDialogos::ElegirImpresora(this, *impresora)) return nullptr;
            xCopias = impresora->copyCount();
            // A PDF file the person named that is no place for one is refused here, with the
            // reason, as the export refuses it.
            std::shared_ptr<clsImpresora> interfaz;
            if (!Atrapar(QStringLiteral("Imprimir"),
                         [&] { interfaz = clsImpresoraQt::Para(*impresora); }))
                return nullptr;
            // The printer lives as long as the printer interface painting on it.
            struct Juntos {
                std::shared_ptr<QPrinter> Impresora;
                std::shared_ptr<clsImpresora> Interfaz;
            };
            auto juntos = std::make_shared<Juntos>(Juntos{impresora, interfaz});
            return std::shared_ptr<clsImpresora>(juntos, juntos->Interfaz.get());
        },
        [this](const QString& xTexto, const QString& xTitulo) {
            modDialogos::MsgBox(this, xTexto, QMessageBox::Ok, QMessageBox::Warning, xTitulo);
        },
        [this](bool xEspera) { setCursor(xEspera ? Qt::WaitCursor : Qt::ArrowCursor); }};
    try {
        const clsGrillaComoSeVe tabla(grdTabla->Grilla(), grdTabla->AnchosVistos());
        modInformeBase::ImprimirInforme(*mBase, windowTitle(), tabla, dialogo);
    } catch (const std::exception&) {
        modDialogos::MsgBox(this, QStringLiteral("Printing error."), QMessageBox::Ok,
                            QMessageBox::Warning, windowTitle());
    }
}
