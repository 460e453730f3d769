#pragma once

#include "printing/clsGrillaImpresion.h"

#include <QAbstractTableModel>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <QVector>
#include <QtGlobal>

// The flexible grid every grid of the program keeps its content in: a matrix of texts with one
// 32-bit data word per row, fixed rows at the top and fixed columns at the left (shown in the
// fixed colour), column widths in twips and an alignment code per column. clsVistaGrilla shows it.
//
// The properties carry the grid's own names (Rows, Cols, TextMatrix, RowData, ...), as the windows
// use them. A row or column index outside the grid raises ErrorVB 9 (subscript out of range); so
// does a fixed count that would leave no scrolling row or column.
class clsGrillaFlexible final : public QAbstractTableModel, public clsGrillaImpresion {
    Q_OBJECT
public:
    // Sort codes the program applies.
    enum Orden : qint32 {
        NumericoAscendente = 3, // by numeric value; a text that is no number counts as 0
        TextoAscendente = 7,    // binary comparison, case-sensitive
        Personalizado = 9       // ordered by a compare rule; with none supplied the order is kept
    };

    static constexpr int RolDato = Qt::UserRole;     // the row's data word
    static constexpr int RolFija = Qt::UserRole + 1; // true for a cell of a fixed row or column

    static constexpr qint32 AnchoPredeterminado = 960; // twips

    explicit clsGrillaFlexible(QObject* xPadre = nullptr);

    qint32 Rows() const override { return static_cast<qint32>(mFilas.size()); }
    void SetRows(qint32 xFilas);
    qint32 Cols() const override { return mColumnas; }
    void SetCols(qint32 xColumnas);
    qint32 FixedRows() const { return mFilasFijas; }
    void SetFixedRows(qint32 xFijas);
    qint32 FixedCols() const { return mColumnasFijas; }
    void SetFixedCols(qint32 xFijas);

    QString TextMatrix(qint32 xFila, qint32 xColumna) const override;
    void SetTextMatrix(qint32 xFila, qint32 xColumna, const QString& xTexto);
    qint32 RowData(qint32 xFila) const;
    void SetRowData(qint32 xFila, qint32 xDato);
    qint32 ColWidth(qint32 xColumna) const override;
    void SetColWidth(qint32 xColumna, qint32 xTwips);
    qint32 ColAlignment(qint32 xColumna) const override;
    void SetColAlignment(qint32 xColumna, qint32 xCodigo);

    // Appends one row whose cells are the tab-separated parts of xTexto (parts beyond the last
    // column are dropped); returns the new row's index.
    qint32 AddItem(const QString& xTexto);
    // Appends many rows at once, each with its data word: what loading a large database uses.
    void AddItems(const QStringList& xTextos, const QVector<qint32>& xDatos);
    // Removes one scrolling row (a fixed row cannot be removed); the last scrolling row takes a
    // fixed row with it, as SetRows does.
    void RemoveItem(qint32 xFila);
    // Orders the scrolling rows (the fixed ones stay on top) on one column.
    void Sort(qint32 xModo, qint32 xColumna);

    // The locale numeric sorting reads numbers with (besides the C locale).
    void SetLocale(const QLocale& xLocale);

    int rowCount(const QModelIndex& xPadre = QModelIndex()) const override;
    int columnCount(const QModelIndex& xPadre = QModelIndex()) const override;
    QVariant data(const QModelIndex& xIndice, int xRol = Qt::DisplayRole) const override;
    // The first fixed row serves as the column headings, left-aligned as texts are.
    QVariant headerData(int xSeccion, Qt::Orientation xOrientacion,
                        int xRol = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& xIndice) const override;

    // The Qt alignment of an alignment code for a cell holding xTexto.
    static Qt::Alignment AlineacionQt(qint32 xCodigo, const QString& xTexto);

signals:
    // Widths, alignments or the fixed counts changed: the view lays itself out again.
    void FormatoCambiado();

private:
    // A row keeps its cells in one text, one separator between cells, with the end of each cell
    // (a cell may hold a tab of its own: the ends, not the tabs, mark the cells). It may have
    // fewer cells than the grid has columns: missing cells are empty. One text per row is what
    // lets a large database load quickly.
    struct Fila {
        QString Texto;
        QVector<qint32> Finales;
        qint32 Dato = 0;

        qint32 Celdas() const { return static_cast<qint32>(Finales.size()); }
        QStringView Celda(qint32 xCelda) const;
        void Recortar(qint32 xCeldas);
    };

    void ValidarFila(qint32 xFila) const;
    void ValidarColumna(qint32 xColumna) const;
    Fila FilaDeTexto(const QString& xTexto) const;
    double ValorNumerico(QStringView xTexto) const;
    void CambiarColumnas(qint32 xColumnas);

    QVector<Fila> mFilas;
    qint32 mColumnas = 0;
    qint32 mFilasFijas = 0;
    qint32 mColumnasFijas = 0;
    QVector<qint32> mAnchos;
    QVector<qint32> mAlineaciones;
    QLocale mLocale;
    bool mDecimalComoC = false; // the locale's numbers read as C reads them
};
