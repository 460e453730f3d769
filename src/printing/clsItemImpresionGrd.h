#pragma once

#include <QString>
#include <QtGlobal>

// One free line of a grid report's head or foot: a text and where it stands on the line.
class clsItemImpresionGrd {
public:
    // Alignment codes; note that 0 is right.
    static constexpr qint32 Derecha = 0;
    static constexpr qint32 Izquierda = 1;
    static constexpr qint32 Centro = 2;

    // The text is kept in a field of 256 characters: longer texts are cut, and it reads back
    // without the blanks at its ends.
    QString Detalle() const;
    void SetDetalle(const QString& xDetalle);
    qint32 Alineacion() const { return mAlineacion; }
    void SetAlineacion(qint32 xAlineacion) { mAlineacion = xAlineacion; }

private:
    static constexpr qsizetype Ancho = 256;
    QString mDetalle = QString(Ancho, QLatin1Char(' '));
    qint32 mAlineacion = 0;
};
