// Builds a small Japanese handheld: an AppForge customer database whose name, categories, field
// names and String values are in Shift_JIS, and a Handheld.ini that names that code page. It
// shows the handheld's code page at work: pandrel-japones FOLDER, then pandrel FOLDER.

#include "constructor/clsConstructorBase.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <cstdio>
#include <stdexcept>

namespace {

using C = clsConstructorBase;
const QString kPagina = QStringLiteral("Shift_JIS");

void GuardarClientes(const QString& xCarpeta) {
    C base(QStringLiteral("顧客名簿"), "DATA", "JpCu", kPagina);
    base.Fechas(QDateTime(QDate(2004, 4, 1), QTime(9, 0), Qt::UTC),
                QDateTime(QDate(2005, 3, 10), QTime(17, 30), Qt::UTC),
                QDateTime(QDate(2005, 3, 11), QTime(8, 0), Qt::UTC));
    base.Categorias({QStringLiteral("未分類"), QStringLiteral("東京"), QStringLiteral("大阪"),
                     QStringLiteral("得意先")});
    base.EsquemaAppForge(QStringLiteral("顧客"), {{QStringLiteral("名前"), C::String},
                                                  {QStringLiteral("住所"), C::String},
                                                  {QStringLiteral("年齢"), C::Int},
                                                  {QStringLiteral("会員"), C::Boolean}});
    const struct {
        const char* Nombre;
        const char* Direccion;
        int Edad;
        bool Socio;
        int Categoria;
    } clientes[] = {
        {"山田太郎", "東京都千代田区丸の内1-1", 42, true, 1},
        {"佐藤花子", "大阪府大阪市北区梅田3-2", 35, false, 2},
        {"鈴木一郎", "東京都新宿区西新宿2-8", 58, true, 3},
        {"高橋美咲", "大阪府堺市堺区南瓦町3", 27, false, 2},
        {"ｶﾀｶﾅ ﾃｽﾄ", "半角カナと全角の混在", 30, true, 0},
    };
    for (const auto& cliente : clientes)
        base.AgregarRegistro({QString::fromUtf8(cliente.Nombre),
                              QString::fromUtf8(cliente.Direccion), cliente.Edad, cliente.Socio},
                             0, cliente.Categoria);
    base.Guardar(xCarpeta + "/Kokyaku.pdb");
}

void GuardarIni(const QString& xCarpeta) {
    QFile ini(xCarpeta + "/Handheld.ini");
    if (!ini.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw std::runtime_error("cannot write Handheld.ini");
    ini.write("[Card]\nName=CLIE\nManufacturer=Sony\n[Handheld]\nEncoding=Shift_JIS\n");
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: pandrel-japones FOLDER\n");
        return 2;
    }
    const QString carpeta = QString::fromLocal8Bit(argv[1]);
    try {
        QDir(carpeta).removeRecursively();
        if (!QDir().mkpath(carpeta)) throw std::runtime_error("cannot create the folder");
        GuardarClientes(carpeta);
        GuardarIni(carpeta);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "pandrel-japones: %s\n", error.what());
        return 1;
    }
    return 0;
}
