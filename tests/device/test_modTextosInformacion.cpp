#include "common/clsConfiguracionRegional.h"
#include "common/modFecha.h"
#include "device/modTextosInformacion.h"

#include <gtest/gtest.h>

namespace {

const clsConfiguracionRegional Ingles(QLocale(QLocale::English, QLocale::UnitedStates));
const clsConfiguracionRegional Aleman(QLocale(QLocale::German, QLocale::Germany));

// A card that counts the values read, so the order of the reading shows.
class TarjetaFija : public clsTarjetaPalm {
public:
    mutable QStringList Leidos;
    qint32 Numero() const override { return Leer("Numero", -1); }
    double Version() const override { return Leer("Version", 3.5); }
    QDateTime FechaCreacion() const override {
        return Leer("FechaCreacion", modFecha::Crear(2001, 12, 3, 10, 11, 12));
    }
    qint64 TamanoRom() const override { return Leer("TamanoRom", qint64(2097152)); }
    qint64 TamanoRam() const override { return Leer("TamanoRam", qint64(8389120)); }
    qint64 RamLibre() const override { return Leer("RamLibre", qint64(0)); }
    QString Nombre() const override { return Leer("Nombre", QString("  Card 0  ")); }
    QString Fabricante() const override { return Leer("Fabricante", QString("Handspring")); }
    qint32 CantidadBasesRom() const override { return Leer("CantidadBasesRom", 7); }
    qint32 CantidadBasesRam() const override { return Leer("CantidadBasesRam", 250); }

private:
    template <typename T> T Leer(const char* xNombre, T xValor) const {
        Leidos << xNombre;
        return xValor;
    }
};

TEST(modTextosInformacion, LaTarjetaSeLeeValorPorValorEnSuOrden) {
    const QStringList titulos = {
        "Card Name:", "Version:",  "Manufacturer:", "Card Number:",  "Creation Date:",
        "Rom Size:",  "Ram Size:", "Free Ram:",     "Rom Db Count:", "Ram Db Count:"};
    struct Caso {
        const clsConfiguracionRegional& Regional;
        QStringList Valores;
    };
    const Caso casos[] = {
        {Ingles,
         {"  Card 0  ", "3.50", "Handspring", "-1", "12/3/2001", "2048 KB", "8192.5 KB", "0 KB",
          "7", "250"}},
        {Aleman,
         {"  Card 0  ", "3,50", "Handspring", "-1", "03.12.2001", "2048 KB", "8192,5 KB", "0 KB",
          "7", "250"}},
    };
    for (const Caso& caso : casos) {
        const TarjetaFija tarjeta;
        const auto textos = modTextosInformacion::TextosTarjeta(tarjeta, caso.Regional);
        QStringList leidos, valores;
        for (const auto& texto : textos) {
            leidos << texto.Titulo;
            // Nothing is read before its text is asked for.
            EXPECT_EQ(tarjeta.Leidos.size(), valores.size()) << texto.Titulo.toStdString();
            valores << texto.Texto();
        }
        EXPECT_EQ(leidos, titulos);
        EXPECT_EQ(valores, caso.Valores);
        EXPECT_EQ(tarjeta.Leidos.first(), "Nombre");
    }
}

} // namespace
