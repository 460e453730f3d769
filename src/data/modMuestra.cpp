#include "data/modMuestra.h"

#include "common/ErrorVB.h"
#include "data/clsFuentePalm.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace {

const QString kFuente = QStringLiteral("modMuestra");

// The working copy lives in the user's data folder; PANDREL_DATA moves it (tests, portable use).
QString CarpetaDatos() {
    const QString propia = qEnvironmentVariable("PANDREL_DATA");
    if (!propia.isEmpty()) return propia;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/Pandrel");
}

void CopiarMuestra(const QString& xMuestra, const QString& xDestino) {
    const QString provisional = xDestino + QStringLiteral(".new");
    QDir(provisional).removeRecursively();
    if (!QDir().mkpath(provisional))
        throw ErrorVB(ErroresFuente::EscrituraFallida, kFuente,
                      QStringLiteral("Cannot create the folder %1.").arg(provisional));
    const QDir muestra(xMuestra);
    for (const QString& archivo : muestra.entryList(QDir::Files)) {
        if (!QFile::copy(muestra.filePath(archivo), provisional + '/' + archivo))
            throw ErrorVB(ErroresFuente::EscrituraFallida, kFuente,
                          QStringLiteral("Cannot copy %1 into %2.").arg(archivo, provisional));
        QFile(provisional + '/' + archivo)
            .setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                            QFileDevice::ReadGroup | QFileDevice::ReadOther);
    }
    // The copy appears whole or not at all.
    if (!QDir().rename(provisional, xDestino))
        throw ErrorVB(ErroresFuente::EscrituraFallida, kFuente,
                      QStringLiteral("Cannot create the folder %1.").arg(xDestino));
}

} // namespace

namespace modMuestra {

QString CarpetaMuestra() {
    const QString programa = QCoreApplication::applicationDirPath();
    for (const QString& candidata :
         {programa + QStringLiteral("/sample"), programa + QStringLiteral("/../sample")}) {
        if (QFile::exists(candidata + QStringLiteral("/Handheld.ini")))
            return QDir(candidata).canonicalPath();
    }
    return QString();
}

QString CarpetaDeTrabajo() {
    const QString destino = CarpetaDatos() + QStringLiteral("/Handheld");
    if (QDir(destino).exists()) return destino;
    const QString muestra = CarpetaMuestra();
    if (muestra.isEmpty())
        throw ErrorVB(ErroresFuente::HandheldInaccesible, kFuente,
                      QStringLiteral("The sample handheld is missing beside the program."));
    QDir().mkpath(CarpetaDatos());
    CopiarMuestra(muestra, destino);
    return destino;
}

} // namespace modMuestra
