#pragma once

#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/clsFuentePalm.h"

#include <QString>
#include <memory>

// The handheld the program works on, chosen by the frame or by pandrel-cli's --handheld. The
// database objects are made over it and carry it; what has no database object of its own (an
// explorer when it loads, the information window, the check of an export's target) asks here.
namespace modHandheld {
// The handheld at xRuta: a zip backup when it is a file, a folder of database files otherwise.
// xCodigoPagina, when not empty, overrides the code page its Handheld.ini names.
std::shared_ptr<clsFuenteCarpeta> CrearFuente(const QString& xRuta,
                                              const QString& xCodigoPagina = QString());
// True when xRuta names a zip backup rather than a folder.
bool EsArchivo(const QString& xRuta);
// True when xRuta names one database file (.pdb or .prc) rather than a handheld.
bool EsBase(const QString& xRuta);
// The name in the header of the database file xArchivo, in the code page of the handheld xFuente;
// "" when it has none.
QString NombreDeBase(const QString& xArchivo, const clsFuentePalm& xFuente);
void EstablecerFuente(std::shared_ptr<clsFuentePalm> xFuente);
std::shared_ptr<clsFuentePalm> FuenteActual();
} // namespace modHandheld
