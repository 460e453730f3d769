#pragma once

#include "data/carpeta/clsCatalogoCarpeta.h"
#include "data/clsFuentePalm.h"

#include <memory>

// The system object of a folder handheld: card and user information from the optional
// Handheld.ini in the folder, values it lacks derived from the folder itself.
//
//   [Card]  Number, Version, CreationDate, RomSize, RamSize, FreeRam, Name, Manufacturer,
//           RomDbCount, RamDbCount
//   [User]  Name, Password, LastSyncDate, LastSyncPC, UserID
//
// Dates are written yyyy-MM-dd hh:mm:ss (or yyyy-MM-ddThh:mm:ss, or yyyy-MM-dd); sizes in bytes.
// Without a key: card number 0, version 1, creation date the oldest database creation date, RAM
// size the total size of the database files, free RAM the free space of the folder's file system,
// ROM size and ROM database count 0, RAM database count the number of databases, card name the
// folder's name, manufacturer empty; user name the parent folder's name when the folder is called
// Backup (the layout <user>/Backup of a desktop backup), otherwise empty; the other user values 0
// or empty. A folder or Handheld.ini that cannot be read raises HandheldInaccesible when the card
// or the user is asked for; a value that is not of its kind raises it when that value is read.
class clsSistemaCarpeta : public clsSistemaPalm {
public:
    explicit clsSistemaCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo);

    std::unique_ptr<clsTarjetaPalm> TarjetaMemoria() override;
    std::unique_ptr<clsUsuarioPalm> InformacionUsuario() override;

private:
    std::shared_ptr<clsCatalogoCarpeta> mCatalogo;
};
