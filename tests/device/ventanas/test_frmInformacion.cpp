#include "constructor/clsConstructorBase.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/modHandheld.h"
#include "device/ventanas/frmInformacion.h"
#include "support/ventanas/clsPruebaVentana.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

const char* const IniCompleto = R"([Card]
Number=0
Version=1
CreationDate=2003-05-17 09:30:00
RomSize=4194304
RamSize=16777216
FreeRam=1536
Name=PalmCard
Manufacturer=Palm Computing
RomDbCount=12
RamDbCount=34
[User]
Name=Ana Pérez
Password=s3cret
LastSyncDate=2004-02-29 13:45:10
LastSyncPC=305419896
UserID=42
)";

void Escribir(const QString& xRuta, const QByteArray& xContenido) {
    QDir().mkpath(QFileInfo(xRuta).path());
    QFile archivo(xRuta);
    ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
    archivo.write(xContenido);
}

// A handheld folder with two small databases.
QString Handheld(const QString& xCarpeta) {
    QDir().mkpath(xCarpeta);
    clsConstructorBase("MemoDB", "DATA", "memo").Guardar(xCarpeta + "/MemoDB.pdb");
    clsConstructorBase("ToDoDB", "DATA", "todo").Guardar(xCarpeta + "/ToDoDB.pdb");
    return xCarpeta;
}

const char* const CamposTarjeta[] = {
    "lblTarjetaNombre", "lblTarjetaProveedor", "lblTarjetaVersion",    "lblTarjetaCreacion",
    "lblTarjetaRom",    "lblTarjetaRam",       "lblTarjetaDisponible", "lblTarjetaRomDB",
    "lblTarjetaRamDB",  "lblTarjetaNumero"};
const char* const CamposUsuario[] = {"lblUserName", "lblUserID", "lblPassword",
                                     "lblUltimaSincronizacionPC", "lblFechaSincronizacionPalm"};

const QStringList InicialesTarjeta = {"Name", "Name", "Name", "01/01/1901", "", "", "", "", "", ""};
const QStringList InicialesUsuario = {"Name", "", "Name", "", "01/01/1901"};
const QStringList LlenosTarjeta = {"PalmCard", "Palm Computing", "1.00", "5/17/2003", "4096 KB",
                                   "16384 KB", "1.5 KB",         "12",   "34",        "0"};
const QStringList LlenosUsuario = {"Ana Pérez", "42", "s3cret", "305419896",
                                   "2/29/2004 1:45:10 PM"};

QStringList Textos(const frmInformacion& xVentana, const char* const* xCampos, int xCantidad) {
    QStringList textos;
    for (int i = 0; i < xCantidad; ++i) {
        const auto* valor = xVentana.findChild<QLabel*>(xCampos[i]);
        textos << (valor ? valor->text() : QStringLiteral("<missing>"));
    }
    return textos;
}

class frmInformacionTest : public clsPruebaVentana {
protected:
    void TearDown() override {
        clsPruebaVentana::TearDown();
        modHandheld::EstablecerFuente(nullptr);
    }
    QString Ruta(const QString& xRelativa) const { return mCarpeta.filePath(xRelativa); }
};

TEST_F(frmInformacionTest, LeeElHandheldYAvisaUnaVezSiFalla) {
    // A handheld described by its Handheld.ini.
    const QString completo = Handheld(Ruta("completo"));
    Escribir(completo + "/Handheld.ini", IniCompleto);
    // The card is fine but the user's ID, read last, is not a number.
    const QString usuarioMalo = Handheld(Ruta("usuarioMalo"));
    Escribir(usuarioMalo + "/Handheld.ini",
             QByteArray(IniCompleto).replace("UserID=42", "UserID=forty-two"));
    // The ROM size is not a number: the card is filled up to it, the user not at all.
    const QString romMala = Handheld(Ruta("romMala"));
    Escribir(romMala + "/Handheld.ini",
             QByteArray(IniCompleto).replace("RomSize=4194304", "RomSize=abc"));

    struct Caso {
        const char* Nombre;
        std::shared_ptr<clsFuentePalm> Fuente;
        QStringList TextosTarjeta;
        QStringList TextosUsuario;
        int Mensajes;
    };
    const Caso casos[] = {
        {"Handheld.ini", std::make_shared<clsFuenteCarpeta>(completo), LlenosTarjeta, LlenosUsuario,
         0},
        {"bad user ID",
         std::make_shared<clsFuenteCarpeta>(usuarioMalo),
         LlenosTarjeta,
         {"Ana Pérez", "", "s3cret", "305419896", "2/29/2004 1:45:10 PM"},
         1},
        {"bad ROM size",
         std::make_shared<clsFuenteCarpeta>(romMala),
         {"PalmCard", "Palm Computing", "1.00", "5/17/2003", "", "", "", "", "", "0"},
         InicialesUsuario,
         1},
        {"no handheld", nullptr, InicialesTarjeta, InicialesUsuario, 1},
    };
    for (const Caso& caso : casos) {
        Mensajes.clear();
        modHandheld::EstablecerFuente(caso.Fuente);
        frmInformacion ventana;
        ventana.show();
        QApplication::processEvents();
        EXPECT_EQ(Textos(ventana, CamposTarjeta, 10), caso.TextosTarjeta) << caso.Nombre;
        EXPECT_EQ(Textos(ventana, CamposUsuario, 5), caso.TextosUsuario) << caso.Nombre;
        ASSERT_EQ(int(Mensajes.size()), caso.Mensajes) << caso.Nombre;
        if (caso.Mensajes == 0) continue;
        EXPECT_EQ(Mensajes[0].Texto, "Palm connection error.");
        EXPECT_EQ(Mensajes[0].Titulo, "Palm Information");
        EXPECT_EQ(Mensajes[0].Icono, QMessageBox::Warning);
        EXPECT_EQ(Mensajes[0].Botones, QMessageBox::StandardButtons(QMessageBox::Ok));
    }
}

} // namespace
