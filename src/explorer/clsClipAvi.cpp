#include "explorer/clsClipAvi.h"

#include "data/formato/clsLectorBytes.h"

#include <QFile>

namespace {
// The largest picture a clip may have, so a damaged header cannot ask for gigabytes.
constexpr qint32 kLadoMaximo = 1024;

bool LeerU32Le(clsLectorBytes& xLector, quint32& xValor) {
    if (!xLector.LeerU32(xValor)) return false;
    xValor = qbswap(xValor);
    return true;
}

bool LeerU16Le(clsLectorBytes& xLector, quint16& xValor) {
    if (!xLector.LeerU16(xValor)) return false;
    xValor = qbswap(xValor);
    return true;
}

// One chunk: its four-character code and its body (chunks are padded to an even size).
bool LeerTrozo(clsLectorBytes& xLector, QByteArrayView& xCodigo, QByteArrayView& xCuerpo) {
    quint32 tamano = 0;
    if (!xLector.LeerBytes(4, xCodigo) || !LeerU32Le(xLector, tamano)) return false;
    if (!xLector.LeerBytes(tamano, xCuerpo)) return false;
    if (tamano % 2 == 1 && xLector.Restantes() > 0) return xLector.Saltar(1);
    return true;
}
} // namespace

bool clsClipAvi::Fallar(const QString& xRazon) {
    mError = xRazon;
    mCuadros.clear();
    return false;
}

bool clsClipAvi::Abrir(const QString& xArchivo) {
    QFile archivo(xArchivo);
    if (!archivo.open(QIODevice::ReadOnly)) return Fallar(QStringLiteral("cannot be read"));
    return Leer(archivo.readAll());
}

bool clsClipAvi::Leer(const QByteArray& xDatos) {
    *this = clsClipAvi();
    clsLectorBytes lector(xDatos);
    QByteArrayView codigo, cuerpo;
    if (!LeerTrozo(lector, codigo, cuerpo) || codigo != "RIFF" || !cuerpo.startsWith("AVI "))
        return Fallar(QStringLiteral("not a RIFF AVI file"));
    if (!LeerLista(cuerpo.sliced(4))) return false;
    if (mAncho == 0) return Fallar(QStringLiteral("no 8-bit video stream"));
    if (mCuadros.isEmpty()) return Fallar(QStringLiteral("no frames"));
    return true;
}

// The chunks of a list: the stream header and format, and the frames.
bool clsClipAvi::LeerLista(QByteArrayView xLista) {
    clsLectorBytes lector(xLista);
    while (lector.Restantes() >= 8) {
        QByteArrayView codigo, cuerpo;
        if (!LeerTrozo(lector, codigo, cuerpo))
            return Fallar(QStringLiteral("a chunk runs past the file"));
        if (codigo == "LIST") {
            if (cuerpo.size() < 4 || !LeerLista(cuerpo.sliced(4)))
                return mError.isEmpty() ? Fallar(QStringLiteral("a list is damaged")) : false;
        } else if (codigo == "avih") {
            clsLectorBytes cabecera(cuerpo);
            quint32 micro = 0;
            if (!LeerU32Le(cabecera, micro))
                return Fallar(QStringLiteral("the main header is short"));
            mMicrosegundos = static_cast<qint32>(std::min<quint32>(micro, 10'000'000));
        } else if (codigo == "strf" && mAncho == 0) {
            if (!LeerFormato(cuerpo)) return false;
        } else if (codigo.size() == 4 && (codigo.endsWith("db") || codigo.endsWith("dc"))) {
            if (mAncho == 0) return Fallar(QStringLiteral("a frame comes before the format"));
            if (!LeerCuadro(cuerpo)) return false;
        }
    }
    return true;
}

// The bitmap header of the video stream and its palette.
bool clsClipAvi::LeerFormato(QByteArrayView xFormato) {
    clsLectorBytes lector(xFormato);
    quint32 tamano = 0, ancho = 0, alto = 0, compresion = 0, colores = 0;
    quint16 planos = 0, bits = 0;
    if (!LeerU32Le(lector, tamano) || !LeerU32Le(lector, ancho) || !LeerU32Le(lector, alto) ||
        !LeerU16Le(lector, planos) || !LeerU16Le(lector, bits) || !LeerU32Le(lector, compresion) ||
        !lector.Saltar(12) || !LeerU32Le(lector, colores) || tamano < 40 || !lector.IrA(tamano))
        return Fallar(QStringLiteral("the stream format is short"));
    const qint32 altoConSigno = static_cast<qint32>(alto);
    mAbajoArriba = altoConSigno > 0;
    mAncho = static_cast<qint32>(ancho);
    mAlto = std::abs(altoConSigno);
    if (bits != 8 || compresion > 1)
        return Fallar(QStringLiteral("frames are not 8-bit uncompressed or RLE8"));
    if (mAncho <= 0 || mAncho > kLadoMaximo || mAlto <= 0 || mAlto > kLadoMaximo)
        return Fallar(QStringLiteral("the picture size is out of range"));
    mRle8 = compresion == 1;
    const quint32 cantidad = colores == 0 ? 256 : std::min<quint32>(colores, 256);
    mPaleta.fill(0xff000000u, 256);
    for (quint32 i = 0; i < cantidad; ++i) {
        quint32 bgrx = 0;
        if (!LeerU32Le(lector, bgrx)) return Fallar(QStringLiteral("the palette is short"));
        mPaleta[static_cast<int>(i)] = 0xff000000u | (bgrx & 0x00ffffffu);
    }
    return true;
}

bool clsClipAvi::LeerCuadro(QByteArrayView xCuadro) {
    QByteArray pixeles = mCuadros.isEmpty() ? QByteArray(mAncho * mAlto, '\0') : mCuadros.last();
    if (mRle8) {
        if (!DescomprimirRle8(xCuadro, pixeles))
            return Fallar(QStringLiteral("an RLE8 frame is damaged"));
    } else {
        const qint32 paso = (mAncho + 3) / 4 * 4;
        if (xCuadro.size() < static_cast<qsizetype>(paso) * mAlto)
            return Fallar(QStringLiteral("a frame is short"));
        for (qint32 y = 0; y < mAlto; ++y) {
            const qint32 fila = mAbajoArriba ? mAlto - 1 - y : y;
            std::copy_n(xCuadro.data() + qsizetype(y) * paso, mAncho,
                        pixeles.data() + qsizetype(fila) * mAncho);
        }
    }
    mCuadros.append(pixeles);
    return true;
}

// Runs of one index, literal runs, line ends, skips and the end of the picture; a run or skip
// past the picture's edge is damage.
bool clsClipAvi::DescomprimirRle8(QByteArrayView xCuadro, QByteArray& xPixeles) const {
    clsLectorBytes lector(xCuadro);
    qint32 x = 0, y = 0;
    const auto poner = [&](quint8 xIndice) {
        if (x >= mAncho || y >= mAlto) return false;
        const qint32 fila = mAbajoArriba ? mAlto - 1 - y : y;
        xPixeles[fila * mAncho + x++] = static_cast<char>(xIndice);
        return true;
    };
    quint8 cantidad = 0, valor = 0;
    while (lector.LeerU8(cantidad) && lector.LeerU8(valor)) {
        if (cantidad > 0) {
            for (int i = 0; i < cantidad; ++i)
                if (!poner(valor)) return false;
        } else if (valor == 0) {
            x = 0;
            ++y;
        } else if (valor == 1) {
            return true;
        } else if (valor == 2) {
            quint8 dx = 0, dy = 0;
            if (!lector.LeerU8(dx) || !lector.LeerU8(dy)) return false;
            x += dx;
            y += dy;
        } else {
            for (int i = 0; i < valor; ++i) {
                quint8 indice = 0;
                if (!lector.LeerU8(indice) || !poner(indice)) return false;
            }
            if (valor % 2 == 1 && !lector.Saltar(1)) return false;
        }
    }
    return true;
}
