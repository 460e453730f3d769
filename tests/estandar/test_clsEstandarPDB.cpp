#include "common/ErrorVB.h"
#include "constructor/clsConstructorEstandar.h"
#include "constructor/modHandheldEstandar.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "estandar/clsDecodificadorDirecciones.h"
#include "estandar/clsEstandarPDB.h"
#include "support/modPrueba.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

constexpr qint32 Primero = 0x100001; // the first ID the builder gives

class EstandarTest : public ::testing::Test {
protected:
    void SetUp() override { modPrueba::PrepararTextos(); }
    std::shared_ptr<clsFuenteCarpeta> Fuente(const QString& xCarpeta) {
        return std::make_shared<clsFuenteCarpeta>(xCarpeta);
    }
    // The fields of a record as the grid gets them.
    static QStringList Campos(clsEstandarPDB& xBase, qint32 xID) {
        QString texto;
        EXPECT_TRUE(xBase.ReadRecordByID(xID, texto, "\t"));
        return texto.split('\t');
    }
    // Each field as expected; an expected text ending in "..." is the start of a long one.
    static void Comparar(const QStringList& xLeidos, const QStringList& xEsperados) {
        ASSERT_EQ(xLeidos.size(), xEsperados.size()) << xLeidos.join('|').toStdString();
        for (int k = 0; k < xLeidos.size(); ++k) {
            if (xEsperados[k].endsWith("..."))
                EXPECT_TRUE(xLeidos[k].startsWith(xEsperados[k].chopped(3))) << k;
            else
                EXPECT_EQ(xLeidos[k], xEsperados[k]) << "field " << k;
        }
    }
    QTemporaryDir mCarpeta;
};

// A record's fields, separated by "|".
struct CasoRegistro {
    const char* Base;
    qint32 ID;
    QString Campos;
};

// The real handhelds' files, field by field as Perl's Palm::Address, Palm::Datebook, Palm::ToDo
// and Palm::Memo read them.
TEST_F(EstandarTest, LosArchivosRealesCampoPorCampo) {
    if (!QDir(PANDREL_FIXTURES).exists()) GTEST_SKIP() << "no real handheld files";
    const CasoRegistro casos[] = {
        {"MemoDB", 2,
         "Handheld Basics|Handheld Basics\u00b6\u00b6\u2022 Press any...|Unfiled|False"},
        {"MemoDB", 6,
         "Navigator Button Tips|Navigator Button Tips\u00b6\u00b6Use the...|Unfiled|False"},
        {"ToDoDB", 3,
         "Check out the Software Essentials CD today!|2/21/2021|1|False|Increase the "
         "power...|Unfiled|False"},
        {"ToDoDB", 4, "Protect your handheld||1|False|Your handheld is...|Unfiled|False"},
        {"AddressDB", 3,
         "Technical Support||palmOne, Inc.||www.palmOne.com/support|Main|Int'l: "
         "www.palmOne.com/support/intl|Other|||||||1||||||||||For the latest information on "
         "products and upgrades, check our web site regularly.||||Unfiled|False"},
        {"DatebookDB", 14053380,
         "Test 3|2/20/2021 8:00:00 AM|2/20/2021 6:00:00 PM|False|||Weekly|1|Sat|||||False"},
        {"DatebookDB", 2285570,
         "Test 2|2/17/2021 5:00:00 PM|2/17/2021 6:00:00 PM|False||||||||||False"},
    };
    clsEstandarPDB base(Fuente(PANDREL_FIXTURES));
    for (const CasoRegistro& caso : casos) {
        base.CloseDatabase();
        ASSERT_TRUE(base.OpenFile(caso.Base));
        ASSERT_TRUE(base.IsAppForgeDB());
        Comparar(Campos(base, caso.ID), caso.Campos.split('|'));
    }
    // The address book's settings: its country and labels.
    base.CloseDatabase();
    base.OpenFile("AddressDB");
    const auto& direcciones =
        static_cast<const clsDecodificadorDirecciones&>(*base.Decodificador());
    EXPECT_EQ(direcciones.Ajustes().Pais, 23);
    EXPECT_FALSE(direcciones.Ajustes().OrdenPorEmpresa);
    EXPECT_EQ(direcciones.Ajustes().Etiquetas[8], "Addr(W)");
    EXPECT_EQ(direcciones.Ajustes().NombreEtiquetaTelefono(ContactoPalm::Movil), "Mobile");
}

// What real backups lack: every phone label, renamed custom fields, every repeat, to-dos without
// a due day, a memo with a tab and line breaks (one line in the grid's cell).
TEST_F(EstandarTest, LasBasesConstruidasCampoPorCampo) {
    modHandheldEstandar::Guardar(mCarpeta.path());
    const CasoRegistro casos[] = {
        {"AddressDB", Primero,
         "Alvarez|María José|Café Olé, S.L.|Owner|+34 91 555 0101|Work|+34 600 555 "
         "101|Mobile|maria@cafeole.example|E-mail|+34 91 555 0102|Fax|+34 91 555 0100|Main|2|Calle "
         "Mayor 5; 2º|Madrid||28013|Spain|12 May||||Prefers calls after 10:00.\u00b6Likes "
         "\"cortado\", no sugar.||||Business|False"},
        {"AddressDB", Primero + 1,
         "Baker|Tom|||555-0123|Home|555-0199|Pager|555-0177|Other|||||1|||||||Ann|||||||Personal|"
         "True"},
        {"DatebookDB", Primero,
         "Team meeting|3/1/2021 9:00:00 AM|3/1/2021 10:00:00 AM|False|15|Minutes|Weekly|2|Mon "
         "Wed|4/30/2021|3/15/2021, 3/17/2021|||False"},
        {"DatebookDB", Primero + 4,
         "Payday|1/29/2021||True|||Monthly by Day|1|Last Fri|12/31/2021|7/30/2021|||False"},
        {"DatebookDB", Primero + 3,
         "Book club|1/12/2021 7:00:00 PM|1/12/2021 9:00:00 PM|False|2|Hours|Monthly by Day|1|2nd "
         "Tue|6/30/2021||Bring: the book, snacks; notes, questions||False"},
        {"ToDoDB", Primero + 1, "Call plumber||3|False||Unfiled|False"},
        {"ToDoDB", Primero + 2, "Renew passport|2/1/2021|2|True||Unfiled|True"},
        {"MemoDB", Primero + 1,
         "Ideas for the garden|Ideas for the garden\u00b6- roses\u00b6 - tulips|Unfiled|False"},
    };
    clsEstandarPDB base(Fuente(mCarpeta.path()));
    for (const CasoRegistro& caso : casos) {
        base.CloseDatabase();
        ASSERT_TRUE(base.OpenFile(caso.Base));
        Comparar(Campos(base, caso.ID), caso.Campos.split('|'));
    }
    base.CloseDatabase();
    base.OpenFile("AddressDB");
    EXPECT_EQ(base.FieldsTitles("|").section('|', 20, 23), "Birthday|Spouse|Web site|Customer ID");
    EXPECT_EQ(base.FieldType(14), "Byte");
    EXPECT_EQ(base.FieldAlignment(0), 1);
    EXPECT_EQ(base.NumFields(), 30);
}

// A Japanese handheld names no code page: its address book's country does, and the names are
// split from their readings.
TEST_F(EstandarTest, UnHandheldJaponesLeeShiftJISYSeparaLasLecturas) {
    modHandheldEstandar::GuardarJapones(mCarpeta.path());
    const auto fuente = Fuente(mCarpeta.path());
    EXPECT_EQ(fuente->CodigoPagina(), "windows-932");
    clsEstandarPDB base(fuente);
    base.OpenFile("AddressDB");
    Comparar(Campos(base, Primero),
             QString("山田|太郎|山田商事||090-1234-5678|携帯|taro@yamada.example|E-mail||||||"
                     "|1|||||||||||やまだ|たろう|やまだしょうじ|仕事|False")
                 .split('|'));
}

// The records' bytes never change; attributes are written, and read back in the record.
TEST_F(EstandarTest, SoloLosAtributosSeEscriben) {
    modHandheldEstandar::Guardar(mCarpeta.path());
    const QString archivo = mCarpeta.filePath("MemoDB.pdb");
    const QByteArray antes = modPrueba::Leer(archivo);
    clsEstandarPDB base(Fuente(mCarpeta.path()));
    base.OpenFile("MemoDB");
    EXPECT_EQ(base.UpdateRecord(Primero, 0, "changed"), -1);
    EXPECT_EQ(base.NewRecord(), -1);
    EXPECT_FALSE(base.DeleteRecord(Primero));
    base.DeleteAllRecords();
    EXPECT_EQ(modPrueba::Leer(archivo), antes);

    EXPECT_EQ(base.RecordAttributes(Primero), 0);
    EXPECT_TRUE(base.WriteRecordAttributes(Primero, 0x10));
    EXPECT_EQ(base.RecordAttributes(Primero), 0x10);
    EXPECT_EQ(base.CategoryID(Primero), 2);
    EXPECT_EQ(Campos(base, Primero).last(), "True");
    EXPECT_EQ(base.RecordLength(Primero), 27);
}

// A database whose header names it "" is open as any other (a finding of the fuzz target).
TEST_F(EstandarTest, UnaBaseSinNombreSeAbreComoLasDemas) {
    clsConstructorEstandar memos(ClaseEstandar::Memos);
    memos.Archivo().Nombre.clear();
    memos.AgregarMemo("hello");
    memos.Guardar(mCarpeta.filePath("m.pdb"));
    clsEstandarPDB base(Fuente(mCarpeta.path()));
    ASSERT_TRUE(base.OpenFile(""));
    EXPECT_EQ(Campos(base, Primero), QStringList({"hello", "hello", "Unfiled", "False"}));
    EXPECT_EQ(base.NumRecords(), 1);
    EXPECT_THROW(base.OpenFile(""), ErrorVB) << "one database at a time";
}

// Bytes that lie about the record: a numbered error naming the record, never a read outside it.
TEST_F(EstandarTest, UnRegistroQueMienteEsUnErrorNumerado) {
    struct Caso {
        ClaseEstandar Clase;
        const char* Hex;
        const char* Motivo;
    };
    const Caso casos[] = {
        {ClaseEstandar::Tareas, "ff", "too short"},
        {ClaseEstandar::Tareas, "0000016100", "due date (0000) is no day"},
        {ClaseEstandar::Direcciones, "00000000000000070061006200", "company runs past"},
        {ClaseEstandar::Agenda, "0900ffff", "too short"},
        {ClaseEstandar::Agenda, "19000a00a2b40000", "time 25:0 to 10:0"},
        {ClaseEstandar::Agenda, "09000a00a2b42000090000000101000000", "repeat type 9"},
        {ClaseEstandar::Agenda, "09000a00a2b420000300ffff01230000", "monthly repeat day 35"},
        {ClaseEstandar::Agenda, "09000a00a2b4400005030000", "alarm unit 3"},
        {ClaseEstandar::Agenda, "09000a00a2b408000064a2b5", "exceptions run past"},
        {ClaseEstandar::Agenda, "09000a00a2b40400616263", "description runs past"},
    };
    for (const Caso& caso : casos) {
        QDir(mCarpeta.path()).removeRecursively();
        QDir().mkpath(mCarpeta.path());
        clsConstructorEstandar constructor(caso.Clase);
        constructor.AgregarRegistroCrudo(QByteArray::fromHex(caso.Hex));
        // A deleted record without its data is no lie: its fields are empty.
        constructor.AgregarRegistroCrudo(QByteArray(), 0x80);
        constructor.Guardar(mCarpeta.filePath("db.pdb"));
        clsEstandarPDB base(Fuente(mCarpeta.path()));
        base.OpenFile(QString::fromLatin1(constructor.Archivo().Nombre));
        QString texto;
        const ErrorVB error =
            modPrueba::ErrorDe([&] { base.ReadRecordByID(Primero, texto, "\t"); });
        EXPECT_EQ(error.Numero(), ErroresEstandar::RegistroDanado) << caso.Hex;
        EXPECT_EQ(error.Fuente(), "ReadRecord");
        EXPECT_TRUE(error.Descripcion().startsWith("The record 1048577 of ")) << error.what();
        EXPECT_TRUE(error.Descripcion().contains(caso.Motivo)) << error.what();
        EXPECT_TRUE(base.ReadRecordByID(Primero + 1, texto, "\t"));
        EXPECT_TRUE(texto.endsWith("\tFalse")) << caso.Hex;
    }
}

} // namespace
