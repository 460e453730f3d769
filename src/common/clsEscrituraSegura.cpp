#include "common/clsEscrituraSegura.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

clsEscrituraSegura::clsEscrituraSegura(const QString& xArchivo) : mArchivo(xArchivo) {
    // No other program sees the file before it is whole.
    mArchivo.setDirectWriteFallback(false);
}

// Called right after the failure, while errno still holds the system's reason.
bool clsEscrituraSegura::Fallar() {
    const int numero = errno;
    const QFileDevice::FileError error = mArchivo.error();
    const bool escritura = error == QFileDevice::WriteError || error == QFileDevice::ResourceError;
    if (mError.isEmpty())
        mError = escritura && numero != 0 ? QString::fromLocal8Bit(std::strerror(numero))
                                          : mArchivo.errorString();
    mArchivo.cancelWriting();
    return false;
}

bool clsEscrituraSegura::Abrir() {
    return mArchivo.open(QIODevice::WriteOnly) || Fallar();
}

bool clsEscrituraSegura::Escribir(QByteArrayView xBytes) {
    if (!mError.isEmpty()) return false;
    errno = 0;
    if (mArchivo.write(xBytes.data(), xBytes.size()) != xBytes.size() || !mArchivo.flush())
        return Fallar();
    return true;
}

bool clsEscrituraSegura::Terminar() {
    if (!mError.isEmpty()) return false;
    errno = 0;
    // What a writer of its own left in the buffer goes out here; past this the file is put in
    // place whatever a flush said.
    if (mArchivo.error() != QFileDevice::NoError || !mArchivo.flush()) return Fallar();
    if (mArchivo.commit()) return true;
    mError = mArchivo.errorString();
    return false;
}

bool clsEscrituraSegura::PonerEnLugar(const QString& xHecho, const QString& xArchivo,
                                      QString& xError) {
    const QByteArray hecho = QFile::encodeName(xHecho);
    errno = 0;
#ifdef Q_OS_UNIX
    const int descriptor = ::open(hecho.constData(), O_RDONLY | O_CLOEXEC);
    bool asentado = descriptor >= 0 && ::fsync(descriptor) == 0;
    if (descriptor >= 0) ::close(descriptor);
#else
    bool asentado = QFile::exists(xHecho);
#endif
    if (asentado && std::rename(hecho.constData(), QFile::encodeName(xArchivo).constData()) == 0)
        return true;
    xError = QString::fromLocal8Bit(std::strerror(errno));
    return false;
}
