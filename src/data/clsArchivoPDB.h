#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>
#include <QtGlobal>
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
class clsArchivoPDB {
public:
    QByteArray Nombre; // the raw name bytes, without the terminator
    quint16 Atributos = 0;
    quint16 Version = 0;
    quint32 FechaCreacion = 0; // Palm seconds since 1904-01-01
    quint32 FechaModificacion = 0;
    quint32 FechaBackup = 0;
    quint32 NumeroModificacion = 0;
    quint32 Tipo = 0;
    quint32 Creador = 0;
    quint32 SemillaID = 0;
    QByteArray AppInfo;
    QByteArray SortInfo;
    QVector<EntradaRegistroPDB> Registros; // a record database
    QVector<EntradaRecursoPRC> Recursos;   // a resource database

    static constexpr quint16 AtributoRecursos = 0x0001;

    bool EsRecursos() const { return (Atributos & AtributoRecursos) != 0; }

    // Throws ErrorFormatoPDB with the reason when the bytes are not a valid database.
    static clsArchivoPDB Leer(const QByteArray& xBytes);
    QByteArray Escribir() const;

    // The record attribute byte: high nibble Delete 0x80, Dirty 0x40, Busy 0x20, Secret 0x10;
    // low nibble the category, except when Delete or Busy is set, where 0x08 is the Archive flag
    // and the category reads 0.
    static void SepararAtributos(quint8 xByte, qint32& xAtributos, qint32& xCategoria);
    // The reverse; an Archive flag on a record that is neither deleted nor busy is dropped.
    static quint8 UnirAtributos(qint32 xAtributos, qint32 xCategoria);
};
