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

QString FilaRecurso(clsPDBInterface& xBase, const QString& xNombre,
                    const clsConfiguracionRegional& xRegional, TotalesAplicacion& xTotales) {
    const QString tab = QStringLiteral("\t");
    xBase.CloseDatabase();
    try {
        xBase.OpenFile(xNombre);
    } catch (const std::exception&) {
        QStringList celdas = {xNombre + QStringLiteral(" (file in use) "), QStringLiteral("Data")};
        for (int c = 2; c < ColumnasRecurso; ++c)
            celdas << QStringLiteral("Unknow");
        return celdas.join(tab);
    }
    const auto tamanio = static_cast<float>(modFunciones::Kilobytes(xBase.DBSize()));
    const qint32 registros = xBase.NumRecords();
    xTotales.Tamanio += tamanio;
    xTotales.Registros += registros;
    return QStringList{xNombre,
                       xBase.DBType(),
                       QString::number(registros),
                       xRegional.TextoSingle(tamanio),
                       xRegional.TextoSingle(xBase.DBVersion()),
                       xRegional.TextoFechaGeneral(xBase.CreationDate()),
                       xRegional.TextoFechaGeneral(xBase.ModificationDate()),
                       xRegional.TextoFechaGeneral(xBase.BackupDate())}
        .join(tab);
}

QString TextoTamanioAplicacion(float xKilobytes, const clsConfiguracionRegional& xRegional) {
    return xRegional.Formato(xKilobytes, QStringLiteral("0.00")) + QStringLiteral(" KB");
}

QString TextoMemoria(qint64 xBytes) {
    return QString::number(modFunciones::Kilobytes(static_cast<double>(xBytes)), 'g', 15) +
           QStringLiteral(" KB");
}

} // namespace modTextosPanel
