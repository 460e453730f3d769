#include "constructor/modHandheldEstandar.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/modHandheld.h"
#include "estandar/modExportacionEstandar.h"
#include "support/modPrueba.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <libical/ical.h>
#include <map>

namespace {

using modExportacionEstandar::Formato;

using modPrueba::Leer;

QString TextoTiempo(const icaltimetype& xTiempo) {
    if (xTiempo.is_date)
        return QString::asprintf("%04d-%02d-%02d", xTiempo.year, xTiempo.month, xTiempo.day);
    return QString::asprintf("%04d-%02d-%02d %02d:%02d", xTiempo.year, xTiempo.month, xTiempo.day,
                             xTiempo.hour, xTiempo.minute);
}

// What a calendar program makes of one event: its occurrences (repeats expanded, exceptions
// left out) until 2022, and its alarm's trigger in seconds.
struct Evento {
    QStringList Ocurrencias;
    int Disparo = 0;
};

std::map<QString, Evento> EventosDe(const QByteArray& xTexto) {
    std::map<QString, Evento> eventos;
    icalcomponent* calendario = icalparser_parse_string(xTexto.constData());
    EXPECT_NE(calendario, nullptr);
    if (!calendario) return eventos;
    EXPECT_EQ(icalrestriction_check(calendario), 1);
    for (icalcomponent* evento =
             icalcomponent_get_first_component(calendario, ICAL_VEVENT_COMPONENT);
         evento; evento = icalcomponent_get_next_component(calendario, ICAL_VEVENT_COMPONENT)) {
        Evento& datos = eventos[QString::fromUtf8(icalcomponent_get_summary(evento))];
        std::pair<QStringList*, bool> destino(&datos.Ocurrencias,
                                              icalcomponent_get_dtstart(evento).is_date);
        icalcomponent_foreach_recurrence(
            evento, icaltime_from_string("20100101T000000"),
            icaltime_from_string("20220101T000000"),
            [](icalcomponent*, icaltime_span* xTramo, void* xDatos) {
                auto* lista = static_cast<std::pair<QStringList*, bool>*>(xDatos);
                lista->first->append(TextoTiempo(icaltime_from_timet_with_zone(
                    xTramo->start, lista->second, icaltimezone_get_utc_timezone())));
            },
            &destino);
        if (icalcomponent* alarma =
                icalcomponent_get_first_component(evento, ICAL_VALARM_COMPONENT))
            datos.Disparo =
                icaldurationtype_as_int(icalproperty_get_trigger(icalcomponent_get_first_property(
                                                                     alarma, ICAL_TRIGGER_PROPERTY))
                                            .duration);
    }
    icalcomponent_free(calendario);
    return eventos;
}

class ExportacionTest : public ::testing::Test {
protected:
    void SetUp() override {
        modPrueba::PrepararTextos();
        modHandheldEstandar::Guardar(mCarpeta.path());
        mFuente = std::make_shared<clsFuenteCarpeta>(mCarpeta.path());
        modHandheld::EstablecerFuente(mFuente);
    }
    QByteArray Exportar(const QString& xBase, const QString& xArchivo) {
        clsEstandarPDB base(mFuente);
        base.OpenFile(xBase);
        const QString ruta = mCarpeta.filePath("out/" + xArchivo);
        modExportacionEstandar::Exportar(base, ruta,
                                         modExportacionEstandar::FormatoDeArchivo(xArchivo));
        return Leer(ruta);
    }
    QTemporaryDir mCarpeta;
    std::shared_ptr<clsFuentePalm> mFuente;
};

// A real iCalendar library reads every repeat type back with its occurrences, exceptions and
// alarms as the handheld shows them.
TEST_F(ExportacionTest, UnCalendarioLeeCadaRepeticionComoElHandheld) {
    const std::map<QString, Evento> esperados = {
        {"Team meeting",
         {{"2021-03-01 09:00", "2021-03-03 09:00", "2021-03-29 09:00", "2021-03-31 09:00",
           "2021-04-12 09:00", "2021-04-14 09:00", "2021-04-26 09:00", "2021-04-28 09:00"},
          -900}},
        {"Gym",
         {{"2021-03-01 07:00", "2021-03-03 07:00", "2021-03-07 07:00", "2021-03-09 07:00"}, 0}},
        {"Rent", {{"2021-01-01", "2021-02-01", "2021-03-01", "2021-05-01", "2021-06-01"}, -86400}},
        {"Book club",
         {{"2021-01-12 19:00", "2021-02-09 19:00", "2021-03-09 19:00", "2021-04-13 19:00",
           "2021-05-11 19:00", "2021-06-08 19:00"},
          -7200}},
        {"Payday",
         {{"2021-01-29", "2021-02-26", "2021-03-26", "2021-04-30", "2021-05-28", "2021-06-25",
           "2021-08-27", "2021-09-24", "2021-10-29", "2021-11-26", "2021-12-31"},
          0}},
        {"Anniversary",
         {{"2015-06-20", "2016-06-20", "2017-06-20", "2018-06-20", "2019-06-20", "2020-06-20",
           "2021-06-20"},
          0}},
        {"Dentist", {{"2021-03-03 14:30"}, -1800}},
        {"Holiday", {{"2021-04-02"}, 0}},
    };
    const std::map<QString, Evento> leidos = EventosDe(Exportar("DatebookDB", "calendar.ics"));
    ASSERT_EQ(leidos.size(), esperados.size());
    for (const auto& [resumen, evento] : esperados) {
        const Evento& leido = leidos.at(resumen);
        EXPECT_EQ(leido.Ocurrencias, evento.Ocurrencias)
            << resumen.toStdString() << ": " << leido.Ocurrencias.join(' ').toStdString();
        EXPECT_EQ(leido.Disparo, evento.Disparo) << resumen.toStdString();
    }
}

// The lines as RFC 5545 and RFC 2426 want them: CR LF ends, none over 75 octets, texts escaped.
TEST_F(ExportacionTest, LasLineasSeDoblanYLosTextosSeEscapan) {
    const QByteArray calendario = Exportar("DatebookDB", "calendar.ics");
    const QByteArray tarjetas = Exportar("AddressDB", "contacts.vcf");
    const QByteArray tareas = Exportar("ToDoDB", "todos.ics");
    for (const QByteArray& texto : {calendario, tarjetas, tareas}) {
        ASSERT_TRUE(texto.endsWith("\r\n"));
        for (const QByteArray& linea : texto.chopped(1).split('\n')) {
            EXPECT_TRUE(linea.endsWith('\r')) << linea.constData();
            EXPECT_LE(linea.size() - 1, 75) << linea.constData();
            // A fold never splits a UTF-8 character.
            EXPECT_FALSE(QString::fromUtf8(linea).contains(QChar::ReplacementCharacter));
        }
    }
    const QByteArray desdoblado = QByteArray(tarjetas).replace("\r\n ", "");
    for (const char* linea :
         {"N:Alvarez;María José;;;\r\n", "FN:María José Alvarez\r\n", "ORG:Café Olé\\, S.L.\r\n",
          "TEL;TYPE=CELL,VOICE,PREF:+34 600 555 101\r\n",
          "EMAIL;TYPE=INTERNET:maria@cafeole.example\r\n", "TEL;TYPE=FAX:+34 91 555 0102\r\n",
          "TEL;TYPE=MAIN:+34 91 555 0100\r\n", "ADR:;;Calle Mayor 5\\; 2º;Madrid;;28013;Spain\r\n",
          "item1.X-CUSTOM1:12 May\r\n", "item1.X-ABLabel:Birthday\r\n",
          "NOTE:Prefers calls after 10:00.\\nLikes \"cortado\"\\, no sugar.\r\n",
          "CATEGORIES:Business\r\n", "TEL;TYPE=PAGER:555-0199\r\n", "CLASS:PRIVATE\r\n",
          "TEL;TYPE=OTHER,VOICE:555-0177\r\n", "FN:Northwind Traders\r\n",
          "item2.X-CUSTOM4:NW-0042\r\nitem2.X-ABLabel:Customer ID\r\n",
          "printed booklet and as a spreadsheet\\\\backup on request.\r\n"})
        EXPECT_TRUE(desdoblado.contains(linea)) << linea;
    for (const char* linea :
         {"DTSTART;VALUE=DATE:20210129\r\nDTEND;VALUE=DATE:20210130\r\n",
          "RRULE:FREQ=MONTHLY;BYDAY=-1FR;UNTIL=20211231\r\n", "EXDATE;VALUE=DATE:20210730\r\n",
          "RRULE:FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,WE;UNTIL=20210430T090000;WKST=MO\r\n",
          "EXDATE:20210315T090000,20210317T090000\r\n",
          "DESCRIPTION:Bring: the book\\, snacks\\; notes\\, questions\r\n"})
        EXPECT_TRUE(calendario.contains(linea)) << linea;
    for (const char* linea :
         {"SUMMARY:File taxes\r\nDUE;VALUE=DATE:20210415\r\nPRIORITY:1\r\nSTATUS:NEEDS-ACTION\r\n"
          "DESCRIPTION:Forms 1040\\, W-2\r\nCATEGORIES:Business\r\n",
          "SUMMARY:Call plumber\r\nPRIORITY:5\r\nSTATUS:NEEDS-ACTION\r\nEND:VTODO",
          "SUMMARY:Renew passport\r\nDUE;VALUE=DATE:20210201\r\nPRIORITY:3\r\nSTATUS:COMPLETED\r\n"
          "PERCENT-COMPLETE:100\r\nCLASS:PRIVATE\r\n"})
        EXPECT_TRUE(tareas.contains(linea)) << linea;
}

TEST_F(ExportacionTest, ElCSVLlevaTodosLosCamposEnUTF8) {
    const QByteArray csv = Exportar("MemoDB", "memos.csv");
    EXPECT_EQ(csv,
              "Title,Memo,Category,Private\r\n"
              "Shopping,\"Shopping\nEggs, milk; bread\",Personal,False\r\n"
              "Ideas for the garden,\"Ideas for the garden\n- roses\n\t- tulips\",Unfiled,False\r\n"
              "PIN codes,\"PIN codes\nbank: 1234\",Personal,True\r\n");
    EXPECT_TRUE(Exportar("DatebookDB", "d.csv")
                    .contains("\r\nPayday,2021-01-29,,True,,,Monthly by Day,1,Last "
                              "Fri,2021-12-31,2021-07-30,,,False\r\n"));
}

TEST_F(ExportacionTest, UnFormatoQueNoLeVaALaBaseEsUnError) {
    struct Caso {
        const char* Base;
        const char* Archivo;
    };
    for (const Caso& caso :
         {Caso{"MemoDB", "m.vcf"}, Caso{"MemoDB", "m.ics"}, Caso{"AddressDB", "a.ics"},
          Caso{"ToDoDB", "t.vcf"}, Caso{"AddressDB", "a.doc"}}) {
        modPrueba::EsperarError([&] { Exportar(caso.Base, caso.Archivo); },
                                ErroresEstandar::FormatoNoAdmitido, {}, caso.Base);
        EXPECT_FALSE(QFile::exists(mCarpeta.filePath(QString("out/") + caso.Archivo)));
    }
}

// Export Standard Data: a file per application, and a line for what the handheld lacks.
TEST_F(ExportacionTest, ElHandheldEnteroSeExportaConUnResumen) {
    QFile::remove(mCarpeta.filePath("ToDoDB.pdb"));
    const auto fuente = std::make_shared<clsFuenteCarpeta>(mCarpeta.path());
    const QString destino = mCarpeta.filePath("export");
    EXPECT_EQ(modExportacionEstandar::ExportarHandheld(fuente, destino),
              QStringList({"contacts.vcf: 4 contacts from AddressDB.",
                           "calendar.ics: 8 appointments from DatebookDB.",
                           "todos.ics: not written, the handheld has no To Do List database.",
                           "memos.csv: 3 memos from MemoDB."}));
    EXPECT_EQ(QDir(destino).entryList(QDir::Files),
              QStringList({"calendar.ics", "contacts.vcf", "memos.csv"}));
}

} // namespace
