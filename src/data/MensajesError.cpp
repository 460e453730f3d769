#include "data/MensajesError.h"

#include <mutex>

namespace {
// Written by CargarMensajes alone, once.
std::array<QString, 20> gMensajes;
std::once_flag gCargados;
} // namespace

const std::array<QString, 20>& MensajesError() {
    return gMensajes;
}

void CargarMensajes() {
    std::call_once(gCargados, [] {
        gMensajes[0] = QStringLiteral("Database is already open.");
        gMensajes[1] = QStringLiteral("Database its close.");
        gMensajes[2] = QStringLiteral("The specified index isn\u00B4t valid.");
        gMensajes[3] = QStringLiteral("The Database selected have not Schema.");
    });
}

ErrorVB ErrorDeBase(qint32 xNumero, const char* xFuente) {
    return ErrorVB(xNumero, QString::fromLatin1(xFuente),
                   MensajesError()[xNumero - ErroresBase::YaAbierta]);
}
