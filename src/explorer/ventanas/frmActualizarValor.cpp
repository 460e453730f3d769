#include "explorer/ventanas/frmActualizarValor.h"

#include "common/ErrorVB.h"
#include "common/modFunciones.h"
#include "common/ventanas/modDialogos.h"
#include "common/ventanas/modRecursosGraficos.h"
#include "data/clsFuentePalm.h"
#include "data/clsPDBInterface.h"
#include "errors/ventanas/MostrarMensajeError.h"
#include "explorer/clsNavegadorRegistros.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolBar>
#include <QVBoxLayout>

namespace {
const QString kFormulario = QStringLiteral("frmActualizarValor");

} // namespace

frmActualizarValor::frmActualizarValor(QWidget* xPadre) : QDialog(xPadre) {
    setWindowTitle(QStringLiteral("Update value"));
    setObjectName(kFormulario);

    tlbOpciones = modRecursosGraficos::BarraOpciones(
        this, Qt::ToolButtonTextBesideIcon,
        {
            {QStringLiteral("Aceptar"), QStringLiteral("Confirm")},
            {QStringLiteral("Cancelar"), QStringLiteral("Cancel")},
        });
    connect(tlbOpciones, &QToolBar::actionTriggered, this,
            &frmActualizarValor::tlbOpciones_ButtonClick);

    fraValores = new QGroupBox(QStringLiteral("Values"), this);
    fraValores->setObjectName(QStringLiteral("fraValores"));
    lblValorAnterior = new QLabel(fraValores);
    lblValorAnterior->setObjectName(QStringLiteral("lblValorAnterior"));
    lblValorAnterior->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblTipo = new QLabel(QStringLiteral("[Tipo Campo]"), fraValores);
    lblTipo->setObjectName(QStringLiteral("lblTipo"));
    txtValorNuevo = new QLineEdit(fraValores);
    txtValorNuevo->setObjectName(QStringLiteral("txtValorNuevo"));
    txtValorNuevo->setMinimumWidth(260);
    auto* rejilla = new QGridLayout(fraValores);
    rejilla->addWidget(new QLabel(QStringLiteral("Last:"), fraValores), 0, 0);
    rejilla->addWidget(lblValorAnterior, 0, 1);
    rejilla->addWidget(new QLabel(QStringLiteral("Type:"), fraValores), 1, 0);
    rejilla->addWidget(lblTipo, 1, 1);
    rejilla->addWidget(new QLabel(QStringLiteral("New:"), fraValores), 2, 0);
    rejilla->addWidget(txtValorNuevo, 2, 1);
    rejilla->setColumnStretch(1, 1);

    auto* Label3 = new QLabel(QStringLiteral("This option change the Record index."), this);
    Label3->setObjectName(QStringLiteral("Label3"));
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(tlbOpciones);
    columna->addWidget(fraValores);
    columna->addWidget(Label3);
}

void frmActualizarValor::Parametros(const QString& xPDB, qint32 xRecordID, qint32 xNroCampo,
                                    const QString& xValor, clsPDBInterface& xobjPalmPDB) {
    mNombreBase = xPDB;
    mRecordID = xRecordID;
    mNroCampo = xNroCampo;
    mBase = &xobjPalmPDB;
    mNuevoID = -1;
    lblValorAnterior->setText(xValor);
    txtValorNuevo->setText(modFunciones::SinBlancos(xValor).toString());
    txtValorNuevo->setSelection(0, txtValorNuevo->text().size());
    lblTipo->setText(mBase->FieldType(mNroCampo));
    fraValores->setTitle(mBase->FieldName(mNroCampo));
}

bool frmActualizarValor::Actualizar() {
    try {
        mNuevoID = mBase->UpdateRecord(mRecordID, mNroCampo, txtValorNuevo->text());
    } catch (const ErrorVB& e) {
        mNuevoID = -1;
        if (!clsNavegadorRegistros::ValorRechazado(e)) {
            MostrarMensajeError(e, kFormulario, QStringLiteral("Actualizar"));
            mBaseCambiada = e.Numero() == ErroresFuente::BaseCambiada;
            if (mBaseCambiada) reject();
            return false;
        }
    }
    if (mNuevoID == -1) {
        modDialogos::MsgBox(this,
                            QStringLiteral("The record can´t be updated.\r\n"
                                           "Please, check the value assigned."),
                            QMessageBox::Ok, QMessageBox::Warning, windowTitle());
        return false;
    }
    mValorNuevo = txtValorNuevo->text();
    return true;
}

void frmActualizarValor::tlbOpciones_ButtonClick(QAction* xBoton) {
    const QString clave = xBoton->data().toString();
    if (clave == QStringLiteral("Aceptar")) {
        if (Actualizar()) accept();
    } else if (clave == QStringLiteral("Cancelar")) {
        reject();
    }
}

void frmActualizarValor::keyPressEvent(QKeyEvent* xEvento) {
    const int tecla = xEvento->key();
    if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
        tlbOpciones_ButtonClick(tlbOpciones->findChild<QAction*>(QStringLiteral("Aceptar")));
        return;
    }
    if (tecla == Qt::Key_Escape) {
        tlbOpciones_ButtonClick(tlbOpciones->findChild<QAction*>(QStringLiteral("Cancelar")));
        return;
    }
    QDialog::keyPressEvent(xEvento);
}
