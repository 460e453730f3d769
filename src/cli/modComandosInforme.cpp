#include "cli/modComandosInforme.h"

#include "common/ErrorVB.h"
#include "data/clsPDBInterface.h"
#include "data/modFuncionesConversion.h"
#include "data/modHandheld.h"

#include <QFileInfo>
#include <vector>

namespace modComandosInforme {

namespace {

const QString kTab = QStringLiteral("\t");

// The handheld's code page, as the texts of its records are in.
const modFuncionesConversion::TablaCodigoPagina& TablaHandheld() {
    return modFuncionesConversion::TablaCodigoPagina::Para(
        modHandheld::FuenteActual()->CodigoPagina());
}

// A script is the person here: it asked for the file, so a missing folder is created and an
// existing file replaced; only a name that is no name is refused.
const modExportacion::Respuestas& RespuestasScript() {
    static const modExportacion::Respuestas respuestas{
        [](const QString& xMensaje) {
            throw ErrorVB(52, QStringLiteral("ValidarArchivoExportacion"), xMensaje);
        },
        [](const QString&) { return true; }};
    return respuestas;
}

} // namespace

std::optional<OrdenExportar> LeerOrdenExportar(const QStringList& xArgumentos) {
    if (xArgumentos.size() < 2) return std::nullopt;
    OrdenExportar orden;
    orden.Archivo = xArgumentos[1];
    for (const QString& opcion : xArgumentos.mid(2)) {
        if (opcion == QLatin1String("--csv")) {
            orden.IndiceFiltro = 2;
            if (orden.Formato == modExportacion::Formato::Tabulado)
                orden.Formato = modExportacion::Formato::Comas;
        } else if (opcion == QLatin1String("--rfc4180")) {
            orden.IndiceFiltro = 2;
            orden.Formato = modExportacion::Formato::ComasEstricto;
        } else {
            return std::nullopt;
        }
    }
    return orden;
}

QString Exportar(clsPDBInterface& xBase, const OrdenExportar& xOrden) {
    // A save dialog answers with a whole path; a relative name is taken from the current folder.
    QString archivo = xOrden.Archivo.trimmed();
    if (!archivo.isEmpty()) archivo = QFileInfo(archivo).absoluteFilePath();
    archivo = modExportacion::NombreConExtension(archivo, xOrden.IndiceFiltro);
    modExportacion::ValidarArchivoExportacion(archivo, RespuestasScript());

    // The explorer's grid: the titles in the header row, then one row per record, every field's
    // text in its column.
    const qint16 campos = xBase.NumFields();
    QStringList tipos;
    for (qint32 campo = 0; campo < campos; ++campo)
        tipos << xBase.FieldType(campo);
    modExportacion::clsArchivoExportacion salida(archivo, xOrden.Formato, tipos, TablaHandheld());
    const QString titulos = xBase.FieldsTitles(kTab);
    std::vector<QStringView> celdas;
    for (const QStringView titulo : QStringView(titulos).tokenize(u'\t'))
        celdas.push_back(titulo);
    salida.Encabezado(celdas);
    bool alPrincipio = true;
    QString registro;
    while (xBase.ReadRecord(alPrincipio, registro, kTab) != -1)
        salida.FilaTabulada(registro);
    salida.Terminar();
    return archivo;
}

} // namespace modComandosInforme
