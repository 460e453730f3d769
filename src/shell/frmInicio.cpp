#include "shell/frmInicio.h"
#include "shell/frmMensajeConstruccion.h"

#include "common/ErrorVB.h"
#include "common/modRecientes.h"
#include "common/ventanas/modDialogos.h"
#include "common/ventanas/modRecursosGraficos.h"
#include "data/modHandheld.h"
#include "device/ventanas/frmInformacion.h"
#include "errors/ventanas/MostrarMensajeError.h"
#include "estandar/modExportacionEstandar.h"
#include "explorer/ventanas/frmPandrel.h"
#include "shell/frmSplash.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

namespace {
const QString kFormulario = QStringLiteral("frmInicio");

// Arrange codes.
constexpr int kCascada = 0;
constexpr int kMosaicoHorizontal = 1;
constexpr int kMosaicoVertical = 2;

// The code pages the menu offers; the current handheld's is added when it is another.
const QStringList& CodigosPagina() {
    static const QStringList paginas = {
        QStringLiteral("windows-1252"), QStringLiteral("windows-1250"),
        QStringLiteral("windows-1251"), QStringLiteral("Shift_JIS"),
        QStringLiteral("Big5"),         QStringLiteral("GBK"),
        QStringLiteral("EUC-KR")};
    return paginas;
}

// The code page of the current handheld; "" when there is none.
QString CodigoPaginaActual() {
    try {
        return modHandheld::FuenteActual()->CodigoPagina();
    } catch (const ErrorVB&) {
        return {};
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
    // Room for an explorer that shows a typical schema's columns; a smaller screen is taken whole.
    const QSize tamano(1400, 980);
    const QRect pantalla = screen()->availableGeometry();
    resize(tamano.boundedTo(pantalla.size()));
    if (!pantalla.contains(QRect(pantalla.topLeft(), tamano)))
        setWindowState(windowState() | Qt::WindowMaximized);
}

void frmInicio::CrearBarraHerramientas() {
    tlbOpciones = modRecursosGraficos::BarraOpciones(
        this, Qt::ToolButtonTextUnderIcon,
        {
            {QStringLiteral("Archivos"), QStringLiteral("File Debugger")},
            {QStringLiteral("Informacion"), QStringLiteral("System Information")},
            {QStringLiteral("Volver"), QStringLiteral("Exit")},
        });
    tlbOpciones->setWindowTitle(QStringLiteral("Options"));
    tlbOpciones->setMovable(false);
    tlbOpciones->setIconSize(QSize(32, 32));
    addToolBar(tlbOpciones);
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
    CrearMenuHandheld(barra, ventana->menuAction());
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

// The handheld menu comes before Window; the other menus keep their order and mnemonics.
void frmInicio::CrearMenuHandheld(QMenuBar* xBarra, QAction* xAntes) {
    mnuHandheld = new QMenu(QStringLiteral("Ha&ndheld"), this);
    mnuHandheld->menuAction()->setObjectName(QStringLiteral("mnuHandheld"));
    xBarra->insertMenu(xAntes, mnuHandheld);
    connect(mnuHandheld, &QMenu::aboutToShow, this, &frmInicio::RefrescarMenuHandheld);
    RefrescarMenuHandheld();
}

void frmInicio::RefrescarMenuHandheld() {
    mnuHandheld->clear();
    const auto item = [this](QMenu* xMenu, const QString& xNombre, const QString& xTexto) {
        QAction* accion = xMenu->addAction(xTexto);
        accion->setObjectName(xNombre);
        return accion;
    };
    connect(item(mnuHandheld, QStringLiteral("mnuHandheldFolder"),
                 QStringLiteral("Open Handheld &Folder...")),
            &QAction::triggered, this, &frmInicio::ElegirCarpeta);
    connect(item(mnuHandheld, QStringLiteral("mnuHandheldArchive"),
                 QStringLiteral("Open &Backup Archive...")),
            &QAction::triggered, this, &frmInicio::ElegirArchivo);
    mnuHandheld->addSeparator();
    const QStringList recientes = modRecientes::Lista();
    for (int i = 0; i < recientes.size(); ++i) {
        QString texto = recientes[i];
        QAction* reciente =
            item(mnuHandheld, QStringLiteral("mnuHandheldRecent%1").arg(i + 1),
                 QStringLiteral("&%1 %2").arg(i + 1).arg(texto.replace('&', QStringLiteral("&&"))));
        reciente->setCheckable(true);
        reciente->setChecked(recientes[i] == mRuta);
        connect(reciente, &QAction::triggered, this,
                [this, ruta = recientes[i]] { AbrirHandheld(ruta); });
    }
    if (!recientes.isEmpty()) mnuHandheld->addSeparator();

    QMenu* paginas = mnuHandheld->addMenu(QStringLiteral("&Code Page"));
    paginas->menuAction()->setObjectName(QStringLiteral("mnuHandheldCodePage"));
    paginas->setEnabled(!mRuta.isEmpty());
    const QString actual = CodigoPaginaActual();
    QStringList lista = CodigosPagina();
    if (!actual.isEmpty() && !lista.contains(actual, Qt::CaseInsensitive)) lista.prepend(actual);
    for (const QString& pagina : lista) {
        QAction* opcion = item(paginas, QStringLiteral("mnuCodePage_") + pagina, pagina);
        opcion->setCheckable(true);
        opcion->setChecked(pagina.compare(actual, Qt::CaseInsensitive) == 0);
        connect(opcion, &QAction::triggered, this,
                [this, pagina] { AbrirHandheld(mRuta, pagina); });
    }
    mnuHandheld->addSeparator();
    QAction* exportar = item(mnuHandheld, QStringLiteral("mnuHandheldExport"),
                             QStringLiteral("&Export Standard Data..."));
    exportar->setEnabled(!mRuta.isEmpty());
    connect(exportar, &QAction::triggered, this, &frmInicio::ExportarDatosEstandar);
}

void frmInicio::ElegirCarpeta() {
    const QString carpeta = modDialogos::ElegirCarpeta(this, QStringLiteral("Open Handheld Folder"),
                                                       QFileInfo(mRuta).absolutePath());
    if (!carpeta.isEmpty()) AbrirHandheld(carpeta);
}

void frmInicio::ExportarDatosEstandar() {
    const QString titulo = QStringLiteral("Export Standard Data");
    const QString carpeta =
        modDialogos::ElegirCarpeta(this, titulo, QFileInfo(mRuta).absolutePath());
    if (carpeta.isEmpty()) return;
    QStringList existentes;
    for (const QString& archivo : modExportacionEstandar::ArchivosHandheld())
        if (QFileInfo::exists(QDir(carpeta).filePath(archivo))) existentes << archivo;
    if (!existentes.isEmpty() &&
        !modDialogos::Preguntar(this,
                                QStringLiteral("The folder already holds %1. Replace them?")
                                    .arg(existentes.join(QStringLiteral(", "))),
                                titulo))
        return;
    QStringList resumen;
    setCursor(Qt::WaitCursor);
    Atrapar(kFormulario, QStringLiteral("ExportarDatosEstandar"), [&] {
        resumen = modExportacionEstandar::ExportarHandheld(modHandheld::FuenteActual(), carpeta);
    });
    setCursor(Qt::ArrowCursor);
    if (!resumen.isEmpty())
        modDialogos::MsgBox(
            this,
            QStringLiteral("Written to %1:\n\n").arg(QDir::toNativeSeparators(carpeta)) +
                resumen.join(QLatin1Char('\n')),
            QMessageBox::Ok, QMessageBox::Information, titulo);
}

void frmInicio::ElegirArchivo() {
    const QString archivo = modDialogos::AbrirArchivo(
        this, QStringLiteral("Open Backup Archive"), QFileInfo(mRuta).absolutePath(),
        QStringLiteral("Backup archives (*.zip);;All files (*)"));
    if (!archivo.isEmpty()) AbrirHandheld(archivo);
}

bool frmInicio::AbrirHandheld(const QString& xRuta, const QString& xCodigoPagina) {
    if (!mArea->subWindowList().isEmpty()) {
        if (!modDialogos::Preguntar(this,
                                    QStringLiteral("Opening another handheld closes the explorers "
                                                   "of this one. Do you want to go on?"),
                                    windowTitle()))
            return false;
        mArea->closeAllSubWindows();
        if (!mArea->subWindowList().isEmpty()) return false;
    }
    bool abierto = false;
    Atrapar(kFormulario, QStringLiteral("AbrirHandheld"), [&] {
        const auto fuente = modHandheld::CrearFuente(xRuta, xCodigoPagina);
        // A handheld that cannot be read fails here, and the previous one stays.
        fuente->CrearGestor()->ListarBases(-1);
        modHandheld::EstablecerFuente(fuente);
        TomarHandheld(xRuta);
        abierto = true;
    });
    return abierto;
}

void frmInicio::TomarHandheld(const QString& xRuta) {
    mRuta = QDir::cleanPath(QFileInfo(xRuta).absoluteFilePath());
    modRecientes::Agregar(mRuta);
    mMensaje->setText(mRuta);
    // Later: the menu may be showing the item that asked for this.
    QMetaObject::invokeMethod(this, &frmInicio::RefrescarMenuHandheld, Qt::QueuedConnection);
}

void frmInicio::AbrirBase(const QString& xNombre) {
    if (frmPandrel* explorador = AnalizarArchivos()) explorador->ElegirBase(xNombre);
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

frmPandrel* frmInicio::AnalizarArchivos() {
    frmPandrel* abierto = nullptr;
    Atrapar(kFormulario, QStringLiteral("AnalizarArchivos"), [this, &abierto] {
        auto* explorador = new frmPandrel;
        connect(explorador, &frmPandrel::MensajeEstado, mMensaje, &QLabel::setText);
        connect(explorador, &frmPandrel::PunteroNormal, this,
                [this] { setCursor(Qt::ArrowCursor); });
        connect(explorador, &frmPandrel::Progreso, this, &frmInicio::MostrarProgreso);
        connect(explorador, &frmPandrel::AvisoConstruccion, explorador, [explorador] {
            frmMensajeConstruccion aviso(explorador);
            aviso.exec();
        });
        QMdiSubWindow* hija = mArea->addSubWindow(explorador);
        hija->setAttribute(Qt::WA_DeleteOnClose);
        setCursor(Qt::WaitCursor);
        mMensaje->setText(QStringLiteral("Analizyng Palm databases..."));
        // The message shows before the handheld is read.
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        explorador->Form_Load();
        Escalonar(hija);
        hija->show();
        abierto = explorador;
    });
    return abierto;
}

void frmInicio::MostrarInformacion() {
    Atrapar(kFormulario, QStringLiteral("MostrarInformacion"), [this] {
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

// The smallest a child window may be: its content's minimum size and the window's frame.
QSize frmInicio::TamanoMinimo(const QMdiSubWindow* xHija) {
    const QWidget* contenido = xHija->widget();
    if (!contenido) return xHija->minimumSizeHint();
    const QSize marco = xHija->size() - contenido->size();
    return contenido->minimumSize().expandedTo(contenido->minimumSizeHint()) + marco;
}

// A new explorer opens below and to the right of the last one, never exactly on top of it; one
// that would run past the area starts again at the top left.
void frmInicio::Escalonar(QMdiSubWindow* xNueva) {
    const QList<QMdiSubWindow*> hijas = mArea->subWindowList(QMdiArea::CreationOrder);
    const qsizetype anterior = hijas.indexOf(xNueva) - 1;
    if (anterior < 0) {
        xNueva->move(0, 0);
        return;
    }
    const QPoint ultima = hijas.at(anterior)->pos();
    const int paso = xNueva->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, xNueva) + 4;
    QPoint lugar = ultima + QPoint(paso, paso);
    const QRect area = mArea->viewport()->rect();
    if (lugar.x() + xNueva->width() > area.width() || lugar.y() + xNueva->height() > area.height())
        lugar = ultima == QPoint(0, 0) ? QPoint(paso, 0) : QPoint(0, 0);
    xNueva->move(lugar);
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
    // Tiling horizontally stacks the windows one above the other; vertically, side by side. A
    // window keeps its minimum size: when the area is too small for all of them, they go on
    // past its edge (the area scrolls) rather than over each other.
    const QRect area = mArea->viewport()->rect();
    const int n = static_cast<int>(hijas.size());
    int lugar = 0;
    for (QMdiSubWindow* hija : hijas) {
        hija->showNormal();
        const QSize minimo = TamanoMinimo(hija);
        if (xCodigo == kMosaicoHorizontal) {
            const int alto = std::max(area.height() / n, minimo.height());
            hija->setGeometry(0, lugar, std::max(area.width(), minimo.width()), alto);
            lugar += alto;
        } else {
            const int ancho = std::max(area.width() / n, minimo.width());
            hija->setGeometry(lugar, 0, ancho, std::max(area.height(), minimo.height()));
            lugar += ancho;
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
