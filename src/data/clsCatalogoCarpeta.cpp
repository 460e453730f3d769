#include "data/clsCatalogoCarpeta.h"

#include "common/ErrorVB.h"
#include "common/modFecha.h"
#include "data/clsFuentePalm.h"
#include "data/clsLectorBytes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStringDecoder>
#include <algorithm>

namespace {

const QString CodigoPaginaPredeterminado = QStringLiteral("windows-1252");

// Most headers and entry lists of a folder's files fit in one read of this size.
constexpr qint64 PrimeraLectura = 4096;

qint64 MilisegundosModificacion(const QFileInfo& xArchivo) {
    return xArchivo.lastModified().toMSecsSinceEpoch();
}

} // namespace

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
    return modFecha::Crear(1904, 1, 1).addSecs(xSegundos);
}

quint32 clsCatalogoCarpeta::SegundosPalm(const QDateTime& xFecha) {
    // The field holds the count as an unsigned 32-bit number; dates outside its range wrap, as
    // they do on a handheld.
    return static_cast<quint32>(modFecha::Crear(1904, 1, 1).secsTo(xFecha));
}

void clsCatalogoCarpeta::ComprobarCarpeta() const {
    const QFileInfo carpeta(mCarpeta);
    if (carpeta.isDir() && carpeta.isReadable()) return;
    throw ErrorVB(ErroresFuente::HandheldInaccesible, QStringLiteral("Handheld"),
                  carpeta.exists()
                      ? QStringLiteral("The handheld folder \"%1\" cannot be read.").arg(mCarpeta)
                      : QStringLiteral("The handheld folder \"%1\" does not exist.").arg(mCarpeta));
}

clsCatalogoCarpeta::Lectura clsCatalogoCarpeta::Leer(const QFileInfo& xArchivo) {
    Lectura lectura;
    lectura.Tamano = xArchivo.size();
    lectura.Modificado = MilisegundosModificacion(xArchivo);
    QFile archivo(xArchivo.absoluteFilePath());
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
        const DisposicionPDB disposicion = clsArchivoPDB::Analizar(inicio, lectura.Tamano);
        lectura.Ficha = {xArchivo.absoluteFilePath(),    lectura.NombreLeido, disposicion,
                         disposicion.CantidadEntradas(), lectura.Tamano,      lectura.Modificado};
        lectura.Valida = true;
    } catch (const ErrorFormatoPDB& error) {
        lectura.Motivo = QString::fromStdString(error.what());
    }
    return lectura;
}

const clsCatalogoCarpeta::Lectura& clsCatalogoCarpeta::LeerConCache(const QFileInfo& xArchivo) {
    auto encontrada = mCache.find(xArchivo.fileName());
    if (encontrada != mCache.end() && encontrada->Tamano == xArchivo.size() &&
        encontrada->Modificado == MilisegundosModificacion(xArchivo))
        return *encontrada;
    return *mCache.insert(xArchivo.fileName(), Leer(xArchivo));
}

void clsCatalogoCarpeta::Actualizar() {
    ComprobarCarpeta();
    QDir carpeta(mCarpeta);
    // Name filters match without regard to case: MemoDB.PDB is a database too.
    QFileInfoList archivos = QDir(mCarpeta).entryInfoList(
        {QStringLiteral("*.pdb"), QStringLiteral("*.prc")}, QDir::Files, QDir::Unsorted);
    std::sort(archivos.begin(), archivos.end(),
              [](const QFileInfo& a, const QFileInfo& b) { return a.fileName() < b.fileName(); });

    QVector<FichaBaseCarpeta> bases;
    QHash<QString, qsizetype> porNombre;
    QHash<QString, QString> rechazadas;
    QStringList avisos;
    QHash<QString, Lectura> cache;
    for (const QFileInfo& archivo : archivos) {
        const Lectura& lectura = LeerConCache(archivo);
        cache.insert(archivo.fileName(), lectura);
        if (!lectura.Valida) {
            avisos.append(QStringLiteral("%1 is not a Palm database and was left out: %2.")
                              .arg(archivo.fileName(), lectura.Motivo));
            if (!lectura.NombreLeido.isEmpty() && !rechazadas.contains(lectura.NombreLeido))
                rechazadas.insert(lectura.NombreLeido, lectura.Motivo);
            continue;
        }
        const auto previa = porNombre.constFind(lectura.Ficha.Nombre);
        if (previa != porNombre.constEnd()) {
            avisos.append(QStringLiteral("%1 holds the database \"%2\" too and was left out; "
                                         "%3 is used.")
                              .arg(archivo.fileName(), lectura.Ficha.Nombre,
                                   QFileInfo(bases[*previa].Archivo).fileName()));
            continue;
        }
        porNombre.insert(lectura.Ficha.Nombre, bases.size());
        bases.append(lectura.Ficha);
    }
    mCache = std::move(cache); // forget files that are gone
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
    const QFileInfo archivo(ficha.Archivo);
    if (!archivo.exists() || archivo.size() != ficha.Tamano ||
        MilisegundosModificacion(archivo) != ficha.Modificado)
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
    const QFileInfo archivo(xFicha.Archivo);
    if (!archivo.exists() ||
        (archivo.size() == xFicha.Tamano && MilisegundosModificacion(archivo) == xFicha.Modificado))
        return xFicha;
    const Lectura& lectura = LeerConCache(archivo);
    if (!lectura.Valida || lectura.Ficha.Nombre != xFicha.Nombre) return xFicha;
    return lectura.Ficha;
}
