#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "common/modFecha.h"
#include "support/modPrueba.h"

#include <QVariant>
#include <algorithm>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

const QLocale EnUS(QLocale::English, QLocale::UnitedStates);
const QLocale DeDE(QLocale::German, QLocale::Germany);
const QLocale EnGB(QLocale::English, QLocale::UnitedKingdom);

constexpr qint32 Desborde = ErrorVB::Desbordamiento;
constexpr qint32 NoCoincide = ErrorVB::TiposNoCoinciden;

TEST(TextoSingle, FormaGeneralConSieteCifras) {
    const struct {
        float valor;
        const char* texto;
    } casos[] = {
        {0.0f, "0"},
        {-0.0f, "0"},
        {12345678.0f, "1.234568E+07"},
        {10000000.0f, "1E+07"},
        {0.00001f, "1E-05"},
        {99999999.0f, "1E+08"},
    };
    const clsConfiguracionRegional regional(EnUS);
    for (const auto& caso : casos)
        EXPECT_EQ(regional.TextoSingle(caso.valor), caso.texto) << caso.texto;
    EXPECT_EQ(clsConfiguracionRegional(DeDE).TextoSingle(12345678.0f), "1,234568E+07");
}

// Across the whole range of Singles the text matches the exact seven-digit rounding that Qt's
// general format makes (which writes its exponent in lower case).
TEST(TextoSingle, CoincideConElRedondeoExactoEnTodoElRango) {
    const clsConfiguracionRegional regional(EnUS);
    int distintos = 0;
    for (quint64 bits = 1; bits < 0x7F800000u && distintos < 5; bits += 1999) {
        float valor;
        const auto patron = static_cast<quint32>(bits);
        std::memcpy(&valor, &patron, sizeof valor);
        const QString esperado = QString::number(double(valor), 'g', 7).toUpper();
        if (regional.TextoSingle(valor) != esperado) {
            ++distintos;
            ADD_FAILURE() << std::hex << patron << ": " << regional.TextoSingle(valor).toStdString()
                          << " != " << esperado.toStdString();
        }
        if (regional.TextoSingle(-valor) != QLatin1Char('-') + esperado) ++distintos;
    }
    EXPECT_EQ(distintos, 0);
}

// The record reader's way (into a buffer, exact values straight) writes the same texts.
TEST(TextoSingle, LaDelLectorDeRegistrosEsLaMisma) {
    for (const QLocale& locale : {EnUS, DeDE}) {
        const clsConfiguracionRegional regional(locale);
        clsBufferTexto buffer;
        const auto comparar = [&](float xValor) {
            buffer.Vaciar();
            regional.AgregarTextoSingle(buffer, xValor);
            ASSERT_EQ(buffer.Vista().toString(), regional.TextoSingle(xValor)) << xValor;
        };
        for (qint64 k = -20000000; k <= 20000000; k += 997) {
            comparar(static_cast<float>(k) / 8);
            comparar(static_cast<float>(k) / 1000);
        }
        for (quint64 bits = 0; bits < 0x7F800001u; bits += 99991) {
            float valor;
            const auto patron = static_cast<quint32>(bits);
            std::memcpy(&valor, &patron, sizeof valor);
            comparar(valor);
            comparar(-valor);
        }
    }
}

TEST(TextoNumero, FormaGeneralSinAgrupar) {
    const struct {
        double valor;
        const char* texto;
    } casos[] = {
        {0.1 + 0.2, "0.3"},
        {1234567.25, "1234567.25"},
        {1e15, "1E+15"},
        {1e-5, "1E-05"},
        {2.0 / 3.0, "0.666666666666667"},
        {123456789012345.6, "123456789012346"},
        {999999999999999.9, "1E+15"},
    };
    const clsConfiguracionRegional regional(EnUS);
    for (const auto& caso : casos)
        EXPECT_EQ(regional.TextoNumero(caso.valor), caso.texto) << caso.texto;
    EXPECT_EQ(clsConfiguracionRegional(DeDE).TextoNumero(1234.5), "1234,5");
}

TEST(TextoFecha, GeneralYCorta) {
    const struct {
        QLocale locale;
        QDateTime fecha;
        const char* general;
        const char* corta;
    } casos[] = {
        {EnUS, modFecha::Crear(2004, 1, 5, 15, 4, 5), "1/5/2004 3:04:05 PM", "1/5/2004"},
        {EnUS, modFecha::Crear(2004, 12, 25, 0, 0, 1), "12/25/2004 12:00:01 AM", "12/25/2004"},
        {EnUS, modFecha::Crear(2004, 1, 5), "1/5/2004", "1/5/2004"},
        {EnUS, modFecha::Crear(1899, 12, 30, 15, 4, 5), "3:04:05 PM", "12/30/1899"},
        {EnUS, modFecha::Crear(1899, 12, 30), "12:00:00 AM", "12/30/1899"},
        {EnUS, modFecha::Crear(1904, 1, 1, 12, 0, 0), "1/1/1904 12:00:00 PM", "1/1/1904"},
        {DeDE, modFecha::Crear(2004, 1, 5, 15, 4, 5), "05.01.2004 15:04:05", "05.01.2004"},
        {EnGB, modFecha::Crear(2004, 1, 5, 9, 4, 5), "05/01/2004 09:04:05", "05/01/2004"},
    };
    for (const auto& caso : casos) {
        const clsConfiguracionRegional regional(caso.locale);
        EXPECT_EQ(regional.TextoFechaGeneral(caso.fecha), caso.general) << caso.general;
        EXPECT_EQ(regional.TextoFechaCorta(caso.fecha), caso.corta) << caso.corta;
    }
    EXPECT_EQ(clsConfiguracionRegional(EnUS).TextoFechaGeneral(QDateTime()), "");
}

// The record reader's way (a day and its seconds, into a buffer) writes what the date-time way
// writes, and its own calendar arithmetic gives QDate's days, over six centuries. The days come
// under one settings, under another backwards and under the first again: from the second time
// on, a day's text may be the one kept, which must be that day's under those settings.
TEST(TextoFecha, LaDelLectorDeRegistrosEsLaGeneral) {
    const clsConfiguracionRegional regionales[] = {clsConfiguracionRegional(EnUS),
                                                   clsConfiguracionRegional(DeDE)};
    const char* const formatosQt[] = {"M/d/yyyy", "dd.MM.yyyy"};
    std::vector<QDate> dias;
    for (QDate dia(1700, 1, 1); dia.year() < 2300; dia = dia.addDays(11))
        dias.push_back(dia);
    clsBufferTexto buffer;
    for (const int k : {0, 1, 0}) {
        const clsConfiguracionRegional& regional = regionales[k];
        std::reverse(dias.begin(), dias.end());
        for (const QDate& dia : dias) {
            const auto segundos = static_cast<int>(dia.toJulianDay() * 7919 % 86400);
            const QDateTime fecha(dia, QTime::fromMSecsSinceStartOfDay(segundos * 1000), Qt::UTC);
            buffer.Vaciar();
            regional.AgregarFechaGeneral(buffer, dia, segundos);
            ASSERT_EQ(buffer.Vista().toString(), regional.TextoFechaGeneral(fecha));
            buffer.Vaciar();
            regional.AgregarFechaGeneral(buffer, dia, 0);
            ASSERT_EQ(buffer.Vista().toString(), dia.toString(QLatin1String(formatosQt[k])));
        }
    }
}

TEST(Formato, Numeros) {
    const struct {
        QLocale locale;
        double valor;
        const char* formato;
        const char* texto;
    } casos[] = {
        {EnUS, 12, "#0.##", "12."},     {EnUS, 0.004, "#0.##", "0."},
        {EnUS, 0.125, "#0.##", "0.13"}, {EnUS, 1023.999, "#0.##", "1024."},
        {EnUS, 1.005, "0.00", "1.01"},  {EnUS, 2.675, "0.00", "2.68"},
        {EnUS, 9.999, "0.00", "10.00"}, {EnUS, -0.001, "0.00", "0.00"},
        {EnUS, 0.5, "#.##", ".5"},      {EnUS, 1234567.891, "#,##0.00", "1,234,567.89"},
        {DeDE, 2.5, "#0.##", "2,5"},    {DeDE, 1234567.891, "#,##0.00", "1.234.567,89"},
    };
    for (const auto& caso : casos) {
        const clsConfiguracionRegional regional(caso.locale);
        EXPECT_EQ(regional.Formato(caso.valor, caso.formato), caso.texto)
            << caso.valor << " " << caso.formato;
    }
}

TEST(FormatoFecha, LetrasDelEscritorio) {
    const QDateTime tarde = modFecha::Crear(2004, 1, 5, 15, 4, 5);
    const QDateTime manana = modFecha::Crear(2004, 11, 25, 9, 30, 0);
    const struct {
        QLocale locale;
        QDateTime fecha;
        const char* formato;
        const char* texto;
    } casos[] = {
        {EnUS, tarde, "mm/dd/yyyy hh:mm:ss", "01/05/2004 15:04:05"},
        {EnUS, manana, "mm/dd/yyyy hh:mm:ss", "11/25/2004 09:30:00"},
        {EnUS, tarde, "m/d/yy", "1/5/04"},
        {EnUS, manana, "h:mm am/pm", "9:30 am"},
        {EnUS, tarde, "d-mmm-yyyy", "5-Jan-2004"},
        {EnUS, tarde, "dddd, mmmm d", "Monday, January 5"},
        {EnUS, tarde, "yyyy\\-mm \"at\" h", "2004-01 at 15"},
        {EnUS, tarde, "mm:ss", "04:05"},
        {DeDE, tarde, "mm/dd/yyyy hh:mm:ss", "01.05.2004 15:04:05"},
    };
    for (const auto& caso : casos) {
        const clsConfiguracionRegional regional(caso.locale);
        EXPECT_EQ(regional.FormatoFecha(caso.fecha, caso.formato), caso.texto) << caso.formato;
    }
    // One object alternating formats gives each its own text.
    const clsConfiguracionRegional regional(EnUS);
    for (int vuelta = 0; vuelta < 2; ++vuelta) {
        EXPECT_EQ(regional.FormatoFecha(tarde, "hh:mm:ss"), "15:04:05");
        EXPECT_EQ(regional.FormatoFecha(tarde, "mm/dd/yyyy"), "01/05/2004");
    }
}

// The result of a conversion: its value, or the number of the error it raised.
template <typename Tipo> QVariant Convertir(const std::function<Tipo()>& xConversion) {
    QVariant valor;
    const ErrorVB error = modPrueba::ErrorDe([&] { valor = QVariant::fromValue(xConversion()); });
    return error.Numero() == 0 ? valor : QStringLiteral("error %1").arg(error.Numero());
}

QVariant Error(qint32 xNumero) {
    return QStringLiteral("error %1").arg(xNumero);
}

TEST(Conversiones, EnterosRedondeanAlPar) {
    const clsConfiguracionRegional regional(EnUS);
    const struct {
        const char* texto;
        QVariant cbyte, cint, clng;
    } casos[] = {
        {" 12 ", 12, 12, 12},
        {"2.5", 2, 2, 2},
        {"3.5", 4, 4, 4},
        {"-2.5", Error(Desborde), -2, -2},
        {"255.5", Error(Desborde), 256, 256},
        {"1,234", Error(Desborde), 1234, 1234},
        {"32768", Error(Desborde), Error(Desborde), 32768},
        {"-32768", Error(Desborde), -32768, -32768},
        {"2147483648", Error(Desborde), Error(Desborde), Error(Desborde)},
        {"-2147483648", Error(Desborde), Error(Desborde), -2147483647 - 1},
        {"1.5E+2", 150, 150, 150},
        {"&HFF", 255, 255, 255},
        {"&HFFFF", Error(Desborde), -1, -1},
        {"&H10000", Error(Desborde), Error(Desborde), 65536},
        {"&O17", 15, 15, 15},
        {"(5)", Error(Desborde), -5, -5},
        {".5", 0, 0, 0},
        {"", Error(NoCoincide), Error(NoCoincide), Error(NoCoincide)},
        {"12abc", Error(NoCoincide), Error(NoCoincide), Error(NoCoincide)},
        {"1e", Error(NoCoincide), Error(NoCoincide), Error(NoCoincide)},
        {",5", Error(NoCoincide), Error(NoCoincide), Error(NoCoincide)},
        {"True", Error(NoCoincide), Error(NoCoincide), Error(NoCoincide)},
    };
    for (const auto& caso : casos) {
        const QString texto = caso.texto;
        EXPECT_EQ(Convertir<int>([&] { return int(regional.CByte(texto)); }), caso.cbyte)
            << "CByte " << caso.texto;
        EXPECT_EQ(Convertir<int>([&] { return int(regional.CInt(texto)); }), caso.cint)
            << "CInt " << caso.texto;
        EXPECT_EQ(Convertir<int>([&] { return int(regional.CLng(texto)); }), caso.clng)
            << "CLng " << caso.texto;
    }
}

TEST(Conversiones, RealesYLogicos) {
    const clsConfiguracionRegional regional(EnUS);
    const struct {
        const char* texto;
        QVariant csng, cdbl, cbool;
    } casos[] = {
        {"-0", 0.0f, 0.0, false},
        {"0.1", 0.1f, 0.1, true},
        {"1,234.5", 1234.5f, 1234.5, true},
        {"3.4e38", 3.4e38f, 3.4e38, true},
        {"1e39", Error(Desborde), 1e39, true},
        {"1e-50", 0.0f, 1e-50, true},
        {"1e309", Error(Desborde), Error(Desborde), Error(Desborde)},
        {"1e-400", 0.0f, 0.0, false},
        {" tRUE ", Error(NoCoincide), Error(NoCoincide), true},
        {"FALSE", Error(NoCoincide), Error(NoCoincide), false},
        {"yes", Error(NoCoincide), Error(NoCoincide), Error(NoCoincide)},
        {"", Error(NoCoincide), Error(NoCoincide), Error(NoCoincide)},
    };
    for (const auto& caso : casos) {
        const QString texto = caso.texto;
        EXPECT_EQ(Convertir<float>([&] { return regional.CSng(texto); }), caso.csng)
            << "CSng " << caso.texto;
        EXPECT_EQ(Convertir<double>([&] { return regional.CDbl(texto); }), caso.cdbl)
            << "CDbl " << caso.texto;
        EXPECT_EQ(Convertir<bool>([&] { return regional.CBool(texto); }), caso.cbool)
            << "CBool " << caso.texto;
    }
}

TEST(Conversiones, SeparadoresDelLocale) {
    const clsConfiguracionRegional aleman(DeDE);
    EXPECT_EQ(aleman.CDbl("1.234,5"), 1234.5);
    EXPECT_EQ(aleman.CInt("2,5"), 2);
    EXPECT_EQ(aleman.CSng(" -0,25 "), -0.25f);
    EXPECT_THROW(aleman.CDbl("1,2,3"), ErrorVB);
    modPrueba::EsperarError([] { clsConfiguracionRegional(EnUS).CInt("x"); }, 13, "CInt",
                            "Type mismatch");
}

TEST(Conversiones, Fechas) {
    const int anio = modFecha::Ahora().date().year();
    const struct {
        QLocale locale;
        const char* texto;
        QDateTime fecha; // invalid: type mismatch
    } casos[] = {
        {EnUS, " 1/5/2004 3:04:05 PM ", modFecha::Crear(2004, 1, 5, 15, 4, 5)},
        {EnUS, "01/05/2004 15:04:05", modFecha::Crear(2004, 1, 5, 15, 4, 5)},
        {EnUS, "3:04 pm", modFecha::Crear(1899, 12, 30, 15, 4, 0)},
        {EnUS, "12:00 AM", modFecha::Crear(1899, 12, 30, 0, 0, 0)},
        {EnUS, "3 PM", modFecha::Crear(1899, 12, 30, 15, 0, 0)},
        {EnUS, "13/1/2004", modFecha::Crear(2004, 1, 13)},
        {EnUS, "2004-01-05", modFecha::Crear(2004, 1, 5)},
        {EnUS, "January 5, 2004", modFecha::Crear(2004, 1, 5)},
        {EnUS, "Jan 2004", modFecha::Crear(2004, 1, 1)},
        {EnUS, "1/5/29", modFecha::Crear(2029, 1, 5)},
        {EnUS, "1/5/30", modFecha::Crear(1930, 1, 5)},
        {EnUS, "1/5", modFecha::Crear(anio, 1, 5)},
        {EnUS, "2/29/2004", modFecha::Crear(2004, 2, 29)},
        {EnUS, "2/30/2004", {}},
        {EnUS, "12", {}},
        {EnUS, "25:00", {}},
        {EnUS, "13:00 PM", {}},
        {EnUS, "1/5/2004 junk", {}},
        {DeDE, "05.01.2004", modFecha::Crear(2004, 1, 5)},
        {DeDE, "5. Januar 2004", modFecha::Crear(2004, 1, 5)},
        {EnGB, "05/01/2004", modFecha::Crear(2004, 1, 5)},
    };
    for (const auto& caso : casos) {
        const clsConfiguracionRegional regional(caso.locale);
        const QVariant esperado =
            caso.fecha.isValid() ? QVariant(caso.fecha) : Error(ErrorVB::TiposNoCoinciden);
        EXPECT_EQ(Convertir<QDateTime>([&] { return regional.CDate(caso.texto); }), esperado)
            << caso.texto;
    }
}

TEST(ConfiguracionActual, SeCambiaSinInvalidarLaReferencia) {
    const clsConfiguracionRegional& actual = clsConfiguracionRegional::Actual();
    clsConfiguracionRegional::EstablecerActual(DeDE);
    EXPECT_EQ(actual.TextoSingle(1.5f), "1,5");
    clsConfiguracionRegional::EstablecerActual(EnUS);
    EXPECT_EQ(actual.TextoSingle(1.5f), "1.5");
    EXPECT_EQ(&actual, &clsConfiguracionRegional::Actual());
}

} // namespace
