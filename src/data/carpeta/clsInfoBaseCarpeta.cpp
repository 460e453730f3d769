#include "data/carpeta/clsInfoBaseCarpeta.h"

#include <limits>
#include <utility>

clsInfoBaseCarpeta::clsInfoBaseCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo,
                                       FichaBaseCarpeta xFicha)
    : mCatalogo(std::move(xCatalogo)), mFicha(std::move(xFicha)) {}

// The object holds a copy of one header and no handle on the file: there is nothing to release.
void clsInfoBaseCarpeta::Liberar() {}

const FichaBaseCarpeta& clsInfoBaseCarpeta::Ficha() const {
    mFicha = mCatalogo->Actual(mFicha);
    return mFicha;
}

QString clsInfoBaseCarpeta::Nombre() const {
    return mFicha.Nombre;
}

qint32 clsInfoBaseCarpeta::Tipo() const {
    return static_cast<qint32>(Ficha().Cabecera.Tipo);
}

qint32 clsInfoBaseCarpeta::Creador() const {
    return static_cast<qint32>(Ficha().Cabecera.Creador);
}

qint32 clsInfoBaseCarpeta::AtributosBase() const {
    return Ficha().Cabecera.Atributos;
}

qint32 clsInfoBaseCarpeta::Version() const {
    return Ficha().Cabecera.Version;
}

// A file's header has one 16-bit version number and nothing to go with it.
qint32 clsInfoBaseCarpeta::VersionCompanero() const {
    return 0;
}

QDateTime clsInfoBaseCarpeta::FechaCreacion() const {
    return clsCatalogoCarpeta::FechaPalm(Ficha().Cabecera.FechaCreacion);
}

QDateTime clsInfoBaseCarpeta::FechaModificacion() const {
    return clsCatalogoCarpeta::FechaPalm(Ficha().Cabecera.FechaModificacion);
}

QDateTime clsInfoBaseCarpeta::FechaBackup() const {
    return clsCatalogoCarpeta::FechaPalm(Ficha().Cabecera.FechaBackup);
}

qint32 clsInfoBaseCarpeta::TamanoBase() const {
    return static_cast<qint32>(qMin<qint64>(Ficha().Tamano, std::numeric_limits<qint32>::max()));
}

qint32 clsInfoBaseCarpeta::CantidadRegistros() const {
    return Ficha().Entradas;
}
