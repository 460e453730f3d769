#include "common/modMemoria.h"

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace {

// Smaller buffers come from memory the program has already touched, or cost a few faults.
constexpr qsizetype Minimo = 256 * 1024;

} // namespace

namespace modMemoria {

void Preparar(char* xInicio, qsizetype xCantidad) {
#if defined(Q_OS_LINUX) && defined(MADV_POPULATE_WRITE)
    if (xCantidad < Minimo) return;
    static const auto pagina = static_cast<quintptr>(::sysconf(_SC_PAGESIZE));
    const auto inicio = (reinterpret_cast<quintptr>(xInicio) + pagina - 1) & ~(pagina - 1);
    const auto fin = (reinterpret_cast<quintptr>(xInicio) + quintptr(xCantidad)) & ~(pagina - 1);
    // Older kernels refuse the advice; the pages are then backed as they are touched.
    if (fin <= inicio) return;
    ::madvise(reinterpret_cast<void*>(inicio), fin - inicio, MADV_HUGEPAGE);
    ::madvise(reinterpret_cast<void*>(inicio), fin - inicio, MADV_POPULATE_WRITE);
#else
    Q_UNUSED(xInicio);
    Q_UNUSED(xCantidad);
#endif
}

} // namespace modMemoria
