#include "explorer/ventanas/frmBuscarRegistro.h"

#include "common/ErrorVB.h"
#include "common/modFunciones.h"
#include "common/ventanas/modDialogos.h"
#include "common/ventanas/modRecursosGraficos.h"
#include "data/clsPDBInterface.h"
#include "errors/ventanas/MostrarMensajeError.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/modBuscarRegistro.h"
#include "explorer/ventanas/clsAnimacion.h"
#include "explorer/ventanas/clsVistaGrilla.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolBar>
#include <QVBoxLayout>

namespace {
const QString kFormulario = QStringLiteral("frmBuscarRegistro");
} // namespace

frmBuscarRegistro::frmBuscarRegistro(QWidget* xPadre) : QDialog(xPadre) {
    setWindowTitle(QStringLiteral("Find"));
    setObjectName(kFormulario);

    tlbOpciones = modRecursosGraficos::BarraOpciones(
        this, Qt::ToolButtonTextBesideIcon,
        {
            {QStringLiteral("Buscar"), QStringLiteral("Find record")},
            {QStringLiteral("Volver"), QStringLiteral("Close")},
        });
    connect(tlbOpciones, &QToolBar::actionTriggered, this,
            &frmBuscarRegistro::tlbOpciones_ButtonClick);

    Cmb_Columnas = new QComboBox(this);
    Cmb_Columnas->setObjectName(QStringLiteral("Cmb_Columnas"));
    Txt_Valor = new QLineEdit(this);
    Txt_Valor->setObjectName(QStringLiteral("Txt_Valor"));
    Txt_Valor->setMinimumWidth(220);
    auto* Lbl_Columna = new QLabel(QStringLiteral("Field:"), this);
    auto* Lbl_Valor = new QLabel(QStringLiteral("&Text:"), this);
    Lbl_Valor->setBuddy(Txt_Valor);

    auto* Frame1 = new QGroupBox(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    Chk_MayMin = new QCheckBox(QStringLiteral("Case &sensitive"), Frame1);
    Chk_MayMin->setObjectName(QStringLiteral("Chk_MayMin"));
    Chk_Completa = new QCheckBox(QStringLiteral("Search for &exact phrase"), Frame1);
    Chk_Completa->setObjectName(QStringLiteral("Chk_Completa"));
    auto* casillas = new QVBoxLayout(Frame1);
    casillas->addWidget(Chk_MayMin);
    casillas->addWidget(Chk_Completa);

    Anm_Buscar = new clsAnimacion(this);
    Anm_Buscar->setObjectName(QStringLiteral("Anm_Buscar"));
    Anm_Buscar->hide();

    auto* rejilla = new QGridLayout;
    rejilla->addWidget(Lbl_Columna, 0, 0);
    rejilla->addWidget(Cmb_Columnas, 0, 1);
    rejilla->addWidget(Lbl_Valor, 1, 0);
    rejilla->addWidget(Txt_Valor, 1, 1);
    rejilla->addWidget(Frame1, 2, 0, 1, 2);
    rejilla->setColumnStretch(1, 1);
    auto* fila = new QHBoxLayout;
    fila->addLayout(rejilla, 1);
    fila->addWidget(Anm_Buscar, 0, Qt::AlignTop);
    auto* columna = new QVBoxLayout(this);
    columna->addWidget(tlbOpciones);
    columna->addLayout(fila);
}

void frmBuscarRegistro::Parametros(clsVistaGrilla* xgrdItems, clsPDBInterface* xPalmPDB,
                                   const QString& xPDB) {
    mGrilla = xgrdItems;
    mBase = xPalmPDB;
    mNombreBase = xPDB;
    mIndice = 0;
    const clsGrillaFlexible& grilla = mGrilla->Grilla();
    Cmb_Columnas->clear();
    for (qint32 c = 0; c <= grilla.Cols() - 2; ++c)
        Cmb_Columnas->addItem(grilla.TextMatrix(0, c));
    Cmb_Columnas->setCurrentIndex(0);
}

bool frmBuscarRegistro::Buscar() {
    const QString clip = QDir(QCoreApplication::applicationDirPath()).filePath("Search.avi");
    Anm_Buscar->show();
    if (Anm_Buscar->Open(clip)) Anm_Buscar->Play();
    const qint32 columna = Cmb_Columnas->currentIndex();
    qint32 fila = 0;
    const auto parar = [this] {
        Anm_Buscar->Stop();
        Anm_Buscar->hide();
    };
    const bool hecho = Atrapar(
        kFormulario, QStringLiteral("Buscar"),
        [&] {
            mGrilla->SetCol(columna);
            fila = modBuscarRegistro::Buscar(mGrilla->Grilla(), columna, mBase->FieldType(columna),
                                             Txt_Valor->text(), Chk_MayMin->isChecked(),
                                             Chk_Completa->isChecked());
            // The found row is 16-bit: a row beyond it is an overflow, never a wrapped row.
            mIndice = modFunciones::Entero16(fila, kFormulario);
        },
        [&parar](const ErrorVB&) { parar(); });
    if (!hecho) return false;
    parar();
    if (fila == 0) {
        NoEncontrado();
        return false;
    }
    return true;
}

void frmBuscarRegistro::NoEncontrado() {
    modDialogos::MsgBox(this, QStringLiteral("Text not found"), QMessageBox::Ok,
                        QMessageBox::Warning, windowTitle());
    Txt_Valor->setSelection(0, Txt_Valor->text().size());
    Txt_Valor->setFocus();
}

void frmBuscarRegistro::tlbOpciones_ButtonClick(QAction* xBoton) {
    const QString clave = xBoton->data().toString();
    if (clave == QStringLiteral("Buscar")) {
        if (Buscar()) accept();
    } else if (clave == QStringLiteral("Volver")) {
        reject();
    }
}

void frmBuscarRegistro::keyPressEvent(QKeyEvent* xEvento) {
    const int tecla = xEvento->key();
    if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
        tlbOpciones_ButtonClick(tlbOpciones->findChild<QAction*>(QStringLiteral("Buscar")));
        return;
    }
    if (tecla == Qt::Key_Escape) {
        tlbOpciones_ButtonClick(tlbOpciones->findChild<QAction*>(QStringLiteral("Volver")));
        return;
    }
    QDialog::keyPressEvent(xEvento);
}
