#include "common/ErrorVB.h"
#include "data/clsArchivoPDB.h"
#include "data/clsCatalogoCarpeta.h"
#include "data/clsFuentePalm.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace {

QByteArray Base(const QByteArray& xNombre, int xRegistros) {
    clsArchivoPDB archivo;
    archivo.Nombre = xNombre;
    archivo.Tipo = 0x44415441;    // DATA
    archivo.Creador = 0x54455354; // TEST
    for (int i = 0; i < xRegistros; ++i)
        archivo.Registros.append({0, quint32(i + 1), "registro " + QByteArray::number(i)});
    return archivo.Escribir();
}

class CatalogoCarpeta : public ::testing::Test {
public:
    void Poner(const QString& xArchivo, const QByteArray& xBytes) {
        QFile archivo(mCarpeta.filePath(xArchivo));
        ASSERT_TRUE(archivo.open(QIODevice::WriteOnly | QIODevice::Truncate));
        archivo.write(xBytes);
    }
    void Quitar(const QString& xArchivo) { QFile::remove(mCarpeta.filePath(xArchivo)); }

protected:
    template <typename F> static void EsperarError(qint32 xNumero, const QString& xTexto, F&& xF) {
        try {
            xF();
            ADD_FAILURE() << "no error was raised";
        } catch (const ErrorVB& error) {
            EXPECT_EQ(error.Numero(), xNumero) << error.what();
            EXPECT_TRUE(error.Descripcion().contains(xTexto)) << error.what();
        }
    }

    QTemporaryDir mCarpeta;
};

} // namespace

TEST_F(CatalogoCarpeta, BuscarContestaSinLeerElDiscoYAbrirLeeElArchivo) {
    Poner("a.pdb", Base("Alfa", 2));
    clsCatalogoCarpeta catalogo(mCarpeta.path());
    ASSERT_EQ(catalogo.Bases().size(), 1);
    Quitar("a.pdb");
    const FichaBaseCarpeta ficha = catalogo.Buscar("Alfa", "BuscarBase");
    EXPECT_EQ(QFileInfo(ficha.Archivo).fileName(), "a.pdb");
    EXPECT_EQ(ficha.Entradas, 2);
    FichaBaseCarpeta abierta;
    EsperarError(ErroresFuente::BaseEnUso, "no longer in the handheld folder",
                 [&] { catalogo.Contenido("Alfa", "AbrirBaseRegistros", abierta); });
}

TEST_F(CatalogoCarpeta, AbrirVeLosCambiosHechosDesdeQueSeLeyoLaCarpeta) {
    const struct {
        const char* Caso;
        std::function<void(CatalogoCarpeta&)> Cambiar;
        QString Archivo;
        qint32 Registros;
    } casos[] = {
        {"untouched", [](CatalogoCarpeta&) {}, "a.pdb", 2},
        {"more records", [](CatalogoCarpeta& x) { x.Poner("a.pdb", Base("Alfa", 5)); }, "a.pdb", 5},
        {"moved to another file",
         [](CatalogoCarpeta& x) {
             x.Quitar("a.pdb");
             x.Poner("z.pdb", Base("Alfa", 3));
         },
         "z.pdb", 3},
    };
    for (const auto& caso : casos) {
        Quitar("z.pdb");
        Poner("a.pdb", Base("Alfa", 2));
        clsCatalogoCarpeta catalogo(mCarpeta.path());
        ASSERT_EQ(catalogo.Bases().size(), 1);
        caso.Cambiar(*this);
        FichaBaseCarpeta ficha;
        const ContenidoArchivo contenido = catalogo.Contenido("Alfa", "AbrirBaseRegistros", ficha);
        EXPECT_EQ(QFileInfo(ficha.Archivo).fileName(), caso.Archivo) << caso.Caso;
        EXPECT_EQ(ficha.Entradas, caso.Registros) << caso.Caso;
        EXPECT_EQ(clsArchivoPDB::Leer(contenido.Bytes).Registros.size(), caso.Registros)
            << caso.Caso;
        EXPECT_EQ(contenido.Estado, clsLecturaArchivo::EstadoDe(ficha.Archivo)) << caso.Caso;
        EXPECT_EQ(catalogo.Buscar("Alfa", "BuscarBase").Entradas, caso.Registros) << caso.Caso;
    }
}

TEST_F(CatalogoCarpeta, UnArchivoQueYaNoGuardaLaBaseNoSeAbre) {
    Poner("a.pdb", Base("Alfa", 2));
    clsCatalogoCarpeta catalogo(mCarpeta.path());
    const FichaBaseCarpeta antes = catalogo.Buscar("Alfa", "BuscarBase");
    Poner("a.pdb", Base("Beta", 1));
    FichaBaseCarpeta ficha;
    EsperarError(ErroresFuente::BaseEnUso, "no longer in the handheld folder",
                 [&] { catalogo.Contenido("Alfa", "AbrirBaseRegistros", ficha); });
    // What is known of Alfa stays as it was: its file holds another database now.
    EXPECT_EQ(catalogo.Actual(antes).Entradas, 2);
    EXPECT_EQ(catalogo.Buscar("Beta", "BuscarBase").Entradas, 1);
}

TEST_F(CatalogoCarpeta, UnNombreDesconocidoHaceLeerLaCarpetaOtraVez) {
    Poner("a.pdb", Base("Alfa", 1));
    clsCatalogoCarpeta catalogo(mCarpeta.path());
    ASSERT_EQ(catalogo.Bases().size(), 1);
    Poner("b.pdb", Base("Beta", 4));
    EXPECT_EQ(catalogo.Buscar("Beta", "BuscarBase").Entradas, 4);
    EXPECT_EQ(catalogo.Bases().size(), 2);
    EsperarError(ErroresFuente::BaseNoEncontrada, "Gama",
                 [&] { catalogo.Buscar("Gama", "BuscarBase"); });
}

TEST_F(CatalogoCarpeta, LoQueEscribeElProgramaLoSabeElCatalogo) {
    Poner("a.pdb", Base("Alfa", 2));
    clsCatalogoCarpeta catalogo(mCarpeta.path());
    const FichaBaseCarpeta antes = catalogo.Buscar("Alfa", "BuscarBase");
    const QByteArray nuevo = Base("Alfa", 7);
    Poner("a.pdb", nuevo);
    DisposicionPDB disposicion = clsArchivoPDB::Analizar(nuevo);
    disposicion.NumeroModificacion = 42;
    catalogo.Anotar(antes.Archivo, disposicion, disposicion.Entradas,
                    {nuevo, clsLecturaArchivo::EstadoDe(antes.Archivo), 0});
    for (const FichaBaseCarpeta& ficha :
         {catalogo.Actual(antes), catalogo.Buscar("Alfa", "BuscarBase"), catalogo.Bases()[0]}) {
        EXPECT_EQ(ficha.Entradas, 7);
        EXPECT_EQ(ficha.Cabecera.NumeroModificacion, 42u);
        EXPECT_EQ(ficha.Tamano, nuevo.size());
    }
}
