#pragma once

#include "data/clsCatalogoCarpeta.h"
#include "data/clsFuentePalm.h"

#include <memory>

// The information object of one database of the folder. It answers from the file's header as the
// file is now: when the file changes on disk (a record added by another window), the next answer
// reflects it.
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
