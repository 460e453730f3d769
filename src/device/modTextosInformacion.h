#pragma once

#include "data/clsFuentePalm.h"

#include <QList>
#include <QPair>
#include <QString>
#include <QtGlobal>

class clsConfiguracionRegional;

// The texts of the handheld information window, shared by the window and pandrel-cli: each value
// as the window shows it, beside its caption.
namespace modTextosInformacion {

// bytes / 1024 rounded to 2 decimals in the regional number form, then " KB" (1024 KB, 1.5 KB).
QString TextoTamanio(qint64 xBytes, const clsConfiguracionRegional& xRegional);

// "Card Name:", "Manufacturer:", "Version:", "Creation Date:", "Rom Size:", "Ram Size:",
// "Free Ram:", "Rom Db Count:", "Ram Db Count:", "Card Number:", in that order.
QList<QPair<QString, QString>> TextosTarjeta(const TarjetaPalm& xTarjeta,
                                             const clsConfiguracionRegional& xRegional);

// "User Name:", "User ID:", "Password:", "Last Sync PC:", "Last Sync Date:", in that order.
QList<QPair<QString, QString>> TextosUsuario(const UsuarioPalm& xUsuario,
                                             const clsConfiguracionRegional& xRegional);

} // namespace modTextosInformacion
