#pragma once

#include <QVector>
#include <QtGlobal>

// Large buffers whose memory is backed in one call. A buffer of megabytes touched for the first
// time takes one page fault per page, and on a virtual machine each fault is dear: asking the
// system for all the pages at once costs a fraction of that.
namespace modMemoria {

// Has the pages of xCantidad bytes from xInicio backed now, on huge pages where whole ones fit.
// Does nothing where the system cannot.
void Preparar(char* xInicio, qsizetype xCantidad);

// Makes room for xCantidad elements in xVector, backed.
template <typename T> void Reservar(QVector<T>& xVector, qsizetype xCantidad) {
    xVector.reserve(xCantidad);
    Preparar(reinterpret_cast<char*>(xVector.data()), xVector.capacity() * qsizetype(sizeof(T)));
}

} // namespace modMemoria
