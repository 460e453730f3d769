#pragma once

#include <QFont>
#include <QIcon>
#include <QList>
#include <QPair>
#include <QString>

class QToolBar;
class QWidget;

// The program's pictures, drawn once at start so no image file has to travel with it, and the
// type its grids show their texts in.
namespace modRecursosGraficos {
// Pictures of the database tree by number: 1 data database, 2 the handheld, 3 a creator,
// 4 an application, 12 any other database. Any other number has no picture.
QIcon IconoArbol(int xNumero);
// Toolbar pictures by button key: "Archivos", "Informacion", "Volver" of the frame and "Agregar",
// "Modificar", "Eliminar", "Imprimir", "Buscar", "Exportar", "EliminarTodos" of the explorer.
QIcon IconoBoton(const QString& xClave);
// A window's toolbar "tlbOpciones" in the style given, with one button per key and text, in
// order: each button takes its key as object name and data, and the picture of that key.
QToolBar* BarraOpciones(QWidget* xPadre, Qt::ToolButtonStyle xEstilo,
                        const QList<QPair<QString, QString>>& xBotones);
// The program's own icon.
QIcon IconoPrograma();
// The type of the grids: xBase at no more than 8.5 points, the size their widths in twips were
// chosen for.
QFont FuenteGrilla(QFont xBase);
} // namespace modRecursosGraficos
