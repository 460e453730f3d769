#include "data/clsArchivoZip.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <cstdio>
#include <zip.h>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

QString TextoError(zip_error_t* xError) {
    return QString::fromLocal8Bit(zip_error_strerror(xError));
}

QString TextoError(int xCodigo) {
    zip_error_t error;
    zip_error_init_with_code(&error, xCodigo);
    const QString texto = TextoError(&error);
    zip_error_fini(&error);
    return texto;
}

// Copies the file at xOrigen into the open xDestino, piece by piece.
bool Copiar(const QString& xOrigen, QFile& xDestino, QString& xError) {
    QFile origen(xOrigen);
    if (!origen.open(QIODevice::ReadOnly)) {
        xError = origen.errorString();
        return false;
    }
    constexpr qint64 Pedazo = 1024 * 1024;
    while (!origen.atEnd()) {
        const QByteArray pedazo = origen.read(Pedazo);
        if (pedazo.isEmpty() && origen.error() != QFileDevice::NoError) {
            xError = origen.errorString();
            return false;
        }
        if (xDestino.write(pedazo) != pedazo.size()) {
            xError = xDestino.errorString();
            return false;
        }
    }
    return xDestino.flush();
}

// Puts the file's bytes on the disk before it is renamed over the archive.
bool Asentar(const QString& xRuta) {
#ifdef Q_OS_UNIX
    const int descriptor = ::open(QFile::encodeName(xRuta).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return false;
    const bool hecho = ::fsync(descriptor) == 0;
    ::close(descriptor);
    return hecho;
#else
    return QFileInfo::exists(xRuta);
#endif
}

} // namespace

clsArchivoZip::clsArchivoZip(const QString& xRuta) {
    int codigo = 0;
    mZip = zip_open(QFile::encodeName(xRuta).constData(), ZIP_RDONLY, &codigo);
    if (!mZip) {
        mError = TextoError(codigo);
        return;
    }
    const zip_int64_t cantidad = zip_get_num_entries(mZip, 0);
    mEntradas.reserve(static_cast<qsizetype>(qMax<zip_int64_t>(cantidad, 0)));
    for (zip_int64_t i = 0; i < cantidad; ++i) {
        zip_stat_t datos;
        if (zip_stat_index(mZip, zip_uint64_t(i), 0, &datos) != 0 || !(datos.valid & ZIP_STAT_NAME))
            continue;
        EntradaZip entrada;
        entrada.Indice = i;
        entrada.Nombre = QString::fromUtf8(datos.name);
        entrada.Carpeta = entrada.Nombre.endsWith(QLatin1Char('/'));
        entrada.Tamano = (datos.valid & ZIP_STAT_SIZE) ? qint64(datos.size) : 0;
        entrada.TamanoComprimido = (datos.valid & ZIP_STAT_COMP_SIZE) ? qint64(datos.comp_size) : 0;
        entrada.Crc = (datos.valid & ZIP_STAT_CRC) ? datos.crc : 0;
        entrada.Modificado = (datos.valid & ZIP_STAT_MTIME) ? qint64(datos.mtime) : 0;
        entrada.Cifrada =
            (datos.valid & ZIP_STAT_ENCRYPTION_METHOD) && datos.encryption_method != ZIP_EM_NONE;
        mEntradas.append(entrada);
    }
}

clsArchivoZip::~clsArchivoZip() {
    if (mZip) zip_discard(mZip);
}

bool clsArchivoZip::Leer(const EntradaZip& xEntrada, qint64 xMaximo, QByteArray& xBytes) {
    xBytes.clear();
    if (!mZip) return false;
    zip_file_t* archivo = zip_fopen_index(mZip, zip_uint64_t(xEntrada.Indice), 0);
    if (!archivo) {
        mError = TextoError(zip_get_error(mZip));
        zip_error_clear(mZip);
        return false;
    }
    const bool todo = xMaximo < 0 || xMaximo >= xEntrada.Tamano;
    const qint64 cantidad = todo ? xEntrada.Tamano : xMaximo;
    xBytes.resize(cantidad);
    qint64 leidos = 0;
    while (leidos < cantidad) {
        const zip_int64_t parte =
            zip_fread(archivo, xBytes.data() + leidos, zip_uint64_t(cantidad - leidos));
        if (parte <= 0) break;
        leidos += parte;
    }
    // Reading on to the end is what makes libzip check the entry's checksum.
    char mas = 0;
    const bool correcto = leidos == cantidad && (!todo || zip_fread(archivo, &mas, 1) == 0);
    if (!correcto)
        mError = leidos < cantidad ? QStringLiteral("it is shorter than the archive says")
                                   : TextoError(zip_file_get_error(archivo));
    zip_fclose(archivo);
    if (!correcto) xBytes.clear();
    return correcto;
}

bool clsArchivoZip::Reemplazar(const QString& xRuta, const QString& xEntrada,
                               const QByteArray& xBytes, QString& xError) {
    const QFileInfo info(xRuta);
    QTemporaryFile temporal(info.absolutePath() + QStringLiteral("/.") + info.fileName() +
                            QStringLiteral(".XXXXXX"));
    if (!temporal.open() || !Copiar(xRuta, temporal, xError)) {
        if (xError.isEmpty()) xError = temporal.errorString();
        return false;
    }
    temporal.close();
    const QString ruta = temporal.fileName();
    int codigo = 0;
    zip_t* zip = zip_open(QFile::encodeName(ruta).constData(), 0, &codigo);
    if (!zip) {
        xError = TextoError(codigo);
        return false;
    }
    const zip_int64_t indice = zip_name_locate(zip, xEntrada.toUtf8().constData(), 0);
    zip_source_t* fuente =
        indice < 0 ? nullptr
                   : zip_source_buffer(zip, xBytes.constData(), zip_uint64_t(xBytes.size()), 0);
    if (!fuente || zip_file_replace(zip, zip_uint64_t(indice), fuente, 0) != 0) {
        xError = indice < 0 ? QStringLiteral("the archive no longer holds %1").arg(xEntrada)
                            : TextoError(zip_get_error(zip));
        if (fuente) zip_source_free(fuente);
        zip_discard(zip);
        return false;
    }
    // Unchanged entries are copied as they are; only the replaced one is compressed anew.
    if (zip_close(zip) != 0) {
        xError = TextoError(zip_get_error(zip));
        zip_discard(zip);
        return false;
    }
    QFile::setPermissions(ruta, info.permissions());
    if (!Asentar(ruta) || std::rename(QFile::encodeName(ruta).constData(),
                                      QFile::encodeName(xRuta).constData()) != 0) {
        xError = QStringLiteral("the new archive cannot be put in place");
        return false;
    }
    temporal.setAutoRemove(false);
    return true;
}
