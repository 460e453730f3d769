#include "support/modHandheldPrueba.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QTimeZone>
#include <stdexcept>

namespace modHandheldPrueba {
namespace {
void Palabra(QByteArray& xBytes, int xPosicion, quint16 xValor) {
    xBytes[xPosicion] = static_cast<char>(xValor >> 8);
    xBytes[xPosicion + 1] = static_cast<char>(xValor & 0xFF);
}

QByteArray TextoCero(const QString& xTexto) {
    return xTexto.toLatin1() + QByteArray(1, '\0');
}
} // namespace

quint32 Codigo(const char* xCuatroLetras) {
    quint32 codigo = 0;
    for (int i = 0; i < 4; ++i)
        codigo = (codigo << 8) | static_cast<quint8>(xCuatroLetras[i]);
    return codigo;
}

quint32 SegundosPalm(const QDateTime& xFecha) {
    const QDateTime origen(QDate(1904, 1, 1), QTime(0, 0), QTimeZone::utc());
    return static_cast<quint32>(origen.secsTo(xFecha));
}

QByteArray BloqueCategorias(const QStringList& xNombres) {
    QByteArray bloque(276, '\0');
    for (int i = 0; i < xNombres.size() && i < 16; ++i) {
        const QByteArray nombre = xNombres.at(i).toLatin1().left(15);
        bloque.replace(2 + 16 * i, nombre.size(), nombre);
        bloque[2 + 256 + i] = static_cast<char>(i);
    }
    bloque[2 + 256 + 16] = static_cast<char>(15);
    return bloque;
}

QByteArray AppInfoAppForge(const QString& xTabla, const QVector<Campo>& xCampos,
                           const QStringList& xCategorias) {
    QByteArray bloque = BloqueCategorias(xCategorias);
    QByteArray marca("APPFORG2");
    marca.resize(12, '\0');
    bloque += marca;
    QByteArray palabras(12, '\0'); // 288..299: four words and four unused bytes
    bloque += palabras;
    QByteArray nombres = TextoCero(xTabla);
    QByteArray descriptores;
    int minimo = 0;
    for (const Campo& campo : xCampos) {
        QByteArray d(6, '\0');
        Palabra(d, 0, static_cast<quint16>(nombres.size()));
        Palabra(d, 2, campo.Tipo);
        descriptores += d;
        nombres += TextoCero(campo.Nombre);
        static const int anchos[] = {0, 1, 2, 4, 4, 1, 1, 4};
        minimo += anchos[campo.Tipo];
    }
    bloque += descriptores + nombres;
    Palabra(bloque, 288, static_cast<quint16>(bloque.size() - 276));
    Palabra(bloque, 290, static_cast<quint16>(300 + descriptores.size() - 276));
    Palabra(bloque, 292, static_cast<quint16>(xCampos.size()));
    Palabra(bloque, 294, static_cast<quint16>(minimo));
    return bloque;
}

QByteArray Registro(const QVector<Campo>& xCampos, const QVariantList& xValores) {
    QByteArray bytes;
    QDataStream flujo(&bytes, QIODevice::WriteOnly);
    flujo.setByteOrder(QDataStream::BigEndian);
    flujo.setFloatingPointPrecision(QDataStream::SinglePrecision);
    for (int i = 0; i < xCampos.size(); ++i) {
        const QVariant& valor = xValores.at(i);
        switch (xCampos.at(i).Tipo) {
        case Byte:
            flujo << static_cast<quint8>(valor.toUInt());
            break;
        case Int:
            flujo << static_cast<qint16>(valor.toInt());
            break;
        case Long:
            flujo << static_cast<qint32>(valor.toInt());
            break;
        case Single:
            flujo << valor.toFloat();
            break;
        case String:
            flujo.writeRawData(TextoCero(valor.toString()).constData(),
                               static_cast<int>(valor.toString().size() + 1));
            break;
        case Boolean:
            flujo << static_cast<quint8>(valor.toBool() ? 1 : 0);
            break;
        case Date:
            flujo << SegundosPalm(valor.toDateTime());
            break;
        }
    }
    return bytes;
}

clsArchivoPDB BaseRegistros(const QString& xNombre, const char* xTipo, const char* xCreador) {
    clsArchivoPDB base;
    base.Nombre = xNombre.toLatin1();
    base.Version = 1;
    base.FechaCreacion =
        SegundosPalm(QDateTime(QDate(2003, 5, 17), QTime(14, 3, 9), QTimeZone::utc()));
    base.FechaModificacion =
        SegundosPalm(QDateTime(QDate(2004, 12, 31), QTime(23, 59, 58), QTimeZone::utc()));
    base.FechaBackup = SegundosPalm(QDateTime(QDate(2005, 1, 2), QTime(8, 0, 0), QTimeZone::utc()));
    base.Tipo = Codigo(xTipo);
    base.Creador = Codigo(xCreador);
    return base;
}

clsArchivoPDB Aplicacion(const QString& xNombre, const char* xCreador) {
    clsArchivoPDB base = BaseRegistros(xNombre, "appl", xCreador);
    base.Atributos = clsArchivoPDB::AtributoRecursos;
    base.Recursos.append({Codigo("code"), 1, QByteArray(100, '\x4E')});
    return base;
}

void Guardar(const QString& xCarpeta, const QString& xArchivo, const clsArchivoPDB& xBase) {
    QDir().mkpath(xCarpeta);
    QFile archivo(QDir(xCarpeta).filePath(xArchivo));
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(xBase.Escribir()) < 0)
        throw std::runtime_error("cannot write " + archivo.fileName().toStdString());
}

} // namespace modHandheldPrueba
