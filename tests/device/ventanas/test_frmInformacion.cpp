#include "constructor/clsConstructorBase.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/modHandheld.h"
#include "device/ventanas/frmInformacion.h"
#include "support/modPrueba.h"
#include "support/ventanas/clsPruebaVentana.h"

#include <QDir>

namespace {

const QByteArray IniCompleto =
    "[Card]\nNumber=0\nVersion=1\nCreationDate=2003-05-17 09:30:00\nRomSize=4194304\n"
    "RamSize=16777216\nFreeRam=1536\nName=PalmCard\nManufacturer=Palm Computing\nRomDbCount=12\n"
    "RamDbCount=34\n[User]\nName=Ana Pérez\nPassword=s3cret\nLastSyncDate=2004-02-29 13:45:10\n"
    "LastSyncPC=305419896\nUserID=42\n";

// The card's labels, then the user's, in the order the window reads them.
const char* const Campos[] = {"lblTarjetaNombre",
                              "lblTarjetaProveedor",
                              "lblTarjetaVersion",
                              "lblTarjetaCreacion",
                              "lblTarjetaRom",
                              "lblTarjetaRam",
                              "lblTarjetaDisponible",
                              "lblTarjetaRomDB",
                              "lblTarjetaRamDB",
                              "lblTarjetaNumero",
                              "lblUserName",
                              "lblUserID",
                              "lblPassword",
                              "lblUltimaSincronizacionPC",
                              "lblFechaSincronizacionPalm"};

using frmInformacionTest = clsPruebaVentana;

// The window shows what the handheld reports (the texts are modTextosInformacion's); a value
// that cannot be read stops the reading there with one message, the labels after it keeping
// their first texts.
TEST_F(frmInformacionTest, LeeElHandheldYAvisaUnaVezSiFalla) {
    const QString iniciales = "Name|Name|Name|01/01/1901|||||||Name||Name||01/01/1901";
    const struct {
        const char* Nombre;
        QByteArray Ini; // empty: no handheld
        QString Textos;
    } casos[] = {
        {"Handheld.ini", IniCompleto,
         "PalmCard|Palm Computing|1.00|5/17/2003|4096 KB|16384 KB|1.5 KB|12|34|0|Ana Pérez|42|"
         "s3cret|305419896|2/29/2004 1:45:10 PM"},
        // The card is fine but the user's ID, read last, is not a number.
        {"bad user ID", QByteArray(IniCompleto).replace("UserID=42", "UserID=forty-two"),
         "PalmCard|Palm Computing|1.00|5/17/2003|4096 KB|16384 KB|1.5 KB|12|34|0|Ana Pérez||"
         "s3cret|305419896|2/29/2004 1:45:10 PM"},
        {"no handheld", {}, iniciales},
    };
    for (const auto& caso : casos) {
        Mensajes.clear();
        const QString carpeta = mCarpeta.filePath(caso.Nombre);
        QDir().mkpath(carpeta);
        clsConstructorBase("MemoDB", "DATA", "memo").Guardar(carpeta + "/MemoDB.pdb");
        modPrueba::Poner(carpeta + "/Handheld.ini", caso.Ini);
        modHandheld::EstablecerFuente(
            caso.Ini.isEmpty() ? nullptr : std::make_shared<clsFuenteCarpeta>(carpeta));
        frmInformacion ventana;
        ventana.show();
        QStringList textos;
        for (const char* campo : Campos)
            textos << Texto(&ventana, campo);
        EXPECT_EQ(textos, caso.Textos.split('|')) << caso.Nombre;
        ASSERT_EQ(Mensajes.size(), caso.Nombre == QByteArray("Handheld.ini") ? 0 : 1)
            << caso.Nombre;
        if (Mensajes.isEmpty()) continue;
        EXPECT_EQ(Mensajes[0].Texto, "Palm connection error.");
        EXPECT_EQ(Mensajes[0].Titulo, "Palm Information");
        EXPECT_EQ(Mensajes[0].Icono, QMessageBox::Warning);
    }
    modHandheld::EstablecerFuente(nullptr);
}

} // namespace
