#pragma once

#include "data/clsFuentePalm.h"

#include <memory>

// The handheld's system object: its memory card and its user.
class clsPalmInformation {
public:
    // Over the program's handheld (modHandheld::FuenteActual).
    clsPalmInformation();
    explicit clsPalmInformation(clsFuentePalm& xFuente);

    TarjetaPalm MemoryCard() const;
    UsuarioPalm UserInformation() const;

private:
    std::unique_ptr<clsSistemaPalm> mSistema;
};
