#include "explorer/modTextosPanel.h"

#include "common/clsConfiguracionRegional.h"
#include "common/modFunciones.h"
#include "data/clsPDBInterface.h"

namespace modTextosPanel {

QString TextoVersion(float xVersion, const clsConfiguracionRegional& xRegional) {
    return xRegional.Formato(xVersion, QStringLiteral("0.00"));
}

QString TextoFecha(const QDateTime& xFecha, const clsConfiguracionRegional& xRegional) {
    return xRegional.FormatoFecha(xFecha, QStringLiteral("mm/dd/yyyy hh:mm:ss"));
}

QString TextoTamanio(double xBytes, const clsConfiguracionRegional& xRegional) {
    return xRegional.TextoKilobytes(xBytes, QStringLiteral("#0.##"));
}

// In the order the panel fills them: the database is asked for each value once.
QList<QPair<QString, QString>> TextosInformacionBase(clsPDBInterface& xBase,
                                                     const clsConfiguracionRegional& xRegional) {
    const QString version = TextoVersion(xBase.DBVersion(), xRegional);
    const QString tipo = xBase.DBType();
    const QString creacion = TextoFecha(xBase.CreationDate(), xRegional);
    const QString modificacion = TextoFecha(xBase.ModificationDate(), xRegional);
    const QString backup = TextoFecha(xBase.BackupDate(), xRegional);
    const QString tamanio = TextoTamanio(xBase.DBSize(), xRegional);
    return {{QStringLiteral("Type:"), tipo},
            {QStringLiteral("Version:"), version},
            {QStringLiteral("Creation Date:"), creacion},
            {QStringLiteral("Modification Date:"), modificacion},
            {QStringLiteral("Backup Date:"), backup},
            {QStringLiteral("Size:"), tamanio}};
}

} // namespace modTextosPanel
