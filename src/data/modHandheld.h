#pragma once

#include "data/clsFuentePalm.h"

#include <QString>
#include <memory>

// The handheld the program works on. Every clsPalmPDB and clsPalmInformation made without an
// explicit source uses this one.
namespace modHandheld {
void EstablecerFuente(std::shared_ptr<clsFuentePalm> xFuente);
std::shared_ptr<clsFuentePalm> FuenteActual();
} // namespace modHandheld
