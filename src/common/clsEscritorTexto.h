#pragma once

#include <QString>
#include <QtGlobal>

// Gathers a text in a local buffer and hands it to the destination in one append: the record
// reader builds hundreds of thousands of these texts.
class clsEscritorTexto {
public:
    explicit clsEscritorTexto(QString& xDestino) : mDestino(xDestino) {}
    ~clsEscritorTexto() { Vaciar(); }
    clsEscritorTexto(const clsEscritorTexto&) = delete;
    clsEscritorTexto& operator=(const clsEscritorTexto&) = delete;

    void Letra(char16_t xLetra) {
        if (mCantidad == Capacidad) Vaciar();
        mLetras[mCantidad++] = xLetra;
    }
    void Letras(const char* xLetras, qsizetype xCantidad) {
        if (xCantidad > Capacidad - mCantidad) Vaciar();
        for (qsizetype k = 0; k < xCantidad; ++k)
            mLetras[mCantidad++] = static_cast<uchar>(xLetras[k]);
    }
    void Texto(const QString& xTexto) {
        if (xTexto.size() > Capacidad - mCantidad) {
            Vaciar();
            if (xTexto.size() > Capacidad) {
                mDestino += xTexto;
                return;
            }
        }
        const QChar* letras = xTexto.constData();
        for (qsizetype k = 0; k < xTexto.size(); ++k)
            mLetras[mCantidad++] = letras[k].unicode();
    }
    void Entero(int xValor, int xAncho) {
        // Days, months, hours, minutes and seconds: the common case, written straight.
        if (xValor >= 0 && xValor < 100 && xAncho <= 2 && mCantidad + 2 <= Capacidad) {
            if (xValor >= 10 || xAncho == 2) mLetras[mCantidad++] = u'0' + xValor / 10;
            mLetras[mCantidad++] = u'0' + xValor % 10;
            return;
        }
        char cifras[16] = {};
        char* const fin = cifras + sizeof cifras;
        char* inicio = fin;
        unsigned valor = static_cast<unsigned>(xValor < 0 ? -xValor : xValor);
        do {
            *--inicio = static_cast<char>('0' + valor % 10);
            valor /= 10;
        } while (valor != 0);
        while (fin - inicio < xAncho && inicio > cifras + 1)
            *--inicio = '0';
        if (xValor < 0) *--inicio = '-';
        Letras(inicio, fin - inicio);
    }

private:
    void Vaciar() {
        if (mCantidad == 0) return;
        mDestino.append(reinterpret_cast<const QChar*>(mLetras), mCantidad);
        mCantidad = 0;
    }

    static constexpr int Capacidad = 64;
    QString& mDestino;
    char16_t mLetras[Capacidad];
    int mCantidad = 0;
};
