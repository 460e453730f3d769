#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "common/modFecha.h"
#include "errors/clsMensajeError.h"
#include "support/clsImpresoraGrabadora.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

using Texto = clsImpresoraGrabadora::TextoImpreso;

const clsConfiguracionRegional Ingles(QLocale(QLocale::English, QLocale::UnitedStates));

clsMensajeError Mensaje(const QString& xDescripcion) {
    return clsMensajeError(6, xDescripcion, "Pandrel.modFuncionesConversion", "frmPandrel",
                           "CargarTabla", modFecha::Crear(2005, 3, 11, 18, 45, 7));
}

TEST(clsMensajeError, LosCamposDeLaVentana) {
    const clsMensajeError mensaje = Mensaje("Overflow");
    EXPECT_EQ(mensaje.Numero(), "6");
    EXPECT_EQ(mensaje.Fecha(Ingles), "03/11/2005 18:45:07");
    EXPECT_EQ(mensaje.Hora(Ingles), "18:45:07");
    EXPECT_EQ(mensaje.Computadora(), "");
    EXPECT_EQ(clsMensajeError(ErrorBase + 1002, "", "", "", "", {}).Numero(), "-2147220502");
}

// One page in character cells, each fact at its line; a description longer than 70 cells goes
// on ten blanks in, an empty one still prints its label.
TEST(clsMensajeError, ImprimeLaPaginaDelError) {
    QStringList palabras;
    for (int i = 0; i < 10; ++i)
        palabras << QString(9, QChar('a' + i));
    const struct {
        QString Descripcion;
        QStringList Lineas; // as printed, the first after "Description: "
    } casos[] = {
        {palabras.join(' '),
         {"Description: " + palabras.mid(0, 7).join(' '),
          QString(10, ' ') + palabras.mid(7).join(' ')}},
        {"", {"Description: "}},
        {"  Overflow  ", {"Description: Overflow"}},
    };
    for (const auto& caso : casos) {
        clsImpresoraGrabadora impresora;
        Mensaje(caso.Descripcion).Imprimir(impresora, Ingles);
        struct Linea {
            double X, Y;
            QString Texto;
        };
        // 21 characters of 0.9 cell centred on a sheet 96 cells wide.
        std::vector<Linea> esperadas = {{(96 - 21 * 0.9) / 2, 1, "An Error was occurred"},
                                        {10, 5, "Date: 03/11/2005 18:45:07"},
                                        {10, 6, "Time: 18:45:07"},
                                        {10, 7, "Computer: "},
                                        {10, 10, "Number: 6"}};
        for (int i = 0; i < caso.Lineas.size(); ++i)
            esperadas.push_back({i == 0 ? 10.0 : 0.0, 11 + 0.9 * i, caso.Lineas[i]});
        esperadas.push_back({10, 14, "Form: frmPandrel"});
        esperadas.push_back({10, 15, "Form\u00B4s Module: CargarTabla"});
        esperadas.push_back({10, 16, "Procedure: Pandrel.modFuncionesConversion"});

        const QList<Texto>& textos = impresora.Textos();
        ASSERT_EQ(textos.size(), qsizetype(esperadas.size())) << caso.Descripcion.toStdString();
        for (size_t i = 0; i < esperadas.size(); ++i) {
            const Texto& texto = textos[qsizetype(i)];
            EXPECT_NEAR(texto.X, esperadas[i].X, 1e-9) << i;
            EXPECT_NEAR(texto.Y, esperadas[i].Y, 1e-9) << i;
            EXPECT_EQ(texto.Texto, esperadas[i].Texto);
            EXPECT_EQ(texto.Escala, clsImpresora::EscalaCaracteres);
            EXPECT_EQ(texto.Fuente, "MS Sans Serif");
            EXPECT_EQ(texto.Tamano, 9);
            EXPECT_EQ(texto.Pagina, 1);
        }
        const QStringList& llamadas = impresora.Llamadas();
        EXPECT_EQ(llamadas.first(), "ScaleMode 4");
        EXPECT_EQ(llamadas.mid(llamadas.size() - 2), QStringList({"EndDoc", "ScaleMode 1"}));
        EXPECT_EQ(impresora.DocumentosTerminados(), 1);
        EXPECT_EQ(impresora.PaginasPasadas(), 0);
    }
}

} // namespace
