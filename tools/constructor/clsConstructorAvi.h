#pragma once

#include <QByteArray>
#include <QVector>
#include <QtGlobal>

// Writes a silent RIFF AVI clip of 8-bit frames: one video stream, a 256-colour palette, every
// frame a key frame, stored RLE8-compressed or uncompressed, with the index of its frames.
class clsConstructorAvi {
public:
    // xPaleta holds 0xRRGGBB colours (at most 256).
    clsConstructorAvi(qint32 xAncho, qint32 xAlto, qint32 xMilisegundos, QVector<quint32> xPaleta);

    // One frame: one palette index per pixel, rows from the top.
    void AgregarCuadro(const QByteArray& xPixeles);
    QByteArray Escribir(bool xRle8) const;

    // The RLE8 form of a frame (rows from the bottom, runs of one index, line ends, picture end).
    QByteArray Rle8(const QByteArray& xPixeles) const;

private:
    QByteArray Crudo(const QByteArray& xPixeles) const;

    qint32 mAncho;
    qint32 mAlto;
    qint32 mMilisegundos;
    QVector<quint32> mPaleta;
    QVector<QByteArray> mCuadros;
};
