#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>
#include <QtGlobal>

struct zip;

// One entry of a zip archive as its central directory describes it.
struct EntradaZip {
    qint64 Indice = 0;
    QString Nombre;    // path inside the archive, '/' between folders
    qint64 Tamano = 0; // bytes once expanded, as the archive claims
    qint64 TamanoComprimido = 0;
    quint32 Crc = 0;
    qint64 Modificado = 0; // seconds since 1970
    bool Cifrada = false;
    bool Carpeta = false;
};

// A zip archive opened for reading through libzip, and the rewrite of one of its entries. Nothing
// here ever writes a file named after an entry: entries are read into memory only.
class clsArchivoZip {
public:
    // Opens the archive and reads its central directory, so an archive cut short of it fails
    // here; an entry whose data is cut short fails when it is read.
    explicit clsArchivoZip(const QString& xRuta);
    ~clsArchivoZip();
    clsArchivoZip(const clsArchivoZip&) = delete;
    clsArchivoZip& operator=(const clsArchivoZip&) = delete;

    bool Abierto() const { return mZip != nullptr; }
    // Why the archive or the last entry could not be read.
    const QString& Error() const { return mError; }
    const QVector<EntradaZip>& Entradas() const { return mEntradas; }

    // The first xMaximo bytes of the entry (fewer when it is shorter), or all of it when xMaximo
    // is -1. Expands at most what the entry claims, so an entry that lies about its size cannot
    // make it read more. False, with Error set, when the entry cannot be read (encrypted,
    // damaged, a checksum that does not match).
    bool Leer(const EntradaZip& xEntrada, qint64 xMaximo, QByteArray& xBytes);

    // Rewrites the archive with the entry named xEntrada holding xBytes: into a temporary file
    // beside it, whose every other entry is copied as it was (compressed bytes included), then
    // flushed and renamed over the archive. False, with xError set and the archive untouched,
    // when it cannot.
    static bool Reemplazar(const QString& xRuta, const QString& xEntrada, const QByteArray& xBytes,
                           QString& xError);

private:
    struct zip* mZip = nullptr;
    QString mError;
    QVector<EntradaZip> mEntradas;
};
