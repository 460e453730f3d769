#pragma once

#include <QMainWindow>

class QAction;
class frmPandrel;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
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

    // Makes the handheld at xRuta (a folder or a zip backup) the one the explorers and the
    // information window show, in code page xCodigoPagina when not empty. Open explorers of the
    // previous handheld are closed after the person agrees. False when the person said No, an
    // explorer could not close, or the handheld cannot be read (the error is shown and the
    // previous handheld stays).
    bool AbrirHandheld(const QString& xRuta, const QString& xCodigoPagina = QString());
    // Takes note of the handheld the program started with (already the current one).
    void TomarHandheld(const QString& xRuta);
    // Opens an explorer with the database of that name chosen.
    void AbrirBase(const QString& xNombre);

protected:
    void closeEvent(QCloseEvent* xEvento) override;

private:
    void CrearMenu();
    void CrearBarraHerramientas();
    void CrearBarraEstado();
    void CrearMenuHandheld(class QMenuBar* xBarra, QAction* xAntes);
    void RefrescarMenuHandheld();
    void ElegirCarpeta();
    void ElegirArchivo();
    // Writes the handheld's contacts, calendar, to-dos and memos into a folder the person
    // chooses, and shows what was written.
    void ExportarDatosEstandar();
    frmPandrel* AnalizarArchivos();
    void MostrarInformacion();
    void AcercaDe();
    void MostrarProgreso(int xHechos, int xTotal);
    void Escalonar(QMdiSubWindow* xNueva);
    static QSize TamanoMinimo(const QMdiSubWindow* xHija);

    QMdiArea* mArea = nullptr;
    QToolBar* tlbOpciones = nullptr;
    QLabel* mMensaje = nullptr;
    QProgressBar* mProgreso = nullptr;
    class QMenu* mnuHandheld = nullptr;
    QString mRuta; // the current handheld
};
