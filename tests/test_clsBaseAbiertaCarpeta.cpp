#include "data/clsArchivoPDB.h"
#include "data/clsFuenteCarpeta.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace {

clsArchivoPDB Base() {
    clsArchivoPDB archivo;
    archivo.Nombre = "Notas";
    archivo.Tipo = 0x44415441;
    archivo.Creador = 0x54455354;
    archivo.Registros = {{0, 1, "uno"}, {0, 2, "dos"}, {0, 3, "tres"}};
    return archivo;
}

// Another program rewrites the first record in place: same size, same file.
void CambiarEnSuSitio(const QString& xRuta, bool xRestaurarHora) {
    const QByteArray antes = [&] {
        QFile archivo(xRuta);
        return archivo.open(QIODevice::ReadOnly) ? archivo.readAll() : QByteArray();
    }();
    const QDateTime hora = QFileInfo(xRuta).lastModified();
    const qsizetype posicion = antes.indexOf("uno");
    ASSERT_GT(posicion, 0);
    QFile archivo(xRuta);
    ASSERT_TRUE(archivo.open(QIODevice::ReadWrite));
    archivo.seek(posicion);
    archivo.write("UNO");
    if (xRestaurarHora) archivo.setFileTime(hora, QFileDevice::FileModificationTime);
}

} // namespace

// A change of the same size made in the second the database was read can look, to the file
// system, like no change at all: the write must still find it and keep it.
TEST(clsBaseAbiertaCarpeta, UnCambioDelMismoTamanoJustoDespuesDeAbrirSobreviveALaEscritura) {
    const struct {
        const char* Caso;
        bool RestaurarHora;
    } casos[] = {{"in place", false}, {"in place, time set back", true}};
    for (const auto& caso : casos) {
        QTemporaryDir carpeta;
        const QString ruta = carpeta.filePath("notas.pdb");
        {
            QFile archivo(ruta);
            ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
            archivo.write(Base().Escribir());
        }
        auto fuente = std::make_shared<clsFuenteCarpeta>(carpeta.path());
        auto adaptador = fuente->CrearGestor()->AbrirBaseRegistros("Notas", "", 208);
        CambiarEnSuSitio(ruta, caso.RestaurarHora);
        adaptador->EscribirRegistro(3, 0, 0, "TRES nuevo");

        QFile archivo(ruta);
        ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
        const clsArchivoPDB despues = clsArchivoPDB::Leer(archivo.readAll());
        ASSERT_EQ(despues.Registros.size(), 3) << caso.Caso;
        EXPECT_EQ(despues.Registros[0].Datos, QByteArray("UNO")) << caso.Caso;
        EXPECT_EQ(despues.Registros[2].Datos, QByteArray("TRES nuevo")) << caso.Caso;
        EXPECT_EQ(adaptador->LeerPorID(1).Bytes, QByteArray("UNO")) << caso.Caso;
    }
}

// The information object of a database answers with what the last write of this program left.
TEST(clsBaseAbiertaCarpeta, LaInformacionDeLaBaseSigueALasEscrituras) {
    QTemporaryDir carpeta;
    {
        QFile archivo(carpeta.filePath("notas.pdb"));
        ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
        archivo.write(Base().Escribir());
    }
    auto fuente = std::make_shared<clsFuenteCarpeta>(carpeta.path());
    auto gestor = fuente->CrearGestor();
    const auto info = gestor->BuscarBase("Notas");
    auto adaptador = gestor->AbrirBaseRegistros("Notas", "", 208);
    const struct {
        const char* Caso;
        std::function<void()> Escribir;
        qint32 Registros;
    } casos[] = {
        {"add", [&] { adaptador->EscribirRegistro(0, 0, 0, "cuatro"); }, 4},
        {"delete", [&] { adaptador->BorrarRegistro(2); }, 3},
        {"delete all", [&] { adaptador->BorrarTodos(0, 0); }, 0},
    };
    for (const auto& caso : casos) {
        caso.Escribir();
        EXPECT_EQ(info->CantidadRegistros(), caso.Registros) << caso.Caso;
        EXPECT_EQ(info->TamanoBase(), QFileInfo(carpeta.filePath("notas.pdb")).size()) << caso.Caso;
        EXPECT_EQ(gestor->BuscarBase("Notas")->CantidadRegistros(), caso.Registros) << caso.Caso;
    }
}
