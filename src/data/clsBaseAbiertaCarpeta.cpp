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
#include <cstring>

namespace {

constexpr quint32 MaximoID = 0xFFFFFF;
constexpr QFileDevice::Permissions PermisosEscritura =
    QFileDevice::WriteOwner | QFileDevice::WriteGroup | QFileDevice::WriteOther;

// A file or folder whose write permissions are all cleared is read-only for this program even
// when the user could override them (as an administrator can).
bool SoloLectura(const QFileInfo& xInfo) {
    return !xInfo.isWritable() || (xInfo.permissions() & PermisosEscritura) == 0;
}

// True when the file holds exactly xBytes. It is compared piece by piece, so that checking a
// large database for another writer's change does not need a second copy of it.
bool MismoContenido(QFile& xArchivo, const QByteArray& xBytes) {
    if (xArchivo.size() != xBytes.size()) return false;
    char pedazo[64 * 1024];
    qint64 posicion = 0;
    while (posicion < xBytes.size()) {
        const qint64 leidos = xArchivo.read(pedazo, sizeof pedazo);
        if (leidos <= 0 || posicion + leidos > xBytes.size() ||
            std::memcmp(pedazo, xBytes.constData() + posicion, size_t(leidos)) != 0)
            return false;
        posicion += leidos;
    }
    return xArchivo.read(pedazo, 1) == 0;
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

void clsBaseAbiertaCarpeta::LeerActual(const QString& xOperacion, QByteArray& xBytes,
                                       DisposicionPDB& xDisposicion) const {
    QFile archivo(mArchivo);
    if (!archivo.open(QIODevice::ReadOnly))
        FallaEscritura(xOperacion,
                       QStringLiteral("its file cannot be read (%1)").arg(archivo.errorString()));
    if (MismoContenido(archivo, mBytes)) {
        xBytes = mBytes;
        xDisposicion = mDisposicion;
        return;
    }
    // Another writer changed the file since it was read: its change is kept.
    archivo.seek(0);
    xBytes = archivo.readAll();
    try {
        xDisposicion = clsArchivoPDB::Analizar(xBytes);
    } catch (const ErrorFormatoPDB& error) {
        FallaEscritura(xOperacion, QStringLiteral("its file changed on disk and is no longer a "
                                                  "valid database (%1)")
                                       .arg(QString::fromStdString(error.what())));
    }
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
    if (SoloLectura(QFileInfo(mArchivo)))
        FallaEscritura(xOperacion, QStringLiteral("its file is read-only"));

    QByteArray bytes;
    DisposicionPDB actual;
    LeerActual(xOperacion, bytes, actual);
    const QByteArrayView vista(bytes);
    const FuentePiezas anterior = [&actual, vista](qint32 i) {
        const IndiceRegistroPDB& registro = actual.Registros[i];
        return PiezaRegistroPDB{registro.Atributos, registro.ID,
                                vista.sliced(registro.Datos.Desde, registro.Datos.Largo)};
    };
    CabeceraPDB cabecera = actual;
    const Plan plan = xCambio(actual, anterior, cabecera);
    cabecera.FechaModificacion = clsCatalogoCarpeta::SegundosPalm(modFecha::Ahora());
    ++cabecera.NumeroModificacion;

    QByteArray nuevo;
    DisposicionPDB disposicion;
    try {
        nuevo = clsArchivoPDB::Componer(cabecera,
                                        vista.sliced(actual.AppInfo.Desde, actual.AppInfo.Largo),
                                        vista.sliced(actual.SortInfo.Desde, actual.SortInfo.Largo),
                                        plan.Cantidad, plan.Pieza, disposicion);
    } catch (const ErrorFormatoPDB& error) {
        FallaEscritura(xOperacion, QString::fromStdString(error.what()));
    }
    QSaveFile salida(mArchivo);
    if (!salida.open(QIODevice::WriteOnly) || salida.write(nuevo) != nuevo.size() ||
        !salida.commit())
        FallaEscritura(xOperacion, salida.errorString());
    mDisposicion = std::move(disposicion);
    mBytes = std::move(nuevo);
}

quint32 clsBaseAbiertaCarpeta::EscribirRegistro(quint32 xID, quint8 xAtributos,
                                                const QByteArray& xBytes) {
    const QString operacion = QStringLiteral("EscribirRegistro");
    quint32 id = xID;
    Guardar(operacion, [&](const DisposicionPDB& xActual, const FuentePiezas& xAnterior,
                           CabeceraPDB& xCabecera) {
        const qint32 cantidad = static_cast<qint32>(xActual.Registros.size());
        if (xID == 0) {
            id = NuevoID(xActual.Registros);
            xCabecera.SemillaID = std::max(xCabecera.SemillaID, id + 1);
            const PiezaRegistroPDB nueva{xAtributos, id, xBytes};
            return Plan{cantidad + 1,
                        [=](qint32 i) { return i == cantidad ? nueva : xAnterior(i); }};
        }
        const qint32 indice = Indice(xActual.Registros, xID);
        if (indice < 0) SinRegistro(operacion, xID);
        const PiezaRegistroPDB cambiada{xAtributos, xID, xBytes};
        return Plan{cantidad, [=](qint32 i) { return i == indice ? cambiada : xAnterior(i); }};
    });
    return id;
}

qint32 clsBaseAbiertaCarpeta::BorrarRegistro(quint32 xID) {
    const QString operacion = QStringLiteral("BorrarRegistro");
    qint32 indice = -1;
    Guardar(operacion,
            [&](const DisposicionPDB& xActual, const FuentePiezas& xAnterior, CabeceraPDB&) {
                indice = Indice(xActual.Registros, xID);
                if (indice < 0) SinRegistro(operacion, xID);
                const qint32 quitado = indice;
                return Plan{static_cast<qint32>(xActual.Registros.size()) - 1,
                            [=](qint32 i) { return xAnterior(i < quitado ? i : i + 1); }};
            });
    return indice;
}

void clsBaseAbiertaCarpeta::BorrarTodos() {
    Guardar(QStringLiteral("BorrarTodos"),
            [](const DisposicionPDB&, const FuentePiezas&, CabeceraPDB&) { return Plan{}; });
}
