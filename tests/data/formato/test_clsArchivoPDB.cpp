#include "data/formato/clsArchivoPDB.h"
#include "support/modPrueba.h"

#include <QDir>
#include <QtEndian>
#include <gtest/gtest.h>

namespace {

QByteArray Bytes(std::initializer_list<int> xValores) {
    QByteArray bytes;
    for (int valor : xValores)
        bytes.append(static_cast<char>(valor));
    return bytes;
}

clsArchivoPDB BaseDeRegistros() {
    clsArchivoPDB archivo;
    archivo.Nombre = "Clientes";
    archivo.Version = 3;
    archivo.FechaCreacion = 0xBD000000;
    archivo.FechaModificacion = 0xBD000100;
    archivo.NumeroModificacion = 7;
    archivo.Tipo = 0x44415441; // DATA
    archivo.Creador = 0x54455354;
    archivo.SemillaID = 0x100004;
    archivo.AppInfo = QByteArray(276, '\x01');
    archivo.SortInfo = Bytes({9, 8, 7});
    archivo.Registros = {{0x40, 0x100001, "uno"},
                         {0x03, 0x100002, QByteArray()},
                         {0x88, 0x100003, QByteArray(300, 'x')}};
    return archivo;
}

clsArchivoPDB BaseDeRecursos() {
    clsArchivoPDB archivo;
    archivo.Nombre = "Programa";
    archivo.Atributos = clsArchivoPDB::AtributoRecursos;
    archivo.Tipo = 0x6170706C; // appl
    archivo.Creador = 0x50524F47;
    archivo.Recursos = {{0x636F6465, 0, Bytes({1, 2, 3})}, {0x74465254, 1000, "form"}};
    return archivo;
}

void PonerU32(QByteArray& xBytes, int xEn, quint32 xValor) {
    qToBigEndian(xValor, xBytes.data() + xEn);
}

void PonerU16(QByteArray& xBytes, int xEn, quint16 xValor) {
    qToBigEndian(xValor, xBytes.data() + xEn);
}

// The offset field of record entry i in a record database.
int DesdeRegistro(int xIndice) {
    return 78 + 8 * xIndice;
}

// Checks that every block of a parsed file lies inside it.
void ComprobarDentro(const DisposicionPDB& xDisposicion, qint64 xTamano) {
    auto dentro = [xTamano](const TramoPDB& xTramo) {
        return qint64(xTramo.Desde) + xTramo.Largo <= xTamano;
    };
    EXPECT_TRUE(dentro(xDisposicion.AppInfo));
    EXPECT_TRUE(dentro(xDisposicion.SortInfo));
    for (const auto& registro : xDisposicion.Registros)
        EXPECT_TRUE(dentro(registro.Datos));
    for (const auto& recurso : xDisposicion.Recursos)
        EXPECT_TRUE(dentro(recurso.Datos));
}

} // namespace

// Every header field and block is compared through the bytes written again; the fields' places
// are checked against the device files and the offsets below.
TEST(clsArchivoPDB, UnRegistroVuelveIgualTrasEscribirYLeer) {
    const clsArchivoPDB original = BaseDeRegistros();
    const QByteArray bytes = original.Escribir();
    const clsArchivoPDB leido = clsArchivoPDB::Leer(bytes);
    CabeceraPDB cabecera = original;
    cabecera.RellenoNombre = QByteArray(32 - 1 - cabecera.Nombre.size(), '\0');
    EXPECT_EQ(static_cast<const CabeceraPDB&>(leido), cabecera);
    EXPECT_EQ(leido.AppInfo, original.AppInfo);
    EXPECT_EQ(leido.SortInfo, original.SortInfo);
    ASSERT_EQ(leido.Registros.size(), 3);
    EXPECT_EQ(leido.Registros[2].Atributos, 0x88);
    EXPECT_EQ(leido.Registros[2].ID, 0x100003u);
    EXPECT_EQ(leido.Registros[2].Datos, original.Registros[2].Datos);
    EXPECT_EQ(leido.Escribir(), bytes);

    // A resource database: no AppInfo, so its offset is 0.
    const QByteArray recursos = BaseDeRecursos().Escribir();
    const clsArchivoPDB programa = clsArchivoPDB::Leer(recursos);
    ASSERT_TRUE(programa.EsRecursos());
    ASSERT_EQ(programa.Recursos.size(), 2);
    EXPECT_EQ(programa.Recursos[1].Tipo, 0x74465254u);
    EXPECT_EQ(programa.Recursos[1].ID, 1000);
    EXPECT_EQ(programa.Recursos[1].Datos, QByteArray("form"));
    EXPECT_EQ(qFromBigEndian<quint32>(recursos.constData() + 52), 0u);
    EXPECT_EQ(programa.Escribir(), recursos);
}

TEST(clsArchivoPDB, EscribirCalculaCadaDesplazamientoDesdeElContenido) {
    const QByteArray bytes = BaseDeRegistros().Escribir();
    const int finIndice = 78 + 3 * 8;
    const quint32 appInfo = finIndice + 2;
    EXPECT_EQ(qFromBigEndian<quint32>(bytes.constData() + 52), appInfo);
    EXPECT_EQ(qFromBigEndian<quint32>(bytes.constData() + 56), appInfo + 276);
    EXPECT_EQ(qFromBigEndian<quint32>(bytes.constData() + DesdeRegistro(0)), appInfo + 279);
    EXPECT_EQ(qFromBigEndian<quint32>(bytes.constData() + DesdeRegistro(1)), appInfo + 282);
    EXPECT_EQ(qFromBigEndian<quint32>(bytes.constData() + DesdeRegistro(2)), appInfo + 282);
    EXPECT_EQ(bytes.size(), appInfo + 282 + 300);
    EXPECT_EQ(bytes.mid(finIndice, 2), Bytes({0, 0}));
}

TEST(clsArchivoPDB, LosBytesTrasElNombreSeConservanMientrasQuepan) {
    clsArchivoPDB archivo = BaseDeRegistros();
    QByteArray bytes = archivo.Escribir();
    bytes[20] = 'Z'; // old bytes after the terminator, as handhelds leave them
    archivo = clsArchivoPDB::Leer(bytes);
    EXPECT_EQ(archivo.Escribir(), bytes);

    archivo.Nombre = "Otro nombre";
    const QByteArray renombrado = archivo.Escribir();
    EXPECT_EQ(renombrado.left(32), QByteArray("Otro nombre").append(21, '\0'));
}

TEST(clsArchivoPDB, UnaDisposicionNoCanonicaSeLeeYSeReescribeCanonica) {
    clsArchivoPDB archivo = BaseDeRegistros();
    archivo.SortInfo.clear();
    QByteArray canonico = archivo.Escribir();
    // No padding after the entry list, and a 4-byte gap before the second record.
    QByteArray bytes = canonico;
    bytes.remove(78 + 3 * 8, 2);
    const quint32 appInfo = 78 + 3 * 8;
    PonerU32(bytes, 52, appInfo);
    PonerU32(bytes, DesdeRegistro(0), appInfo + 276);
    bytes.insert(appInfo + 276 + 3, "GAP!");
    PonerU32(bytes, DesdeRegistro(1), appInfo + 276 + 7);
    PonerU32(bytes, DesdeRegistro(2), appInfo + 276 + 7);

    const clsArchivoPDB leido = clsArchivoPDB::Leer(bytes);
    EXPECT_EQ(leido.AppInfo, archivo.AppInfo);
    EXPECT_EQ(leido.Registros[0].Datos, QByteArray("unoGAP!"));
    EXPECT_EQ(leido.Registros[2].Datos, archivo.Registros[2].Datos);
    EXPECT_EQ(leido.Escribir().size(), canonico.size() + 4);
}

TEST(clsArchivoPDB, EscribirRechazaLoQueNoCabeEnUnArchivo) {
    struct Caso {
        const char* Nombre;
        std::function<void(clsArchivoPDB&)> Cambio;
    };
    const std::vector<Caso> casos = {
        {"name of 32 bytes", [](clsArchivoPDB& x) { x.Nombre = QByteArray(32, 'n'); }},
        {"zero byte in the name", [](clsArchivoPDB& x) { x.Nombre = QByteArray("a\0b", 3); }},
        {"ID over 24 bits", [](clsArchivoPDB& x) { x.Registros[0].ID = 0x1000000; }},
        {"resource in a record database",
         [](clsArchivoPDB& x) {
             x.Recursos.append({1, 2, "r"});
         }},
        {"record in a resource database",
         [](clsArchivoPDB& x) { x.Atributos |= clsArchivoPDB::AtributoRecursos; }},
        {"65536 records", [](clsArchivoPDB& x) { x.Registros.resize(65536); }},
    };
    for (const Caso& caso : casos) {
        clsArchivoPDB archivo = BaseDeRegistros();
        caso.Cambio(archivo);
        EXPECT_THROW(archivo.Escribir(), ErrorFormatoPDB) << caso.Nombre;
    }
}

// One table of decoded bytes: each byte splits into its flags and its category, and joins back
// from them, except the bits a deleted or busy record cannot keep. Flags that never come from a
// byte join as a file can store them. Every byte a file can store comes back whole.
TEST(clsArchivoPDB, ElByteDeAtributosSeSeparaYSeUne) {
    struct Caso {
        int Byte, Atributos, Categoria, Unido;
    };
    const Caso casos[] = {
        {0x00, 0x00, 0, 0x00},  {0x05, 0x00, 5, 0x05}, {0x4F, 0x40, 15, 0x4F},
        {0x18, 0x10, 8, 0x18},  {0x80, 0x80, 0, 0x80}, {0x88, 0x88, 0, 0x88},
        {0x8F, 0x88, 0, 0x88},  {0x28, 0x28, 0, 0x28}, {0x23, 0x20, 0, 0x20},
        {0xD3, 0xD0, 0, 0xD0},  {0xF8, 0xF8, 0, 0xF8}, {0x7A, 0x78, 0, 0x78},
        {0x5A, 0x50, 10, 0x5A},
    };
    for (const Caso& caso : casos) {
        qint32 atributos = -1;
        qint32 categoria = -1;
        clsArchivoPDB::SepararAtributos(static_cast<quint8>(caso.Byte), atributos, categoria);
        EXPECT_EQ(atributos, caso.Atributos) << std::hex << caso.Byte;
        EXPECT_EQ(categoria, caso.Categoria) << std::hex << caso.Byte;
        EXPECT_EQ(clsArchivoPDB::UnirAtributos(atributos, categoria), caso.Unido)
            << std::hex << caso.Byte;
    }
    // Archive without delete or busy is dropped; the category keeps its low nibble.
    EXPECT_EQ(clsArchivoPDB::UnirAtributos(0x08, 3), 0x03);
    EXPECT_EQ(clsArchivoPDB::UnirAtributos(0x40, 17), 0x41);
    for (int byte = 0; byte < 256; ++byte) {
        if ((byte & 0xA0) && (byte & 0x07)) continue; // not kept, as the table shows
        qint32 atributos = 0;
        qint32 categoria = 0;
        clsArchivoPDB::SepararAtributos(static_cast<quint8>(byte), atributos, categoria);
        EXPECT_EQ(clsArchivoPDB::UnirAtributos(atributos, categoria), byte) << byte;
    }
}

// What just fits is a valid file: as many records as the 16-bit count holds, and a last record
// that is empty and so starts exactly at the end of the file.
TEST(clsArchivoPDB, LoQueJustoCabeEsUnArchivoValido) {
    const struct {
        const char* Caso;
        qint32 Registros;
    } casos[] = {{"65535 records", 65535}, {"an empty last record", 1}};
    for (const auto& caso : casos) {
        clsArchivoPDB archivo = BaseDeRegistros();
        archivo.Registros.resize(caso.Registros);
        for (qint32 i = 0; i < caso.Registros; ++i)
            archivo.Registros[i] = {0, quint32(i + 1), i == 0 ? QByteArray("x") : QByteArray()};
        archivo.Registros.append({0, 0x100000, QByteArray()});
        if (caso.Registros == 65535) archivo.Registros.removeFirst();
        const QByteArray bytes = archivo.Escribir();
        const DisposicionPDB disposicion = clsArchivoPDB::Analizar(bytes);
        ASSERT_EQ(disposicion.Registros.size(), archivo.Registros.size()) << caso.Caso;
        EXPECT_EQ(disposicion.Registros.last().Datos.Desde, quint32(bytes.size())) << caso.Caso;
        EXPECT_EQ(clsArchivoPDB::Leer(bytes).Escribir(), bytes) << caso.Caso;
    }
}

TEST(clsArchivoPDB, UnArchivoMalFormadoSeRechazaConSuMotivo) {
    const QByteArray valido = BaseDeRegistros().Escribir();
    const quint32 appInfo = 78 + 3 * 8 + 2;
    struct Caso {
        const char* Nombre;
        std::function<QByteArray()> Bytes;
        const char* Motivo;
    };
    // The valid file with one 16- or 32-bit field at xEn replaced.
    const auto con16 = [&](int xEn, quint16 xValor) {
        return [=] {
            QByteArray b = valido;
            PonerU16(b, xEn, xValor);
            return b;
        };
    };
    const auto con32 = [&](int xEn, quint32 xValor) {
        return [=] {
            QByteArray b = valido;
            PonerU32(b, xEn, xValor);
            return b;
        };
    };
    QByteArray sinTerminador = valido;
    sinTerminador.replace(0, 32, QByteArray(32, 'n'));
    const quint32 tamano = valido.size();
    const std::vector<Caso> casos = {
        {"empty file", [] { return QByteArray(); }, "shorter than the 78-byte header"},
        {"truncated header", [&] { return valido.left(77); }, "shorter than the 78-byte header"},
        {"name without terminator", [&] { return sinTerminador; }, "not zero-terminated"},
        {"entry list past the end", con16(76, 5000), "past the end of the file"},
        {"entry list cut short", [&] { return valido.left(78 + 8 + 3); }, "past the end"},
        {"record past the end", con32(DesdeRegistro(2), tamano + 1), "record 2 starts at offset"},
        {"records out of order", con32(DesdeRegistro(1), appInfo + 278), "before record 0"},
        {"record inside the entry list", con32(DesdeRegistro(0), 80),
         "inside the header or the entry list"},
        {"AppInfo inside the header", con32(52, 40), "the AppInfo block starts at offset 40"},
        {"AppInfo past the end", con32(52, 0x7FFFFFFF), "past the end of the file"},
        {"SortInfo before AppInfo", con32(56, appInfo - 1), "before the AppInfo block"},
        {"AppInfo after the first record", con32(52, appInfo + 281), "before the AppInfo block"},
        {"SortInfo after the records", con32(56, tamano - 1), "before the SortInfo block"},
    };
    for (const Caso& caso : casos) {
        std::string motivo = "accepted";
        try {
            clsArchivoPDB::Leer(caso.Bytes());
        } catch (const ErrorFormatoPDB& error) {
            motivo = error.what();
        }
        EXPECT_NE(motivo.find(caso.Motivo), std::string::npos) << caso.Nombre << ": " << motivo;
    }
}

TEST(clsArchivoPDB, CadaPrefijoDeUnArchivoSeRechazaOSeLeeDentroDeSusLimites) {
    for (const QByteArray& valido : {BaseDeRegistros().Escribir(), BaseDeRecursos().Escribir()}) {
        for (qsizetype largo = 0; largo < valido.size(); ++largo) {
            const QByteArray prefijo = valido.left(largo);
            try {
                ComprobarDentro(clsArchivoPDB::Analizar(prefijo), largo);
            } catch (const ErrorFormatoPDB&) {
                EXPECT_LT(largo, valido.size());
            }
        }
    }
}

TEST(clsArchivoPDB, AnalizarUnPrefijoCompruebaContraElTamanoDelArchivo) {
    const QByteArray valido = BaseDeRegistros().Escribir();
    const qint64 indice = clsArchivoPDB::TamanoIndice(valido.left(78));
    EXPECT_EQ(indice, 78 + 3 * 8);
    const DisposicionPDB disposicion = clsArchivoPDB::Analizar(valido.left(indice), valido.size());
    EXPECT_EQ(disposicion.Registros[2].Datos.Largo, 300u);
    EXPECT_THROW(clsArchivoPDB::Analizar(valido.left(indice), indice), ErrorFormatoPDB);
    EXPECT_THROW(clsArchivoPDB::TamanoIndice(valido.left(50)), ErrorFormatoPDB);
}

TEST(clsArchivoPDB, LosArchivosDeUnHandheldRealVuelvenByteAByte) {
    const QDir carpeta(QStringLiteral(PANDREL_FIXTURES));
    if (!carpeta.exists()) GTEST_SKIP() << "no device files";
    const QStringList archivos = carpeta.entryList({"*.pdb", "*.prc"}, QDir::Files);
    ASSERT_FALSE(archivos.isEmpty());
    for (const QString& nombre : archivos) {
        const QByteArray bytes = modPrueba::Leer(carpeta.filePath(nombre));
        ASSERT_FALSE(bytes.isEmpty()) << nombre.toStdString();
        EXPECT_EQ(clsArchivoPDB::Leer(bytes).Escribir(), bytes) << nombre.toStdString();
    }
}
