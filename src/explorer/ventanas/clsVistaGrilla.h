#pragma once

#include <QTableView>
#include <QVector>

class clsGrillaFlexible;

// A flexible grid on screen: a table view over its own clsGrillaFlexible. The first fixed row
// shows as the column headings (it stays in place while the rows scroll), fixed cells are painted
// in the fixed colour, and the widths in twips become pixels at the widget's logical DPI
// (15 twips are one pixel at 96 DPI); a column of width 0 is hidden. A column shown is never
// narrower than its heading or the values of its first rows, so none of them is clipped at the
// fonts of today's desktops.
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

private:
    void AplicarFormato();
    // Widens the shown columns to the texts of rows xDesde..xHasta (only the first rows count).
    void AjustarAnchos(int xDesde, int xHasta);

    QVector<int> mAnchoTextos; // widest text measured per column, in pixels

    clsGrillaFlexible* mGrilla;
};
