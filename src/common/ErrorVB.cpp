#include "common/ErrorVB.h"

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

ErrorVB ErrorVB::Overflow(const QString& xFuente) {
    return ErrorVB(Desbordamiento, xFuente, QStringLiteral("Overflow"));
}

ErrorVB ErrorVB::SubscriptOutOfRange(const QString& xFuente) {
    return ErrorVB(SubindiceFueraDeRango, xFuente, QStringLiteral("Subscript out of range"));
}

ErrorVB ErrorVB::TypeMismatch(const QString& xFuente) {
    return ErrorVB(TiposNoCoinciden, xFuente, QStringLiteral("Type mismatch"));
}
