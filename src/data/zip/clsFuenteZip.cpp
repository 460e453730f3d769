#include "data/zip/clsFuenteZip.h"

#include "data/zip/clsCatalogoZip.h"

clsFuenteZip::clsFuenteZip(const QString& xArchivo, const QString& xCodigoPagina)
    : clsFuenteCarpeta(std::make_shared<clsCatalogoZip>(xArchivo, xCodigoPagina)) {}
