#include "data/MensajesError.h"

std::array<QString, 20> MensajesError;

void CargarMensajes() {
    MensajesError[0] = QStringLiteral("Database is already open.");
    MensajesError[1] = QStringLiteral("Database its close.");
    MensajesError[2] = QStringLiteral("The specified index isn\u00B4t valid.");
    MensajesError[3] = QStringLiteral("The Database selected have not Schema.");
}
