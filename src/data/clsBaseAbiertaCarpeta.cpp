#include "data/clsBaseAbiertaCarpeta.h"

#include "common/ErrorVB.h"
#include "common/modFecha.h"
#include "data/clsCatalogoCarpeta.h"
#include "data/clsFuentePalm.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <algorithm>

namespace {

constexpr quint32 MaximoID = 0xFFFFFF;
constexpr QFileDevice::Permissions PermisosEscritura =
    QFileDevice::WriteOwner | QFileDevice::WriteGroup | QFileDevice::WriteOther;

// A file or folder whose write permissions are all cleared is read-only for this program even
// when the user could override them (as an administrator can).
bool SoloLectura(const QFileInfo& xInfo) {
    return !xInfo.isWritable() || (xInfo.permissions() & PermisosEscritura) == 0;
}

QVector<PiezaRegistroPDB> Piezas(const DisposicionPDB& xDisposicion, const QByteArray& xBytes) {
    QVector<PiezaRegistroPDB> piezas;
    piezas.reserve(xDisposicion.Registros.size() + 1);
    for (const IndiceRegistroPDB& registro : xDisposicion.Registros)
        piezas.append({registro.Atributos, registro.ID,
                       QByteArrayView(xBytes).sliced(registro.Datos.Desde, registro.Datos.Largo)});
    return piezas;
}

qint32 Indice(const QVector<IndiceRegistroPDB>& xRegistros, quint32 xID) {
    for (qint32 i = 0; i < xRegistros.size(); ++i)
        if (xRegistros[i].ID == xID) return i;
    return -1;
}

// One more than the largest unique ID; the lowest free one once the largest is 0xFFFFFF.
quint32 NuevoID(const QVector<IndiceRegistroPDB>& xRegistros) {
    quint32 mayor = 0;
    for (const IndiceRegistroPDB& registro : xRegistros)
        mayor = std::max(mayor, registro.ID);
    if (mayor < MaximoID) return mayor + 1;
    QVector<quint32> usados;
    usados.reserve(xRegistros.size());
    for (const IndiceRegistroPDB& registro : xRegistros)
        usados.append(registro.ID);
    std::sort(usados.begin(), usados.end());
    quint32 candidato = 1;
    for (quint32 usado : usados) {
        if (usado > candidato) break;
        if (usado == candidato) ++candidato;
    }
    return candidato;
}

} // namespace

clsBaseAbiertaCarpeta::clsBaseAbiertaCarpeta(const QString& xArchivo, const QString& xNombre,
                                             const QString& xOperacion)
    : mArchivo(xArchivo), mNombre(xNombre) {
    const auto noSePuede = [&](const QString& xMotivo) {
        return ErrorVB(
            ErroresFuente::BaseEnUso, xOperacion,
            QStringLiteral("The database \"%1\" cannot be opened: %2.").arg(mNombre, xMotivo));
    };
    QFile archivo(mArchivo);
    if (!archivo.open(QIODevice::ReadOnly))
        throw noSePuede(QStringLiteral("its file %1 cannot be read (%2)")
                            .arg(QFileInfo(mArchivo).fileName(), archivo.errorString()));
    mBytes = archivo.readAll();
    try {
        mDisposicion = clsArchivoPDB::Analizar(mBytes);
    } catch (const ErrorFormatoPDB& error) {
        throw noSePuede(QString::fromStdString(error.what()));
    }
}

QByteArray clsBaseAbiertaCarpeta::Datos(const TramoPDB& xTramo) const {
    return mBytes.mid(xTramo.Desde, xTramo.Largo);
}

qint32 clsBaseAbiertaCarpeta::IndicePorID(quint32 xID) const {
    return Indice(mDisposicion.Registros, xID);
}

void clsBaseAbiertaCarpeta::FallaEscritura(const QString& xOperacion,
                                           const QString& xMotivo) const {
    throw ErrorVB(ErroresFuente::EscrituraFallida, xOperacion,
                  QStringLiteral("The database \"%1\" could not be written: %2. Its file was "
                                 "left as it was.")
                      .arg(mNombre, xMotivo));
}

void clsBaseAbiertaCarpeta::SinRegistro(const QString& xOperacion, quint32 xID) const {
    throw ErrorVB(ErroresFuente::RegistroNoEncontrado, xOperacion,
                  QStringLiteral("The database \"%1\" has no record with the unique ID %2.")
                      .arg(mNombre)
                      .arg(xID));
}

void clsBaseAbiertaCarpeta::Guardar(const QString& xOperacion, const Cambio& xCambio) {
    const QFileInfo info(mArchivo);
    if (SoloLectura(QFileInfo(info.absolutePath())))
        FallaEscritura(xOperacion, QStringLiteral("the handheld folder is read-only"));
    QLockFile candado(mArchivo + QStringLiteral(".lock"));
    candado.setStaleLockTime(CandadoAbandonado);
    if (!candado.tryLock(EsperaCandado))
        FallaEscritura(xOperacion, candado.error() == QLockFile::LockFailedError
                                       ? QStringLiteral("another program is writing it")
                                       : QStringLiteral("its lock file cannot be made"));

    QFile archivo(mArchivo);
    if (!archivo.open(QIODevice::ReadOnly))
        FallaEscritura(xOperacion,
                       QStringLiteral("its file cannot be read (%1)").arg(archivo.errorString()));
    if (SoloLectura(QFileInfo(mArchivo)))
        FallaEscritura(xOperacion, QStringLiteral("its file is read-only"));
    // Another writer may have changed the file since it was read: its change is kept.
    QByteArray bytes = archivo.readAll();
    archivo.close();
    DisposicionPDB disposicion = mDisposicion;
    if (bytes != mBytes) {
        try {
            disposicion = clsArchivoPDB::Analizar(bytes);
        } catch (const ErrorFormatoPDB& error) {
            FallaEscritura(xOperacion, QStringLiteral("its file changed on disk and is no longer "
                                                      "a valid database (%1)")
                                           .arg(QString::fromStdString(error.what())));
        }
    } else {
        bytes = mBytes;
    }

    QVector<PiezaRegistroPDB> piezas = Piezas(disposicion, bytes);
    CabeceraPDB cabecera = disposicion;
    xCambio(disposicion, piezas, cabecera);
    cabecera.FechaModificacion = clsCatalogoCarpeta::SegundosPalm(modFecha::Ahora());
    ++cabecera.NumeroModificacion;

    QByteArray nuevo;
    try {
        const QByteArrayView vista(bytes);
        nuevo = clsArchivoPDB::Componer(
            cabecera, vista.sliced(disposicion.AppInfo.Desde, disposicion.AppInfo.Largo),
            vista.sliced(disposicion.SortInfo.Desde, disposicion.SortInfo.Largo), piezas, {});
    } catch (const ErrorFormatoPDB& error) {
        FallaEscritura(xOperacion, QString::fromStdString(error.what()));
    }
    QSaveFile salida(mArchivo);
    if (!salida.open(QIODevice::WriteOnly) || salida.write(nuevo) != nuevo.size() ||
        !salida.commit())
        FallaEscritura(xOperacion, salida.errorString());
    mDisposicion = clsArchivoPDB::Analizar(nuevo);
    mBytes = std::move(nuevo);
}

quint32 clsBaseAbiertaCarpeta::EscribirRegistro(quint32 xID, quint8 xAtributos,
                                                const QByteArray& xBytes) {
    const QString operacion = QStringLiteral("EscribirRegistro");
    quint32 id = xID;
    Guardar(operacion, [&](const DisposicionPDB& xActual, QVector<PiezaRegistroPDB>& xRegistros,
                           CabeceraPDB& xCabecera) {
        if (xID == 0) {
            id = NuevoID(xActual.Registros);
            xRegistros.append({xAtributos, id, xBytes});
            xCabecera.SemillaID = std::max(xCabecera.SemillaID, id + 1);
            return;
        }
        const qint32 indice = Indice(xActual.Registros, xID);
        if (indice < 0) SinRegistro(operacion, xID);
        xRegistros[indice].Atributos = xAtributos;
        xRegistros[indice].Datos = xBytes;
    });
    return id;
}

qint32 clsBaseAbiertaCarpeta::BorrarRegistro(quint32 xID) {
    const QString operacion = QStringLiteral("BorrarRegistro");
    qint32 indice = -1;
    Guardar(operacion, [&](const DisposicionPDB& xActual, QVector<PiezaRegistroPDB>& xRegistros,
                           CabeceraPDB&) {
        indice = Indice(xActual.Registros, xID);
        if (indice < 0) SinRegistro(operacion, xID);
        xRegistros.remove(indice);
    });
    return indice;
}

void clsBaseAbiertaCarpeta::BorrarTodos() {
    Guardar(QStringLiteral("BorrarTodos"),
            [](const DisposicionPDB&, QVector<PiezaRegistroPDB>& xRegistros, CabeceraPDB&) {
                xRegistros.clear();
            });
}
