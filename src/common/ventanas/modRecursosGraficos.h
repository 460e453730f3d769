#pragma once

#include <QFont>
#include <QIcon>
#include <QString>

// The program's pictures, drawn once at start so no image file has to travel with it, and the
// type its grids show their texts in.
namespace modRecursosGraficos {
// Pictures of the database tree by number: 1 data database, 2 the handheld, 3 a creator,
// 4 an application, 12 any other database. Any other number has no picture.
QIcon IconoArbol(int xNumero);
// Toolbar pictures by button key: "Archivos", "Informacion", "Volver" of the frame and "Agregar",
// "Modificar", "Eliminar", "Imprimir", "Buscar", "Exportar", "EliminarTodos" of the explorer.
QIcon IconoBoton(const QString& xClave);
// The program's own icon.
QIcon IconoPrograma();
// The type of the grids: xBase at no more than 8.5 points, the size their widths in twips were
// chosen for.
QFont FuenteGrilla(QFont xBase);
} // namespace modRecursosGraficos
