#include "shell/frmInicio.h"

#include "common/ErrorVB.h"
#include "device/frmInformacion.h"
#include "errors/MostrarMensajeError.h"
#include "explorer/frmPandrel.h"
#include "shell/frmSplash.h"
#include "shell/modRecursosGraficos.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>

namespace {
const QString kFormulario = QStringLiteral("frmInicio");

// Arrange codes.
constexpr int kCascada = 0;
constexpr int kMosaicoHorizontal = 1;
constexpr int kMosaicoVertical = 2;

template <typename Trabajo> void ConTrampa(const QString& xProcedimiento, Trabajo xTrabajo) {
    try {
        xTrabajo();
    } catch (const ErrorVB& e) {
        MostrarMensajeError(e, kFormulario, xProcedimiento);
    } catch (const std::exception& e) {
        MostrarMensajeError(0, QString::fromLocal8Bit(e.what()), QString(), kFormulario,
                            xProcedimiento);
    }
}
} // namespace

frmInicio::frmInicio(QWidget* xPadre) : QMainWindow(xPadre) {
    setObjectName(QStringLiteral("frmInicio"));
    setWindowTitle(QStringLiteral("Pandrel"));
    setWindowIcon(modRecursosGraficos::IconoPrograma());
    mArea = new QMdiArea(this);
    mArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(mArea);
    CrearBarraHerramientas();
    CrearMenu();
    CrearBarraEstado();
    resize(1200, 800);
}

void frmInicio::CrearBarraHerramientas() {
    tlbOpciones = addToolBar(QStringLiteral("Options"));
    tlbOpciones->setObjectName(QStringLiteral("tlbOpciones"));
    tlbOpciones->setMovable(false);
    tlbOpciones->setIconSize(QSize(32, 32));
    tlbOpciones->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    const QPair<QString, QString> botones[] = {
        {QStringLiteral("Archivos"), QStringLiteral("File Debugger")},
        {QStringLiteral("Informacion"), QStringLiteral("System Information")},
        {QStringLiteral("Volver"), QStringLiteral("Exit")},
    };
    for (const auto& [clave, texto] : botones) {
        QAction* boton = tlbOpciones->addAction(modRecursosGraficos::IconoBoton(clave), texto);
        boton->setObjectName(clave);
    }
    connect(tlbOpciones, &QToolBar::actionTriggered, this, &frmInicio::tlbOpciones_ButtonClick);
}

void frmInicio::CrearMenu() {
    const auto accion = [this](QWidget* xMenu, const QString& xNombre, const QString& xTexto) {
        auto* item = new QAction(xTexto, this);
        item->setObjectName(xNombre);
        xMenu->addAction(item);
        return item;
    };
    const auto pulsar = [this](const QString& xClave) {
        return [this, xClave] { tlbOpciones_ButtonClick(Boton(xClave)); };
    };
    QMenuBar* barra = menuBar();
    connect(accion(barra, QStringLiteral("mnuFileDebugger"), QStringLiteral("&File Debugger")),
            &QAction::triggered, this, pulsar(QStringLiteral("Archivos")));
    connect(accion(barra, QStringLiteral("mnuSystemInfo"), QStringLiteral("System &Information")),
            &QAction::triggered, this, pulsar(QStringLiteral("Informacion")));

    QMenu* ventana = barra->addMenu(QStringLiteral("&Window"));
    ventana->menuAction()->setObjectName(QStringLiteral("mnuWindow"));
    const QPair<QString, QString> arreglos[] = {
        {QStringLiteral("mnuWindowTileHorizontal"), QStringLiteral("Tile &Horizontal")},
        {QStringLiteral("mnuWindowTileVertical"), QStringLiteral("Tile &Vertical")},
        {QStringLiteral("mnuWindowCascade"), QStringLiteral("&Cascade")},
    };
    const int codigos[] = {kMosaicoHorizontal, kMosaicoVertical, kCascada};
    for (int i = 0; i < 3; ++i)
        connect(accion(ventana, arreglos[i].first, arreglos[i].second), &QAction::triggered, this,
                [this, codigo = codigos[i]] { Arrange(codigo); });

    QMenu* ayuda = barra->addMenu(QStringLiteral("&Help"));
    ayuda->menuAction()->setObjectName(QStringLiteral("mnuHelp"));
    connect(accion(ayuda, QStringLiteral("mnuHelpAbout"), QStringLiteral("&About")),
            &QAction::triggered, this, &frmInicio::AcercaDe);
    ayuda->addSeparator()->setObjectName(QStringLiteral("mnuHelpSeparador"));
    connect(accion(ayuda, QStringLiteral("mnuHelpExit"), QStringLiteral("&Exit")),
            &QAction::triggered, this, pulsar(QStringLiteral("Volver")));
}

void frmInicio::CrearBarraEstado() {
    statusBar()->setObjectName(QStringLiteral("sbarBarra"));
    mMensaje = new QLabel(statusBar());
    mMensaje->setObjectName(QStringLiteral("Mensaje"));
    statusBar()->addWidget(mMensaje, 1);
    mProgreso = new QProgressBar(statusBar());
    mProgreso->setObjectName(QStringLiteral("Progreso"));
    mProgreso->setMaximumWidth(220);
    mProgreso->setFormat(QStringLiteral("%v / %m"));
    mProgreso->hide();
    statusBar()->addPermanentWidget(mProgreso);
}

QAction* frmInicio::Boton(const QString& xClave) const {
    for (QAction* boton : tlbOpciones->actions())
        if (boton->objectName() == xClave) return boton;
    return nullptr;
}

void frmInicio::tlbOpciones_ButtonClick(QAction* xBoton) {
    if (!xBoton || !xBoton->isEnabled()) return;
    const QString clave = xBoton->objectName();
    if (clave == QStringLiteral("Archivos"))
        AnalizarArchivos();
    else if (clave == QStringLiteral("Informacion"))
        MostrarInformacion();
    else if (clave == QStringLiteral("Volver"))
        close();
}

void frmInicio::AnalizarArchivos() {
    ConTrampa(QStringLiteral("AnalizarArchivos"), [this] {
        auto* explorador = new frmPandrel;
        connect(explorador, &frmPandrel::MensajeEstado, mMensaje, &QLabel::setText);
        connect(explorador, &frmPandrel::PunteroNormal, this,
                [this] { setCursor(Qt::ArrowCursor); });
        connect(explorador, &frmPandrel::Progreso, this, &frmInicio::MostrarProgreso);
        QMdiSubWindow* hija = mArea->addSubWindow(explorador);
        hija->setAttribute(Qt::WA_DeleteOnClose);
        setCursor(Qt::WaitCursor);
        mMensaje->setText(QStringLiteral("Analizyng Palm databases..."));
        // The message shows before the handheld is read.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        explorador->Form_Load();
        hija->show();
    });
}

void frmInicio::MostrarInformacion() {
    ConTrampa(QStringLiteral("MostrarInformacion"), [this] {
        frmInformacion informacion(this);
        informacion.exec();
    });
}

void frmInicio::AcercaDe() {
    frmSplash acercaDe(this);
    acercaDe.Parametros(true);
    acercaDe.exec();
}

void frmInicio::MostrarProgreso(int xHechos, int xTotal) {
    mProgreso->setVisible(xTotal > 0);
    if (xTotal <= 0) return;
    mProgreso->setRange(0, xTotal);
    mProgreso->setValue(xHechos);
}

void frmInicio::Arrange(int xCodigo) {
    if (xCodigo == kCascada) {
        mArea->cascadeSubWindows();
        return;
    }
    if (xCodigo != kMosaicoHorizontal && xCodigo != kMosaicoVertical) return;
    QList<QMdiSubWindow*> hijas;
    for (QMdiSubWindow* hija : mArea->subWindowList())
        if (hija->isVisible() && !hija->isMinimized()) hijas << hija;
    if (hijas.isEmpty()) return;
    // Tiling horizontally stacks the windows one above the other; vertically, side by side.
    const QRect area = mArea->viewport()->rect();
    const int n = static_cast<int>(hijas.size());
    for (int i = 0; i < n; ++i) {
        hijas[i]->showNormal();
        if (xCodigo == kMosaicoHorizontal) {
            const int alto = area.height() / n;
            hijas[i]->setGeometry(0, i * alto, area.width(), alto);
        } else {
            const int ancho = area.width() / n;
            hijas[i]->setGeometry(i * ancho, 0, ancho, area.height());
        }
    }
}

// Closing the frame closes every explorer first; one busy with long work closes when it is done.
void frmInicio::closeEvent(QCloseEvent* xEvento) {
    mArea->closeAllSubWindows();
    if (!mArea->subWindowList().isEmpty()) {
        xEvento->ignore();
        return;
    }
    xEvento->accept();
}
