#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QtEndian>
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

    // The number readers are inline: a file's entry list is read with millions of them.
    [[nodiscard]] bool LeerU8(quint8& xValor) {
        if (Restantes() < 1) return false;
        xValor = static_cast<quint8>(mDatos[mPosicion++]);
        return true;
    }
    [[nodiscard]] bool LeerU16(quint16& xValor) {
        if (Restantes() < 2) return false;
        xValor = qFromBigEndian<quint16>(mDatos.data() + mPosicion);
        mPosicion += 2;
        return true;
    }
    [[nodiscard]] bool LeerU24(quint32& xValor) {
        if (Restantes() < 3) return false;
        xValor = (quint32(quint8(mDatos[mPosicion])) << 16) |
                 qFromBigEndian<quint16>(mDatos.data() + mPosicion + 1);
        mPosicion += 3;
        return true;
    }
    [[nodiscard]] bool LeerU32(quint32& xValor) {
        if (Restantes() < 4) return false;
        xValor = qFromBigEndian<quint32>(mDatos.data() + mPosicion);
        mPosicion += 4;
        return true;
    }
    // A view of the next xCantidad bytes (into the same buffer).
    [[nodiscard]] bool LeerBytes(qsizetype xCantidad, QByteArrayView& xTramo);
    // The bytes up to the next zero byte, which is consumed; an overrun when there is none.
    [[nodiscard]] bool LeerTextoTerminado(QByteArrayView& xTexto);

private:
    QByteArrayView mDatos;
    qsizetype mPosicion = 0;
};
