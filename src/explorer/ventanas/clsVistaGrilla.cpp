#include "explorer/ventanas/clsVistaGrilla.h"

#include "common/ventanas/modRecursosGraficos.h"
#include "explorer/clsGrillaFlexible.h"

#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {
// Fixed cells get the fixed colour (the colour of buttons) and keep it when selected.
class clsDelegadoGrilla : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* xPintor, const QStyleOptionViewItem& xOpcion,
               const QModelIndex& xIndice) const override {
        if (!xIndice.data(clsGrillaFlexible::RolFija).toBool()) {
            QStyledItemDelegate::paint(xPintor, xOpcion, xIndice);
            return;
        }
        QStyleOptionViewItem opcion = xOpcion;
        initStyleOption(&opcion, xIndice);
        opcion.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
        xPintor->fillRect(opcion.rect, opcion.palette.button());
        opcion.palette.setColor(QPalette::Text, opcion.palette.color(QPalette::ButtonText));
        opcion.backgroundBrush = Qt::NoBrush;
        QStyledItemDelegate::paint(xPintor, opcion, xIndice);
    }
};
} // namespace

clsVistaGrilla::clsVistaGrilla(QWidget* xPadre)
    : QTableView(xPadre),
      mAnchos([this](const QString& xTexto) { return fontMetrics().horizontalAdvance(xTexto); }),
      mGrilla(new clsGrillaFlexible(this)) {
    setModel(mGrilla);
    const QFont letra = modRecursosGraficos::FuenteGrilla(font());
    setFont(letra);
    horizontalHeader()->setFont(letra);
    setItemDelegate(new clsDelegadoGrilla(this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    setAlternatingRowColors(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(false);
    horizontalHeader()->setMinimumSectionSize(0);

    connect(mGrilla, &clsGrillaFlexible::FormatoCambiado, this, &clsVistaGrilla::AplicarFormato);
    connect(mGrilla, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int xDesde, int xHasta) {
                mAnchos.Medir(*mGrilla, xDesde, xHasta);
                AplicarFormato();
            });
    // A grid cut back to its header starts measuring anew: another database's values come.
    connect(mGrilla, &QAbstractItemModel::rowsRemoved, this, [this] {
        if (mGrilla->Rows() <= 1) {
            mAnchos.Olvidar();
            mAnchos.Medir(*mGrilla, 0, 0);
        }
        AplicarFormato();
    });
    connect(mGrilla, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& xDesde, const QModelIndex& xHasta) {
                // A changed value; a change of the whole grid (its fixed rows) has nothing new.
                if (xDesde.row() != xHasta.row()) return;
                mAnchos.Medir(*mGrilla, xDesde.row(), xHasta.row());
                AplicarFormato();
            });
    AplicarFormato();
}

int clsVistaGrilla::TwipsAPixeles(int xTwips) const {
    return clsAnchosColumnas::TwipsAPixeles(xTwips, logicalDpiX());
}

QVector<qint32> clsVistaGrilla::AnchosVistos() const {
    QVector<qint32> anchos;
    for (int columna = 0; columna < mGrilla->Cols(); ++columna)
        anchos << clsAnchosColumnas::PixelesATwips(columnWidth(columna), logicalDpiX());
    return anchos;
}

void clsVistaGrilla::AplicarFormato() {
    const int fijas = mGrilla->FixedRows();
    horizontalHeader()->setVisible(fijas > 0);
    // The fixed rows are hidden from the body: the heading shows the first one.
    for (int fila = 0; fila < std::min(mGrilla->Rows(), fijas + 1); ++fila)
        setRowHidden(fila, fila < fijas);
    for (int columna = 0; columna < mGrilla->Cols(); ++columna) {
        const int ancho = mAnchos.Pixeles(*mGrilla, columna, logicalDpiX());
        setColumnHidden(columna, ancho == 0);
        if (ancho > 0) setColumnWidth(columna, ancho);
    }
}

// Without a current cell the grid stands on its first scrolling cell.
int clsVistaGrilla::Row() const {
    if (currentIndex().isValid()) return currentIndex().row();
    return mGrilla->Rows() == 0 ? -1 : std::min(mGrilla->FixedRows(), mGrilla->Rows() - 1);
}

int clsVistaGrilla::Col() const {
    if (currentIndex().isValid()) return currentIndex().column();
    return mGrilla->Cols() == 0 ? -1 : std::min(mGrilla->FixedCols(), mGrilla->Cols() - 1);
}

void clsVistaGrilla::SetRow(int xFila) {
    const int columna = std::max(0, Col());
    setCurrentIndex(mGrilla->index(xFila, columna));
}

void clsVistaGrilla::SetCol(int xColumna) {
    const int fila = std::max(0, Row());
    setCurrentIndex(mGrilla->index(fila, xColumna));
}
