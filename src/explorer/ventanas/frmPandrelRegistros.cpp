// The records half of the explorer: the records grid laid out from the schema, the category
// box, the batches of records and the panel of the current record.
#include "explorer/ventanas/frmPandrel.h"

#include "common/ErrorVB.h"
#include "common/modFunciones.h"
#include "common/ventanas/modDialogos.h"
#include "common/ventanas/modRecursosGraficos.h"
#include "data/clsPDBInterface.h"
#include "data/formato/clsArchivoPDB.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/clsNavegadorRegistros.h"
#include "explorer/ventanas/clsVistaGrilla.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

QWidget* frmPandrel::CrearPanelRegistros() {
    auto* fraGrilla = new QGroupBox(QStringLiteral("Records"), fraDataBase);
    fraGrilla->setObjectName(QStringLiteral("fraGrilla"));

    tlbOpciones = modRecursosGraficos::BarraOpciones(
        fraGrilla, Qt::ToolButtonIconOnly,
        {
            {QStringLiteral("Agregar"), QStringLiteral("Add New Record")},
            {QStringLiteral("Modificar"), QStringLiteral("Update Record")},
            {QStringLiteral("Eliminar"), QStringLiteral("Delete Record")},
            {QStringLiteral("Imprimir"), QStringLiteral("Print")},
            {QStringLiteral("Buscar"), QStringLiteral("Find")},
            {QStringLiteral("Exportar"), QStringLiteral("Export")},
            {QStringLiteral("EliminarTodos"), QStringLiteral("Delete all records")},
        });
    tlbOpciones->setIconSize(QSize(18, 18));
    connect(tlbOpciones, &QToolBar::actionTriggered, this, &frmPandrel::tlbOpciones_ButtonClick);
    // Every record button stays in view rather than behind the toolbar's overflow.
    tlbOpciones->setMinimumWidth(tlbOpciones->sizeHint().width());

    auto* Picture1 = new QWidget(fraGrilla);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    cmbCategorias = new QComboBox(Picture1);
    cmbCategorias->setObjectName(QStringLiteral("cmbCategorias"));
    cmbCategorias->setMinimumContentsLength(8);
    chkSoloModificados = new QCheckBox(QStringLiteral("&Only Modified"), Picture1);
    chkSoloModificados->setObjectName(QStringLiteral("chkSoloModificados"));
    auto* filaCategoria = new QHBoxLayout(Picture1);
    filaCategoria->setContentsMargins(0, 0, 0, 0);
    filaCategoria->addWidget(
        Etiqueta(QStringLiteral("Category"), Picture1, QStringLiteral("lblCategorias")));
    filaCategoria->addWidget(cmbCategorias);
    filaCategoria->addSpacing(8);
    filaCategoria->addWidget(chkSoloModificados);

    grdTabla = new clsVistaGrilla(fraGrilla);
    grdTabla->setObjectName(QStringLiteral("grdTabla"));
    mNavegador = std::make_unique<clsNavegadorRegistros>(grdTabla->Grilla());
    connect(grdTabla->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmPandrel::grdTabla_RowColChange);
    connect(grdTabla, &QAbstractItemView::doubleClicked, this, [this] { EditarCelda(); });
    connect(grdTabla, &QAbstractItemView::clicked, this, &frmPandrel::grdTabla_Click);
    // The header row shows as the grid's heading: a click on it is a click on row 0.
    connect(grdTabla->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int xColumna) {
        grdTabla->SetCol(xColumna);
        OrdenarPorColumnaActual();
    });

    cmbRecuperarSiguientes = new QPushButton(QStringLiteral("Retrieve next Records"), fraGrilla);
    cmbRecuperarSiguientes->setObjectName(QStringLiteral("cmbRecuperarSiguientes"));
    connect(cmbRecuperarSiguientes, &QPushButton::clicked, this,
            &frmPandrel::cmbRecuperarSiguientes_Click);
    connect(chkSoloModificados, &QCheckBox::toggled, this, &frmPandrel::RecargarRegistros);
    connect(cmbCategorias, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &frmPandrel::RecargarRegistros);

    auto* filtros = new QHBoxLayout;
    filtros->addWidget(Picture1);
    filtros->addStretch(1);
    auto* siguientes = new QHBoxLayout;
    siguientes->addWidget(cmbRecuperarSiguientes);
    siguientes->addStretch(1);
    auto* columna = new QVBoxLayout(fraGrilla);
    columna->addWidget(tlbOpciones);
    columna->addLayout(filtros);
    columna->addWidget(grdTabla, 1);
    columna->addLayout(siguientes);
    return fraGrilla;
}

QWidget* frmPandrel::CrearPanelInformacionRegistro() {
    auto* panel = new QWidget(fraDataBase);
    auto* columna = new QVBoxLayout(panel);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(3);

    auto* fraInformacionRegistro = new QGroupBox(QStringLiteral("Record Information"), panel);
    fraInformacionRegistro->setObjectName(QStringLiteral("fraInformacionRegistro"));
    auto* rejilla = new QGridLayout(fraInformacionRegistro);
    rejilla->setVerticalSpacing(3);
    const struct {
        QString Nombre, Rotulo, Valor;
        QLabel** Destino;
    } etiquetas[] = {
        {QStringLiteral("lblCantidadRegistros"), QStringLiteral("Record Count:"),
         QStringLiteral("Record 0/ 0"), &lblCantidadRegistros},
        {QStringLiteral("lblRecordID"), QStringLiteral("Unique ID:"), QString(), &lblRecordID},
        {QStringLiteral("lblCategoria"), QStringLiteral("Category ID:"), QString(), &lblCategoria},
        {QStringLiteral("lblIndice"), QStringLiteral("Index:"), QString(), &lblIndice},
        {QStringLiteral("lblLongitudRegistro"), QStringLiteral("Length:"), QString(),
         &lblLongitudRegistro},
        {QStringLiteral("lblTotalRecuperado"), QStringLiteral("Retrieved:"), QString(),
         &lblTotalRecuperado},
    };
    // Every value has room for the widest the panel can show.
    const int ancho =
        fontMetrics().horizontalAdvance(clsNavegadorRegistros::TextoPosicionMasAncho());
    int f = 0;
    for (const auto& e : etiquetas) {
        rejilla->addWidget(Etiqueta(e.Rotulo, fraInformacionRegistro), f, 0);
        *e.Destino = Etiqueta(e.Valor, fraInformacionRegistro, e.Nombre);
        (*e.Destino)->setMinimumWidth(ancho);
        rejilla->addWidget(*e.Destino, f++, 1);
    }
    rejilla->setRowStretch(f, 1);

    auto* fraAtributosRegistro = new QGroupBox(QStringLiteral("Record Attributes"), panel);
    fraAtributosRegistro->setObjectName(QStringLiteral("fraAtributosRegistro"));
    auto* rejillaAtributos = new QGridLayout(fraAtributosRegistro);
    rejillaAtributos->setVerticalSpacing(2);
    const struct {
        QString Nombre, Texto;
        QCheckBox** Destino;
    } casillas[] = {
        {QStringLiteral("chkDirty"), QStringLiteral("Dirty"), &chkDirty},
        {QStringLiteral("chkDeleted"), QStringLiteral("Delete"), &chkDeleted},
        {QStringLiteral("chkSecret"), QStringLiteral("Secret"), &chkSecret},
        {QStringLiteral("chkArchive"), QStringLiteral("Archive"), &chkArchive},
    };
    int casilla = 0;
    for (const auto& c : casillas) {
        *c.Destino = new QCheckBox(c.Texto, fraAtributosRegistro);
        (*c.Destino)->setObjectName(c.Nombre);
        rejillaAtributos->addWidget(*c.Destino, casilla / 2, casilla % 2);
        connect(*c.Destino, &QCheckBox::clicked, this, [this] {
            if (!mCargando) GuardarAtributos();
        });
        ++casilla;
    }

    columna->addWidget(fraInformacionRegistro);
    columna->addWidget(fraAtributosRegistro);
    return panel;
}

// The up-down beside the batch size box: steps its number within -1 .. 1000.
QWidget* frmPandrel::CrearSelectorCantidad() {
    auto* udCantidadRegistros = new QWidget(txtRegistrosARecuperar->parentWidget());
    udCantidadRegistros->setObjectName(QStringLiteral("udCantidadRegistros"));
    auto* columna = new QVBoxLayout(udCantidadRegistros);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->setSpacing(0);
    for (const int paso : {1, -1}) {
        auto* flecha = new QToolButton(udCantidadRegistros);
        flecha->setArrowType(paso > 0 ? Qt::UpArrow : Qt::DownArrow);
        flecha->setFixedSize(18, 11);
        flecha->setAutoRepeat(true);
        connect(flecha, &QToolButton::clicked, this, [this, paso] {
            txtRegistrosARecuperar->setText(
                clsNavegadorRegistros::CantidadTrasPaso(txtRegistrosARecuperar->text(), paso));
        });
        columna->addWidget(flecha);
    }
    return udCantidadRegistros;
}

qint16 frmPandrel::CantidadARecuperar() const {
    return modFunciones::Entero16(modFunciones::Val(txtRegistrosARecuperar->text()),
                                  QStringLiteral("frmPandrel"));
}

QString frmPandrel::NombreBaseElegida() const {
    QTreeWidgetItem* elegido = tvwDataBases->currentItem();
    return elegido ? elegido->text(0) : QString();
}

void frmPandrel::CargarFormatoTabla() {
    Atrapar(QStringLiteral("CargarFormatoTabla"), [this] {
        QScopedValueRollback<bool> llenando(mLlenandoGrilla, true);
        mNavegador->EstablecerBase(mBase.get());
        mNavegador->CargarFormatoTabla(grdCampos->Grilla());
    });
}

void frmPandrel::CargarCategorias() {
    Atrapar(QStringLiteral("CargarCategorias"), [this] {
        QSignalBlocker bloqueo(cmbCategorias);
        cmbCategorias->clear();
        cmbCategorias->addItem(QStringLiteral("All"), -1);
        const qint32 cantidad = mBase->CategoriesCount();
        for (qint32 i = 0; i < cantidad; ++i) {
            const QString nombre = mBase->CategoryName(i);
            if (!nombre.isEmpty()) cmbCategorias->addItem(nombre, i);
        }
        cmbCategorias->setCurrentIndex(0);
    });
}

bool frmPandrel::CargarTabla(bool xReiniciar, qint16 xCantidad) {
    return Atrapar(QStringLiteral("CargarTabla"), [this, xReiniciar, xCantidad] {
        const clsGrillaFlexible& tabla = grdTabla->Grilla();
        {
            QScopedValueRollback<bool> llenando(mLlenandoGrilla, true);
            // The chosen category shows as the total after "/ "; the reading takes every
            // category.
            if (cmbCategorias->currentIndex() > 0)
                mNavegador->EstablecerCantidadRegistros(cmbCategorias->currentData().toInt());
            const auto progreso = [this](qint32 xLeidos, qint32 xTotal) {
                InformarProgreso(xLeidos, xTotal);
            };
            try {
                mNavegador->CargarTabla(xReiniciar, xCantidad, chkSoloModificados->isChecked(),
                                        progreso);
            } catch (...) {
                lblTotalRecuperado->setText(QString::number(tabla.Rows() - 1));
                throw;
            }
            if (tabla.Rows() > 1) grdTabla->SetRow(1);
            lblTotalRecuperado->setText(QString::number(tabla.Rows() - 1));
        }
        // The remembered sort moves the current record; the panel then describes where it is.
        const qint16 columna = mNavegador->RecordarBase(NombreBaseElegida());
        if (columna != clsNavegadorRegistros::SinColumna) grdTabla->SetCol(columna);
        RefrescarRegistro();
    });
}

// Another batch after the last record read; the grid stays where the user left it.
void frmPandrel::cmbRecuperarSiguientes_Click() {
    if (mOcupado || !mBase || !mBase->IsDataBase() || !mBase->IsAppForgeDB()) return;
    const int arriba = grdTabla->rowAt(0);
    const int fila = grdTabla->Row();
    const int columna = grdTabla->Col();
    qint16 cantidad = 0;
    if (!Atrapar(QStringLiteral("cmbRecuperarSiguientes_Click"),
                 [&] { cantidad = CantidadARecuperar(); }))
        return;
    CargarTabla(false, cantidad);
    if (fila >= 0 && fila < grdTabla->Grilla().Rows())
        grdTabla->setCurrentIndex(grdTabla->Grilla().index(fila, std::max(0, columna)));
    if (arriba >= 0)
        grdTabla->scrollTo(grdTabla->Grilla().index(arriba, 0), QAbstractItemView::PositionAtTop);
}

// "Only Modified" or a category: the records again from the first.
void frmPandrel::RecargarRegistros() {
    if (mOcupado || !mBase || !mBase->IsDataBase() || !mBase->IsAppForgeDB()) return;
    qint16 cantidad = 0;
    if (!Atrapar(QStringLiteral("CargarTabla"), [&] { cantidad = CantidadARecuperar(); })) return;
    CargarTabla(true, cantidad);
}

// A click on the header row sorts by the current column.
void frmPandrel::grdTabla_Click(const QModelIndex& xCelda) {
    if (xCelda.row() == 0) OrdenarPorColumnaActual();
}

void frmPandrel::OrdenarPorColumnaActual() {
    if (!mBase || !mBase->IsDataBase() || !mBase->IsAppForgeDB()) return;
    const int columna = grdTabla->Col();
    if (columna < 0 || columna >= grdTabla->Grilla().Cols() - 1) return;
    Atrapar(QStringLiteral("grdTabla_Click"),
            [this, columna] { mNavegador->OrdenarPorColumna(static_cast<qint16>(columna)); });
    // The current record keeps its place in the sorted rows; its row number changed.
    RefrescarRegistro();
}

// While the grid is being filled its current cell moves with the rows; the fill shows the
// record when it is done.
void frmPandrel::grdTabla_RowColChange() {
    if (mOcupado || mLlenandoGrilla) return;
    RefrescarRegistro();
}

void frmPandrel::RefrescarRegistro() {
    mCargando = true;
    CargarInformacionRegistro();
    mCargando = false;
}

void frmPandrel::CargarInformacionRegistro() {
    Atrapar(QStringLiteral("CargarInformacionRegistro"), [this] {
        for (QCheckBox* casilla : {chkArchive, chkDeleted, chkDirty, chkSecret})
            casilla->setChecked(false);
        const clsGrillaFlexible& tabla = grdTabla->Grilla();
        if (!mNavegador->TieneRegistros()) {
            lblCantidadRegistros->setText(mNavegador->TextoPosicion(0));
            for (QLabel* etiqueta : {lblCategoria, lblRecordID, lblIndice, lblLongitudRegistro})
                etiqueta->setText(QStringLiteral("0"));
            return;
        }
        const int fila = grdTabla->Row();
        const qint32 id = tabla.RowData(fila);
        const qint32 atributos = mBase->RecordAttributes(id);
        chkArchive->setChecked(atributos & clsArchivoPDB::AtributoArchivado);
        chkDeleted->setChecked(atributos & clsArchivoPDB::AtributoBorrado);
        chkDirty->setChecked(atributos & clsArchivoPDB::AtributoModificado);
        chkSecret->setChecked(atributos & clsArchivoPDB::AtributoSecreto);
        lblCantidadRegistros->setText(mNavegador->TextoPosicion(fila));
        lblCategoria->setText(QString::number(mBase->CategoryID(id)));
        lblRecordID->setText(QString::number(id));
        lblIndice->setText(QString::number(mBase->RecordIndex(id)));
        lblLongitudRegistro->setText(QString::number(mBase->RecordLength(id)));
    });
}

void frmPandrel::GuardarAtributos() {
    Atrapar(QStringLiteral("GuardarAtributos"), [this] {
        if (!mNavegador->TieneRegistros()) return;
        const qint32 atributos =
            clsNavegadorRegistros::ByteAtributos(chkDeleted->isChecked(), chkDirty->isChecked(),
                                                 chkArchive->isChecked(), chkSecret->isChecked());
        const qint32 id = grdTabla->Grilla().RowData(grdTabla->Row());
        if (!mBase->WriteRecordAttributes(id, atributos))
            modDialogos::MsgBox(this, QStringLiteral("Can´t update Record Attributes."),
                                QMessageBox::Ok, QMessageBox::NoIcon, windowTitle());
    });
}
