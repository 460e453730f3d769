#include "data/modHandheld.h"

#include "common/ErrorVB.h"

#include <utility>

namespace {
std::shared_ptr<clsFuentePalm>& Fuente() {
    static std::shared_ptr<clsFuentePalm> fuente;
    return fuente;
}
} // namespace

namespace modHandheld {

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
