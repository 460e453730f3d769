// Builds the benchmark handhelds:
//   FOLDER/big   one AppForge database "BenchBig" of 65,535 records with eight fields (one of each
//                type and a second String), the largest a database can hold;
//   FOLDER/many  1,000 databases under 250 creators, a third of them AppForge databases;
//   FOLDER/report one AppForge database "BenchReport" of 2,000 records with the same fields;
//   FOLDER/many.zip the databases of many/ as a zip backup.

#include "constructor/clsConstructorBase.h"

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
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench-inputs: %s\n", error.what());
        return 1;
    }
    return 0;
}
