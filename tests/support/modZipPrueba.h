#pragma once

#include "support/modPrueba.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>
#include <zip.h>

// Zip archives for the tests, written with libzip: entries in the order given, compressed but for
// the names in xGuardadas, which are stored as they are; the names in xCifradas encrypted with a
// password nobody knows.
namespace modZipPrueba {

using Entradas = QVector<QPair<QString, QByteArray>>;

inline bool GuardarZip(const QString& xRuta, const Entradas& xEntradas,
                       const QStringList& xCifradas = {}, const QStringList& xGuardadas = {}) {
    int codigo = 0;
    zip_t* zip = zip_open(QFile::encodeName(xRuta).constData(), ZIP_CREATE | ZIP_TRUNCATE, &codigo);
    if (!zip) return false;
    for (const auto& [nombre, bytes] : xEntradas) {
        zip_source_t* fuente =
            zip_source_buffer(zip, bytes.constData(), zip_uint64_t(bytes.size()), 0);
        const zip_int64_t indice = zip_file_add(zip, nombre.toUtf8().constData(), fuente, 0);
        if (indice < 0) return false;
        if (xGuardadas.contains(nombre))
            zip_set_file_compression(zip, zip_uint64_t(indice), ZIP_CM_STORE, 0);
        if (xCifradas.contains(nombre))
            zip_file_set_encryption(zip, zip_uint64_t(indice), ZIP_EM_AES_256, "secret");
    }
    return zip_close(zip) == 0;
}

// Every file of a folder, by name in file-name order.
inline Entradas DeCarpeta(const QString& xCarpeta) {
    Entradas entradas;
    const QDir carpeta(xCarpeta);
    for (const QString& nombre : carpeta.entryList(QDir::Files, QDir::Name)) {
        entradas.append({nombre, modPrueba::Leer(carpeta.filePath(nombre))});
    }
    return entradas;
}

// The entries of an archive: with xComprimidos, their bytes as stored (still compressed), so a
// test can tell an entry copied as it was from one compressed anew.
inline Entradas Leer(const QString& xRuta, bool xComprimidos = false) {
    Entradas entradas;
    int codigo = 0;
    zip_t* zip = zip_open(QFile::encodeName(xRuta).constData(), ZIP_RDONLY, &codigo);
    if (!zip) return entradas;
    const zip_flags_t modo = xComprimidos ? ZIP_FL_COMPRESSED : 0;
    for (zip_int64_t i = 0; i < zip_get_num_entries(zip, 0); ++i) {
        zip_stat_t datos;
        zip_file_t* archivo = zip_fopen_index(zip, zip_uint64_t(i), modo);
        if (zip_stat_index(zip, zip_uint64_t(i), 0, &datos) != 0 || !archivo) continue;
        QByteArray bytes(qsizetype(xComprimidos ? datos.comp_size : datos.size), '\0');
        zip_fread(archivo, bytes.data(), zip_uint64_t(bytes.size()));
        zip_fclose(archivo);
        entradas.append({QString::fromUtf8(datos.name), bytes});
    }
    zip_discard(zip);
    return entradas;
}

} // namespace modZipPrueba
