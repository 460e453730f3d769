#pragma once

#include "errors/clsMensajeError.h"

#include <QDialog>
#include <QString>
#include <QtGlobal>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPrinter;
class QPushButton;

// The error report window: what failed, where and when, with a one-page printout laid out by
// clsMensajeError.
class frmMensajeError : public QDialog {
    Q_OBJECT
public:
    explicit frmMensajeError(QWidget* parent = nullptr);

    // Fills the window with one failure and stamps it with the current date and time; does not
    // show it.
    void Component(qint32 xErrNumber, const QString& xErrDescription, const QString& xErrSource,
                   const QString& xFormulario, const QString& xModuloFormulario);

private:
    void CrearControles();
    void cmdImprimir_Click();
    void ImprimoError(QPrinter& xImpresora);

    QGroupBox* Frame1 = nullptr;
    QLabel* lblErrorNumero = nullptr;
    QPlainTextEdit* txtErrorDescrip = nullptr;
    QLabel* lblErrorFecha = nullptr;
    QLabel* lblErrorHora = nullptr;
    QLabel* lblComputadora = nullptr;
    QLabel* lblErrorFormulario = nullptr;
    QLabel* lblErrorModuloFormulario = nullptr;
    QLineEdit* txtErrorProcedFuente = nullptr;
    QPushButton* cmdImprimir = nullptr;
    QPushButton* cmdOk = nullptr;

    clsMensajeError mMensaje;
};
