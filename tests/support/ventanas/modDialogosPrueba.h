#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <gtest/gtest.h>

// Answers to the modal windows that windows open, for the window tests and the window benchmark.
namespace modDialogosPrueba {

// Runs xAccion on the modal dialog of class D as soon as it shows, once. Each call watches on its
// own, so an action may open another dialog and answer it too.
template <typename D> void AlAbrir(const std::function<void(D*)>& xAccion) {
    auto* reloj = new QTimer;
    QObject::connect(reloj, &QTimer::timeout, [reloj, xAccion] {
        if (auto* dialogo = qobject_cast<D*>(QApplication::activeModalWidget())) {
            reloj->stop();
            reloj->deleteLater();
            xAccion(dialogo);
        }
    });
    reloj->start(0);
}

// Watches the modal windows while it lives. A window that comes to the top for the first time is
// handed to the action with its order (0 for the first) and its class name is kept in Vistas; by
// default it is closed. One that comes back to the top after the ones over it closed is handed to
// xAlVolver, when given. A window on top for five seconds fails the test and is closed, so that a
// fault cannot hang the run. An action must not wait for a window over it (click through
// QTimer::singleShot): the watcher does not look while an action runs.
class clsModales {
public:
    using Accion = std::function<void(QWidget* xVentana, int xOrden)>;

    explicit clsModales(Accion xAlAbrirse = Cerrar, std::function<void(QWidget*)> xAlVolver = {})
        : mAlAbrirse(std::move(xAlAbrirse)), mAlVolver(std::move(xAlVolver)) {
        QObject::connect(&mReloj, &QTimer::timeout, [this] { Mirar(); });
        mReloj.start(10);
    }

    static void Cerrar(QWidget* xVentana, int) { xVentana->close(); }

    QStringList Vistas;

private:
    void Mirar() {
        QWidget* ventana = QApplication::activeModalWidget();
        if (!ventana) return;
        if (ventana == mArriba) {
            if (mDesde.elapsed() < 5000) return;
            ADD_FAILURE() << "a modal window stayed open: " << Vistas.join(' ').toStdString();
            ventana->close();
            return;
        }
        mArriba = ventana;
        mDesde.start();
        if (mVistas.contains(ventana)) {
            if (mAlVolver) mAlVolver(ventana);
            return;
        }
        mVistas << ventana;
        Vistas << ventana->metaObject()->className();
        mAlAbrirse(ventana, static_cast<int>(Vistas.size()) - 1);
    }

    Accion mAlAbrirse;
    std::function<void(QWidget*)> mAlVolver;
    QList<QPointer<QWidget>> mVistas;
    QPointer<QWidget> mArriba;
    QElapsedTimer mDesde;
    QTimer mReloj;
};

} // namespace modDialogosPrueba
