#include "explorer/ventanas/frmPandrel.h"

#include "common/ErrorVB.h"
#include "common/modFunciones.h"
#include "common/ventanas/modDialogos.h"
#include "common/ventanas/modRecursosGraficos.h"
#include "data/clsPDBInterface.h"
#include "data/clsPalmPDB.h"
#include "data/modHandheld.h"
#include "device/clsPalmInformation.h"
#include "errors/ventanas/MostrarMensajeError.h"
#include "estandar/clsEstandarPDB.h"
#include "explorer/clsFuenteConProgreso.h"
#include "explorer/clsNavegadorRegistros.h"
#include "explorer/ventanas/clsVistaGrilla.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
const QString kFormulario = QStringLiteral("frmPandrel");

// The window's first extents in twips: room for the tree and for the columns of a typical schema
// (eight fields, two of them texts and one a date) in the records grid. Where the frame or the
// screen is smaller the window takes what there is, never less than its minimum.
constexpr int kAnchoVentana = 19800;
constexpr int kAltoVentana = 10500;

// Width beyond the minimum a new window opens with, in pixels: what the tree pane can take.
constexpr int kHolguraArbol = 120;

// Long work lets the window repaint at most this often (milliseconds).
constexpr int kIntervaloPintado = 40;

} // namespace

frmPandrel::frmPandrel(QWidget* xPadre) : QWidget(xPadre) {
    setWindowTitle(QStringLiteral("Explorer"));
    setWindowIcon(modRecursosGraficos::IconoArbol(2));
    CrearControles();
}

// Releasing the database-access object closes whatever database it holds.
frmPandrel::~frmPandrel() = default;

QLabel* frmPandrel::Etiqueta(const QString& xTexto, QWidget* xPadre, const QString& xNombre) {
    auto* etiqueta = new QLabel(xTexto, xPadre);
    if (!xNombre.isEmpty()) etiqueta->setObjectName(xNombre);
    return etiqueta;
}

void frmPandrel::CrearControles() {
    auto* lado = new QWidget(this);
    cmbTiposDB = new QComboBox(lado);
    cmbTiposDB->setObjectName(QStringLiteral("cmbTiposDB"));
    cmbTiposDB->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    tvwDataBases = new QTreeWidget(lado);
    tvwDataBases->setObjectName(QStringLiteral("tvwDataBases"));
    tvwDataBases->setHeaderHidden(true);
    tvwDataBases->setIconSize(QSize(20, 20));
    tvwDataBases->setAnimated(false);
    tvwDataBases->setMinimumWidth(150);
    tvwDataBases->setIndentation(14);
    // Long names widen the tree's column and scroll rather than being cut.
    tvwDataBases->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    tvwDataBases->header()->setStretchLastSection(false);
    auto* columnaArbol = new QVBoxLayout(lado);
    columnaArbol->setContentsMargins(0, 0, 0, 0);
    columnaArbol->addWidget(cmbTiposDB);
    columnaArbol->addWidget(tvwDataBases, 1);

    mPaneles = new QStackedWidget(this);
    mPaneles->addWidget(CrearPanelBase());
    mPaneles->addWidget(CrearPanelRecursos());

    auto* divisor = new QSplitter(Qt::Horizontal, this);
    divisor->setChildrenCollapsible(false);
    divisor->addWidget(lado);
    divisor->addWidget(mPaneles);
    divisor->setStretchFactor(0, 0);
    divisor->setStretchFactor(1, 1);
    divisor->setSizes({180, 560});

    sbarBarra = new QStatusBar(this);
    sbarBarra->setObjectName(QStringLiteral("sbarBarra"));
    sbarBarra->setSizeGripEnabled(false);
    mPanelRom = Etiqueta(QString(), sbarBarra, QStringLiteral("RomPalm"));
    mPanelRam = Etiqueta(QString(), sbarBarra, QStringLiteral("RamPalm"));
    mPanelRamDisponible = Etiqueta(QString(), sbarBarra, QStringLiteral("RamDisponible"));
    for (QLabel* panel : {mPanelRom, mPanelRam, mPanelRamDisponible})
        sbarBarra->addWidget(panel, 1);

    auto* principal = new QVBoxLayout(this);
    principal->setContentsMargins(6, 6, 6, 0);
    principal->setSpacing(4);
    principal->addWidget(divisor, 1);
    principal->addWidget(sbarBarra);

    // The frames sit close together so the window's first size shows every panel whole.
    for (QGroupBox* marco : findChildren<QGroupBox*>()) {
        marco->layout()->setContentsMargins(6, 4, 6, 6);
        if (auto* rejilla = qobject_cast<QGridLayout*>(marco->layout()))
            rejilla->setVerticalSpacing(2);
        else
            marco->layout()->setSpacing(3);
    }
    for (clsVistaGrilla* grilla : findChildren<clsVistaGrilla*>())
        grilla->setMinimumHeight(60);

    connect(tvwDataBases, &QTreeWidget::itemExpanded, this, &frmPandrel::tvwDataBases_Expand);
    connect(tvwDataBases, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* xNodo) { tvwDataBases_NodeClick(xNodo); });
    connect(tvwDataBases, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* xNodo) { tvwDataBases_CurrentChange(xNodo); });
    tvwDataBases->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(tvwDataBases, &QWidget::customContextMenuRequested, this,
            &frmPandrel::tvwDataBases_ContextMenu);
    mnuAbrirRegistros = new QAction(QStringLiteral("Open &Records"), this);
    mnuAbrirRegistros->setObjectName(QStringLiteral("mnuAbrirRegistros"));
    connect(mnuAbrirRegistros, &QAction::triggered, this, &frmPandrel::AbrirRegistros);
    for (QWidget* control : findChildren<QWidget*>())
        control->installEventFilter(this);
    connect(cmbTiposDB, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &frmPandrel::cmbTiposDB_Click);
}

// The record-database panel: header facts, record facts, the records and the schema.
QWidget* frmPandrel::CrearPanelBase() {
    fraDataBase = new QGroupBox(QStringLiteral("Data Base"), this);
    fraDataBase->setObjectName(QStringLiteral("fraDataBase"));

    auto* fraInformacionDB = new QGroupBox(QStringLiteral("Data Base Information"), fraDataBase);
    fraInformacionDB->setObjectName(QStringLiteral("fraInformacionDB"));
    auto* rejilla = new QGridLayout(fraInformacionDB);
    rejilla->setHorizontalSpacing(8);
    rejilla->setVerticalSpacing(3);
    const QString fecha = QStringLiteral("01/01/1904");
    const struct {
        QString Nombre, Rotulo, Valor;
        QLabel** Destino;
    } etiquetas[] = {
        {QStringLiteral("lblTipo"), QStringLiteral("Type:"), QString(), &lblTipo},
        {QStringLiteral("lblVersion"), QStringLiteral("Version:"), QString(), &lblVersion},
        {QStringLiteral("lblFechaCreacion"), QStringLiteral("Creation Date:"), fecha,
         &lblFechaCreacion},
        {QStringLiteral("lblFechaModificacion"), QStringLiteral("Modification Date:"), fecha,
         &lblFechaModificacion},
        {QStringLiteral("lblFechaBackup"), QStringLiteral("Backup Date:"), fecha, &lblFechaBackup},
        {QStringLiteral("lblTamanio"), QStringLiteral("Size:"), QString(), &lblTamanio},
    };
    // Type, version and size on the left; the three dates on the right.
    const QPoint lugares[] = {{0, 0}, {0, 1}, {1, 0}, {1, 1}, {1, 2}, {0, 2}};
    for (int i = 0; i < 6; ++i) {
        const auto& e = etiquetas[i];
        const int fila = lugares[i].y();
        const int columna = lugares[i].x() * 3;
        rejilla->addWidget(Etiqueta(e.Rotulo, fraInformacionDB), fila, columna);
        *e.Destino = Etiqueta(e.Valor, fraInformacionDB, e.Nombre);
        (*e.Destino)->setTextInteractionFlags(Qt::TextSelectableByMouse);
        rejilla->addWidget(*e.Destino, fila, columna + 1);
    }
    rejilla->setColumnMinimumWidth(2, 12);
    rejilla->setColumnStretch(1, 1);
    rejilla->setColumnStretch(4, 2);
    rejilla->addWidget(Etiqueta(QStringLiteral("Retrieved #:"), fraInformacionDB), 3, 0);
    txtRegistrosARecuperar = new QLineEdit(QStringLiteral("40"), fraInformacionDB);
    txtRegistrosARecuperar->setObjectName(QStringLiteral("txtRegistrosARecuperar"));
    txtRegistrosARecuperar->setMaximumWidth(56);
    auto* cantidad = new QHBoxLayout;
    cantidad->setSpacing(2);
    cantidad->addWidget(txtRegistrosARecuperar);
    cantidad->addWidget(CrearSelectorCantidad());
    cantidad->addSpacing(6);
    cantidad->addWidget(Etiqueta(QStringLiteral("(-1 = All Records)"), fraInformacionDB));
    cantidad->addStretch(1);
    rejilla->addLayout(cantidad, 3, 1, 1, 4);

    auto* fraCampos = new QGroupBox(QStringLiteral("Schema"), fraDataBase);
    fraCampos->setObjectName(QStringLiteral("fraCampos"));
    grdCampos = new clsVistaGrilla(fraCampos);
    grdCampos->setObjectName(QStringLiteral("grdCampos"));
    auto* columnaCampos = new QVBoxLayout(fraCampos);
    columnaCampos->addWidget(grdCampos);
    fraCampos->setFixedWidth(grdCampos->TwipsAPixeles(2000 + 840) + 44);

    auto* lateral = new QVBoxLayout;
    lateral->addWidget(CrearPanelInformacionRegistro());
    lateral->addWidget(fraCampos, 1);
    auto* abajo = new QHBoxLayout;
    abajo->addWidget(CrearPanelRegistros(), 1);
    abajo->addLayout(lateral);
    auto* columna = new QVBoxLayout(fraDataBase);
    columna->addWidget(fraInformacionDB);
    columna->addLayout(abajo, 1);
    return fraDataBase;
}

// The resource-database panel: the application's totals and the databases it owns.
QWidget* frmPandrel::CrearPanelRecursos() {
    fraRecursos = new QGroupBox(QStringLiteral("Data Base"), this);
    fraRecursos->setObjectName(QStringLiteral("fraRecursos"));

    auto* fraInformacionAplicacion =
        new QGroupBox(QStringLiteral("Application Information"), fraRecursos);
    fraInformacionAplicacion->setObjectName(QStringLiteral("fraInformacionAplicacion"));
    auto* fila = new QHBoxLayout(fraInformacionAplicacion);
    const struct {
        QString Nombre, Rotulo;
        QLabel** Destino;
    } totales[] = {
        {QStringLiteral("lblCantidadObjetos"), QStringLiteral("Num Objects:"), &lblCantidadObjetos},
        {QStringLiteral("lblTotalRegistros"), QStringLiteral("Num Records:"), &lblTotalRegistros},
        {QStringLiteral("lblTamanioAplicacion"), QStringLiteral("Total Application Size:"),
         &lblTamanioAplicacion},
    };
    for (const auto& t : totales) {
        fila->addWidget(Etiqueta(t.Rotulo, fraInformacionAplicacion));
        *t.Destino = Etiqueta(QString(), fraInformacionAplicacion, t.Nombre);
        (*t.Destino)->setMinimumWidth(40);
        fila->addWidget(*t.Destino);
        fila->addSpacing(12);
    }
    fila->addStretch(1);

    auto* fraEstructuraRecursos =
        new QGroupBox(QStringLiteral("Application Structure"), fraRecursos);
    fraEstructuraRecursos->setObjectName(QStringLiteral("fraEstructuraRecursos"));
    grdRecursos = new clsVistaGrilla(fraEstructuraRecursos);
    grdRecursos->setObjectName(QStringLiteral("grdRecursos"));
    auto* columnaEstructura = new QVBoxLayout(fraEstructuraRecursos);
    columnaEstructura->addWidget(grdRecursos);

    auto* columna = new QVBoxLayout(fraRecursos);
    columna->addWidget(fraInformacionAplicacion);
    columna->addWidget(fraEstructuraRecursos, 1);
    return fraRecursos;
}

void frmPandrel::Form_Load() {
    QWidget* ventana = parentWidget() ? parentWidget() : this;
    ventana->resize(grdCampos->TwipsAPixeles(kAnchoVentana),
                    grdCampos->TwipsAPixeles(kAltoVentana));
    try {
        mFuente = modHandheld::FuenteActual();
        // Reaching the handheld's catalogue is the connection: a handheld that cannot be read
        // fails here.
        mFuente->CrearGestor()->ListarBases(-1);
        // The catalogue walk reports its progress through this source.
        const auto conProgreso =
            std::make_shared<clsFuenteConProgreso>(mFuente, [this](int xHechas, int xTotal) {
                if (mMostrandoCatalogo) InformarProgreso(xHechas, xTotal);
            });
        mBase = std::make_unique<clsPalmPDB>(conProgreso);
        mBaseEnEspera = std::make_unique<clsEstandarPDB>(conProgreso);
        mOcupado = true;
        if (MostrarMemoria()) {
            CargarFormatoCampos();
            CargarTiposDB();
            CargarCreatorIDs();
        }
        mOcupado = false;
        emit MensajeEstado(QString());
        emit PunteroNormal();
    } catch (const std::exception&) {
        emit MensajeEstado(QStringLiteral("Connection error"));
        emit PunteroNormal();
        modDialogos::MsgBox(this, QStringLiteral("Palm Database connection error."),
                            QMessageBox::Ok, QMessageBox::Warning, windowTitle());
    }
}

bool frmPandrel::MostrarMemoria() {
    for (QLabel* etiqueta : {lblTipo, lblFechaCreacion, lblFechaModificacion, lblFechaBackup})
        etiqueta->clear();
    return Avisando(windowTitle(), [this] {
        const auto tarjeta = clsPalmInformation(*mFuente).MemoryCard();
        mPanelRom->setText(QStringLiteral("Rom: ") +
                           modTextosPanel::TextoMemoria(tarjeta->TamanoRom()));
        mPanelRam->setText(QStringLiteral("Ram: ") +
                           modTextosPanel::TextoMemoria(tarjeta->TamanoRam()));
        mPanelRamDisponible->setText(QStringLiteral("Available Ram: ") +
                                     modTextosPanel::TextoMemoria(tarjeta->RamLibre()));
    });
}

bool frmPandrel::Avisando(const QString& xTitulo, const std::function<void()>& xTrabajo) {
    try {
        xTrabajo();
        return true;
    } catch (const std::exception& e) {
        modDialogos::MsgBox(this, ErrorVB::De(e, QString()).Descripcion(), QMessageBox::Ok,
                            QMessageBox::NoIcon, xTitulo);
    }
    return false;
}

bool frmPandrel::Atrapar(const QString& xProcedimiento, const std::function<void()>& xTrabajo) {
    bool cambiada = false;
    if (::Atrapar(kFormulario, xProcedimiento, xTrabajo, [&cambiada](const ErrorVB& xError) {
            cambiada = xError.Numero() == ErroresFuente::BaseCambiada;
        }))
        return true;
    // Once the work has unwound: it may still hold nodes of the tree.
    if (cambiada) QTimer::singleShot(0, this, &frmPandrel::RecargarArbol);
    return false;
}

void frmPandrel::EmpezarTrabajoLargo() {
    if (mTrabajoLargo++ == 0) mUltimoPintado.start();
}

void frmPandrel::TerminarTrabajoLargo() {
    if (--mTrabajoLargo > 0) return;
    emit Progreso(0, 0);
    if (mCerrarAlTerminar)
        QTimer::singleShot(0, this, [this] { (parentWidget() ? parentWidget() : this)->close(); });
}

// Clicks and keys wait until the work is done, so nothing can change the open database under it.
void frmPandrel::DejarPintar() {
    if (mTrabajoLargo == 0 || mUltimoPintado.elapsed() < kIntervaloPintado) return;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    mUltimoPintado.restart();
}

void frmPandrel::InformarProgreso(int xHechos, int xTotal) {
    if (mTrabajoLargo == 0 || mUltimoPintado.elapsed() < kIntervaloPintado) return;
    emit Progreso(xHechos, xTotal);
    DejarPintar();
}

// Every control whole at today's fonts: once the window is polished and about to show, it takes
// the size its layout needs as its minimum (the filter box showing its longest entry), and its
// frame grows to fit, with room to widen the tree.
void frmPandrel::showEvent(QShowEvent* xEvento) {
    QWidget::showEvent(xEvento);
    if (mTamanoFijado) return;
    mTamanoFijado = true;
    QWidget* ventana = parentWidget() ? parentWidget() : this;
    const QSize marco = ventana->size() - size();
    cmbTiposDB->setMinimumWidth(cmbTiposDB->sizeHint().width());
    for (QLayout* disposicion : findChildren<QLayout*>())
        disposicion->invalidate();
    layout()->invalidate();
    setMinimumSize(minimumSizeHint());
    // Room beyond the minimum, so the tree pane can be widened at once, within the area the
    // window opens in: the frame's, or the screen's.
    const QSize minimo = minimumSize() + marco;
    const QSize lugar = ventana->parentWidget() ? ventana->parentWidget()->size()
                                                : ventana->screen()->availableGeometry().size();
    ventana->resize(ventana->size()
                        .expandedTo(minimo + QSize(kHolguraArbol, 0))
                        .boundedTo(lugar)
                        .expandedTo(minimo));
}

void frmPandrel::closeEvent(QCloseEvent* xEvento) {
    if (mTrabajoLargo > 0) {
        mCerrarAlTerminar = true;
        xEvento->ignore();
        return;
    }
    xEvento->accept();
}
