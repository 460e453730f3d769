#pragma once

#include "common/ErrorVB.h"

#include <QString>
#include <ostream>

// Readable failure messages for texts.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& xTexto, std::ostream* xSalida) {
    *xSalida << '"' << xTexto.toStdString() << '"';
}
QT_END_NAMESPACE

namespace modPrueba {

// The error xAccion raises; number 0, "no error was raised", when it raises none. A test checks
// the number, the source or the description it expects.
template <typename F> ErrorVB ErrorDe(F&& xAccion) {
    try {
        xAccion();
    } catch (const ErrorVB& error) {
        return error;
    }
    return ErrorVB(0, QString(), QStringLiteral("no error was raised"));
}

} // namespace modPrueba
