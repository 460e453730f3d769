#pragma once

#include "data/clsArchivoPDB.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVector>

// Test handhelds: Palm database files built in memory and written into a folder. AppForge
// databases carry the schema as the AppForge converter lays it out: "APPFORG2" in a 12-byte field
// at 276, four 16-bit words at 288 (size, name-table offset, field count, minimum record length),
// four unused bytes, from 300 one descriptor per field (name offset, type code, 0), then the table
// name and the field names, zero-terminated.
namespace modHandheldPrueba {

enum TipoCampo : quint16 {
    Byte = 1,
    Int = 2,
    Long = 3,
    Single = 4,
    String = 5,
    Boolean = 6,
    Date = 7
};

struct Campo {
    QString Nombre;
    TipoCampo Tipo;
};

quint32 Codigo(const char* xCuatroLetras);
quint32 SegundosPalm(const QDateTime& xFecha);

// The 276-byte standard category block with these names in the first slots.
QByteArray BloqueCategorias(const QStringList& xNombres);
QByteArray AppInfoAppForge(const QString& xTabla, const QVector<Campo>& xCampos,
                           const QStringList& xCategorias = {});
// One record: values in schema order (int, double, QString, bool, QDateTime).
QByteArray Registro(const QVector<Campo>& xCampos, const QVariantList& xValores);

// A record database (type and creator as four letters) with fixed dates and version 1.
clsArchivoPDB BaseRegistros(const QString& xNombre, const char* xTipo, const char* xCreador);
// An application: a resource database of type "appl" with one code resource.
clsArchivoPDB Aplicacion(const QString& xNombre, const char* xCreador);

void Guardar(const QString& xCarpeta, const QString& xArchivo, const clsArchivoPDB& xBase);

} // namespace modHandheldPrueba
