// The record toolbar of the explorer and its keys: add, update, delete, delete all and find,
// each a dialog or a question here and its rules in clsNavegadorRegistros.
#include "explorer/ventanas/frmPandrel.h"

#include "common/ventanas/modDialogos.h"
#include "data/clsPDBInterface.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/clsNavegadorRegistros.h"
#include "explorer/ventanas/clsVistaGrilla.h"
#include "explorer/ventanas/frmActualizarValor.h"
#include "explorer/ventanas/frmBuscarRegistro.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>

// Record actions act only on an AppForge record database.
void frmPandrel::tlbOpciones_ButtonClick(QAction* xBoton) {
    if (!xBoton || grdTabla->Grilla().Rows() < 1 || !mBase->IsDataBase() || !mBase->IsAppForgeDB())
        return;
    const QString clave = xBoton->data().toString();
    if (clave == QStringLiteral("Agregar"))
        AgregarRegistro();
    else if (clave == QStringLiteral("Modificar"))
        EditarCelda();
    else if (clave == QStringLiteral("Eliminar"))
        EliminarRegistro();
    else if (clave == QStringLiteral("Buscar"))
        BuscarRegistro();
    else if (clave == QStringLiteral("EliminarTodos"))
        EliminarTodos();
    else if (clave == QStringLiteral("Exportar"))
        ExportarInformacion();
    else if (clave == QStringLiteral("Imprimir"))
        Imprimir();
}

void frmPandrel::PresionarBoton(const QString& xClave) {
    for (QAction* boton : tlbOpciones->actions())
        if (boton->data().toString() == xClave) {
            tlbOpciones_ButtonClick(boton);
            return;
        }
}

bool frmPandrel::Form_KeyDown(QObject* xControl, int xTecla) {
    switch (xTecla) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (xControl == txtRegistrosARecuperar)
            RecargarBaseElegida();
        else
            PresionarBoton(QStringLiteral("Modificar"));
        return true;
    case Qt::Key_Escape:
        // The records toolbar has no Volver button: nothing happens.
        PresionarBoton(QStringLiteral("Volver"));
        return false;
    case Qt::Key_Insert:
        PresionarBoton(QStringLiteral("Agregar"));
        return true;
    case Qt::Key_F3:
        PresionarBoton(QStringLiteral("Buscar"));
        return true;
    case Qt::Key_Delete:
        if (xControl != grdTabla) return false;
        PresionarBoton(QStringLiteral("Eliminar"));
        return true;
    default:
        return false;
    }
}

void frmPandrel::RecargarBaseElegida() {
    if (QTreeWidgetItem* elegido = tvwDataBases->currentItem())
        tvwDataBases_NodeClick(elegido, mRegistrosEstandar);
}

// The records of a built-in application's database are not changed here: editing, adding and
// deleting do nothing on them.
void frmPandrel::EditarCelda() {
    if (mRegistrosEstandar) return;
    const int fila = grdTabla->Row();
    const int columna = grdTabla->Col();
    clsGrillaFlexible& tabla = grdTabla->Grilla();
    if (fila < 1 || !mNavegador->TieneRegistros() || columna < 0 || columna >= tabla.Cols() - 1)
        return;
    Atrapar(QStringLiteral("EditarCelda"), [&] {
        frmActualizarValor dialogo(this);
        dialogo.Parametros(NombreBaseElegida(), tabla.RowData(fila), columna,
                           tabla.TextMatrix(fila, columna), *mBase);
        dialogo.exec();
        if (dialogo.BaseCambiada()) QTimer::singleShot(0, this, &frmPandrel::RecargarArbol);
        if (dialogo.NewRecordID() == -1) return;
        const qint32 nuevaFila =
            mNavegador->ActualizarFila(fila, columna, dialogo.NewValue(), dialogo.NewRecordID());
        grdTabla->setCurrentIndex(tabla.index(nuevaFila, columna));
        RefrescarRegistro();
    });
}

// The new row is not made current and the record count stays as it was.
void frmPandrel::AgregarRegistro() {
    if (mRegistrosEstandar) return;
    if (!modDialogos::Preguntar(this, QStringLiteral("Do you want to add a new record?"),
                                windowTitle()))
        return;
    Atrapar(QStringLiteral("AgregarRegistro"), [this] { mNavegador->AgregarRegistro(); });
}

void frmPandrel::EliminarRegistro() {
    if (mRegistrosEstandar) return;
    const int fila = grdTabla->Row();
    if (!mNavegador->TieneRegistros() || fila < 1) return;
    if (!modDialogos::Preguntar(this, QStringLiteral("Do you want to delete the current record?"),
                                windowTitle()))
        return;
    Atrapar(QStringLiteral("EliminarRegistro"), [this, fila] {
        const auto resultado = mNavegador->EliminarRegistro(fila);
        if (resultado == clsNavegadorRegistros::Eliminacion::Rechazada) {
            modDialogos::MsgBox(this, QStringLiteral("The record can´t be deleted."),
                                QMessageBox::Ok, QMessageBox::Warning, windowTitle());
            return;
        }
        if (resultado == clsNavegadorRegistros::Eliminacion::Recargar)
            CargarTabla(true, CantidadARecuperar());
        const clsGrillaFlexible& tabla = grdTabla->Grilla();
        grdTabla->SetRow(clsNavegadorRegistros::FilaTrasEliminar(fila, tabla.Rows()));
        RefrescarRegistro();
    });
}

void frmPandrel::EliminarTodos() {
    if (mRegistrosEstandar) return;
    if (!mNavegador->TieneRegistros() || grdTabla->Row() < 1) return;
    if (!modDialogos::Preguntar(
            this, QStringLiteral("Are you sure you want to delete all  Records in this table?"),
            windowTitle()))
        return;
    if (!Atrapar(QStringLiteral("EliminarTodos"), [this] { mBase->DeleteAllRecords(); })) return;
    RecargarBaseElegida();
}

void frmPandrel::BuscarRegistro() {
    frmBuscarRegistro dialogo(this);
    dialogo.Parametros(grdTabla, mBase.get(), NombreBaseElegida());
    dialogo.exec();
    const qint16 fila = dialogo.Indice();
    if (fila == 0) return;
    grdTabla->SetRow(fila);
    grdTabla->scrollTo(grdTabla->Grilla().index(fila, std::max(0, grdTabla->Col())),
                       QAbstractItemView::PositionAtTop);
    RefrescarRegistro();
}
