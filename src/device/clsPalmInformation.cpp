#include "device/clsPalmInformation.h"

#include "data/modHandheld.h"

clsPalmInformation::clsPalmInformation() : clsPalmInformation(*modHandheld::FuenteActual()) {}

clsPalmInformation::clsPalmInformation(clsFuentePalm& xFuente) : mSistema(xFuente.CrearSistema()) {}

std::unique_ptr<clsTarjetaPalm> clsPalmInformation::MemoryCard() const {
    return mSistema->TarjetaMemoria();
}

std::unique_ptr<clsUsuarioPalm> clsPalmInformation::UserInformation() const {
    return mSistema->InformacionUsuario();
}
