#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

// Answers to the modal dialogs that windows open, for the window tests and the window benchmark.
namespace modDialogosPrueba {

// Runs xAccion on the modal dialog of class D as soon as it shows.
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

} // namespace modDialogosPrueba
