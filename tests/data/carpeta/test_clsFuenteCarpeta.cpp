#include "common/modFecha.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/formato/clsArchivoPDB.h"
#include "support/FabricaCarpeta.h"
#include "support/FabricaZip.h"
#include "support/modPrueba.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <chrono>
#include <csignal>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using modPrueba::EsperarError;

constexpr quint32 Codigo(const char (&x)[5]) {
    return (quint32(quint8(x[0])) << 24) | (quint32(quint8(x[1])) << 16) |
           (quint32(quint8(x[2])) << 8) | quint32(quint8(x[3]));
}

// The standard category block with the given names in slots 0, 1, ...
QByteArray BloqueCategorias(const QList<QByteArray>& xNombres) {
    QByteArray bloque(2, '\0');
    for (int i = 0; i < 16; ++i) {
        QByteArray nombre = i < xNombres.size() ? xNombres[i] : QByteArray();
        nombre.resize(16, '\0');
        bloque += nombre;
    }
    for (int i = 0; i < 16; ++i)
        bloque.append(static_cast<char>(i));
    bloque.append(2, '\0');
    return bloque;
}

clsArchivoPDB BaseDeRegistros(const QByteArray& xNombre, const char (&xCreador)[5] = "TEST") {
    clsArchivoPDB archivo;
    archivo.Nombre = xNombre;
    archivo.Version = 2;
    archivo.FechaCreacion = 2082844800;     // 1970-01-01 00:00:00
    archivo.FechaModificacion = 3792059110; // 2024-02-29 13:45:10
    archivo.FechaBackup = 3029529599;       // 1999-12-31 23:59:59
    archivo.NumeroModificacion = 41;
    archivo.Tipo = Codigo("DATA");
    archivo.Creador = Codigo(xCreador);
    archivo.SemillaID = 12;
    archivo.AppInfo = BloqueCategorias({"Unfiled", "Business", "", "Caf\xe9"}) + "APPINFO";
    archivo.SortInfo = "SORT";
    return archivo;
}

// Records with every kind of attribute byte: ID, raw attribute byte, bytes.
clsArchivoPDB BaseVariada() {
    clsArchivoPDB archivo = BaseDeRegistros("Variada");
    archivo.Registros = {
        {0x41, 5, "uno"},        // dirty, category 1
        {0x02, 9, "dos"},        // category 2
        {0xC8, 7, "tres"},       // deleted, dirty, archive
        {0x42, 3, QByteArray()}, // dirty, category 2, empty
        {0x11, 11, "cinco"},     // secret, category 1
    };
    return archivo;
}

clsArchivoPDB BaseDeRecursos(const QByteArray& xNombre) {
    clsArchivoPDB archivo;
    archivo.Nombre = xNombre;
    archivo.Atributos = clsArchivoPDB::AtributoRecursos;
    archivo.Version = 4;
    archivo.Tipo = Codigo("appl");
    archivo.Creador = Codigo("PROG");
    archivo.Recursos = {{Codigo("code"), 1, "codigo"}, {Codigo("tFRM"), 1000, "forma"}};
    return archivo;
}

// Runs xTrabajo on a thread of its own; a reading that waits for ever (a FIFO's) fails the test.
template <typename F> auto SinEsperar(F&& xTrabajo) {
    auto trabajo = std::async(std::launch::async, std::forward<F>(xTrabajo));
    if (trabajo.wait_for(std::chrono::seconds(20)) != std::future_status::ready) {
        ADD_FAILURE() << "reading the folder did not end";
        std::_Exit(1); // the reading thread cannot be stopped
    }
    return trabajo.get();
}

// Files this process writes may grow to xBytes at most: the disk is as good as full beyond.
void LimitarArchivos(rlim_t xBytes) {
    std::signal(SIGXFSZ, SIG_IGN); // a write past the limit fails instead of ending the process
    const rlimit limite{xBytes, RLIM_INFINITY};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limite), 0);
}

// The card and the user a source describes, field by field as texts (all but the free RAM).
QStringList Describir(clsFuentePalm& xFuente) {
    const auto t = xFuente.CrearSistema()->TarjetaMemoria();
    const auto u = xFuente.CrearSistema()->InformacionUsuario();
    const auto n = [](auto x) { return QString::number(x); };
    return {n(t->Numero()),
            n(t->Version()),
            t->FechaCreacion().toString(Qt::ISODate),
            n(t->TamanoRom()),
            n(t->TamanoRam()),
            t->Nombre(),
            t->Fabricante(),
            n(t->CantidadBasesRom()),
            n(t->CantidadBasesRam()),
            u->Nombre(),
            u->Clave(),
            u->FechaUltimaSincronizacion().toString(Qt::ISODate),
            n(u->UltimaSincronizacionPC()),
            n(u->IDUsuario())};
}

// The suite is written against the source roles and a factory that lays databases out in a
// handheld; any later source of databases passes it by supplying its own factory.
template <typename T> class FuenteDeBases : public ::testing::Test {
protected:
    // The records of a database as its file holds them now, read apart from the source.
    clsArchivoPDB EnDisco(const QString& xArchivo) {
        return clsArchivoPDB::Leer(mFabrica.Contenido(xArchivo));
    }
    QStringList Listar(clsFuentePalm& xFuente) { return xFuente.CrearGestor()->ListarBases(-1); }
    QVector<qint32> LeerIDs(clsAdaptadorRegistros& xAdaptador,
                            const std::function<bool(RegistroPalm&)>& xLeer) {
        QVector<qint32> ids;
        xAdaptador.IrAlPrincipio(0);
        RegistroPalm registro;
        while (xLeer(registro))
            ids.append(registro.ID);
        EXPECT_TRUE(xAdaptador.FinDeRegistros());
        EXPECT_FALSE(xLeer(registro));
        return ids;
    }

    T mFabrica;
};

using Fabricas = ::testing::Types<FabricaCarpeta, FabricaZip>;
TYPED_TEST_SUITE(FuenteDeBases, Fabricas);

} // namespace

TYPED_TEST(FuenteDeBases, ElCatalogoConoceCadaBasePorElNombreDeSuCabecera) {
    this->mFabrica.Poner("b.pdb", BaseDeRegistros("Zeta"));
    this->mFabrica.Poner("a.pdb", BaseDeRegistros("Alfa"));
    this->mFabrica.Poner("c.PRC", BaseDeRecursos("Programa"));
    this->mFabrica.Poner("notas.txt", BaseDeRegistros("Ignorada"));
    auto fuente = this->mFabrica.Crear();
    EXPECT_EQ(this->Listar(*fuente), QStringList({"Alfa", "Zeta", "Programa"}));
    EXPECT_TRUE(TypeParam::Avisos(*fuente).isEmpty());
}

TYPED_TEST(FuenteDeBases, ElObjetoDeInformacionDaLaCabecera) {
    const QByteArray bytes = BaseVariada().Escribir();
    this->mFabrica.Poner("v.pdb", bytes);
    this->mFabrica.Poner("p.prc", BaseDeRecursos("Programa"));
    auto fuente = this->mFabrica.Crear();
    auto gestor = fuente->CrearGestor();
    const auto info = gestor->BuscarBase("Variada");
    const auto n = [](qint64 x) { return QString::number(x); };
    EXPECT_EQ(QStringList({info->Nombre(), fuente->CodigoATexto(info->Tipo(), -1),
                           fuente->CodigoATexto(info->Creador(), -1), n(info->AtributosBase()),
                           n(info->Version()), n(info->VersionCompanero()), n(info->TamanoBase()),
                           n(info->CantidadRegistros())}),
              QStringList({"Variada", "DATA", "TEST", "0", "2", "0", n(bytes.size()), "5"}));
    EXPECT_EQ(
        QList<QDateTime>({info->FechaCreacion(), info->FechaModificacion(), info->FechaBackup()}),
        QList<QDateTime>({modFecha::Crear(1970, 1, 1), modFecha::Crear(2024, 2, 29, 13, 45, 10),
                          modFecha::Crear(1999, 12, 31, 23, 59, 59)}));
    // A resource database counts its resources.
    EXPECT_EQ(gestor->BuscarBase("Programa")->CantidadRegistros(), 2);
}

TYPED_TEST(FuenteDeBases, EnumerarFiltraPorCreadorYTipo) {
    this->mFabrica.Poner("1.pdb", BaseDeRegistros("Uno", "memo"));
    this->mFabrica.Poner("2.pdb", BaseDeRegistros("Dos", "todo"));
    this->mFabrica.Poner("3.pdb", BaseDeRegistros("Tres", "memo"));
    clsArchivoPDB programa = BaseDeRecursos("Cuatro");
    programa.Creador = Codigo("memo");
    this->mFabrica.Poner("4.prc", programa);
    auto fuente = this->mFabrica.Crear();
    struct Caso {
        QString Creador, Tipo;
        QStringList Nombres;
    };
    const Caso casos[] = {
        {"memo", "", {"Uno", "Tres", "Cuatro"}},
        {"memo", "DATA", {"Uno", "Tres"}},
        {"", "appl", {"Cuatro"}},
        {"", "", {"Uno", "Dos", "Tres", "Cuatro"}},
        {"MEMO", "", {}},
    };
    auto gestor = fuente->CrearGestor();
    for (const Caso& caso : casos) {
        QStringList nombres;
        for (auto info = gestor->EnumerarBases(caso.Creador, caso.Tipo, true); info;
             info = gestor->EnumerarBases(caso.Creador, caso.Tipo, false))
            nombres.append(info->Nombre());
        EXPECT_EQ(nombres, caso.Nombres)
            << caso.Creador.toStdString() << "/" << caso.Tipo.toStdString();
        EXPECT_EQ(gestor->EnumerarBases(caso.Creador, caso.Tipo, false), nullptr);
    }
}

TYPED_TEST(FuenteDeBases, UnNombreRepetidoLoGanaElPrimerArchivoYSeAvisa) {
    clsArchivoPDB primera = BaseDeRegistros("Memo");
    primera.Registros = {{0, 1, "primera"}};
    clsArchivoPDB segunda = BaseDeRegistros("Memo");
    segunda.Registros = {{0, 1, "segunda"}, {0, 2, "x"}};
    this->mFabrica.Poner("MemoB.pdb", segunda);
    this->mFabrica.Poner("MemoA.pdb", primera);
    auto fuente = this->mFabrica.Crear();
    EXPECT_EQ(this->Listar(*fuente), QStringList({"Memo"}));
    auto adaptador = fuente->CrearGestor()->AbrirBaseRegistros("Memo", "", 208);
    EXPECT_EQ(adaptador->LeerPorID(1).Bytes, QByteArray("primera"));
    const QStringList avisos = TypeParam::Avisos(*fuente);
    ASSERT_EQ(avisos.size(), 1);
    EXPECT_TRUE(avisos[0].contains("MemoB.pdb")) << avisos[0].toStdString();
    EXPECT_TRUE(avisos[0].contains("\"Memo\"")) << avisos[0].toStdString();
}

TYPED_TEST(FuenteDeBases, LosArchivosMalFormadosQuedanFueraYSeAvisan) {
    QByteArray cortada = BaseVariada().Escribir();
    cortada.replace(0, 8, QByteArray("Cortada\0", 8));
    cortada.chop(20); // the last records now start past the end
    this->mFabrica.Poner("basura.pdb", QByteArray(300, '\xA5'));
    this->mFabrica.Poner("corta.pdb", QByteArray("MemoDB\0\0\0", 9));
    this->mFabrica.Poner("cortada.pdb", cortada);
    this->mFabrica.Poner("vacia.prc", QByteArray());
    this->mFabrica.Poner("valida.pdb", BaseVariada());
    auto fuente = this->mFabrica.Crear();
    EXPECT_EQ(this->Listar(*fuente), QStringList({"Variada"}));
    const QStringList avisos = TypeParam::Avisos(*fuente);
    ASSERT_EQ(avisos.size(), 4) << avisos.join('\n').toStdString();
    for (const char* archivo : {"basura.pdb", "corta.pdb", "cortada.pdb", "vacia.prc"})
        EXPECT_TRUE(avisos.filter(archivo).size() == 1) << archivo;

    auto gestor = fuente->CrearGestor();
    EsperarError([&] { gestor->BuscarBase("Cortada"); }, ErroresFuente::BaseEnUso, {}, "Cortada");
    EsperarError([&] { gestor->AbrirBaseRegistros("Cortada", "", 208); }, ErroresFuente::BaseEnUso,
                 {}, "past the end");
    EsperarError([&] { gestor->BuscarBase("Nadie"); }, ErroresFuente::BaseNoEncontrada, {},
                 "Nadie");
    EsperarError([&] { gestor->AbrirBaseRecursos("Nadie", "", 208); },
                 ErroresFuente::BaseNoEncontrada);
}

TYPED_TEST(FuenteDeBases, UnHandheldInaccesibleLoDiceEnCadaPuerta) {
    auto fuente = this->mFabrica.CrearInaccesible();
    const std::vector<std::function<void()>> puertas = {
        [&] { fuente->CrearGestor()->ListarBases(-1); },
        [&] { fuente->CrearGestor()->BuscarBase("MemoDB"); },
        [&] { fuente->CrearGestor()->AbrirBaseRegistros("MemoDB", "", 208); },
        [&] { fuente->CrearSistema()->InformacionUsuario(); },
    };
    for (const auto& puerta : puertas)
        EsperarError(puerta, ErroresFuente::HandheldInaccesible);
}

// What the catalogue knew when the folder was read gives way to the files as they are on opening.
TYPED_TEST(FuenteDeBases, AbrirVeLosCambiosHechosDesdeQueSeLeyoLaCarpeta) {
    const auto Con = [](const QByteArray& xNombre, int xRegistros) {
        clsArchivoPDB base = BaseDeRegistros(xNombre);
        for (int i = 0; i < xRegistros; ++i)
            base.Registros.append({0, quint32(i + 1), "registro"});
        return base;
    };
    const struct {
        const char* Caso;
        std::function<void(TypeParam&)> Cambiar;
        QByteArray Abrir;
        qint32 Registros; // -1: the open fails as in use
    } casos[] = {
        {"untouched", [](TypeParam&) {}, "Alfa", 2},
        {"more records", [&](TypeParam& x) { x.Poner("a.pdb", Con("Alfa", 5)); }, "Alfa", 5},
        {"moved to another file",
         [&](TypeParam& x) {
             x.Quitar("a.pdb");
             x.Poner("z.pdb", Con("Alfa", 3));
         },
         "Alfa", 3},
        {"a new database", [&](TypeParam& x) { x.Poner("b.pdb", Con("Beta", 4)); }, "Beta", 4},
        {"its file holds another database", [&](TypeParam& x) { x.Poner("a.pdb", Con("Beta", 1)); },
         "Alfa", -1},
    };
    for (const auto& caso : casos) {
        TypeParam fabrica;
        fabrica.Poner("a.pdb", Con("Alfa", 2));
        auto fuente = fabrica.Crear();
        auto gestor = fuente->CrearGestor();
        ASSERT_EQ(this->Listar(*fuente).size(), 1);
        caso.Cambiar(fabrica);
        if (caso.Registros < 0) {
            EsperarError([&] { gestor->AbrirBaseRegistros(caso.Abrir, "", 208); },
                         ErroresFuente::BaseEnUso, {}, "no longer on the handheld");
            continue;
        }
        auto adaptador = gestor->AbrirBaseRegistros(caso.Abrir, "", 208);
        EXPECT_EQ(
            this->LeerIDs(*adaptador, [&](RegistroPalm& x) { return adaptador->LeerSiguiente(x); })
                .size(),
            caso.Registros)
            << caso.Caso;
        EXPECT_EQ(gestor->BuscarBase(caso.Abrir)->CantidadRegistros(), caso.Registros) << caso.Caso;
    }
}

TYPED_TEST(FuenteDeBases, LasLecturasSecuencialesFiltranYTerminan) {
    this->mFabrica.Poner("v.pdb", BaseVariada());
    auto fuente = this->mFabrica.Crear();
    auto adaptador = fuente->CrearGestor()->AbrirBaseRegistros("Variada", "", 208);
    auto& a = *adaptador;
    struct Caso {
        const char* Nombre;
        std::function<bool(RegistroPalm&)> Leer;
        QVector<qint32> IDs;
    };
    const std::vector<Caso> casos = {
        {"all", [&](RegistroPalm& r) { return a.LeerSiguiente(r); }, {5, 9, 7, 3, 11}},
        {"dirty", [&](RegistroPalm& r) { return a.LeerSiguienteModificado(r); }, {5, 7, 3}},
        {"category 2", [&](RegistroPalm& r) { return a.LeerSiguienteEnCategoria(2, r); }, {9, 3}},
        {"category 1", [&](RegistroPalm& r) { return a.LeerSiguienteEnCategoria(1, r); }, {5, 11}},
        {"deleted read as category 0",
         [&](RegistroPalm& r) { return a.LeerSiguienteEnCategoria(0, r); },
         {7}},
        {"dirty in 2",
         [&](RegistroPalm& r) { return a.LeerSiguienteModificadoEnCategoria(2, r); },
         {3}},
        {"dirty in 7",
         [&](RegistroPalm& r) { return a.LeerSiguienteModificadoEnCategoria(7, r); },
         {}},
    };
    for (const Caso& caso : casos)
        EXPECT_EQ(this->LeerIDs(a, caso.Leer), caso.IDs) << caso.Nombre;
    // A read by ID in between does not move the reading; an unknown ID is an error.
    a.IrAlPrincipio(0);
    RegistroPalm registro;
    a.LeerSiguiente(registro);
    const RegistroPalm borrado = a.LeerPorID(7);
    EXPECT_EQ(QList<qint32>({borrado.Indice, borrado.Atributos, borrado.Categoria}),
              QList<qint32>({2, 0xC8, 0}));
    a.LeerSiguiente(registro);
    EXPECT_EQ(registro.ID, 9);
    EsperarError([&] { a.LeerPorID(8); }, ErroresFuente::RegistroNoEncontrado, {}, "8");
}

// Texts read in the code page Handheld.ini names (an unknown one is reported and the usual one
// taken); without one named, the country the address book is made for tells: Japan's handhelds
// write Shift_JIS.
TYPED_TEST(FuenteDeBases, LaPaginaDeCodigosDeLosTextos) {
    const struct {
        QByteArray Ajustes;
        char Pais; // of an address book; 0: none
        QByteArray Bytes;
        QString Pagina, Nombre;
    } casos[] = {
        {"", 0, "Caf\xe9", "windows-1252", QStringLiteral("Caf\u00e9")},
        {"[Handheld]\nEncoding=klingon-1\n", 0, "Caf\xe9", "windows-1252",
         QStringLiteral("Caf\u00e9")},
        {"", 13, "\x93\xfa\x96\x7b", "windows-932", QStringLiteral("\u65e5\u672c")},
        {"", 23, "\x93\xfa\x96\x7b", "windows-1252", QStringLiteral("\u201c\u00fa\u2013{")},
        {"[Handheld]\nEncoding=windows-1252\n", 13, "\x93\xfa\x96\x7b", "windows-1252",
         QStringLiteral("\u201c\u00fa\u2013{")},
    };
    for (const auto& caso : casos) {
        TypeParam fabrica;
        fabrica.Poner("n.pdb", BaseDeRegistros(caso.Bytes));
        if (caso.Pais) {
            clsArchivoPDB direcciones = BaseDeRegistros("AddressDB", "addr");
            direcciones.AppInfo = BloqueCategorias({"Unfiled"}) + QByteArray(358, '\0');
            direcciones.AppInfo += caso.Pais + QByteArray(3, '\0');
            fabrica.Poner("AddressDB.pdb", direcciones);
        }
        fabrica.PonerAjustes(caso.Ajustes);
        auto fuente = fabrica.Crear();
        EXPECT_EQ(fuente->CodigoPagina(), caso.Pagina) << caso.Ajustes.data();
        EXPECT_TRUE(this->Listar(*fuente).contains(caso.Nombre)) << caso.Pagina.toStdString();
        EXPECT_EQ(TypeParam::Avisos(*fuente).filter("klingon-1").size(),
                  caso.Ajustes.contains("klingon") ? 1 : 0);
    }
}

// Every write changes its own record alone (or adds or removes it), the modification number and
// date, and nothing else of the file, whose permissions stay; the information object follows and
// no lock or temporary file is left. A new record takes the ID after the largest, and the seed
// goes past it; a record deleted while reading leaves the reading on the next one.
TYPED_TEST(FuenteDeBases, CadaEscrituraCambiaSoloLoSuyo) {
    this->mFabrica.Poner("v.pdb", BaseVariada());
    const QString almacen = this->mFabrica.Almacen("v.pdb");
    ASSERT_TRUE(
        QFile::setPermissions(almacen, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    const QFile::Permissions permisos = QFileInfo(almacen).permissions();
    auto fuente = this->mFabrica.Crear();
    auto gestor = fuente->CrearGestor();
    const auto info = gestor->BuscarBase("Variada");
    auto adaptador = gestor->AbrirBaseRegistros("Variada", "", 208);
    const auto borrarLeyendo = [&] {
        adaptador->IrAlPrincipio(0);
        RegistroPalm registro;
        for (int i = 0; i < 3; ++i)
            adaptador->LeerSiguiente(registro);
        adaptador->BorrarRegistro(registro.ID);
        EXPECT_TRUE(adaptador->LeerSiguiente(registro));
        return registro.ID;
    };
    using Registros = QVector<EntradaRegistroPDB>;
    const struct {
        const char* Caso;
        std::function<qint32()> Escribir;
        qint32 Devuelto;
        std::function<void(Registros&)> Cambio;
    } casos[] = {
        {"update", [&] { return adaptador->EscribirRegistro(9, 4, 0x50, "DOS nuevo"); }, 9,
         [](Registros& x) {
             x[1] = {0x54, 9, "DOS nuevo"};
         }},
        {"add", [&] { return adaptador->EscribirRegistro(0, 3, 0, QByteArray(4, '\0')); }, 12,
         [](Registros& x) {
             x.append({0x03, 12, QByteArray(4, '\0')});
         }},
        {"add dirty", [&] { return adaptador->EscribirRegistro(0, 1, 0x40, "otro"); }, 13,
         [](Registros& x) {
             x.append({0x41, 13, "otro"});
         }},
        {"delete while reading", borrarLeyendo, 3, [](Registros& x) { x.remove(2); }},
        {"delete all",
         [&] {
             adaptador->BorrarTodos(0, 255);
             return 0;
         },
         0, [](Registros& x) { x.clear(); }},
    };
    clsArchivoPDB esperado = this->EnDisco("v.pdb");
    const QDateTime desde = QDateTime::currentDateTime().addSecs(-1);
    for (const auto& caso : casos) {
        EXPECT_EQ(caso.Escribir(), caso.Devuelto) << caso.Caso;
        caso.Cambio(esperado.Registros);
        ++esperado.NumeroModificacion;
        const clsArchivoPDB despues = this->EnDisco("v.pdb");
        if (QByteArray(caso.Caso).startsWith("add")) {
            EXPECT_GT(despues.SemillaID, quint32(caso.Devuelto)) << caso.Caso;
        }
        esperado.FechaModificacion = despues.FechaModificacion;
        esperado.SemillaID = despues.SemillaID;
        EXPECT_EQ(despues.Escribir(), esperado.Escribir()) << caso.Caso;
        EXPECT_EQ(info->CantidadRegistros(), esperado.Registros.size()) << caso.Caso;
        EXPECT_EQ(info->TamanoBase(), this->mFabrica.Contenido("v.pdb").size()) << caso.Caso;
        EXPECT_EQ(this->mFabrica.Sobrantes(), QStringList()) << caso.Caso;
    }
    const auto pared = [](const QDateTime& x) { return QDateTime(x.date(), x.time(), Qt::UTC); };
    EXPECT_GE(info->FechaModificacion(), pared(desde));
    EXPECT_LE(info->FechaModificacion(), pared(QDateTime::currentDateTime().addSecs(1)));
    EXPECT_EQ(QFileInfo(almacen).permissions(), permisos);
    // Records that are not there: nothing is written.
    const QByteArray sinCambio = this->mFabrica.Contenido("v.pdb");
    EsperarError([&] { adaptador->BorrarRegistro(7); }, ErroresFuente::RegistroNoEncontrado);
    EsperarError([&] { adaptador->EscribirRegistro(99, 0, 0, "x"); },
                 ErroresFuente::RegistroNoEncontrado);
    EXPECT_EQ(this->mFabrica.Contenido("v.pdb"), sinCambio);
}

// Past the largest ID a file holds (24 bits), a new record takes the lowest one free.
TYPED_TEST(FuenteDeBases, UnRegistroNuevoPasadoElMayorIDTomaElMenorLibre) {
    const struct {
        QVector<quint32> IDs;
        qint32 Nuevo;
    } vueltas[] = {{{0xFFFFFF}, 1}, {{2, 0xFFFFFF, 1, 4}, 3}, {{0xFFFFFE}, 0xFFFFFF}};
    for (const auto& vuelta : vueltas) {
        TypeParam fabrica;
        clsArchivoPDB base = BaseDeRegistros("Llena");
        for (quint32 id : vuelta.IDs)
            base.Registros.append({0, id, "r"});
        fabrica.Poner("l.pdb", base);
        auto otra = fabrica.Crear();
        EXPECT_EQ(otra->CrearGestor()
                      ->AbrirBaseRegistros("Llena", "", 208)
                      ->EscribirRegistro(0, 0, 0, "nuevo"),
                  vuelta.Nuevo);
    }
}

// A writer that finds another writer's lock waits for it, then applies its change over what the
// other one wrote.
TYPED_TEST(FuenteDeBases, UnaEscrituraEsperaAlEscritorQueTieneElCandado) {
    this->mFabrica.Poner("v.pdb", BaseVariada());
    auto fuente = this->mFabrica.Crear();
    auto adaptador = fuente->CrearGestor()->AbrirBaseRegistros("Variada", "", 208);
    QLockFile candado(this->mFabrica.Candado("v.pdb"));
    ASSERT_TRUE(candado.tryLock(0));
    auto escritura =
        std::async(std::launch::async, [&] { adaptador->EscribirRegistro(11, 1, 0, "nuestro"); });
    EXPECT_EQ(escritura.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout);
    clsArchivoPDB otro = this->EnDisco("v.pdb");
    otro.Registros[0].Datos = "del otro";
    this->mFabrica.CambiarPorFuera("v.pdb", otro);
    candado.unlock();
    escritura.get();
    const clsArchivoPDB despues = this->EnDisco("v.pdb");
    EXPECT_EQ(despues.Registros[0].Datos, QByteArray("del otro"));
    EXPECT_EQ(despues.Registros[4].Datos, QByteArray("nuestro"));
}

TYPED_TEST(FuenteDeBases, UnCambioDeOtroEscritorSobreviveALaEscrituraSiguiente) {
    this->mFabrica.Poner("v.pdb", BaseVariada());
    auto fuente = this->mFabrica.Crear();
    auto nuestro = fuente->CrearGestor()->AbrirBaseRegistros("Variada", "", 208);

    struct Caso {
        const char* Nombre;
        std::function<void()> OtroEscritor;
        QByteArray Primero; // what the other writer left in the first record
    };
    auto otraFuente = this->mFabrica.Crear();
    auto otro = otraFuente->CrearGestor()->AbrirBaseRegistros("Variada", "", 208);
    const std::vector<Caso> casos = {
        {"another source", [&] { otro->EscribirRegistro(5, 1, 0x40, "de otra ventana"); },
         "de otra ventana"},
        {"another program, in place with the time set back",
         [&] { this->mFabrica.CambiarEnSuSitio("v.pdb", "de otra ventana", "DE OTRA VENTANA"); },
         "DE OTRA VENTANA"},
    };
    for (const Caso& caso : casos) {
        caso.OtroEscritor();
        nuestro->EscribirRegistro(11, 1, 0, caso.Nombre);
        const clsArchivoPDB despues = this->EnDisco("v.pdb");
        EXPECT_EQ(despues.Registros[4].Datos, QByteArray(caso.Nombre));
        EXPECT_EQ(despues.Registros[0].Datos, caso.Primero) << caso.Nombre;
        EXPECT_EQ(nuestro->LeerPorID(5).Bytes, despues.Registros[0].Datos) << caso.Nombre;
    }
}

// Every way a write can fail leaves the database as it was and nothing beside it, and says why:
// the file now holds another database (replaced by a copy of another, say), or the system's
// reason. A lock file that is not a regular file does not make it wait.
TYPED_TEST(FuenteDeBases, UnaEscrituraQueFallaNoCambiaNada) {
    const auto otra = [](std::function<void(clsArchivoPDB&)> xCambio) {
        return [xCambio](TypeParam& x) {
            clsArchivoPDB base = BaseVariada();
            xCambio(base);
            x.CambiarPorFuera("v.pdb", base);
        };
    };
    const auto nada = [](TypeParam&) {};
    const auto fifo = [](TypeParam& x) {
        ASSERT_EQ(::mkfifo(QFile::encodeName(x.Candado("v.pdb")).constData(), 0600), 0);
    };
    const auto disco = [](rlim_t xBytes) {
        return [xBytes](TypeParam&) { LimitarArchivos(xBytes); };
    };
    const struct {
        const char* Nombre;
        std::function<void(TypeParam&)> Impedir, Deshacer;
        qint32 Error;
        const char* Motivo;
    } casos[] = {
        {"another name", otra([](clsArchivoPDB& x) { x.Nombre = "Beta"; }), nada,
         ErroresFuente::BaseCambiada, "changed on disk"},
        {"another type", otra([](clsArchivoPDB& x) { x.Tipo = Codigo("Data"); }), nada,
         ErroresFuente::BaseCambiada, "changed on disk"},
        {"another creator", otra([](clsArchivoPDB& x) { x.Creador = Codigo("OTRO"); }), nada,
         ErroresFuente::BaseCambiada, "changed on disk"},
        {"another creation date", otra([](clsArchivoPDB& x) { x.FechaCreacion += 1; }), nada,
         ErroresFuente::BaseCambiada, "changed on disk"},
        {"read-only file", [](TypeParam& x) { x.HacerSoloLectura("v.pdb"); }, nada,
         ErroresFuente::EscrituraFallida, "read-only"},
        {"read-only folder", [](TypeParam& x) { x.HacerCarpetaSoloLectura(); }, nada,
         ErroresFuente::EscrituraFallida, "read-only"},
        // The disk fills up: first with the new file, then already with the lock file.
        {"full disk", disco(200), disco(RLIM_INFINITY), ErroresFuente::EscrituraFallida,
         "File too large"},
        {"no room for the lock", disco(8), disco(RLIM_INFINITY), ErroresFuente::EscrituraFallida,
         "lock file cannot be made (File"},
        {"a FIFO for a lock file", fifo, [](TypeParam& x) { QFile::remove(x.Candado("v.pdb")); },
         ErroresFuente::EscrituraFallida, "is not a regular file"},
    };
    for (const auto& caso : casos) {
        TypeParam fabrica;
        fabrica.Poner("v.pdb", BaseVariada());
        auto fuente = fabrica.Crear();
        auto adaptador = fuente->CrearGestor()->AbrirBaseRegistros("Variada", "", 208);
        caso.Impedir(fabrica);
        const QByteArray antes = fabrica.Contenido("v.pdb");
        const std::function<void()> escrituras[] = {
            [&] { adaptador->EscribirRegistro(9, 0, 0, "no"); },
            [&] { adaptador->EscribirRegistro(0, 0, 0, "no"); },
            [&] { adaptador->CambiarRegistro(9, [](RegistroPalm& x) { x.Bytes = "no"; }); },
            [&] { adaptador->BorrarRegistro(9); },
            [&] { adaptador->BorrarTodos(0, 255); },
        };
        for (const auto& escritura : escrituras)
            EsperarError(escritura, caso.Error, {}, caso.Motivo);
        caso.Deshacer(fabrica);
        EXPECT_EQ(fabrica.Contenido("v.pdb"), antes) << caso.Nombre;
        EXPECT_EQ(adaptador->LeerPorID(9).Bytes, QByteArray("dos")) << caso.Nombre;
        EXPECT_EQ(fabrica.Sobrantes(), QStringList()) << caso.Nombre;
    }
}

TYPED_TEST(FuenteDeBases, SinAjustesLosValoresSeDerivanDelHandheld) {
    this->mFabrica.ComoRespaldoDe("Juan Perez");
    clsArchivoPDB vieja = BaseDeRegistros("Vieja");
    vieja.FechaCreacion = 0; // 1904-01-01
    const QByteArray bytesVieja = vieja.Escribir();
    const QByteArray bytesVariada = BaseVariada().Escribir();
    this->mFabrica.Poner("a.pdb", bytesVieja);
    this->mFabrica.Poner("b.pdb", bytesVariada);
    this->mFabrica.Poner("c.pdb", QByteArray(10, 'x')); // not a database
    auto fuente = this->mFabrica.Crear();
    EXPECT_EQ(Describir(*fuente),
              QStringList({"0", "1", "1904-01-01T00:00:00Z", "0",
                           QString::number(bytesVieja.size() + bytesVariada.size()),
                           this->mFabrica.NombreHandheld(), "", "0", "2", "Juan Perez", "", "", "0",
                           "0"}));
    EXPECT_NEAR(double(fuente->CrearSistema()->TarjetaMemoria()->RamLibre()),
                double(this->mFabrica.EspacioLibre()), 64e6);
    // The backup's name is taken in any case; another name gives no user.
    for (const auto& [respaldo, usuario] :
         {std::pair<QString, QString>{"backup", "Ana"}, {"Backups", ""}}) {
        TypeParam fabrica;
        fabrica.ComoRespaldoDe("Ana", respaldo);
        fabrica.Poner("b.pdb", BaseVariada());
        EXPECT_EQ(fabrica.Crear()->CrearSistema()->InformacionUsuario()->Nombre(), usuario)
            << respaldo.toStdString();
    }
}

// What stands in the folder under a database's name but is not a regular file (a FIFO, a link to
// one, a folder) is reported and never read: reading a FIFO would wait for a writer forever.
TEST(CarpetaDeBases, LoQueNoEsUnArchivoSeAvisaSinEsperar) {
    FabricaCarpeta fabrica;
    fabrica.Poner("v.pdb", BaseVariada());
    const QString carpeta = QFileInfo(fabrica.Ruta("v.pdb")).path();
    ASSERT_EQ(::mkfifo(QFile::encodeName(fabrica.Ruta("cola.pdb")).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(fabrica.Ruta("cola.pdb"), fabrica.Ruta("enlace.prc")));
    ASSERT_TRUE(QDir(carpeta).mkdir("carpeta.pdb"));

    const auto [bases, avisos] = SinEsperar([&] {
        auto fuente = fabrica.Crear();
        const QStringList bases = fuente->CrearGestor()->ListarBases(-1);
        return std::make_pair(bases, FabricaCarpeta::Avisos(*fuente));
    });
    EXPECT_EQ(bases, QStringList({"Variada"}));
    ASSERT_EQ(avisos.size(), 3) << avisos.join('\n').toStdString();
    for (const char* nombre : {"carpeta.pdb", "cola.pdb", "enlace.prc"})
        EXPECT_EQ(avisos.filter(nombre).size(), 1) << nombre;
}

// A Handheld.ini that is there but cannot be read is an error of the whole handheld, as it may
// name the code page of every text: never a silent windows-1252. Given the code page, the
// databases read.
TEST(CarpetaDeBases, UnHandheldIniIlegibleEsUnError) {
    const struct {
        const char* Caso;
        std::function<void(FabricaCarpeta&)> Poner;
        const char* Motivo;
    } casos[] = {
        {"FIFO",
         [](FabricaCarpeta& x) {
             ASSERT_EQ(::mkfifo(QFile::encodeName(x.Ruta("Handheld.ini")).constData(), 0600), 0);
         },
         "not a regular file"},
        {"garbage", [](FabricaCarpeta& x) { x.PonerAjustes("[Handheld]\nEncoding Shift_JIS\n"); },
         "line 2"},
    };
    for (const auto& caso : casos) {
        FabricaCarpeta fabrica;
        fabrica.Poner("v.pdb", BaseVariada());
        caso.Poner(fabrica);
        SinEsperar([&] {
            auto fuente = fabrica.Crear();
            EsperarError([&] { fuente->CrearGestor()->ListarBases(-1); },
                         ErroresFuente::HandheldInaccesible, {}, caso.Motivo);
            auto dada = std::make_shared<clsFuenteCarpeta>(QFileInfo(fabrica.Ruta("v.pdb")).path(),
                                                           "Shift_JIS");
            EXPECT_EQ(dada->CrearGestor()->ListarBases(-1), QStringList({"Variada"})) << caso.Caso;
            return 0;
        });
    }
}

// A file larger than any Palm database is left out and never read into memory, whether it was
// that large when the folder was read or grew after.
TEST(CarpetaDeBases, UnArchivoMayorQueUnaBaseNoSeLee) {
    FabricaCarpeta fabrica;
    fabrica.Poner("v.pdb", BaseVariada());
    fabrica.Poner("w.pdb", BaseDeRegistros("Otra"));
    const qint64 enorme = clsArchivoPDB::TamanoMaximo + 1;
    ASSERT_TRUE(QFile::resize(fabrica.Ruta("w.pdb"), enorme)); // sparse: takes no room
    auto fuente = fabrica.Crear();
    EXPECT_EQ(fuente->CrearGestor()->ListarBases(-1), QStringList({"Variada"}));
    EXPECT_EQ(FabricaCarpeta::Avisos(*fuente).filter("more than a Palm database holds").size(), 1);

    ASSERT_TRUE(QFile::resize(fabrica.Ruta("v.pdb"), enorme));
    EsperarError([&] { fuente->CrearGestor()->AbrirBaseRegistros("Variada", "", 208); },
                 ErroresFuente::BaseEnUso, {}, "more than a Palm database holds");
}

// A write lays the database out in a new file renamed over the old one: whatever still holds the
// old file (a hard link here, a reader in practice) keeps it whole.
TEST(CarpetaDeBases, UnaEscrituraNoTocaElArchivoAnterior) {
    FabricaCarpeta fabrica;
    fabrica.Poner("v.pdb", BaseVariada());
    const QByteArray antes = fabrica.Contenido("v.pdb");
    ASSERT_EQ(::link(QFile::encodeName(fabrica.Ruta("v.pdb")).constData(),
                     QFile::encodeName(fabrica.Ruta("anterior")).constData()),
              0);
    auto fuente = fabrica.Crear();
    fuente->CrearGestor()->AbrirBaseRegistros("Variada", "", 208)->EscribirRegistro(9, 0, 0, "x");
    EXPECT_EQ(fabrica.Contenido("anterior"), antes);
    EXPECT_NE(fabrica.Contenido("v.pdb"), antes);
    EXPECT_EQ(fabrica.Sobrantes(), QStringList({"anterior"})); // no lock or temporary left
}
