#include "device/modTextosInformacion.h"

#include "common/clsConfiguracionRegional.h"
#include "common/modFunciones.h"

namespace modTextosInformacion {

QList<TextoInformacion> TextosTarjeta(const clsTarjetaPalm& xTarjeta,
                                      const clsConfiguracionRegional& xRegional) {
    const clsTarjetaPalm* t = &xTarjeta;
    const clsConfiguracionRegional* r = &xRegional;
    return {
        {QStringLiteral("Card Name:"), [t] { return t->Nombre(); }},
        {QStringLiteral("Version:"),
         [t, r] { return r->Formato(t->Version(), QStringLiteral("0.00")); }},
        {QStringLiteral("Manufacturer:"), [t] { return t->Fabricante(); }},
        {QStringLiteral("Card Number:"), [t] { return QString::number(t->Numero()); }},
        {QStringLiteral("Creation Date:"),
         [t, r] { return r->TextoFechaCorta(t->FechaCreacion()); }},
        {QStringLiteral("Rom Size:"), [t, r] { return r->TextoKilobytes(double(t->TamanoRom())); }},
        {QStringLiteral("Ram Size:"), [t, r] { return r->TextoKilobytes(double(t->TamanoRam())); }},
        {QStringLiteral("Free Ram:"), [t, r] { return r->TextoKilobytes(double(t->RamLibre())); }},
        {QStringLiteral("Rom Db Count:"), [t] { return QString::number(t->CantidadBasesRom()); }},
        {QStringLiteral("Ram Db Count:"), [t] { return QString::number(t->CantidadBasesRam()); }},
    };
}

QList<TextoInformacion> TextosUsuario(const clsUsuarioPalm& xUsuario,
                                      const clsConfiguracionRegional& xRegional) {
    const clsUsuarioPalm* u = &xUsuario;
    const clsConfiguracionRegional* r = &xRegional;
    return {
        {QStringLiteral("User Name:"), [u] { return u->Nombre(); }},
        {QStringLiteral("Password:"), [u] { return u->Clave(); }},
        {QStringLiteral("Last Sync Date:"),
         [u, r] { return r->TextoFechaGeneral(u->FechaUltimaSincronizacion()); }},
        {QStringLiteral("Last Sync PC:"),
         [u] { return QString::number(u->UltimaSincronizacionPC()); }},
        {QStringLiteral("User ID:"), [u] { return QString::number(u->IDUsuario()); }},
    };
}

} // namespace modTextosInformacion
