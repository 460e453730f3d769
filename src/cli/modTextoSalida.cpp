#include "cli/modTextoSalida.h"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace modTextoSalida {

namespace {

constexpr char16_t Letras[4] = {u'\t', u'\n', u'\r', u'\\'};

void ContarUna(char16_t xLetra, std::array<qsizetype, 4>& xCuenta) {
    for (int k = 0; k < 4; ++k)
        xCuenta[k] += xLetra == Letras[k] ? 1 : 0;
}

} // namespace

QStringView Escapado(QStringView xTexto, QString& xEspacio, QStringView xSeparador) {
    const auto especial = [](char16_t x) {
        return x == u'\t' || x == u'\n' || x == u'\r' || x == u'\\' || x == kMarcaSeparador;
    };
    const char16_t* const inicio = xTexto.utf16();
    const char16_t* const fin = inicio + xTexto.size();
    if (std::find_if(inicio, fin, especial) == fin) return xTexto;
    // Written in place into room for the longest result: every character a pair, or a separator.
    xEspacio.resize(xTexto.size() * qMax<qsizetype>(2, xSeparador.size()));
    char16_t* const comienzo = reinterpret_cast<char16_t*>(xEspacio.data());
    char16_t* salida = comienzo;
    const auto par = [&salida](char16_t xLetra) {
        *salida++ = u'\\';
        *salida++ = xLetra;
    };
    for (const char16_t* letra = inicio; letra != fin; ++letra) {
        switch (*letra) {
        case u'\t':
            par(u't');
            break;
        case u'\n':
            par(u'n');
            break;
        case u'\r':
            par(u'r');
            break;
        case u'\\':
            par(u'\\');
            break;
        case kMarcaSeparador:
            salida = std::copy(xSeparador.utf16(), xSeparador.utf16() + xSeparador.size(), salida);
            break;
        default:
            *salida++ = *letra;
        }
    }
    xEspacio.resize(salida - comienzo);
    return xEspacio;
}

QString Escapado(QStringView xTexto) {
    QString espacio;
    return Escapado(xTexto, espacio).toString();
}

QString SeparadorLectura(const QString& xSeparador) {
    QString espacio;
    return Escapado(xSeparador, espacio).size() == xSeparador.size() ? xSeparador
                                                                     : QString(kMarcaSeparador);
}

std::array<qsizetype, 4> Especiales(QStringView xTexto) {
    std::array<qsizetype, 4> cuenta{};
    const char16_t* letra = xTexto.utf16();
    const char16_t* const fin = letra + xTexto.size();
#if defined(__SSE2__)
    // Each equal letter adds -1 to its lane, so the sums count down; a text has fewer than
    // 8 x 32767 of any. The four sums are kept apart so that each step is a compare and an add.
    const __m128i tab = _mm_set1_epi16(static_cast<short>(Letras[0]));
    const __m128i avance = _mm_set1_epi16(static_cast<short>(Letras[1]));
    const __m128i retorno = _mm_set1_epi16(static_cast<short>(Letras[2]));
    const __m128i barra = _mm_set1_epi16(static_cast<short>(Letras[3]));
    __m128i tabs = _mm_setzero_si128();
    __m128i avances = _mm_setzero_si128();
    __m128i retornos = _mm_setzero_si128();
    __m128i barras = _mm_setzero_si128();
    const auto contar = [&](__m128i xOcho) {
        tabs = _mm_add_epi16(tabs, _mm_cmpeq_epi16(xOcho, tab));
        avances = _mm_add_epi16(avances, _mm_cmpeq_epi16(xOcho, avance));
        retornos = _mm_add_epi16(retornos, _mm_cmpeq_epi16(xOcho, retorno));
        barras = _mm_add_epi16(barras, _mm_cmpeq_epi16(xOcho, barra));
    };
    for (; fin - letra >= 8; letra += 8)
        contar(_mm_loadu_si128(reinterpret_cast<const __m128i*>(letra)));
    // The last letters: the eight that end the text, those already counted put out of reach.
    if (letra != fin && xTexto.size() >= 8) {
        static constexpr short Mascaras[16] = {0,  0,  0,  0,  0,  0,  0,  0,
                                               -1, -1, -1, -1, -1, -1, -1, -1};
        const __m128i nuevas =
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(Mascaras + (fin - letra)));
        contar(_mm_or_si128(
            _mm_andnot_si128(nuevas, _mm_set1_epi16(-1)),
            _mm_and_si128(nuevas, _mm_loadu_si128(reinterpret_cast<const __m128i*>(fin - 8)))));
        letra = fin;
    }
    // The four sums side by side, each lane pair added, then the halves.
    const __m128i menosUno = _mm_set1_epi16(-1);
    const __m128i bajas =
        _mm_unpacklo_epi64(_mm_madd_epi16(tabs, menosUno), _mm_madd_epi16(avances, menosUno));
    const __m128i altas =
        _mm_unpackhi_epi64(_mm_madd_epi16(tabs, menosUno), _mm_madd_epi16(avances, menosUno));
    const __m128i bajas2 =
        _mm_unpacklo_epi64(_mm_madd_epi16(retornos, menosUno), _mm_madd_epi16(barras, menosUno));
    const __m128i altas2 =
        _mm_unpackhi_epi64(_mm_madd_epi16(retornos, menosUno), _mm_madd_epi16(barras, menosUno));
    alignas(16) qint32 partes[8];
    _mm_store_si128(reinterpret_cast<__m128i*>(partes), _mm_add_epi32(bajas, altas));
    _mm_store_si128(reinterpret_cast<__m128i*>(partes + 4), _mm_add_epi32(bajas2, altas2));
    for (int k = 0; k < 4; ++k)
        cuenta[k] = partes[2 * k] + partes[2 * k + 1];
#endif
    for (; letra != fin; ++letra)
        ContarUna(*letra, cuenta);
    return cuenta;
}

} // namespace modTextoSalida
