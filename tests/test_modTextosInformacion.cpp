#include "common/clsConfiguracionRegional.h"
#include "common/modFecha.h"
#include "device/modTextosInformacion.h"

#include <gtest/gtest.h>

inline void PrintTo(const QString& xTexto, std::ostream* xSalida) {
    *xSalida << '"' << xTexto.toStdString() << '"';
}

namespace {

const clsConfiguracionRegional Ingles(QLocale(QLocale::English, QLocale::UnitedStates));
const clsConfiguracionRegional Aleman(QLocale(QLocale::German, QLocale::Germany));

QStringList Titulos(const QList<QPair<QString, QString>>& xTextos) {
    QStringList titulos;
    for (const auto& par : xTextos)
        titulos << par.first;
    return titulos;
}

QStringList Valores(const QList<QPair<QString, QString>>& xTextos) {
    QStringList valores;
    for (const auto& par : xTextos)
        valores << par.second;
    return valores;
}

TEST(modTextosInformacion, TamanioEnKB) {
    struct Caso {
        qint64 Bytes;
        QString Ingles, Aleman;
    };
    const Caso casos[] = {
        {0, "0 KB", "0 KB"},
        {1536, "1.5 KB", "1,5 KB"},
        {1048576, "1024 KB", "1024 KB"},
        {1000, "0.98 KB", "0,98 KB"},               // 0.9765625 rounds up
        {1023, "1 KB", "1 KB"},                     // 0.999 rounds to a whole KB
        {5, "0 KB", "0 KB"},                        // less than half a hundredth
        {8589934592LL, "8388608 KB", "8388608 KB"}, // beyond 32 bits
    };
    for (const Caso& caso : casos) {
        EXPECT_EQ(modTextosInformacion::TextoTamanio(caso.Bytes, Ingles), caso.Ingles)
            << caso.Bytes;
        EXPECT_EQ(modTextosInformacion::TextoTamanio(caso.Bytes, Aleman), caso.Aleman)
            << caso.Bytes;
    }
}

TEST(modTextosInformacion, TarjetaEnElOrdenDeSusTitulos) {
    TarjetaPalm tarjeta;
    tarjeta.Numero = -1;
    tarjeta.Version = 3.5;
    tarjeta.FechaCreacion = modFecha::Crear(2001, 12, 3, 10, 11, 12);
    tarjeta.TamanoRom = 2097152;
    tarjeta.TamanoRam = 8389120;
    tarjeta.RamLibre = 0;
    tarjeta.Nombre = "  Card 0  ";
    tarjeta.Fabricante = "Handspring";
    tarjeta.CantidadBasesRom = 7;
    tarjeta.CantidadBasesRam = 250;
    const QStringList titulos = {
        "Card Name:", "Manufacturer:", "Version:",      "Creation Date:", "Rom Size:",
        "Ram Size:",  "Free Ram:",     "Rom Db Count:", "Ram Db Count:",  "Card Number:"};
    struct Caso {
        const clsConfiguracionRegional& Regional;
        QStringList Valores;
    };
    const Caso casos[] = {
        {Ingles,
         {"  Card 0  ", "Handspring", "3.50", "12/3/2001", "2048 KB", "8192.5 KB", "0 KB", "7",
          "250", "-1"}},
        {Aleman,
         {"  Card 0  ", "Handspring", "3,50", "03.12.2001", "2048 KB", "8192,5 KB", "0 KB", "7",
          "250", "-1"}},
    };
    for (const Caso& caso : casos) {
        const auto textos = modTextosInformacion::TextosTarjeta(tarjeta, caso.Regional);
        EXPECT_EQ(Titulos(textos), titulos);
        EXPECT_EQ(Valores(textos), caso.Valores);
    }
}

} // namespace
