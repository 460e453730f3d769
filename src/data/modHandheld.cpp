#include "data/modHandheld.h"

#include "common/ErrorVB.h"
#include "data/clsFuenteZip.h"

#include <QFileInfo>

#include <utility>

namespace {
std::shared_ptr<clsFuentePalm>& Fuente() {
    static std::shared_ptr<clsFuentePalm> fuente;
    return fuente;
}
} // namespace

namespace modHandheld {

bool EsArchivo(const QString& xRuta) {
    const QFileInfo info(xRuta);
    return info.isFile() || (!info.exists() &&
                             info.suffix().compare(QLatin1String("zip"), Qt::CaseInsensitive) == 0);
}

std::shared_ptr<clsFuenteCarpeta> CrearFuente(const QString& xRuta, const QString& xCodigoPagina) {
    if (EsArchivo(xRuta)) return std::make_shared<clsFuenteZip>(xRuta, xCodigoPagina);
    return std::make_shared<clsFuenteCarpeta>(xRuta, xCodigoPagina);
}

void EstablecerFuente(std::shared_ptr<clsFuentePalm> xFuente) {
    Fuente() = std::move(xFuente);
}

std::shared_ptr<clsFuentePalm> FuenteActual() {
    if (!Fuente())
        throw ErrorVB(ErroresFuente::HandheldInaccesible, QStringLiteral("Handheld"),
                      QStringLiteral("No handheld is connected."));
    return Fuente();
}

} // namespace modHandheld
