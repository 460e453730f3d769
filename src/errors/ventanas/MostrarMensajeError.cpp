#include "errors/ventanas/MostrarMensajeError.h"

#include "common/ErrorVB.h"
#include "errors/ventanas/frmMensajeError.h"

#include <QApplication>

namespace {

// Over whatever window holds the person's attention: a second failure stands over the first.
QWidget* VentanaActiva() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return QApplication::activeWindow();
}

} // namespace

void MostrarMensajeError(qint32 xNumero, const QString& xDescripcion, const QString& xFuente,
                         const QString& xFormulario, const QString& xProcedimiento) {
    frmMensajeError ventana(VentanaActiva());
    ventana.Component(xNumero, xDescripcion, xFuente, xFormulario, xProcedimiento);
    ventana.exec();
}

void MostrarMensajeError(const ErrorVB& xError, const QString& xFormulario,
                         const QString& xProcedimiento) {
    MostrarMensajeError(xError.Numero(), xError.Descripcion(), xError.Fuente(), xFormulario,
                        xProcedimiento);
}

bool Atrapar(const QString& xFormulario, const QString& xProcedimiento,
             const std::function<void()>& xTrabajo,
             const std::function<void(const ErrorVB&)>& xAntes) {
    try {
        xTrabajo();
        return true;
    } catch (const std::exception& e) {
        const ErrorVB error = ErrorVB::De(e, QString());
        if (xAntes) xAntes(error);
        MostrarMensajeError(error, xFormulario, xProcedimiento);
    }
    return false;
}
