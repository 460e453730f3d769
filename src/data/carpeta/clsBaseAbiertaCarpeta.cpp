#include "data/carpeta/clsBaseAbiertaCarpeta.h"

#include "common/clsEscrituraSegura.h"

#include <QFileInfo>
#include <cstring>

namespace {

constexpr QFileDevice::Permissions PermisosEscritura =
    QFileDevice::WriteOwner | QFileDevice::WriteGroup | QFileDevice::WriteOther;

// True when the file holds exactly xBytes. It is compared piece by piece, so that checking a
// large database for another writer's change does not need a second copy of it.
bool MismoContenido(clsLecturaArchivo& xArchivo, const QByteArray& xBytes) {
    if (xArchivo.Estado().Tamano != xBytes.size()) return false;
    // Pieces no larger than the file, so a small file costs a small buffer.
    const qint64 pedazoMayor = qMin<qint64>(1024 * 1024, xBytes.size());
    QByteArray pedazo;
    pedazo.reserve(pedazoMayor);
    for (qint64 posicion = 0; posicion < xBytes.size(); posicion += pedazo.size()) {
        pedazo.clear();
        if (!xArchivo.Leer(posicion, qMin(pedazoMayor, xBytes.size() - posicion), pedazo) ||
            pedazo.isEmpty() ||
            std::memcmp(pedazo.constData(), xBytes.constData() + posicion, size_t(pedazo.size())))
            return false;
    }
    pedazo.clear();
    return xArchivo.Leer(xBytes.size(), 1, pedazo) && pedazo.isEmpty();
}

} // namespace

clsBaseAbiertaCarpeta::clsBaseAbiertaCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo,
                                             const FichaBaseCarpeta& xFicha, const QString& xNombre,
                                             ContenidoArchivo xContenido, const QString& xOperacion)
    : clsBaseAbierta(xNombre, std::move(xContenido.Bytes), xOperacion),
      mCatalogo(std::move(xCatalogo)), mArchivo(xFicha.Archivo), mEstado(xContenido.Estado),
      mMomento(xContenido.Momento) {
    // A file rewritten in place with the same size in the second the folder was read looks the
    // same to the catalogue: what was just read is the truth.
    if (static_cast<const CabeceraPDB&>(Disposicion()) != xFicha.Cabecera ||
        Disposicion().Entradas != xFicha.Entradas)
        Tomado();
}

// A file or folder whose write permissions are all cleared is read-only for this program even
// when the user could override them (as an administrator can).
bool clsBaseAbiertaCarpeta::SoloLectura(const QFileInfo& xInfo) {
    return !xInfo.isWritable() || (xInfo.permissions() & PermisosEscritura) == 0;
}

QString clsBaseAbiertaCarpeta::ArchivoCandado() const {
    return mArchivo + QStringLiteral(".lock");
}

void clsBaseAbiertaCarpeta::ComprobarEscritura(const QString& xOperacion) const {
    const QFileInfo info(mArchivo);
    if (SoloLectura(QFileInfo(info.absolutePath())))
        FallaEscritura(xOperacion, QStringLiteral("the handheld folder is read-only"));
    if (SoloLectura(info)) FallaEscritura(xOperacion, QStringLiteral("its file is read-only"));
}

void clsBaseAbiertaCarpeta::Tomado() {
    mCatalogo->Anotar(mArchivo, Disposicion(), Disposicion().Entradas,
                      {Bytes(), mEstado, mMomento});
}

bool clsBaseAbiertaCarpeta::LeerCambiado(const QString& xOperacion, QByteArray& xBytes) const {
    // A look at the file proves it unchanged unless it changed in the second it was read; only
    // then, or when the look shows a change, are its bytes compared.
    if (mEstado.Seguro(mMomento) &&
        mEstado.SinCambios(clsLecturaArchivo::EstadoDe(mArchivo), mMomento))
        return false;
    clsLecturaArchivo archivo(mArchivo);
    if (!archivo.Abierto())
        FallaEscritura(xOperacion,
                       QStringLiteral("its file cannot be read (%1)").arg(archivo.Error()));
    if (MismoContenido(archivo, Bytes())) return false;
    if (!archivo.LeerTodo(xBytes))
        FallaEscritura(xOperacion,
                       QStringLiteral("its file cannot be read (%1)").arg(archivo.Error()));
    return true;
}

void clsBaseAbiertaCarpeta::Reemplazar(const QString& xOperacion, const QByteArray& xBytes) {
    clsEscrituraSegura salida(mArchivo);
    if (!salida.Abrir() || !salida.Escribir(xBytes) || !salida.Terminar())
        FallaEscritura(xOperacion, salida.Error());
    mEstado = clsLecturaArchivo::EstadoDe(mArchivo);
    mMomento = clsLecturaArchivo::Ahora();
}
