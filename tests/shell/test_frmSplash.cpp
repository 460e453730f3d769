#include "shell/frmMensajeConstruccion.h"
#include "shell/frmSplash.h"

#include <QElapsedTimer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>

namespace {

// Runs the window modally, does xAccion once it is up, and returns how long it stayed open (ms).
qint64 Ejecutar(QDialog& xVentana, const std::function<void()>& xAccion) {
    QTimer::singleShot(100, &xVentana, xAccion);
    QTimer::singleShot(10000, &xVentana, [&xVentana] { xVentana.reject(); }); // never hang
    QElapsedTimer reloj;
    reloj.start();
    xVentana.exec();
    return reloj.elapsed();
}

TEST(frmSplash, ElRelojLaCierraSegunSuModo) {
    struct Caso {
        bool AcercaDe;
        int Intervalo;
    };
    for (const Caso caso : {Caso{true, 4000}, Caso{false, 2000}}) {
        frmSplash ventana;
        ventana.Parametros(caso.AcercaDe);
        const qint64 abierta = Ejecutar(ventana, [] {});
        EXPECT_EQ(ventana.result(), QDialog::Accepted) << caso.AcercaDe;
        EXPECT_GE(abierta, caso.Intervalo - 50) << caso.AcercaDe;
        EXPECT_LT(abierta, caso.Intervalo + 2000) << caso.AcercaDe;
    }
}

TEST(frmSplash, CualquierTeclaLaCierra) {
    for (const Qt::Key tecla : {Qt::Key_A, Qt::Key_Escape}) {
        frmSplash ventana;
        ventana.Parametros(true);
        const qint64 abierta = Ejecutar(ventana, [&] { QTest::keyClick(&ventana, tecla); });
        EXPECT_LT(abierta, 1500) << tecla;
        EXPECT_EQ(ventana.result(), QDialog::Accepted) << tecla;
    }
}

TEST(frmMensajeConstruccion, ElBotonLaCierra) {
    frmMensajeConstruccion ventana;
    auto* cerrar = ventana.findChild<QPushButton*>("CTRBotClose");
    ASSERT_TRUE(cerrar);
    const qint64 abierta =
        Ejecutar(ventana, [cerrar] { QTest::mouseClick(cerrar, Qt::LeftButton); });
    EXPECT_LT(abierta, 1500);
    EXPECT_EQ(ventana.result(), QDialog::Accepted);
}

} // namespace

#include "support/modPrueba.h"
