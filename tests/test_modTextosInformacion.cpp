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
