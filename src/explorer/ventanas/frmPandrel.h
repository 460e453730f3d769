#pragma once

#include "explorer/modTextosPanel.h"

#include <QElapsedTimer>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>

class clsFuentePalm;
class clsNavegadorRegistros;
class clsPDBInterface;
class QAction;
class QModelIndex;
class clsVistaGrilla;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QStatusBar;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

// The explorer window: the handheld's databases in a tree grouped by creator, and for the chosen
// database its header, schema and records, or for an application the databases it owns. It owns
// one database-access object and opens one database at a time. It talks to the frame that holds
// it only through its signals (progress messages, the frame's pointer).
//
// The class is written in units by concern: frmPandrel.cpp (the window, its controls, start-up
// and memory panels), frmPandrelArbol.cpp (the tree and the node choice), frmPandrelPaneles.cpp
// (the information, schema and application panels), frmPandrelRegistros.cpp (the records grid and
// the record panel), frmPandrelEdicion.cpp (the record toolbar and keys) and
// frmPandrelExportar.cpp (export and print). The records' rules live in clsNavegadorRegistros.
class frmPandrel : public QWidget {
    Q_OBJECT
public:
    // Tree node data: the node's key and its picture number.
    static constexpr int RolClave = Qt::UserRole;
    static constexpr int RolImagen = Qt::UserRole + 1;

    explicit frmPandrel(QWidget* xPadre = nullptr);
    ~frmPandrel() override;

    // Start-up: memory panels, schema grid, filter list and tree. Failures end in the frame's
    // "Connection error" and a message; the window stays with whatever was built.
    void Form_Load();

    bool Ocupado() const { return mOcupado; }
    // Chooses the database of that name in the tree, as a click on it does, showing every kind
    // of database when the chosen kind does not hold it.
    void ElegirBase(const QString& xNombre);

signals:
    // For the frame's message panel.
    void MensajeEstado(const QString& xTexto);
    // The frame's pointer goes back to the arrow.
    void PunteroNormal();
    // Long work: xHechos of xTotal done; a total of 0 ends the progress display.
    void Progreso(int xHechos, int xTotal);
    // A database was chosen whose records this window cannot show yet: the frame shows the
    // "under construction" notice over the explorer before the choice ends.
    void AvisoConstruccion();

protected:
    void closeEvent(QCloseEvent* xEvento) override;
    void showEvent(QShowEvent* xEvento) override;
    bool eventFilter(QObject* xObjeto, QEvent* xEvento) override;

private:
    // Long work under way for as long as it lives.
    struct TrabajoLargo {
        explicit TrabajoLargo(frmPandrel& xVentana) : mVentana(xVentana) {
            mVentana.EmpezarTrabajoLargo();
        }
        ~TrabajoLargo() { mVentana.TerminarTrabajoLargo(); }
        TrabajoLargo(const TrabajoLargo&) = delete;
        TrabajoLargo& operator=(const TrabajoLargo&) = delete;
        frmPandrel& mVentana;
    };

    // frmPandrel.cpp
    void CrearControles();
    QWidget* CrearPanelBase();
    QWidget* CrearPanelRecursos();
    static QLabel* Etiqueta(const QString& xTexto, QWidget* xPadre,
                            const QString& xNombre = QString());
    bool MostrarMemoria();
    // Runs xTrabajo under the trap of procedure xProcedimiento: a failure goes to the error
    // report window and the work is abandoned; a write refused because the database's file now
    // holds another database also reloads the tree. Returns whether it ran through.
    bool Atrapar(const QString& xProcedimiento, const std::function<void()>& xTrabajo);
    // Runs xTrabajo; a failure shows only its description, in a plain message titled xTitulo.
    bool Avisando(const QString& xTitulo, const std::function<void()>& xTrabajo);
    // Long work: lets the window repaint now and then (user input waits until the work is done).
    void EmpezarTrabajoLargo();
    void TerminarTrabajoLargo();
    void DejarPintar();
    void InformarProgreso(int xHechos, int xTotal);

    // frmPandrelArbol.cpp
    // The entries of a catalogue list, each of which ends in a tab; text after the last tab is
    // not an entry.
    void CargarTiposDB();
    void CargarCreatorIDs();
    void CargarBases(QTreeWidgetItem* xNodo);
    QTreeWidgetItem* AgregarNodo(QTreeWidgetItem* xPadre, const QString& xClave,
                                 const QString& xTexto, int xImagen);
    void tvwDataBases_Expand(QTreeWidgetItem* xNodo);
    // A choice of the node: with xRegistrosEstandar, as "Open Records" makes it.
    void tvwDataBases_NodeClick(QTreeWidgetItem* xNodo, bool xRegistrosEstandar = false);
    // The database node's menu: "Open Records" for a database of a built-in application.
    void tvwDataBases_ContextMenu(const QPoint& xPunto);
    bool EsBaseEstandar(const QTreeWidgetItem* xNodo) const;
    void AbrirRegistros();
    // The records of a built-in application's database are read through an object of their
    // own, which "Open Records" puts in the place of the usual one until the next plain choice.
    void UsarRegistrosEstandar(bool xEstandar);
    void tvwDataBases_CurrentChange(QTreeWidgetItem* xNodo);
    void ElegirNodo(QTreeWidgetItem* xNodo);
    void cmbTiposDB_Click();
    // The handheld changed under the chosen database: it is closed and the tree read again.
    void RecargarArbol();

    // frmPandrelPaneles.cpp
    void CargarInformacionBase();
    void CargarFormatoCampos();
    void CargarFormatoRecurso();
    void CargarRecursos(QTreeWidgetItem* xNodo);
    void MostrarTotalesAplicacion();

    // frmPandrelRegistros.cpp
    QWidget* CrearPanelRegistros();
    QWidget* CrearPanelInformacionRegistro();
    QWidget* CrearSelectorCantidad();
    void CargarFormatoTabla();
    void CargarCategorias();
    // Returns false when the loading failed (and the failure was shown).
    bool CargarTabla(bool xReiniciar, qint16 xCantidad);
    void CargarInformacionRegistro();
    void GuardarAtributos();
    void grdTabla_RowColChange();
    void grdTabla_Click(const QModelIndex& xCelda);
    void OrdenarPorColumnaActual();
    void RefrescarRegistro();
    void cmbRecuperarSiguientes_Click();
    void RecargarRegistros();
    qint16 CantidadARecuperar() const;
    QString NombreBaseElegida() const;

    // frmPandrelEdicion.cpp
    void tlbOpciones_ButtonClick(QAction* xBoton);
    // Looks the button up by key and runs the toolbar click with it; a key the toolbar does not
    // have takes no action.
    void PresionarBoton(const QString& xClave);
    // The keys the window sees before its controls; returns whether the key was taken.
    bool Form_KeyDown(QObject* xControl, int xTecla);
    void EditarCelda();
    void AgregarRegistro();
    void EliminarRegistro();
    void EliminarTodos();
    void BuscarRegistro();
    void RecargarBaseElegida();

    // frmPandrelExportar.cpp
    void ExportarInformacion();
    bool ValidarArchivoExportacion(const QString& xArchivo);
    void Imprimir();

    std::shared_ptr<clsFuentePalm> mFuente; // the handheld, taken when the window loads
    std::unique_ptr<clsPDBInterface> mBase;
    std::unique_ptr<clsPDBInterface> mBaseEnEspera; // the other of the two, not in use
    bool mRegistrosEstandar = false; // mBase reads a built-in application's records: read-only
    bool mOcupado = false;           // loading or processing a node choice
    bool mCargando = false;          // the record panel is being filled
    bool mLlenandoGrilla = false;    // rows of the records grid are being cut or laid out
    bool mCerrarAlTerminar = false;  // a close came in during long work
    int mTrabajoLargo = 0;           // depth of work that lets the window repaint
    bool mMostrandoCatalogo = false;
    bool mTeclaEnArbol = false;
    bool mTamanoFijado = false; // the minimum size was taken at the first show
    QElapsedTimer mUltimoPintado;
    std::unique_ptr<clsNavegadorRegistros> mNavegador;
    modTextosPanel::TotalesAplicacion mTotales;

    QTreeWidget* tvwDataBases = nullptr;
    QAction* mnuAbrirRegistros = nullptr;
    QComboBox* cmbTiposDB = nullptr;
    QStackedWidget* mPaneles = nullptr;
    QGroupBox* fraDataBase = nullptr;
    QGroupBox* fraRecursos = nullptr;

    QLabel* lblTipo = nullptr;
    QLabel* lblVersion = nullptr;
    QLabel* lblFechaCreacion = nullptr;
    QLabel* lblFechaModificacion = nullptr;
    QLabel* lblFechaBackup = nullptr;
    QLabel* lblTamanio = nullptr;
    QLineEdit* txtRegistrosARecuperar = nullptr;

    clsVistaGrilla* grdCampos = nullptr;
    clsVistaGrilla* grdTabla = nullptr;
    clsVistaGrilla* grdRecursos = nullptr;
    QToolBar* tlbOpciones = nullptr;
    QPushButton* cmbRecuperarSiguientes = nullptr;
    QComboBox* cmbCategorias = nullptr;
    QCheckBox* chkSoloModificados = nullptr;

    QLabel* lblCantidadRegistros = nullptr;
    QLabel* lblRecordID = nullptr;
    QLabel* lblCategoria = nullptr;
    QLabel* lblIndice = nullptr;
    QLabel* lblLongitudRegistro = nullptr;
    QLabel* lblTotalRecuperado = nullptr;
    QCheckBox* chkDirty = nullptr;
    QCheckBox* chkDeleted = nullptr;
    QCheckBox* chkSecret = nullptr;
    QCheckBox* chkArchive = nullptr;

    QLabel* lblCantidadObjetos = nullptr;
    QLabel* lblTotalRegistros = nullptr;
    QLabel* lblTamanioAplicacion = nullptr;

    QStatusBar* sbarBarra = nullptr;
    QLabel* mPanelRom = nullptr;
    QLabel* mPanelRam = nullptr;
    QLabel* mPanelRamDisponible = nullptr;
};
