#include "data/clsGestorDelegado.h"

#include <utility>

clsGestorDelegado::clsGestorDelegado(std::unique_ptr<clsGestorBases> xGestor)
    : mGestor(std::move(xGestor)) {}

QStringList clsGestorDelegado::ListarBases(qint32 xCual) {
    return mGestor->ListarBases(xCual);
}

std::shared_ptr<clsInfoBase> clsGestorDelegado::BuscarBase(const QString& xNombre) {
    return mGestor->BuscarBase(xNombre);
}

std::shared_ptr<clsInfoBase>
clsGestorDelegado::EnumerarBases(const QString& xCreador, const QString& xTipo, bool xReiniciar) {
    return mGestor->EnumerarBases(xCreador, xTipo, xReiniciar);
}

std::unique_ptr<clsAdaptadorRegistros>
clsGestorDelegado::AbrirBaseRegistros(const QString& xNombre, const QString& xClase, qint32 xModo) {
    return mGestor->AbrirBaseRegistros(xNombre, xClase, xModo);
}

std::unique_ptr<clsAdaptadorRecursos>
clsGestorDelegado::AbrirBaseRecursos(const QString& xNombre, const QString& xClase, qint32 xModo) {
    return mGestor->AbrirBaseRecursos(xNombre, xClase, xModo);
}
