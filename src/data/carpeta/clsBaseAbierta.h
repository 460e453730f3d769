#pragma once

#include "data/formato/clsArchivoPDB.h"

#include <QByteArray>
#include <QString>
#include <functional>

// One open database, kept as the bytes of its file and their layout, and the rules every write
// keeps whatever stores the file (a folder, an archive):
//
// - a write holds the database's lock file from the first look at the file to its replacement,
//   so two writers (windows, programs) take turns and both land;
// - under the lock it reads the database as it is now; when that is no longer the database that
//   was opened (its name, type, creator and creation date), nothing is written and BaseCambiada
//   is raised;
// - it applies its own change to the records as they are now, so another writer's change made
//   since this object read the file is kept: a changed record is changed as it is on disk, and
//   a record that is gone behaves as an ID the database never had;
// - it stamps the header (modification date now, modification number plus one) and lays the file
//   out anew; the store replaces the old bytes at once, so a crash leaves the old database or
//   the new one.
//
// A write that fails leaves the stored database and this object as they were. What a store does
// (where the lock file lives, how the bytes are read and replaced) is the derived class's part.
class clsBaseAbierta {
public:
    virtual ~clsBaseAbierta() = default;
    clsBaseAbierta(const clsBaseAbierta&) = delete;
    clsBaseAbierta& operator=(const clsBaseAbierta&) = delete;

    const QString& Nombre() const { return mNombre; }
    const DisposicionPDB& Disposicion() const { return mDisposicion; }
    QByteArray Datos(const TramoPDB& xTramo) const;
    // The same into xDestino, whose buffer is reused when it is its own and large enough.
    void Datos(const TramoPDB& xTramo, QByteArray& xDestino) const;
    // The AppInfo and SortInfo blocks, copied once per version of the file.
    const QByteArray& AppInfo() const { return mAppInfo; }
    const QByteArray& SortInfo() const { return mSortInfo; }
    // Index of the record with that unique ID, -1 when there is none.
    qint32 IndicePorID(quint32 xID) const;

    // xID 0 appends a record with a new unique ID; returns the record's ID. Raises
    // RegistroNoEncontrado for any other ID the database does not hold.
    quint32 EscribirRegistro(quint32 xID, quint8 xAtributos, const QByteArray& xBytes);
    // A change to one record: its raw attribute byte and its bytes, as the file holds them when
    // the write is made. What the change throws stops the write.
    using CambioRegistro = std::function<void(quint8& xAtributos, QByteArray& xBytes)>;
    // Applies xCambio to the record as it is on disk now and writes it. Raises
    // RegistroNoEncontrado when the database no longer holds that ID.
    void CambiarRegistro(quint32 xID, const CambioRegistro& xCambio);
    // Returns the index the record had.
    qint32 BorrarRegistro(quint32 xID);
    void BorrarTodos();

    // How long a write waits for another writer's lock (ms).
    static constexpr int EsperaCandado = 5000;
    // A lock older than this (ms) is taken as left behind by a writer that died.
    static constexpr int CandadoAbandonado = 15000;

protected:
    // xBytes is the whole database as just read; raises BaseEnUso (with xOperacion as source)
    // when it is not a valid database.
    clsBaseAbierta(const QString& xNombre, QByteArray xBytes, const QString& xOperacion);

    // The store's part of a write.
    // The lock file that keeps writers of this database apart.
    virtual QString ArchivoCandado() const = 0;
    // Raises (through FallaEscritura) when the database cannot be written at all, before the
    // lock is taken: a read-only store, for instance.
    virtual void ComprobarEscritura(const QString& xOperacion) const = 0;
    // False when the stored database is still the bytes this object holds; otherwise true, with
    // the bytes as they are now in xBytes. Raises when they cannot be read.
    virtual bool LeerCambiado(const QString& xOperacion, QByteArray& xBytes) const = 0;
    // Replaces the stored database by xBytes at once; raises when it cannot, leaving the old.
    virtual void Reemplazar(const QString& xOperacion, const QByteArray& xBytes) = 0;
    // Told whenever the bytes this object holds changed: read again, or written.
    virtual void Tomado() {}

    const QByteArray& Bytes() const { return mBytes; }
    [[noreturn]] void FallaEscritura(const QString& xOperacion, const QString& xMotivo) const;

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
    // The database as it is now, read again when it changed; raises BaseCambiada when the store
    // holds another database now.
    void LeerActual(const QString& xOperacion, QByteArray& xBytes,
                    DisposicionPDB& xDisposicion) const;
    [[noreturn]] void SinRegistro(const QString& xOperacion, quint32 xID) const;
    void Tomar(QByteArray xBytes, DisposicionPDB xDisposicion);

    QString mNombre;
    QByteArray mBytes;
    DisposicionPDB mDisposicion;
    // What makes it the database that was opened.
    CabeceraPDB mIdentidad;
    QByteArray mAppInfo;
    QByteArray mSortInfo;
};
