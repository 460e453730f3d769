#include "errors/ventanas/frmMensajeError.h"

#include "common/clsConfiguracionRegional.h"
#include "common/modFecha.h"
#include "common/ventanas/modDialogos.h"
#include "errors/ventanas/MostrarMensajeError.h"
#include "printing/ventanas/clsImpresoraQt.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QFont Arial(bool xNegrita = false) {
    QFont fuente(QStringLiteral("Arial"), 9);
    fuente.setBold(xNegrita);
    return fuente;
}

QLabel* Rotulo(const QString& xNombre, const QString& xTexto) {
    auto* rotulo = new QLabel(xTexto);
    rotulo->setObjectName(xNombre);
    rotulo->setFont(Arial(true));
    return rotulo;
}

// A value the user can read and copy but not change, boxed as a field.
QLabel* Valor(const QString& xNombre) {
    auto* valor = new QLabel;
    valor->setObjectName(xNombre);
    valor->setFont(Arial());
    valor->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    valor->setMinimumHeight(22);
    valor->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return valor;
}

} // namespace

frmMensajeError::frmMensajeError(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Mensaje de Error"));
    setModal(true);
    CrearControles();
    connect(cmdOk, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdImprimir, &QPushButton::clicked, this, &frmMensajeError::cmdImprimir_Click);
}

void frmMensajeError::CrearControles() {
    Frame1 = new QGroupBox(QStringLiteral(" SE HA PRODUCIDO UN ERROR "));
    Frame1->setObjectName(QStringLiteral("Frame1"));
    QFont titulo(QStringLiteral("Times New Roman"), 11);
    titulo.setBold(true);
    Frame1->setFont(titulo);

    lblErrorNumero = Valor(QStringLiteral("lblErrorNumero"));
    txtErrorDescrip = new QPlainTextEdit;
    txtErrorDescrip->setObjectName(QStringLiteral("txtErrorDescrip"));
    txtErrorDescrip->setFont(Arial());
    txtErrorDescrip->setReadOnly(true);
    txtErrorDescrip->setFixedHeight(72);
    lblErrorFecha = Valor(QStringLiteral("lblErrorFecha"));
    lblErrorHora = Valor(QStringLiteral("lblErrorHora"));
    lblComputadora = Valor(QStringLiteral("lblComputadora"));
    lblErrorFormulario = Valor(QStringLiteral("lblErrorFormulario"));
    lblErrorModuloFormulario = Valor(QStringLiteral("lblErrorModuloFormulario"));
    txtErrorProcedFuente = new QLineEdit;
    txtErrorProcedFuente->setObjectName(QStringLiteral("txtErrorProcedFuente"));
    txtErrorProcedFuente->setFont(Arial());
    txtErrorProcedFuente->setReadOnly(true);

    auto* rejilla = new QGridLayout(Frame1);
    rejilla->setColumnStretch(1, 1);
    rejilla->setColumnStretch(3, 1);
    rejilla->addWidget(Rotulo(QStringLiteral("Label1"), QStringLiteral("Número de Error:")), 0, 0);
    rejilla->addWidget(lblErrorNumero, 0, 1, 1, 3);
    rejilla->addWidget(Rotulo(QStringLiteral("Label4"), QStringLiteral("Descripción del Error")), 1,
                       0, 1, 4);
    rejilla->addWidget(txtErrorDescrip, 2, 0, 1, 4);
    rejilla->addWidget(Rotulo(QStringLiteral("Label7"), QStringLiteral("Fecha:")), 3, 0);
    rejilla->addWidget(lblErrorFecha, 3, 1);
    rejilla->addWidget(Rotulo(QStringLiteral("Label5"), QStringLiteral("Hora:")), 3, 2);
    rejilla->addWidget(lblErrorHora, 3, 3);
    rejilla->addWidget(Rotulo(QStringLiteral("Label9"), QStringLiteral("Computadora:")), 4, 0);
    rejilla->addWidget(lblComputadora, 4, 1, 1, 3);
    rejilla->addWidget(Rotulo(QStringLiteral("Label6"), QStringLiteral("Formulario:")), 5, 0);
    rejilla->addWidget(lblErrorFormulario, 5, 1, 1, 3);
    rejilla->addWidget(Rotulo(QStringLiteral("Label10"), QStringLiteral("Módulo de Formulario:")),
                       6, 0);
    rejilla->addWidget(lblErrorModuloFormulario, 6, 1, 1, 3);
    rejilla->addWidget(Rotulo(QStringLiteral("Label2"), QStringLiteral("Procedimiento Fuente:")), 7,
                       0);
    rejilla->addWidget(txtErrorProcedFuente, 7, 1, 1, 3);

    cmdImprimir = new QPushButton(QStringLiteral("&Imprimir"));
    cmdImprimir->setObjectName(QStringLiteral("cmdImprimir"));
    cmdOk = new QPushButton(QStringLiteral("&OK"));
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(cmdImprimir);
    botones->addWidget(cmdOk);

    auto* principal = new QVBoxLayout(this);
    principal->addWidget(Frame1);
    principal->addLayout(botones);
    setMinimumWidth(460);
}

void frmMensajeError::Component(qint32 xErrNumber, const QString& xErrDescription,
                                const QString& xErrSource, const QString& xFormulario,
                                const QString& xModuloFormulario) {
    const clsConfiguracionRegional& regional = clsConfiguracionRegional::Actual();
    mMensaje = clsMensajeError(xErrNumber, xErrDescription, xErrSource, xFormulario,
                               xModuloFormulario, modFecha::Ahora());
    lblErrorFecha->setText(mMensaje.Fecha(regional));
    lblErrorHora->setText(mMensaje.Hora(regional));
    lblComputadora->setText(mMensaje.Computadora());
    lblErrorNumero->setText(mMensaje.Numero());
    txtErrorDescrip->setPlainText(mMensaje.Descripcion());
    lblErrorFormulario->setText(mMensaje.Formulario());
    lblErrorModuloFormulario->setText(mMensaje.Procedimiento());
    txtErrorProcedFuente->setText(mMensaje.Fuente());
}

// A printer dialog the person cancels ends the click without a word.
void frmMensajeError::cmdImprimir_Click() {
    QPrinter dlgImprimir(QPrinter::HighResolution);
    if (!modDialogos::ElegirImpresora(this, dlgImprimir)) return;
    ImprimoError(dlgImprimir);
}

void frmMensajeError::ImprimoError(QPrinter& xImpresora) {
    Atrapar(QStringLiteral("Error Message"), QStringLiteral("ImprimoError"), [&] {
        const std::shared_ptr<clsImpresora> impresora = clsImpresoraQt::Para(xImpresora);
        mMensaje.Imprimir(*impresora, clsConfiguracionRegional::Actual());
    });
}
