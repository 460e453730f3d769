#include "common/ErrorVB.h"
#include "common/modFecha.h"
#include "data/formato/modFuncionesConversion.h"
#include "support/modPrueba.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>

using namespace modFuncionesConversion;

namespace {

constexpr qint32 SinError = 0;

qint32 NumeroDeError(const std::function<void()>& xAccion) {
    return modPrueba::ErrorDe(xAccion).Numero();
}

TEST(LeerInt, JuntaLosBytesSaltandoLosCeros) {
    const struct {
        const char* bytes;
        qint16 valor;
    } casos[] = {
        {"0005", 5},   {"0500", 5},      {"0102", 258}, {"ffff", -1},  {"0000", 0},
        {"8000", 128}, {"8001", -32767}, {"00ff", 255}, {"ff00", 255}, {"7fff", 32767},
    };
    for (const auto& caso : casos) {
        const QByteArray buffer = QByteArray::fromHex(QByteArray("aa") + caso.bytes);
        qint32 pos = 1;
        EXPECT_EQ(LeerInt(buffer, pos), caso.valor) << caso.bytes;
        EXPECT_EQ(pos, 3);
    }
}

TEST(Leer, NumerosGrandes) {
    const struct {
        const char* bytes;
        qint32 entero;
        float simple;
    } casos[] = {
        {"00000001", 1, 1.4e-45f},
        {"ffffffff", -1, std::numeric_limits<float>::quiet_NaN()},
        {"80000000", std::numeric_limits<qint32>::min(), -0.0f},
        {"7fffffff", std::numeric_limits<qint32>::max(), std::numeric_limits<float>::quiet_NaN()},
        {"3fc00000", 0x3fc00000, 1.5f},
        {"bf800000", static_cast<qint32>(0xbf800000u), -1.0f},
        {"00011170", 70000, 9.809089e-41f},
    };
    for (const auto& caso : casos) {
        const QByteArray buffer = QByteArray::fromHex(caso.bytes);
        qint32 pos = 0;
        EXPECT_EQ(LeerLong(buffer, pos), caso.entero) << caso.bytes;
        EXPECT_EQ(pos, 4);
        pos = 0;
        const float simple = LeerSingle(buffer, pos);
        if (std::isnan(caso.simple))
            EXPECT_TRUE(std::isnan(simple)) << caso.bytes;
        else
            EXPECT_FLOAT_EQ(simple, caso.simple) << caso.bytes;
        EXPECT_EQ(pos, 4);
    }
}

TEST(LeerFecha, LasDosEpocas) {
    const struct {
        const char* bytes;
        QDateTime fecha;
    } casos[] = {
        {"00000000", modFecha::Crear(1904, 1, 1)},
        {"7c25b080", modFecha::Crear(1970, 1, 1)},
        {"7fe81780", modFecha::Crear(1972, 1, 1)},
        {"7fe81781", modFecha::Crear(1972, 1, 1, 0, 0, 1)},
        {"7fffffff", modFecha::Crear(1972, 1, 19, 3, 14, 7)},
        {"80000000", modFecha::Crear(1972, 1, 19, 3, 14, 8)},
        {"bc1f2d65", modFecha::Crear(2004, 1, 5, 15, 4, 5)},
        {"c0000000", modFecha::Crear(2006, 1, 27, 16, 51, 12)},
        {"ffffffff", modFecha::Crear(2040, 2, 6, 6, 28, 15)},
    };
    for (const auto& caso : casos) {
        const QByteArray buffer = QByteArray::fromHex(caso.bytes);
        qint32 pos = 0;
        EXPECT_EQ(LeerFecha(buffer, pos), caso.fecha) << caso.bytes;
        EXPECT_EQ(pos, 4);
    }
}

TEST(EscribirFecha, LosSegundosYSusLimites) {
    const struct {
        QDateTime fecha;
        const char* bytes; // nullptr: overflow
    } casos[] = {
        {modFecha::Crear(1904, 1, 1), "00000000"},
        {modFecha::Crear(1970, 1, 1), "7c25b080"},
        {modFecha::Crear(1972, 1, 1), "7fe81780"},
        {modFecha::Crear(1972, 1, 19, 3, 14, 7), "7fffffff"},
        {modFecha::Crear(1972, 1, 19, 3, 14, 8), nullptr},
        {modFecha::Crear(1972, 1, 19, 3, 14, 9), "80000001"},
        {modFecha::Crear(2004, 1, 5, 15, 4, 5), "bc1f2d65"},
        {modFecha::Crear(2040, 2, 6, 6, 28, 15), "ffffffff"},
        // Past 2^32 seconds the count wraps around to the first epoch.
        {modFecha::Crear(2040, 2, 6, 6, 28, 16), "00000000"},
        {modFecha::Crear(1903, 12, 31, 23, 59, 59), "ffffffff"},
        {modFecha::Crear(1835, 12, 12, 20, 45, 52), "80000000"},
        {modFecha::Crear(1835, 12, 12, 20, 45, 51), nullptr},
    };
    for (const auto& caso : casos) {
        QByteArray buffer(6, '\x55');
        qint32 pos = 1;
        const qint32 numero = NumeroDeError([&] { EscribirFecha(buffer, pos, caso.fecha); });
        if (!caso.bytes) {
            EXPECT_EQ(numero, ErrorVB::Desbordamiento) << caso.fecha.toString().toStdString();
            EXPECT_EQ(buffer, QByteArray(6, '\x55'));
            continue;
        }
        ASSERT_EQ(numero, SinError) << caso.fecha.toString().toStdString();
        EXPECT_EQ(buffer.toHex(), QByteArray("55") + caso.bytes + "55");
        EXPECT_EQ(pos, 5);
    }
}

TEST(Escribir, EnterosEnOrdenDeRed) {
    QByteArray buffer(6, '\0');
    qint32 pos = 0;
    EscribirInt(buffer, pos, -2);
    EscribirLong(buffer, pos, 70000);
    EXPECT_EQ(buffer.toHex(), "fffe00011170");
    EXPECT_EQ(pos, 6);
    pos = 0;
    EscribirInt(buffer, pos, 258);
    EscribirLong(buffer, pos, std::numeric_limits<qint32>::min());
    EXPECT_EQ(buffer.toHex(), "010280000000");
}

TEST(LeerTexto, HastaElCeroPorLaPaginaDeCodigos) {
    const struct {
        const char* bytes;
        qint32 desde;
        QString texto;
        qint32 despues;
    } casos[] = {
        {"41420043", 0, "AB", 3},
        {"41420043", 2, "", 3},
        {"e9808100", 0, QString::fromUtf8("\u00e9\u20ac\u0081"), 4},
        {"2020782000", 0, "  x ", 5},
    };
    for (const auto& caso : casos) {
        const QByteArray buffer = QByteArray::fromHex(caso.bytes);
        qint32 pos = caso.desde;
        EXPECT_EQ(LeerTexto(buffer, pos), caso.texto) << caso.bytes;
        EXPECT_EQ(pos, caso.despues);
    }
}

// A lead byte and its trail byte make one character; the position still counts bytes, and a
// trail byte that looks like ASCII (0x5C, 0x40) stays inside its character.
TEST(LeerTexto, LasPaginasDeVariosBytes) {
    const struct {
        const char* pagina;
        const char* bytes;
        QString texto;
    } casos[] = {
        {"ISO-8859-7", "d9", QString::fromUtf8("\u03a9")},
        {"Shift_JIS", "93fa967b8cea835c814040",
         QString::fromUtf8("\u65e5\u672c\u8a9e\u30bd\u3000@")},
        {"windows-932", "8341", QString::fromUtf8("\u30a2")},
        {"Big5", "a4a4a4e5", QString::fromUtf8("\u4e2d\u6587")},
        {"GBK", "d6d0cec4", QString::fromUtf8("\u4e2d\u6587")},
        {"EUC-KR", "c7d1b1b9", QString::fromUtf8("\ud55c\uad6d")},
    };
    for (const auto& caso : casos) {
        const QByteArray buffer = QByteArray::fromHex(QByteArray("41") + caso.bytes + "0042");
        const TablaCodigoPagina& tabla = TablaCodigoPagina::Para(caso.pagina);
        qint32 pos = 0;
        EXPECT_EQ(LeerTexto(buffer, pos, tabla), "A" + caso.texto) << caso.pagina;
        EXPECT_EQ(pos, buffer.size() - 1) << caso.pagina;
        QByteArray escrito(buffer.size() - 1, '\xff');
        pos = 0;
        EscribirTexto(escrito, pos, "A" + caso.texto, tabla);
        EXPECT_EQ(escrito.toHex(), buffer.chopped(1).toHex() + "00") << caso.pagina;
    }
}

TEST(EscribirTexto, ElTerminadorYElByteDeReserva) {
    const struct {
        const char* nombre;
        const char* antes;
        qint32 desde;
        QString texto;
        const char* despues;
        qint32 posicion;
    } casos[] = {
        // The text reaches the end: the buffer grows one byte past the terminator.
        {"alFinal", "0000000000", 3, "AB", "00000041420000", 6},
        {"adentro", "ffffffffff", 0, "AB", "414200ffff", 3},
        {"vacioAlFinal", "ff", 1, "", "ff0000", 2},
        {"terminadorUltimo", "ffffffff", 0, "ABC", "4142430000", 4},
        {"ansi", "ffffff", 0, QString::fromUtf8("\u00e9\u20ac"), "e9800000", 3},
    };
    for (const auto& caso : casos) {
        QByteArray buffer = QByteArray::fromHex(caso.antes);
        qint32 pos = caso.desde;
        EscribirTexto(buffer, pos, caso.texto);
        EXPECT_EQ(buffer.toHex(), caso.despues) << caso.nombre;
        EXPECT_EQ(pos, caso.posicion) << caso.nombre;
    }
}

TEST(Conversiones, FueraDelBufferYDesbordes) {
    const QByteArray corto = QByteArray::fromHex("414243");
    const qint32 maximo = std::numeric_limits<qint32>::max();
    QByteArray copia = corto;
    const struct {
        const char* nombre;
        std::function<void(qint32&)> accion;
        qint32 pos;
        qint32 numero;
    } casos[] = {
        {"intAlFinal", [&](qint32& p) { LeerInt(corto, p); }, 2, ErrorVB::SubindiceFueraDeRango},
        {"intNegativo", [&](qint32& p) { LeerInt(corto, p); }, -1, ErrorVB::SubindiceFueraDeRango},
        {"longCorto", [&](qint32& p) { LeerLong(corto, p); }, 0, ErrorVB::SubindiceFueraDeRango},
        {"singleCorto", [&](qint32& p) { LeerSingle(corto, p); }, 0,
         ErrorVB::SubindiceFueraDeRango},
        {"fechaCorta", [&](qint32& p) { LeerFecha(corto, p); }, 0, ErrorVB::SubindiceFueraDeRango},
        {"textoSinCero", [&](qint32& p) { LeerTexto(corto, p); }, 0,
         ErrorVB::SubindiceFueraDeRango},
        {"textoAfuera", [&](qint32& p) { LeerTexto(corto, p); }, 3, ErrorVB::SubindiceFueraDeRango},
        {"intDesborda", [&](qint32& p) { LeerInt(corto, p); }, maximo, ErrorVB::Desbordamiento},
        {"longDesborda", [&](qint32& p) { LeerLong(corto, p); }, maximo - 1,
         ErrorVB::Desbordamiento},
        {"escribirIntAfuera", [&](qint32& p) { EscribirInt(copia, p, 1); }, 2,
         ErrorVB::SubindiceFueraDeRango},
        {"escribirLongAfuera", [&](qint32& p) { EscribirLong(copia, p, 1); }, 0,
         ErrorVB::SubindiceFueraDeRango},
        {"escribirTextoAfuera", [&](qint32& p) { EscribirTexto(copia, p, "ABCD"); }, 1,
         ErrorVB::SubindiceFueraDeRango},
        {"escribirTextoNegativo", [&](qint32& p) { EscribirTexto(copia, p, ""); }, -1,
         ErrorVB::SubindiceFueraDeRango},
    };
    for (const auto& caso : casos) {
        qint32 pos = caso.pos;
        EXPECT_EQ(NumeroDeError([&] { caso.accion(pos); }), caso.numero) << caso.nombre;
        EXPECT_EQ(pos, caso.pos) << caso.nombre << ": a failed read leaves the position";
        EXPECT_EQ(copia, corto) << caso.nombre << ": a failed write leaves the buffer";
    }
}

TEST(TablaCodigoPagina, UnNombreDesconocidoEsUnError) {
    // UTF-16 is known to the converters, but a zero-terminated text cannot be written in it.
    for (const char* nombre : {"no-such-code-page", "UTF-16BE"}) {
        EXPECT_EQ(NumeroDeError([&] { TablaCodigoPagina::Para(nombre); }), 5) << nombre;
        EXPECT_FALSE(TablaCodigoPagina::Conocida(nombre)) << nombre;
    }
    EXPECT_EQ(&TablaCodigoPagina::Para("Windows-1252"), &TablaCodigoPagina::Predeterminada());
    EXPECT_FALSE(TablaCodigoPagina::Predeterminada().Multibyte());
    EXPECT_TRUE(TablaCodigoPagina::Para("Shift_JIS").Multibyte());
}

// A character the page cannot hold is refused, never written as a look-alike or "?", and the
// buffer stays as it was.
TEST(TablaCodigoPagina, UnCaracterQueLaPaginaNoTieneSeRechaza) {
    const struct {
        const char* pagina;
        QString texto;
        const char* caracter;
    } casos[] = {
        {"windows-1252", QString::fromUtf8("ab\u03a9c"), "U+03A9"},
        {"windows-1252", QString::fromUtf8("x\U0001F600"), "U+1F600"},
        {"ISO-8859-1", QString::fromUtf8("\u20ac"), "U+20AC"},
        {"Shift_JIS", QString::fromUtf8("\u65e5\ud55c"), "U+D55C"},
        {"GB2312", QString::fromUtf8("\u4e2d\u3000\ud55c"), "U+D55C"},
        {"EUC-KR", QString::fromUtf8("\u20ac"), "U+20AC"},
    };
    for (const auto& caso : casos) {
        QByteArray buffer = QByteArray::fromHex("ffffffffffffffff");
        qint32 pos = 0;
        modPrueba::EsperarError(
            [&] { EscribirTexto(buffer, pos, caso.texto, TablaCodigoPagina::Para(caso.pagina)); },
            ErrorTextoNoCodificable, {}, caso.caracter);
        EXPECT_EQ(buffer.toHex(), "ffffffffffffffff") << caso.pagina;
        EXPECT_EQ(pos, 0) << caso.pagina;
    }
}

} // namespace
