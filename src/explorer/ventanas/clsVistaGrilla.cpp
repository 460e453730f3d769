#include "explorer/ventanas/clsVistaGrilla.h"

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
    : QTableView(xPadre), mGrilla(new clsGrillaFlexible(this)) {
    setModel(mGrilla);
    // Widths in twips were chosen for a small grid font.
    QFont letra = font();
    letra.setPointSizeF(std::min(letra.pointSizeF(), 8.5));
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
                AjustarAnchos(xDesde, xHasta);
                AplicarFormato();
            });
    // A grid cut back to its header starts measuring anew: another database's values come.
    connect(mGrilla, &QAbstractItemModel::rowsRemoved, this, [this] {
        if (mGrilla->Rows() <= 1) {
            mAnchoTextos.clear();
            AjustarAnchos(0, 0);
        }
        AplicarFormato();
    });
    connect(mGrilla, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& xDesde, const QModelIndex& xHasta) {
                // A changed value; a change of the whole grid (its fixed rows) has nothing new.
                if (xDesde.row() != xHasta.row()) return;
                AjustarAnchos(xDesde.row(), xHasta.row());
                AplicarFormato();
            });
    AplicarFormato();
}

int clsVistaGrilla::TwipsAPixeles(int xTwips) const {
    return qRound(xTwips * logicalDpiX() / 1440.0);
}

void clsVistaGrilla::AjustarAnchos(int xDesde, int xHasta) {
    // Measuring the first rows is enough to fit a column's kind of value, and keeps a load of
    // many thousands of rows quick.
    constexpr int kFilasMedidas = 200;
    constexpr int kMargen = 10;
    if (mAnchoTextos.size() != mGrilla->Cols()) mAnchoTextos.fill(0, mGrilla->Cols());
    const QFontMetrics medidas(font());
    const int hasta = std::min(xHasta, kFilasMedidas - 1);
    for (int fila = std::max(0, xDesde); fila <= hasta && fila < mGrilla->Rows(); ++fila)
        for (int columna = 0; columna < mGrilla->Cols(); ++columna) {
            const int ancho =
                medidas.horizontalAdvance(mGrilla->TextMatrix(fila, columna)) + kMargen;
            mAnchoTextos[columna] = std::max(mAnchoTextos.at(columna), ancho);
        }
}

void clsVistaGrilla::AplicarFormato() {
    const int fijas = mGrilla->FixedRows();
    horizontalHeader()->setVisible(fijas > 0);
    // The fixed rows are hidden from the body: the heading shows the first one.
    for (int fila = 0; fila < std::min(mGrilla->Rows(), fijas + 1); ++fila)
        setRowHidden(fila, fila < fijas);
    for (int columna = 0; columna < mGrilla->Cols(); ++columna) {
        const int ancho = mGrilla->ColWidth(columna);
        setColumnHidden(columna, ancho == 0);
        const int medido = columna < mAnchoTextos.size() ? mAnchoTextos.at(columna) : 0;
        if (ancho > 0) setColumnWidth(columna, std::max(TwipsAPixeles(ancho), medido));
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
