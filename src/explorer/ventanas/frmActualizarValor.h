#pragma once

#include <QDialog>
#include <QString>

class clsPDBInterface;
class QAction;
class QGroupBox;
class QLabel;
class QLineEdit;
class QToolBar;

// The update-value dialog: one field of one record gets a new value, written to the handheld when
// the user confirms. A value the record codec cannot encode is refused and the dialog stays open.
// The caller reads NewValue and NewRecordID after the dialog has closed.
class frmActualizarValor : public QDialog {
    Q_OBJECT
public:
    explicit frmActualizarValor(QWidget* xPadre = nullptr);

    void Parametros(const QString& xPDB, qint32 xRecordID, qint32 xNroCampo, const QString& xValor,
                    clsPDBInterface& xobjPalmPDB);
    QString NewValue() const { return mValorNuevo; }
    // The record's ID after the update; -1 while nothing was changed.
    qint32 NewRecordID() const { return mNuevoID; }
    // The accept step: writes the typed text; returns whether the record was updated.
    bool Actualizar();
    // The write was refused because the database's file now holds another database; the dialog
    // then closes, as there is nothing left to update.
    bool BaseCambiada() const { return mBaseCambiada; }

protected:
    void keyPressEvent(QKeyEvent* xEvento) override;

private:
    void tlbOpciones_ButtonClick(QAction* xBoton);

    QString mNombreBase;
    qint32 mRecordID = -1;
    qint32 mNroCampo = 0;
    clsPDBInterface* mBase = nullptr;
    QString mValorNuevo;
    qint32 mNuevoID = -1;
    bool mBaseCambiada = false;

    QToolBar* tlbOpciones = nullptr;
    QGroupBox* fraValores = nullptr;
    QLabel* lblValorAnterior = nullptr;
    QLabel* lblTipo = nullptr;
    QLineEdit* txtValorNuevo = nullptr;
};
