#pragma once

#include <QStringView>
#include <QtGlobal>
#include <algorithm>
#include <cstring>
#include <vector>

// A text gathered as UTF-16 code units in a buffer that is kept and only grows, so that the texts
// of thousands of records are built one after another without allocating. Vista shows the text;
// Vaciar starts the next one in the same buffer.
class clsBufferTexto {
public:
    qsizetype Cantidad() const { return mCantidad; }
    QStringView Vista() const { return QStringView(mLetras.data(), mCantidad); }
    void Vaciar() { mCantidad = 0; }

    // Room for xMas more code units at the end; Usar then counts those written there.
    char16_t* Reservar(qsizetype xMas) {
        const auto necesario = static_cast<size_t>(mCantidad + xMas);
        if (necesario > mLetras.size())
            mLetras.resize(std::max<size_t>(necesario, 2 * mLetras.size()));
        return mLetras.data() + mCantidad;
    }
    void Usar(qsizetype xCantidad) { mCantidad += xCantidad; }

    void Letra(char16_t xLetra) {
        *Reservar(1) = xLetra;
        ++mCantidad;
    }
    // Latin-1 letters.
    void Letras(const char* xLetras, qsizetype xCantidad) {
        char16_t* destino = Reservar(xCantidad);
        for (qsizetype k = 0; k < xCantidad; ++k)
            destino[k] = static_cast<uchar>(xLetras[k]);
        mCantidad += xCantidad;
    }
    void Texto(QStringView xTexto) {
        const qsizetype cantidad = xTexto.size();
        char16_t* destino = Reservar(cantidad);
        const char16_t* origen = xTexto.utf16();
        // Separators and marks are a letter or two: a call to memcpy would cost more.
        if (cantidad <= 8) {
            for (qsizetype k = 0; k < cantidad; ++k)
                destino[k] = origen[k];
        } else {
            std::memcpy(destino, origen, sizeof(char16_t) * static_cast<size_t>(cantidad));
        }
        mCantidad += cantidad;
    }
    // The number in decimal, with zeros in front up to xAncho digits.
    void Entero(qint64 xValor, int xAncho = 1) {
        mCantidad = EscribirEntero(Reservar(24), xValor, xAncho) - mLetras.data();
    }
    // The same at xDestino, which has room for 21 code units and for xAncho (at most 20) more;
    // returns the end.
    static char16_t* EscribirEntero(char16_t* xDestino, qint64 xValor, int xAncho = 1) {
        quint64 valor =
            xValor < 0 ? 0 - static_cast<quint64>(xValor) : static_cast<quint64>(xValor);
        if (xValor < 0) *xDestino++ = u'-';
        int cifras = 1;
        for (quint64 resto = valor; resto >= 10; resto /= 10)
            ++cifras;
        char16_t* const fin = xDestino + std::max(cifras, xAncho);
        char16_t* p = fin;
        // Two digits per division, from a table of the pairs 00 to 99.
        static constexpr char Pares[] = "0001020304050607080910111213141516171819"
                                        "2021222324252627282930313233343536373839"
                                        "4041424344454647484950515253545556575859"
                                        "6061626364656667686970717273747576777879"
                                        "8081828384858687888990919293949596979899";
        while (valor >= 100) {
            const auto par = static_cast<unsigned>(valor % 100) * 2;
            valor /= 100;
            *--p = static_cast<char16_t>(Pares[par + 1]);
            *--p = static_cast<char16_t>(Pares[par]);
        }
        if (valor >= 10) {
            *--p = static_cast<char16_t>(Pares[valor * 2 + 1]);
            *--p = static_cast<char16_t>(Pares[valor * 2]);
        } else {
            *--p = static_cast<char16_t>(u'0' + valor);
        }
        while (p > xDestino)
            *--p = u'0';
        return fin;
    }

    // Drops the last xCantidad code units.
    void Recortar(qsizetype xCantidad) {
        mCantidad = std::max<qsizetype>(mCantidad - xCantidad, 0);
    }
    // Drops the blanks around the text written from xInicio on.
    void RecortarBlancos(qsizetype xInicio) {
        while (mCantidad > xInicio && mLetras[mCantidad - 1] == u' ')
            --mCantidad;
        qsizetype primero = xInicio;
        while (primero < mCantidad && mLetras[primero] == u' ')
            ++primero;
        if (primero == xInicio) return;
        std::memmove(mLetras.data() + xInicio, mLetras.data() + primero,
                     sizeof(char16_t) * static_cast<size_t>(mCantidad - primero));
        mCantidad -= primero - xInicio;
    }

private:
    std::vector<char16_t> mLetras = std::vector<char16_t>(256);
    qsizetype mCantidad = 0;
};
