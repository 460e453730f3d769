#pragma once

#include "data/clsArchivoPDB.h"

#include <QByteArrayView>
#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

// One database of the folder, as its header describes it.
struct FichaBaseCarpeta {
    QString Archivo; // absolute path of the file
    QString Nombre;  // the header's name, decoded with the handheld's code page
    CabeceraPDB Cabecera;
    qint32 Entradas = 0;   // records or resources
    qint64 Tamano = 0;     // bytes
    qint64 Modificado = 0; // the file's modification time, as the file system counts it
};

// What a folder of .pdb/.prc files holds. Databases are known by the name in their header; the
// first file in file-name order wins a name and any other file with it is reported, as is every
// file that is not a valid database. Only headers and entry lists are read, and each file's
// header is kept until its size or modification time changes, so listing a large folder again
// costs little more than reading the folder itself.
class clsCatalogoCarpeta {
public:
    explicit clsCatalogoCarpeta(const QString& xCarpeta);

    const QString& Carpeta() const { return mCarpeta; }
    // The handheld's code page: [Handheld] Encoding of Handheld.ini, windows-1252 by default.
    const QString& CodigoPagina() const { return mCodigoPagina; }
    QString Decodificar(QByteArrayView xTexto) const;
    // What the last reading of the folder found wrong: duplicates and files left out.
    QStringList Avisos() const;

    // Reads the folder again. Raises HandheldInaccesible when it cannot be read.
    void Actualizar();
    // The databases in file-name order (the folder is read first if it never was).
    const QVector<FichaBaseCarpeta>& Bases();
    // The database of that name. Raises BaseNoEncontrada when no file holds it, and BaseEnUso
    // when the file that holds it is not a valid database.
    FichaBaseCarpeta Buscar(const QString& xNombre, const QString& xOperacion);
    // The same database as its file describes it now; xFicha itself when the file is unchanged,
    // gone or no longer holds that database.
    FichaBaseCarpeta Refrescar(const FichaBaseCarpeta& xFicha);

    // Header dates: Palm seconds since 1904-01-01 and the system's wall-clock dates, converted
    // as the date fields of records are.
    static QDateTime FechaPalm(quint32 xSegundos);
    static quint32 SegundosPalm(const QDateTime& xFecha);

private:
    struct Lectura {
        qint64 Tamano = -1;
        qint64 Modificado = -1;
        bool Valida = false;
        FichaBaseCarpeta Ficha;
        QString NombreLeido; // the header's name, when it could be read
        QString Motivo;      // why the file is not a database
    };

    struct EstadoArchivo {
        bool Existe = false;
        qint64 Tamano = 0;
        qint64 Marca = 0;
    };
    static EstadoArchivo Estado(const QString& xRuta);
    Lectura Leer(const QString& xRuta, const EstadoArchivo& xEstado);
    // xArchivo is the file's name in the folder.
    const Lectura& LeerConCache(const QString& xArchivo, const EstadoArchivo& xEstado);
    void ComprobarCarpeta() const;
    bool Buscado(const QString& xNombre, FichaBaseCarpeta& xFicha);

    QString mCarpeta;
    QString mCodigoPagina;
    QString mAvisoCodigoPagina;
    bool mLeida = false;
    QHash<QString, Lectura> mCache; // by file name
    QVector<FichaBaseCarpeta> mBases;
    QHash<QString, qsizetype> mPorNombre;
    QHash<QString, QString> mRechazadas; // database name -> why its file was left out
    QStringList mAvisos;
};
