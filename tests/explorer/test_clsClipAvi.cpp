#include "constructor/clsConstructorAvi.h"
#include "explorer/clsClipAvi.h"

#include <gtest/gtest.h>

namespace {

// Two frames of 5 x 3 (an odd width, so uncompressed rows carry padding): a gradient, and the
// same with one row changed, so a row read upside down or a frame reused is caught.
QVector<QByteArray> Cuadros() {
    QByteArray primero(15, '\0');
    for (int i = 0; i < 15; ++i)
        primero[i] = static_cast<char>(i % 4);
    QByteArray segundo = primero;
    for (int x = 0; x < 5; ++x)
        segundo[x] = 3;
    return {primero, segundo};
}

QByteArray Clip(bool xRle8) {
    clsConstructorAvi clip(5, 3, 50, {0x000000, 0xff0000, 0x00ff00, 0x0000ff});
    for (const QByteArray& cuadro : Cuadros())
        clip.AgregarCuadro(cuadro);
    return clip.Escribir(xRle8);
}

// A clip reads back frame for frame, whether its frames are RLE8 or not; what is not such a clip
// is refused with its reason and no frame.
TEST(clsClipAvi, ReadsItsFramesAndRefusesWhatIsNotSuchAClip) {
    for (const bool rle8 : {true, false}) {
        clsClipAvi clip;
        ASSERT_TRUE(clip.Leer(Clip(rle8))) << clip.Error().toStdString();
        EXPECT_EQ(clip.Cuadros(), Cuadros()) << rle8;
    }
    const QByteArray bueno = Clip(true);
    QByteArray veinticuatro = bueno;
    veinticuatro[veinticuatro.indexOf("strf") + 8 + 14] = 24;
    QByteArray fuera = bueno;
    fuera[fuera.indexOf("00dc") + 8] = static_cast<char>(200); // a run past the row
    const struct {
        const char* Nombre;
        QByteArray Datos;
    } casos[] = {
        {"empty", QByteArray()},
        {"not RIFF", QByteArray("RIFX") + bueno.mid(4)},
        {"cut short", bueno.left(bueno.size() / 2)},
        {"24-bit frames", veinticuatro},
        {"a run past the picture", fuera},
    };
    for (const auto& c : casos) {
        clsClipAvi clip;
        EXPECT_FALSE(clip.Leer(c.Datos)) << c.Nombre;
        EXPECT_FALSE(clip.Error().isEmpty()) << c.Nombre;
        EXPECT_TRUE(clip.Cuadros().isEmpty()) << c.Nombre;
    }
    clsClipAvi clip;
    EXPECT_FALSE(clip.Abrir("/nonexistent/Search.avi"));
}

} // namespace
