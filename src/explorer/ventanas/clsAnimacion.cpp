#include "explorer/ventanas/clsAnimacion.h"

#include <QImage>
#include <QPixmap>

clsAnimacion::clsAnimacion(QWidget* xPadre) : QLabel(xPadre) {
    setAlignment(Qt::AlignCenter);
    connect(&mReloj, &QTimer::timeout, this,
            [this] { MostrarCuadro((mCuadro + 1) % mClip.Cuadros().size()); });
}

bool clsAnimacion::Open(const QString& xArchivo) {
    Stop();
    mAbierto = mClip.Abrir(xArchivo);
    if (!mAbierto) {
        clear();
        return false;
    }
    setFixedSize(mClip.Ancho(), mClip.Alto());
    MostrarCuadro(0);
    return true;
}

void clsAnimacion::Play() {
    if (!mAbierto) return;
    mReloj.start(std::max(10, mClip.MicrosegundosPorCuadro() / 1000));
    repaint();
}

void clsAnimacion::Stop() {
    mReloj.stop();
}

void clsAnimacion::MostrarCuadro(int xCuadro) {
    mCuadro = xCuadro;
    const QByteArray& pixeles = mClip.Cuadros().at(xCuadro);
    QImage imagen(reinterpret_cast<const uchar*>(pixeles.constData()), mClip.Ancho(), mClip.Alto(),
                  mClip.Ancho(), QImage::Format_Indexed8);
    imagen.setColorTable(QList<QRgb>(mClip.Paleta().begin(), mClip.Paleta().end()));
    setPixmap(QPixmap::fromImage(imagen));
}
