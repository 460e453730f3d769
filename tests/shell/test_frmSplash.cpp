#include "shell/frmSplash.h"

#include <QElapsedTimer>
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

} // namespace
