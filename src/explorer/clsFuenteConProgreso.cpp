#include "explorer/clsFuenteConProgreso.h"

#include <utility>

namespace {
class clsGestorConProgreso : public clsGestorBases {
public:
    clsGestorConProgreso(std::unique_ptr<clsGestorBases> xGestor,
                         std::shared_ptr<clsFuenteConProgreso::Recorrido> xRecorrido)
        : mGestor(std::move(xGestor)), mRecorrido(std::move(xRecorrido)) {}

    QStringList ListarBases(qint32 xCual) override {
        QStringList nombres = mGestor->ListarBases(xCual);
        mRecorrido->Hechas = 0;
        mRecorrido->Total = static_cast<int>(nombres.size());
        return nombres;
    }
    std::shared_ptr<clsInfoBase> BuscarBase(const QString& xNombre) override {
        std::shared_ptr<clsInfoBase> info = mGestor->BuscarBase(xNombre);
        if (mRecorrido->Hechas < mRecorrido->Total) {
            ++mRecorrido->Hechas;
            if (mRecorrido->Avisar) mRecorrido->Avisar(mRecorrido->Hechas, mRecorrido->Total);
        }
        return info;
    }
    std::shared_ptr<clsInfoBase> EnumerarBases(const QString& xCreador, const QString& xTipo,
                                               bool xReiniciar) override {
        return mGestor->EnumerarBases(xCreador, xTipo, xReiniciar);
    }
    std::unique_ptr<clsAdaptadorRegistros>
    AbrirBaseRegistros(const QString& xNombre, const QString& xClase, qint32 xModo) override {
        return mGestor->AbrirBaseRegistros(xNombre, xClase, xModo);
    }
    std::unique_ptr<clsAdaptadorRecursos>
    AbrirBaseRecursos(const QString& xNombre, const QString& xClase, qint32 xModo) override {
        return mGestor->AbrirBaseRecursos(xNombre, xClase, xModo);
    }

private:
    std::unique_ptr<clsGestorBases> mGestor;
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
