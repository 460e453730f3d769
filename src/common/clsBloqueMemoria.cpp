#include "common/clsBloqueMemoria.h"

#include "common/modMemoria.h"

#include <new>
#include <utility>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace {

#if defined(Q_OS_LINUX) && defined(MADV_HUGEPAGE)
// The size of a huge page on the machines this runs on; a block is a whole number of them and
// starts at one's boundary, so every page of it can be huge.
constexpr qsizetype PaginaGrande = 2 * 1024 * 1024;
// Below this a block comes from the heap.
constexpr qsizetype MinimoMapeado = PaginaGrande / 2;

// xCantidad bytes at a huge page's boundary, backed; nullptr when the system refuses the mapping.
char* Mapear(qsizetype xCantidad) {
    const qsizetype reservado = xCantidad + PaginaGrande;
    void* mapa = ::mmap(nullptr, size_t(reservado), PROT_READ | PROT_WRITE,
                        MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapa == MAP_FAILED) return nullptr;
    const auto inicio = reinterpret_cast<quintptr>(mapa);
    const auto alineado = (inicio + PaginaGrande - 1) & ~quintptr(PaginaGrande - 1);
    // The unaligned ends go back at once.
    if (alineado > inicio) ::munmap(mapa, alineado - inicio);
    const quintptr fin = alineado + quintptr(xCantidad);
    if (inicio + quintptr(reservado) > fin)
        ::munmap(reinterpret_cast<void*>(fin), inicio + quintptr(reservado) - fin);
    char* datos = reinterpret_cast<char*>(alineado);
    modMemoria::Preparar(datos, xCantidad);
    return datos;
}
#endif

} // namespace

clsBloqueMemoria::clsBloqueMemoria(qsizetype xCantidad) : mCapacidad(xCantidad) {
#if defined(Q_OS_LINUX) && defined(MADV_HUGEPAGE)
    if (xCantidad >= MinimoMapeado) {
        const qsizetype redondeado = (xCantidad + PaginaGrande - 1) / PaginaGrande * PaginaGrande;
        mDatos = Mapear(redondeado);
        if (mDatos) {
            mCapacidad = redondeado;
            mMapeado = true;
            return;
        }
    }
#endif
    mDatos = new char[size_t(xCantidad)];
    modMemoria::Preparar(mDatos, xCantidad);
}

clsBloqueMemoria::~clsBloqueMemoria() {
    Liberar();
}

clsBloqueMemoria::clsBloqueMemoria(clsBloqueMemoria&& x) noexcept
    : mDatos(std::exchange(x.mDatos, nullptr)), mCapacidad(std::exchange(x.mCapacidad, 0)),
      mMapeado(std::exchange(x.mMapeado, false)) {}

clsBloqueMemoria& clsBloqueMemoria::operator=(clsBloqueMemoria&& x) noexcept {
    if (this == &x) return *this;
    Liberar();
    mDatos = std::exchange(x.mDatos, nullptr);
    mCapacidad = std::exchange(x.mCapacidad, 0);
    mMapeado = std::exchange(x.mMapeado, false);
    return *this;
}

void clsBloqueMemoria::Liberar() {
    if (!mDatos) return;
#ifdef Q_OS_LINUX
    if (mMapeado) {
        ::munmap(mDatos, size_t(mCapacidad));
        return;
    }
#endif
    delete[] mDatos;
}
