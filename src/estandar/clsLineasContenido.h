#pragma once

#include "common/clsBloqueMemoria.h"

#include <QByteArrayView>
#include <QDate>
#include <QStringView>
#include <QTime>
#include <algorithm>
#include <cstring>
#include <utility>

// The content lines vCard (RFC 2426) and iCalendar (RFC 5545) files are made of, written straight
// into one UTF-8 buffer: NAME:VALUE, folded so that no line passes 75 octets (a continuation line
// starts with a blank), never inside a character or an escape, each ended by CR LF. A line is
// begun with Empezar, filled with texts (escaped) and literals (written as they are) and ended
// with Terminar.
class clsLineasContenido {
public:
    static constexpr int LargoLinea = 75;

    // xCapacidad: about how many octets the file will take, so the buffer is made once.
    explicit clsLineasContenido(qsizetype xCapacidad = 64 * 1024) : mBloque(xCapacidad) {}

    void Empezar(const char* xNombre);
    // The name of a property in a group ("item1.X-ABLabel"): the group's number is written.
    void EmpezarEnGrupo(int xGrupo, const char* xNombre);
    void Terminar();

    // A text value: backslash, semicolon and comma escaped with a backslash, each line break
    // (LF, CR LF or CR) written as \n.
    void Texto(QStringView xTexto);
    // ASCII written as it is: separators, parameters, numbers.
    void Literal(const char* xTexto);
    void Numero(int xValor);
    // 20210220 and 20210220T083000.
    void Dia(const QDate& xDia);
    void DiaHora(const QDate& xDia, const QTime& xHora);

    // Literal lines.
    void Linea(const char* xNombre, const char* xValor);
    void LineaTexto(const char* xNombre, QStringView xTexto);

    QByteArrayView Bytes() const { return QByteArrayView(mBloque.Datos(), qsizetype(mUsado)); }

private:
    // Room for xOctetos more octets and the folds they may need; returns where they go.
    char* Reservar(size_t xOctetos) {
        const size_t necesario = mUsado + xOctetos + xOctetos / 24 + 8;
        if (necesario > size_t(mBloque.Capacidad())) Crecer(necesario);
        return mBloque.Datos() + mUsado;
    }
    void Crecer(size_t xNecesario);
    // Writes at xDestino the octets of one character or escape, after a fold when they do not
    // fit on the line; returns the end.
    char* Octetos(char* xDestino, const char* xOctetos, int xCantidad) {
        if (mLargo + xCantidad > LargoLinea) {
            std::memcpy(xDestino, "\r\n ", 3);
            xDestino += 3;
            mLargo = 1;
        }
        std::memcpy(xDestino, xOctetos, size_t(xCantidad));
        mLargo += xCantidad;
        return xDestino + xCantidad;
    }
    void Usado(const char* xFin) { mUsado = size_t(xFin - mBloque.Datos()); }
    void Ascii(const char* xTexto, size_t xLargo);
    // The characters a text value escapes.
    static bool Especial(char16_t xLetra) {
        return xLetra == u'\\' || xLetra == u';' || xLetra == u',' || xLetra == u'\n' ||
               xLetra == u'\r';
    }
    void Cifras(int xValor, int xAncho);

    clsBloqueMemoria mBloque;
    size_t mUsado = 0;
    int mLargo = 0; // octets on the physical line being written
};
