#include "data/carpeta/modAjustesIni.h"

#include "data/formato/clsLecturaArchivo.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace modAjustesIni {

namespace {
const QString NombreIni = QStringLiteral("Handheld.ini");
} // namespace

bool Leer(QByteArrayView xTexto, QVariantMap& xValores, QString& xError) {
    xValores.clear();
    QString texto = QString::fromUtf8(xTexto);
    if (texto.startsWith(QChar(0xFEFF))) texto.remove(0, 1);
    const QStringList lineas = texto.split(QLatin1Char('\n'));
    QString seccion;
    for (qsizetype i = 0; i < lineas.size(); ++i) {
        const QString linea = lineas[i].trimmed();
        if (linea.isEmpty() || linea.startsWith(QLatin1Char(';')) ||
            linea.startsWith(QLatin1Char('#')))
            continue;
        if (linea.startsWith(QLatin1Char('[')) && linea.endsWith(QLatin1Char(']'))) {
            seccion = linea.mid(1, linea.size() - 2).trimmed();
            continue;
        }
        const qsizetype igual = linea.indexOf(QLatin1Char('='));
        const QString clave = linea.left(qMax<qsizetype>(igual, 0)).trimmed();
        if (clave.isEmpty() || linea.contains(QChar(0))) {
            xError =
                QStringLiteral("its line %1 is neither a [Section] nor a Key=value").arg(i + 1);
            return false;
        }
        QString valor = linea.mid(igual + 1).trimmed();
        if (valor.size() >= 2 && valor.startsWith(QLatin1Char('"')) &&
            valor.endsWith(QLatin1Char('"')))
            valor = valor.mid(1, valor.size() - 2);
        xValores.insert(seccion.isEmpty() ? clave : seccion + QLatin1Char('/') + clave, valor);
    }
    return true;
}

Ajustes LeerDeCarpeta(const QString& xCarpeta) {
    Ajustes ajustes;
    const QString ruta = QDir(xCarpeta).filePath(NombreIni);
    const QFileInfo info(ruta);
    if (!info.exists() && !info.isSymLink()) return ajustes;
    ajustes.Presente = true;
    clsLecturaArchivo archivo(ruta);
    QByteArray bytes;
    if (!archivo.Abierto())
        ajustes.Error = archivo.Error();
    else if (archivo.Estado().Tamano > TamanoMaximo)
        ajustes.Error = QStringLiteral("it is larger than a Handheld.ini can be");
    else if (!archivo.LeerTodo(bytes))
        ajustes.Error = archivo.Error();
    else
        Leer(bytes, ajustes.Valores, ajustes.Error);
    return ajustes;
}

QString TextoIlegible(const QString& xDonde, const QString& xMotivo) {
    return QStringLiteral("%1 of %2 cannot be read: %3.").arg(NombreIni, xDonde, xMotivo);
}

} // namespace modAjustesIni
