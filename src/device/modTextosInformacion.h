#pragma once

#include "data/clsFuentePalm.h"

#include <QList>
#include <QString>
#include <QtGlobal>
#include <functional>

class clsConfiguracionRegional;

// The texts of the handheld information window, shared by the window and pandrel-cli: each value
// as the window shows it, beside its caption.
namespace modTextosInformacion {

// One value of the window: its caption, and its text, read from the handheld when Texto is
// called (which raises when the value cannot be read).
struct TextoInformacion {
    QString Titulo;
    std::function<QString()> Texto;
};

// In the order the card is read: "Card Name:", "Version:", "Manufacturer:", "Card Number:",
// "Creation Date:", "Rom Size:", "Ram Size:", "Free Ram:", "Rom Db Count:", "Ram Db Count:".
// The texts read xTarjeta, which must outlive them.
QList<TextoInformacion> TextosTarjeta(const clsTarjetaPalm& xTarjeta,
                                      const clsConfiguracionRegional& xRegional);

// In the order the user is read: "User Name:", "Password:", "Last Sync Date:", "Last Sync PC:",
// "User ID:".
QList<TextoInformacion> TextosUsuario(const clsUsuarioPalm& xUsuario,
                                      const clsConfiguracionRegional& xRegional);

} // namespace modTextosInformacion
