#pragma once

#include "data/carpeta/clsFuenteCarpeta.h"

// A handheld that is a zip backup of its databases (see clsCatalogoZip): the folder source's
// roles over the archive's entries.
class clsFuenteZip : public clsFuenteCarpeta {
public:
    // xCodigoPagina, when not empty, overrides the code page the archive's Handheld.ini names.
    explicit clsFuenteZip(const QString& xArchivo, const QString& xCodigoPagina = QString());
};
