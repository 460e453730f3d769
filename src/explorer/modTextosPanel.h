#pragma once

#include <QDateTime>
#include <QList>
#include <QPair>
#include <QString>

class clsPDBInterface;
class clsConfiguracionRegional;

// The texts of the explorer's panels (the database information, shared with pandrel-cli, the
// application's databases and the memory panels).
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

// The columns of an application's panel: "File", "Type", "Record Count", "Size", "Version" and
// the three dates.
constexpr qint32 ColumnasRecurso = 8;
// What the panel adds up over the databases of the application's creator.
struct TotalesAplicacion {
    qint32 Registros = 0;
    float Tamanio = 0; // KB, each database's size rounded as its row shows it
};
// The row of database xNombre, opened in xBase in turn (closing the one open), its cells
// separated by tabs; it adds to xTotales. A database that cannot be opened is listed as in use,
// adds nothing and leaves xBase with none open.
QString FilaRecurso(clsPDBInterface& xBase, const QString& xNombre,
                    const clsConfiguracionRegional& xRegional, TotalesAplicacion& xTotales);
// The application's size total: "4.50 KB".
QString TextoTamanioAplicacion(float xKilobytes, const clsConfiguracionRegional& xRegional);
// A memory panel's figure: the size in KB in its shortest form, always with a full stop, then
// " KB" ("1.5 KB", "2048 KB").
QString TextoMemoria(qint64 xBytes);
} // namespace modTextosPanel
