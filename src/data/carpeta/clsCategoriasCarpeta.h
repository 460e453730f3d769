#pragma once

#include "data/clsFuentePalm.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

// The categories of a record database, from the standard category block at the start of its
// AppInfo block: a 16-bit renamed-categories field, 16 names of 16 bytes (zero-terminated), 16
// category IDs, the last unique ID and a padding byte.
class clsCategoriasCarpeta : public clsCategoriasPalm {
public:
    // xAppInfo shorter than the names of the block gives no categories.
    clsCategoriasCarpeta(QByteArrayView xAppInfo, const QString& xCodigoPagina);

    // How many category numbers NombreCategoria takes: up to the last category that has a name,
    // so every named one is reached even when unnamed ones lie between (a handheld shows only
    // the named ones). A database without a category block, or with its names all empty, has
    // none.
    qint32 CantidadCategorias() const override;
    // The name of category xIndice (0..15), the number a record's category refers to; "" for a
    // category without a name. Raises the subscript error outside 0..15.
    QString NombreCategoria(qint32 xIndice) const override;

    static constexpr int Cantidad = 16;

private:
    QStringList mNombres;
};
