#include "data/zip/clsBaseAbiertaZip.h"

#include "common/modFunciones.h"
#include "data/carpeta/clsBaseAbiertaCarpeta.h"
#include "data/zip/clsArchivoZip.h"

#include <QFileInfo>

clsBaseAbiertaZip::clsBaseAbiertaZip(std::shared_ptr<clsCatalogoZip> xCatalogo,
                                     const FichaBaseCarpeta& xFicha, const QString& xNombre,
                                     ContenidoArchivo xContenido, const QString& xOperacion)
    : clsBaseAbierta(xNombre, std::move(xContenido.Bytes), xOperacion),
      mCatalogo(std::move(xCatalogo)), mRuta(xFicha.Archivo), mEstado(xContenido.Estado),
      mMomento(xContenido.Momento) {
    if (static_cast<const CabeceraPDB&>(Disposicion()) != xFicha.Cabecera ||
        Disposicion().Entradas != xFicha.Entradas)
        Tomado();
}

// Beside the archive itself, wherever links to it are: every writer of it takes the same lock.
QString clsBaseAbiertaZip::ArchivoCandado() const {
    return modFunciones::DestinoFinal(mCatalogo->Carpeta()) + QStringLiteral(".lock");
}

void clsBaseAbiertaZip::ComprobarEscritura(const QString& xOperacion) const {
    const QFileInfo archivo(modFunciones::DestinoFinal(mCatalogo->Carpeta()));
    if (clsBaseAbiertaCarpeta::SoloLectura(QFileInfo(archivo.absolutePath())))
        FallaEscritura(xOperacion, QStringLiteral("the folder of the backup archive is read-only"));
    if (clsBaseAbiertaCarpeta::SoloLectura(archivo))
        FallaEscritura(xOperacion, QStringLiteral("the backup archive is read-only"));
}

bool clsBaseAbiertaZip::LeerCambiado(const QString& xOperacion, QByteArray& xBytes) const {
    const EstadoArchivo ahora = mCatalogo->EstadoEntrada(mRuta);
    if (mEstado.SinCambios(ahora, mMomento)) return false;
    QString error;
    if (!mCatalogo->LeerEntrada(mRuta, xBytes, error))
        FallaEscritura(xOperacion, QStringLiteral("its entry cannot be read (%1)").arg(error));
    return xBytes != Bytes();
}

void clsBaseAbiertaZip::Reemplazar(const QString& xOperacion, const QByteArray& xBytes) {
    QString error;
    if (!clsArchivoZip::Reemplazar(mCatalogo->Carpeta(), mCatalogo->NombreEntrada(mRuta), xBytes,
                                   error))
        FallaEscritura(xOperacion, error);
    mEstado = mCatalogo->EstadoEntrada(mRuta);
    mMomento = clsLecturaArchivo::Ahora();
}

void clsBaseAbiertaZip::Tomado() {
    mCatalogo->Anotar(mRuta, Disposicion(), Disposicion().Entradas, {Bytes(), mEstado, mMomento});
}
