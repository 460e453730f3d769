#include "data/carpeta/clsBaseAbierta.h"

#include "common/ErrorVB.h"
#include "common/clsEscrituraSegura.h"
#include "common/modFecha.h"
#include "data/carpeta/clsCatalogoCarpeta.h"
#include "data/clsFuentePalm.h"

#include <QFileInfo>
#include <QLockFile>
#include <algorithm>
#include <cstring>

namespace {

constexpr quint32 MaximoID = 0xFFFFFF;

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

// The same database: a file rewritten by a handheld or another program keeps these.
bool MismaBase(const CabeceraPDB& x, const CabeceraPDB& y) {
    return x.Nombre == y.Nombre && x.Tipo == y.Tipo && x.Creador == y.Creador &&
           x.FechaCreacion == y.FechaCreacion;
}

// Why the lock file xCandado could not be made: QLockFile does not say, so a small file is
// written beside it (never put in place) to hear it from the system (a full disk, say).
QString SinCandado(const QString& xCandado) {
    const QString motivo = QStringLiteral("its lock file cannot be made");
    clsEscrituraSegura prueba(xCandado + QStringLiteral(".prueba"));
    if (!prueba.Abrir() || !prueba.Escribir(QByteArray(512, '\0')))
        return QStringLiteral("%1 (%2)").arg(motivo, prueba.Error());
    return motivo;
}

} // namespace

clsBaseAbierta::clsBaseAbierta(const QString& xNombre, QByteArray xBytes, const QString& xOperacion)
    : mNombre(xNombre) {
    DisposicionPDB disposicion;
    try {
        disposicion = clsArchivoPDB::Analizar(xBytes);
    } catch (const ErrorFormatoPDB& error) {
        throw ErrorVB(ErroresFuente::BaseEnUso, xOperacion,
                      QStringLiteral("The database \"%1\" cannot be opened: %2.")
                          .arg(mNombre, QString::fromStdString(error.what())));
    }
    mIdentidad = disposicion;
    Tomar(std::move(xBytes), std::move(disposicion));
}

void clsBaseAbierta::Tomar(QByteArray xBytes, DisposicionPDB xDisposicion) {
    mBytes = std::move(xBytes);
    mDisposicion = std::move(xDisposicion);
    mAppInfo = Datos(mDisposicion.AppInfo);
    mSortInfo = Datos(mDisposicion.SortInfo);
}

QByteArray clsBaseAbierta::Datos(const TramoPDB& xTramo) const {
    return mBytes.mid(xTramo.Desde, xTramo.Largo);
}

void clsBaseAbierta::Datos(const TramoPDB& xTramo, QByteArray& xDestino) const {
    const qsizetype desde = qMin<qsizetype>(xTramo.Desde, mBytes.size());
    const qsizetype largo = qMin<qsizetype>(xTramo.Largo, mBytes.size() - desde);
    xDestino.resize(largo);
    std::memcpy(xDestino.data(), mBytes.constData() + desde, static_cast<size_t>(largo));
}

qint32 clsBaseAbierta::IndicePorID(quint32 xID) const {
    return Indice(mDisposicion.Registros, xID);
}

void clsBaseAbierta::FallaEscritura(const QString& xOperacion, const QString& xMotivo) const {
    throw ErrorVB(ErroresFuente::EscrituraFallida, xOperacion,
                  QStringLiteral("The database \"%1\" could not be written: %2. Its file was "
                                 "left as it was.")
                      .arg(mNombre, xMotivo));
}

void clsBaseAbierta::SinRegistro(const QString& xOperacion, quint32 xID) const {
    throw ErrorVB(ErroresFuente::RegistroNoEncontrado, xOperacion,
                  QStringLiteral("The database \"%1\" has no record with the unique ID %2.")
                      .arg(mNombre)
                      .arg(xID));
}

void clsBaseAbierta::LeerActual(const QString& xOperacion, QByteArray& xBytes,
                                DisposicionPDB& xDisposicion) const {
    if (!LeerCambiado(xOperacion, xBytes)) {
        xBytes = mBytes;
        xDisposicion = mDisposicion;
        return;
    }
    // Another writer changed the file since it was read: its change is kept.
    try {
        xDisposicion = clsArchivoPDB::Analizar(xBytes);
    } catch (const ErrorFormatoPDB& error) {
        FallaEscritura(xOperacion, QStringLiteral("its file changed on disk and is no longer a "
                                                  "valid database (%1)")
                                       .arg(QString::fromStdString(error.what())));
    }
    if (MismaBase(xDisposicion, mIdentidad)) return;
    throw ErrorVB(ErroresFuente::BaseCambiada, xOperacion,
                  QStringLiteral("The database \"%1\" changed on disk: its file now holds "
                                 "another database. Nothing was written.")
                      .arg(mNombre));
}

void clsBaseAbierta::Guardar(const QString& xOperacion, const Cambio& xCambio) {
    ComprobarEscritura(xOperacion);
    const QString archivoCandado = ArchivoCandado();
    // The lock reads a lock file it finds: one that is not a regular file (a FIFO) would keep it
    // waiting for ever.
    const QFileInfo infoCandado(archivoCandado);
    if (infoCandado.exists() && !infoCandado.isFile())
        FallaEscritura(
            xOperacion,
            QStringLiteral("its lock file %1 is not a regular file").arg(infoCandado.fileName()));
    QLockFile candado(archivoCandado);
    candado.setStaleLockTime(CandadoAbandonado);
    if (!candado.tryLock(EsperaCandado))
        FallaEscritura(xOperacion, candado.error() == QLockFile::LockFailedError
                                       ? QStringLiteral("another program is writing it")
                                       : SinCandado(archivoCandado));

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
    Reemplazar(xOperacion, nuevo);
    Tomar(std::move(nuevo), std::move(disposicion));
    Tomado();
}

quint32 clsBaseAbierta::EscribirRegistro(quint32 xID, quint8 xAtributos, const QByteArray& xBytes) {
    if (xID != 0) {
        CambiarRegistro(xID, [&](quint8& xAtributosActuales, QByteArray& xBytesActuales) {
            xAtributosActuales = xAtributos;
            xBytesActuales = xBytes;
        });
        return xID;
    }
    quint32 id = 0;
    Guardar(QStringLiteral("EscribirRegistro"), [&](const DisposicionPDB& xActual,
                                                    const FuentePiezas& xAnterior,
                                                    CabeceraPDB& xCabecera) {
        const qint32 cantidad = static_cast<qint32>(xActual.Registros.size());
        id = NuevoID(xActual.Registros);
        xCabecera.SemillaID = std::max(xCabecera.SemillaID, id + 1);
        const PiezaRegistroPDB nueva{xAtributos, id, xBytes};
        return Plan{cantidad + 1, [=](qint32 i) { return i == cantidad ? nueva : xAnterior(i); }};
    });
    return id;
}

void clsBaseAbierta::CambiarRegistro(quint32 xID, const CambioRegistro& xCambio) {
    const QString operacion = QStringLiteral("EscribirRegistro");
    QByteArray bytes; // outlives the plan, which hands out a view of it
    Guardar(operacion,
            [&](const DisposicionPDB& xActual, const FuentePiezas& xAnterior, CabeceraPDB&) {
                const qint32 indice = Indice(xActual.Registros, xID);
                // The record is looked up by its ID as a read would, and fails as that read does.
                if (indice < 0) SinRegistro(QStringLiteral("LeerPorID"), xID);
                const PiezaRegistroPDB actual = xAnterior(indice);
                quint8 atributos = actual.Atributos;
                bytes = actual.Datos.toByteArray();
                xCambio(atributos, bytes);
                const PiezaRegistroPDB cambiada{atributos, xID, bytes};
                return Plan{static_cast<qint32>(xActual.Registros.size()),
                            [=](qint32 i) { return i == indice ? cambiada : xAnterior(i); }};
            });
}

qint32 clsBaseAbierta::BorrarRegistro(quint32 xID) {
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

void clsBaseAbierta::BorrarTodos() {
    Guardar(QStringLiteral("BorrarTodos"),
            [](const DisposicionPDB&, const FuentePiezas&, CabeceraPDB&) { return Plan{}; });
}
