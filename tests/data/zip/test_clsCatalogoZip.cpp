#include "data/formato/clsArchivoPDB.h"
#include "data/zip/clsFuenteZip.h"
#include "support/modPrueba.h"
#include "support/modZipPrueba.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <QtEndian>
#include <gtest/gtest.h>

namespace {

using modZipPrueba::Entradas;

QByteArray Base(const QByteArray& xNombre, const QByteArray& xRegistro = "uno") {
    clsArchivoPDB archivo;
    archivo.Nombre = xNombre;
    archivo.Tipo = 0x44415441;    // DATA
    archivo.Creador = 0x54455354; // TEST
    archivo.Registros = {{0x40, 5, xRegistro}, {0, 9, "dos"}};
    return archivo.Escribir();
}

// Sets the size every header of the entry claims once expanded, as a hostile archive lies.
void FingirTamano(QByteArray& xZip, const QByteArray& xNombre, quint32 xTamano) {
    for (const auto& [firma, desplazamiento, nombre] :
         {std::tuple{"PK\x03\x04", 22, 30}, std::tuple{"PK\x01\x02", 24, 46}}) {
        for (qsizetype p = xZip.indexOf(firma); p >= 0; p = xZip.indexOf(firma, p + 1))
            if (xZip.mid(p + nombre, xNombre.size()) == xNombre)
                qToLittleEndian(xTamano, xZip.data() + p + desplazamiento);
    }
}

class ZipTest : public ::testing::Test {
protected:
    QString Ruta() const { return mCarpeta.filePath("Palm.zip"); }
    QStringList Listar(clsFuentePalm& xFuente) { return xFuente.CrearGestor()->ListarBases(-1); }

    QTemporaryDir mCarpeta;
};

} // namespace

// Entries that cannot be databases are left out and reported; none is ever written out as a
// file, so a name with ".." reaches nothing outside the archive.
TEST_F(ZipTest, LasEntradasHostilesSeAvisanSinSalirDelArchivo) {
    QByteArray interior;
    {
        QTemporaryDir otra;
        ASSERT_TRUE(
            modZipPrueba::GuardarZip(otra.filePath("i.zip"), {{"Oculta.pdb", Base("Oculta")}}));
        interior = modPrueba::Leer(otra.filePath("i.zip"));
    }
    ASSERT_TRUE(modZipPrueba::GuardarZip(Ruta(),
                                         {{"Palm/Backup/buena.PDB", Base("Buena")},
                                          {"../fuera.pdb", Base("Fuera")},
                                          {"a/../../fuera2.pdb", Base("Fuera2")},
                                          {"..\\win.pdb", Base("Win")},
                                          {"C:/raiz.pdb", Base("Raiz")},
                                          {"larga.pdb", Base("Larga", QByteArray(500, 'l'))},
                                          {"otra.pdb", Base("Otra")},
                                          {"otrb.pdb", Base("Copia")},
                                          {"secreta.pdb", Base("Secreta")},
                                          {"enorme.pdb", Base("Enorme")},
                                          {"dentro.zip", interior},
                                          {"rota.pdb", Base("Rota", QByteArray(2000, 'r'))},
                                          {"alterada.pdb", Base("Alterada", "intacto")},
                                          {"notas.txt", "not a database"}},
                                         {"secreta.pdb"}, {"alterada.pdb"}));
    QFile archivo(Ruta());
    ASSERT_TRUE(archivo.open(QIODevice::ReadWrite));
    QByteArray bytes = archivo.readAll();
    FingirTamano(bytes, "enorme.pdb", 0xC0000000u);
    FingirTamano(bytes, "larga.pdb", 100);
    // A second entry of a name taken: the first is used.
    for (qsizetype p = bytes.indexOf("otrb.pdb"); p >= 0; p = bytes.indexOf("otrb.pdb", p + 1))
        bytes.replace(p, 8, "otra.pdb");
    // Damaged data: the directory is whole, the entry's compressed bytes are not.
    const qsizetype rota = bytes.indexOf("rota.pdb") + 8;
    bytes.replace(rota + 20, 16, QByteArray(16, '\xff'));
    // A stored entry with one byte changed: only its checksum tells.
    bytes[bytes.indexOf("intacto")] = 'I';
    archivo.seek(0);
    archivo.write(bytes);
    archivo.close();

    clsFuenteZip fuente(Ruta());
    EXPECT_EQ(Listar(fuente), QStringList({"Buena", "Otra"}));
    const QStringList avisos = fuente.Avisos();
    ASSERT_EQ(avisos.size(), 11) << avisos.join('\n').toStdString();
    const struct {
        const char* Entrada;
        const char* Motivo;
    } casos[] = {{"../fuera.pdb", "leads out of the archive"},
                 {"a/../../fuera2.pdb", "leads out of the archive"},
                 {"..\\win.pdb", "leads out of the archive"},
                 {"C:/raiz.pdb", "leads out of the archive"},
                 {"larga.pdb", "longer than the archive says"},
                 {"otra.pdb", "the first is used"},
                 {"secreta.pdb", "encrypted"},
                 {"enorme.pdb", "claims 3221225472 bytes"},
                 {"dentro.zip", "archive inside the archive"},
                 {"rota.pdb", "cannot be read"},
                 {"alterada.pdb", "cannot be read"}};
    for (const auto& caso : casos)
        EXPECT_EQ(avisos.filter(caso.Entrada).filter(caso.Motivo).size(), 1) << caso.Entrada;
    EXPECT_FALSE(QFile::exists(QFileInfo(mCarpeta.path()).dir().filePath("fuera.pdb")));
    EXPECT_EQ(QDir(mCarpeta.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList({"Palm.zip"}));
}

// A truncated or empty archive, or one that is not a zip at all, is a numbered error at every door.
TEST_F(ZipTest, UnArchivoCortadoEsUnErrorNumerado) {
    ASSERT_TRUE(
        modZipPrueba::GuardarZip(Ruta(), {{"a.pdb", Base("Alfa")}, {"b.pdb", Base("Beta")}}));
    const QByteArray entero = modPrueba::Leer(Ruta());
    for (const QByteArray& roto : {entero.left(entero.size() - 30), entero.left(entero.size() / 2),
                                   QByteArray("PK\x05\x06"), QByteArray()}) {
        modPrueba::Poner(Ruta(), roto);
        clsFuenteZip fuente(Ruta());
        modPrueba::EsperarError([&] { Listar(fuente); }, ErroresFuente::HandheldInaccesible, {},
                                "cannot be read");
    }
}

// A write rewrites the archive: the database's entry holds the change, every other entry keeps its
// stored bytes (copied, not compressed anew), names and order, and nothing is left beside it.
TEST_F(ZipTest, UnaEscrituraConservaLasDemasEntradas) {
    const Entradas entradas = {{"Handheld.ini", "[Handheld]\nEncoding=windows-1252\n"},
                               {"a/Alfa.pdb", Base("Alfa")},
                               {"Beta.pdb", Base("Beta", QByteArray(5000, 'b'))},
                               {"notas.txt", QByteArray(3000, 'n')},
                               {"a/Handheld.ini", "[Card]\nName=Deeper\n"}};
    ASSERT_TRUE(modZipPrueba::GuardarZip(Ruta(), entradas));
    const Entradas antes = modZipPrueba::Leer(Ruta(), true);

    clsFuenteZip fuente(Ruta());
    auto adaptador = fuente.CrearGestor()->AbrirBaseRegistros("Alfa", "", 208);
    adaptador->EscribirRegistro(5, 1, 0, "cambiado");
    EXPECT_EQ(adaptador->EscribirRegistro(0, 0, 0, "nuevo"), 10);

    const Entradas despues = modZipPrueba::Leer(Ruta(), true);
    ASSERT_EQ(despues.size(), antes.size());
    for (int i = 0; i < antes.size(); ++i) {
        EXPECT_EQ(despues[i].first, antes[i].first);
        if (antes[i].first != "a/Alfa.pdb") {
            EXPECT_EQ(despues[i].second, antes[i].second) << i;
        }
    }
    const clsArchivoPDB alfa = clsArchivoPDB::Leer(modZipPrueba::Leer(Ruta())[1].second);
    ASSERT_EQ(alfa.Registros.size(), 3);
    EXPECT_EQ(alfa.Registros[0].Datos, QByteArray("cambiado"));
    EXPECT_EQ(alfa.Registros[2].Datos, QByteArray("nuevo"));
    EXPECT_EQ(QDir(mCarpeta.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList({"Palm.zip"}));
    // A second source sees the change, and the card's name is the archive's: the Handheld.ini
    // nearest the root names none.
    clsFuenteZip otra(Ruta());
    EXPECT_EQ(otra.CrearGestor()->AbrirBaseRegistros("Alfa", "", 208)->LeerPorID(5).Bytes,
              QByteArray("cambiado"));
    EXPECT_EQ(otra.CrearSistema()->TarjetaMemoria()->Nombre(), "Palm");
}

// An archive reached through a link is rewritten where the link leads, under its own lock, and
// the link stays a link. A rewrite killed half way leaves temporary files named after the
// archive and its process: the next rewrite removes those of processes that are gone, and only
// those.
TEST_F(ZipTest, UnaEscrituraLlegaAlArchivoYQuitaLosTemporalesAbandonados) {
    QDir(mCarpeta.path()).mkdir("real");
    const QString real = mCarpeta.filePath("real/Palm.zip");
    ASSERT_TRUE(modZipPrueba::GuardarZip(real, {{"a.pdb", Base("Alfa")}}));
    ASSERT_TRUE(QFile::link(real, Ruta()));
    const QString vivo = QString::number(QCoreApplication::applicationPid());
    const QStringList abandonados = {".Palm.zip.999999999-Ab12Cd",
                                     ".Palm.zip.999999999-Ab12Cd.Ef34Gh"};
    const QStringList ajenos = {".Palm.zip." + vivo + "-Ab12Cd", ".Palm.zip.backup",
                                "Palm.zip.txt"};
    for (const QString& nombre : abandonados + ajenos) {
        modPrueba::Poner(mCarpeta.filePath("real/" + nombre), {});
    }

    clsFuenteZip fuente(Ruta());
    fuente.CrearGestor()->AbrirBaseRegistros("Alfa", "", 208)->EscribirRegistro(5, 0, 0, "nuevo");
    EXPECT_TRUE(QFileInfo(Ruta()).isSymLink());
    EXPECT_EQ(clsArchivoPDB::Leer(modZipPrueba::Leer(real)[0].second).Registros[0].Datos,
              QByteArray("nuevo"));
    const QStringList quedan =
        QDir(mCarpeta.filePath("real")).entryList(QDir::Files | QDir::Hidden);
    EXPECT_EQ(QSet<QString>(quedan.begin(), quedan.end()),
              QSet<QString>(ajenos.begin(), ajenos.end()) << "Palm.zip");
}

// The archive's Handheld.ini is read in memory, so it does not need a temporary folder; one whose
// bytes are damaged is an error of the whole handheld, never a silent windows-1252.
TEST_F(ZipTest, ElHandheldIniSeLeeEnMemoriaYDanadoEsUnError) {
    const QByteArray ini = "[Handheld]\nEncoding=Shift_JIS\n[User]\nName=" + QByteArray(300, 'n');
    ASSERT_TRUE(modZipPrueba::GuardarZip(Ruta(), {{"Handheld.ini", ini}, {"a.pdb", Base("Alfa")}}));
    const QByteArray temporal = qgetenv("TMPDIR");
    qputenv("TMPDIR", mCarpeta.filePath("none").toUtf8());
    const QString pagina = clsFuenteZip(Ruta()).CodigoPagina();
    qputenv("TMPDIR", temporal);
    EXPECT_EQ(pagina, "Shift_JIS");

    QFile archivo(Ruta());
    ASSERT_TRUE(archivo.open(QIODevice::ReadWrite));
    QByteArray bytes = archivo.readAll();
    bytes.replace(bytes.indexOf("Handheld.ini") + 12 + 20, 8, QByteArray(8, '\x55'));
    archivo.seek(0);
    archivo.write(bytes);
    archivo.close();
    clsFuenteZip fuente(Ruta());
    modPrueba::EsperarError([&] { Listar(fuente); }, ErroresFuente::HandheldInaccesible, {},
                            "Handheld.ini of the backup archive");
}
