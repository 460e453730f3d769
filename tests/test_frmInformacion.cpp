#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "common/modFecha.h"
#include "data/modHandheld.h"
#include "device/frmInformacion.h"
#include "shell/modDialogos.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>
#include <gtest/gtest.h>

#include <functional>
#include <optional>

inline void PrintTo(const QString& xTexto, std::ostream* xSalida) {
    *xSalida << '"' << xTexto.toStdString() << '"';
}

namespace {

// A handheld whose system object answers what the test says, or fails.
class clsSistemaPrueba : public clsSistemaPalm {
public:
    clsSistemaPrueba(std::optional<TarjetaPalm> xTarjeta, std::optional<UsuarioPalm> xUsuario)
        : mTarjeta(std::move(xTarjeta)), mUsuario(std::move(xUsuario)) {}
    TarjetaPalm TarjetaMemoria() override {
        if (!mTarjeta) throw Inaccesible();
        return *mTarjeta;
    }
    UsuarioPalm InformacionUsuario() override {
        if (!mUsuario) throw Inaccesible();
        return *mUsuario;
    }

private:
    static ErrorVB Inaccesible() {
        return ErrorVB(ErroresFuente::HandheldInaccesible, "Handheld", "The handheld is gone.");
    }
    std::optional<TarjetaPalm> mTarjeta;
    std::optional<UsuarioPalm> mUsuario;
};

class clsFuentePrueba : public clsFuentePalm {
public:
    clsFuentePrueba(std::optional<TarjetaPalm> xTarjeta, std::optional<UsuarioPalm> xUsuario)
        : mTarjeta(std::move(xTarjeta)), mUsuario(std::move(xUsuario)) {}
    std::unique_ptr<clsGestorBases> CrearGestor() override { return nullptr; }
    std::unique_ptr<clsSistemaPalm> CrearSistema() override {
        return std::make_unique<clsSistemaPrueba>(mTarjeta, mUsuario);
    }
    QString CodigoATexto(qint32, qint32) const override { return {}; }
    QString CodigoPagina() const override { return QStringLiteral("windows-1252"); }

private:
    std::optional<TarjetaPalm> mTarjeta;
    std::optional<UsuarioPalm> mUsuario;
};

TarjetaPalm Tarjeta() {
    TarjetaPalm tarjeta;
    tarjeta.Numero = 0;
    tarjeta.Version = 1;
    tarjeta.FechaCreacion = modFecha::Crear(2003, 5, 17, 9, 30);
    tarjeta.TamanoRom = 4194304;
    tarjeta.TamanoRam = 16777216;
    tarjeta.RamLibre = 1536;
    tarjeta.Nombre = "PalmCard";
    tarjeta.Fabricante = "Palm Computing";
    tarjeta.CantidadBasesRom = 12;
    tarjeta.CantidadBasesRam = 34;
    return tarjeta;
}

UsuarioPalm Usuario() {
    UsuarioPalm usuario;
    usuario.Nombre = "Ana Pérez";
    usuario.Clave = "s3cret";
    usuario.FechaUltimaSincronizacion = modFecha::Crear(2004, 2, 29, 13, 45, 10);
    usuario.UltimaSincronizacionPC = 305419896;
    usuario.IDUsuario = 42;
    return usuario;
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

class frmInformacionTest : public ::testing::Test {
protected:
    void SetUp() override {
        clsConfiguracionRegional::EstablecerActual(
            QLocale(QLocale::English, QLocale::UnitedStates));
        modDialogos::ResponderMensajes([this](const modDialogos::PeticionMensaje& xPeticion) {
            mMensajes.push_back(xPeticion);
            return QMessageBox::Ok;
        });
    }
    void TearDown() override {
        modDialogos::ResponderMensajes({});
        modHandheld::EstablecerFuente(nullptr);
    }
    std::vector<modDialogos::PeticionMensaje> mMensajes;
};

TEST_F(frmInformacionTest, RotulosYPestanias) {
    modHandheld::EstablecerFuente(std::make_shared<clsFuentePrueba>(Tarjeta(), Usuario()));
    frmInformacion ventana;
    EXPECT_EQ(ventana.windowTitle(), "Palm Information");
    auto* pestanias = ventana.findChild<QTabWidget*>("stabInformacion");
    ASSERT_TRUE(pestanias);
    ASSERT_EQ(pestanias->count(), 2);
    const struct {
        QString Pestania;
        const char* Marco;
        QStringList Titulos;
    } paginas[] = {
        {"Memory &Card",
         "fraMemoryCard",
         {"Card Name:", "Manufacturer:", "Version:", "Creation Date:", "Rom Size:", "Ram Size:",
          "Free Ram:", "Rom Db Count:", "Ram Db Count:", "Card Number:"}},
        {"&User Information",
         "Frame1",
         {"User Name:", "User ID:", "Password:", "Last Sync PC:", "Last Sync Date:"}},
    };
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(pestanias->tabText(i), paginas[i].Pestania);
        auto* marco = pestanias->widget(i)->findChild<QGroupBox*>(paginas[i].Marco);
        ASSERT_TRUE(marco) << paginas[i].Marco;
        EXPECT_EQ(marco->title(), "Information");
        auto* rejilla = qobject_cast<QGridLayout*>(marco->layout());
        ASSERT_TRUE(rejilla);
        QStringList titulos;
        for (int fila = 0; fila < paginas[i].Titulos.size(); ++fila)
            titulos << qobject_cast<QLabel*>(rejilla->itemAtPosition(fila, 0)->widget())->text();
        EXPECT_EQ(titulos, paginas[i].Titulos);
    }
}

TEST_F(frmInformacionTest, LlenaLoLeidoYAvisaUnaVezSiFalla) {
    struct Caso {
        const char* Nombre;
        std::shared_ptr<clsFuentePalm> Fuente;
        QStringList TextosTarjeta;
        QStringList TextosUsuario;
        int Mensajes;
    };
    const Caso casos[] = {
        {"everything read", std::make_shared<clsFuentePrueba>(Tarjeta(), Usuario()), LlenosTarjeta,
         LlenosUsuario, 0},
        {"card unreadable", std::make_shared<clsFuentePrueba>(std::nullopt, Usuario()),
         InicialesTarjeta, InicialesUsuario, 1},
        {"user unreadable", std::make_shared<clsFuentePrueba>(Tarjeta(), std::nullopt),
         LlenosTarjeta, InicialesUsuario, 1},
        {"no handheld", nullptr, InicialesTarjeta, InicialesUsuario, 1},
    };
    for (const Caso& caso : casos) {
        mMensajes.clear();
        modHandheld::EstablecerFuente(caso.Fuente);
        frmInformacion ventana;
        ventana.show();
        QApplication::processEvents();
        EXPECT_EQ(Textos(ventana, CamposTarjeta, 10), caso.TextosTarjeta) << caso.Nombre;
        EXPECT_EQ(Textos(ventana, CamposUsuario, 5), caso.TextosUsuario) << caso.Nombre;
        ASSERT_EQ(int(mMensajes.size()), caso.Mensajes) << caso.Nombre;
        if (caso.Mensajes == 0) continue;
        EXPECT_EQ(mMensajes[0].Texto, "Palm connection error.");
        EXPECT_EQ(mMensajes[0].Titulo, "Palm Information");
        EXPECT_EQ(mMensajes[0].Icono, QMessageBox::Warning);
        EXPECT_EQ(mMensajes[0].Botones, QMessageBox::StandardButtons(QMessageBox::Ok));
    }
}

TEST_F(frmInformacionTest, SinMemoriaLibreMuestraCeroKB) {
    TarjetaPalm tarjeta = Tarjeta();
    tarjeta.RamLibre = 0;
    modHandheld::EstablecerFuente(std::make_shared<clsFuentePrueba>(tarjeta, Usuario()));
    frmInformacion ventana;
    EXPECT_EQ(ventana.findChild<QLabel*>("lblTarjetaDisponible")->text(), "0 KB");
}

} // namespace
