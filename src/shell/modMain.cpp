#include "shell/modMain.h"

#include "common/clsConfiguracionRegional.h"
#include "data/MensajesError.h"
#include "data/modHandheld.h"
#include "data/modMuestra.h"
#include "shell/frmInicio.h"

#include <QFileInfo>
#include <QLocale>
#include <memory>

namespace modMain {

QString CarpetaHandheld(const QString& xNombrada) {
    return xNombrada.isEmpty() ? modMuestra::CarpetaDeTrabajo() : xNombrada;
}

frmInicio* Main(const QString& xHandheld) {
    CargarMensajes();
    // A database file opens its folder as the handheld, as a file manager's "Open with" does.
    const bool base = modHandheld::EsBase(xHandheld);
    const QString ruta = base ? QFileInfo(xHandheld).absolutePath() : xHandheld;
    const auto fuente = modHandheld::CrearFuente(ruta);
    modHandheld::EstablecerFuente(fuente);
    clsConfiguracionRegional::EstablecerActual(QLocale::system());
    auto* inicio = new frmInicio;
    inicio->setAttribute(Qt::WA_DeleteOnClose);
    inicio->show();
    inicio->TomarHandheld(ruta);
    if (base) inicio->AbrirBase(modHandheld::NombreDeBase(xHandheld, *fuente));
    return inicio;
}

} // namespace modMain
