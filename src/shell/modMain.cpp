#include "shell/modMain.h"

#include "common/clsConfiguracionRegional.h"
#include "data/MensajesError.h"
#include "data/modHandheld.h"
#include "data/modMuestra.h"
#include "shell/frmInicio.h"

#include <QLocale>
#include <memory>

namespace modMain {

QString CarpetaHandheld(const QString& xNombrada) {
    return xNombrada.isEmpty() ? modMuestra::CarpetaDeTrabajo() : xNombrada;
}

frmInicio* Main(const QString& xCarpeta) {
    CargarMensajes();
    modHandheld::EstablecerFuente(modHandheld::CrearFuente(xCarpeta));
    clsConfiguracionRegional::EstablecerActual(QLocale::system());
    auto* inicio = new frmInicio;
    inicio->setAttribute(Qt::WA_DeleteOnClose);
    inicio->show();
    return inicio;
}

} // namespace modMain
