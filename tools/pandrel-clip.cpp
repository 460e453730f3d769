// Builds Search.avi, the clip the find dialog plays while a search runs: a magnifying glass
// passing over the lines of a sheet. Usage: pandrel-clip FILE.
#include "constructor/clsConstructorAvi.h"

#include <QFile>
#include <QSaveFile>
#include <cmath>
#include <cstdio>

namespace {
constexpr int kAncho = 48;
constexpr int kAlto = 40;
constexpr int kCuadros = 16;

enum Color : char { Fondo, Hoja, Linea, Aro, Lente, LineaLente, Mango };

QByteArray Cuadro(int xCuadro) {
    QByteArray pixeles(kAncho * kAlto, Fondo);
    const auto poner = [&](int x, int y, char c) {
        if (x >= 0 && x < kAncho && y >= 0 && y < kAlto) pixeles[y * kAncho + x] = c;
    };
    for (int y = 3; y < kAlto - 3; ++y)
        for (int x = 6; x < kAncho - 6; ++x)
            poner(x, y, (y % 5 == 2 && x > 9 && x < kAncho - 9 - (y % 3) * 4) ? Linea : Hoja);
    // The glass circles over the sheet.
    const double angulo = 2 * M_PI * xCuadro / kCuadros;
    const double cx = kAncho / 2.0 + 9 * std::cos(angulo);
    const double cy = kAlto / 2.0 - 2 + 7 * std::sin(angulo);
    for (int y = 0; y < kAlto; ++y)
        for (int x = 0; x < kAncho; ++x) {
            const double d = std::hypot(x - cx, y - cy);
            const char debajo = pixeles.at(y * kAncho + x);
            if (d < 6.5)
                poner(x, y, debajo == Linea ? LineaLente : Lente);
            else if (d < 8.5)
                poner(x, y, Aro);
        }
    for (int i = 0; i < 9; ++i)
        for (int g = -1; g <= 1; ++g)
            poner(int(cx + 7 + i) + g, int(cy + 7 + i), Mango);
    return pixeles;
}
} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: pandrel-clip FILE\n");
        return 2;
    }
    clsConstructorAvi clip(kAncho, kAlto, 80,
                           {0xf0f0f0, 0xffffff, 0x7080a0, 0x303848, 0xcfe6ff, 0x2050c0, 0x8a5a2b});
    for (int i = 0; i < kCuadros; ++i)
        clip.AgregarCuadro(Cuadro(i));
    QSaveFile archivo(QString::fromLocal8Bit(argv[1]));
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(clip.Escribir(true)) < 0 ||
        !archivo.commit()) {
        std::fprintf(stderr, "pandrel-clip: cannot write %s\n", argv[1]);
        return 1;
    }
    return 0;
}
