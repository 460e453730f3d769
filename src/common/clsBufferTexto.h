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
        // Days, months, hours, minutes and seconds: the common case, written straight.
        if (xValor >= 0 && xValor < 100 && xAncho <= 2) {
            char16_t* destino = Reservar(2);
            if (xValor >= 10 || xAncho == 2) *destino++ = static_cast<char16_t>(u'0' + xValor / 10);
            *destino++ = static_cast<char16_t>(u'0' + xValor % 10);
            mCantidad = destino - mLetras.data();
            return;
        }
        char cifras[24];
        char* const fin = cifras + sizeof cifras;
        char* inicio = fin;
        quint64 valor =
            xValor < 0 ? 0 - static_cast<quint64>(xValor) : static_cast<quint64>(xValor);
        // Two digits per division.
        while (valor >= 100) {
            const auto par = static_cast<unsigned>(valor % 100);
            valor /= 100;
            *--inicio = static_cast<char>('0' + par % 10);
            *--inicio = static_cast<char>('0' + par / 10);
        }
        if (valor >= 10) *--inicio = static_cast<char>('0' + valor % 10);
        *--inicio = static_cast<char>('0' + (valor >= 10 ? valor / 10 : valor));
        while (fin - inicio < xAncho && inicio > cifras + 1)
            *--inicio = '0';
        if (xValor < 0) *--inicio = '-';
        Letras(inicio, fin - inicio);
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
