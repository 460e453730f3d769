#pragma once

#include "data/carpeta/clsBaseAbierta.h"
#include "data/zip/clsCatalogoZip.h"

#include <QString>
#include <memory>

// One open database of a zip backup. A write keeps the rules of clsBaseAbierta with one lock
// file beside the archive (name.zip.lock), as any write rewrites the whole archive: the archive
// is copied to a temporary file beside it with this database's entry replaced and every other
// entry as it was, flushed and renamed over the archive. The catalogue is told.
class clsBaseAbiertaZip : public clsBaseAbierta {
public:
    // As clsBaseAbiertaCarpeta's.
    clsBaseAbiertaZip(std::shared_ptr<clsCatalogoZip> xCatalogo, const FichaBaseCarpeta& xFicha,
                      const QString& xNombre, ContenidoArchivo xContenido,
                      const QString& xOperacion);

protected:
    QString ArchivoCandado() const override;
    void ComprobarEscritura(const QString& xOperacion) const override;
    bool LeerCambiado(const QString& xOperacion, QByteArray& xBytes) const override;
    void Reemplazar(const QString& xOperacion, const QByteArray& xBytes) override;
    void Tomado() override;

private:
    std::shared_ptr<clsCatalogoZip> mCatalogo;
    QString mRuta;         // the archive's path, a slash and the entry's name
    EstadoArchivo mEstado; // the entry when the bytes held were read or written
    qint64 mMomento = 0;   // when that was
};
