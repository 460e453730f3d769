#pragma once

#include <QByteArray>
#include <QtGlobal>

// Large buffers whose memory is backed in one call. A buffer of megabytes touched for the first
// time takes one page fault per page, and on a virtual machine each fault is dear: asking the
// system for all the pages at once costs a fraction of that.
namespace modMemoria {

// Has the pages of xCantidad bytes from xInicio backed now. Does nothing where the system cannot.
void Preparar(char* xInicio, qsizetype xCantidad);

// xCantidad bytes, not initialised, their memory already backed.
QByteArray Bloque(qsizetype xCantidad);

} // namespace modMemoria
