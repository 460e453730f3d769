#pragma once

#include "data/clsArchivoPDB.h"
#include "data/clsCatalogoCarpeta.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>

// One open database file of the folder. The file is read once and kept as its bytes and their
// layout; records are handed out as copies of their slices. Every write holds a lock file beside
// the database, looks at the file and reads it again if another writer changed it since it was
// read (so that change is kept), applies the change, stamps the header (modification date now,
// modification number plus one), replaces the file atomically and tells the catalogue. A write
// that fails leaves the file and this object as they were.
class clsBaseAbiertaCarpeta {
public:
    // xContenido is the whole file of the database xFicha as read now; when its header is not
    // the one the catalogue knew, the catalogue takes note. Raises BaseEnUso when it is not a
    // valid database.
    clsBaseAbiertaCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo,
                          const FichaBaseCarpeta& xFicha, const QString& xNombre,
                          ContenidoArchivo xContenido, const QString& xOperacion);

    const QString& Nombre() const { return mNombre; }
    const DisposicionPDB& Disposicion() const { return mDisposicion; }
    QByteArray Datos(const TramoPDB& xTramo) const;
    // The AppInfo and SortInfo blocks, copied once per version of the file.
    const QByteArray& AppInfo() const { return mAppInfo; }
    const QByteArray& SortInfo() const { return mSortInfo; }
    // Index of the record with that unique ID, -1 when there is none.
    qint32 IndicePorID(quint32 xID) const;

    // xID 0 appends a record with a new unique ID; returns the record's ID. Raises
    // RegistroNoEncontrado for any other ID the database does not hold.
    quint32 EscribirRegistro(quint32 xID, quint8 xAtributos, const QByteArray& xBytes);
    // Returns the index the record had.
    qint32 BorrarRegistro(quint32 xID);
    void BorrarTodos();

    // How long a write waits for another writer's lock (ms).
    static constexpr int EsperaCandado = 5000;
    // A lock older than this (ms) is taken as left behind by a writer that died.
    static constexpr int CandadoAbandonado = 15000;

private:
    using FuentePiezas = std::function<PiezaRegistroPDB(qint32)>;
    // The records of the database after a change: how many, and each one by index.
    struct Plan {
        qint32 Cantidad = 0;
        FuentePiezas Pieza;
    };
    // Plans one change over the database as it is on disk (xAnterior gives its records) and may
    // change its header.
    using Cambio = std::function<Plan(const DisposicionPDB& xActual, const FuentePiezas& xAnterior,
                                      CabeceraPDB& xCabecera)>;

    void Guardar(const QString& xOperacion, const Cambio& xCambio);
    [[noreturn]] void FallaEscritura(const QString& xOperacion, const QString& xMotivo) const;
    [[noreturn]] void SinRegistro(const QString& xOperacion, quint32 xID) const;
    // The file as it is now: the bytes already held when it is unchanged, otherwise read again.
    void LeerActual(const QString& xOperacion, QByteArray& xBytes,
                    DisposicionPDB& xDisposicion) const;
    void Tomar(QByteArray xBytes, DisposicionPDB xDisposicion);
    void Anotar() const;

    std::shared_ptr<clsCatalogoCarpeta> mCatalogo;
    QString mArchivo;
    QString mNombre;
    QByteArray mBytes;
    EstadoArchivo mEstado; // the file when mBytes were read or written
    qint64 mMomento = 0;   // when that was
    DisposicionPDB mDisposicion;
    QByteArray mAppInfo;
    QByteArray mSortInfo;
};
