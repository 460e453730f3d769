#include "data/clsFuenteZip.h"

#include "data/clsCatalogoZip.h"

clsFuenteZip::clsFuenteZip(const QString& xArchivo, const QString& xCodigoPagina)
    : clsFuenteCarpeta(std::make_shared<clsCatalogoZip>(xArchivo, xCodigoPagina)) {}
