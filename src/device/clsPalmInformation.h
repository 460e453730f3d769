#pragma once

#include "data/clsFuentePalm.h"

#include <memory>

// The handheld's system object: its memory card and its user.
class clsPalmInformation {
public:
    explicit clsPalmInformation(clsFuentePalm& xFuente);

    // The information objects; each of their values is read when asked for.
    std::unique_ptr<clsTarjetaPalm> MemoryCard() const;
    std::unique_ptr<clsUsuarioPalm> UserInformation() const;

private:
    std::unique_ptr<clsSistemaPalm> mSistema;
};
