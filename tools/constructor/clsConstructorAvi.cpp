#include "constructor/clsConstructorAvi.h"

#include <QtEndian>
#include <utility>

namespace {
void U32(QByteArray& xDestino, quint32 xValor) {
    char bytes[4];
    qToLittleEndian(xValor, bytes);
    xDestino.append(bytes, 4);
}

void U16(QByteArray& xDestino, quint16 xValor) {
    char bytes[2];
    qToLittleEndian(xValor, bytes);
    xDestino.append(bytes, 2);
}

// A chunk: code, little-endian size, body, a pad byte to an even size.
QByteArray Trozo(const char* xCodigo, const QByteArray& xCuerpo) {
    QByteArray trozo(xCodigo, 4);
    U32(trozo, static_cast<quint32>(xCuerpo.size()));
    trozo += xCuerpo;
    if (xCuerpo.size() % 2 == 1) trozo.append('\0');
    return trozo;
}

QByteArray Lista(const char* xTipo, const QByteArray& xCuerpo) {
    return Trozo("LIST", QByteArray(xTipo, 4) + xCuerpo);
}
} // namespace

clsConstructorAvi::clsConstructorAvi(qint32 xAncho, qint32 xAlto, qint32 xMilisegundos,
                                     QVector<quint32> xPaleta)
    : mAncho(xAncho), mAlto(xAlto), mMilisegundos(xMilisegundos), mPaleta(std::move(xPaleta)) {}

void clsConstructorAvi::AgregarCuadro(const QByteArray& xPixeles) {
    mCuadros.append(xPixeles);
}

QByteArray clsConstructorAvi::Rle8(const QByteArray& xPixeles) const {
    QByteArray salida;
    for (qint32 y = mAlto - 1; y >= 0; --y) {
        const char* fila = xPixeles.constData() + qsizetype(y) * mAncho;
        for (qint32 x = 0; x < mAncho;) {
            qint32 corrida = 1;
            while (x + corrida < mAncho && corrida < 255 && fila[x + corrida] == fila[x])
                ++corrida;
            salida.append(static_cast<char>(corrida));
            salida.append(fila[x]);
            x += corrida;
        }
        salida.append('\0');
        salida.append(y == 0 ? '\1' : '\0');
    }
    return salida;
}

QByteArray clsConstructorAvi::Crudo(const QByteArray& xPixeles) const {
    const qint32 paso = (mAncho + 3) / 4 * 4;
    QByteArray salida;
    for (qint32 y = mAlto - 1; y >= 0; --y) {
        salida += xPixeles.mid(qsizetype(y) * mAncho, mAncho);
        salida += QByteArray(paso - mAncho, '\0');
    }
    return salida;
}

QByteArray clsConstructorAvi::Escribir(bool xRle8) const {
    const quint32 cuadros = static_cast<quint32>(mCuadros.size());
    const quint32 tamanoCuadro = static_cast<quint32>((mAncho + 3) / 4 * 4 * mAlto);

    QByteArray avih;
    for (const quint32 valor :
         {quint32(mMilisegundos * 1000), tamanoCuadro * 1000 / quint32(mMilisegundos), 0u,
          0x10u /* has an index */, cuadros, 0u, 1u, tamanoCuadro, quint32(mAncho), quint32(mAlto),
          0u, 0u, 0u, 0u})
        U32(avih, valor);

    QByteArray strh("vids", 4);
    strh.append(QByteArray(4, '\0')); // no particular handler
    for (const quint32 valor :
         {0u, 0u, 0u, 1u /* scale */, quint32(1000 / mMilisegundos) /* rate */, 0u, cuadros,
          tamanoCuadro, 0xffffffffu, 0u})
        U32(strh, valor);
    for (const quint16 valor : {quint16(0), quint16(0), quint16(mAncho), quint16(mAlto)})
        U16(strh, valor);

    QByteArray strf;
    for (const quint32 valor : {40u, quint32(mAncho), quint32(mAlto)})
        U32(strf, valor);
    U16(strf, 1);
    U16(strf, 8);
    for (const quint32 valor : {xRle8 ? 1u : 0u, tamanoCuadro, 2835u, 2835u, 256u, 0u})
        U32(strf, valor);
    for (int i = 0; i < 256; ++i)
        U32(strf, i < mPaleta.size() ? mPaleta.at(i) & 0xffffffu : 0u);

    const char* codigo = xRle8 ? "00dc" : "00db";
    QByteArray movi, idx1;
    for (const QByteArray& cuadro : mCuadros) {
        const QByteArray cuerpo = xRle8 ? Rle8(cuadro) : Crudo(cuadro);
        idx1.append(codigo, 4);
        U32(idx1, 0x10); // key frame
        U32(idx1, static_cast<quint32>(movi.size() + 4));
        U32(idx1, static_cast<quint32>(cuerpo.size()));
        movi += Trozo(codigo, cuerpo);
    }

    const QByteArray hdrl = Lista(
        "hdrl", Trozo("avih", avih) + Lista("strl", Trozo("strh", strh) + Trozo("strf", strf)));
    return Trozo("RIFF", QByteArray("AVI ", 4) + hdrl + Lista("movi", movi) + Trozo("idx1", idx1));
}
