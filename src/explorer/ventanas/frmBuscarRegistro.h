#pragma once

#include <QDialog>
#include <QString>

class clsAnimacion;
class clsPDBInterface;
class clsVistaGrilla;
class QAction;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QToolBar;

// The find dialog: finds a row of the records grid by the value of one field, among the rows
// already read. The grid is left sorted by the searched column. The caller reads Indice after the
// dialog has closed: the found row, 0 when nothing was found.
class frmBuscarRegistro : public QDialog {
    Q_OBJECT
public:
    explicit frmBuscarRegistro(QWidget* xPadre = nullptr);

    void Parametros(clsVistaGrilla* xgrdItems, clsPDBInterface* xPalmPDB, const QString& xPDB);
    qint16 Indice() const { return mIndice; }
    // The search run: sorts, walks the rows and keeps the first that matches.
    bool Buscar();

protected:
    void keyPressEvent(QKeyEvent* xEvento) override;

private:
    void tlbOpciones_ButtonClick(QAction* xBoton);
    void NoEncontrado();

    clsVistaGrilla* mGrilla = nullptr;
    clsPDBInterface* mBase = nullptr;
    QString mNombreBase;
    qint16 mIndice = 0;

    QComboBox* Cmb_Columnas = nullptr;
    QLineEdit* Txt_Valor = nullptr;
    QCheckBox* Chk_MayMin = nullptr;
    QCheckBox* Chk_Completa = nullptr;
    clsAnimacion* Anm_Buscar = nullptr;
    QToolBar* tlbOpciones = nullptr;
};
