#include "common/ErrorVB.h"
#include "explorer/clsGrillaFlexible.h"
#include "explorer/modExportacion.h"
#include "support/modPrueba.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using modPrueba::Leer;

using modExportacion::Formato;
using modFuncionesConversion::TablaCodigoPagina;

// A records grid of every field type plus the spare column, which holds text that must never
// be written; a title holds a lone carriage return.
void LlenarGrilla(clsGrillaFlexible& xGrilla, const QStringList& xFilas) {
    xGrilla.SetCols(9);
    xGrilla.AddItem("Name\tNote, quoted\tQty\tCount\tBig\tPrice\tO\rk\tWhen");
    for (const QString& fila : xFilas)
        xGrilla.AddItem(fila);
}

const QStringList kTipos = {"String", "String", "Byte", "Int", "Long", "Single", "Boolean", "Date"};

TEST(modExportacion, WritesTheGridInEachFormatByteForByte) {
    const QStringList filas = {
        "Bolts, M8\tsays \"hi\"\t7\t-204\t70000\t3,5\tTrue\t2/8/2005 12:44:00 PM\tspare",
        "Caf\u00e9 \u20ac\t\t0\t0\t0\t1,234.5\tFalse\t\tspare",
        "",
    };
    struct Caso {
        Formato Forma;
        QByteArray Esperado;
    };
    const Caso casos[] = {
        {Formato::Tabulado,
         "Name\tNote, quoted\tQty\tCount\tBig\tPrice\tO\rk\tWhen\r\n"
         "Bolts, M8\tsays \"hi\"\t7\t-204\t70000\t3.5\tTrue\t2/8/2005 12:44:00 PM\r\n"
         "Caf\xe9 \x80\t\t0\t0\t0\t1.234.5\tFalse\t\r\n"
         "\t\t\t\t\t\t\t\r\n"},
        {Formato::Comas,
         "Name,Note, quoted,Qty,Count,Big,Price,O\rk,When\r\n"
         "\"Bolts, M8\",\"says \"hi\"\",7,-204,70000,3.5,True,2/8/2005 12:44:00 PM\r\n"
         "\"Caf\xe9 \x80\",\"\",0,0,0,1.234.5,False,\r\n"
         "\"\",\"\",,,,,,\r\n"},
        {Formato::ComasEstricto,
         "Name,\"Note, quoted\",Qty,Count,Big,Price,\"O\rk\",When\r\n"
         "\"Bolts, M8\",\"says \"\"hi\"\"\",7,-204,70000,3.5,True,2/8/2005 12:44:00 PM\r\n"
         "\"Caf\xe9 \x80\",\"\",0,0,0,1.234.5,False,\r\n"
         "\"\",\"\",,,,,,\r\n"},
    };
    QTemporaryDir carpeta;
    clsGrillaFlexible grilla;
    LlenarGrilla(grilla, filas);
    for (const Caso& caso : casos) {
        int preguntas = 0;
        const QString archivo = carpeta.filePath("out");
        modExportacion::ExportarGrilla(
            grilla, archivo, caso.Forma,
            [&](qint32 xColumna) {
                ++preguntas;
                return kTipos.value(xColumna);
            },
            TablaCodigoPagina::Para("windows-1252"));
        EXPECT_EQ(Leer(archivo), caso.Esperado) << int(caso.Forma);
        EXPECT_EQ(preguntas, 8) << "each column's type is asked once";
    }

    // A grid with the header alone gives one line; the file it replaces goes.
    clsGrillaFlexible soloTitulos;
    LlenarGrilla(soloTitulos, {});
    modExportacion::ExportarGrilla(
        soloTitulos, carpeta.filePath("out"), Formato::Comas,
        [](qint32 xColumna) { return kTipos.value(xColumna); },
        TablaCodigoPagina::Predeterminada());
    EXPECT_EQ(Leer(carpeta.filePath("out")), "Name,Note, quoted,Qty,Count,Big,Price,O\rk,When\r\n");

    // In a multi-byte page a character is its lead and trail bytes; quotes and the decimal comma
    // are treated as in any other page.
    clsGrillaFlexible japonesa;
    LlenarGrilla(japonesa, {QString::fromUtf8("\u65e5\"\u672c\t\t\t\t\t2,5\t\t")});
    modExportacion::ExportarGrilla(
        japonesa, carpeta.filePath("out"), Formato::ComasEstricto,
        [](qint32 xColumna) { return kTipos.value(xColumna); },
        TablaCodigoPagina::Para("Shift_JIS"));
    EXPECT_EQ(Leer(carpeta.filePath("out")).split('\n').value(1),
              "\"\x93\xfa\"\"\x96\x7b\",\"\",,,,2.5,,\r");
}

TEST(modExportacion, NamesWithoutAnExtensionGetTheFiltersOne) {
    const struct {
        QString Nombre;
        int Filtro;
        QString Esperado;
    } casos[] = {
        {"/out/list.", 1, "/out/list.txt"},
        {"/out.d/list", 2, "/out.d/list.csv"},
        {"/out/list.dat", 2, "/out/list.dat"},
        {"list", 1, "list"},
    };
    for (const auto& caso : casos)
        EXPECT_EQ(modExportacion::NombreConExtension(caso.Nombre, caso.Filtro), caso.Esperado)
            << caso.Nombre.toStdString();
}

TEST(modExportacion, ValidationAsksBeforeReplacingOrCreating) {
    QTemporaryDir carpeta;
    const QString existente = carpeta.filePath("old.txt");
    QFile(existente).open(QIODevice::WriteOnly);
    const QString nueva = carpeta.filePath("a/b/new.txt");
    const struct {
        QString Archivo;
        bool Respuesta;
        bool Valido;
        QString Pregunta;
    } casos[] = {
        {"  ", true, false, "!Invalid file name"},
        {existente, false, false, "The file already exist, replace it?"},
        {existente, true, true, "The file already exist, replace it?"},
        {nueva, true, true,
         "The Folder " + carpeta.filePath("a/b/") +
             " not exist.\r\nDo you want to create this Folder?"},
    };
    for (const auto& caso : casos) {
        QStringList dichos;
        const modExportacion::Respuestas respuestas{
            [&](const QString& xMensaje) { dichos << "!" + xMensaje; },
            [&](const QString& xPregunta) {
                dichos << xPregunta;
                return caso.Respuesta;
            }};
        EXPECT_EQ(modExportacion::ValidarArchivoExportacion(caso.Archivo, respuestas), caso.Valido);
        EXPECT_EQ(dichos, QStringList{caso.Pregunta}) << caso.Archivo.toStdString();
        EXPECT_EQ(QDir(carpeta.filePath("a/b")).exists(), caso.Archivo == nueva && caso.Respuesta);
    }
}

// A file that cannot be written leaves nothing under its name, and a file it was to replace as
// it was.
TEST(modExportacion, AFailedWriteLeavesNoFileBehind) {
    QTemporaryDir carpeta;
    QFile(carpeta.filePath("plain")).open(QIODevice::WriteOnly);
    QDir(carpeta.path()).mkdir("taken");
    clsGrillaFlexible grilla;
    LlenarGrilla(grilla, {"a\tb"});
    for (const QString& nombre : {QString("plain/out.txt"), QString("taken")}) {
        EXPECT_THROW(modExportacion::ExportarGrilla(
                         grilla, carpeta.filePath(nombre), Formato::Tabulado,
                         [](qint32) { return QString("String"); },
                         TablaCodigoPagina::Predeterminada()),
                     ErrorVB)
            << nombre.toStdString();
    }
    EXPECT_EQ(QDir(carpeta.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
              QStringList({"plain", "taken"}));
    EXPECT_EQ(QFileInfo(carpeta.filePath("plain")).size(), 0);
}

} // namespace
