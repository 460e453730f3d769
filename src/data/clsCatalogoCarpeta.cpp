#include "data/clsCatalogoCarpeta.h"

#include "common/ErrorVB.h"
#include "data/clsFuentePalm.h"
#include "data/clsLectorBytes.h"
#include "data/modFuncionesConversion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStringDecoder>
#include <QtEndian>
#include <algorithm>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#endif

namespace {

const QString CodigoPaginaPredeterminado = QStringLiteral("windows-1252");

// Most headers and entry lists of a folder's files fit in one read of this size.
constexpr qint64 PrimeraLectura = 4096;

} // namespace

// One look at a file: whether it is there, its size and its modification time as an opaque count
// that is only ever compared with another. On Linux it is one stat call: a date in local time
// would cost a time-zone lookup per file, which dominates the listing of a large folder.
clsCatalogoCarpeta::EstadoArchivo clsCatalogoCarpeta::Estado(const QString& xRuta) {
#ifdef Q_OS_LINUX
    struct stat datos;
    if (::stat(QFile::encodeName(xRuta).constData(), &datos) != 0 || !S_ISREG(datos.st_mode))
        return {};
    return {true, static_cast<qint64>(datos.st_size),
            static_cast<qint64>(datos.st_mtim.tv_sec) * 1000000000 + datos.st_mtim.tv_nsec};
#else
    const QFileInfo info(xRuta);
    if (!info.isFile()) return {};
    return {true, info.size(), info.lastModified().toMSecsSinceEpoch()};
#endif
}

namespace {} // namespace

clsCatalogoCarpeta::clsCatalogoCarpeta(const QString& xCarpeta)
    : mCarpeta(QDir(xCarpeta).absolutePath()), mCodigoPagina(CodigoPaginaPredeterminado) {
    const QString ini = QDir(mCarpeta).filePath(QStringLiteral("Handheld.ini"));
    if (!QFileInfo::exists(ini)) return;
    const QSettings ajustes(ini, QSettings::IniFormat);
    const QString pedido = ajustes.value(QStringLiteral("Handheld/Encoding")).toString().trimmed();
    if (pedido.isEmpty()) return;
    if (QStringDecoder(pedido.toLatin1().constData()).isValid())
        mCodigoPagina = pedido;
    else
        mAvisoCodigoPagina = QStringLiteral("Handheld.ini names the code page \"%1\", which is "
                                            "unknown; %2 is used instead.")
                                 .arg(pedido, CodigoPaginaPredeterminado);
}

QString clsCatalogoCarpeta::Decodificar(QByteArrayView xTexto) const {
    QStringDecoder decodificador(mCodigoPagina.toLatin1().constData());
    return decodificador.decode(xTexto);
}

QStringList clsCatalogoCarpeta::Avisos() const {
    QStringList avisos = mAvisos;
    if (!mAvisoCodigoPagina.isEmpty()) avisos.prepend(mAvisoCodigoPagina);
    return avisos;
}

QDateTime clsCatalogoCarpeta::FechaPalm(quint32 xSegundos) {
    QByteArray campo(4, Qt::Uninitialized);
    qToBigEndian(xSegundos, campo.data());
    qint32 posicion = 0;
    return modFuncionesConversion::LeerFecha(campo, posicion);
}

quint32 clsCatalogoCarpeta::SegundosPalm(const QDateTime& xFecha) {
    QByteArray campo(4, '\0');
    qint32 posicion = 0;
    modFuncionesConversion::EscribirFecha(campo, posicion, xFecha);
    return qFromBigEndian<quint32>(campo.constData());
}

void clsCatalogoCarpeta::ComprobarCarpeta() const {
    const QFileInfo carpeta(mCarpeta);
    if (carpeta.isDir() && carpeta.isReadable()) return;
    throw ErrorVB(ErroresFuente::HandheldInaccesible, QStringLiteral("Handheld"),
                  carpeta.exists()
                      ? QStringLiteral("The handheld folder \"%1\" cannot be read.").arg(mCarpeta)
                      : QStringLiteral("The handheld folder \"%1\" does not exist.").arg(mCarpeta));
}

clsCatalogoCarpeta::Lectura clsCatalogoCarpeta::Leer(const QString& xRuta,
                                                     const EstadoArchivo& xEstado) {
    Lectura lectura;
    lectura.Tamano = xEstado.Tamano;
    lectura.Modificado = xEstado.Marca;
    QFile archivo(xRuta);
    if (!archivo.open(QIODevice::ReadOnly)) {
        lectura.Motivo = QStringLiteral("it cannot be read (%1)").arg(archivo.errorString());
        return lectura;
    }
    QByteArray inicio = archivo.read(PrimeraLectura);
    QByteArrayView campoNombre = QByteArrayView(inicio).first(qMin<qsizetype>(inicio.size(), 32));
    clsLectorBytes lectorNombre(campoNombre);
    QByteArrayView nombre;
    if (lectorNombre.LeerTextoTerminado(nombre)) lectura.NombreLeido = Decodificar(nombre);
    try {
        const qint64 indice = clsArchivoPDB::TamanoIndice(inicio);
        if (indice > inicio.size() && indice <= lectura.Tamano)
            inicio += archivo.read(indice - inicio.size());
        const DisposicionPDB disposicion = clsArchivoPDB::Analizar(inicio, lectura.Tamano, true);
        lectura.Ficha = {xRuta,          lectura.NombreLeido, disposicion, disposicion.Entradas,
                         lectura.Tamano, lectura.Modificado};
        lectura.Valida = true;
    } catch (const ErrorFormatoPDB& error) {
        lectura.Motivo = QString::fromStdString(error.what());
    }
    return lectura;
}

const clsCatalogoCarpeta::Lectura& clsCatalogoCarpeta::LeerConCache(const QString& xArchivo,
                                                                    const EstadoArchivo& xEstado) {
    auto encontrada = mCache.find(xArchivo);
    if (encontrada != mCache.end() && encontrada->Tamano == xEstado.Tamano &&
        encontrada->Modificado == xEstado.Marca)
        return *encontrada;
    return *mCache.insert(xArchivo, Leer(QDir(mCarpeta).filePath(xArchivo), xEstado));
}

void clsCatalogoCarpeta::Actualizar() {
    ComprobarCarpeta();
    // Name filters match without regard to case: MemoDB.PDB is a database too.
    QStringList archivos = QDir(mCarpeta).entryList(
        {QStringLiteral("*.pdb"), QStringLiteral("*.prc")}, QDir::Files, QDir::Unsorted);
    std::sort(archivos.begin(), archivos.end());

    QVector<FichaBaseCarpeta> bases;
    bases.reserve(archivos.size());
    QHash<QString, qsizetype> porNombre;
    QHash<QString, QString> rechazadas;
    QStringList avisos;
    const QString prefijo = mCarpeta + QLatin1Char('/');
    for (const QString& archivo : archivos) {
        const EstadoArchivo estado = Estado(prefijo + archivo);
        if (!estado.Existe) continue; // gone since the folder was listed
        const Lectura& lectura = LeerConCache(archivo, estado);
        if (!lectura.Valida) {
            avisos.append(QStringLiteral("%1 is not a Palm database and was left out: %2.")
                              .arg(archivo, lectura.Motivo));
            if (!lectura.NombreLeido.isEmpty() && !rechazadas.contains(lectura.NombreLeido))
                rechazadas.insert(lectura.NombreLeido, lectura.Motivo);
            continue;
        }
        const auto previa = porNombre.constFind(lectura.Ficha.Nombre);
        if (previa != porNombre.constEnd()) {
            avisos.append(QStringLiteral("%1 holds the database \"%2\" too and was left out; "
                                         "%3 is used.")
                              .arg(archivo, lectura.Ficha.Nombre,
                                   QFileInfo(bases[*previa].Archivo).fileName()));
            continue;
        }
        porNombre.insert(lectura.Ficha.Nombre, bases.size());
        bases.append(lectura.Ficha);
    }
    if (mCache.size() > archivos.size()) {
        // Forget the files that are gone.
        const QSet<QString> presentes(archivos.cbegin(), archivos.cend());
        mCache.removeIf([&presentes](const auto& x) { return !presentes.contains(x.key()); });
    }
    mBases = std::move(bases);
    mPorNombre = std::move(porNombre);
    mRechazadas = std::move(rechazadas);
    mAvisos = std::move(avisos);
    mLeida = true;
}

const QVector<FichaBaseCarpeta>& clsCatalogoCarpeta::Bases() {
    if (!mLeida) Actualizar();
    return mBases;
}

bool clsCatalogoCarpeta::Buscado(const QString& xNombre, FichaBaseCarpeta& xFicha) {
    const auto encontrada = mPorNombre.constFind(xNombre);
    if (encontrada == mPorNombre.constEnd()) return false;
    const FichaBaseCarpeta& ficha = mBases[*encontrada];
    const EstadoArchivo estado = Estado(ficha.Archivo);
    if (!estado.Existe || estado.Tamano != ficha.Tamano || estado.Marca != ficha.Modificado)
        return false;
    xFicha = ficha;
    return true;
}

FichaBaseCarpeta clsCatalogoCarpeta::Buscar(const QString& xNombre, const QString& xOperacion) {
    FichaBaseCarpeta ficha;
    if (mLeida && Buscado(xNombre, ficha)) return ficha;
    // Unknown or changed since the folder was read: the folder may have changed too.
    const auto conocida = mPorNombre.constFind(xNombre);
    const QString archivoConocido =
        conocida == mPorNombre.constEnd() ? QString() : mBases[*conocida].Archivo;
    Actualizar();
    if (Buscado(xNombre, ficha)) return ficha;
    if (!archivoConocido.isEmpty() && !mRechazadas.contains(xNombre))
        throw ErrorVB(ErroresFuente::BaseEnUso, xOperacion,
                      QStringLiteral("The database \"%1\" cannot be opened: its file %2 is no "
                                     "longer in the handheld folder.")
                          .arg(xNombre, QFileInfo(archivoConocido).fileName()));
    const auto rechazada = mRechazadas.constFind(xNombre);
    if (rechazada != mRechazadas.constEnd())
        throw ErrorVB(
            ErroresFuente::BaseEnUso, xOperacion,
            QStringLiteral("The database \"%1\" cannot be opened: %2.").arg(xNombre, *rechazada));
    throw ErrorVB(ErroresFuente::BaseNoEncontrada, xOperacion,
                  QStringLiteral("The database \"%1\" is not on the handheld.").arg(xNombre));
}

FichaBaseCarpeta clsCatalogoCarpeta::Refrescar(const FichaBaseCarpeta& xFicha) {
    const EstadoArchivo estado = Estado(xFicha.Archivo);
    if (!estado.Existe || (estado.Tamano == xFicha.Tamano && estado.Marca == xFicha.Modificado))
        return xFicha;
    const Lectura& lectura = LeerConCache(QFileInfo(xFicha.Archivo).fileName(), estado);
    if (!lectura.Valida || lectura.Ficha.Nombre != xFicha.Nombre) return xFicha;
    return lectura.Ficha;
}
