#include "constructor/clsConstructorBase.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "explorer/clsFuenteConProgreso.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using Pasos = QList<QPair<int, int>>;

TEST(clsFuenteConProgreso, EachLookUpAfterAListingCountsOneStepOfIt) {
    QTemporaryDir carpeta;
    ASSERT_TRUE(carpeta.isValid());
    for (const char* nombre : {"A", "B", "C"})
        clsConstructorBase(nombre, "DATA", "test")
            .Guardar(carpeta.filePath(QString("%1.pdb").arg(nombre)));
    Pasos pasos;
    clsFuenteConProgreso fuente(std::make_shared<clsFuenteCarpeta>(carpeta.path()),
                                [&](int xHechas, int xTotal) {
                                    pasos.append({xHechas, xTotal});
                                });

    auto gestor = fuente.CrearGestor();
    gestor->BuscarBase("A");
    EXPECT_TRUE(pasos.isEmpty()) << "no listing yet";

    const QStringList nombres = gestor->ListarBases(-1);
    ASSERT_EQ(nombres.size(), 3);
    // A fresh manager (as closing a database makes) goes on counting the same walk.
    gestor->BuscarBase(nombres[0]);
    gestor = fuente.CrearGestor();
    for (const QString& nombre : nombres.mid(1))
        EXPECT_EQ(gestor->BuscarBase(nombre)->Nombre(), nombre);
    gestor->BuscarBase("A");
    EXPECT_EQ(pasos, (Pasos{{1, 3}, {2, 3}, {3, 3}}));

    gestor->ListarBases(-1);
    gestor->BuscarBase("B");
    EXPECT_EQ(pasos.last(), (QPair<int, int>{1, 3}));
    EXPECT_EQ(fuente.CodigoATexto(0x44415441, -1), "DATA");
}

} // namespace
