#pragma once

#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "data/MensajesError.h"

#include <QFile>
#include <QString>
#include <gtest/gtest.h>
#include <ostream>

// Readable failure messages for texts.
QT_BEGIN_NAMESPACE
inline void PrintTo(const QString& xTexto, std::ostream* xSalida) {
    *xSalida << '"' << xTexto.toStdString() << '"';
}
QT_END_NAMESPACE

namespace modPrueba {

// The error xAccion raises; number 0, "no error was raised", when it raises none. A test checks
// the number, the source or the description it expects.
template <typename F> ErrorVB ErrorDe(F&& xAccion) {
    try {
        xAccion();
    } catch (const ErrorVB& error) {
        return error;
    }
    return ErrorVB(0, QString(), QStringLiteral("no error was raised"));
}

// Checks that xAccion raises the error numbered xNumero, from xFuente and with xTexto in its
// description where they are given.
template <typename F>
void EsperarError(F&& xAccion, qint32 xNumero, const QString& xFuente = QString(),
                  const QString& xTexto = QString()) {
    const ErrorVB error = ErrorDe(std::forward<F>(xAccion));
    EXPECT_EQ(error.Numero(), xNumero) << error.what();
    EXPECT_TRUE(xFuente.isNull() || error.Fuente() == xFuente) << error.what();
    EXPECT_TRUE(error.Descripcion().contains(xTexto)) << error.what();
}

// The error texts loaded and the regional settings the expected texts are written in (US English).
inline void PrepararTextos() {
    CargarMensajes();
    clsConfiguracionRegional::EstablecerActual(QLocale(QLocale::English, QLocale::UnitedStates));
}

// The bytes of a file; none when it cannot be read.
inline QByteArray Leer(const QString& xRuta) {
    QFile archivo(xRuta);
    return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
}

// Makes xBytes the whole of the file.
inline void Poner(const QString& xRuta, const QByteArray& xBytes) {
    QFile archivo(xRuta);
    const bool escrito = archivo.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
                         archivo.write(xBytes) == xBytes.size();
    EXPECT_TRUE(escrito) << xRuta.toStdString();
}

} // namespace modPrueba
