#pragma once

#include "explorer/clsAnchosColumnas.h"

#include <QTableView>
#include <QVector>

class clsGrillaFlexible;

// A flexible grid on screen: a table view over its own clsGrillaFlexible. The first fixed row
// shows as the column headings (it stays in place while the rows scroll), fixed cells are painted
// in the fixed colour, and the widths in twips become pixels at the widget's logical DPI
// (15 twips are one pixel at 96 DPI); a column of width 0 is hidden. A column shown is never
// narrower than its heading or the values of its first rows (clsAnchosColumnas), so none of them
// is clipped at the fonts of today's desktops.
class clsVistaGrilla : public QTableView {
    Q_OBJECT
public:
    explicit clsVistaGrilla(QWidget* xPadre = nullptr);

    clsGrillaFlexible& Grilla() const { return *mGrilla; }

    // The grid's current cell (the view's current index); -1 when the grid is empty.
    int Row() const;
    int Col() const;
    void SetRow(int xFila);
    void SetCol(int xColumna);
    int TwipsAPixeles(int xTwips) const;
    // Every column's width as it shows now (widened, or as the person dragged it), in twips.
    QVector<qint32> AnchosVistos() const;

private:
    void AplicarFormato();

    clsAnchosColumnas mAnchos;

    clsGrillaFlexible* mGrilla;
};
