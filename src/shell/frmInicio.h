#pragma once

#include <QMainWindow>

class QAction;
class QLabel;
class QMdiArea;
class QProgressBar;
class QToolBar;

// The program's frame: menu, toolbar and status bar around the area where the explorer windows
// live. The menu acts through the toolbar's click handler, so both always do the same thing.
class frmInicio : public QMainWindow {
    Q_OBJECT
public:
    explicit frmInicio(QWidget* xPadre = nullptr);

    // Arranges the child windows: 0 cascade, 1 tile horizontally, 2 tile vertically.
    void Arrange(int xCodigo);
    // A toolbar button by its key ("Archivos", "Informacion", "Volver"); null for another key.
    QAction* Boton(const QString& xClave) const;
    void tlbOpciones_ButtonClick(QAction* xBoton);

protected:
    void closeEvent(QCloseEvent* xEvento) override;

private:
    void CrearMenu();
    void CrearBarraHerramientas();
    void CrearBarraEstado();
    void AnalizarArchivos();
    void MostrarInformacion();
    void AcercaDe();
    void MostrarProgreso(int xHechos, int xTotal);

    QMdiArea* mArea = nullptr;
    QToolBar* tlbOpciones = nullptr;
    QLabel* mMensaje = nullptr;
    QProgressBar* mProgreso = nullptr;
};
