#pragma once

#include "common/ventanas/modDialogos.h"
#include "support/modPrueba.h"
#include "support/ventanas/modDialogosPrueba.h"

#include <QLabel>
#include <QList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// What every window test starts from: the error texts loaded, the en_US settings, a folder of its
// own, and every message box answered with Respuesta (OK unless the test says otherwise) and kept
// in Mensajes. The seams go back to the real dialogs at the end.
class clsPruebaVentana : public ::testing::Test {
protected:
    void SetUp() override {
        modPrueba::PrepararTextos();
        ASSERT_TRUE(mCarpeta.isValid());
        modDialogos::ResponderMensajes([this](const modDialogos::PeticionMensaje& xPeticion) {
            Mensajes << xPeticion;
            return Respuesta;
        });
    }
    void TearDown() override {
        modDialogos::ResponderMensajes({});
        modDialogos::ResponderArchivos({});
        modDialogos::ResponderImpresora({});
    }

    // The texts of the message boxes shown so far.
    QStringList TextosMensajes() const {
        QStringList textos;
        for (const modDialogos::PeticionMensaje& mensaje : Mensajes)
            textos << mensaje.Texto;
        return textos;
    }
    template <typename T> static T* Hijo(const QObject* xVentana, const char* xNombre) {
        T* hijo = xVentana->findChild<T*>(QString::fromLatin1(xNombre));
        EXPECT_NE(hijo, nullptr) << xNombre;
        return hijo;
    }
    static QString Texto(const QObject* xVentana, const char* xEtiqueta) {
        const QLabel* etiqueta = Hijo<QLabel>(xVentana, xEtiqueta);
        return etiqueta ? etiqueta->text() : QString();
    }

    QTemporaryDir mCarpeta;
    QList<modDialogos::PeticionMensaje> Mensajes;
    QMessageBox::StandardButton Respuesta = QMessageBox::Ok;
};
