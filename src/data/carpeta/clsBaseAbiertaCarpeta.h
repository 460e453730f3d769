#pragma once

#include "data/carpeta/clsBaseAbierta.h"
#include "data/carpeta/clsCatalogoCarpeta.h"

#include <QFileInfo>
#include <QString>
#include <memory>

// One open database file of the folder. The file is read once and kept as its bytes and their
// layout; records are handed out as copies of their slices. A write keeps the rules of
// clsBaseAbierta with a lock file beside the database (name.pdb.lock), replaces the file through
// a temporary file in the same folder that is flushed and renamed over it, and tells the
// catalogue.
class clsBaseAbiertaCarpeta : public clsBaseAbierta {
public:
    // xContenido is the whole file of the database xFicha as read now; when its header is not
    // the one the catalogue knew, the catalogue takes note. Raises BaseEnUso when it is not a
    // valid database.
    clsBaseAbiertaCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo,
                          const FichaBaseCarpeta& xFicha, const QString& xNombre,
                          ContenidoArchivo xContenido, const QString& xOperacion);

    // True when this program must not write the file or folder: also when all its write
    // permissions are cleared, though the user could override them (as an administrator can).
    static bool SoloLectura(const QFileInfo& xInfo);

protected:
    QString ArchivoCandado() const override;
    void ComprobarEscritura(const QString& xOperacion) const override;
    bool LeerCambiado(const QString& xOperacion, QByteArray& xBytes) const override;
    void Reemplazar(const QString& xOperacion, const QByteArray& xBytes) override;
    void Tomado() override;

private:
    std::shared_ptr<clsCatalogoCarpeta> mCatalogo;
    QString mArchivo;
    EstadoArchivo mEstado; // the file when the bytes held were read or written
    qint64 mMomento = 0;   // when that was
};
