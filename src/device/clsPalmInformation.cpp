#include "device/clsPalmInformation.h"

#include "data/modHandheld.h"

clsPalmInformation::clsPalmInformation() : clsPalmInformation(*modHandheld::FuenteActual()) {}

clsPalmInformation::clsPalmInformation(clsFuentePalm& xFuente) : mSistema(xFuente.CrearSistema()) {}

TarjetaPalm clsPalmInformation::MemoryCard() const {
    return mSistema->TarjetaMemoria();
}

UsuarioPalm clsPalmInformation::UserInformation() const {
    return mSistema->InformacionUsuario();
}
