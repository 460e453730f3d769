#pragma once

#include "explorer/clsClipAvi.h"

#include <QLabel>
#include <QTimer>

// The animation control: plays a silent AVI clip (8-bit frames) in a loop. Without a clip it shows
// nothing and playing does nothing.
class clsAnimacion : public QLabel {
    Q_OBJECT
public:
    explicit clsAnimacion(QWidget* xPadre = nullptr);

    // Loads the clip and shows its first frame; false (and no picture) when it cannot be read.
    bool Open(const QString& xArchivo);
    void Play();
    void Stop();
    bool Reproduciendo() const { return mReloj.isActive(); }
    int CuadroActual() const { return mCuadro; }

private:
    void MostrarCuadro(int xCuadro);

    clsClipAvi mClip;
    bool mAbierto = false;
    int mCuadro = 0;
    QTimer mReloj;
};
