#pragma once

#include <QMessageBox>
#include <QString>
#include <functional>

class QPrinter;
class QWidget;

// The person's answers: every message box, file dialog and printer dialog of the program goes
// through here, so tests can answer them (Yes/No, a file name, cancel) while the windows stay real.
namespace modDialogos {

struct PeticionMensaje {
    QWidget* Padre = nullptr;
    QString Texto;
    QString Titulo;
    QMessageBox::StandardButtons Botones;
    QMessageBox::Icon Icono = QMessageBox::NoIcon;
};

struct PeticionArchivo {
    QWidget* Padre = nullptr;
    QString Titulo;
    QString Archivo; // the proposed file name
    QString Filtro;
};

using RespuestaMensaje = std::function<QMessageBox::StandardButton(const PeticionMensaje&)>;
// Returns the chosen file name, or "" for cancel; may set the chosen filter.
using RespuestaArchivo = std::function<QString(const PeticionArchivo&, QString* xFiltroElegido)>;
// Returns false for cancel; may set up the printer (a PDF file, say) before accepting.
using RespuestaImpresora = std::function<bool(QPrinter&)>;

QMessageBox::StandardButton MsgBox(QWidget* xPadre, const QString& xTexto,
                                   QMessageBox::StandardButtons xBotones, QMessageBox::Icon xIcono,
                                   const QString& xTitulo);
// A question with Yes and No: true when the answer is Yes.
bool Preguntar(QWidget* xPadre, const QString& xPregunta, const QString& xTitulo);
// The save dialog does not ask about an existing file: its caller does.
QString GuardarArchivo(QWidget* xPadre, const QString& xTitulo, const QString& xArchivo,
                       const QString& xFiltro, QString* xFiltroElegido = nullptr);
// An existing file to open, and an existing folder; answered as GuardarArchivo is ("" for cancel).
QString AbrirArchivo(QWidget* xPadre, const QString& xTitulo, const QString& xArchivo,
                     const QString& xFiltro);
QString ElegirCarpeta(QWidget* xPadre, const QString& xTitulo, const QString& xCarpeta);
bool ElegirImpresora(QWidget* xPadre, QPrinter& xImpresora);

// Tests answer in place of the person; an empty function gives the real dialog back.
void ResponderMensajes(RespuestaMensaje xRespuesta);
void ResponderArchivos(RespuestaArchivo xRespuesta);
void ResponderImpresora(RespuestaImpresora xRespuesta);

} // namespace modDialogos
