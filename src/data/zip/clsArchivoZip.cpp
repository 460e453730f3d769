#include "data/zip/clsArchivoZip.h"

#include "common/clsEscrituraSegura.h"
#include "common/modFunciones.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <cerrno>
#include <cstring>
#include <zip.h>

#ifdef Q_OS_UNIX
#include <signal.h>
#endif

namespace {

// libzip is loaded the first time an archive is opened, so that a handheld kept in a folder (the
// usual case) starts without it and the compression and cryptography libraries it brings.
struct FuncionesZip {
    decltype(&zip_open) Abrir = nullptr;
    decltype(&zip_close) Cerrar = nullptr;
    decltype(&zip_discard) Descartar = nullptr;
    decltype(&zip_get_num_entries) CantidadEntradas = nullptr;
    decltype(&zip_stat_index) DatosEntrada = nullptr;
    decltype(&zip_name_locate) BuscarNombre = nullptr;
    decltype(&zip_fopen_index) AbrirEntrada = nullptr;
    decltype(&zip_fread) LeerEntrada = nullptr;
    decltype(&zip_fclose) CerrarEntrada = nullptr;
    decltype(&zip_source_buffer) FuenteMemoria = nullptr;
    decltype(&zip_source_free) LiberarFuente = nullptr;
    decltype(&zip_file_replace) ReemplazarEntrada = nullptr;
    decltype(&zip_get_error) ErrorArchivo = nullptr;
    decltype(&zip_file_get_error) ErrorEntrada = nullptr;
    decltype(&zip_error_clear) LimpiarError = nullptr;
    decltype(&zip_error_init_with_code) ErrorDeCodigo = nullptr;
    decltype(&zip_error_strerror) TextoDeError = nullptr;
    decltype(&zip_error_fini) TerminarError = nullptr;
    QString Falta; // why the library could not be loaded; empty once it is
};

template <typename Funcion>
void Resolver(QLibrary& xBiblioteca, Funcion& xFuncion, const char* xNombre, QString& xFalta) {
    xFuncion = reinterpret_cast<Funcion>(xBiblioteca.resolve(xNombre));
    if (!xFuncion && xFalta.isEmpty())
        xFalta = QStringLiteral("%1 has no %2").arg(xBiblioteca.fileName(), QLatin1String(xNombre));
}

FuncionesZip Cargar() {
    FuncionesZip zip;
    // It stays loaded for the life of the program.
    QLibrary biblioteca(QStringLiteral(PANDREL_LIBZIP));
    if (!biblioteca.load()) {
        zip.Falta = QStringLiteral("zip archives cannot be read: %1").arg(biblioteca.errorString());
        return zip;
    }
    Resolver(biblioteca, zip.Abrir, "zip_open", zip.Falta);
    Resolver(biblioteca, zip.Cerrar, "zip_close", zip.Falta);
    Resolver(biblioteca, zip.Descartar, "zip_discard", zip.Falta);
    Resolver(biblioteca, zip.CantidadEntradas, "zip_get_num_entries", zip.Falta);
    Resolver(biblioteca, zip.DatosEntrada, "zip_stat_index", zip.Falta);
    Resolver(biblioteca, zip.BuscarNombre, "zip_name_locate", zip.Falta);
    Resolver(biblioteca, zip.AbrirEntrada, "zip_fopen_index", zip.Falta);
    Resolver(biblioteca, zip.LeerEntrada, "zip_fread", zip.Falta);
    Resolver(biblioteca, zip.CerrarEntrada, "zip_fclose", zip.Falta);
    Resolver(biblioteca, zip.FuenteMemoria, "zip_source_buffer", zip.Falta);
    Resolver(biblioteca, zip.LiberarFuente, "zip_source_free", zip.Falta);
    Resolver(biblioteca, zip.ReemplazarEntrada, "zip_file_replace", zip.Falta);
    Resolver(biblioteca, zip.ErrorArchivo, "zip_get_error", zip.Falta);
    Resolver(biblioteca, zip.ErrorEntrada, "zip_file_get_error", zip.Falta);
    Resolver(biblioteca, zip.LimpiarError, "zip_error_clear", zip.Falta);
    Resolver(biblioteca, zip.ErrorDeCodigo, "zip_error_init_with_code", zip.Falta);
    Resolver(biblioteca, zip.TextoDeError, "zip_error_strerror", zip.Falta);
    Resolver(biblioteca, zip.TerminarError, "zip_error_fini", zip.Falta);
    return zip;
}

const FuncionesZip& Zip() {
    static const FuncionesZip funciones = Cargar();
    return funciones;
}

QString TextoError(zip_error_t* xError) {
    return QString::fromLocal8Bit(Zip().TextoDeError(xError));
}

QString TextoError(int xCodigo) {
    zip_error_t error;
    Zip().ErrorDeCodigo(&error, xCodigo);
    const QString texto = TextoError(&error);
    Zip().TerminarError(&error);
    return texto;
}

// Why a file's reading or writing failed, called right after it while errno still holds the
// system's reason, which Qt loses when a write is cut short.
QString Motivo(const QFileDevice& xArchivo) {
    const int numero = errno;
    return numero != 0 ? QString::fromLocal8Bit(std::strerror(numero)) : xArchivo.errorString();
}

// Copies the file at xOrigen into the open xDestino, piece by piece.
bool Copiar(const QString& xOrigen, QFile& xDestino, QString& xError) {
    QFile origen(xOrigen);
    errno = 0;
    if (!origen.open(QIODevice::ReadOnly)) {
        xError = Motivo(origen);
        return false;
    }
    constexpr qint64 Pedazo = 1024 * 1024;
    while (!origen.atEnd()) {
        errno = 0;
        const QByteArray pedazo = origen.read(Pedazo);
        if (pedazo.isEmpty() && origen.error() != QFileDevice::NoError) {
            xError = Motivo(origen);
            return false;
        }
        if (xDestino.write(pedazo) != pedazo.size() || !xDestino.flush()) {
            xError = Motivo(xDestino);
            return false;
        }
    }
    return true;
}

// The temporary files of a rewrite are named after the archive and the writing process
// (.NAME.zip.PID-XXXXXX, and libzip's own beside it with one more suffix), so that a rewrite
// killed half way leaves files the next one knows. Called under the archive's lock: those of a
// process that is gone are removed, and nothing else.
void QuitarTemporales(const QFileInfo& xArchivo) {
    const QString prefijo = QStringLiteral(".") + xArchivo.fileName() + QLatin1Char('.');
    static const QRegularExpression temporal(
        QStringLiteral("^(\\d+)-[A-Za-z0-9]{6}(?:\\.[A-Za-z0-9]{6})?$"));
    QDir carpeta = xArchivo.dir();
    for (const QString& nombre : carpeta.entryList(QDir::Files | QDir::Hidden | QDir::System)) {
        if (!nombre.startsWith(prefijo)) continue;
        const QRegularExpressionMatch partes = temporal.match(nombre.mid(prefijo.size()));
        if (!partes.hasMatch()) continue;
#ifdef Q_OS_UNIX
        const pid_t proceso = partes.captured(1).toInt();
        if (proceso > 0 && (::kill(proceso, 0) == 0 || errno == EPERM)) continue;
#endif
        carpeta.remove(nombre);
    }
}

} // namespace

clsArchivoZip::clsArchivoZip(const QString& xRuta) {
    if (!Zip().Falta.isEmpty()) {
        mError = Zip().Falta;
        return;
    }
    int codigo = 0;
    mZip = Zip().Abrir(QFile::encodeName(xRuta).constData(), ZIP_RDONLY, &codigo);
    if (!mZip) {
        mError = TextoError(codigo);
        return;
    }
    const zip_int64_t cantidad = Zip().CantidadEntradas(mZip, 0);
    mEntradas.reserve(static_cast<qsizetype>(qMax<zip_int64_t>(cantidad, 0)));
    for (zip_int64_t i = 0; i < cantidad; ++i) {
        zip_stat_t datos;
        if (Zip().DatosEntrada(mZip, zip_uint64_t(i), 0, &datos) != 0 ||
            !(datos.valid & ZIP_STAT_NAME))
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
    if (mZip) Zip().Descartar(mZip);
}

bool clsArchivoZip::Leer(const EntradaZip& xEntrada, qint64 xMaximo, QByteArray& xBytes) {
    xBytes.clear();
    if (!mZip) return false;
    zip_file_t* archivo = Zip().AbrirEntrada(mZip, zip_uint64_t(xEntrada.Indice), 0);
    if (!archivo) {
        mError = TextoError(Zip().ErrorArchivo(mZip));
        Zip().LimpiarError(mZip);
        return false;
    }
    const bool todo = xMaximo < 0 || xMaximo >= xEntrada.Tamano;
    const qint64 cantidad = todo ? xEntrada.Tamano : xMaximo;
    xBytes.resize(cantidad);
    qint64 leidos = 0;
    while (leidos < cantidad) {
        const zip_int64_t parte =
            Zip().LeerEntrada(archivo, xBytes.data() + leidos, zip_uint64_t(cantidad - leidos));
        if (parte <= 0) break;
        leidos += parte;
    }
    // Reading on to the end is what makes libzip check the entry's checksum; a byte found there
    // is one more than the entry claims.
    char mas = 0;
    const zip_int64_t sobra = leidos == cantidad && todo ? Zip().LeerEntrada(archivo, &mas, 1) : 0;
    const bool correcto = leidos == cantidad && sobra == 0;
    if (leidos < cantidad)
        mError = QStringLiteral("it is shorter than the archive says");
    else if (sobra > 0)
        mError = QStringLiteral("it is longer than the archive says");
    else if (!correcto)
        mError = TextoError(Zip().ErrorEntrada(archivo));
    Zip().CerrarEntrada(archivo);
    if (!correcto) xBytes.clear();
    return correcto;
}

bool clsArchivoZip::Reemplazar(const QString& xRuta, const QString& xEntrada,
                               const QByteArray& xBytes, QString& xError) {
    if (!Zip().Falta.isEmpty()) {
        xError = Zip().Falta;
        return false;
    }
    // An archive reached through a link is rewritten where the link leads.
    const QFileInfo info(modFunciones::DestinoFinal(xRuta));
    QuitarTemporales(info);
    QTemporaryFile temporal(info.absolutePath() + QStringLiteral("/.") + info.fileName() +
                            QStringLiteral(".%1-XXXXXX").arg(QCoreApplication::applicationPid()));
    errno = 0;
    if (!temporal.open()) {
        xError = Motivo(temporal);
        return false;
    }
    if (!Copiar(info.filePath(), temporal, xError)) return false;
    temporal.close();
    const QString ruta = temporal.fileName();
    int codigo = 0;
    zip_t* zip = Zip().Abrir(QFile::encodeName(ruta).constData(), 0, &codigo);
    if (!zip) {
        xError = TextoError(codigo);
        return false;
    }
    const zip_int64_t indice = Zip().BuscarNombre(zip, xEntrada.toUtf8().constData(), 0);
    zip_source_t* fuente =
        indice < 0 ? nullptr
                   : Zip().FuenteMemoria(zip, xBytes.constData(), zip_uint64_t(xBytes.size()), 0);
    if (!fuente || Zip().ReemplazarEntrada(zip, zip_uint64_t(indice), fuente, 0) != 0) {
        xError = indice < 0 ? QStringLiteral("the archive no longer holds %1").arg(xEntrada)
                            : TextoError(Zip().ErrorArchivo(zip));
        if (fuente) Zip().LiberarFuente(fuente);
        Zip().Descartar(zip);
        return false;
    }
    // Unchanged entries are copied as they are; only the replaced one is compressed anew.
    if (Zip().Cerrar(zip) != 0) {
        xError = TextoError(Zip().ErrorArchivo(zip));
        Zip().Descartar(zip);
        return false;
    }
    QFile::setPermissions(ruta, info.permissions());
    QString motivo;
    if (!clsEscrituraSegura::PonerEnLugar(ruta, info.filePath(), motivo)) {
        xError = QStringLiteral("the new archive cannot be put in place (%1)").arg(motivo);
        return false;
    }
    temporal.setAutoRemove(false);
    return true;
}
