#pragma once

#include "cli/modTextoSalida.h"
#include "common/clsBloqueMemoria.h"

#include <QString>
#include <QStringEncoder>
#include <QStringView>
#include <algorithm>
#include <cstdio>
#include <initializer_list>
#include <vector>

// What a command prints; written out only when the whole command succeeded. The text is kept as
// UTF-8 in blocks that are filled in place and never moved, each backed in one call: a listing
// of tens of thousands of records is megabytes.
class clsSalida {
public:
    // One item, escaped.
    void Linea(QStringView xTexto) { LineaTal(modTextoSalida::Escapado(xTexto, mEspacio)); }
    // Items separated by tabs, each escaped.
    void Linea(std::initializer_list<QStringView> xItems) {
        QString linea;
        for (const QStringView item : xItems) {
            if (item.data() != xItems.begin()->data()) linea += QLatin1Char('\t');
            linea += modTextoSalida::Escapado(item, mEspacio);
        }
        LineaTal(linea);
    }
    // A record's text, whose fields xTexto separates by kMarcaSeparador when its separator
    // needs escaping (see modTextoSalida::SeparadorLectura).
    void Registro(QStringView xTexto, QStringView xSeparador) {
        LineaTal(modTextoSalida::Escapado(xTexto, mEspacio, xSeparador));
    }
    // A record's line: its ID, a tab and its text, as Registro writes it.
    void Registro(qint64 xNumero, QStringView xTexto, QStringView xSeparador) {
        Linea(xNumero, modTextoSalida::Escapado(xTexto, mEspacio, xSeparador));
    }
    // A number, a tab and a text as it is: the line of a record that needs no escaping.
    void Linea(qint64 xNumero, QStringView xTexto) {
        char cifras[24];
        char* const finCifras = cifras + sizeof cifras;
        char* inicio = finCifras;
        quint64 valor = xNumero < 0 ? 0 - quint64(xNumero) : quint64(xNumero);
        do {
            *--inicio = char('0' + valor % 10);
            valor /= 10;
        } while (valor != 0);
        if (xNumero < 0) *--inicio = '-';
        const qsizetype largo = finCifras - inicio;
        char* destino = Espacio(largo + 1 + mCodificador.requiredSpace(xTexto.size()) + 1);
        destino = std::copy(inicio, finCifras, destino);
        *destino++ = '\t';
        char* fin = mCodificador.appendToBuffer(destino, xTexto);
        *fin++ = '\n';
        Usar(fin);
    }
    void Escribir(std::FILE* xDestino) const {
        for (const Bloque& bloque : mBloques)
            std::fwrite(bloque.Memoria.Datos(), 1, size_t(bloque.Usado), xDestino);
    }
    // Puts what xOtra holds after what this holds, without copying it.
    void Anexar(clsSalida&& xOtra) {
        for (Bloque& bloque : xOtra.mBloques)
            mBloques.push_back(std::move(bloque));
        xOtra.mBloques.clear();
    }

private:
    // A line as it is.
    void LineaTal(QStringView xTexto) {
        char* fin = mCodificador.appendToBuffer(
            Espacio(mCodificador.requiredSpace(xTexto.size()) + 1), xTexto);
        *fin++ = '\n';
        Usar(fin);
    }
    // Most commands print a few lines; a listing grows by large blocks.
    static constexpr qsizetype PrimerBloque = 16 * 1024;
    static constexpr qsizetype TamanoBloque = 2 * 1024 * 1024;
    struct Bloque {
        clsBloqueMemoria Memoria;
        qsizetype Usado = 0;
        char* Fin() const { return Memoria.Datos() + Usado; }
        qsizetype Libre() const { return Memoria.Capacidad() - Usado; }
    };

    // Room for xCantidad more bytes at the end of the last block.
    char* Espacio(qsizetype xCantidad) {
        if (mBloques.empty() || mBloques.back().Libre() < xCantidad)
            mBloques.push_back(
                {clsBloqueMemoria(qMax(mBloques.empty() ? PrimerBloque : TamanoBloque, xCantidad)),
                 0});
        return mBloques.back().Fin();
    }
    void Usar(const char* xFin) { mBloques.back().Usado = xFin - mBloques.back().Memoria.Datos(); }

    std::vector<Bloque> mBloques;
    QString mEspacio; // the escaped text of the line being written
    QStringEncoder mCodificador{QStringEncoder::Utf8, QStringEncoder::Flag::Stateless};
};
