#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>

// A bounds-checked big-endian cursor over a byte buffer. Every read either succeeds and moves the
// cursor past what it read, or reports an overrun and leaves the cursor where it was; nothing is
// ever read outside the buffer. The buffer is not copied: it must outlive the cursor.
class clsLectorBytes {
public:
    explicit clsLectorBytes(QByteArrayView xDatos) : mDatos(xDatos) {}

    qsizetype Posicion() const { return mPosicion; }
    qsizetype Tamano() const { return mDatos.size(); }
    qsizetype Restantes() const { return mDatos.size() - mPosicion; }

    [[nodiscard]] bool IrA(qsizetype xPosicion);
    [[nodiscard]] bool Saltar(qsizetype xCantidad);

    [[nodiscard]] bool LeerU8(quint8& xValor);
    [[nodiscard]] bool LeerU16(quint16& xValor);
    [[nodiscard]] bool LeerU24(quint32& xValor);
    [[nodiscard]] bool LeerU32(quint32& xValor);
    // A view of the next xCantidad bytes (into the same buffer).
    [[nodiscard]] bool LeerBytes(qsizetype xCantidad, QByteArrayView& xTramo);
    // The bytes up to the next zero byte, which is consumed; an overrun when there is none.
    [[nodiscard]] bool LeerTextoTerminado(QByteArrayView& xTexto);

private:
    [[nodiscard]] bool LeerEntero(int xAncho, quint32& xValor);

    QByteArrayView mDatos;
    qsizetype mPosicion = 0;
};
