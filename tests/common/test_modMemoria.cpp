#include "common/clsBloqueMemoria.h"
#include "common/modMemoria.h"

#include <QByteArray>
#include <cstring>
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

// A block holds at least what was asked, all of it writable, and a move hands the memory over.
TEST(modMemoria, UnBloqueDaLoPedidoYSeTraspasa) {
    for (const qsizetype tamano : {qsizetype(1), qsizetype(16 * 1024), qsizetype(1024 * 1024 - 1),
                                   qsizetype(1024 * 1024), qsizetype((3 << 20) + 5)}) {
        clsBloqueMemoria bloque(tamano);
        ASSERT_GE(bloque.Capacidad(), tamano);
        std::memset(bloque.Datos(), 0x5A, size_t(bloque.Capacidad()));
        char* const datos = bloque.Datos();
        clsBloqueMemoria otro(1);
        otro = std::move(bloque);
        EXPECT_EQ(otro.Datos(), datos);
        EXPECT_EQ(bloque.Datos(), nullptr);
        EXPECT_EQ(otro.Datos()[tamano - 1], 0x5A) << tamano;
    }
}
