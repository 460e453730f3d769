#include "data/modMemoria.h"

#include <QByteArray>
#include <gtest/gtest.h>

// Backing memory in advance must never change what it holds.
TEST(modMemoria, PrepararNoCambiaLoQueHayEnLaMemoria) {
    const qsizetype tamanos[] = {0, 100, 256 * 1024 - 1, 256 * 1024, 1024 * 1024 + 3, 4 << 20};
    const qsizetype desplazamientos[] = {0, 1, 4095};
    for (const qsizetype tamano : tamanos) {
        QByteArray bloque(tamano + 4096, Qt::Uninitialized);
        for (qsizetype i = 0; i < bloque.size(); ++i)
            bloque[i] = static_cast<char>(i * 7 + 3);
        const QByteArray copia = bloque;
        for (const qsizetype desde : desplazamientos) {
            modMemoria::Preparar(bloque.data() + desde, tamano);
            EXPECT_TRUE(bloque == copia) << tamano << "+" << desde;
        }
    }
}
