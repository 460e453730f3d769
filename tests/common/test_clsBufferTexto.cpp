#include "common/clsBufferTexto.h"

#include <QString>
#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(BufferTexto, Enteros) {
    const struct {
        qint64 valor;
        int ancho;
        const char* texto;
    } casos[] = {
        {0, 1, "0"},
        {7, 2, "07"},
        {42, 1, "42"},
        {100, 1, "100"},
        {2004, 4, "2004"},
        {5, 3, "005"},
        {-30000, 1, "-30000"},
        {-5, 3, "-005"},
        {1234567890123, 1, "1234567890123"},
        {std::numeric_limits<qint64>::max(), 1, "9223372036854775807"},
        {std::numeric_limits<qint64>::min(), 1, "-9223372036854775808"},
    };
    clsBufferTexto buffer;
    for (const auto& caso : casos) {
        buffer.Vaciar();
        buffer.Letra(u'[');
        buffer.Entero(caso.valor, caso.ancho);
        buffer.Letra(u']');
        EXPECT_EQ(buffer.Vista().toString(), QStringLiteral("[%1]").arg(caso.texto)) << caso.texto;
    }
}

// Texts longer than the first room make the buffer grow without losing what it holds; blanks go
// only around the part written last.
TEST(BufferTexto, CreceYRecortaLosBlancos) {
    clsBufferTexto buffer;
    const QString largo(1000, QLatin1Char('x'));
    buffer.Texto(u" a ");
    const qsizetype inicio = buffer.Cantidad();
    buffer.Texto(u"  ");
    buffer.Texto(largo);
    buffer.Letras("  ", 2);
    buffer.RecortarBlancos(inicio);
    EXPECT_EQ(buffer.Vista().toString(), QStringLiteral(" a ") + largo);
    buffer.Recortar(largo.size());
    EXPECT_EQ(buffer.Vista().toString(), " a ");
}

} // namespace
