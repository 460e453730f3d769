#include "common/clsConfiguracionRegional.h"
#include "constructor/clsConstructorBase.h"
#include "data/MensajesError.h"
#include "data/clsPalmPDB.h"
#include "explorer/modTextosPanel.h"
#include "support/clsFuenteCarpetaRara.h"

#include <QTemporaryDir>
#include <QTimeZone>
#include <gtest/gtest.h>

namespace {

QDateTime Fecha(int a, int m, int d) {
    return QDateTime(QDate(a, m, d), QTime(14, 3, 9), QTimeZone::utc());
}

// The application panel: a row per database of the creator, each opened in turn, its size as
// the row shows it added to the total; one that cannot be opened is listed as in use and adds
// nothing. The memory panels write KB the same in every locale.
TEST(modTextosPanel, FilasYTotalesDeUnaAplicacion) {
    CargarMensajes();
    QTemporaryDir carpeta;
    clsConstructorBase clientes("Clients", "DATA", "AFa1");
    clientes.Fechas(Fecha(2003, 5, 17), Fecha(2004, 12, 31), Fecha(2005, 1, 2));
    clientes.Version(2);
    clientes.EsquemaAppForge("Clients", {{"Name", clsConstructorBase::String}});
    for (const char* nombre : {"Ann", "Bob", "Cy"})
        clientes.AgregarRegistro({nombre});
    // 3072 bytes: 3 KB.
    clientes.Archivo().SortInfo = QByteArray(3072 - clientes.Archivo().Escribir().size(), '\0');
    clientes.Guardar(carpeta.filePath("Clients.pdb"));
    clsConstructorBase("Orders", "DATA", "AFa1").Guardar(carpeta.filePath("Orders.pdb"));

    clsPalmPDB base(std::make_shared<clsFuenteCarpetaRara>(
        carpeta.path(), Rarezas{{{"Orders", ErroresFuente::BaseEnUso}}}));
    const clsConfiguracionRegional regional(QLocale(QLocale::German, QLocale::Germany));
    modTextosPanel::TotalesAplicacion totales;
    for (int vez = 0; vez < 2; ++vez)
        EXPECT_EQ(modTextosPanel::FilaRecurso(base, "Clients", regional, totales),
                  QStringList({"Clients", "DATA", "3", "3", "2",
                               regional.TextoFechaGeneral(Fecha(2003, 5, 17)),
                               regional.TextoFechaGeneral(Fecha(2004, 12, 31)),
                               regional.TextoFechaGeneral(Fecha(2005, 1, 2))})
                      .join('\t'));
    EXPECT_EQ(modTextosPanel::FilaRecurso(base, "Orders", regional, totales),
              "Orders (file in use) \tData\tUnknow\tUnknow\tUnknow\tUnknow\tUnknow\tUnknow");
    EXPECT_EQ(totales.Registros, 6);
    EXPECT_EQ(modTextosPanel::TextoTamanioAplicacion(totales.Tamanio, regional), "6,00 KB");

    const std::pair<qint64, const char*> memorias[] = {
        {1536, "1.5 KB"}, {2097152, "2048 KB"}, {1000000, "976.56 KB"}, {0, "0 KB"}};
    for (const auto& [bytes, texto] : memorias)
        EXPECT_EQ(modTextosPanel::TextoMemoria(bytes), texto);
}

} // namespace
