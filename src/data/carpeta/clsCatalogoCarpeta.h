#pragma once

#include "data/carpeta/modAjustesIni.h"
#include "data/formato/clsArchivoPDB.h"
#include "data/formato/clsLecturaArchivo.h"

#include <QByteArrayView>
#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringDecoder>
#include <QStringList>
#include <QVariantMap>
#include <QVector>
#include <functional>
#include <memory>

class clsBaseAbierta;

// One database of the folder, as its header describes it.
struct FichaBaseCarpeta {
    QString Archivo; // absolute path of the file
    QString Nombre;  // the header's name, decoded with the handheld's code page
    CabeceraPDB Cabecera;
    qint32 Entradas = 0;  // records or resources
    qint64 Tamano = 0;    // bytes
    EstadoArchivo Estado; // the file when the header was read
    // The country an address book's AppInfo block names, read with its header; -1 for any other
    // database.
    qint32 Pais = -1;
};

// A whole database file and the look at the file it was read with.
struct ContenidoArchivo {
    QByteArray Bytes;
    EstadoArchivo Estado;
    qint64 Momento = 0; // when the bytes were read (ms since 1970), see EstadoArchivo::Seguro
};

// What a folder of .pdb/.prc files holds. Databases are known by the name in their header; the
// first file in file-name order wins a name and any other file with it is reported, as is every
// file that is not a valid database.
//
// Reading the folder opens each file once, looks at it and reads its header and entry list in
// one read. What was read is kept per file and read again only when a look at the file shows a
// change, so reading the folder again costs one look per file. Between readings of the folder,
// lookups by name answer from what the catalogue knows without touching the disk; opening a
// database reads its file, which tells whether it changed, and the writes of this program update
// the catalogue as they land.
//
// Another store of database files (an archive) derives from it and supplies how files are
// listed, looked at, read and opened for writing; the rules above stay the same.
class clsCatalogoCarpeta : public std::enable_shared_from_this<clsCatalogoCarpeta> {
public:
    // xCodigoPagina, when not empty, is the code page of the handheld's texts whatever
    // Handheld.ini says.
    explicit clsCatalogoCarpeta(const QString& xCarpeta, const QString& xCodigoPagina = QString());
    virtual ~clsCatalogoCarpeta() = default;

    // Where the handheld is: the folder (or the archive) as an absolute path.
    const QString& Carpeta() const { return mCarpeta; }
    // The handheld's own name where it has no other: the folder's name.
    virtual QString NombreHandheld() const;
    // The values of Handheld.ini by "Section/Key", as it is now; none when there is no
    // Handheld.ini. Raises HandheldInaccesible when the handheld or its Handheld.ini cannot be
    // read.
    virtual QVariantMap Ajustes(const QString& xOperacion);
    // The handheld as messages name it: the handheld folder "...", the backup archive "...".
    virtual QString Donde() const;
    // True when xArchivo, a file's path with its links followed, is one of the handheld's own
    // files or would become one: a database file of the folder (also one a link in the folder
    // leads to), a database name in the folder, Handheld.ini, a lock file.
    virtual bool EsPropio(const QString& xArchivo) const;
    // The open database of xFicha, whose whole file xContenido was just read.
    virtual std::unique_ptr<clsBaseAbierta> AbrirBase(const FichaBaseCarpeta& xFicha,
                                                      const QString& xNombre,
                                                      ContenidoArchivo xContenido,
                                                      const QString& xOperacion);
    // The handheld's code page: the one asked for, else [Handheld] Encoding of Handheld.ini;
    // without either, Shift_JIS (windows-932) when the handheld's address book is made for Japan
    // and windows-1252 otherwise. The first call may read the folder to tell.
    const QString& CodigoPagina();
    QString Decodificar(QByteArrayView xTexto) const;
    // What the last reading of the folder found wrong: duplicates and files left out.
    QStringList Avisos() const;

    // Reads the folder again. Raises HandheldInaccesible when it cannot be read, and when its
    // Handheld.ini, which names the code page of its texts, cannot be read (unless the code page
    // was given).
    void Actualizar();
    // The databases in file-name order (the folder is read first if it never was).
    const QVector<FichaBaseCarpeta>& Bases();
    // The database of that name as the catalogue knows it; the folder is read when it never was
    // or does not hold that name. Raises BaseNoEncontrada when no file holds it, and BaseEnUso
    // when the file that holds it is not a valid database.
    FichaBaseCarpeta Buscar(const QString& xNombre, const QString& xOperacion);
    // The whole file of the database of that name as it is now, and in xFicha the database. When
    // the file changed since the catalogue read it, the folder is read again first, as the name
    // may have moved to another file. Raises as Buscar does, and BaseEnUso when the file cannot
    // be read.
    ContenidoArchivo Contenido(const QString& xNombre, const QString& xOperacion,
                               FichaBaseCarpeta& xFicha);
    // The database of xFicha's file as the catalogue knows it now; xFicha itself when that file
    // no longer holds that database.
    FichaBaseCarpeta Actual(const FichaBaseCarpeta& xFicha) const;
    // Takes note of a database file this program has just written.
    void Anotar(const QString& xArchivo, const CabeceraPDB& xCabecera, qint32 xEntradas,
                const ContenidoArchivo& xContenido);

    // Header dates: Palm seconds since 1904-01-01 and the system's wall-clock dates, converted
    // as the date fields of records are.
    static QDateTime FechaPalm(quint32 xSegundos);
    static quint32 SegundosPalm(const QDateTime& xFecha);

protected:
    // For a derived store: xUbicacion is absolute, xIni its Handheld.ini as found at the start
    // (which gives the code page unless xCodigoPagina does), xDonde as Donde says.
    clsCatalogoCarpeta(const QString& xUbicacion, const QString& xCodigoPagina,
                       const modAjustesIni::Ajustes& xIni, const QString& xDonde);
    // The values of a Handheld.ini just read; raises as Ajustes says.
    QVariantMap Valores(const modAjustesIni::Ajustes& xIni, const QString& xOperacion) const;

    struct Lectura {
        EstadoArchivo Estado;
        qint64 Momento = 0;
        bool Presente = false; // something stands at the path (it may not be a regular file)
        bool Valida = false;
        FichaBaseCarpeta Ficha;
        QString NombreLeido; // the header's name, when it could be read
        QString Motivo;      // why the file is not a database
    };

    // Appends to xBytes xCantidad bytes of a file from xDesde on (fewer at its end); false, with
    // xError set, when they cannot be read.
    using LectorBytes =
        std::function<bool(qint64 xDesde, qint64 xCantidad, QByteArray& xBytes, QString& xError)>;
    // Fills a reading whose Estado gives the file's size from the file's header and entry list.
    void Interpretar(Lectura& xLectura, const QString& xRuta, const LectorBytes& xLeer);

    // The store's part: the paths of its database files (sorted), a look at one, its reading.
    virtual QStringList Archivos() const;
    virtual EstadoArchivo EstadoDe(const QString& xRuta) const;
    virtual Lectura Leer(const QString& xRuta);
    virtual bool LeerContenido(const FichaBaseCarpeta& xFicha, ContenidoArchivo& xContenido,
                               QString& xError);
    // Raises HandheldInaccesible when the store cannot be read.
    virtual void ComprobarCarpeta() const;
    // What the store itself found wrong when its files were listed, one sentence each.
    virtual QStringList AvisosAlmacen() const { return {}; }

private:
    // The file's reading, from the cache when a look at the file shows it unchanged. A file
    // that is gone gives a reading whose state says so.
    const Lectura& LeerConCache(const QString& xRuta);
    // The code page of a handheld that names none, from its first address book's country; the
    // catalogue is read again when it was read in another page.
    void DecidirCodigoPagina();
    void UsarCodigoPagina(const QString& xCodigoPagina);
    [[noreturn]] void Falta(const QString& xNombre, const QString& xArchivoConocido,
                            const QString& xOperacion) const;

    static QString DondeCarpeta(const QString& xCarpeta);

    QString mCarpeta;
    QString mCodigoPagina;
    QString mAvisoCodigoPagina;
    bool mCodigoPorDecidir = false;
    QString mErrorIni; // why Handheld.ini, which names the code page, cannot be read
    mutable QStringDecoder mDecodificador;
    bool mLeida = false;
    QHash<QString, Lectura> mCache; // by path
    QVector<FichaBaseCarpeta> mBases;
    QHash<QString, qsizetype> mPorNombre;
    QHash<QString, QString> mRechazadas; // database name -> why its file was left out
    QStringList mAvisos;
};
