#include "data/modDestino.h"

#include "common/ErrorVB.h"
#include "common/modFunciones.h"
#include "data/modHandheld.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace modDestino {

namespace {

// Number of the error of a file that cannot be written: "Path/File access error".
constexpr qint32 ErrorRuta = 75;

// What stands at xRuta, which is no regular file.
QString Clase(const QFileInfo& xInfo) {
    if (xInfo.isDir()) return QStringLiteral("a folder");
#ifdef Q_OS_UNIX
    struct stat datos;
    if (::stat(QFile::encodeName(xInfo.filePath()).constData(), &datos) == 0) {
        if (S_ISFIFO(datos.st_mode)) return QStringLiteral("a FIFO");
        if (S_ISCHR(datos.st_mode) || S_ISBLK(datos.st_mode)) return QStringLiteral("a device");
        if (S_ISSOCK(datos.st_mode)) return QStringLiteral("a socket");
    }
#endif
    return QStringLiteral("not a regular file");
}

bool DelHandheld(const QString& xArchivo) {
    try {
        return modHandheld::FuenteActual()->EsArchivoPropio(xArchivo);
    } catch (const ErrorVB&) {
        return false; // no handheld is open
    }
}

} // namespace

QString Rechazo(const QString& xArchivo) {
    const QString destino = modFunciones::DestinoFinal(xArchivo);
    if (destino.isEmpty()) return QStringLiteral("its links lead round in a loop");
    const QFileInfo info(destino);
    if (info.exists() && !info.isFile()) return QStringLiteral("it is ") + Clase(info);
    if (DelHandheld(destino))
        return QStringLiteral("it is, or would become, one of the open handheld's own files (a "
                              "database, its Handheld.ini, its backup archive or a lock)");
    return {};
}

void Comprobar(const QString& xArchivo, const QString& xFuente) {
    const QString rechazo = Rechazo(xArchivo);
    if (rechazo.isEmpty()) return;
    throw ErrorVB(ErrorRuta, xFuente,
                  QStringLiteral("The file %1 cannot be written: %2. Nothing was written.")
                      .arg(xArchivo, rechazo));
}

} // namespace modDestino
