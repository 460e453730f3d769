#include "cli/modComandosInforme.h"

#include "cli/clsLecturaAdelantada.h"
#include "common/ErrorVB.h"
#include "data/clsPDBInterface.h"
#include "data/clsPalmPDB.h"
#include "data/formato/modFuncionesConversion.h"
#include "data/modDestino.h"
#include "estandar/clsEstandarPDB.h"
#include "estandar/modExportacionEstandar.h"
#include "explorer/clsAnchosColumnas.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/clsNavegadorRegistros.h"
#include "printing/clsGrillaComoSeVe.h"
#include "printing/clsImpresora.h"
#include "printing/modInformeBase.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <cstring>
#include <vector>

namespace modComandosInforme {

namespace {

const QString kTab = QStringLiteral("\t");

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

// The drawing part of pandrel-cli, a module beside the program, and what it makes.
const QString kModuloPdf = QStringLiteral("pandrel-pdf");
using FabricaAplicacion = QCoreApplication* (*)(int*, char**);
using FabricaImpresora = clsImpresora* (*)(const QString*);
using MedidaGrilla = int (*)(const QString*);
using PuntosPorPulgada = double (*)();
FabricaImpresora gImpresoraPdf = nullptr;
MedidaGrilla gMedidaGrilla = nullptr;
PuntosPorPulgada gPuntosPorPulgada = nullptr;
QString gErrorModulo;

// The command is the first argument after the options, each of which takes a value. A batch may
// hold a report too.
bool PuedeImprimir(int xArgc, char** xArgv) {
    int i = 1;
    while (i < xArgc && std::strncmp(xArgv[i], "--", 2) == 0)
        i += 2;
    return i < xArgc &&
           (std::strcmp(xArgv[i], "report") == 0 || std::strcmp(xArgv[i], "batch") == 0);
}

QString CarpetaPrograma(char** xArgv) {
    QString programa = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath();
    if (programa.isEmpty()) programa = QFile::decodeName(xArgv[0]);
    return QFileInfo(programa).absolutePath();
}

} // namespace

std::unique_ptr<QCoreApplication> CrearAplicacion(int& xArgc, char** xArgv) {
    if (PuedeImprimir(xArgc, xArgv)) {
        // The library stays loaded for the life of the program: the application lives in it.
        QLibrary modulo(CarpetaPrograma(xArgv) + QLatin1Char('/') + kModuloPdf);
        const auto aplicacion =
            reinterpret_cast<FabricaAplicacion>(modulo.resolve("PandrelAplicacionGrafica"));
        gImpresoraPdf = reinterpret_cast<FabricaImpresora>(modulo.resolve("PandrelImpresoraPdf"));
        gMedidaGrilla = reinterpret_cast<MedidaGrilla>(modulo.resolve("PandrelAnchoTextoGrilla"));
        gPuntosPorPulgada =
            reinterpret_cast<PuntosPorPulgada>(modulo.resolve("PandrelPuntosPorPulgada"));
        if (aplicacion && gImpresoraPdf && gMedidaGrilla && gPuntosPorPulgada)
            return std::unique_ptr<QCoreApplication>(aplicacion(&xArgc, xArgv));
        gErrorModulo = modulo.errorString();
        gImpresoraPdf = nullptr;
    }
    return std::make_unique<QCoreApplication>(xArgc, xArgv);
}

std::optional<QString> LeerOrdenInforme(const QStringList& xArgumentos) {
    if (xArgumentos.size() != 3 || xArgumentos[1] != QLatin1String("--pdf")) return std::nullopt;
    return xArgumentos[2];
}

void Informe(clsPDBInterface& xBase, const QString& xNombre, const QString& xArchivo) {
    if (!gImpresoraPdf)
        throw ErrorVB(482, QStringLiteral("report"),
                      QStringLiteral("The PDF printer cannot be loaded: ") + gErrorModulo);
    // The explorer's records grid holding every record.
    clsGrillaFlexible tabla;
    clsGrillaFlexible campos;
    clsNavegadorRegistros navegador(tabla);
    navegador.EstablecerBase(&xBase);
    navegador.CargarFormatoTabla(campos);
    navegador.CargarTodos();
    // The grid as the explorer would show it: its columns widened to their titles and values.
    clsAnchosColumnas anchos([](const QString& xTexto) { return gMedidaGrilla(&xTexto); });
    anchos.Medir(tabla, 0, tabla.Rows() - 1);
    const clsGrillaComoSeVe vista(tabla, anchos.Twips(tabla, gPuntosPorPulgada()));

    // The report is printed beside its name and put in place when whole, by the printer's EndDoc.
    const QString destino = QFileInfo(xArchivo).absoluteFilePath();
    modDestino::Comprobar(destino, QStringLiteral("report"));
    std::shared_ptr<clsImpresora> impresora(gImpresoraPdf(&destino));
    const modImpresionGRD::DialogoImpresora pdf{
        [&](qint32& xCopias) {
            xCopias = 1;
            return impresora;
        },
        [](const QString& xTexto, const QString& xTitulo) { throw ErrorVB(482, xTitulo, xTexto); },
        {}};
    modInformeBase::ImprimirInforme(
        xBase, QStringLiteral("Explorer [") + xNombre + QLatin1Char(']'), vista, pdf);
}

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
    modExportacion::clsArchivoExportacion salida(archivo, xOrden.Formato, tipos,
                                                 xBase.PaginaCodigos());
    const QString titulos = xBase.FieldsTitles(kTab);
    std::vector<QStringView> celdas;
    for (const QStringView titulo : QStringView(titulos).tokenize(u'\t'))
        celdas.push_back(titulo);
    salida.Encabezado(celdas);
    // The first record is read as every reader reads it (which loads the schema); the others are
    // read ahead while the file is written, where the database can be read by place.
    bool alPrincipio = true;
    QString registro;
    if (xBase.ReadRecord(alPrincipio, registro, kTab) != -1) {
        salida.FilaTabulada(registro);
        if (const auto* palm = dynamic_cast<const clsPalmPDB*>(&xBase)) {
            clsLecturaAdelantada lectura(*palm, kTab, 1);
            QStringView texto;
            while (lectura.Siguiente(texto))
                salida.FilaTabulada(texto);
        } else {
            while (xBase.ReadRecord(alPrincipio, registro, kTab) != -1)
                salida.FilaTabulada(registro);
        }
    }
    salida.Terminar();
    return archivo;
}

QString ExportarEstandar(clsEstandarPDB& xBase, const OrdenExportar& xOrden) {
    using namespace modExportacionEstandar;
    const QString archivo = xOrden.Archivo.trimmed();
    const Formato formato = FormatoDeArchivo(archivo);
    if (formato == Formato::Ninguno) {
        if (QFileInfo(archivo).suffix().compare(QLatin1String("txt"), Qt::CaseInsensitive) == 0)
            return Exportar(xBase, xOrden);
        throw ErrorVB(ErroresEstandar::FormatoNoAdmitido, QStringLiteral("export"),
                      QStringLiteral("The extension of %1 names no format: the records of \"%2\" "
                                     "export to .vcf, .ics, .csv or .txt files.")
                          .arg(archivo, xBase.NombreBase()));
    }
    if (xOrden.IndiceFiltro != 1)
        throw ErrorVB(ErroresEstandar::FormatoNoAdmitido, QStringLiteral("export"),
                      QStringLiteral("--csv and --rfc4180 shape the explorer's export to a .txt "
                                     "file; %1 is written as its extension says.")
                          .arg(archivo));
    const QString destino = QFileInfo(archivo).absoluteFilePath();
    modExportacionEstandar::Exportar(xBase, destino, formato);
    return destino;
}

} // namespace modComandosInforme
