#include "device/modTextosInformacion.h"

#include "common/clsConfiguracionRegional.h"
#include "common/modFunciones.h"

namespace modTextosInformacion {

QString TextoTamanio(qint64 xBytes, const clsConfiguracionRegional& xRegional) {
    return xRegional.TextoNumero(modFunciones::Kilobytes(static_cast<double>(xBytes))) +
           QStringLiteral(" KB");
}

QList<QPair<QString, QString>> TextosTarjeta(const TarjetaPalm& xTarjeta,
                                             const clsConfiguracionRegional& xRegional) {
    return {
        {QStringLiteral("Card Name:"), xTarjeta.Nombre},
        {QStringLiteral("Manufacturer:"), xTarjeta.Fabricante},
        {QStringLiteral("Version:"), xRegional.Formato(xTarjeta.Version, QStringLiteral("0.00"))},
        {QStringLiteral("Creation Date:"), xRegional.TextoFechaCorta(xTarjeta.FechaCreacion)},
        {QStringLiteral("Rom Size:"), TextoTamanio(xTarjeta.TamanoRom, xRegional)},
        {QStringLiteral("Ram Size:"), TextoTamanio(xTarjeta.TamanoRam, xRegional)},
        {QStringLiteral("Free Ram:"), TextoTamanio(xTarjeta.RamLibre, xRegional)},
        {QStringLiteral("Rom Db Count:"), QString::number(xTarjeta.CantidadBasesRom)},
        {QStringLiteral("Ram Db Count:"), QString::number(xTarjeta.CantidadBasesRam)},
        {QStringLiteral("Card Number:"), QString::number(xTarjeta.Numero)},
    };
}

QList<QPair<QString, QString>> TextosUsuario(const UsuarioPalm& xUsuario,
                                             const clsConfiguracionRegional& xRegional) {
    return {
        {QStringLiteral("User Name:"), xUsuario.Nombre},
        {QStringLiteral("User ID:"), QString::number(xUsuario.IDUsuario)},
        {QStringLiteral("Password:"), xUsuario.Clave},
        {QStringLiteral("Last Sync PC:"), QString::number(xUsuario.UltimaSincronizacionPC)},
        {QStringLiteral("Last Sync Date:"),
         xRegional.TextoFechaGeneral(xUsuario.FechaUltimaSincronizacion)},
    };
}

} // namespace modTextosInformacion
