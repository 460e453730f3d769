#pragma once

#include "printing/clsItemImpresionGrd.h"

#include <QList>
#include <QString>
#include <QtGlobal>

// The free lines of a grid report's head or foot, in order.
class clsColImpresionGrd {
public:
    using const_iterator = QList<clsItemImpresionGrd>::const_iterator;

    // Appends a line and returns it.
    const clsItemImpresionGrd& Add(const QString& xDetalle, qint32 xAlineacion);
    // The line at a 1-based position; a position outside raises ErrorVB 9.
    const clsItemImpresionGrd& Item(qint32 xIndex) const;
    qint32 Count() const { return static_cast<qint32>(mLineas.size()); }

    // The lines in order (what NewEnum hands out).
    const_iterator begin() const { return mLineas.cbegin(); }
    const_iterator end() const { return mLineas.cend(); }

private:
    QList<clsItemImpresionGrd> mLineas;
};
