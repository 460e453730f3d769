#include "device/clsPalmInformation.h"

clsPalmInformation::clsPalmInformation(clsFuentePalm& xFuente) : mSistema(xFuente.CrearSistema()) {}

std::unique_ptr<clsTarjetaPalm> clsPalmInformation::MemoryCard() const {
    return mSistema->TarjetaMemoria();
}

std::unique_ptr<clsUsuarioPalm> clsPalmInformation::UserInformation() const {
    return mSistema->InformacionUsuario();
}
