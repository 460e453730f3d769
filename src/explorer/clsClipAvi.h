#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>
#include <QtGlobal>

// A silent clip read from a RIFF AVI file whose one video stream holds 8-bit frames, uncompressed
// or RLE8: what the find dialog plays while a search runs. Each frame comes out as one palette
// index per pixel, rows from the top; an RLE8 frame that skips pixels keeps those of the frame
// before it. A file that is not such a clip is refused with a reason, never read outside its bytes.
class clsClipAvi {
public:
    bool Abrir(const QString& xArchivo);
    bool Leer(const QByteArray& xDatos);

    QString Error() const { return mError; }
    qint32 Ancho() const { return mAncho; }
    qint32 Alto() const { return mAlto; }
    qint32 MicrosegundosPorCuadro() const { return mMicrosegundos; }
    // 0xAARRGGBB colours, one per palette index.
    const QVector<quint32>& Paleta() const { return mPaleta; }
    const QVector<QByteArray>& Cuadros() const { return mCuadros; }

private:
    bool Fallar(const QString& xRazon);
    bool LeerLista(QByteArrayView xLista);
    bool LeerFormato(QByteArrayView xFormato);
    bool LeerCuadro(QByteArrayView xCuadro);
    bool DescomprimirRle8(QByteArrayView xCuadro, QByteArray& xPixeles) const;

    QString mError;
    qint32 mAncho = 0;
    qint32 mAlto = 0;
    bool mAbajoArriba = true; // rows stored from the bottom, as bitmaps are
    bool mRle8 = false;
    qint32 mMicrosegundos = 0;
    QVector<quint32> mPaleta;
    QVector<QByteArray> mCuadros;
};
