#include "common/ErrorVB.h"

#include <new>
#include <utility>

ErrorVB::ErrorVB(qint32 xNumero, QString xFuente, QString xDescripcion)
    : mNumero(xNumero), mFuente(std::move(xFuente)), mDescripcion(std::move(xDescripcion)),
      mTexto(QStringLiteral("Error %1: %2 [%3]")
                 .arg(mNumero)
                 .arg(mDescripcion, mFuente)
                 .toStdString()) {}

ErrorVB ErrorVB::ConFuente(const QString& xFuente) const {
    return ErrorVB(mNumero, xFuente, mDescripcion);
}

ErrorVB ErrorVB::De(const std::exception& xFalla, const QString& xFuente) {
    if (const auto* error = dynamic_cast<const ErrorVB*>(&xFalla)) return *error;
    if (dynamic_cast<const std::bad_alloc*>(&xFalla))
        return ErrorVB(SinMemoria, xFuente, QStringLiteral("Out of memory"));
    return ErrorVB(0, xFuente, QString::fromLocal8Bit(xFalla.what()));
}

ErrorVB ErrorVB::Overflow(const QString& xFuente) {
    return ErrorVB(Desbordamiento, xFuente, QStringLiteral("Overflow"));
}

ErrorVB ErrorVB::SubscriptOutOfRange(const QString& xFuente) {
    return ErrorVB(SubindiceFueraDeRango, xFuente, QStringLiteral("Subscript out of range"));
}

ErrorVB ErrorVB::TypeMismatch(const QString& xFuente) {
    return ErrorVB(TiposNoCoinciden, xFuente, QStringLiteral("Type mismatch"));
}
