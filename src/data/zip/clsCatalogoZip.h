#pragma once

#include "data/carpeta/clsCatalogoCarpeta.h"
#include "data/zip/clsArchivoZip.h"

#include <QHash>
#include <memory>

// What a zip backup of a handheld holds (what emulators export: every database in one archive).
// Its .pdb and .prc entries, in any folder inside it, are the handheld's databases, known by the
// name in their header with the folder's rules; a Handheld.ini entry describes the handheld.
//
// Each database file is known by the archive's path, a slash and the entry's name. The archive is
// read again when a look at it shows a change; an entry is read again when its size, checksum or
// date changed. Entries are only ever read into memory, never written out as files, so no entry
// name can reach outside the archive. Entries that cannot be databases are left out and reported:
// encrypted ones, ones that claim more bytes than a database can hold, names with "..", archives
// inside the archive.
class clsCatalogoZip : public clsCatalogoCarpeta {
public:
    // Raises nothing: an archive that cannot be read raises HandheldInaccesible when read.
    explicit clsCatalogoZip(const QString& xArchivo, const QString& xCodigoPagina = QString());

    // The archive's name without its extension.
    QString NombreHandheld() const override;
    QVariantMap Ajustes(const QString& xOperacion) override;
    QString Donde() const override;
    // The archive itself and its lock file.
    bool EsPropio(const QString& xArchivo) const override;
    std::unique_ptr<clsBaseAbierta> AbrirBase(const FichaBaseCarpeta& xFicha,
                                              const QString& xNombre, ContenidoArchivo xContenido,
                                              const QString& xOperacion) override;

    // A look at the entry of a database file in the archive as it is now (its directory read
    // again); a state that says it does not exist when the archive no longer holds it.
    EstadoArchivo EstadoEntrada(const QString& xRuta) const;
    // The whole entry as it is now; false, with xError set, when it cannot be read.
    bool LeerEntrada(const QString& xRuta, QByteArray& xBytes, QString& xError);
    // The entry's name inside the archive.
    QString NombreEntrada(const QString& xRuta) const;

protected:
    QStringList Archivos() const override;
    QStringList AvisosAlmacen() const override;
    EstadoArchivo EstadoDe(const QString& xRuta) const override;
    Lectura Leer(const QString& xRuta) override;
    bool LeerContenido(const FichaBaseCarpeta& xFicha, ContenidoArchivo& xContenido,
                       QString& xError) override;
    void ComprobarCarpeta() const override;

private:
    // The archive as it was last read.
    struct Instantanea {
        EstadoArchivo Estado;
        qint64 Momento = 0;
        std::shared_ptr<clsArchivoZip> Zip;
        QHash<QString, EntradaZip> PorNombre; // the entries that may be databases, by name
        QStringList Repetidas;                // names of further entries of a name taken
        // Entries read whole while their header was read, for the open that usually follows.
        QHash<QString, QByteArray> Leidas;
    };
    // How much the archive is looked at before an answer: not at all (the listing and its
    // entries answer from the archive just looked at), one look that reads it again when it
    // shows a change (trusted even within the second of a change: the writes of this program
    // read the archive again before they compare), or a reading in any case.
    enum class Mirada { Ninguna, Mirar, Releer };
    const Instantanea& Actual(Mirada xMirada) const;
    const EntradaZip* Entrada(const QString& xRuta) const;

    mutable Instantanea mInstantanea;
};
