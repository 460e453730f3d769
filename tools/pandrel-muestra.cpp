// Builds the bundled sample handheld: three made-up AppForge applications (an inventory, a
// customer visit log and a price list) with their .prc applications, a record database without
// the AppForge marker, two standard databases and a Handheld.ini. The data are the same on every
// run, so the sample can be compared and tested.

#include "constructor/clsConstructorBase.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTextStream>
#include <cstdio>
#include <stdexcept>

namespace {

using Campo = clsConstructorBase::Campo;
using C = clsConstructorBase;

constexpr qint32 Delete = 0x80, Dirty = 0x40, Secret = 0x10;

QDateTime Fecha(int xAnio, int xMes, int xDia, int xHora = 0, int xMinuto = 0) {
    return QDateTime(QDate(xAnio, xMes, xDia), QTime(xHora, xMinuto), Qt::UTC);
}

// An application: a resource database with its code, name and version resources.
void GuardarAplicacion(const QString& xCarpeta, const QString& xNombre, const QString& xCreador,
                       const QString& xVersion, int xTamanoCodigo) {
    C app(xNombre, "appl", xCreador);
    app.Fechas(Fecha(2004, 11, 2, 10, 15), Fecha(2005, 2, 20, 16, 40), Fecha(2005, 3, 1, 8, 0));
    QByteArray codigo(xTamanoCodigo, '\0');
    for (int i = 0; i < codigo.size(); ++i)
        codigo[i] = char((i * 37 + xCreador.at(0).unicode()) & 0xFF);
    app.AgregarRecurso("code", 0, QByteArray::fromHex("00000004000000a0"));
    app.AgregarRecurso("code", 1, codigo);
    app.AgregarRecurso("data", 0, QByteArray(64, '\0'));
    app.AgregarRecurso("tAIN", 1000, C::Texto(xNombre).append('\0'));
    app.AgregarRecurso("tver", 1000, C::Texto(xVersion).append('\0'));
    app.AgregarRecurso("pref", 0, QByteArray::fromHex("0001000000000000"));
    app.Guardar(xCarpeta + "/" + xNombre + ".prc");
}

void GuardarInventario(const QString& xCarpeta) {
    C base("InvTrackDB", "DATA", "InvT");
    base.Fechas(Fecha(2004, 11, 2, 10, 20), Fecha(2005, 3, 10, 17, 5), Fecha(2005, 3, 1, 8, 0));
    base.Categorias({"Unfiled", "Tools", "Hardware", "Paint", "Garden", "Electrical"});
    base.EsquemaAppForge("Inventory", {{"Code", C::String},
                                       {"Description", C::String},
                                       {"Bin", C::Byte},
                                       {"Quantity", C::Int},
                                       {"Supplier", C::Long},
                                       {"Price", C::Single},
                                       {"Reorder", C::Boolean},
                                       {"LastCount", C::Date}});
    const QStringList articulos = {"Claw hammer",
                                   "Tape measure 5m",
                                   "Wood screws 4x40",
                                   "Hex bolts M8",
                                   "Wall paint white 4L",
                                   "Masking tape",
                                   "Garden hose 20m",
                                   "Pruning shears",
                                   "Extension cord 10m",
                                   "Light switch",
                                   "Cordless drill",
                                   "Sandpaper P120",
                                   "Paint roller",
                                   "Watering can",
                                   "Cable ties 200",
                                   "Socket set",
                                   "Wire stripper",
                                   "Primer 1L",
                                   "Rake",
                                   "Café table kit"};
    const int categorias[] = {1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 1, 3, 3, 4, 5, 1, 5, 3, 4, 2};
    QRandomGenerator azar(20050314);
    for (int i = 0; i < 320; ++i) {
        const int articulo = i % articulos.size();
        const QString descripcion =
            i < articulos.size()
                ? articulos[articulo]
                : QStringLiteral("%1 (lot %2)").arg(articulos[articulo]).arg(i / 20);
        const double precio = (azar.bounded(5000) + 99) / 100.0;
        const QDateTime cuenta = Fecha(2005, 1 + azar.bounded(3), 1 + azar.bounded(28),
                                       8 + azar.bounded(9), azar.bounded(60));
        qint32 atributos = 0;
        if (i % 11 == 3) atributos |= Dirty;
        if (i % 29 == 7) atributos |= Secret;
        if (i % 53 == 17) atributos |= Delete;
        const int cantidad = azar.bounded(400) - (i % 37 == 0 ? 420 : 0);
        base.AgregarRegistro({QStringLiteral("INV-%1").arg(1000 + i, 4, 10, QChar('0')),
                              descripcion, 1 + azar.bounded(60), cantidad, 7000 + azar.bounded(40),
                              precio, cantidad < 25, cuenta},
                             atributos, categorias[articulo]);
    }
    base.Guardar(xCarpeta + "/InvTrackDB.pdb");
    GuardarAplicacion(xCarpeta, "InvTrack", "InvT", "1.3", 5200);
}

void GuardarVisitas(const QString& xCarpeta) {
    C base("VisitLogDB", "DATA", "VsLg");
    base.Fechas(Fecha(2004, 6, 7, 9, 0), Fecha(2005, 3, 11, 18, 30), Fecha(2005, 3, 1, 8, 0));
    base.Version(2);
    base.Categorias({"Unfiled", "North", "South", "Key accounts"});
    base.EsquemaAppForge("Visits", {{"Customer", C::String},
                                    {"Visited", C::Date},
                                    {"Minutes", C::Int},
                                    {"Notes", C::String},
                                    {"FollowUp", C::Boolean},
                                    {"Rating", C::Byte}});
    const QStringList clientes = {"Alder & Sons",     "Birchwood Supply",  "Cedar Farm Co-op",
                                  "Dogwood Hardware", "Elm Street Market", "Fir Lane Garage"};
    const QStringList notas = {"Ordered spring stock",
                               "Asked for a catalogue",
                               "Complaint about late delivery",
                               "New manager, call in May",
                               "",
                               "Wants a volume discount"};
    for (int i = 0; i < 42; ++i) {
        const qint32 atributos = (i % 5 == 0 ? Dirty : 0) | (i == 13 ? Secret : 0);
        base.AgregarRegistro({clientes[i % clientes.size()],
                              Fecha(2005, 1 + i / 15, 1 + (i * 2) % 28, 9 + i % 8, (i * 15) % 60),
                              20 + (i * 7) % 90, notas[(i / 2) % notas.size()], i % 3 == 0,
                              1 + i % 5},
                             atributos, 1 + i % 3);
    }
    base.Guardar(xCarpeta + "/VisitLogDB.pdb");

    // The application's own settings, kept without a schema.
    C ajustes("VisitLogPrefs", "DATA", "VsLg");
    ajustes.AgregarRegistroCrudo(C::Texto("region=North;reminders=1").append('\0'));
    ajustes.Guardar(xCarpeta + "/VisitLogPrefs.pdb");
    GuardarAplicacion(xCarpeta, "VisitLog", "VsLg", "2.0", 3100);
}

void GuardarPrecios(const QString& xCarpeta) {
    C base("PriceListDB", "DATA", "PrLs");
    base.Fechas(Fecha(2003, 9, 1, 12, 0), Fecha(2005, 2, 28, 11, 45), Fecha(2005, 3, 1, 8, 0));
    base.Categorias({"Unfiled", "Retail", "Wholesale"});
    base.EsquemaAppForge("Prices", {{"Item", C::String},
                                    {"Price", C::Single},
                                    {"Discount", C::Byte},
                                    {"Units", C::Long},
                                    {"Active", C::Boolean},
                                    {"ValidFrom", C::Date},
                                    {"MinOrder", C::Int}});
    for (int i = 0; i < 60; ++i) {
        base.AgregarRegistro(
            {QStringLiteral("Item %1").arg(QChar('A' + i % 26)) + QString::number(i / 26 + 1),
             1.25 + i * 0.75, (i * 5) % 40, 12 * (i + 1), i % 7 != 0, Fecha(2005, 1 + i % 12, 1),
             1 + i % 10},
            i % 9 == 0 ? Dirty : 0, 1 + i % 2);
    }
    base.Guardar(xCarpeta + "/PriceListDB.pdb");
    GuardarAplicacion(xCarpeta, "PriceList", "PrLs", "1.0", 2400);
}

// Databases that are not AppForge's: a field notebook of plain texts, an expense list in the
// standard layout, and a preferences database of another type.
void GuardarOtras(const QString& xCarpeta) {
    C notas("Field Notes", "DATA", "FNot");
    notas.Categorias({"Unfiled", "Site visits"});
    notas.AgregarRegistroCrudo(C::Texto("Check the north fence").append('\0'), 0, 1);
    notas.AgregarRegistroCrudo(C::Texto("Order gravel").append('\0'), Dirty, 0);
    notas.Guardar(xCarpeta + "/FieldNotes.pdb");

    C gastos("ExpenseDB", "DATA", "exps");
    gastos.Categorias({"Unfiled", "Travel", "Meals"});
    gastos.AgregarRegistroCrudo(
        QByteArray::fromHex("c9a3012000000001") + C::Texto("Fuel").append('\0'), 0, 1);
    gastos.AgregarRegistroCrudo(
        QByteArray::fromHex("c9a4020500000002") + C::Texto("Lunch").append('\0'), 0, 2);
    gastos.Guardar(xCarpeta + "/ExpenseDB.pdb");

    C preferencias("Saved Preferences", "sprf", "psys");
    preferencias.AgregarRecurso("InvT", 1, QByteArray::fromHex("0001000a"));
    preferencias.AgregarRecurso("VsLg", 1, QByteArray::fromHex("00020001"));
    preferencias.Guardar(xCarpeta + "/Saved_Preferences.prc");
}

void GuardarIni(const QString& xCarpeta) {
    QFile ini(xCarpeta + "/Handheld.ini");
    if (!ini.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        throw std::runtime_error("cannot write Handheld.ini");
    QTextStream(&ini) << "[Card]\nNumber=0\nVersion=1\nCreationDate=2004-06-01T09:00:00\n"
                         "RomSize=4194304\nRamSize=16777216\nFreeRam=9437184\n"
                         "Name=PalmCard\nManufacturer=Palm Computing\nRomDbCount=58\n\n"
                         "[User]\nName=Field Sales\nPassword=\nLastSyncDate=2005-03-11T18:45:00\n"
                         "LastSyncPC=1185468\nUserID=20871\n\n"
                         "[Handheld]\nEncoding=windows-1252\n";
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: pandrel-muestra FOLDER\n");
        return 2;
    }
    const QString carpeta = QString::fromLocal8Bit(argv[1]);
    try {
        QDir(carpeta).removeRecursively();
        if (!QDir().mkpath(carpeta)) throw std::runtime_error("cannot create the folder");
        GuardarInventario(carpeta);
        GuardarVisitas(carpeta);
        GuardarPrecios(carpeta);
        GuardarOtras(carpeta);
        GuardarIni(carpeta);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "pandrel-muestra: %s\n", error.what());
        return 1;
    }
    return 0;
}
