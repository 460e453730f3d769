#pragma once

#include "data/clsFuentePalm.h"

#include <QString>
#include <QStringList>
#include <memory>

class clsCatalogoCarpeta;

// A handheld that is a folder of Palm database files (.pdb record databases, .prc resource
// databases), as a desktop backup folder or an emulator's export holds them. Databases are known
// by the name in their header; files that are not valid databases, and second files with a name
// already taken, are left out and reported through Avisos. Card and user information come from
// an optional Handheld.ini (see clsSistemaCarpeta), whose [Handheld] Encoding names the code page
// of the handheld's texts (windows-1252 by default).
class clsFuenteCarpeta : public clsFuentePalm {
public:
    // xCodigoPagina, when not empty, overrides the code page Handheld.ini names.
    explicit clsFuenteCarpeta(const QString& xCarpeta, const QString& xCodigoPagina = QString());

    std::unique_ptr<clsGestorBases> CrearGestor() override;
    std::unique_ptr<clsSistemaPalm> CrearSistema() override;
    // The option the direct-access library takes is ignored.
    QString CodigoATexto(qint32 xCodigo, qint32 xOpcion) const override;
    QString CodigoPagina() const override;
    bool EsArchivoPropio(const QString& xArchivo) const override;

    const QString& Carpeta() const;
    // What the last reading of the folder found wrong, one sentence each.
    QStringList Avisos() const;

protected:
    // A source over another store of database files (see clsCatalogoCarpeta).
    explicit clsFuenteCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo);

private:
    std::shared_ptr<clsCatalogoCarpeta> mCatalogo;
};
