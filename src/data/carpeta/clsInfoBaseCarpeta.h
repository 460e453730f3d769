#pragma once

#include "data/carpeta/clsCatalogoCarpeta.h"
#include "data/clsFuentePalm.h"

#include <memory>

// The information object of one database of the folder. It answers from the header as the
// catalogue knows it now, not as it was when the object was made: a record added through this
// handheld (from any window) shows in the next answer, and so does any change to the file that
// the catalogue has seen since (reading the folder again, opening the database).
class clsInfoBaseCarpeta : public clsInfoBase {
public:
    clsInfoBaseCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo, FichaBaseCarpeta xFicha);

    void Liberar() override;
    QString Nombre() const override;
    qint32 Tipo() const override;
    qint32 Creador() const override;
    qint32 AtributosBase() const override;
    qint32 Version() const override;
    qint32 VersionCompanero() const override;
    QDateTime FechaCreacion() const override;
    QDateTime FechaModificacion() const override;
    QDateTime FechaBackup() const override;
    qint32 TamanoBase() const override;
    qint32 CantidadRegistros() const override;

private:
    const FichaBaseCarpeta& Ficha() const;

    std::shared_ptr<clsCatalogoCarpeta> mCatalogo;
    mutable FichaBaseCarpeta mFicha;
};
