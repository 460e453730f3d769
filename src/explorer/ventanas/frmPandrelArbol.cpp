// The database tree of the explorer: the handheld, its creators, their databases, and what
// choosing a node does.
#include "explorer/ventanas/frmPandrel.h"

#include "common/modFunciones.h"

#include "common/ErrorVB.h"
#include "common/ventanas/modDialogos.h"
#include "common/ventanas/modRecursosGraficos.h"
#include "data/clsPDBInterface.h"
#include "data/modEntradaCatalogo.h"
#include "estandar/clsEstandarPDB.h"
#include "explorer/clsNavegadorRegistros.h"
#include "explorer/ventanas/clsVistaGrilla.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTreeWidget>

namespace {
const QString kRaiz = QStringLiteral("Root");
const QString kSeparador = QStringLiteral("\t");

// The database-type filter: texts in list order; the list position is the catalogue's code.
const QStringList& TiposDB() {
    static const QStringList tipos = {QStringLiteral("AppForge Applications"),
                                      QStringLiteral("Non AppForge Applications"),
                                      QStringLiteral("All")};
    return tipos;
}

QString Clave(const QTreeWidgetItem* xNodo) {
    return xNodo->data(0, frmPandrel::RolClave).toString();
}
} // namespace

void frmPandrel::CargarTiposDB() {
    cmbTiposDB->addItems(TiposDB());
    cmbTiposDB->setCurrentIndex(0);
}

QTreeWidgetItem* frmPandrel::AgregarNodo(QTreeWidgetItem* xPadre, const QString& xClave,
                                         const QString& xTexto, int xImagen) {
    auto* nodo = xPadre ? new QTreeWidgetItem(xPadre) : new QTreeWidgetItem(tvwDataBases);
    nodo->setText(0, xTexto);
    nodo->setData(0, RolClave, xClave);
    nodo->setData(0, RolImagen, xImagen);
    nodo->setIcon(0, modRecursosGraficos::IconoArbol(xImagen));
    return nodo;
}

void frmPandrel::CargarCreatorIDs() {
    Atrapar(QStringLiteral("CargarCreatorIDs"), [this] {
        const qint32 codigo = std::max<qint32>(0, TiposDB().indexOf(cmbTiposDB->currentText()));
        tvwDataBases->clear();
        AgregarNodo(nullptr, kRaiz, QStringLiteral("Mobile"), 2)->setExpanded(true);

        QString lista;
        {
            TrabajoLargo trabajo(*this);
            QScopedValueRollback<bool> catalogo(mMostrandoCatalogo, true);
            lista = mBase->RetrieveCreatorsID(codigo, kSeparador);
        }
        if (lista.trimmed().isEmpty()) return;
        QTreeWidgetItem* raiz = tvwDataBases->topLevelItem(0);
        for (const QString& creador : modEntradaCatalogo::Entradas(lista, kSeparador)) {
            QTreeWidgetItem* nodo = AgregarNodo(raiz, creador, creador, 3);
            // Only there so the creator shows it can be expanded; its databases come then.
            AgregarNodo(nodo, QStringLiteral("*") + Clave(nodo), QString(), 0)->setIcon(0, QIcon());
        }
    });
}

void frmPandrel::tvwDataBases_Expand(QTreeWidgetItem* xNodo) {
    const QString clave = Clave(xNodo);
    if (clave == kRaiz || !xNodo->parent() || Clave(xNodo->parent()) != kRaiz) return;
    if (xNodo->childCount() == 0 || Clave(xNodo->child(0)) != QStringLiteral("*") + clave) return;
    CargarBases(xNodo);
}

void frmPandrel::CargarBases(QTreeWidgetItem* xNodo) {
    Atrapar(QStringLiteral("CargarBases"), [this, xNodo] {
        delete xNodo->takeChild(0);
        const QString lista = mBase->RetrieveDataBases(xNodo->text(0), kSeparador);
        if (lista.trimmed().isEmpty()) return;
        for (const QString& entrada : modEntradaCatalogo::Entradas(lista, kSeparador)) {
            const modEntradaCatalogo::EntradaBase base = modEntradaCatalogo::LeerEntrada(entrada);
            AgregarNodo(xNodo, base.Nombre + Clave(xNodo), base.Nombre,
                        static_cast<int>(base.Clase));
        }
    });
}

namespace {
QTreeWidgetItem* Hijo(QTreeWidgetItem* xNodo, const QString& xTexto) {
    for (int i = 0; xNodo && i < xNodo->childCount(); ++i)
        if (xNodo->child(i)->text(0) == xTexto) return xNodo->child(i);
    return nullptr;
}
} // namespace

void frmPandrel::ElegirBase(const QString& xNombre) {
    QTreeWidgetItem* base = nullptr;
    Atrapar(QStringLiteral("ElegirBase"), [&] {
        const QString creador =
            mFuente->CodigoATexto(mFuente->CrearGestor()->BuscarBase(xNombre)->Creador(), -1);
        QTreeWidgetItem* nodo = Hijo(tvwDataBases->topLevelItem(0), creador);
        if (!nodo) {
            cmbTiposDB->setCurrentIndex(TiposDB().size() - 1);
            nodo = Hijo(tvwDataBases->topLevelItem(0), creador);
        }
        if (!nodo) return;
        nodo->setExpanded(true);
        base = Hijo(nodo, xNombre);
    });
    if (!base) return;
    tvwDataBases->setCurrentItem(base);
    tvwDataBases_NodeClick(base);
}

void frmPandrel::RecargarArbol() {
    mBase->CloseDatabase();
    grdCampos->hide();
    grdTabla->hide();
    setWindowTitle(QStringLiteral("Explorer"));
    CargarCreatorIDs();
}

void frmPandrel::cmbTiposDB_Click() {
    if (mOcupado) return;
    CargarCreatorIDs();
}

// A key that moves the tree's current node chooses that node, as a click does.
// The window sees keys before its controls: the record keys act through the toolbar, and the
// batch size box drops characters that are not part of a number.
bool frmPandrel::eventFilter(QObject* xObjeto, QEvent* xEvento) {
    if (xObjeto == tvwDataBases) {
        if (xEvento->type() == QEvent::KeyPress)
            mTeclaEnArbol = true;
        else if (xEvento->type() == QEvent::KeyRelease || xEvento->type() == QEvent::FocusOut)
            mTeclaEnArbol = false;
    }
    if (xEvento->type() != QEvent::KeyPress) return QWidget::eventFilter(xObjeto, xEvento);
    const auto* tecla = static_cast<QKeyEvent*>(xEvento);
    if (Form_KeyDown(xObjeto, tecla->key())) return true;
    if (xObjeto == txtRegistrosARecuperar && !tecla->text().isEmpty() &&
        !clsNavegadorRegistros::CaracterCantidadAceptado(tecla->text().at(0)))
        return true;
    return QWidget::eventFilter(xObjeto, xEvento);
}

void frmPandrel::tvwDataBases_CurrentChange(QTreeWidgetItem* xNodo) {
    if (!mTeclaEnArbol || !xNodo) return;
    mTeclaEnArbol = false;
    tvwDataBases_NodeClick(xNodo);
}

void frmPandrel::tvwDataBases_NodeClick(QTreeWidgetItem* xNodo, bool xRegistrosEstandar) {
    setWindowTitle(QStringLiteral("Explorer [") + xNodo->text(0) + QStringLiteral("]"));
    if (xNodo->childCount() > 0) return;
    UsarRegistrosEstandar(xRegistrosEstandar);
    // A failure leaves the window busy, with the hourglass, until a later choice completes.
    Avisando(xNodo->text(0), [this, xNodo] { ElegirNodo(xNodo); });
}

bool frmPandrel::EsBaseEstandar(const QTreeWidgetItem* xNodo) const {
    const QTreeWidgetItem* creador = xNodo ? xNodo->parent() : nullptr;
    if (!creador || !creador->parent() || Clave(creador->parent()) != kRaiz ||
        Clave(xNodo).startsWith(QLatin1Char('*')))
        return false;
    try {
        return clsEstandarPDB::ClaseDeBase(*mFuente, xNodo->text(0)) != ClaseEstandar::Ninguna;
    } catch (const ErrorVB&) {
        return false;
    }
}

void frmPandrel::tvwDataBases_ContextMenu(const QPoint& xPunto) {
    QTreeWidgetItem* nodo = tvwDataBases->itemAt(xPunto);
    if (!EsBaseEstandar(nodo)) return;
    tvwDataBases->setCurrentItem(nodo);
    QMenu menu(this);
    menu.addAction(mnuAbrirRegistros);
    menu.exec(tvwDataBases->viewport()->mapToGlobal(xPunto));
}

void frmPandrel::AbrirRegistros() {
    QTreeWidgetItem* nodo = tvwDataBases->currentItem();
    if (!EsBaseEstandar(nodo)) return;
    tvwDataBases_NodeClick(nodo, true);
}

void frmPandrel::UsarRegistrosEstandar(bool xEstandar) {
    if (xEstandar == mRegistrosEstandar) return;
    mBase->CloseDatabase();
    std::swap(mBase, mBaseEnEspera);
    mRegistrosEstandar = xEstandar;
}

void frmPandrel::ElegirNodo(QTreeWidgetItem* xNodo) {
    mOcupado = true;
    setCursor(Qt::WaitCursor);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    TrabajoLargo trabajo(*this);

    mBase->CloseDatabase();
    mBase->OpenFile(xNodo->text(0));
    grdCampos->hide();
    grdTabla->hide();
    CargarInformacionBase();
    const bool esBase = mBase->IsDataBase();
    const bool esAppForge = mBase->IsAppForgeDB();

    if (esAppForge || !esBase) {
        if (esBase) {
            CargarFormatoTabla();
            grdCampos->show();
        } else {
            CargarFormatoRecurso();
        }
        grdTabla->show();
        if (esBase) {
            CargarCategorias();
            CargarTabla(true, CantidadARecuperar());
            grdTabla->setFocus();
        } else {
            CargarRecursos(xNodo);
            MostrarTotalesAplicacion();
            grdRecursos->setFocus();
        }
    } else {
        emit AvisoConstruccion();
    }
    setCursor(Qt::ArrowCursor);
    mOcupado = false;
}
