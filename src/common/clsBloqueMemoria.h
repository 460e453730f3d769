#pragma once

#include <QtGlobal>

// A large buffer of its own, backed in one call when it is made. Where the system has huge pages
// the buffer lies on them: a few megabytes then cost a handful of faults instead of a thousand,
// and giving them back is as cheap.
class clsBloqueMemoria {
public:
    // Room for at least xCantidad bytes; Capacidad says how many.
    explicit clsBloqueMemoria(qsizetype xCantidad);
    ~clsBloqueMemoria();
    clsBloqueMemoria(clsBloqueMemoria&& x) noexcept;
    clsBloqueMemoria& operator=(clsBloqueMemoria&& x) noexcept;
    clsBloqueMemoria(const clsBloqueMemoria&) = delete;
    clsBloqueMemoria& operator=(const clsBloqueMemoria&) = delete;

    char* Datos() const { return mDatos; }
    qsizetype Capacidad() const { return mCapacidad; }

private:
    void Liberar();

    char* mDatos = nullptr;
    qsizetype mCapacidad = 0;
    bool mMapeado = false; // mapped on its own rather than taken from the heap
};
