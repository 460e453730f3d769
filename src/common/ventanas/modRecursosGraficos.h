#pragma once

#include <QIcon>
#include <QString>

// The program's pictures, drawn once at start so no image file has to travel with it.
namespace modRecursosGraficos {
// Pictures of the database tree by number: 1 data database, 2 the handheld, 3 a creator,
// 4 an application, 12 any other database. Any other number has no picture.
QIcon IconoArbol(int xNumero);
// Toolbar pictures by button key: "Archivos", "Informacion", "Volver" of the frame and "Agregar",
// "Modificar", "Eliminar", "Imprimir", "Buscar", "Exportar", "EliminarTodos" of the explorer.
QIcon IconoBoton(const QString& xClave);
// The program's own icon.
QIcon IconoPrograma();
} // namespace modRecursosGraficos
