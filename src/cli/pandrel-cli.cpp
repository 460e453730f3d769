// pandrel-cli: the database layer for scripts. Each command prints one item per line on stdout;
// an error prints nothing on stdout, one line "Error NUMBER: DESCRIPTION [SOURCE]" on stderr and
// ends with status 1; a wrong command line prints the usage and ends with status 2.

#include "cli/clsSalida.h"
#include "cli/modComandosInforme.h"
#include "cli/modListadoRegistros.h"
#include "cli/modLotes.h"
#include "cli/modTextoSalida.h"
#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "common/modFunciones.h"
#include "data/MensajesError.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/clsPalmPDB.h"
#include "data/formato/modFuncionesConversion.h"
#include "data/modEntradaCatalogo.h"
#include "data/modHandheld.h"
#include "data/modMuestra.h"
#include "device/clsPalmInformation.h"
#include "device/modTextosInformacion.h"
#include "estandar/clsEstandarPDB.h"
#include "explorer/modTextosPanel.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringEncoder>
#include <QStringList>
#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace {

using modTextoSalida::Escapado;
using modTextoSalida::kMarcaSeparador;
using modTextoSalida::SeparadorLectura;

const char* const kUso =
    "usage: pandrel-cli [--handheld PATH] [--locale NAME] [--encoding NAME] COMMAND ...\n"
    "commands:\n"
    "  creators [--kind appforge|other|all]\n"
    "  databases CREATOR\n"
    "  header DB\n"
    "  schema DB\n"
    "  records DB [--separator SEP]\n"
    "  get DB ID [--separator SEP]\n"
    "  update DB ID FIELD VALUE\n"
    "  add DB\n"
    "  delete DB ID\n"
    "  delete-all DB\n"
    "  attributes DB ID [VALUE]\n"
    "  categories DB\n"
    "  info\n"
    "  export DB FILE [--csv] [--rfc4180]\n"
    "  report DB --pdf FILE\n"
    "  batch                  commands from stdin, one per line, each followed by #end STATUS\n"
    "The handheld is a folder of .pdb/.prc files or a .zip backup of them (default: the sample's\n"
    "working copy).\n"
    "--encoding names the handheld's code page, over the one its Handheld.ini names.\n"
    "SEP \\t stands for the tab character.\n";

// A wrong command line.
struct ErrorUso {};

struct Contexto {
    QStringList Argumentos; // the command's own arguments
    clsPalmPDB& Base;
    clsEstandarPDB& Estandar; // the databases of the built-in applications go through this one
    clsSalida& Salida;
    QString& Abierta; // the database held open from an earlier command, if any
    bool& EsEstandar; // it is held by Estandar
};

// The object that holds the open database.
clsPDBInterface& BaseAbierta(const Contexto& xContexto) {
    if (xContexto.EsEstandar) return xContexto.Estandar;
    return xContexto.Base;
}

QString Argumento(const Contexto& xContexto, int xIndice) {
    if (xIndice >= xContexto.Argumentos.size()) throw ErrorUso();
    return xContexto.Argumentos[xIndice];
}

qint32 Numero(const QString& xTexto) {
    bool correcto = false;
    const qint32 valor = xTexto.toInt(&correcto);
    if (!correcto) throw ErrorUso();
    return valor;
}

// The value of "--name VALUE" among the arguments from xDesde on, or xDefecto.
QString Opcion(const Contexto& xContexto, int xDesde, const QString& xNombre,
               const QString& xDefecto) {
    const QStringList& argumentos = xContexto.Argumentos;
    if (argumentos.size() == xDesde) return xDefecto;
    if (argumentos.size() != xDesde + 2 || argumentos[xDesde] != xNombre) throw ErrorUso();
    return argumentos[xDesde + 1];
}

QString Separador(const Contexto& xContexto, int xDesde) {
    const QString separador =
        Opcion(xContexto, xDesde, QStringLiteral("--separator"), QStringLiteral("\t"));
    return separador == QLatin1String("\\t") ? QStringLiteral("\t") : separador;
}

void SinMasArgumentos(const Contexto& xContexto, int xCantidad) {
    if (xContexto.Argumentos.size() != xCantidad) throw ErrorUso();
}

QString TextoBooleano(bool xValor) {
    return xValor ? QStringLiteral("True") : QStringLiteral("False");
}

void Cerrar(const Contexto& xContexto) {
    xContexto.Base.CloseDatabase();
    xContexto.Estandar.CloseDatabase();
    xContexto.Abierta.clear();
    xContexto.EsEstandar = false;
}

// Opens the database named by the first argument, closing the one open before unless it is the
// same: a batch keeps its last database open, as the explorer keeps the one chosen in its tree.
void Abrir(const Contexto& xContexto) {
    const QString nombre = Argumento(xContexto, 0);
    if (!xContexto.Abierta.isEmpty() && xContexto.Abierta == nombre) return;
    Cerrar(xContexto);
    // The built-in applications' databases are read through their decoders.
    const bool estandar =
        clsEstandarPDB::ClaseDeBase(xContexto.Base.Fuente(), nombre) != ClaseEstandar::Ninguna;
    clsPDBInterface& base = estandar ? static_cast<clsPDBInterface&>(xContexto.Estandar)
                                     : static_cast<clsPDBInterface&>(xContexto.Base);
    if (!base.OpenFile(nombre))
        throw ErrorVB(ErroresFuente::BaseEnUso, QStringLiteral("OpenFile"),
                      QStringLiteral("The database \"%1\" cannot be opened.").arg(nombre));
    xContexto.Abierta = nombre;
    xContexto.EsEstandar = estandar;
}

// The records of the built-in applications' databases are read, never changed, here.
void SinCambios(const Contexto& xContexto, const char* xOperacion) {
    if (!xContexto.EsEstandar) return;
    throw ErrorVB(ErroresEstandar::SoloLectura, QString::fromLatin1(xOperacion),
                  QStringLiteral("The records of \"%1\" can be read and exported, not changed.")
                      .arg(xContexto.Abierta));
}

// The creator IDs of a list in which each is followed by a tab. A code is four characters of any
// value, a tab among them, so the list is cut by length.
QStringList CodigosCreadores(const QString& xLista) {
    QStringList creadores;
    for (qsizetype desde = 0; desde + 5 <= xLista.size(); desde += 5)
        creadores.append(xLista.mid(desde, 4));
    return creadores;
}

void Creadores(const Contexto& xContexto) {
    static const std::map<QString, qint32> clases = {
        {QStringLiteral("appforge"), 0}, {QStringLiteral("other"), 1}, {QStringLiteral("all"), 2}};
    const auto clase =
        clases.find(Opcion(xContexto, 0, QStringLiteral("--kind"), QStringLiteral("appforge")));
    if (clase == clases.end()) throw ErrorUso();
    // The listing leaves in the object the last database it looked at; the next command that
    // opens one closes it.
    xContexto.Abierta.clear();
    for (const QString& creador :
         CodigosCreadores(xContexto.Base.RetrieveCreatorsID(clase->second, QStringLiteral("\t"))))
        xContexto.Salida.Linea(creador);
}

void Bases(const Contexto& xContexto) {
    const QString creador = Argumento(xContexto, 0);
    SinMasArgumentos(xContexto, 1);
    // A name ends at its zero byte, so the zero character cannot occur in one.
    const QString separador{QChar(kMarcaSeparador)};
    for (const QString& entrada : modEntradaCatalogo::Entradas(
             xContexto.Base.RetrieveDataBases(creador, separador), separador)) {
        const modEntradaCatalogo::EntradaBase base = modEntradaCatalogo::LeerEntrada(entrada);
        xContexto.Salida.Linea({base.Nombre, QString::number(base.Clase)});
    }
}

void Encabezado(const Contexto& xContexto) {
    SinMasArgumentos(xContexto, 1);
    Abrir(xContexto);
    const auto textos = modTextosPanel::TextosInformacionBase(BaseAbierta(xContexto),
                                                              clsConfiguracionRegional::Actual());
    for (const auto& [titulo, texto] : textos)
        xContexto.Salida.Linea(titulo + QLatin1Char(' ') + texto);
    xContexto.Salida.Linea(QStringLiteral("Records: ") +
                           QString::number(BaseAbierta(xContexto).NumRecords()));
}

void Esquema(const Contexto& xContexto) {
    SinMasArgumentos(xContexto, 1);
    Abrir(xContexto);
    clsPDBInterface& base = BaseAbierta(xContexto);
    const qint16 campos = base.NumFields();
    for (qint32 campo = 0; campo < campos; ++campo)
        xContexto.Salida.Linea({base.FieldName(campo), base.FieldType(campo)});
}

void Registros(const Contexto& xContexto) {
    const QString separador = Separador(xContexto, 1);
    Abrir(xContexto);
    if (xContexto.EsEstandar)
        modListadoRegistros::Listar(xContexto.Estandar, separador, xContexto.Salida);
    else
        modListadoRegistros::Listar(xContexto.Base, separador, xContexto.Salida);
}

void Leer(const Contexto& xContexto) {
    const qint32 id = Numero(Argumento(xContexto, 1));
    const QString separador = Separador(xContexto, 2);
    Abrir(xContexto);
    QString registro;
    if (!BaseAbierta(xContexto).ReadRecordByID(id, registro, SeparadorLectura(separador)))
        throw ErrorVB(ErroresFuente::RegistroNoEncontrado, QStringLiteral("ReadRecordByID"),
                      QStringLiteral("No record has the unique ID %1.").arg(id));
    xContexto.Salida.Registro(registro, separador);
}

void Actualizar(const Contexto& xContexto) {
    SinMasArgumentos(xContexto, 4);
    const qint32 id = Numero(Argumento(xContexto, 1));
    const qint32 campo = Numero(Argumento(xContexto, 2));
    Abrir(xContexto);
    SinCambios(xContexto, "UpdateRecord");
    QString registro;
    // The read fills the field-type cache that the update works with.
    xContexto.Base.ReadRecordByID(id, registro, QStringLiteral("\t"));
    xContexto.Salida.Linea(
        QString::number(xContexto.Base.UpdateRecord(id, campo, Argumento(xContexto, 3))));
}

void Agregar(const Contexto& xContexto) {
    SinMasArgumentos(xContexto, 1);
    Abrir(xContexto);
    SinCambios(xContexto, "NewRecord");
    xContexto.Salida.Linea(QString::number(xContexto.Base.NewRecord()));
}

void Borrar(const Contexto& xContexto) {
    SinMasArgumentos(xContexto, 2);
    const qint32 id = Numero(Argumento(xContexto, 1));
    Abrir(xContexto);
    SinCambios(xContexto, "DeleteRecord");
    xContexto.Salida.Linea(TextoBooleano(xContexto.Base.DeleteRecord(id)));
}

void BorrarTodos(const Contexto& xContexto) {
    SinMasArgumentos(xContexto, 1);
    Abrir(xContexto);
    SinCambios(xContexto, "DeleteAllRecords");
    xContexto.Base.DeleteAllRecords();
}

void Atributos(const Contexto& xContexto) {
    if (xContexto.Argumentos.size() > 3) throw ErrorUso();
    const qint32 id = Numero(Argumento(xContexto, 1));
    const bool escribir = xContexto.Argumentos.size() == 3;
    const qint32 valor = escribir ? Numero(Argumento(xContexto, 2)) : 0;
    Abrir(xContexto);
    clsPDBInterface& base = BaseAbierta(xContexto);
    if (escribir)
        xContexto.Salida.Linea(TextoBooleano(base.WriteRecordAttributes(id, valor)));
    else
        xContexto.Salida.Linea(QString::number(base.RecordAttributes(id)));
}

void Categorias(const Contexto& xContexto) {
    SinMasArgumentos(xContexto, 1);
    Abrir(xContexto);
    // The named categories in the order of their numbers; a number without a name is none.
    clsPDBInterface& base = BaseAbierta(xContexto);
    const qint32 cantidad = base.CategoriesCount();
    for (qint32 indice = 0; indice < cantidad; ++indice) {
        const QString nombre = base.CategoryName(indice);
        if (!nombre.isEmpty()) xContexto.Salida.Linea(nombre);
    }
}

void Informacion(const Contexto& xContexto) {
    SinMasArgumentos(xContexto, 0);
    const clsPalmInformation informacion(xContexto.Base.Fuente());
    const clsConfiguracionRegional& regional = clsConfiguracionRegional::Actual();
    const auto tarjeta = informacion.MemoryCard();
    const auto usuario = informacion.UserInformation();
    const auto textos = modTextosInformacion::TextosTarjeta(*tarjeta, regional) +
                        modTextosInformacion::TextosUsuario(*usuario, regional);
    for (const auto& [titulo, texto] : textos)
        xContexto.Salida.Linea(titulo + QLatin1Char(' ') + texto());
}

void Exportar(const Contexto& xContexto) {
    const auto orden = modComandosInforme::LeerOrdenExportar(xContexto.Argumentos);
    if (!orden) throw ErrorUso();
    Abrir(xContexto);
    xContexto.Salida.Linea(xContexto.EsEstandar
                               ? modComandosInforme::ExportarEstandar(xContexto.Estandar, *orden)
                               : modComandosInforme::Exportar(xContexto.Base, *orden));
}

void Informe(const Contexto& xContexto) {
    const auto archivo = modComandosInforme::LeerOrdenInforme(xContexto.Argumentos);
    if (!archivo) throw ErrorUso();
    Abrir(xContexto);
    modComandosInforme::Informe(BaseAbierta(xContexto), Argumento(xContexto, 0), *archivo);
}

using Comando = std::function<void(const Contexto&)>;

const std::map<QString, Comando>& Comandos() {
    static const std::map<QString, Comando> comandos = {
        {QStringLiteral("creators"), Creadores},   {QStringLiteral("databases"), Bases},
        {QStringLiteral("header"), Encabezado},    {QStringLiteral("schema"), Esquema},
        {QStringLiteral("records"), Registros},    {QStringLiteral("get"), Leer},
        {QStringLiteral("update"), Actualizar},    {QStringLiteral("add"), Agregar},
        {QStringLiteral("delete"), Borrar},        {QStringLiteral("delete-all"), BorrarTodos},
        {QStringLiteral("attributes"), Atributos}, {QStringLiteral("categories"), Categorias},
        {QStringLiteral("info"), Informacion},     {QStringLiteral("export"), Exportar},
        {QStringLiteral("report"), Informe}};
    return comandos;
}

struct LineaComandos {
    QString Handheld;
    QString Locale = QStringLiteral("en_US");
    QString CodigoPagina;
    QString Comando;
    QStringList Argumentos;
};

// The command that reads the others from stdin.
const QLatin1String kLote("batch");

LineaComandos Analizar(QStringList xArgumentos) {
    LineaComandos linea;
    while (!xArgumentos.isEmpty() && xArgumentos.first().startsWith(QLatin1String("--"))) {
        const QString opcion = xArgumentos.takeFirst();
        if (xArgumentos.isEmpty()) throw ErrorUso();
        if (opcion == QLatin1String("--handheld"))
            linea.Handheld = xArgumentos.takeFirst();
        else if (opcion == QLatin1String("--locale"))
            linea.Locale = xArgumentos.takeFirst();
        else if (opcion == QLatin1String("--encoding"))
            linea.CodigoPagina = xArgumentos.takeFirst();
        else
            throw ErrorUso();
    }
    if (xArgumentos.isEmpty()) throw ErrorUso();
    linea.Comando = xArgumentos.takeFirst();
    linea.Argumentos = xArgumentos;
    if (linea.Comando == kLote ? !linea.Argumentos.isEmpty() : Comandos().count(linea.Comando) == 0)
        throw ErrorUso();
    return linea;
}

// The handheld and the database object of one run; a batch keeps them from command to command.
struct Sesion {
    std::shared_ptr<clsFuenteCarpeta> Fuente;
    clsPalmPDB Base;
    clsEstandarPDB Estandar;
    QString Abierta;
    bool EsEstandar = false;
    QStringList Avisados; // warnings given already: none comes again while the folder keeps it
};

void Avisar(Sesion& xSesion) {
    const QStringList avisos = xSesion.Fuente->Avisos();
    for (const QString& aviso : avisos) {
        if (!xSesion.Avisados.contains(aviso))
            std::fprintf(stderr, "Warning: %s\n", qUtf8Printable(Escapado(aviso)));
    }
    xSesion.Avisados = avisos;
}

void InformarError(const ErrorVB& xError) {
    std::fprintf(stderr, "Error %d: %s [%s]\n", xError.Numero(),
                 qUtf8Printable(Escapado(xError.Descripcion())),
                 qUtf8Printable(Escapado(xError.Fuente())));
}

// Runs one command; what it prints reaches stdout only when the whole command succeeded.
void Correr(Sesion& xSesion, const QString& xComando, const QStringList& xArgumentos) {
    const auto comando = Comandos().find(xComando);
    if (comando == Comandos().end()) throw ErrorUso();
    clsSalida salida;
    comando->second(
        {xArgumentos, xSesion.Base, xSesion.Estandar, salida, xSesion.Abierta, xSesion.EsEstandar});
    Avisar(xSesion);
    salida.Escribir(stdout);
}

// The usage of one command in one line: in a batch every error is one line.
QString UsoDe(const QString& xComando) {
    if (Comandos().count(xComando) == 0)
        return QStringLiteral("usage: unknown command \"%1\"")
            .arg(Escapado(modFunciones::Cita(xComando)));
    for (const QString& linea : QString::fromLatin1(kUso).split(QLatin1Char('\n'))) {
        const QString texto = linea.trimmed();
        if (texto == xComando || texto.startsWith(xComando + QLatin1Char(' ')))
            return QStringLiteral("usage: ") + texto;
    }
    return QStringLiteral("usage: ") + xComando;
}

int CorrerEnLote(Sesion& xSesion, const QStringList& xPalabras) {
    try {
        Correr(xSesion, xPalabras.first(), xPalabras.mid(1));
        return 0;
    } catch (const ErrorUso&) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(UsoDe(xPalabras.first())));
        return 2;
    } catch (const std::exception& error) {
        InformarError(ErrorVB::De(error, xPalabras.first()));
        return 1;
    }
}

int Ejecutar(const LineaComandos& xLinea) {
    clsConfiguracionRegional::EstablecerActual(QLocale(xLinea.Locale));
    const QString carpeta =
        xLinea.Handheld.isEmpty() ? modMuestra::CarpetaDeTrabajo() : xLinea.Handheld;
    if (!xLinea.CodigoPagina.isEmpty() &&
        !modFuncionesConversion::TablaCodigoPagina::Conocida(xLinea.CodigoPagina))
        throw ErrorVB(modFuncionesConversion::ErrorTextoNoCodificable, QStringLiteral("--encoding"),
                      QStringLiteral("The code page \"%1\" is unknown.").arg(xLinea.CodigoPagina));
    const auto fuente = modHandheld::CrearFuente(carpeta, xLinea.CodigoPagina);
    modHandheld::EstablecerFuente(fuente);
    Sesion sesion{fuente, clsPalmPDB(fuente), clsEstandarPDB(fuente), QString(),
                  false,  QStringList()};
    if (xLinea.Comando == kLote)
        return modLotes::Ejecutar(
            stdin, [&](const QStringList& xPalabras) { return CorrerEnLote(sesion, xPalabras); });
    Correr(sesion, xLinea.Comando, xLinea.Argumentos);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const auto aplicacion = modComandosInforme::CrearAplicacion(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Pandrel"));
    CargarMensajes();
    try {
        QStringList argumentos = QCoreApplication::arguments();
        argumentos.removeFirst();
        return Ejecutar(Analizar(argumentos));
    } catch (const ErrorUso&) {
        std::fputs(kUso, stderr);
        return 2;
    } catch (const std::exception& error) {
        InformarError(ErrorVB::De(error, QStringLiteral("pandrel-cli")));
        return 1;
    }
}
