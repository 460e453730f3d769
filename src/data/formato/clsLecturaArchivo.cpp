#include "data/formato/clsLecturaArchivo.h"

#include "common/modMemoria.h"
#include "data/formato/clsArchivoPDB.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

constexpr qint64 NanoPorMili = 1000000;
constexpr qint64 MiliPorSegundo = 1000;

#ifdef Q_OS_LINUX
qint64 Nanos(const timespec& xTiempo) {
    return qint64(xTiempo.tv_sec) * 1000000000 + xTiempo.tv_nsec;
}

EstadoArchivo DeStat(const struct stat& xDatos) {
    if (!S_ISREG(xDatos.st_mode)) return {};
    return {true,
            qint64(xDatos.st_size),
            Nanos(xDatos.st_mtim),
            Nanos(xDatos.st_ctim),
            quint64(xDatos.st_ino),
            quint64(xDatos.st_dev)};
}
#else
EstadoArchivo DeInfo(const QFileInfo& xInfo) {
    if (!xInfo.isFile()) return {};
    return {true,
            xInfo.size(),
            xInfo.lastModified().toMSecsSinceEpoch() * NanoPorMili,
            xInfo.metadataChangeTime().toMSecsSinceEpoch() * NanoPorMili,
            0,
            0};
}
#endif

} // namespace

bool EstadoArchivo::Seguro(qint64 xMomento) const {
    const qint64 segundo = (xMomento / MiliPorSegundo) * MiliPorSegundo * NanoPorMili;
    return Modificado < segundo && Cambiado < segundo;
}

qint64 clsLecturaArchivo::Ahora() {
    return QDateTime::currentMSecsSinceEpoch();
}

#ifdef Q_OS_LINUX

// Only a regular file is opened, and without waiting: a FIFO or a device named like a database
// would otherwise block the open (or the first read) for as long as nobody writes to it. The
// look before the open spares devices the open; the non-blocking open covers a file replaced by
// one in between.
clsLecturaArchivo::clsLecturaArchivo(const QString& xRuta) : mMomento(Ahora()) {
    const QByteArray ruta = QFile::encodeName(xRuta);
    struct stat datos;
    if (::stat(ruta.constData(), &datos) == 0 && !S_ISREG(datos.st_mode)) {
        mError = QStringLiteral("not a regular file");
        return;
    }
    mDescriptor = ::open(ruta.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (mDescriptor < 0 || ::fstat(mDescriptor, &datos) != 0) {
        mError = QString::fromLocal8Bit(std::strerror(errno));
        return;
    }
    mEstado = DeStat(datos);
    if (!mEstado.Existe) {
        mError = QStringLiteral("not a regular file");
        return;
    }
    mAbierto = true;
}

clsLecturaArchivo::~clsLecturaArchivo() {
    if (mDescriptor >= 0) ::close(mDescriptor);
}

bool clsLecturaArchivo::Leer(qint64 xDesde, qint64 xCantidad, QByteArray& xBytes) {
    if (!mAbierto) return false;
    const qsizetype antes = xBytes.size();
    xBytes.resize(antes + xCantidad);
    modMemoria::Preparar(xBytes.data() + antes, xCantidad);
    qint64 leidos = 0;
    while (leidos < xCantidad) {
        const ssize_t parte = ::pread(mDescriptor, xBytes.data() + antes + leidos,
                                      size_t(xCantidad - leidos), off_t(xDesde + leidos));
        if (parte < 0 && errno == EINTR) continue;
        if (parte < 0) {
            mError = QString::fromLocal8Bit(std::strerror(errno));
            xBytes.resize(antes);
            return false;
        }
        if (parte == 0) break;
        leidos += parte;
    }
    xBytes.resize(antes + leidos);
    return true;
}

EstadoArchivo clsLecturaArchivo::EstadoDe(const QString& xRuta) {
    struct stat datos;
    if (::stat(QFile::encodeName(xRuta).constData(), &datos) != 0) return {};
    return DeStat(datos);
}

#else

clsLecturaArchivo::clsLecturaArchivo(const QString& xRuta)
    : mMomento(Ahora()), mArchivo(new QFile(xRuta)) {
    mEstado = DeInfo(QFileInfo(xRuta));
    if (!mEstado.Existe) {
        mError = QStringLiteral("not a regular file");
        return;
    }
    if (!mArchivo->open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        mError = mArchivo->errorString();
        return;
    }
    mAbierto = true;
}

clsLecturaArchivo::~clsLecturaArchivo() {
    delete mArchivo;
}

bool clsLecturaArchivo::Leer(qint64 xDesde, qint64 xCantidad, QByteArray& xBytes) {
    if (!mAbierto) return false;
    if (!mArchivo->seek(xDesde)) {
        mError = mArchivo->errorString();
        return false;
    }
    const qsizetype antes = xBytes.size();
    xBytes.resize(antes + xCantidad);
    const qint64 leidos = mArchivo->read(xBytes.data() + antes, xCantidad);
    if (leidos < 0) {
        mError = mArchivo->errorString();
        xBytes.resize(antes);
        return false;
    }
    xBytes.resize(antes + leidos);
    return true;
}

EstadoArchivo clsLecturaArchivo::EstadoDe(const QString& xRuta) {
    return DeInfo(QFileInfo(xRuta));
}

#endif

bool clsLecturaArchivo::LeerTodo(QByteArray& xBytes) {
    xBytes.clear();
    if (mEstado.Tamano > clsArchivoPDB::TamanoMaximo) {
        mError = clsArchivoPDB::TextoDemasiadoGrande(mEstado.Tamano);
        return false;
    }
    return Leer(0, mEstado.Tamano, xBytes);
}
