#include "errors/ventanas/MostrarMensajeError.h"
#include "errors/ventanas/frmMensajeError.h"
#include "printing/ventanas/clsImpresoraQt.h"
#include "support/clsImpresoraGrabadora.h"
#include "support/ventanas/clsPruebaVentana.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <functional>
#include <memory>

namespace {

using TextoImpreso = clsImpresoraGrabadora::TextoImpreso;

QString TextoDe(const QWidget& xVentana, const char* xNombre) {
    if (auto* rotulo = xVentana.findChild<QLabel*>(xNombre)) return rotulo->text();
    if (auto* linea = xVentana.findChild<QLineEdit*>(xNombre)) return linea->text();
    if (auto* caja = xVentana.findChild<QPlainTextEdit*>(xNombre)) return caja->toPlainText();
    ADD_FAILURE() << "no control " << xNombre;
    return {};
}

// Number, description, source, form and procedure as the window shows them.
QStringList Campos(const QWidget& xVentana) {
    QStringList campos;
    for (const char* nombre : {"lblErrorNumero", "txtErrorDescrip", "txtErrorProcedFuente",
                               "lblErrorFormulario", "lblErrorModuloFormulario"})
        campos << TextoDe(xVentana, nombre);
    return campos;
}

void Pulsar(QWidget* xVentana, const char* xBoton) {
    QPointer<QPushButton> boton = xVentana->findChild<QPushButton*>(xBoton);
    ASSERT_TRUE(boton);
    QTimer::singleShot(0, boton, [boton] { QTest::mouseClick(boton, Qt::LeftButton); });
}

// Runs xLlamar and hands every error window that comes up modally meanwhile to xAlAbrirse, in the
// order they come (0 for the first); a window that comes back on top after the ones over it
// closed gets its OK pressed.
void ConVentanas(const std::function<void()>& xLlamar,
                 const std::function<void(frmMensajeError*, int)>& xAlAbrirse) {
    modDialogosPrueba::clsModales modales(
        [&](QWidget* xVentana, int xOrden) {
            xAlAbrirse(qobject_cast<frmMensajeError*>(xVentana), xOrden);
        },
        [](QWidget* xVentana) { Pulsar(xVentana, "cmdOk"); });
    xLlamar();
}

class frmMensajeErrorTest : public clsPruebaVentana {
protected:
    void SetUp() override {
        clsPruebaVentana::SetUp();
        modDialogos::ResponderImpresora([](QPrinter&) { return true; });
        clsImpresoraQt::Sustituir([this](QPrinter&) { return mImpresora; });
    }
    void TearDown() override {
        clsPruebaVentana::TearDown();
        clsImpresoraQt::Sustituir({});
    }

    std::shared_ptr<clsImpresoraGrabadora> mImpresora = std::make_shared<clsImpresoraGrabadora>();
};

// The print button prints the failure the window shows, stamped with the window's time; the page
// itself is laid out by clsMensajeError.
TEST_F(frmMensajeErrorTest, ImprimeLaFallaQueMuestra) {
    frmMensajeError ventana;
    ventana.Component(6, "Overflow", "Pandrel.modFuncionesConversion", "frmPandrel", "CargarTabla");
    QTest::mouseClick(ventana.findChild<QPushButton*>("cmdImprimir"), Qt::LeftButton);
    const QList<TextoImpreso>& impresos = mImpresora->Textos();
    ASSERT_EQ(impresos.size(), 9);
    EXPECT_EQ(impresos[1].Texto, "Date: " + TextoDe(ventana, "lblErrorFecha"));
    EXPECT_EQ(impresos[5].Texto, "Description: Overflow");
    EXPECT_EQ(mImpresora->DocumentosTerminados(), 1);
}

// Two failures in a row: two windows, one after the other, each released when closed.
TEST_F(frmMensajeErrorTest, MostrarMensajeErrorEsModalYLiberaLaVentana) {
    for (int vez = 0; vez < 2; ++vez) { // each released when closed
        QStringList vistos;
        ConVentanas(
            [] {
                MostrarMensajeError(ErrorVB(ErrorBase + 1002, "RetrieveDataBases", "Unknow error"),
                                    "frmInicio", "AnalizarArchivos");
            },
            [&](frmMensajeError* ventana, int) {
                EXPECT_TRUE(ventana->isModal());
                vistos = Campos(*ventana);
                Pulsar(ventana, "cmdOk");
            });
        EXPECT_EQ(vistos, QStringList({"-2147220502", "Unknow error", "RetrieveDataBases",
                                       "frmInicio", "AnalizarArchivos"}));
        for (QWidget* ventana : QApplication::topLevelWidgets())
            EXPECT_FALSE(qobject_cast<frmMensajeError*>(ventana));
    }
}

// A failure while printing (here the first measure of the description's wrap) opens a second
// window over the first, which closes with it.
TEST_F(frmMensajeErrorTest, UnaFallaAlImprimirAbreOtraVentanaEncima) {
    mImpresora->FallarEn("TextWidth", ErrorVB(482, "Printer", "Printer error"), 2);
    QPointer<frmMensajeError> primera;
    QStringList segunda;
    ConVentanas([] { MostrarMensajeError(6, "Overflow", "Pandrel", "frmPandrel", "CargarTabla"); },
                [&](frmMensajeError* ventana, int orden) {
                    if (orden == 0) {
                        primera = ventana;
                        Pulsar(ventana, "cmdImprimir");
                        return;
                    }
                    EXPECT_EQ(ventana->parentWidget(), primera.data());
                    segunda = Campos(*ventana);
                    Pulsar(ventana, "cmdOk");
                });
    EXPECT_EQ(segunda, QStringList({"482", "Printer error", "Printer.modFunciones.MultiLinea\r\n",
                                    "Error Message", "ImprimoError"}));
    EXPECT_FALSE(primera);
}

} // namespace
