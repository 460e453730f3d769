// The records half of the explorer: the records grid laid out from the schema, the category
// box, the batches of records and the panel of the current record.
#include "explorer/frmPandrel.h"

#include "common/ErrorVB.h"
#include "data/clsPDBInterface.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/clsVistaGrilla.h"
#include "shell/modRecursosGraficos.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <cmath>
#include <limits>

namespace {
const QString kSeparador = QStringLiteral("\t");

// Rows reach the grid in batches of this many, so a whole database loads in a blink.
constexpr int kLote = 1000;

// The batch size box runs from -1 (all records) to 1000.
constexpr int kCantidadMinima = -1;
constexpr int kCantidadMaxima = 1000;

// Width of a field column, in twips.
constexpr qint32 kAnchoCampo = 1000;
constexpr qint32 kAnchoTexto = 2000;
} // namespace

QWidget* frmPandrel::CrearPanelRegistros() {
    auto* fraGrilla = new QGroupBox(QStringLiteral("Records"), fraDataBase);
    fraGrilla->setObjectName(QStringLiteral("fraGrilla"));

    tlbOpciones = new QToolBar(fraGrilla);
    tlbOpciones->setObjectName(QStringLiteral("tlbOpciones"));
    tlbOpciones->setIconSize(QSize(18, 18));
    tlbOpciones->setToolButtonStyle(Qt::ToolButtonIconOnly);
    const QPair<QString, QString> botones[] = {
        {QStringLiteral("Agregar"), QStringLiteral("Add New Record")},
        {QStringLiteral("Modificar"), QStringLiteral("Update Record")},
        {QStringLiteral("Eliminar"), QStringLiteral("Delete Record")},
        {QStringLiteral("Imprimir"), QStringLiteral("Print")},
        {QStringLiteral("Buscar"), QStringLiteral("Find")},
        {QStringLiteral("Exportar"), QStringLiteral("Export")},
        {QStringLiteral("EliminarTodos"), QStringLiteral("Delete all records")},
    };
    for (const auto& [clave, texto] : botones) {
        QAction* boton = tlbOpciones->addAction(modRecursosGraficos::IconoBoton(clave), texto);
        boton->setObjectName(clave);
    }

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
    connect(grdTabla->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &frmPandrel::grdTabla_RowColChange);

    cmbRecuperarSiguientes = new QPushButton(QStringLiteral("Retrieve next Records"), fraGrilla);
    cmbRecuperarSiguientes->setObjectName(QStringLiteral("cmbRecuperarSiguientes"));

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
    int f = 0;
    for (const auto& e : etiquetas) {
        rejilla->addWidget(Etiqueta(e.Rotulo, fraInformacionRegistro), f, 0);
        *e.Destino = Etiqueta(e.Valor, fraInformacionRegistro, e.Nombre);
        (*e.Destino)->setMinimumWidth(90);
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
            const int valor = static_cast<int>(Val(txtRegistrosARecuperar->text())) + paso;
            txtRegistrosARecuperar->setText(
                QString::number(std::clamp(valor, kCantidadMinima, kCantidadMaxima)));
        });
        columna->addWidget(flecha);
    }
    return udCantidadRegistros;
}

qint16 frmPandrel::CantidadARecuperar() const {
    const double valor = std::nearbyint(Val(txtRegistrosARecuperar->text()));
    if (valor < std::numeric_limits<qint16>::min() || valor > std::numeric_limits<qint16>::max())
        throw ErrorVB::Overflow(QStringLiteral("frmPandrel"));
    return static_cast<qint16>(valor);
}

// While the grid holds records it has one fixed row and no fixed column; with the header alone,
// no fixed row and every field column fixed, so the header still shows in the fixed colour.
void frmPandrel::AplicarReglaFijas() {
    clsGrillaFlexible& tabla = grdTabla->Grilla();
    if (tabla.Rows() > 1) {
        tabla.SetFixedCols(0);
        tabla.SetFixedRows(1);
    } else {
        tabla.SetFixedRows(0);
        tabla.SetFixedCols(std::max(0, tabla.Cols() - 1));
    }
}

void frmPandrel::CargarFormatoTabla() {
    Atrapar(QStringLiteral("CargarFormatoTabla"), [this] {
        QScopedValueRollback<bool> llenando(mLlenandoGrilla, true);
        clsGrillaFlexible& tabla = grdTabla->Grilla();
        clsGrillaFlexible& campos = grdCampos->Grilla();
        tabla.SetRows(0);
        campos.SetRows(1);
        const qint16 cantidad = mBase->NumFields();
        tabla.SetCols(cantidad + 1);
        tabla.AddItem(mBase->FieldsTitles(kSeparador));
        tabla.SetColWidth(cantidad, 0);
        for (qint32 i = 0; i < cantidad; ++i) {
            const QString tipo = mBase->FieldType(i);
            const qint32 alineacion = mBase->FieldAlignment(i);
            tabla.SetColWidth(i, alineacion == 1 && tipo == QStringLiteral("String") ? kAnchoTexto
                                                                                     : kAnchoCampo);
            if (alineacion == 0)
                tabla.SetColAlignment(i, clsGrillaFlexible::DerechaArriba);
            else if (alineacion == 1)
                tabla.SetColAlignment(i, clsGrillaFlexible::IzquierdaCentro);
            else if (alineacion == 2)
                tabla.SetColAlignment(i, clsGrillaFlexible::CentroCentro);
            campos.AddItem(tabla.TextMatrix(0, i) + kSeparador + tipo);
        }
        AplicarReglaFijas();
        campos.SetFixedCols(0);
        if (campos.Rows() > 1) campos.SetFixedRows(1);
    });
}

void frmPandrel::CargarCategorias() {
    Atrapar(QStringLiteral("CargarCategorias"), [this] {
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

void frmPandrel::CargarTabla(bool xReiniciar, qint16 xCantidad) {
    Atrapar(QStringLiteral("CargarTabla"), [this, xReiniciar, xCantidad] {
        clsGrillaFlexible& tabla = grdTabla->Grilla();
        {
            QScopedValueRollback<bool> llenando(mLlenandoGrilla, true);
            if (xReiniciar) {
                tabla.SetRows(1);
                AplicarReglaFijas();
            }
            // The chosen category shows as the total after "/ "; the reading takes every
            // category.
            if (cmbCategorias->currentIndex() > 0)
                mCantidadRegistros = cmbCategorias->currentData().toInt();

            bool reiniciar = xReiniciar;
            LeerRegistros(reiniciar, xCantidad);

            if (tabla.Rows() > 1) grdTabla->SetRow(1);
            lblTotalRecuperado->setText(QString::number(tabla.Rows() - 1));
        }
        RefrescarRegistro();

        QTreeWidgetItem* elegido = tvwDataBases->currentItem();
        const QString nombre = elegido ? elegido->text(0) : QString();
        if (nombre == mNombreUltimaBase && mColumnaOrden != -1) {
            grdTabla->SetCol(mColumnaOrden);
            tabla.Sort(mModoOrden, mColumnaOrden);
        } else {
            mColumnaOrden = -1;
            mModoOrden = 100;
        }
        mNombreUltimaBase = nombre;
    });
}

// Reads up to xCantidad records (-1: all) and appends one row per record, its unique ID in the
// row's data word. Rows read before a failure stay in the grid.
void frmPandrel::LeerRegistros(bool& xReiniciar, qint16 xCantidad) {
    clsGrillaFlexible& tabla = grdTabla->Grilla();
    const bool soloModificados = chkSoloModificados->isChecked();
    QStringList textos;
    QVector<qint32> ids;
    const auto volcar = [&] {
        if (textos.isEmpty()) return;
        tabla.AddItems(textos, ids);
        textos.clear();
        ids.clear();
        AplicarReglaFijas();
    };
    try {
        qint32 id = 0;
        for (qint32 k = 0; id != -1 && (xCantidad == -1 || k < xCantidad); ++k) {
            QString registro;
            id = mBase->ReadRecord(xReiniciar, registro, kSeparador, -1, soloModificados);
            if (id == -1) continue;
            textos << registro;
            ids << id;
            if (textos.size() >= kLote) {
                volcar();
                InformarProgreso(tabla.Rows() - 1, std::max(mCantidadRegistros, tabla.Rows() - 1));
            }
        }
    } catch (...) {
        volcar();
        throw;
    }
    volcar();
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
        if (tabla.Rows() <= 1) {
            lblCantidadRegistros->setText(QStringLiteral("Record 0/ 0"));
            for (QLabel* etiqueta : {lblCategoria, lblRecordID, lblIndice, lblLongitudRegistro})
                etiqueta->setText(QStringLiteral("0"));
            return;
        }
        const int fila = grdTabla->Row();
        const qint32 id = tabla.RowData(fila);
        const qint32 atributos = mBase->RecordAttributes(id);
        chkArchive->setChecked(atributos & 0x08);
        chkDeleted->setChecked(atributos & 0x80);
        chkDirty->setChecked(atributos & 0x40);
        chkSecret->setChecked(atributos & 0x10);
        lblCantidadRegistros->setText(
            QStringLiteral("Record %1/ %2").arg(fila).arg(mCantidadRegistros));
        lblCategoria->setText(QString::number(mBase->CategoryID(id)));
        lblRecordID->setText(QString::number(id));
        lblIndice->setText(QString::number(mBase->RecordIndex(id)));
        lblLongitudRegistro->setText(QString::number(mBase->RecordLength(id)));
    });
}
