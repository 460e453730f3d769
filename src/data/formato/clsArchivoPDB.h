#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QVector>
#include <QtGlobal>
#include <functional>
#include <stdexcept>

// A record of a .pdb file.
struct EntradaRegistroPDB {
    quint8 Atributos = 0; // the raw attribute byte of the record entry (flags and category)
    quint32 ID = 0;       // 24-bit unique ID
    QByteArray Datos;
};

// A resource of a .prc file.
struct EntradaRecursoPRC {
    quint32 Tipo = 0;
    quint16 ID = 0;
    QByteArray Datos;
};

// Why a file is not a Palm database.
class ErrorFormatoPDB : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The header fields of a database file (see clsArchivoPDB for the layout).
struct CabeceraPDB {
    QByteArray Nombre; // the raw name bytes, without the terminator
    // The bytes of the 32-byte name field after the terminator, as read. Handhelds leave old bytes
    // there; they are written back when they still fit after the name, zeros otherwise.
    QByteArray RellenoNombre;
    quint16 Atributos = 0;
    quint16 Version = 0;
    quint32 FechaCreacion = 0; // Palm seconds since 1904-01-01
    quint32 FechaModificacion = 0;
    quint32 FechaBackup = 0;
    quint32 NumeroModificacion = 0;
    quint32 Tipo = 0;
    quint32 Creador = 0;
    quint32 SemillaID = 0;

    static constexpr quint16 AtributoRecursos = 0x0001;

    bool EsRecursos() const { return (Atributos & AtributoRecursos) != 0; }
    bool operator==(const CabeceraPDB& x) const {
        return Nombre == x.Nombre && RellenoNombre == x.RellenoNombre && Atributos == x.Atributos &&
               Version == x.Version && FechaCreacion == x.FechaCreacion &&
               FechaModificacion == x.FechaModificacion && FechaBackup == x.FechaBackup &&
               NumeroModificacion == x.NumeroModificacion && Tipo == x.Tipo &&
               Creador == x.Creador && SemillaID == x.SemillaID;
    }
    bool operator!=(const CabeceraPDB& x) const { return !(*this == x); }
};

// Where a block of data lies in the file's bytes.
struct TramoPDB {
    quint32 Desde = 0;
    quint32 Largo = 0;
};

struct IndiceRegistroPDB {
    TramoPDB Datos;
    quint32 ID = 0;
    quint8 Atributos = 0;
};

struct IndiceRecursoPDB {
    TramoPDB Datos;
    quint32 Tipo = 0;
    quint16 ID = 0;
};

// A file read without copying its data: the header, and where every block lies in the bytes.
// Readers that keep the file's bytes hand out slices of them instead of holding a copy per record.
struct DisposicionPDB : CabeceraPDB {
    TramoPDB AppInfo;
    TramoPDB SortInfo;
    QVector<IndiceRegistroPDB> Registros;
    QVector<IndiceRecursoPDB> Recursos;
    qint32 Entradas = 0; // how many entries the file lists, kept or not
};

// What a writer lays out: the entries with their data, wherever that data lives.
struct PiezaRegistroPDB {
    quint8 Atributos = 0;
    quint32 ID = 0;
    QByteArrayView Datos;
};

struct PiezaRecursoPDB {
    quint32 Tipo = 0;
    quint16 ID = 0;
    QByteArrayView Datos;
};

// One Palm database file (.pdb record database or .prc resource database), held in memory.
//
// Header, 78 bytes, all numbers big-endian:
//   0  name[32] (zero-terminated)   32 attributes u16    34 version u16
//   36 creation date u32            40 modification date u32   44 backup date u32
//   48 modification number u32      52 AppInfo offset u32       56 SortInfo offset u32
//   60 type u32                     64 creator u32              68 unique-ID seed u32
//   72 next record list u32         76 number of entries u16
// Then the entries: a record entry is 8 bytes (offset u32, attribute byte, 24-bit unique ID), a
// resource entry 10 bytes (type u32, id u16, offset u32); two bytes of padding; then AppInfo,
// SortInfo and the record or resource data, in that order.
//
// Leer validates every offset against the file and rejects anything malformed; Escribir lays the
// file out anew from the content, so no offset read is ever trusted on write.
class clsArchivoPDB : public CabeceraPDB {
public:
    QByteArray AppInfo;
    QByteArray SortInfo;
    QVector<EntradaRegistroPDB> Registros; // a record database
    QVector<EntradaRecursoPRC> Recursos;   // a resource database

    static constexpr qsizetype TamanoCabecera = 78;
    static constexpr qsizetype TamanoEntradaRegistro = 8;
    static constexpr qsizetype TamanoEntradaRecurso = 10;
    // No Palm database is larger (a handheld's memory holds less): a larger file is none, and is
    // never read into memory.
    static constexpr qint64 TamanoMaximo = 64 * 1024 * 1024;
    // Why a file of xTamano bytes, more than TamanoMaximo, is not a database.
    static QString TextoDemasiadoGrande(qint64 xTamano);

    // Throws ErrorFormatoPDB with the reason when the bytes are not a valid database.
    static clsArchivoPDB Leer(const QByteArray& xBytes);
    QByteArray Escribir() const;

    // Validates and indexes a file without copying anything. xBytes must hold at least the header
    // and the entry list (see TamanoIndice); every block is checked against xTamanoArchivo, the
    // size of the whole file, so the catalogue can check a file from its first bytes alone. With
    // xSinEntradas the entries are checked but not kept (the layout then lists none).
    static DisposicionPDB Analizar(QByteArrayView xBytes, qint64 xTamanoArchivo,
                                   bool xSinEntradas = false);
    static DisposicionPDB Analizar(QByteArrayView xBytes) {
        return Analizar(xBytes, xBytes.size());
    }
    // How many bytes the header and the entry list take, from the header's first 78 bytes.
    // Throws ErrorFormatoPDB when there are fewer.
    static qint64 TamanoIndice(QByteArrayView xCabecera);

    // Lays a file out from its content: 78-byte header, entries, 2 padding bytes, AppInfo,
    // SortInfo, data. Throws ErrorFormatoPDB when the content cannot be stored in a file.
    static QByteArray Componer(const CabeceraPDB& xCabecera, QByteArrayView xAppInfo,
                               QByteArrayView xSortInfo,
                               const QVector<PiezaRegistroPDB>& xRegistros,
                               const QVector<PiezaRecursoPDB>& xRecursos);
    // The same for a record database whose xCantidad records xRegistro hands out one by one (so
    // a writer need not gather them), also giving the layout of the bytes it returns.
    static QByteArray Componer(const CabeceraPDB& xCabecera, QByteArrayView xAppInfo,
                               QByteArrayView xSortInfo, qint32 xCantidad,
                               const std::function<PiezaRegistroPDB(qint32)>& xRegistro,
                               DisposicionPDB& xDisposicion);

    // The flags of a record's attribute byte (its high nibble, and Archive in the low one).
    static constexpr qint32 AtributoBorrado = 0x80;    // Delete
    static constexpr qint32 AtributoModificado = 0x40; // Dirty
    static constexpr qint32 AtributoOcupado = 0x20;    // Busy
    static constexpr qint32 AtributoSecreto = 0x10;    // Secret
    static constexpr qint32 AtributoArchivado = 0x08;  // Archive

    // The record attribute byte: the high nibble holds the flags; the low nibble the category,
    // except when Delete or Busy is set, where it holds the Archive flag and the category reads 0.
    static void SepararAtributos(quint8 xByte, qint32& xAtributos, qint32& xCategoria);
    // The reverse; an Archive flag on a record that is neither deleted nor busy is dropped.
    static quint8 UnirAtributos(qint32 xAtributos, qint32 xCategoria);
};
