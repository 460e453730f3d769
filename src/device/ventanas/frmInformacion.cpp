#include "device/ventanas/frmInformacion.h"

#include "common/clsConfiguracionRegional.h"
#include "common/ventanas/modDialogos.h"
#include "data/modHandheld.h"
#include "device/clsPalmInformation.h"
#include "device/modTextosInformacion.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

frmInformacion::frmInformacion(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Palm Information"));
    setModal(true);
    CrearControles();
    Form_Load();
}

frmInformacion::~frmInformacion() = default;

void frmInformacion::CrearControles() {
    // Captions in the order they stand, each beside its value label and the value label's text
    // until the handheld has been read.
    const QList<Campo> tarjeta = {
        {"Card Name:", "lblTarjetaNombre", "Name"},
        {"Manufacturer:", "lblTarjetaProveedor", "Name"},
        {"Version:", "lblTarjetaVersion", "Name"},
        {"Creation Date:", "lblTarjetaCreacion", "01/01/1901"},
        {"Rom Size:", "lblTarjetaRom", ""},
        {"Ram Size:", "lblTarjetaRam", ""},
        {"Free Ram:", "lblTarjetaDisponible", ""},
        {"Rom Db Count:", "lblTarjetaRomDB", ""},
        {"Ram Db Count:", "lblTarjetaRamDB", ""},
        {"Card Number:", "lblTarjetaNumero", ""},
    };
    const QList<Campo> usuario = {
        {"User Name:", "lblUserName", "Name"},
        {"User ID:", "lblUserID", ""},
        {"Password:", "lblPassword", "Name"},
        {"Last Sync PC:", "lblUltimaSincronizacionPC", ""},
        {"Last Sync Date:", "lblFechaSincronizacionPalm", "01/01/1901"},
    };

    stabInformacion = new QTabWidget;
    stabInformacion->setObjectName(QStringLiteral("stabInformacion"));
    stabInformacion->addTab(CrearPagina(QStringLiteral("fraMemoryCard"), tarjeta),
                            QStringLiteral("Memory &Card"));
    stabInformacion->addTab(CrearPagina(QStringLiteral("Frame1"), usuario),
                            QStringLiteral("&User Information"));

    auto* principal = new QVBoxLayout(this);
    principal->addWidget(stabInformacion);
    setMinimumWidth(380);
}

QWidget* frmInformacion::CrearPagina(const QString& xMarco, const QList<Campo>& xCampos) {
    auto* marco = new QGroupBox(QStringLiteral("Information"));
    marco->setObjectName(xMarco);
    auto* rejilla = new QGridLayout(marco);
    rejilla->setColumnStretch(1, 1);
    rejilla->setVerticalSpacing(6);
    int fila = 0;
    for (const Campo& campo : xCampos) {
        auto* titulo = new QLabel(QString::fromLatin1(campo.Titulo));
        auto* valor = new QLabel(QString::fromLatin1(campo.TextoInicial));
        valor->setObjectName(QString::fromLatin1(campo.Nombre));
        valor->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        valor->setMinimumHeight(22);
        valor->setTextInteractionFlags(Qt::TextSelectableByMouse);
        rejilla->addWidget(titulo, fila, 0);
        rejilla->addWidget(valor, fila, 1);
        mValores.insert(titulo->text(), valor);
        ++fila;
    }
    rejilla->setRowStretch(fila, 1);
    auto* pagina = new QWidget;
    auto* disposicion = new QVBoxLayout(pagina);
    disposicion->addWidget(marco);
    return pagina;
}

// Reads the card, then the user; a failure stops where it happened.
void frmInformacion::Form_Load() {
    try {
        // The program's handheld: this window belongs to no explorer.
        mInformacion = std::make_unique<clsPalmInformation>(*modHandheld::FuenteActual());
        LlenarTarjeta();
        LlenarUsuario();
    } catch (const std::exception&) {
        modDialogos::MsgBox(this, QStringLiteral("Palm connection error."), QMessageBox::Ok,
                            QMessageBox::Warning, windowTitle());
    }
}

void frmInformacion::LlenarTarjeta() {
    const auto tarjeta = mInformacion->MemoryCard();
    Mostrar(modTextosInformacion::TextosTarjeta(*tarjeta, clsConfiguracionRegional::Actual()));
}

void frmInformacion::LlenarUsuario() {
    const auto usuario = mInformacion->UserInformation();
    Mostrar(modTextosInformacion::TextosUsuario(*usuario, clsConfiguracionRegional::Actual()));
}

// Value by value, in order: a value that cannot be read stops the filling there.
void frmInformacion::Mostrar(const QList<modTextosInformacion::TextoInformacion>& xTextos) {
    for (const auto& [titulo, texto] : xTextos) {
        if (QLabel* valor = mValores.value(titulo)) valor->setText(texto());
    }
}

// The handheld's objects go with the window.
void frmInformacion::done(int xResultado) {
    mInformacion.reset();
    QDialog::done(xResultado);
}
