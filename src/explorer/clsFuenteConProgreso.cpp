#include "explorer/clsFuenteConProgreso.h"

#include "data/clsGestorDelegado.h"

#include <utility>

namespace {
// Counts each database looked up after the catalogue is listed.
class clsGestorConProgreso : public clsGestorDelegado {
public:
    clsGestorConProgreso(std::unique_ptr<clsGestorBases> xGestor,
                         std::shared_ptr<clsFuenteConProgreso::Recorrido> xRecorrido)
        : clsGestorDelegado(std::move(xGestor)), mRecorrido(std::move(xRecorrido)) {}

    QStringList ListarBases(qint32 xCual) override {
        QStringList nombres = clsGestorDelegado::ListarBases(xCual);
        mRecorrido->Hechas = 0;
        mRecorrido->Total = static_cast<int>(nombres.size());
        return nombres;
    }
    std::shared_ptr<clsInfoBase> BuscarBase(const QString& xNombre) override {
        std::shared_ptr<clsInfoBase> info = clsGestorDelegado::BuscarBase(xNombre);
        if (mRecorrido->Hechas < mRecorrido->Total) {
            ++mRecorrido->Hechas;
            if (mRecorrido->Avisar) mRecorrido->Avisar(mRecorrido->Hechas, mRecorrido->Total);
        }
        return info;
    }

private:
    std::shared_ptr<clsFuenteConProgreso::Recorrido> mRecorrido;
};
} // namespace

clsFuenteConProgreso::clsFuenteConProgreso(std::shared_ptr<clsFuentePalm> xFuente, Aviso xAviso)
    : mFuente(std::move(xFuente)), mRecorrido(std::make_shared<Recorrido>()) {
    mRecorrido->Avisar = std::move(xAviso);
}

std::unique_ptr<clsGestorBases> clsFuenteConProgreso::CrearGestor() {
    return std::make_unique<clsGestorConProgreso>(mFuente->CrearGestor(), mRecorrido);
}

std::unique_ptr<clsSistemaPalm> clsFuenteConProgreso::CrearSistema() {
    return mFuente->CrearSistema();
}

QString clsFuenteConProgreso::CodigoATexto(qint32 xCodigo, qint32 xOpcion) const {
    return mFuente->CodigoATexto(xCodigo, xOpcion);
}

QString clsFuenteConProgreso::CodigoPagina() const {
    return mFuente->CodigoPagina();
}

bool clsFuenteConProgreso::EsArchivoPropio(const QString& xArchivo) const {
    return mFuente->EsArchivoPropio(xArchivo);
}
