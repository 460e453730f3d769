#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <functional>
#include <memory>

// The source of Palm databases: everything the database layer needs of a handheld, by role.
// clsPalmPDB and clsPalmInformation work over these roles only and never know what stands behind
// them (a folder of .pdb/.prc files today, a live handheld later). Failures are raised as ErrorVB
// with the source's own numbers (see ErroresFuente below).

// Information object of one database (the header facts).
class clsInfoBase {
public:
    virtual ~clsInfoBase() = default;
    virtual void Liberar() = 0;
    virtual QString Nombre() const = 0;
    virtual qint32 Tipo() const = 0;          // 32-bit type code, most significant byte first
    virtual qint32 Creador() const = 0;       // 32-bit creator code
    virtual qint32 AtributosBase() const = 0; // header attribute word; bit 0 = resource database
    virtual qint32 Version() const = 0;
    virtual qint32 VersionCompanero() const = 0; // companion value of the version
    virtual QDateTime FechaCreacion() const = 0;
    virtual QDateTime FechaModificacion() const = 0;
    virtual QDateTime FechaBackup() const = 0;
    virtual qint32 TamanoBase() const = 0;        // bytes
    virtual qint32 CantidadRegistros() const = 0; // records (resources for a resource database)
};

// One record as a read hands it out.
struct RegistroPalm {
    qint32 Indice = 0;
    qint32 ID = 0;
    qint32 Atributos = 0; // the flags, clsArchivoPDB::AtributoBorrado and the others
    qint32 Categoria = 0; // 0..15
    QByteArray Bytes;
};

// Category object of a record database.
class clsCategoriasPalm {
public:
    virtual ~clsCategoriasPalm() = default;
    // Category numbers run from 0 to CantidadCategorias() - 1 and reach every named category;
    // a number without a name gives "".
    virtual qint32 CantidadCategorias() const = 0;
    virtual QString NombreCategoria(qint32 xIndice) const = 0;
};

// Record adapter of an open record database. Sequential reads keep a cursor; every write is on
// disk before the call returns.
class clsAdaptadorRegistros {
public:
    virtual ~clsAdaptadorRegistros() = default;
    virtual QByteArray LeerAppInfo() = 0;
    virtual QByteArray LeerInfoOrden() = 0;
    virtual void IrAlPrincipio(qint32 xIndice) = 0;
    // True once the sequential reading has passed the last record.
    virtual bool FinDeRegistros() = 0;
    // Each read fills xRegistro and returns true, or returns false (leaving it untouched) when no
    // further record matches.
    virtual bool LeerSiguiente(RegistroPalm& xRegistro) = 0;
    virtual bool LeerSiguienteModificado(RegistroPalm& xRegistro) = 0;
    virtual bool LeerSiguienteEnCategoria(qint32 xCategoria, RegistroPalm& xRegistro) = 0;
    virtual bool LeerSiguienteModificadoEnCategoria(qint32 xCategoria, RegistroPalm& xRegistro) = 0;
    // Raises when no record has that ID.
    virtual RegistroPalm LeerPorID(qint32 xID) = 0;
    // The records in file order, and the one at xIndice (0 to CantidadRegistros() - 1) into
    // xRegistro, reusing its buffer. Neither moves the sequential reading nor changes anything, so
    // several threads may read at once while nobody writes.
    virtual qint32 CantidadRegistros() const = 0;
    virtual void LeerEnIndice(qint32 xIndice, RegistroPalm& xRegistro) const = 0;
    // xID 0 writes a new record; returns the record's unique ID.
    virtual qint32 EscribirRegistro(qint32 xID, qint32 xCategoria, qint32 xAtributos,
                                    const QByteArray& xBytes) = 0;
    // Hands xCambio the record with that ID as the database holds it at the moment of writing
    // (so another writer's change since it was read is kept) and writes what xCambio leaves;
    // returns the record as written. The attribute byte is stored again only when xCambio
    // changed the attributes or the category. Raises RegistroNoEncontrado when the database no
    // longer holds the ID; whatever xCambio raises stops the write.
    virtual RegistroPalm CambiarRegistro(qint32 xID,
                                         const std::function<void(RegistroPalm&)>& xCambio) = 0;
    virtual void BorrarRegistro(qint32 xID) = 0;
    virtual void BorrarTodos(qint32 xDesde, qint32 xHasta) = 0;
    virtual const clsCategoriasPalm& Categorias() = 0;
};

// One resource of a resource database.
struct RecursoPalm {
    qint32 Indice = 0;
    qint32 Tipo = 0;
    qint32 ID = 0;
    QByteArray Bytes;
};

// Resource adapter of an open resource database.
class clsAdaptadorRecursos {
public:
    virtual ~clsAdaptadorRecursos() = default;
    virtual qint32 CantidadRecursos() = 0;
    virtual RecursoPalm LeerRecurso(qint32 xIndice) = 0;
};

// Database manager: the catalogue and the open operations.
class clsGestorBases {
public:
    virtual ~clsGestorBases() = default;
    virtual QStringList ListarBases(qint32 xCual) = 0;
    virtual std::shared_ptr<clsInfoBase> BuscarBase(const QString& xNombre) = 0;
    // Next database whose creator (and type, when not empty) matches; null at the end.
    virtual std::shared_ptr<clsInfoBase> EnumerarBases(const QString& xCreador,
                                                       const QString& xTipo, bool xReiniciar) = 0;
    virtual std::unique_ptr<clsAdaptadorRegistros>
    AbrirBaseRegistros(const QString& xNombre, const QString& xClase, qint32 xModo) = 0;
    virtual std::unique_ptr<clsAdaptadorRecursos>
    AbrirBaseRecursos(const QString& xNombre, const QString& xClase, qint32 xModo) = 0;
};

// Memory card information, in the order the card reports it. Each value is read when it is
// asked for and raises when it cannot be (a value that is not of its kind, say), so a reader
// gets every value before the one that fails.
class clsTarjetaPalm {
public:
    virtual ~clsTarjetaPalm() = default;
    virtual qint32 Numero() const = 0;
    virtual double Version() const = 0;
    virtual QDateTime FechaCreacion() const = 0;
    virtual qint64 TamanoRom() const = 0; // bytes
    virtual qint64 TamanoRam() const = 0;
    virtual qint64 RamLibre() const = 0;
    virtual QString Nombre() const = 0;
    virtual QString Fabricante() const = 0;
    virtual qint32 CantidadBasesRom() const = 0;
    virtual qint32 CantidadBasesRam() const = 0;
};

// User information, in the order the handheld reports it; read value by value as the card is.
class clsUsuarioPalm {
public:
    virtual ~clsUsuarioPalm() = default;
    virtual QString Nombre() const = 0;
    virtual QString Clave() const = 0;
    virtual QDateTime FechaUltimaSincronizacion() const = 0;
    virtual qint32 UltimaSincronizacionPC() const = 0;
    virtual qint32 IDUsuario() const = 0;
};

// System object: card and user information. Each raises when the handheld cannot be reached.
class clsSistemaPalm {
public:
    virtual ~clsSistemaPalm() = default;
    virtual std::unique_ptr<clsTarjetaPalm> TarjetaMemoria() = 0;
    virtual std::unique_ptr<clsUsuarioPalm> InformacionUsuario() = 0;
};

// The whole source: hands out fresh role objects.
class clsFuentePalm {
public:
    virtual ~clsFuentePalm() = default;
    virtual std::unique_ptr<clsGestorBases> CrearGestor() = 0;
    virtual std::unique_ptr<clsSistemaPalm> CrearSistema() = 0;
    // Code converter: a 32-bit type or creator code as its four characters.
    virtual QString CodigoATexto(qint32 xCodigo, qint32 xOpcion) const = 0;
    // Name of the handheld's code page (for QStringDecoder), in which its texts are written.
    virtual QString CodigoPagina() const = 0;
    // True when a file written at xArchivo (links followed) would land on one of the handheld's
    // own files: a database, its settings, its archive, a lock.
    virtual bool EsArchivoPropio(const QString& xArchivo) const {
        Q_UNUSED(xArchivo);
        return false;
    }
};

// Numbers of the errors a source raises (the 0x80042000 range of the source).
namespace ErroresFuente {
constexpr qint32 BaseNoEncontrada = static_cast<qint32>(0x80042003u);
constexpr qint32 BaseEnUso = static_cast<qint32>(0x80042007u); // cannot be read, parsed or locked
constexpr qint32 RegistroNoEncontrado = static_cast<qint32>(0x80042009u);
constexpr qint32 EscrituraFallida = static_cast<qint32>(0x8004200Au);
constexpr qint32 HandheldInaccesible = static_cast<qint32>(0x8004200Bu);
// The file of an open database holds another database now: nothing was written.
constexpr qint32 BaseCambiada = static_cast<qint32>(0x8004200Cu);
} // namespace ErroresFuente
