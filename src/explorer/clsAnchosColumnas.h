#pragma once

#include <QString>
#include <QVector>
#include <QtGlobal>
#include <functional>

class clsGrillaImpresion;

// The widths a grid shows its columns at: each column's own width in twips, widened so that its
// heading and the values of its first rows show whole in the grid's type. The grid view uses it
// on screen, and pandrel-cli, which has no window, uses it to print a report with the widths the
// explorer would show. Texts are measured in pixels by whoever knows the type: the view's font,
// or that of pandrel-cli's drawing part.
class clsAnchosColumnas {
public:
    using Medida = std::function<int(const QString&)>;

    // Measuring the first rows is enough to fit a column's kind of value, and keeps a load of
    // many thousands of rows quick.
    static constexpr qint32 FilasMedidas = 200;
    static constexpr int Margen = 10; // pixels beside a text

    explicit clsAnchosColumnas(Medida xMedida);

    // Widens the columns to the texts of rows xDesde..xHasta; only the first rows count.
    void Medir(const clsGrillaImpresion& xGrilla, qint32 xDesde, qint32 xHasta);
    // Forgets the texts measured: another database's values come.
    void Olvidar() { mAnchoTextos.clear(); }

    // The width column xColumna shows at, in pixels at xPuntosPorPulgada: its own width, or its
    // widest text when that is wider. A column of width 0 stays hidden.
    int Pixeles(const clsGrillaImpresion& xGrilla, qint32 xColumna, double xPuntosPorPulgada) const;
    // Every column's width as shown, in twips.
    QVector<qint32> Twips(const clsGrillaImpresion& xGrilla, double xPuntosPorPulgada) const;

    static int TwipsAPixeles(qint32 xTwips, double xPuntosPorPulgada);
    static qint32 PixelesATwips(int xPixeles, double xPuntosPorPulgada);

private:
    Medida mMedida;
    QVector<int> mAnchoTextos; // the widest text measured per column, in pixels
};
