#include "common/modFecha.h"
#include "data/formato/modCamposRegistro.h"
#include "support/modPrueba.h"

#include <cstring>
#include <functional>
#include <gtest/gtest.h>

using namespace modCamposRegistro;
using namespace modFuncionesConversion;

namespace {

const std::vector<quint8> Tipos{TipoByte,   TipoInt,     TipoLong, TipoSingle,
                                TipoString, TipoBoolean, TipoDate};

// A record holding one field of each type, and where each field starts (the last entry is the
// record's end).
struct RegistroDePrueba {
    QByteArray Bytes = QByteArray(64, '\0');
    std::vector<qint32> Inicios;

    RegistroDePrueba() {
        qint32 pos = 0;
        Inicios.push_back(pos);
        Bytes[pos++] = static_cast<char>(200);
        Inicios.push_back(pos);
        EscribirInt(Bytes, pos, -2);
        Inicios.push_back(pos);
        EscribirLong(Bytes, pos, 70000);
        Inicios.push_back(pos);
        const float simple = 1.5f;
        qint32 patron;
        std::memcpy(&patron, &simple, sizeof patron);
        EscribirLong(Bytes, pos, patron);
        Inicios.push_back(pos);
        EscribirTexto(Bytes, pos, QStringLiteral("ab"));
        Inicios.push_back(pos);
        Bytes[pos++] = 1;
        Inicios.push_back(pos);
        EscribirFecha(Bytes, pos, modFecha::Crear(2024, 2, 29, 13, 5, 0));
        Inicios.push_back(pos);
        Bytes.truncate(pos);
    }
};

// Every field's text, each followed by '|'.
QString Textos(const QByteArray& xRegistro, const QString& xSeparador) {
    const clsConfiguracionRegional regional(QLocale(QLocale::English, QLocale::UnitedStates));
    clsBufferTexto texto;
    qint32 pos = 0;
    for (const quint8 tipo : Tipos) {
        AgregarCampo(texto, xRegistro, tipo, pos, xSeparador, TablaCodigoPagina::Predeterminada(),
                     regional);
        texto.Letra(u'|');
    }
    return texto.Vista().toString();
}

qint32 NumeroDeError(const std::function<void()>& xAccion) {
    return modPrueba::ErrorDe(xAccion).Numero();
}

class CamposRegistro : public ::testing::Test {
protected:
    void SetUp() override {
        clsConfiguracionRegional::EstablecerActual(
            QLocale(QLocale::English, QLocale::UnitedStates));
    }
    RegistroDePrueba mRegistro;
};

TEST_F(CamposRegistro, CadaTipoSeEscribeComoLoListaElRegistro) {
    EXPECT_EQ(Textos(mRegistro.Bytes, QStringLiteral("\t")),
              QStringLiteral("200|-2|70000|1.5|ab|True|2/29/2024 1:05:00 PM|"));
    // A comma separator quotes the texts.
    EXPECT_EQ(Textos(mRegistro.Bytes, QStringLiteral(",")),
              QStringLiteral("200|-2|70000|1.5|\"ab\"|True|2/29/2024 1:05:00 PM|"));
}

TEST_F(CamposRegistro, LaPosicionDeCadaCampoSaltaLosAnteriores) {
    for (qint32 campo = 0; campo <= static_cast<qint32>(Tipos.size()); ++campo) {
        EXPECT_EQ(PosicionCampo(mRegistro.Bytes, Tipos, campo, TablaCodigoPagina::Predeterminada()),
                  mRegistro.Inicios[campo])
            << campo;
    }
    // Beyond the known types, and beyond the 16-bit field counter.
    EXPECT_EQ(NumeroDeError([&] {
                  PosicionCampo(mRegistro.Bytes, Tipos, 8, TablaCodigoPagina::Predeterminada());
              }),
              9);
    EXPECT_EQ(NumeroDeError([&] {
                  PosicionCampo(mRegistro.Bytes, Tipos, 40000, TablaCodigoPagina::Predeterminada());
              }),
              6);
}

TEST(NombreTipo, CadaCodigoConSuNombreYDeVuelta) {
    for (quint8 codigo = TipoByte; codigo <= TipoDate; ++codigo)
        EXPECT_EQ(CodigoDeNombre(NombreTipo(codigo)), codigo);
    EXPECT_TRUE(NombreTipo(0).isEmpty());
    EXPECT_TRUE(NombreTipo(8).isEmpty());
    EXPECT_EQ(CodigoDeNombre(QStringLiteral("Currency")), Desconocido);
}

} // namespace
