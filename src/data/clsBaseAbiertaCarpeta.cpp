#include "data/clsBaseAbiertaCarpeta.h"

#include "common/ErrorVB.h"
#include "common/modFecha.h"
#include "data/clsCatalogoCarpeta.h"
#include "data/clsFuentePalm.h"

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
bool MismoContenido(clsLecturaArchivo& xArchivo, const QByteArray& xBytes) {
    if (xArchivo.Estado().Tamano != xBytes.size()) return false;
    constexpr qint64 Pedazo = 1024 * 1024;
    QByteArray pedazo;
    pedazo.reserve(Pedazo);
    for (qint64 posicion = 0; posicion < xBytes.size(); posicion += pedazo.size()) {
        pedazo.clear();
        if (!xArchivo.Leer(posicion, Pedazo, pedazo) || pedazo.isEmpty() ||
            pedazo.size() > xBytes.size() - posicion ||
            std::memcmp(pedazo.constData(), xBytes.constData() + posicion, size_t(pedazo.size())))
            return false;
    }
    pedazo.clear();
    return xArchivo.Leer(xBytes.size(), 1, pedazo) && pedazo.isEmpty();
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

clsBaseAbiertaCarpeta::clsBaseAbiertaCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo,
                                             const FichaBaseCarpeta& xFicha, const QString& xNombre,
                                             ContenidoArchivo xContenido, const QString& xOperacion)
    : mCatalogo(std::move(xCatalogo)), mArchivo(xFicha.Archivo), mNombre(xNombre),
      mEstado(xContenido.Estado), mMomento(xContenido.Momento) {
    DisposicionPDB disposicion;
    try {
        disposicion = clsArchivoPDB::Analizar(xContenido.Bytes);
    } catch (const ErrorFormatoPDB& error) {
        throw ErrorVB(ErroresFuente::BaseEnUso, xOperacion,
                      QStringLiteral("The database \"%1\" cannot be opened: %2.")
                          .arg(mNombre, QString::fromStdString(error.what())));
    }
    Tomar(std::move(xContenido.Bytes), std::move(disposicion));
    // A file rewritten in place with the same size in the second the folder was read looks the
    // same to the catalogue: what was just read is the truth.
    if (static_cast<const CabeceraPDB&>(mDisposicion) != xFicha.Cabecera ||
        mDisposicion.Entradas != xFicha.Entradas)
        Anotar();
}

void clsBaseAbiertaCarpeta::Anotar() const {
    mCatalogo->Anotar(mArchivo, mDisposicion, mDisposicion.Entradas, {mBytes, mEstado, mMomento});
}

void clsBaseAbiertaCarpeta::Tomar(QByteArray xBytes, DisposicionPDB xDisposicion) {
    mBytes = std::move(xBytes);
    mDisposicion = std::move(xDisposicion);
    mAppInfo = Datos(mDisposicion.AppInfo);
    mSortInfo = Datos(mDisposicion.SortInfo);
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
    xBytes = mBytes;
    xDisposicion = mDisposicion;
    // A look at the file proves it unchanged unless it changed in the second it was read; only
    // then, or when the look shows a change, are its bytes compared.
    if (mEstado.Seguro(mMomento) &&
        mEstado.SinCambios(clsLecturaArchivo::EstadoDe(mArchivo), mMomento))
        return;
    clsLecturaArchivo archivo(mArchivo);
    if (!archivo.Abierto())
        FallaEscritura(xOperacion,
                       QStringLiteral("its file cannot be read (%1)").arg(archivo.Error()));
    if (MismoContenido(archivo, mBytes)) return;
    // Another writer changed the file since it was read: its change is kept.
    if (!archivo.LeerTodo(xBytes))
        FallaEscritura(xOperacion,
                       QStringLiteral("its file cannot be read (%1)").arg(archivo.Error()));
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
    // Read only: the entry list is shared with the one this object holds, and a write access
    // would copy it.
    const QVector<IndiceRegistroPDB>& registros = actual.Registros;
    const FuentePiezas anterior = [&registros, vista](qint32 i) {
        const IndiceRegistroPDB& registro = registros[i];
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
    mEstado = clsLecturaArchivo::EstadoDe(mArchivo);
    mMomento = clsLecturaArchivo::Ahora();
    Tomar(std::move(nuevo), std::move(disposicion));
    Anotar();
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
