#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "common/modFecha.h"
#include "constructor/clsConstructorBase.h"
#include "data/MensajesError.h"
#include "data/clsPalmPDB.h"
#include "data/formato/modFuncionesConversion.h"
#include "support/clsFuenteCarpetaRara.h"
#include "support/modPrueba.h"

#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace {

constexpr qint32 YaAbierta = static_cast<qint32>(0x800403E9u);
constexpr qint32 Cerrada = static_cast<qint32>(0x800403EAu);
constexpr qint32 SinEsquema = static_cast<qint32>(0x800403ECu);

using C = clsConstructorBase;

void Crudo(clsConstructorBase& xBase, quint32 xID, const QByteArray& xHex, qint32 xAtributos = 0,
           qint32 xCategoria = 0) {
    xBase.AgregarRegistroCrudo(QByteArray::fromHex(xHex), xAtributos, xCategoria);
    xBase.Archivo().Registros.last().ID = xID;
}

using modFuncionesConversion::ErrorTextoNoCodificable;
using modPrueba::ErrorDe;
using modPrueba::EsperarError;

// A handheld folder in a temporary directory, laid out database by database.
class CarpetaTest : public ::testing::Test {
protected:
    void SetUp() override { CargarMensajes(); }
    QString Ruta(const QString& xNombre, bool xRecursos = false) const {
        return mCarpeta.filePath(xNombre + (xRecursos ? ".prc" : ".pdb"));
    }
    void Guardar(const clsConstructorBase& xBase) {
        const clsArchivoPDB& archivo = xBase.Archivo();
        xBase.Guardar(Ruta(QString::fromLatin1(archivo.Nombre), archivo.EsRecursos()));
    }
    QByteArray Bytes(const QString& xNombre) const { return modPrueba::Leer(Ruta(xNombre)); }
    clsArchivoPDB Archivo(const QString& xNombre) const {
        return clsArchivoPDB::Leer(Bytes(xNombre));
    }
    std::shared_ptr<clsFuentePalm> Fuente(Rarezas xRarezas = {}) {
        return std::make_shared<clsFuenteCarpetaRara>(mCarpeta.path(), std::move(xRarezas));
    }
    void Ajustes(const QByteArray& xTexto) {
        modPrueba::Poner(mCarpeta.filePath("Handheld.ini"), xTexto);
    }

    QTemporaryDir mCarpeta;
};

class PalmPDBTest : public CarpetaTest {
protected:
    void SetUp() override {
        CarpetaTest::SetUp();
        clsConfiguracionRegional::EstablecerActual(
            QLocale(QLocale::English, QLocale::UnitedStates));
        GuardarClientes({"414200010201", "2020782000000500", "00ffff00"});

        clsConstructorBase completa("Completa", "DATA", "AFc2");
        completa.EsquemaAppForge("Completa", {{"B", C::Byte},
                                              {"I", C::Int},
                                              {"L", C::Long},
                                              {"S", C::Single},
                                              {"T", C::String},
                                              {"V", C::Boolean},
                                              {"D", C::Date},
                                              {"U", C::String}});
        // 200, -2, 70000, 1.5, "Hola", False, 2004-01-05 15:04:05, "fin"
        Crudo(completa, 1, "c8fffe000111703fc00000486f6c610000bc1f2d6566696e00");
        Guardar(completa);

        clsConstructorBase memo("MemoDB", "DATA", "memo");
        memo.Categorias({"Unfiled"});
        Crudo(memo, 5, "6869");
        Guardar(memo);

        clsConstructorBase aplicacion("Aplicacion", "appl", "AFc1");
        aplicacion.AgregarRecurso("code", 1, "xx");
        Guardar(aplicacion);

        mFuente = Fuente();
        mBase = std::make_unique<clsPalmPDB>(mFuente);
    }

    // Clientes: Nombre String, Edad Int, Activo Boolean; records 10, 11 (Dirty, Business), 12
    // (Business) hold the first bytes given, in that order.
    void GuardarClientes(const std::vector<QByteArray>& xRegistros, quint16 xVersion = 1,
                         const std::function<void(clsConstructorBase&)>& xAjuste = {}) {
        clsConstructorBase clientes("Clientes", "DATA", "AFc1");
        clientes.Version(xVersion);
        clientes.Fechas(modFecha::Crear(2004, 1, 5, 15, 4, 5), modFecha::Crear(2005, 2, 6),
                        modFecha::Crear(1904, 1, 1));
        clientes.Categorias({"Unfiled", "Business"});
        clientes.EsquemaAppForge("Clientes",
                                 {{"Nombre", C::String}, {"Edad", C::Int}, {"Activo", C::Boolean}});
        clientes.Archivo().SortInfo = QByteArray::fromHex("0102");
        const std::pair<qint32, qint32> atributos[] = {{0, 0}, {0x40, 1}, {0, 1}};
        for (size_t i = 0; i < xRegistros.size() && i < 3; ++i)
            Crudo(clientes, 10 + i, xRegistros[i], atributos[i].first, atributos[i].second);
        if (xAjuste) xAjuste(clientes);
        Guardar(clientes);
    }

    QString Leer(const QString& xSeparador, bool xAlPrincipio = true) {
        QString texto;
        mBase->ReadRecord(xAlPrincipio, texto, xSeparador);
        return texto;
    }

    std::shared_ptr<clsFuentePalm> mFuente;
    std::unique_ptr<clsPalmPDB> mBase;
};

TEST_F(PalmPDBTest, CadaOperacionExigeUnaBaseAbierta) {
    QString texto;
    bool alPrincipio = true;
    const std::pair<const char*, std::function<void(clsPalmPDB&)>> casos[] = {
        {"NumRecords", [](clsPalmPDB& b) { b.NumRecords(); }},
        {"DBType", [](clsPalmPDB& b) { b.DBType(); }},
        {"DBSize", [](clsPalmPDB& b) { b.DBSize(); }},
        {"ReadRecord", [&](clsPalmPDB& b) { b.ReadRecord(alPrincipio, texto, "\t"); }},
        {"ReadRecordByID", [&](clsPalmPDB& b) { b.ReadRecordByID(10, texto, "\t"); }},
        {"UpdateRecord", [](clsPalmPDB& b) { b.UpdateRecord(10, 0, "x"); }},
        {"FieldsTitles", [](clsPalmPDB& b) { b.FieldsTitles("\t"); }},
        {"NumFields", [](clsPalmPDB& b) { b.NumFields(); }},
        {"DeleteRecord", [](clsPalmPDB& b) { b.DeleteRecord(10); }},
        {"DeleteAllRecords", [](clsPalmPDB& b) { b.DeleteAllRecords(); }},
        {"DeleteAllRecord", [](clsPalmPDB& b) { b.NewRecord(); }},
        {"FieldType", [](clsPalmPDB& b) { b.FieldType(0); }},
        {"RecordAttributes", [](clsPalmPDB& b) { b.RecordAttributes(10); }},
        {"WriteRecordAttributes", [](clsPalmPDB& b) { b.WriteRecordAttributes(10, 0); }},
        {"RetrieveSortInfo", [](clsPalmPDB& b) { b.RetrieveSortInfo(); }},
        {"RecordLength", [](clsPalmPDB& b) { b.RecordLength(10); }},
        {"CategoriesCount", [](clsPalmPDB& b) { b.CategoriesCount(); }},
        {"CategoryName", [](clsPalmPDB& b) { b.CategoryName(0); }},
    };
    // After a database was opened and closed again.
    mBase->OpenFile("Clientes");
    mBase->CloseDatabase();
    for (const auto& [fuente, accion] : casos)
        EsperarError([&] { accion(*mBase); }, Cerrada, fuente, "Database its close.");
}

TEST_F(PalmPDBTest, AbrirDosVecesFallaYDejaLaPrimeraAbierta) {
    ASSERT_TRUE(mBase->OpenFile("Clientes"));
    EsperarError([&] { mBase->OpenFile("MemoDB"); }, YaAbierta, "OpenFile",
                 "Database is already open.");
    EXPECT_EQ(mBase->NumRecords(), 3);
    EXPECT_TRUE(mBase->IsAppForgeDB());
    mBase->CloseDatabase();
    EXPECT_TRUE(mBase->OpenFile("MemoDB"));
    EXPECT_EQ(mBase->NumRecords(), 1);
}

TEST_F(PalmPDBTest, UnaBaseSinEsquemaRechazaLasOperacionesDeRegistros) {
    ASSERT_TRUE(mBase->OpenFile("MemoDB"));
    EXPECT_TRUE(mBase->IsDataBase());
    EXPECT_FALSE(mBase->IsAppForgeDB());
    QString texto;
    bool alPrincipio = true;
    const std::pair<const char*, std::function<void()>> casos[] = {
        {"ReadRecord", [&] { mBase->ReadRecord(alPrincipio, texto, "\t"); }},
        {"ReadRecordByID", [&] { mBase->ReadRecordByID(5, texto, "\t"); }},
        {"FieldsTitles", [&] { mBase->FieldsTitles("\t"); }},
        {"NumFields", [&] { mBase->NumFields(); }},
        {"NumFields", [&] { mBase->FieldName(0); }},
    };
    for (const auto& [fuente, accion] : casos)
        EsperarError(accion, SinEsquema, fuente, "The Database selected have not Schema.");
}

TEST_F(PalmPDBTest, LaMarcaAppForgeSeReconoceSoloCompleta) {
    clsConstructorBase bloque("x", "DATA", "TEST");
    bloque.Categorias({});
    const QByteArray categorias = bloque.Archivo().AppInfo;
    const struct {
        const char* nombre;
        QByteArray appInfo;
        bool appForge;
    } casos[] = {
        {"sinAppInfo", {}, false},
        {"soloCategorias", categorias, false},
        {"minusculas", categorias + QByteArray("appforg2\0", 9), true},
        {"masLarga", categorias + QByteArray("APPFORG2X\0", 10), false},
        {"sinTerminador", categorias + QByteArray("APPFORG2"), false},
        {"otroEsquema", categorias + QByteArray("APPFORG1\0", 9), false},
    };
    for (const auto& caso : casos) {
        clsConstructorBase base(caso.nombre, "DATA", "TEST");
        base.Archivo().AppInfo = caso.appInfo;
        Guardar(base);
        clsPalmPDB pdb(Fuente());
        EXPECT_TRUE(pdb.OpenFile(caso.nombre)) << caso.nombre;
        EXPECT_EQ(pdb.IsAppForgeDB(), caso.appForge) << caso.nombre;
        EXPECT_TRUE(pdb.IsDataBase());
    }
}

TEST_F(PalmPDBTest, LosErroresDeLaFuenteAlAbrir) {
    mBase = std::make_unique<clsPalmPDB>(Fuente(
        {{{"MemoDB", ErroresFuente::BaseEnUso}, {"Completa", ErroresFuente::BaseNoEncontrada}}}));
    EsperarError([&] { mBase->OpenFile("MemoDB"); }, ErroresFuente::BaseEnUso, "AbrirBase");
    EXPECT_FALSE(mBase->OpenFile("Completa"));
    EsperarError([&] { mBase->NumRecords(); }, Cerrada, "NumRecords");
    EsperarError([&] { mBase->OpenFile("NoExiste"); }, ErroresFuente::BaseNoEncontrada,
                 "BuscarBase");
}

TEST_F(PalmPDBTest, ElRegistroComoTexto) {
    const struct {
        const char* separador;
        QString esperado;
    } casos[] = {
        {"\t", "AB\t258\tTrue"}, {",", "\"AB\",258,True"}, {";", "AB;258;True"},
        {", ", "AB, 258, True"}, {"", "AB258True"},
    };
    ASSERT_TRUE(mBase->OpenFile("Clientes"));
    for (const auto& caso : casos)
        EXPECT_EQ(Leer(caso.separador), caso.esperado) << caso.separador;
    // Blanks around a text go, except inside the quotes.
    mBase->CloseDatabase();
    GuardarClientes({QByteArray("  x \0\0\x05\0", 8).toHex()});
    mBase = std::make_unique<clsPalmPDB>(Fuente());
    ASSERT_TRUE(mBase->OpenFile("Clientes"));
    EXPECT_EQ(Leer(";"), "x;5;False");
    EXPECT_EQ(Leer(","), "\"  x \",5,False");
}

TEST_F(PalmPDBTest, UnTipoDesconocidoDaTextoVacioYNoConsumeBytes) {
    GuardarClientes({"00070102"}, 1, [](clsConstructorBase& xBase) {
        xBase.EsquemaAppForge("T", {{"A", C::Int}, {"X", C::TipoCampo(9)}, {"B", C::Int}});
    });
    ASSERT_TRUE(mBase->OpenFile("Clientes"));
    EXPECT_EQ(Leer("\t"), "7\t\t258");
    EXPECT_EQ(mBase->FieldType(1), "");
    EXPECT_EQ(mBase->FieldAlignment(1), 0);
}

TEST_F(PalmPDBTest, ElEsquema) {
    ASSERT_TRUE(mBase->OpenFile("Completa"));
    EXPECT_EQ(mBase->NumFields(), 8);
    const char* tipos[] = {"Byte", "Int", "Long", "Single", "String", "Boolean", "Date", "String"};
    const char* nombres[] = {"B", "I", "L", "S", "T", "V", "D", "U"};
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(mBase->FieldType(i), tipos[i]);
        EXPECT_EQ(mBase->FieldName(i), nombres[i]);
        EXPECT_EQ(mBase->FieldAlignment(i), QString(tipos[i]) == "String" ? 1 : 0);
    }
    EXPECT_EQ(mBase->FieldsTitles("\t"), "B\tI\tL\tS\tT\tV\tD\tU");
    // Only one character of the trailing separator goes.
    EXPECT_EQ(mBase->FieldsTitles(", "), "B, I, L, S, T, V, D, U,");
    EXPECT_EQ(mBase->FieldName(-1), "");
}

// An update encodes its field alone into the record as it is: a text grows or shrinks the record
// by its bytes, a number or a date goes through the regional settings, a String at the end keeps
// a spare byte; a value the field cannot take writes nothing. Clientes 10 is "AB", 258, True and
// 12 is "", -1, False; Completa 1 holds one field of each type.
TEST_F(PalmPDBTest, ActualizarUnCampo) {
    const struct {
        const char* base;
        qint32 id, campo;
        QString valor;
        QByteArray hex; // the record afterwards; for Completa, what the field reads back
        qint32 error;
    } casos[] = {
        {"Clientes", 10, 0, "abcdef",
         "616263646566000102"
         "01",
         0},
        {"Clientes", 10, 0, "", "00010201", 0},
        {"Clientes", 10, 0, "  xy  ", "787900010201", 0},
        {"Clientes", 10, 1, "-2", "414200fffe01", 0},
        {"Clientes", 10, 2, "0", "414200010200", 0},
        {"Clientes", 12, 2, "true", "00ffff01", 0},
        {"Completa", 1, 3, "12345678", "1.234568E+07", 0},
        {"Completa", 1, 6, "12/31/2010 11:59:58 PM", "12/31/2010 11:59:58 PM", 0},
        {"Completa", 1, 7, "fines", "fines", 0},
        {"Clientes", 10, 1, "70000", {}, ErrorVB::Desbordamiento},
        {"Clientes", 10, 1, "abc", {}, ErrorVB::TiposNoCoinciden},
        {"Completa", 1, 7, QString::fromUtf8("\u03a9"), {}, ErrorTextoNoCodificable},
        // A NUL would end the text there and shift every later field.
        {"Completa", 1, 4, QString("A") + QChar(0) + "B", {}, ErrorTextoNoCodificable},
        // The 16-bit field counter overflows before the schema runs out of fields.
        {"Clientes", 10, 32768, "1", {}, ErrorVB::SubindiceFueraDeRango},
        {"Clientes", 10, 32769, "1", {}, ErrorVB::Desbordamiento},
    };
    for (const auto& caso : casos) {
        GuardarClientes({"414200010201", "2020782000000500", "00ffff00"});
        const QByteArray antes = Bytes(caso.base);
        clsPalmPDB pdb(Fuente());
        ASSERT_TRUE(pdb.OpenFile(caso.base));
        QString texto;
        ASSERT_TRUE(pdb.ReadRecordByID(caso.id, texto, "|"));
        const ErrorVB error =
            ErrorDe([&] { EXPECT_EQ(pdb.UpdateRecord(caso.id, caso.campo, caso.valor), caso.id); });
        EXPECT_EQ(error.Numero(), caso.error) << caso.valor.toStdString();
        if (caso.error != 0) {
            EXPECT_EQ(Bytes(caso.base), antes) << caso.valor.toStdString();
            continue;
        }
        const clsArchivoPDB archivo = Archivo(caso.base);
        if (QByteArray(caso.base) == "Clientes") {
            EXPECT_EQ(archivo.Registros[caso.id - 10].Datos.toHex(), caso.hex)
                << caso.valor.toStdString();
            continue;
        }
        ASSERT_TRUE(pdb.ReadRecordByID(caso.id, texto, "|"));
        EXPECT_EQ(texto.section('|', caso.campo, caso.campo), caso.hex) << caso.valor.toStdString();
    }
    EXPECT_TRUE(Archivo("Completa").Registros[0].Datos.endsWith(QByteArray("fines\0\0", 7)));
}

// A blank record's first String grows from nothing to 30 bytes, more than its own offset: the
// bytes after it move up behind the new text and no other record changes.
TEST_F(PalmPDBTest, ElPrimerTextoDeUnRegistroNuevoCrece) {
    ASSERT_TRUE(mBase->OpenFile("Clientes"));
    // Nothing read yet: there are no field positions to write at.
    EsperarError([&] { mBase->UpdateRecord(10, 1, "5"); }, ErrorVB::SubindiceFueraDeRango,
                 "UpdateRecord");
    const qint32 id = mBase->NewRecord();
    QString texto;
    ASSERT_TRUE(mBase->ReadRecordByID(id, texto, "\t"));
    const auto antes = Archivo("Clientes").Registros;
    const QByteArray nombre("Claw hammer with a long handle");
    EXPECT_EQ(mBase->UpdateRecord(id, 0, nombre), id);
    const auto despues = Archivo("Clientes").Registros;
    ASSERT_EQ(despues.size(), 4);
    EXPECT_EQ(despues[3].Datos.toHex(), nombre.toHex() + "00"
                                                         "0000"
                                                         "00"
                                                         "00");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(despues[i].Datos, antes[i].Datos) << i;
}

// A Japanese handheld: the database name, categories, field names and String fields are in
// Shift_JIS. A longer value moves the fields after it by its bytes, not its characters.
TEST_F(CarpetaTest, UnHandheldJapones) {
    Ajustes("[Handheld]\nEncoding=Shift_JIS\n");
    const QString nombre = QString::fromUtf8("\u9867\u5ba2");
    clsConstructorBase base(nombre, "DATA", "AFjp", "Shift_JIS");
    base.Categorias({QString::fromUtf8("\u672a\u5206\u985e"), QString::fromUtf8("\u4ed5\u4e8b")});
    base.EsquemaAppForge(nombre,
                         {{QString::fromUtf8("\u540d\u524d"), C::String}, {"Edad", C::Int}});
    base.AgregarRegistro({QString::fromUtf8("\u5c71\u7530"), 30}, 0, 1);
    base.Guardar(mCarpeta.filePath("kokyaku.pdb"));
    const auto Registro = [&] { return clsArchivoPDB::Leer(Bytes("kokyaku")).Registros[0].Datos; };

    clsPalmPDB pdb(Fuente());
    ASSERT_TRUE(pdb.OpenFile(nombre));
    EXPECT_EQ(pdb.CategoryName(1), QString::fromUtf8("\u4ed5\u4e8b"));
    EXPECT_EQ(pdb.FieldsTitles("|"), QString::fromUtf8("\u540d\u524d|Edad"));
    QString texto;
    ASSERT_TRUE(pdb.ReadRecordByID(0x100001, texto, "|"));

    pdb.UpdateRecord(0x100001, 0, QString::fromUtf8("\u5c71\u7530\u592a\u90ce"));
    EXPECT_EQ(Registro().toHex(), "8e52936391be9859"
                                  "00"
                                  "001e");
    ASSERT_TRUE(pdb.ReadRecordByID(0x100001, texto, "|"));
    EXPECT_EQ(texto, QString::fromUtf8("\u5c71\u7530\u592a\u90ce|30"));
}

TEST_F(PalmPDBTest, UnRegistroNuevo) {
    ASSERT_TRUE(mBase->OpenFile("Clientes"));
    EXPECT_EQ(mBase->CategoryID(11), 1);
    const qint32 id = mBase->NewRecord();
    EXPECT_EQ(id, 13);
    const clsArchivoPDB archivo = Archivo("Clientes");
    ASSERT_EQ(archivo.Registros.size(), 4);
    // The schema asks for 4 bytes (2-byte Int, one byte for each of the others), one is added.
    EXPECT_EQ(archivo.Registros.last().Datos, QByteArray(5, '\0'));
    EXPECT_EQ(archivo.Registros.last().Atributos, clsArchivoPDB::UnirAtributos(0, 1));

    // The blank-record size is read one byte late, so the byte after the converter's word
    // counts too: 01 01 is 257, more than a byte holds.
    clsArchivoPDB completa = Archivo("Completa");
    completa.AppInfo[295] = 1;
    completa.AppInfo[296] = 1;
    modPrueba::Poner(Ruta("Completa"), completa.Escribir());
    clsPalmPDB otra(Fuente());
    ASSERT_TRUE(otra.OpenFile("Completa"));
    EsperarError([&] { otra.NewRecord(); }, ErrorVB::Desbordamiento, "NewRecord");
}

TEST_F(PalmPDBTest, EscribirAtributos) {
    const struct {
        qint32 antes;
        qint32 dados;
        qint32 despues;
    } casos[] = {
        {0x40, 0, 0x40},    {0x40, 0x10, 0x10},        {0, 0x88, 0x88},
        {0x40, 0x20, 0x40}, {0x80, 0x40 | 0x20, 0x60}, {0x40, 0x08, 0},
    };
    for (const auto& caso : casos) {
        GuardarClientes({"00", "2020782000000500"}, 1, [&](clsConstructorBase& xBase) {
            xBase.Archivo().Registros[1].Atributos = clsArchivoPDB::UnirAtributos(caso.antes, 1);
        });
        clsPalmPDB pdb(Fuente());
        ASSERT_TRUE(pdb.OpenFile("Clientes"));
        EXPECT_TRUE(pdb.WriteRecordAttributes(11, caso.dados));
        const EntradaRegistroPDB registro = Archivo("Clientes").Registros[1];
        qint32 atributos = 0, categoria = 0;
        clsArchivoPDB::SepararAtributos(registro.Atributos, atributos, categoria);
        EXPECT_EQ(atributos, caso.despues) << caso.antes << " " << caso.dados;
        EXPECT_EQ(pdb.RecordAttributes(11), caso.despues);
        EXPECT_EQ(registro.Datos.toHex(), "2020782000000500");
    }
}

// A file may hold a record whose unique ID is 0, the ID that asks for a new record when a record
// is added: an update or an attribute write changes that record in place and adds none.
TEST_F(PalmPDBTest, UnRegistroDeID0SeEscribeEnSuLugar) {
    GuardarClientes({"4100000101", "4200000200"}, 1,
                    [](clsConstructorBase& xBase) { xBase.Archivo().Registros[0].ID = 0; });
    clsPalmPDB pdb(Fuente());
    ASSERT_TRUE(pdb.OpenFile("Clientes"));
    QString texto;
    bool alPrincipio = true;
    ASSERT_EQ(pdb.ReadRecord(alPrincipio, texto, "\t"), 0);
    EXPECT_EQ(pdb.UpdateRecord(0, 0, "Z"), 0);
    EXPECT_TRUE(pdb.WriteRecordAttributes(0, 0x10));
    const clsArchivoPDB archivo = Archivo("Clientes");
    ASSERT_EQ(archivo.Registros.size(), 2);
    EXPECT_EQ(archivo.Registros[0].ID, 0u);
    EXPECT_EQ(archivo.Registros[0].Datos.toHex(), "5a00000101");
    qint32 atributos = 0, categoria = 0;
    clsArchivoPDB::SepararAtributos(archivo.Registros[0].Atributos, atributos, categoria);
    EXPECT_EQ(atributos, 0x10);
    EXPECT_EQ(archivo.Registros[1].Datos.toHex(), "4200000200");
}

TEST_F(PalmPDBTest, DatosDeCadaRegistro) {
    ASSERT_TRUE(mBase->OpenFile("Clientes"));
    const struct {
        qint32 id;
        qint32 atributos, categoria, indice, largo;
    } casos[] = {{10, 0, 0, 0, 6}, {11, 0x40, 1, 1, 8}, {12, 0, 1, 2, 4}};
    for (const auto& caso : casos) {
        EXPECT_EQ(mBase->RecordAttributes(caso.id), caso.atributos);
        EXPECT_EQ(mBase->CategoryID(caso.id), caso.categoria);
        EXPECT_EQ(mBase->RecordIndex(caso.id), caso.indice);
        EXPECT_EQ(mBase->RecordLength(caso.id), caso.largo);
    }
    QString texto;
    EXPECT_TRUE(mBase->ReadRecordByID(10, texto, ","));
    EXPECT_EQ(texto, "\"AB\",258,True");
    // An unknown record gives each property's failure value; its length is an error.
    EXPECT_EQ(mBase->RecordAttributes(99), -1);
    EXPECT_EQ(mBase->CategoryID(99), 0);
    EXPECT_EQ(mBase->RecordIndex(99), 0);
    EsperarError([&] { mBase->RecordLength(99); }, ErroresFuente::RegistroNoEncontrado,
                 "LeerPorID");
    EsperarError([&] { mBase->ReadRecordByID(99, texto, "\t"); },
                 ErroresFuente::RegistroNoEncontrado, "LeerPorID");
    EsperarError([&] { mBase->WriteRecordAttributes(99, 0x40); },
                 ErroresFuente::RegistroNoEncontrado, "LeerPorID");
    EXPECT_EQ(mBase->RetrieveSortInfo(), QByteArray::fromHex("0102"));
    EXPECT_EQ(mBase->CategoriesCount(), 2);
    EXPECT_EQ(mBase->CategoryName(1), "Business");
}

TEST_F(PalmPDBTest, Borrar) {
    ASSERT_TRUE(mBase->OpenFile("Clientes"));
    EXPECT_TRUE(mBase->DeleteRecord(11));
    EXPECT_FALSE(mBase->DeleteRecord(11));
    EXPECT_FALSE(mBase->DeleteRecord(99));
    EXPECT_EQ(Archivo("Clientes").Registros.size(), 2);
    const auto permisos = QFile::permissions(Ruta("Clientes"));
    QFile::setPermissions(Ruta("Clientes"), QFile::ReadOwner);
    // A record that is there but cannot be deleted is a failed write, not an unknown ID.
    EsperarError([&] { mBase->DeleteRecord(10); }, ErroresFuente::EscrituraFallida,
                 "BorrarRegistro");
    EsperarError([&] { mBase->DeleteAllRecords(); }, ErroresFuente::EscrituraFallida,
                 "BorrarTodos");
    EsperarError([&] { mBase->WriteRecordAttributes(10, 320); }, ErrorVB::Desbordamiento,
                 "WriteRecordAttributes");
    QFile::setPermissions(Ruta("Clientes"), permisos);
    mBase->DeleteAllRecords();
    EXPECT_TRUE(Archivo("Clientes").Registros.isEmpty());
}

// Two objects over two sources stand for two programs: both read record 10 ("abc", 5, True),
// the other one writes first. (Two updates of one record: the batch test of pandrel-cli.)
TEST_F(PalmPDBTest, DosEscritoresDeUnRegistro) {
    const struct {
        const char* caso;
        std::function<void(clsPalmPDB&)> otro;
        std::function<void(clsPalmPDB&)> nuestro;
        QByteArray despues; // record 10 on disk
        qint32 atributos;
    } casos[] = {
        {"attributes keep the other's field", [](clsPalmPDB& x) { x.UpdateRecord(10, 1, "7"); },
         [](clsPalmPDB& x) { x.WriteRecordAttributes(10, 0x10); }, "61626300000701", 0x10},
        {"a field keeps the other's attributes",
         [](clsPalmPDB& x) { x.WriteRecordAttributes(10, 0x10); },
         [](clsPalmPDB& x) { x.UpdateRecord(10, 1, "7"); }, "61626300000701", 0x10},
    };
    for (const auto& caso : casos) {
        GuardarClientes({"61626300000501", "00", "00"});
        clsPalmPDB otro(Fuente()), nuestro(Fuente());
        QString texto;
        for (clsPalmPDB* pdb : {&otro, &nuestro}) {
            ASSERT_TRUE(pdb->OpenFile("Clientes"));
            ASSERT_TRUE(pdb->ReadRecordByID(10, texto, "\t"));
        }
        caso.otro(otro);
        caso.nuestro(nuestro);
        const clsArchivoPDB archivo = Archivo("Clientes");
        ASSERT_EQ(archivo.Registros[0].ID, 10u);
        EXPECT_EQ(archivo.Registros[0].Datos.toHex(), caso.despues) << caso.caso;
        EXPECT_EQ(nuestro.RecordAttributes(10), caso.atributos) << caso.caso;
    }
}

TEST_F(PalmPDBTest, UnaBaseDeRecursos) {
    ASSERT_TRUE(mBase->OpenFile("Aplicacion"));
    EXPECT_FALSE(mBase->IsDataBase());
    EXPECT_FALSE(mBase->IsAppForgeDB());
    EXPECT_EQ(mBase->NumRecords(), 0);
    EXPECT_EQ(mBase->CategoriesCount(), 0);
    QString texto = "previo";
    bool alPrincipio = true;
    EXPECT_EQ(mBase->ReadRecord(alPrincipio, texto, "\t"), 0);
    EXPECT_EQ(texto, "previo");
    EXPECT_FALSE(mBase->DeleteRecord(1));
}

TEST_F(PalmPDBTest, LaCabecera) {
    const struct {
        qint32 version, companero;
        float esperada;
    } versiones[] = {{1, 5, 1.05f}, {1, 0, 1.0f}, {2, 150, 3.5f}, {3, -1, 3.0f}, {0, 1, 0.01f}};
    for (const auto& caso : versiones) {
        GuardarClientes({}, caso.version);
        clsPalmPDB pdb(Fuente({{}, caso.companero}));
        ASSERT_TRUE(pdb.OpenFile("Clientes"));
        EXPECT_FLOAT_EQ(pdb.DBVersion(), caso.esperada);
    }
    // The other header facts pass through as the source's information object gives them (see the
    // source's own suite).
}

class CatalogoTest : public CarpetaTest {
protected:
    void SetUp() override {
        CarpetaTest::SetUp();
        const struct {
            const char* nombre;
            const char* tipo;
            const char* creador;
            bool appForge;
            bool recursos;
        } bases[] = {
            {"zeta", "DATA", "AFc1", true, false},   {"Alfa", "data", "AFc1", false, false},
            {"App1", "appl", "AFc1", false, true},   {"beta", "Data", "memo", false, false},
            {"Memo2", "MEMO", "memo", false, false}, {"Otra", "DATA", "Zz01", true, false},
            {"Prog", "APPL", "prg1", false, true},   {"Ocupada", "DATA", "busy", false, false},
            {"a*b", "DATA", "star", false, false},
        };
        for (const auto& b : bases) {
            clsConstructorBase base(b.nombre, b.tipo, b.creador);
            if (b.recursos) base.AgregarRecurso("code", 1, "xx");
            if (b.appForge) base.EsquemaAppForge("T", {{"A", C::Int}});
            Guardar(base);
        }
        // A file named otherwise than its database: the list goes by the database's name.
        clsConstructorBase("Aaa", "DATA", "memo").Guardar(mCarpeta.filePath("z.pdb"));
        mFuente = Fuente({{{"Ocupada", ErroresFuente::BaseEnUso}}});
    }
    std::shared_ptr<clsFuentePalm> mFuente;
};

TEST_F(CatalogoTest, LasBasesDeUnCreador) {
    clsPalmPDB pdb(mFuente);
    const struct {
        const char* creador;
        const char* separador;
        QString esperado;
    } casos[] = {
        {"AFc1", "\t", "Alfa*1\tApp1*4\tzeta*1\t"},
        {"memo", "|", "Aaa*1|Memo2*12|beta*1|"},
        {"prg1", ";", "Prog*4;"},
        {"nada", "\t", ""},
        {"star", "\t", "a*0\t"},
    };
    for (const auto& caso : casos)
        EXPECT_EQ(pdb.RetrieveDataBases(caso.creador, caso.separador), caso.esperado)
            << caso.creador;
}

TEST_F(CatalogoTest, LosCreadoresPorClase) {
    const struct {
        qint32 clase;
        QString esperado;
    } casos[] = {
        {0, "AFc1\tZz01\t"},
        {1, "memo\tprg1\tstar\t"},
        {2, "AFc1\tZz01\tbusy\tmemo\tprg1\tstar\t"},
    };
    for (const auto& caso : casos) {
        clsPalmPDB pdb(Fuente({{{"Ocupada", ErroresFuente::BaseEnUso}}}));
        EXPECT_EQ(pdb.RetrieveCreatorsID(caso.clase, "\t"), caso.esperado) << caso.clase;
    }
}

} // namespace
