#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <QtGlobal>

// The catalogue lists of the database-access object: entries each followed by the caller's
// separator, a database's entry written as its name, "*" and its kind (1 data, 4 application,
// 12 any other type), which is also the tree's picture number.
namespace modEntradaCatalogo {

struct EntradaBase {
    QString Nombre;
    qint64 Clase = 0;
};

// "Notes*4"
QString Entrada(const QString& xNombre, qint64 xClase);
// The name is the text before the first "*", the kind the whole part of the number that starts
// the text after it (0 when none does). An entry without "*" is all name.
EntradaBase LeerEntrada(QStringView xEntrada);
// The entries of a list in which each is followed by xSeparador; text after the last one is no
// entry.
QStringList Entradas(const QString& xLista, const QString& xSeparador);

} // namespace modEntradaCatalogo
