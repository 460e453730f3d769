// The explorer's panels for the chosen database: the header facts, the schema grid, and for an
// application the databases of its creator with their totals.
#include "explorer/clsNavegadorRegistros.h"
#include "explorer/ventanas/frmPandrel.h"

#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "common/modFunciones.h"
#include "data/clsPDBInterface.h"
#include "data/modEntradaCatalogo.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/modTextosPanel.h"
#include "explorer/ventanas/clsVistaGrilla.h"

#include <QGroupBox>
#include <QLabel>
#include <QStackedWidget>
#include <QTreeWidget>

namespace {
const QString kSeparador = QStringLiteral("\t");

struct ColumnaRecurso {
    const char* Titulo;
    qint32 Ancho; // twips
    qint32 Alineacion;
};
const ColumnaRecurso kColumnasRecurso[] = {
    {"File", 1800, clsGrillaFlexible::IzquierdaCentro},
    {"Type", 600, clsGrillaFlexible::IzquierdaCentro},
    {"Record Count", 1100, clsGrillaFlexible::DerechaCentro},
    {"Size", 800, clsGrillaFlexible::DerechaCentro},
    {"Version", 800, clsGrillaFlexible::DerechaCentro},
    {"Creation Date", 2000, clsGrillaFlexible::DerechaCentro},
    {"Modification Date", 2000, clsGrillaFlexible::DerechaCentro},
    {"Backup Date", 2000, clsGrillaFlexible::DerechaCentro},
};
constexpr qint32 kColumnasRecursoVisibles = modTextosPanel::ColumnasRecurso;
static_assert(std::size(kColumnasRecurso) == kColumnasRecursoVisibles);
} // namespace

void frmPandrel::CargarInformacionBase() {
    mPaneles->setCurrentWidget(mBase->IsDataBase() ? fraDataBase : fraRecursos);

    const qint32 cantidad = mBase->NumRecords();
    mNavegador->EstablecerCantidadRegistros(cantidad);
    lblCantidadRegistros->setText(mNavegador->TextoPosicionInicial());

    const clsConfiguracionRegional& regional = clsConfiguracionRegional::Actual();
    lblVersion->setText(modTextosPanel::TextoVersion(mBase->DBVersion(), regional));
    lblTipo->setText(mBase->DBType());
    lblFechaCreacion->setText(modTextosPanel::TextoFecha(mBase->CreationDate(), regional));
    lblFechaModificacion->setText(modTextosPanel::TextoFecha(mBase->ModificationDate(), regional));
    lblFechaBackup->setText(modTextosPanel::TextoFecha(mBase->BackupDate(), regional));
    lblTotalRecuperado->setText(QStringLiteral("0"));
    lblTamanio->setText(modTextosPanel::TextoTamanio(mBase->DBSize(), regional));
}

void frmPandrel::CargarFormatoCampos() {
    clsGrillaFlexible& grilla = grdCampos->Grilla();
    grilla.SetCols(3);
    grilla.AddItem(QStringLiteral("Field\tType"));
    grilla.SetFixedCols(2);
    grilla.SetColWidth(0, 2000);
    grilla.SetColWidth(1, 840);
    grilla.SetColWidth(2, 0);
}

void frmPandrel::CargarFormatoRecurso() {
    Atrapar(QStringLiteral("CargarFormatoRecurso"), [this] {
        clsGrillaFlexible& grilla = grdRecursos->Grilla();
        grilla.SetRows(0);
        grilla.SetCols(kColumnasRecursoVisibles + 1);
        grilla.SetColWidth(kColumnasRecursoVisibles, 0);
        QStringList titulos;
        for (const ColumnaRecurso& columna : kColumnasRecurso)
            titulos << QString::fromLatin1(columna.Titulo);
        grilla.AddItem(titulos.join(kSeparador));
        grilla.SetFixedRows(0);
        grilla.SetFixedCols(kColumnasRecursoVisibles);
        for (qint32 c = 0; c < kColumnasRecursoVisibles; ++c) {
            grilla.SetColAlignment(c, kColumnasRecurso[c].Alineacion);
            grilla.SetColWidth(c, kColumnasRecurso[c].Ancho);
        }
    });
}

void frmPandrel::CargarRecursos(QTreeWidgetItem* xNodo) {
    Atrapar(QStringLiteral("CargarRecursos"), [this, xNodo] {
        mTotales = {};
        if (!xNodo->parent())
            throw ErrorVB(91, QStringLiteral("frmPandrel"),
                          QStringLiteral("Object variable or With block variable not set"));
        const QString lista = mBase->RetrieveDataBases(xNodo->parent()->text(0), kSeparador);
        if (lista.trimmed().isEmpty()) return;
        clsGrillaFlexible& grilla = grdRecursos->Grilla();
        const QStringList entradas = modEntradaCatalogo::Entradas(lista, kSeparador);
        for (qsizetype i = 0; i < entradas.size(); ++i) {
            grilla.AddItem(modTextosPanel::FilaRecurso(
                *mBase, modEntradaCatalogo::LeerEntrada(entradas.at(i)).Nombre,
                clsConfiguracionRegional::Actual(), mTotales));
            if (grilla.Rows() == 2) {
                grilla.SetFixedCols(0);
                grilla.SetFixedRows(1);
            }
            InformarProgreso(static_cast<int>(i + 1), static_cast<int>(entradas.size()));
        }
    });
}

void frmPandrel::MostrarTotalesAplicacion() {
    lblCantidadObjetos->setText(QString::number(grdRecursos->Grilla().Rows() - 1));
    lblTotalRegistros->setText(QString::number(mTotales.Registros));
    lblTamanioAplicacion->setText(modTextosPanel::TextoTamanioAplicacion(
        mTotales.Tamanio, clsConfiguracionRegional::Actual()));
}
