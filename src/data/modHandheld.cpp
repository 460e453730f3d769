#include "data/modHandheld.h"

#include "common/ErrorVB.h"
#include "data/formato/modFuncionesConversion.h"
#include "data/zip/clsFuenteZip.h"

#include <QFile>
#include <QFileInfo>
#include <utility>

namespace {
// The name field at the start of a database header.
constexpr qint64 LargoNombre = 32;

std::shared_ptr<clsFuentePalm>& Fuente() {
    static std::shared_ptr<clsFuentePalm> fuente;
    return fuente;
}
} // namespace

namespace modHandheld {

bool EsArchivo(const QString& xRuta) {
    const QFileInfo info(xRuta);
    return info.isFile() || (!info.exists() &&
                             info.suffix().compare(QLatin1String("zip"), Qt::CaseInsensitive) == 0);
}

bool EsBase(const QString& xRuta) {
    const QString extension = QFileInfo(xRuta).suffix();
    return extension.compare(QLatin1String("pdb"), Qt::CaseInsensitive) == 0 ||
           extension.compare(QLatin1String("prc"), Qt::CaseInsensitive) == 0;
}

QString NombreDeBase(const QString& xArchivo, const clsFuentePalm& xFuente) {
    QFile archivo(xArchivo);
    if (!QFileInfo(xArchivo).isFile() || !archivo.open(QIODevice::ReadOnly)) return {};
    QByteArray nombre = archivo.read(LargoNombre);
    if (nombre.contains('\0')) nombre.truncate(nombre.indexOf('\0'));
    return modFuncionesConversion::TablaCodigoPagina::Para(xFuente.CodigoPagina())
        .Decodificar(nombre);
}

std::shared_ptr<clsFuenteCarpeta> CrearFuente(const QString& xRuta, const QString& xCodigoPagina) {
    if (EsArchivo(xRuta)) return std::make_shared<clsFuenteZip>(xRuta, xCodigoPagina);
    return std::make_shared<clsFuenteCarpeta>(xRuta, xCodigoPagina);
}

void EstablecerFuente(std::shared_ptr<clsFuentePalm> xFuente) {
    Fuente() = std::move(xFuente);
}

std::shared_ptr<clsFuentePalm> FuenteActual() {
    if (!Fuente())
        throw ErrorVB(ErroresFuente::HandheldInaccesible, QStringLiteral("Handheld"),
                      QStringLiteral("No handheld is connected."));
    return Fuente();
}

} // namespace modHandheld
