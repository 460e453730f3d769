#pragma once

#include "data/clsFuentePalm.h"

#include <functional>
#include <memory>

// A database source that tells how far a walk over the whole handheld has come: after the
// catalogue is listed (ListarBases), each database looked up counts one step of as many as were
// listed. Everything else goes to the source behind it unchanged.
class clsFuenteConProgreso : public clsFuentePalm {
public:
    using Aviso = std::function<void(int xHechas, int xTotal)>;

    clsFuenteConProgreso(std::shared_ptr<clsFuentePalm> xFuente, Aviso xAviso);

    std::unique_ptr<clsGestorBases> CrearGestor() override;
    std::unique_ptr<clsSistemaPalm> CrearSistema() override;
    QString CodigoATexto(qint32 xCodigo, qint32 xOpcion) const override;
    QString CodigoPagina() const override;
    bool EsArchivoPropio(const QString& xArchivo) const override;

    struct Recorrido {
        int Hechas = 0;
        int Total = 0;
        Aviso Avisar;
    };

private:
    std::shared_ptr<clsFuentePalm> mFuente;
    std::shared_ptr<Recorrido> mRecorrido;
};
