#include "data/formato/clsLecturaArchivo.h"
#include "support/modPrueba.h"

#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <functional>
#include <gtest/gtest.h>

namespace {

constexpr qint64 Nano = 1000000000;

using modPrueba::Poner;

} // namespace

TEST(EstadoArchivo, SoloUnCambioDeUnSegundoAnteriorALaLecturaPruebaQueNadaCambio) {
    const qint64 momento = 1700000000500; // ms: half a second into second 1700000000
    const qint64 segundo = 1700000000 * Nano;
    const struct {
        const char* Caso;
        qint64 Modificado, Cambiado;
        bool Seguro;
    } casos[] = {
        {"both in an earlier second", segundo - 1, segundo - 1, true},
        {"long before", segundo - 3600 * Nano, segundo - 7200 * Nano, true},
        {"contents changed in the second of the reading", segundo, segundo - 1, false},
        {"contents changed just before the reading", segundo + 400000000, segundo - 1, false},
        {"status changed in the second of the reading", segundo - 1, segundo + 1, false},
        {"changed after the reading", segundo + 2 * Nano, segundo + 2 * Nano, false},
    };
    for (const auto& caso : casos) {
        EstadoArchivo estado;
        estado.Existe = true;
        estado.Modificado = caso.Modificado;
        estado.Cambiado = caso.Cambiado;
        EXPECT_EQ(estado.Seguro(momento), caso.Seguro) << caso.Caso;
    }
}

TEST(EstadoArchivo, UnaMiradaIgualSoloPruebaQueNadaCambioSiLaLecturaFueSegura) {
    const qint64 momento = 1700000000500;
    EstadoArchivo leido{true, 100, 1600000000 * Nano, 1600000000 * Nano, 7, 1};
    EstadoArchivo reciente = leido;
    reciente.Modificado = reciente.Cambiado = 1700000000 * Nano + 100;
    const auto con = [](EstadoArchivo x, const std::function<void(EstadoArchivo&)>& xCambio) {
        xCambio(x);
        return x;
    };
    const struct {
        const char* Caso;
        EstadoArchivo Leido, Ahora;
        bool SinCambios;
    } casos[] = {
        {"the same look", leido, leido, true},
        {"another size", leido, con(leido, [](EstadoArchivo& x) { ++x.Tamano; }), false},
        {"another file", leido, con(leido, [](EstadoArchivo& x) { ++x.Inodo; }), false},
        {"another device", leido, con(leido, [](EstadoArchivo& x) { ++x.Dispositivo; }), false},
        {"contents changed", leido, con(leido, [](EstadoArchivo& x) { ++x.Modificado; }), false},
        {"status changed", leido, con(leido, [](EstadoArchivo& x) { ++x.Cambiado; }), false},
        {"gone", leido, EstadoArchivo(), false},
        {"the same look, changed in the second of the reading", reciente, reciente, false},
    };
    for (const auto& caso : casos)
        EXPECT_EQ(caso.Leido.SinCambios(caso.Ahora, momento), caso.SinCambios) << caso.Caso;
}

TEST(clsLecturaArchivo, UnaMiradaVeCadaCambioDelArchivo) {
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath("base.pdb");
    const struct {
        const char* Caso;
        std::function<void()> Cambiar;
        bool Igual;
    } casos[] = {
        {"untouched", [] {}, true},
        {"read", [&] { clsLecturaArchivo(ruta).Estado(); }, true},
        {"grown", [&] { Poner(ruta, "original+"); }, false},
        {"replaced by a rename",
         [&] {
             Poner(ruta + ".nuevo", "original");
             QFile::remove(ruta);
             QFile::rename(ruta + ".nuevo", ruta);
         },
         false},
        {"rewritten with the same size and its time set back",
         [&] {
             QFile archivo(ruta);
             const QDateTime antes = QFileInfo(ruta).lastModified();
             ASSERT_TRUE(archivo.open(QIODevice::ReadWrite));
             archivo.write("ORIGINAL");
             archivo.setFileTime(antes, QFileDevice::FileModificationTime);
         },
         false},
    };
    for (const auto& caso : casos) {
        Poner(ruta, "original");
        const EstadoArchivo antes = clsLecturaArchivo::EstadoDe(ruta);
        // Past the file system's clock tick, so a change shows in the file's times.
        QThread::msleep(20);
        caso.Cambiar();
        EXPECT_EQ(clsLecturaArchivo::EstadoDe(ruta) == antes, caso.Igual) << caso.Caso;
    }
}
