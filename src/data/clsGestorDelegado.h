#pragma once

#include "data/clsFuentePalm.h"

#include <memory>

// A database manager that hands every call to another one; a manager that changes one or two
// calls derives from it and overrides only those.
class clsGestorDelegado : public clsGestorBases {
public:
    explicit clsGestorDelegado(std::unique_ptr<clsGestorBases> xGestor);

    QStringList ListarBases(qint32 xCual) override;
    std::shared_ptr<clsInfoBase> BuscarBase(const QString& xNombre) override;
    std::shared_ptr<clsInfoBase> EnumerarBases(const QString& xCreador, const QString& xTipo,
                                               bool xReiniciar) override;
    std::unique_ptr<clsAdaptadorRegistros>
    AbrirBaseRegistros(const QString& xNombre, const QString& xClase, qint32 xModo) override;
    std::unique_ptr<clsAdaptadorRecursos>
    AbrirBaseRecursos(const QString& xNombre, const QString& xClase, qint32 xModo) override;

private:
    std::unique_ptr<clsGestorBases> mGestor;
};
