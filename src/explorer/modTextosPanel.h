#pragma once

#include <QDateTime>
#include <QList>
#include <QPair>
#include <QString>

class clsPDBInterface;
class clsConfiguracionRegional;

// The texts of the database information panel, shared by the explorer window and pandrel-cli.
namespace modTextosPanel {
// "0.00"
QString TextoVersion(float xVersion, const clsConfiguracionRegional& xRegional);
// "mm/dd/yyyy hh:mm:ss"
QString TextoFecha(const QDateTime& xFecha, const clsConfiguracionRegional& xRegional);
// bytes / 1024 rounded to 2 decimals through "#0.##", then " KB" (12. KB, 2.5 KB)
QString TextoTamanio(double xBytes, const clsConfiguracionRegional& xRegional);
// The captions and texts of the panel in its order ("Type:", "Version:", "Creation Date:",
// "Modification Date:", "Backup Date:", "Size:") for the database open in xBase.
QList<QPair<QString, QString>> TextosInformacionBase(clsPDBInterface& xBase,
                                                     const clsConfiguracionRegional& xRegional);
} // namespace modTextosPanel
