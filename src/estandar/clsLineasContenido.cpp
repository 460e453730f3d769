#include "estandar/clsLineasContenido.h"

void clsLineasContenido::Crecer(size_t xNecesario) {
    clsBloqueMemoria mayor(qsizetype(std::max(xNecesario, 2 * size_t(mBloque.Capacidad()))));
    std::memcpy(mayor.Datos(), mBloque.Datos(), mUsado);
    mBloque = std::move(mayor);
}

void clsLineasContenido::Empezar(const char* xNombre) {
    Literal(xNombre);
    Literal(":");
}

void clsLineasContenido::EmpezarEnGrupo(int xGrupo, const char* xNombre) {
    Literal("item");
    Numero(xGrupo);
    Literal(".");
    Empezar(xNombre);
}

void clsLineasContenido::Terminar() {
    char* destino = Reservar(2);
    std::memcpy(destino, "\r\n", 2);
    Usado(destino + 2);
    mLargo = 0;
}

void clsLineasContenido::Literal(const char* xTexto) {
    Ascii(xTexto, std::strlen(xTexto));
}

// ASCII in runs as long as the line has room for.
void clsLineasContenido::Ascii(const char* xTexto, size_t xLargo) {
    char* destino = Reservar(xLargo);
    while (xLargo > 0) {
        if (mLargo == LargoLinea) {
            std::memcpy(destino, "\r\n ", 3);
            destino += 3;
            mLargo = 1;
        }
        const size_t tramo = std::min(xLargo, size_t(LargoLinea - mLargo));
        std::memcpy(destino, xTexto, tramo);
        destino += tramo;
        xTexto += tramo;
        xLargo -= tramo;
        mLargo += int(tramo);
    }
    Usado(destino);
}

void clsLineasContenido::Cifras(int xValor, int xAncho) {
    char cifras[12];
    int cantidad = 0;
    do {
        cifras[11 - cantidad++] = char('0' + xValor % 10);
        xValor /= 10;
    } while (xValor > 0 || cantidad < xAncho);
    Ascii(cifras + 12 - cantidad, size_t(cantidad));
}

void clsLineasContenido::Numero(int xValor) {
    if (xValor < 0) Literal("-");
    Cifras(xValor < 0 ? -xValor : xValor, 1);
}

void clsLineasContenido::Dia(const QDate& xDia) {
    int anio = 0, mes = 0, dia = 0;
    xDia.getDate(&anio, &mes, &dia);
    Cifras(anio * 10000 + mes * 100 + dia, 8);
}

void clsLineasContenido::DiaHora(const QDate& xDia, const QTime& xHora) {
    Dia(xDia);
    Literal("T");
    Cifras(xHora.hour() * 10000 + xHora.minute() * 100 + xHora.second(), 6);
}

// One pass over the text: escapes, UTF-8 and folds written straight into the buffer, which has
// room for the longest a text of that length can take (three octets per code unit).
void clsLineasContenido::Texto(QStringView xTexto) {
    const qsizetype largo = xTexto.size();
    char* destino = Reservar(3 * size_t(largo));
    const char16_t* letras = xTexto.utf16();
    for (qsizetype k = 0; k < largo; ++k) {
        const char16_t letra = letras[k];
        char octetos[4];
        if (letra < 0x80 && !Especial(letra) && mLargo < LargoLinea) {
            // A run of plain ASCII, as long as the line has room for.
            const qsizetype fin = std::min(largo, k + (LargoLinea - mLargo));
            qsizetype j = k;
            for (; j < fin && letras[j] < 0x80 && !Especial(letras[j]); ++j)
                *destino++ = char(letras[j]);
            mLargo += int(j - k);
            k = j - 1;
            continue;
        }
        if (letra < 0x80) {
            switch (letra) {
            case u'\\':
            case u';':
            case u',':
                octetos[0] = '\\';
                octetos[1] = char(letra);
                destino = Octetos(destino, octetos, 2);
                continue;
            case u'\r':
                if (k + 1 < largo && xTexto[k + 1] == u'\n') ++k;
                [[fallthrough]];
            case u'\n':
                destino = Octetos(destino, "\\n", 2);
                continue;
            default:
                octetos[0] = char(letra);
                destino = Octetos(destino, octetos, 1);
                continue;
            }
        }
        if (letra < 0x800) {
            octetos[0] = char(0xC0 | (letra >> 6));
            octetos[1] = char(0x80 | (letra & 0x3F));
            destino = Octetos(destino, octetos, 2);
        } else if (QChar::isHighSurrogate(letra) && k + 1 < largo &&
                   QChar::isLowSurrogate(xTexto[k + 1].unicode())) {
            const char32_t punto = QChar::surrogateToUcs4(letra, xTexto[++k].unicode());
            octetos[0] = char(0xF0 | (punto >> 18));
            octetos[1] = char(0x80 | ((punto >> 12) & 0x3F));
            octetos[2] = char(0x80 | ((punto >> 6) & 0x3F));
            octetos[3] = char(0x80 | (punto & 0x3F));
            destino = Octetos(destino, octetos, 4);
        } else {
            // A lone surrogate is no character: it is written as the replacement character.
            const char16_t unidad = QChar::isSurrogate(letra) ? 0xFFFD : letra;
            octetos[0] = char(0xE0 | (unidad >> 12));
            octetos[1] = char(0x80 | ((unidad >> 6) & 0x3F));
            octetos[2] = char(0x80 | (unidad & 0x3F));
            destino = Octetos(destino, octetos, 3);
        }
    }
    Usado(destino);
}

void clsLineasContenido::Linea(const char* xNombre, const char* xValor) {
    Empezar(xNombre);
    Literal(xValor);
    Terminar();
}

void clsLineasContenido::LineaTexto(const char* xNombre, QStringView xTexto) {
    Empezar(xNombre);
    Texto(xTexto);
    Terminar();
}
