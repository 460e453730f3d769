#include "data/carpeta/clsCatalogoCarpeta.h"

#include "common/ErrorVB.h"
#include "data/carpeta/clsBaseAbiertaCarpeta.h"
#include "data/carpeta/modAjustesIni.h"
#include "data/clsFuentePalm.h"
#include "data/formato/clsLectorBytes.h"
#include "data/formato/modBasesEstandar.h"
#include "data/formato/modFuncionesConversion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QtEndian>
#include <algorithm>
#include <cstring>

#ifdef Q_OS_LINUX
#include <dirent.h>
#endif

namespace {

const QString CodigoPaginaPredeterminado = QStringLiteral("windows-1252");
// The page of a handheld made for Japan.
const QString CodigoPaginaJapon = QStringLiteral("windows-932");
const QString NombreIni = QStringLiteral("Handheld.ini");

// Most headers and entry lists of a folder's files fit in one read of this size.
constexpr qint64 PrimeraLectura = 4096;

// The country byte of an address book's AppInfo block, read alone; -1 for any other database
// or a block too short to hold one.
qint32 PaisDirecciones(const DisposicionPDB& xDisposicion,
                       const std::function<bool(qint64, qint64, QByteArray&, QString&)>& xLeer) {
    using namespace modBasesEstandar;
    if (xDisposicion.Creador != CreadorDirecciones || xDisposicion.Tipo != TipoDatos ||
        xDisposicion.AppInfo.Largo <= PosicionPais)
        return -1;
    QByteArray pais;
    QString error;
    if (!xLeer(qint64(xDisposicion.AppInfo.Desde) + PosicionPais, 1, pais, error) ||
        pais.size() != 1)
        return -1;
    return quint8(pais[0]);
}

#ifdef Q_OS_LINUX
// A name filter that matches without regard to case: MemoDB.PDB is a database too. Hidden files
// are left out.
bool EsBase(const char* xNombre) {
    const size_t largo = std::strlen(xNombre);
    if (largo < 5 || xNombre[0] == '.') return false;
    const char* extension = xNombre + largo - 4;
    return extension[0] == '.' &&
           (qstrnicmp(extension + 1, "pdb", 3) == 0 || qstrnicmp(extension + 1, "prc", 3) == 0);
}
#endif

} // namespace

clsCatalogoCarpeta::clsCatalogoCarpeta(const QString& xCarpeta, const QString& xCodigoPagina)
    : clsCatalogoCarpeta(QDir(xCarpeta).absolutePath(), xCodigoPagina,
                         xCodigoPagina.isEmpty()
                             ? modAjustesIni::LeerDeCarpeta(QDir(xCarpeta).absolutePath())
                             : modAjustesIni::Ajustes(),
                         DondeCarpeta(QDir(xCarpeta).absolutePath())) {}

clsCatalogoCarpeta::clsCatalogoCarpeta(const QString& xUbicacion, const QString& xCodigoPagina,
                                       const modAjustesIni::Ajustes& xIni, const QString& xDonde)
    : mCarpeta(xUbicacion), mCodigoPagina(CodigoPaginaPredeterminado) {
    // Without the page Handheld.ini names, every text of the handheld would be read, and written,
    // in another one.
    if (xCodigoPagina.isEmpty() && !xIni.Error.isEmpty())
        mErrorIni = modAjustesIni::TextoIlegible(xDonde, xIni.Error) +
                    QStringLiteral(" Without it the code page of the handheld's texts is unknown.");
    const QString pedido =
        xCodigoPagina.isEmpty()
            ? xIni.Valores.value(QStringLiteral("Handheld/Encoding")).toString().trimmed()
            : xCodigoPagina;
    if (!pedido.isEmpty() && modFuncionesConversion::TablaCodigoPagina::Conocida(pedido))
        mCodigoPagina = pedido;
    else if (!pedido.isEmpty())
        mAvisoCodigoPagina = QStringLiteral("Handheld.ini names the code page \"%1\", which is "
                                            "unknown; %2 is used instead.")
                                 .arg(pedido, CodigoPaginaPredeterminado);
    // Named by nothing, the page is told by the handheld's address book (a Handheld.ini that
    // cannot be read stops every reading first).
    mCodigoPorDecidir = pedido.isEmpty() && mErrorIni.isEmpty();
    UsarCodigoPagina(mCodigoPagina);
}

void clsCatalogoCarpeta::UsarCodigoPagina(const QString& xCodigoPagina) {
    mCodigoPagina = xCodigoPagina;
    // One decoder for every name: making one is dear, and each decoding stands alone.
    mDecodificador =
        QStringDecoder(mCodigoPagina.toLatin1().constData(), QStringDecoder::Flag::Stateless);
}

const QString& clsCatalogoCarpeta::CodigoPagina() {
    if (mCodigoPorDecidir) DecidirCodigoPagina();
    return mCodigoPagina;
}

// The first address book in file-name order tells. A handheld that cannot be read keeps the
// default: what reads it next reports why.
void clsCatalogoCarpeta::DecidirCodigoPagina() {
    mCodigoPorDecidir = false;
    try {
        Actualizar();
    } catch (const ErrorVB&) {
        return;
    }
    for (const FichaBaseCarpeta& ficha : mBases) {
        if (ficha.Pais < 0) continue;
        if (ficha.Pais != modBasesEstandar::PaisJapon) return;
        // The names were read in the default page: the folder is read again in this one.
        UsarCodigoPagina(CodigoPaginaJapon);
        mCache.clear();
        mLeida = false;
        return;
    }
}

QString clsCatalogoCarpeta::Decodificar(QByteArrayView xTexto) const {
    return mDecodificador.decode(xTexto);
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

QString clsCatalogoCarpeta::NombreHandheld() const {
    return QDir(mCarpeta).dirName();
}

EstadoArchivo clsCatalogoCarpeta::EstadoDe(const QString& xRuta) const {
    return clsLecturaArchivo::EstadoDe(xRuta);
}

std::unique_ptr<clsBaseAbierta> clsCatalogoCarpeta::AbrirBase(const FichaBaseCarpeta& xFicha,
                                                              const QString& xNombre,
                                                              ContenidoArchivo xContenido,
                                                              const QString& xOperacion) {
    return std::make_unique<clsBaseAbiertaCarpeta>(shared_from_this(), xFicha, xNombre,
                                                   std::move(xContenido), xOperacion);
}

QString clsCatalogoCarpeta::DondeCarpeta(const QString& xCarpeta) {
    return QStringLiteral("the handheld folder \"%1\"").arg(xCarpeta);
}

QString clsCatalogoCarpeta::Donde() const {
    return DondeCarpeta(mCarpeta);
}

bool clsCatalogoCarpeta::EsPropio(const QString& xArchivo) const {
    const QFileInfo archivo(xArchivo);
    const QString nombre = archivo.fileName();
    const QString extension = archivo.suffix();
    if (QDir(archivo.absolutePath()).canonicalPath() == QDir(mCarpeta).canonicalPath() &&
        (extension.compare(QLatin1String("pdb"), Qt::CaseInsensitive) == 0 ||
         extension.compare(QLatin1String("prc"), Qt::CaseInsensitive) == 0 ||
         extension.compare(QLatin1String("lock"), Qt::CaseInsensitive) == 0 ||
         nombre.compare(NombreIni, Qt::CaseInsensitive) == 0))
        return true;
    const QString canonico = archivo.canonicalFilePath();
    if (canonico.isEmpty()) return false;
    QStringList archivos;
    try {
        archivos = Archivos();
    } catch (const ErrorVB&) {
        return false; // a folder that cannot be read holds no file to spare
    }
    for (const QString& base : archivos)
        if (QFileInfo(mCarpeta + QLatin1Char('/') + base).canonicalFilePath() == canonico)
            return true;
    return false;
}

QVariantMap clsCatalogoCarpeta::Ajustes(const QString& xOperacion) {
    Actualizar(); // raises when the folder cannot be read
    return Valores(modAjustesIni::LeerDeCarpeta(mCarpeta), xOperacion);
}

QVariantMap clsCatalogoCarpeta::Valores(const modAjustesIni::Ajustes& xIni,
                                        const QString& xOperacion) const {
    if (!xIni.Error.isEmpty())
        throw ErrorVB(ErroresFuente::HandheldInaccesible, xOperacion,
                      modAjustesIni::TextoIlegible(Donde(), xIni.Error));
    return xIni.Valores;
}

void clsCatalogoCarpeta::ComprobarCarpeta() const {
    const QFileInfo carpeta(mCarpeta);
    if (carpeta.isDir() && carpeta.isReadable()) return;
    throw ErrorVB(ErroresFuente::HandheldInaccesible, QStringLiteral("Handheld"),
                  carpeta.exists()
                      ? QStringLiteral("The handheld folder \"%1\" cannot be read.").arg(mCarpeta)
                      : QStringLiteral("The handheld folder \"%1\" does not exist.").arg(mCarpeta));
}

// The names of the folder's .pdb and .prc files, sorted.
QStringList clsCatalogoCarpeta::Archivos() const {
    QStringList archivos;
#ifdef Q_OS_LINUX
    // Read straight from the directory: its entries say which are files, where a generic
    // listing would look at every file once more.
    DIR* carpeta = ::opendir(QFile::encodeName(mCarpeta).constData());
    if (!carpeta) ComprobarCarpeta();
    // Every entry named like a database is taken, whatever it is: one that is not a regular
    // file (a folder, a FIFO, a device) is reported when it is read.
    while (const dirent* entrada = carpeta ? ::readdir(carpeta) : nullptr) {
        if (EsBase(entrada->d_name)) archivos.append(QFile::decodeName(entrada->d_name));
    }
    if (carpeta) ::closedir(carpeta);
#else
    archivos = QDir(mCarpeta).entryList({QStringLiteral("*.pdb"), QStringLiteral("*.prc")},
                                        QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot,
                                        QDir::Unsorted);
#endif
    std::sort(archivos.begin(), archivos.end());
    return archivos;
}

clsCatalogoCarpeta::Lectura clsCatalogoCarpeta::Leer(const QString& xRuta) {
    Lectura lectura;
    clsLecturaArchivo archivo(xRuta);
    lectura.Momento = archivo.Momento();
    if (!archivo.Abierto()) {
        // Gone since the folder was listed: nothing to report. Otherwise something is there that
        // cannot be read or is not a regular file.
        lectura.Estado = clsLecturaArchivo::EstadoDe(xRuta);
        const QFileInfo info(xRuta);
        lectura.Presente = info.exists() || info.isSymLink();
        lectura.Motivo = QStringLiteral("it cannot be read (%1)").arg(archivo.Error());
        return lectura;
    }
    lectura.Estado = archivo.Estado();
    lectura.Presente = true;
    Interpretar(lectura, xRuta,
                [&archivo](qint64 xDesde, qint64 xCantidad, QByteArray& xBytes, QString& xError) {
                    if (archivo.Leer(xDesde, xCantidad, xBytes)) return true;
                    xError = archivo.Error();
                    return false;
                });
    return lectura;
}

void clsCatalogoCarpeta::Interpretar(Lectura& xLectura, const QString& xRuta,
                                     const LectorBytes& xLeer) {
    const qint64 tamano = xLectura.Estado.Tamano;
    QByteArray inicio;
    QString error;
    if (!xLeer(0, qMin(tamano, PrimeraLectura), inicio, error)) {
        xLectura.Motivo = QStringLiteral("it cannot be read (%1)").arg(error);
        return;
    }
    clsLectorBytes lectorNombre(QByteArrayView(inicio).first(qMin<qsizetype>(inicio.size(), 32)));
    QByteArrayView nombre;
    if (lectorNombre.LeerTextoTerminado(nombre)) xLectura.NombreLeido = Decodificar(nombre);
    if (tamano > clsArchivoPDB::TamanoMaximo) {
        xLectura.Motivo = clsArchivoPDB::TextoDemasiadoGrande(tamano);
        return;
    }
    try {
        const qint64 indice = clsArchivoPDB::TamanoIndice(inicio);
        if (indice > inicio.size() && indice <= tamano &&
            !xLeer(inicio.size(), indice - inicio.size(), inicio, error)) {
            xLectura.Motivo = QStringLiteral("it cannot be read (%1)").arg(error);
            return;
        }
        const DisposicionPDB disposicion = clsArchivoPDB::Analizar(inicio, tamano, true);
        xLectura.Ficha = {xRuta,  xLectura.NombreLeido, disposicion, disposicion.Entradas,
                          tamano, xLectura.Estado};
        xLectura.Ficha.Pais = PaisDirecciones(disposicion, xLeer);
        xLectura.Valida = true;
    } catch (const ErrorFormatoPDB& error) {
        xLectura.Motivo = QString::fromStdString(error.what());
    }
}

const clsCatalogoCarpeta::Lectura& clsCatalogoCarpeta::LeerConCache(const QString& xRuta) {
    const auto encontrada = mCache.constFind(xRuta);
    // The look at the file is spared when what was read cannot be proved by one.
    if (encontrada != mCache.constEnd() && encontrada->Estado.Seguro(encontrada->Momento) &&
        encontrada->Estado.SinCambios(EstadoDe(xRuta), encontrada->Momento))
        return *encontrada;
    return *mCache.insert(xRuta, Leer(xRuta));
}

void clsCatalogoCarpeta::Actualizar() {
    if (mCodigoPorDecidir) {
        // Deciding reads the folder, and reads it again in the page it decides on.
        DecidirCodigoPagina();
        if (mLeida) return;
    }
    ComprobarCarpeta();
    if (!mErrorIni.isEmpty())
        throw ErrorVB(ErroresFuente::HandheldInaccesible, QStringLiteral("Handheld"), mErrorIni);
    const QStringList archivos = Archivos();

    QVector<FichaBaseCarpeta> bases;
    bases.reserve(archivos.size());
    QHash<QString, qsizetype> porNombre;
    QHash<QString, QString> rechazadas;
    QStringList avisos = AvisosAlmacen();
    QSet<QString> presentes;
    presentes.reserve(archivos.size());
    mCache.reserve(archivos.size());
    const QString prefijo = mCarpeta + QLatin1Char('/');
    for (const QString& archivo : archivos) {
        const QString ruta = prefijo + archivo;
        presentes.insert(ruta);
        const Lectura& lectura = LeerConCache(ruta);
        if (!lectura.Presente) continue; // gone since the folder was listed
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
    // Forget the files that are gone.
    mCache.removeIf([&presentes](const auto& x) { return !presentes.contains(x.key()); });
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

void clsCatalogoCarpeta::Falta(const QString& xNombre, const QString& xArchivoConocido,
                               const QString& xOperacion) const {
    const auto rechazada = mRechazadas.constFind(xNombre);
    if (rechazada != mRechazadas.constEnd())
        throw ErrorVB(
            ErroresFuente::BaseEnUso, xOperacion,
            QStringLiteral("The database \"%1\" cannot be opened: %2.").arg(xNombre, *rechazada));
    if (!xArchivoConocido.isEmpty())
        throw ErrorVB(ErroresFuente::BaseEnUso, xOperacion,
                      QStringLiteral("The database \"%1\" cannot be opened: its file %2 is no "
                                     "longer on the handheld.")
                          .arg(xNombre, QFileInfo(xArchivoConocido).fileName()));
    throw ErrorVB(ErroresFuente::BaseNoEncontrada, xOperacion,
                  QStringLiteral("The database \"%1\" is not on the handheld.").arg(xNombre));
}

FichaBaseCarpeta clsCatalogoCarpeta::Buscar(const QString& xNombre, const QString& xOperacion) {
    const bool leida = mLeida;
    if (!leida) Actualizar();
    auto encontrada = mPorNombre.constFind(xNombre);
    if (encontrada != mPorNombre.constEnd()) return mBases[*encontrada];
    // Unknown: the folder may have changed since it was read.
    if (leida) {
        Actualizar();
        encontrada = mPorNombre.constFind(xNombre);
        if (encontrada != mPorNombre.constEnd()) return mBases[*encontrada];
    }
    Falta(xNombre, QString(), xOperacion);
}

bool clsCatalogoCarpeta::LeerContenido(const FichaBaseCarpeta& xFicha, ContenidoArchivo& xContenido,
                                       QString& xError) {
    clsLecturaArchivo archivo(xFicha.Archivo);
    xContenido.Estado = archivo.Estado();
    xContenido.Momento = archivo.Momento();
    if (archivo.LeerTodo(xContenido.Bytes)) return true;
    xError = archivo.Error();
    return false;
}

ContenidoArchivo clsCatalogoCarpeta::Contenido(const QString& xNombre, const QString& xOperacion,
                                               FichaBaseCarpeta& xFicha) {
    xFicha = Buscar(xNombre, xOperacion);
    ContenidoArchivo contenido;
    QString error;
    if (LeerContenido(xFicha, contenido, error) && contenido.Estado == xFicha.Estado)
        return contenido;
    // The file changed, went or cannot be read since the folder was read: the folder may have
    // changed too.
    const QString conocido = xFicha.Archivo;
    Actualizar();
    const auto encontrada = mPorNombre.constFind(xNombre);
    if (encontrada == mPorNombre.constEnd()) Falta(xNombre, conocido, xOperacion);
    xFicha = mBases[*encontrada];
    if (!LeerContenido(xFicha, contenido, error))
        throw ErrorVB(ErroresFuente::BaseEnUso, xOperacion,
                      QStringLiteral("The database \"%1\" cannot be opened: its file %2 cannot be "
                                     "read (%3).")
                          .arg(xNombre, QFileInfo(xFicha.Archivo).fileName(), error));
    return contenido;
}

FichaBaseCarpeta clsCatalogoCarpeta::Actual(const FichaBaseCarpeta& xFicha) const {
    const auto lectura = mCache.constFind(xFicha.Archivo);
    if (lectura == mCache.constEnd() || !lectura->Valida || lectura->Ficha.Nombre != xFicha.Nombre)
        return xFicha;
    return lectura->Ficha;
}

void clsCatalogoCarpeta::Anotar(const QString& xArchivo, const CabeceraPDB& xCabecera,
                                qint32 xEntradas, const ContenidoArchivo& xContenido) {
    Lectura lectura;
    lectura.Estado = xContenido.Estado;
    lectura.Momento = xContenido.Momento;
    lectura.Valida = true;
    lectura.Presente = true;
    lectura.NombreLeido = Decodificar(xCabecera.Nombre);
    lectura.Ficha = {xArchivo,  lectura.NombreLeido,     xCabecera,
                     xEntradas, xContenido.Bytes.size(), xContenido.Estado};
    // A write leaves the AppInfo block as it was.
    const auto anterior = mCache.constFind(xArchivo);
    if (anterior != mCache.constEnd()) lectura.Ficha.Pais = anterior->Ficha.Pais;
    const auto enLista = mPorNombre.constFind(lectura.NombreLeido);
    if (enLista != mPorNombre.constEnd() && mBases[*enLista].Archivo == xArchivo)
        mBases[*enLista] = lectura.Ficha;
    mCache.insert(xArchivo, std::move(lectura));
}
