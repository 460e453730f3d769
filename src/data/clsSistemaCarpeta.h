#pragma once

#include "data/clsCatalogoCarpeta.h"
#include "data/clsFuentePalm.h"

#include <QVariant>
#include <memory>

class QSettings;

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
// or empty. A folder that cannot be read, a Handheld.ini that cannot be read or a value that is
// not of its kind raises HandheldInaccesible.
class clsSistemaCarpeta : public clsSistemaPalm {
public:
    explicit clsSistemaCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo);

    TarjetaPalm TarjetaMemoria() override;
    UsuarioPalm InformacionUsuario() override;

private:
    // Reads Handheld.ini; an empty map when there is none.
    QVariantMap Ajustes(const QString& xOperacion) const;
    [[noreturn]] void ValorInvalido(const QString& xOperacion, const QString& xClave,
                                    const QString& xTexto) const;
    qint64 Entero(const QVariantMap& xAjustes, const QString& xClave, qint64 xDerivado,
                  const QString& xOperacion) const;
    double Numero(const QVariantMap& xAjustes, const QString& xClave, double xDerivado,
                  const QString& xOperacion) const;
    QDateTime Fecha(const QVariantMap& xAjustes, const QString& xClave, const QDateTime& xDerivada,
                    const QString& xOperacion) const;
    static QString Texto(const QVariantMap& xAjustes, const QString& xClave,
                         const QString& xDerivado);

    std::shared_ptr<clsCatalogoCarpeta> mCatalogo;
};
