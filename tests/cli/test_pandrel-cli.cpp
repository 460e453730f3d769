#include "common/modFecha.h"
#include "constructor/clsConstructorBase.h"
#include "constructor/modHandheldEstandar.h"
#include "support/modPrueba.h"
#include "support/modZipPrueba.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <tuple>

namespace {

struct Resultado {
    int Estado;
    QString Salida;
    QString Errores;
};

// The handheld of these tests:
//   AFst: Stock (AppForge, 100 records, the first "Claw hammer") and its application StockApp
//   PrLs: Prices (AppForge, 3 records)
//   FNot: Notes (a record database without the AppForge marker)
//   Chin: Chino (AppForge, its texts in Big5)
//   psys: Saved Preferences
void CrearHandheld(const QString& xCarpeta) {
    ASSERT_TRUE(QDir().mkpath(xCarpeta));
    using C = clsConstructorBase;
    C stock("Stock", "DATA", "AFst");
    stock.Version(2);
    stock.Fechas(modFecha::Crear(2004, 6, 7, 9), modFecha::Crear(2005, 3, 11, 18, 30),
                 modFecha::Crear(2005, 3, 1, 8));
    stock.Categorias({"Unfiled", "North", "South", "Key accounts"});
    stock.EsquemaAppForge("Stock", {{"Name", C::String},
                                    {"When", C::Date},
                                    {"Qty", C::Int},
                                    {"Note", C::String},
                                    {"Price", C::Single},
                                    {"Ok", C::Boolean}});
    stock.AgregarRegistro(
        {"Claw hammer", modFecha::Crear(2005, 2, 8, 12, 44), 20, "aisle 3", 37.49, true});
    for (int i = 1; i < 100; ++i)
        stock.AgregarRegistro({QString("Item %1").arg(i), modFecha::Crear(2005, 1, 1 + i % 28), i,
                               "", i * 0.25, i % 2 == 0},
                              0, i % 4);
    stock.Guardar(xCarpeta + "/Stock.pdb");
    C aplicacion("StockApp", "appl", "AFst");
    aplicacion.AgregarRecurso("code", 1, "code");
    aplicacion.Guardar(xCarpeta + "/StockApp.prc");
    C precios("Prices", "DATA", "PrLs");
    precios.EsquemaAppForge("Prices", {{"Item", C::String}, {"Price", C::Single}});
    for (const char* articulo : {"Item A1", "Item A2", "Item B1"})
        precios.AgregarRegistro({articulo, 1.5});
    precios.Guardar(xCarpeta + "/Prices.pdb");
    C("Notes", "DATA", "FNot").Guardar(xCarpeta + "/Notes.pdb");
    C chino("Chino", "DATA", "Chin", "Big5"); // read with --encoding Big5
    chino.EsquemaAppForge("Chino", {{"Nombre", C::String}});
    chino.AgregarRegistro({QString::fromUtf8("\u4e2d\u6587")});
    chino.Guardar(xCarpeta + "/Chino.pdb");
    C("Saved Preferences", "sprf", "psys").Guardar(xCarpeta + "/Prefs.pdb");
    modPrueba::Poner(xCarpeta + "/Handheld.ini",
                     "[Card]\nNumber=0\nVersion=1\nCreationDate=2004-06-01T09:00:00\n"
                     "RomSize=4194304\nRamSize=16777216\nFreeRam=9437184\nName=PalmCard\n"
                     "Manufacturer=Palm Computing\nRomDbCount=58\n[User]\nName=Field Sales\n"
                     "LastSyncDate=2005-03-11T18:45:00\nLastSyncPC=1185468\nUserID=20871\n");
}

class PandrelCli : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mCarpeta.isValid());
        CrearHandheld(Handheld());
    }

    QString Handheld() const { return mCarpeta.path() + "/handheld"; }

    Resultado Ejecutar(const QStringList& xArgumentos, const QString& xHandheld = {}) const {
        QProcess proceso;
        proceso.start(PANDREL_CLI,
                      QStringList{"--handheld", xHandheld.isEmpty() ? Handheld() : xHandheld} +
                          xArgumentos);
        proceso.waitForFinished(30000);
        return {proceso.exitCode(), QString::fromUtf8(proceso.readAllStandardOutput()),
                QString::fromUtf8(proceso.readAllStandardError())};
    }

    QTemporaryDir mCarpeta;
};

TEST_F(PandrelCli, CataloguePrintsOneItemPerLine) {
    const struct {
        QStringList Argumentos;
        QString Salida;
    } casos[] = {
        {{"creators"}, "AFst\nChin\nPrLs\n"},
        {{"creators", "--kind", "other"}, "FNot\npsys\n"},
        {{"creators", "--kind", "all"}, "AFst\nChin\nFNot\nPrLs\npsys\n"},
        {{"databases", "AFst"}, "Stock\t1\nStockApp\t4\n"},
        {{"databases", "psys"}, "Saved Preferences\t12\n"},
        {{"schema", "Stock"},
         "Name\tString\nWhen\tDate\nQty\tInt\nNote\tString\nPrice\tSingle\nOk\tBoolean\n"},
        {{"categories", "Stock"}, "Unfiled\nNorth\nSouth\nKey accounts\n"},
        {{"records", "Prices"},
         "1048577\tItem A1\t1.5\n1048578\tItem A2\t1.5\n1048579\tItem B1\t1.5\n"},
        // --encoding names the code page; the output is UTF-8 whatever the page.
        {{"--encoding", "Big5", "records", "Chino"}, QString::fromUtf8("1048577\t\u4e2d\u6587\n")},
        {{"records", "Chino"}, QString::fromUtf8("1048577\t\u00a4\u00a4\u00a4\u00e5\n")},
    };
    for (const auto& caso : casos) {
        const Resultado resultado = Ejecutar(caso.Argumentos);
        EXPECT_EQ(resultado.Estado, 0) << caso.Argumentos.join(' ').toStdString();
        EXPECT_EQ(resultado.Salida, caso.Salida) << caso.Argumentos.join(' ').toStdString();
    }
}

TEST_F(PandrelCli, ErrorsPrintOneLineAndNothingOnStdout) {
    const QString id = Ejecutar({"records", "Stock"}).Salida.section('\t', 0, 0);
    const struct {
        QStringList Argumentos;
        int Estado;
        QString Error;
    } casos[] = {
        {{"update", "Stock", id, "2", "70000"}, 1, "Error 6: Overflow ["},
        {{"update", "Stock", id, "1", "not a date"}, 1, "Error 13: Type mismatch ["},
        {{"schema", "Notes"},
         1,
         "Error -2147220500: The Database selected have not Schema. [NumFields]"},
        {{"get", "Stock", "99"}, 1, "Error "},
        {{"header", "NoSuchDB"}, 1, "Error "},
        {{"export", "Stock", " "}, 1, "Error 52: Invalid file name [ValidarArchivoExportacion]"},
        {{"export", "Notes", mCarpeta.filePath("x")}, 1, "Error -2147220500: "},
        {{"export", "Stock"}, 2, "usage: pandrel-cli"},
        {{"report", "Stock", "--pdf", mCarpeta.filePath("none/stock.pdf")}, 1, "Error "},
        {{"report", "Notes", "--pdf", mCarpeta.filePath("x")}, 1, "Error -2147220500: "},
        {{"report", "Stock", mCarpeta.filePath("x")}, 2, "usage: pandrel-cli"},
        {{"frobnicate"}, 2, "usage: pandrel-cli"},
        {{"get", "Stock"}, 2, "usage: pandrel-cli"},
        {{"get", "Stock", "x"}, 2, "usage: pandrel-cli"},
        {{"creators", "--kind", "some"}, 2, "usage: pandrel-cli"},
        {{"--encoding", "no-such-page", "creators"}, 1, "Error 5: The code page"},
        {{"--encoding", "Big5", "update", "Chino", "1048577", "0", QString::fromUtf8("\u00e9")},
         1,
         "Error 5: "},
    };
    for (const auto& caso : casos) {
        const Resultado resultado = Ejecutar(caso.Argumentos);
        const std::string comando = caso.Argumentos.join(' ').toStdString();
        EXPECT_EQ(resultado.Estado, caso.Estado) << comando;
        EXPECT_EQ(resultado.Salida, "") << comando;
        EXPECT_TRUE(resultado.Errores.startsWith(caso.Error))
            << comando << ": " << resultado.Errores.toStdString();
    }
    EXPECT_FALSE(QFile::exists(mCarpeta.filePath("x"))) << "a failed command leaves no file";
    // The failed updates wrote nothing.
    EXPECT_EQ(Ejecutar({"get", "Stock", id}).Salida.section('\t', 2, 2), "20");
    EXPECT_TRUE(Ejecutar({"frobnicate"}).Errores.contains("SEP \\t stands for the tab character."));
}

// Names and texts holding tabs, line breaks and backslashes come out escaped, each item on its
// line; so do unnamed categories between named ones, and warnings.
TEST_F(PandrelCli, EveryCommandEscapesTabsLineBreaksAndBackslashes) {
    clsConstructorBase base("Tab\tName\r\n", "DATA", "T\tN\n");
    base.Categorias({"Unfiled", "", "Per\\sonal", "", "", "Travel"});
    base.EsquemaAppForge("T", {{"Note\tA", clsConstructorBase::String},
                               {"Count", clsConstructorBase::Int},
                               {"B", clsConstructorBase::String}});
    base.AgregarRegistro({"x\ty\\z\r\nw", 7, "plain"});
    base.AgregarRegistro({"a\rb", 8, "lone\rcarriage return"}); // nothing else to escape
    // Three copies of one database: two warnings, each once per command.
    for (const char* archivo : {"/Tabs.pdb", "/Tabs2.pdb", "/Tabs3.pdb"})
        base.Guardar(Handheld() + archivo);
    modPrueba::Poner(Handheld() + "/bad\tfile.pdb", "not a database");

    const QString id = QString::number(0x100001);
    const QString id2 = QString::number(0x100002);
    const struct {
        QStringList Argumentos;
        QString Salida;
    } casos[] = {
        {{"creators", "--kind", "all"}, "AFst\nChin\nFNot\nPrLs\nT\\tN\\n\npsys\n"},
        {{"databases", "T\tN\n"}, "Tab\\tName\\r\\n\t1\n"},
        {{"schema", "Tab\tName\r\n"}, "Note\\tA\tString\nCount\tInt\nB\tString\n"},
        {{"categories", "Tab\tName\r\n"}, "Unfiled\nPer\\\\sonal\nTravel\n"},
        {{"records", "Tab\tName\r\n"},
         id + "\tx\\ty\\\\z\\r\\nw\t7\tplain\n" + id2 + "\ta\\rb\t8\tlone\\rcarriage return\n"},
        {{"records", "Tab\tName\r\n", "--separator", "\\t"},
         id + "\tx\\ty\\\\z\\r\\nw\t7\tplain\n" + id2 + "\ta\\rb\t8\tlone\\rcarriage return\n"},
        {{"get", "Tab\tName\r\n", id, "--separator", ","}, "\"x\\ty\\\\z\\r\\nw\",7,\"plain\"\n"},
    };
    for (const auto& caso : casos) {
        const Resultado resultado = Ejecutar(caso.Argumentos);
        EXPECT_EQ(resultado.Salida, caso.Salida) << caso.Argumentos.join(' ').toStdString();
        QStringList avisos = resultado.Errores.split('\n', Qt::SkipEmptyParts);
        EXPECT_EQ(avisos.size(), 3) << resultado.Errores.toStdString();
        EXPECT_EQ(avisos.removeDuplicates(), 0);
        EXPECT_EQ(avisos.filter("Warning: bad\\tfile.pdb is not").size(), 1);
    }
}

// A listing of megabytes, with letters that take two bytes in UTF-8 and characters to escape,
// comes out whole and in order, and so does an export of as many records, read ahead of the
// file; a record that cannot be read stops either with nothing written, the first such record in
// the file being the one reported, wherever the reading was split.
TEST_F(PandrelCli, ALargeListingComesOutWholeOrNotAtAll) {
    constexpr int Registros = 30000;
    const auto texto = [](int i, bool xTab) {
        return QStringLiteral("Caf\u00e9 \u00f1and\u00fa n\u00famero %1").arg(i) +
               (i % 7 == 0 ? (xTab ? QStringLiteral("\ta\\b ") : QStringLiteral("a\\b "))
                           : QStringLiteral(" ")) +
               QString(i % 37, 'x');
    };
    const auto guardar = [&](const QString& xNombre, bool xTab,
                             const QMap<int, QByteArray>& xRotos) {
        clsConstructorBase base(xNombre, "DATA", "Grnd");
        base.EsquemaAppForge(
            xNombre, {{"Nombre", clsConstructorBase::String}, {"N", clsConstructorBase::Long}});
        for (int i = 0; i < Registros; ++i) {
            if (xRotos.contains(i))
                base.AgregarRegistroCrudo(xRotos[i]);
            else
                base.AgregarRegistro({texto(i, xTab), i});
        }
        base.Guardar(Handheld() + "/" + xNombre + ".pdb");
    };
    // A Long cut short early on, a String without its end late.
    const QByteArray longCorto("ok\0\1\2", 5);
    const QByteArray textoSinFin("sin fin");
    guardar("Grande", true, {});
    guardar("Exportable", false, {});
    guardar("RotoAlFinal", true, {{Registros - 10, textoSinFin}});
    guardar("RotoEnAmbos", true, {{10, longCorto}, {Registros - 10, textoSinFin}});

    const Resultado resultado = Ejecutar({"records", "Grande"});
    ASSERT_EQ(resultado.Estado, 0) << resultado.Errores.toStdString();
    EXPECT_GT(resultado.Salida.toUtf8().size(), 3 * 512 * 1024);
    EXPECT_FALSE(resultado.Salida.contains(QChar::ReplacementCharacter));
    const QStringList lineas = resultado.Salida.split('\n');
    ASSERT_EQ(lineas.size(), Registros + 1);
    EXPECT_EQ(lineas.last(), "");
    for (int i = 0; i < Registros; ++i) {
        const QString escapado =
            texto(i, true).trimmed().replace("\\", "\\\\").replace("\t", "\\t");
        ASSERT_EQ(lineas[i],
                  QString::number(0x100001 + i) + '\t' + escapado + '\t' + QString::number(i))
            << i;
    }

    const QString archivo = mCarpeta.filePath("grande.txt");
    ASSERT_EQ(Ejecutar({"export", "Exportable", archivo}).Estado, 0);
    const QList<QByteArray> filas = modPrueba::Leer(archivo).split('\n');
    ASSERT_EQ(filas.size(), Registros + 2);
    EXPECT_EQ(filas[0], "Nombre\tN\r");
    for (int i = 0; i < Registros; ++i)
        ASSERT_EQ(filas[i + 1],
                  (texto(i, false).trimmed() + '\t' + QString::number(i) + '\r').toLatin1())
            << i;

    const struct {
        const char* Base;
        const char* Fuente;
    } rotos[] = {{"RotoAlFinal", "LeerTexto"}, {"RotoEnAmbos", "LeerLong"}};
    for (const auto& roto : rotos) {
        for (const QStringList& orden :
             {QStringList{"records", roto.Base}, QStringList{"export", roto.Base, "roto.txt"}}) {
            const Resultado fallido = Ejecutar(orden);
            EXPECT_EQ(fallido.Estado, 1) << roto.Base;
            EXPECT_EQ(fallido.Salida, "") << roto.Base;
            EXPECT_TRUE(fallido.Errores.contains(roto.Fuente)) << fallido.Errores.toStdString();
            EXPECT_EQ(fallido.Errores.count('\n'), 1) << fallido.Errores.toStdString();
        }
    }
    EXPECT_FALSE(QFile::exists("roto.txt"));
}

// The export as the explorer writes it: a Single's decimal comma becomes a full stop, Strings are
// quoted in CSV; the folder is made and an existing file replaced without a question.
TEST_F(PandrelCli, ExportWritesEveryRecordToTheFile) {
    const QString carpeta = mCarpeta.filePath("out/deeper");
    const struct {
        QStringList Opciones;
        QString Archivo;
        QByteArray Linea2;
    } casos[] = {
        {{}, "/inv.txt", "Claw hammer\t08.02.2005 12:44:00\t20\taisle 3\t37.49\tTrue\r\n"},
        {{"--csv"},
         "/inv.csv",
         "\"Claw hammer\",08.02.2005 12:44:00,20,\"aisle 3\",37.49,True\r\n"},
    };
    for (const auto& caso : casos) {
        const Resultado resultado = Ejecutar(
            QStringList{"--locale", "de_DE", "export", "Stock", carpeta + "/inv."} + caso.Opciones);
        ASSERT_EQ(resultado.Estado, 0) << resultado.Errores.toStdString();
        EXPECT_EQ(resultado.Salida, carpeta + caso.Archivo + "\n");
        const QList<QByteArray> lineas = modPrueba::Leer(carpeta + caso.Archivo).split('\n');
        EXPECT_EQ(lineas.size(), 102) << "the header, 100 records and nothing after the last CR LF";
        EXPECT_EQ(lineas[1] + '\n', caso.Linea2);
    }
}

// The built-in applications' databases: read as any other (their field lists and decoding are
// clsEstandarPDB's), exported in the format the file's extension asks for, never changed.
TEST_F(PandrelCli, TheBuiltInApplicationsDatabasesReadAndExport) {
    const QString estandar = mCarpeta.filePath("estandar");
    ASSERT_TRUE(QDir().mkpath(estandar));
    modHandheldEstandar::Guardar(estandar);
    const auto correr = [&](const QStringList& xArgumentos) {
        return Ejecutar(xArgumentos, estandar);
    };
    EXPECT_EQ(correr({"get", "ToDoDB", "1048578", "--separator", ","}).Salida,
              "\"Call plumber\",,3,False,\"\",\"Unfiled\",False\n");
    const struct {
        const char* Base;
        QString Archivo;
        QStringList Opciones;
        QByteArray Inicio; // of the file written, or of the error
    } casos[] = {
        {"AddressDB", "a.vcf", {}, "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Alvarez;"},
        {"AddressDB", "a.csv", {"--rfc4180"}, "Error -2147213295: --csv and --rfc4180"},
    };
    for (const auto& caso : casos) {
        const QString archivo = mCarpeta.filePath(caso.Archivo);
        const Resultado resultado =
            correr(QStringList{"export", caso.Base, archivo} + caso.Opciones);
        const bool hay = QFile::exists(archivo);
        EXPECT_EQ(hay, resultado.Estado == 0) << caso.Archivo.toStdString();
        EXPECT_TRUE(
            (hay ? modPrueba::Leer(archivo) : resultado.Errores.toUtf8()).startsWith(caso.Inicio))
            << resultado.Errores.toStdString();
    }
    const Resultado cambio = correr({"update", "MemoDB", "1048577", "0", "x"});
    EXPECT_EQ(cambio.Estado, 1);
    EXPECT_TRUE(cambio.Errores.startsWith("Error -2147213294: The records of \"MemoDB\" can be "
                                          "read and exported, not changed."))
        << cambio.Errores.toStdString();
}

// The report through the Qt printer: a page holds 41 rows and every later page 40, so the 100
// records fill 3 pages; a report that cannot be written leaves no file.
TEST_F(PandrelCli, ReportPrintsThePagesToAPdfFile) {
    const QString archivo = mCarpeta.filePath("stock.pdf");
    const Resultado resultado = Ejecutar({"report", "Stock", "--pdf", archivo});
    ASSERT_EQ(resultado.Estado, 0) << resultado.Errores.toStdString();
    EXPECT_EQ(resultado.Salida + resultado.Errores, "");
    const QByteArray contenido = modPrueba::Leer(archivo);
    EXPECT_TRUE(contenido.startsWith("%PDF"));
    EXPECT_EQ(contenido.count("/Type /Page\n"), 3);
    EXPECT_EQ(QDir(mCarpeta.path()).entryList({"*.pdf*"}), QStringList({"stock.pdf"}));
}

// export and report write only a regular file or a new name, and follow a link alike; anything
// else (a FIFO, a device, a folder, a database or the archive being read) is refused and stays
// as it was.
TEST_F(PandrelCli, ExportAndReportWriteOnlyWhereAFileBelongs) {
    const QString zip = mCarpeta.filePath("sample.zip");
    ASSERT_TRUE(modZipPrueba::GuardarZip(zip, modZipPrueba::DeCarpeta(Handheld())));
    const QString fifo = mCarpeta.filePath("fifo.txt");
    const QString dispositivo = mCarpeta.filePath("null.txt");
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    QDir(mCarpeta.path()).mkdir("folder.txt");
    const auto bytes = modPrueba::Leer;
    const QString base = Handheld() + "/Stock.pdb";
    const QByteArray antes = bytes(base) + bytes(zip);
    // By handheld: the targets refused.
    QList<QPair<QString, QString>> rechazados = {{Handheld(), fifo},
                                                 {Handheld(), mCarpeta.filePath("folder.txt")},
                                                 {Handheld(), base},
                                                 {Handheld(), Handheld() + "/New.pdb"},
                                                 {zip, zip}};
    if (::mknod(QFile::encodeName(dispositivo).constData(), S_IFCHR | 0600, makedev(1, 3)) == 0)
        rechazados.append({Handheld(), dispositivo}); // only root makes a device
    for (const auto& [handheld, destino] : rechazados) {
        for (const QStringList& orden : {QStringList{"export", "Stock", destino},
                                         QStringList{"report", "Stock", "--pdf", destino}}) {
            const Resultado resultado = Ejecutar(QStringList{"--handheld", handheld} + orden);
            EXPECT_EQ(resultado.Estado, 1) << orden.join(' ').toStdString();
            EXPECT_TRUE(resultado.Errores.startsWith("Error 75: "))
                << resultado.Errores.toStdString();
        }
    }
    EXPECT_FALSE(QFileInfo(fifo).isFile());
    EXPECT_EQ(bytes(base) + bytes(zip), antes);
    EXPECT_FALSE(QFile::exists(Handheld() + "/New.pdb"));

    // A link is followed by both: the file it leads to is written and the link stays.
    const QString enlace = mCarpeta.filePath("link.txt");
    ASSERT_TRUE(QFile::link(mCarpeta.filePath("real.txt"), enlace));
    for (const QStringList& orden : {QStringList{"export", "Stock", enlace},
                                     QStringList{"report", "Stock", "--pdf", enlace}}) {
        ASSERT_EQ(Ejecutar(orden).Estado, 0) << orden.join(' ').toStdString();
        EXPECT_TRUE(QFileInfo(enlace).isSymLink());
        EXPECT_EQ(bytes(mCarpeta.filePath("real.txt")).startsWith("%PDF"), orden[0] == "report");
    }
}

// A batch process driven a command at a time, as a script on the other end of a pipe drives it.
class Lote {
public:
    explicit Lote(const QString& xHandheld) {
        mProceso.start(PANDREL_CLI, {"--handheld", xHandheld, "batch"});
        mProceso.waitForStarted();
    }
    // Sends xLineas and returns what came before the next "#end STATUS" line, and the status.
    std::pair<QString, int> Enviar(const QByteArray& xLineas) {
        mProceso.write(xLineas + '\n');
        QByteArray salida;
        for (;;) {
            while (!mProceso.canReadLine())
                if (!mProceso.waitForReadyRead(10000)) return {"(no #end) " + salida, -1};
            const QByteArray linea = mProceso.readLine();
            if (linea.startsWith("#end ")) return {QString::fromUtf8(salida), linea.mid(5).toInt()};
            salida += linea;
        }
    }
    // Sends xLineas as the end of the input; returns the exit status, the rest of stdout and
    // the lines of stderr.
    std::tuple<int, QString, QStringList> Terminar(const QByteArray& xLineas) {
        mProceso.write(xLineas);
        mProceso.closeWriteChannel();
        mProceso.waitForFinished(10000);
        return {mProceso.exitCode(), QString::fromUtf8(mProceso.readAllStandardOutput()),
                QString::fromUtf8(mProceso.readAllStandardError()).split('\n', Qt::SkipEmptyParts)};
    }

private:
    QProcess mProceso;
};

TEST_F(PandrelCli, BatchRunsEachLineAsACommandAndKeepsItsDatabaseOpen) {
    const QString id = Ejecutar({"records", "Stock"}).Salida.section('\t', 0, 0);
    const QByteArray ref = id.toUtf8();
    const QString registro = Ejecutar({"get", "Stock", id}).Salida;
    Lote lote(Handheld());
    const struct {
        QByteArray Lineas;
        QString Salida; // a text ending in '*' is a start
        int Estado;
    } casos[] = {
        {"get Stock " + ref, registro, 0},
        {"update Stock " + ref + " 0 'Zinnia  \"Florists\"'", id + "\n", 0},
        {"get Stock " + ref, "Zinnia  \"Florists\"\t*", 0},
        {"update Stock " + ref + " 0 \"a \\\"b\\\" \\\\ \\c $x\" # the rest is a comment",
         id + "\n", 0},
        {"get Stock " + ref, "a \"b\" \\\\ \\\\c $x\t*", 0}, // backslashes escaped
        {"  # comment lines and blank lines are no commands\n\n\tupdate St\\\nock " + ref +
             " 0 O\\'Hara\\ Bros",
         id + "\n", 0},
        {"get Stock " + ref, "O'Hara Bros\t*", 0},
        {"update Stock " + ref + " 0 Item#2 # a # inside a word is the word's", id + "\n", 0},
        {"get Stock " + ref, "Item#2\t*", 0},
        // A script written on Windows: the CR before the line feed ends the line.
        {"update Stock " + ref + " 0 Crlf\r", id + "\n", 0},
        {"get Stock " + ref + "\r", "Crlf\t*", 0},
        {"update Stock " + ref + " 0 ''", id + "\n", 0},
        {"get Stock " + ref + " --separator ,", "\"\",*", 0},
        {"update Stock " + ref + " 3 'two\nlines' # one command", id + "\n", 0},
        {"get Stock 99", "", 1},
        {"update Stock " + ref + " 2 70000", "", 1},
        {"frobnicate", "", 2},
        {"get Stock", "", 2},
        {"batch", "", 2},
        // A NUL would end the text early and shift the fields after it: refused.
        {"update Stock " + ref + " 0 " + QByteArray("A\0B", 3), "", 1},
        {"\"bad\ncmd\"", "", 2},
        {QByteArray(1024 * 1024 + 1, 'x'), "", 2},
        {"get Stock " + ref + " --separator ,", "\"\",*", 0},
        {"add Stock", "1048677\n", 0},
        {"delete Stock 1048677", "True\n", 0},
        {"delete Stock 1048677", "False\n", 0},
        {"attributes Stock " + ref + " 16", "True\n", 0},
        {"attributes Stock " + ref, "16\n", 0},
        {"delete-all Prices", "", 0},
        {"records Prices", "", 0},
        {"creators", "AFst\nChin\nPrLs\n", 0},
        {"header Stock", "Type: DATA\n*", 0},
    };
    for (const auto& caso : casos) {
        const auto [salida, estado] = lote.Enviar(caso.Lineas);
        EXPECT_EQ(estado, caso.Estado) << caso.Lineas.toStdString();
        if (caso.Salida.endsWith('*'))
            EXPECT_TRUE(salida.startsWith(caso.Salida.chopped(1)))
                << caso.Lineas.toStdString() << ": " << salida.toStdString();
        else
            EXPECT_EQ(salida, caso.Salida) << caso.Lineas.toStdString();
    }

    // The database stays open: another program's change shows once the batch opens it anew.
    ASSERT_EQ(Ejecutar({"update", "Stock", id, "2", "77"}).Estado, 0);
    EXPECT_EQ(lote.Enviar("get Stock " + ref).first.section('\t', 2, 2), "20");
    EXPECT_EQ(lote.Enviar("schema Prices").second, 0);
    EXPECT_EQ(lote.Enviar("get Stock " + ref).first.section('\t', 2, 2), "77");

    // The batch ends with the highest status of its commands, though its last one succeeded;
    // each error took one line.
    const auto [estado, salida, errores] = lote.Terminar("creators --kind other\n");
    EXPECT_EQ(estado, 2);
    EXPECT_EQ(salida, "FNot\npsys\n#end 0\n");
    const QStringList esperados = {"Error ",
                                   "Error 6: Overflow",
                                   "usage: unknown command",
                                   "usage: get DB ID",
                                   "usage: unknown command \"batch\"",
                                   "Error 5: The text \"A\\\\0B\" holds a NUL",
                                   "usage: unknown command \"bad\\ncmd\"",
                                   "usage: a command longer than 1048576 bytes"};
    ASSERT_EQ(errores.size(), esperados.size()) << errores.join('\n').toStdString();
    for (int i = 0; i < esperados.size(); ++i)
        EXPECT_TRUE(errores[i].startsWith(esperados[i])) << errores[i].toStdString();

    // Input that ends inside a quote is one more failed command.
    const auto [estadoAbierta, salidaAbierta, erroresAbierta] =
        Lote(Handheld()).Terminar("get 'Stock\n");
    EXPECT_EQ(estadoAbierta, 2);
    EXPECT_EQ(salidaAbierta, "#end 2\n");
    EXPECT_EQ(erroresAbierta, QStringList({"usage: the input ends inside a quote or after a "
                                           "backslash"}));
}

} // namespace
