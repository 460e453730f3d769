#include "data/carpeta/clsFuenteCarpeta.h"

#include "data/carpeta/clsCatalogoCarpeta.h"
#include "data/carpeta/clsGestorCarpeta.h"
#include "data/carpeta/clsSistemaCarpeta.h"

#include <utility>

clsFuenteCarpeta::clsFuenteCarpeta(const QString& xCarpeta, const QString& xCodigoPagina)
    : mCatalogo(std::make_shared<clsCatalogoCarpeta>(xCarpeta, xCodigoPagina)) {}

clsFuenteCarpeta::clsFuenteCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo)
    : mCatalogo(std::move(xCatalogo)) {}

std::unique_ptr<clsGestorBases> clsFuenteCarpeta::CrearGestor() {
    return std::make_unique<clsGestorCarpeta>(mCatalogo);
}

std::unique_ptr<clsSistemaPalm> clsFuenteCarpeta::CrearSistema() {
    return std::make_unique<clsSistemaCarpeta>(mCatalogo);
}

QString clsFuenteCarpeta::CodigoATexto(qint32 xCodigo, qint32) const {
    return clsGestorCarpeta::Codigo(static_cast<quint32>(xCodigo));
}

QString clsFuenteCarpeta::CodigoPagina() const {
    return mCatalogo->CodigoPagina();
}

bool clsFuenteCarpeta::EsArchivoPropio(const QString& xArchivo) const {
    return mCatalogo->EsPropio(xArchivo);
}

const QString& clsFuenteCarpeta::Carpeta() const {
    return mCatalogo->Carpeta();
}

QStringList clsFuenteCarpeta::Avisos() const {
    return mCatalogo->Avisos();
}
