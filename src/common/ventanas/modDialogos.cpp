#include "common/ventanas/modDialogos.h"

#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <utility>

namespace modDialogos {
namespace {
RespuestaMensaje& Mensajes() {
    static RespuestaMensaje respuesta;
    return respuesta;
}
RespuestaArchivo& Archivos() {
    static RespuestaArchivo respuesta;
    return respuesta;
}
RespuestaImpresora& Impresora() {
    static RespuestaImpresora respuesta;
    return respuesta;
}
} // namespace

QMessageBox::StandardButton MsgBox(QWidget* xPadre, const QString& xTexto,
                                   QMessageBox::StandardButtons xBotones, QMessageBox::Icon xIcono,
                                   const QString& xTitulo) {
    if (Mensajes()) return Mensajes()({xPadre, xTexto, xTitulo, xBotones, xIcono});
    QMessageBox caja(xIcono, xTitulo, xTexto, xBotones, xPadre);
    return static_cast<QMessageBox::StandardButton>(caja.exec());
}

bool Preguntar(QWidget* xPadre, const QString& xPregunta, const QString& xTitulo) {
    return MsgBox(xPadre, xPregunta, QMessageBox::Yes | QMessageBox::No, QMessageBox::Question,
                  xTitulo) == QMessageBox::Yes;
}

QString GuardarArchivo(QWidget* xPadre, const QString& xTitulo, const QString& xArchivo,
                       const QString& xFiltro, QString* xFiltroElegido) {
    if (Archivos()) return Archivos()({xPadre, xTitulo, xArchivo, xFiltro}, xFiltroElegido);
    // The program asks itself before it replaces a file.
    return QFileDialog::getSaveFileName(xPadre, xTitulo, xArchivo, xFiltro, xFiltroElegido,
                                        QFileDialog::DontConfirmOverwrite);
}

QString AbrirArchivo(QWidget* xPadre, const QString& xTitulo, const QString& xArchivo,
                     const QString& xFiltro) {
    if (Archivos()) return Archivos()({xPadre, xTitulo, xArchivo, xFiltro}, nullptr);
    return QFileDialog::getOpenFileName(xPadre, xTitulo, xArchivo, xFiltro);
}

QString ElegirCarpeta(QWidget* xPadre, const QString& xTitulo, const QString& xCarpeta) {
    if (Archivos()) return Archivos()({xPadre, xTitulo, xCarpeta, QString()}, nullptr);
    return QFileDialog::getExistingDirectory(xPadre, xTitulo, xCarpeta);
}

bool ElegirImpresora(QWidget* xPadre, QPrinter& xImpresora) {
    if (Impresora()) return Impresora()(xImpresora);
    QPrintDialog dialogo(&xImpresora, xPadre);
    return dialogo.exec() == QDialog::Accepted;
}

void ResponderMensajes(RespuestaMensaje xRespuesta) {
    Mensajes() = std::move(xRespuesta);
}
void ResponderArchivos(RespuestaArchivo xRespuesta) {
    Archivos() = std::move(xRespuesta);
}
void ResponderImpresora(RespuestaImpresora xRespuesta) {
    Impresora() = std::move(xRespuesta);
}

} // namespace modDialogos
