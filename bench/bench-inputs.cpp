// Builds the benchmark handhelds:
//   FOLDER/big   one AppForge database "BenchBig" of 65,535 records with eight fields (one of each
//                type and a second String), the largest a database can hold;
//   FOLDER/many  1,000 databases under 250 creators, a third of them AppForge databases;
//   FOLDER/report one AppForge database "BenchReport" of 2,000 records with the same fields;
//   FOLDER/many.zip the databases of many/ as a zip backup;
//   FOLDER/estandar an address book of 10,000 contacts and a date book of 5,000 appointments,
//                a third of them repeating, as the built-in applications write them.

#include "constructor/clsConstructorBase.h"
#include "constructor/clsConstructorEstandar.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <cstdio>
#include <stdexcept>
#include <zip.h>

namespace {

using C = clsConstructorBase;

const QVector<C::Campo> kCampos = {
    {"Flag", C::Byte},   {"Count", C::Int},      {"Serial", C::Long}, {"Amount", C::Single},
    {"Name", C::String}, {"Active", C::Boolean}, {"When", C::Date},   {"Comment", C::String}};

QVariantList Valores(int xIndice) {
    const QDateTime fecha(QDate(2004, 1, 1).addDays(xIndice % 700),
                          QTime(0, 0).addSecs((xIndice * 37) % 86400), Qt::UTC);
    return {xIndice % 256,
            (xIndice % 60000) - 30000,
            100000 + xIndice * 3,
            xIndice * 0.25,
            QStringLiteral("Customer %1").arg(xIndice),
            xIndice % 2 == 0,
            fecha,
            QStringLiteral("Order %1 delivered").arg(xIndice * 7)};
}

void GrandeEn(const QString& xCarpeta) {
    C base("BenchBig", "DATA", "BnBg");
    base.Categorias({"Unfiled", "North", "South"});
    base.EsquemaAppForge("Bench", kCampos);
    for (int i = 0; i < 65535; ++i)
        base.AgregarRegistro(Valores(i), i % 10 == 0 ? 0x40 : 0, i % 3);
    base.Guardar(xCarpeta + "/BenchBig.pdb");
}

void InformeEn(const QString& xCarpeta) {
    C base("BenchReport", "DATA", "BnRp");
    base.EsquemaAppForge("Bench", kCampos);
    for (int i = 0; i < 2000; ++i)
        base.AgregarRegistro(Valores(i));
    base.Guardar(xCarpeta + "/BenchReport.pdb");
}

void MuchasEn(const QString& xCarpeta) {
    for (int i = 0; i < 1000; ++i) {
        const QString creador = QStringLiteral("C%1").arg(i / 4, 3, 10, QChar('0'));
        const QString nombre = QStringLiteral("Bench%1").arg(i, 4, 10, QChar('0'));
        C base(nombre, i % 7 == 6 ? "appl" : "DATA", creador);
        if (i % 3 == 0) {
            base.EsquemaAppForge("Bench", kCampos);
            for (int r = 0; r < 20; ++r)
                base.AgregarRegistro(Valores(i * 20 + r));
        } else {
            base.Categorias({"Unfiled"});
            for (int r = 0; r < 20; ++r)
                base.AgregarRegistroCrudo(C::Texto(QStringLiteral("note %1").arg(r)).append('\0'));
        }
        base.Guardar(xCarpeta + "/" + nombre + ".pdb");
    }
}

// Contacts with two to five phones of every label, addresses, notes (some long), custom fields
// and categories.
void DireccionesEn(const QString& xCarpeta) {
    clsConstructorEstandar base(ClaseEstandar::Direcciones);
    base.Categorias({"Unfiled", "Business", "Personal", "QuickList"});
    QStringList etiquetas(22);
    etiquetas[14] = "Birthday";
    etiquetas[15] = "Spouse";
    base.AjustesDirecciones(etiquetas, 23, false);
    const QStringList apellidos = {"Smith", "Müller", "García", "O'Brien", "Nguyen", "Rossi"};
    const QStringList nombres = {"Anna", "José", "Li", "Marie-Claire", "Tom", "Zoë"};
    for (int i = 0; i < 10000; ++i) {
        ContactoPalm c;
        c.Textos[ContactoPalm::Apellido] = apellidos[i % 6] + QString::number(i);
        c.Textos[ContactoPalm::Nombre] = nombres[(i / 6) % 6];
        if (i % 3 == 0)
            c.Textos[ContactoPalm::Empresa] = QStringLiteral("Company %1, Inc.").arg(i % 97);
        c.Textos[ContactoPalm::Cargo] = i % 4 == 0 ? QStringLiteral("Manager") : QString();
        for (int k = 0; k < 2 + i % 4; ++k) {
            c.Etiquetas[k] = quint8((i + k) % 8);
            c.Textos[ContactoPalm::Telefono1 + k] =
                c.Etiquetas[k] == ContactoPalm::Correo
                    ? QStringLiteral("person%1@example.com").arg(i)
                    : QStringLiteral("+1 (555) %1-%2").arg(i % 900 + 100).arg(k * 1111 + i % 1000);
        }
        c.TelefonoMostrado = quint8(i % 2);
        c.Textos[ContactoPalm::Direccion] =
            QStringLiteral("%1 Main Street; Suite %2").arg(i).arg(i % 40);
        c.Textos[ContactoPalm::Ciudad] = QStringLiteral("Springfield");
        c.Textos[ContactoPalm::Estado] = QStringLiteral("IL");
        c.Textos[ContactoPalm::CodigoPostal] = QString::number(62700 + i % 100);
        if (i % 5 == 0) c.Textos[ContactoPalm::Personalizado1] = QStringLiteral("12 May");
        if (i % 2 == 0)
            c.Textos[ContactoPalm::Nota] =
                QStringLiteral("Met at the trade fair, booth %1.\nPrefers e-mail, then phone; "
                               "ask about the catalogue, the prices and the delivery times.")
                    .arg(i % 300)
                    .repeated(1 + i % 3);
        base.AgregarContacto(c, i % 50 == 0 ? 0x10 : 0, i % 4);
    }
    base.Guardar(xCarpeta + "/AddressDB.pdb");
}

// Appointments over three years: timed and untimed, a third repeating (every repeat type, some
// with an end and exceptions), half with an alarm, some with a note.
void AgendaEn(const QString& xCarpeta) {
    clsConstructorEstandar base(ClaseEstandar::Agenda);
    base.Categorias({});
    base.AjustesAgenda(0);
    for (int i = 0; i < 5000; ++i) {
        CitaPalm cita;
        cita.Descripcion =
            QStringLiteral("Appointment %1 with the team, room %2").arg(i).arg(i % 12);
        cita.Dia = QDate(2003, 1, 1).addDays(i % 1000);
        cita.SinHora = i % 7 == 0;
        if (!cita.SinHora) {
            cita.Inicio = QTime(8 + i % 10, (i % 4) * 15);
            cita.Fin = cita.Inicio.addSecs(3600);
        }
        if (i % 2 == 0) {
            cita.ConAlarma = true;
            cita.Anticipo = qint8(5 + i % 20);
            cita.UnidadAlarma = quint8(i % 3);
        }
        if (i % 3 == 0) {
            cita.Repetir = quint8(1 + (i / 3) % 5);
            cita.Frecuencia = quint8(1 + i % 2);
            cita.DiasSemana = quint8(1 << cita.Dia.dayOfWeek() % 7);
            cita.SemanaDelMes = quint8((cita.Dia.day() - 1) / 7);
            cita.DiaSemana = quint8(cita.Dia.dayOfWeek() % 7);
            if (i % 2 == 0) cita.FinRepeticion = cita.Dia.addDays(180);
            if (i % 4 == 0) cita.Excepciones = {cita.Dia.addDays(14), cita.Dia.addDays(28)};
        }
        if (i % 5 == 0) cita.Nota = QStringLiteral("Bring the figures, the minutes; and coffee.");
        base.AgregarCita(cita, 0, quint8(i));
    }
    base.Guardar(xCarpeta + "/DatebookDB.pdb");
}

// Every file of xCarpeta into the zip archive xArchivo, compressed, in file-name order.
void ZipDe(const QString& xCarpeta, const QString& xArchivo) {
    QFile::remove(xArchivo);
    int codigo = 0;
    zip_t* zip = zip_open(QFile::encodeName(xArchivo).constData(), ZIP_CREATE | ZIP_EXCL, &codigo);
    if (!zip) throw std::runtime_error("cannot create " + xArchivo.toStdString());
    const QDir carpeta(xCarpeta);
    for (const QString& nombre : carpeta.entryList(QDir::Files, QDir::Name)) {
        zip_source_t* fuente =
            zip_source_file(zip, QFile::encodeName(carpeta.filePath(nombre)).constData(), 0, -1);
        if (!fuente || zip_file_add(zip, nombre.toUtf8().constData(), fuente, 0) < 0)
            throw std::runtime_error("cannot add " + nombre.toStdString());
    }
    if (zip_close(zip) != 0) throw std::runtime_error("cannot write " + xArchivo.toStdString());
}

void Crear(const QString& xCarpeta) {
    QDir(xCarpeta).removeRecursively();
    if (!QDir().mkpath(xCarpeta))
        throw std::runtime_error("cannot create " + xCarpeta.toStdString());
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: bench-inputs FOLDER\n");
        return 2;
    }
    const QString carpeta = QString::fromLocal8Bit(argv[1]);
    try {
        Crear(carpeta + "/big");
        GrandeEn(carpeta + "/big");
        Crear(carpeta + "/many");
        MuchasEn(carpeta + "/many");
        ZipDe(carpeta + "/many", carpeta + "/many.zip");
        Crear(carpeta + "/report");
        InformeEn(carpeta + "/report");
        Crear(carpeta + "/estandar");
        DireccionesEn(carpeta + "/estandar");
        AgendaEn(carpeta + "/estandar");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench-inputs: %s\n", error.what());
        return 1;
    }
    return 0;
}
