// pandrel-fuzz: feeds arbitrary bytes to the database layer as a database file. The first byte
// chooses what a write does; the rest is the file. Each input goes through
//   - the file reader: the layout check, the full read and, for a valid file, a write and a
//     second read that must give back the same database;
//   - the catalogue of a folder that holds only that file, as a .pdb and as a .prc;
//   - the record codec: header, schema, categories and every record as text, tab and comma;
//   - the decoders of the built-in applications' databases over every record, whatever the
//     file's creator (in windows-1252 or, by the first byte, Shift_JIS), and the vCard,
//     iCalendar and CSV writers over what decodes; a database of one of those applications is
//     also read whole through its database object;
//   - one write through the database object (update, add, attributes, delete), after which the
//     file must still be a valid database whose other records did not move a byte, or, when the
//     write failed, the very file that was there before.
// Any error other than the layer's own numbered ones, any crash or sanitizer report, and any
// broken promise above is a finding (a broken promise aborts).

#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "data/MensajesError.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/clsPalmPDB.h"
#include "data/formato/clsArchivoPDB.h"
#include "data/modHandheld.h"
#include "estandar/clsEscritorCSV.h"
#include "estandar/clsEscritorICalendar.h"
#include "estandar/clsEscritorVCard.h"
#include "estandar/clsEstandarPDB.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

void Exigir(bool xCondicion, const char* xPromesa) {
    if (xCondicion) return;
    std::fprintf(stderr, "broken promise: %s\n", xPromesa);
    std::abort();
}

bool MismoContenido(const clsArchivoPDB& x, const clsArchivoPDB& y) {
    if (static_cast<const CabeceraPDB&>(x) != y || x.AppInfo != y.AppInfo ||
        x.SortInfo != y.SortInfo || x.Registros.size() != y.Registros.size() ||
        x.Recursos.size() != y.Recursos.size())
        return false;
    for (qsizetype i = 0; i < x.Registros.size(); ++i) {
        const EntradaRegistroPDB& a = x.Registros[i];
        const EntradaRegistroPDB& b = y.Registros[i];
        if (a.Atributos != b.Atributos || a.ID != b.ID || a.Datos != b.Datos) return false;
    }
    for (qsizetype i = 0; i < x.Recursos.size(); ++i) {
        const EntradaRecursoPRC& a = x.Recursos[i];
        const EntradaRecursoPRC& b = y.Recursos[i];
        if (a.Tipo != b.Tipo || a.ID != b.ID || a.Datos != b.Datos) return false;
    }
    return true;
}

// The file reader and writer on the bytes alone. Returns the database when the bytes are one.
std::unique_ptr<clsArchivoPDB> LeerArchivo(const QByteArray& xBytes) {
    bool valida = true;
    try {
        clsArchivoPDB::Analizar(xBytes);
    } catch (const ErrorFormatoPDB&) {
        valida = false;
    }
    std::unique_ptr<clsArchivoPDB> archivo;
    try {
        archivo = std::make_unique<clsArchivoPDB>(clsArchivoPDB::Leer(xBytes));
    } catch (const ErrorFormatoPDB&) {
        Exigir(!valida, "the full read refuses a file the layout check accepts");
        return nullptr;
    }
    Exigir(valida, "the full read accepts a file the layout check refuses");
    // From its first bytes alone the catalogue judges a file as the full read does.
    try {
        const qint64 indice = clsArchivoPDB::TamanoIndice(xBytes);
        clsArchivoPDB::Analizar(QByteArrayView(xBytes).first(indice), xBytes.size(), true);
    } catch (const ErrorFormatoPDB&) {
        Exigir(false, "the check from the first bytes refuses a valid file");
    }
    QByteArray escrito;
    try {
        escrito = archivo->Escribir();
    } catch (const ErrorFormatoPDB&) {
        return archivo; // a content no file can hold is refused, not written
    }
    Exigir(MismoContenido(clsArchivoPDB::Leer(escrito), *archivo),
           "a written file reads back as another database");
    return archivo;
}

// Everything the explorer shows of the open database.
void LeerTodo(clsPDBInterface& xBase) {
    xBase.DBType();
    xBase.DBVersion();
    xBase.CreationDate();
    xBase.ModificationDate();
    xBase.BackupDate();
    xBase.DBSize();
    xBase.NumRecords();
    const qint32 categorias = xBase.CategoriesCount();
    for (qint32 i = 0; i < categorias; ++i)
        xBase.CategoryName(i);
    if (!xBase.IsDataBase() || !xBase.IsAppForgeDB()) return;
    xBase.FieldsTitles(QStringLiteral(", "));
    const qint16 campos = xBase.NumFields();
    for (qint32 i = 0; i < campos && i < 64; ++i) {
        xBase.FieldName(i);
        xBase.FieldType(i);
    }
    const qint32 registros = xBase.NumRecords();
    for (const QString& separador : {QStringLiteral("\t"), QStringLiteral(",")}) {
        bool alPrincipio = true;
        QString registro;
        qint32 leidos = 0;
        while (xBase.ReadRecord(alPrincipio, registro, separador) != -1)
            Exigir(++leidos <= registros, "the records read outnumber the database's records");
    }
}

QByteArray Contenido(const QString& xRuta) {
    QFile archivo(xRuta);
    if (!archivo.open(QIODevice::ReadOnly)) return QByteArray();
    return archivo.readAll();
}

// One write chosen by xModo on the first record (or an ID no record has), then the promises.
void Escribir(clsPalmPDB& xBase, const clsArchivoPDB& xAntes, const QString& xRuta, quint8 xModo) {
    const QByteArray bytesAntes = Contenido(xRuta);
    const qint32 id = xAntes.Registros.isEmpty() || (xModo & 0x80)
                          ? 0x123456
                          : static_cast<qint32>(xAntes.Registros.front().ID);
    static const char* const valores[] = {
        "42", "", "True", "01/02/2005 10:00:00", "  a longer text than most fields hold  ", "-1e3"};
    qsizetype esperados = xAntes.Registros.size();
    qint32 cambiado = id;
    try {
        switch (xModo & 3) {
        case 0:
            xBase.UpdateRecord(id, (xModo >> 2) & 7,
                               QString::fromLatin1(valores[(xModo >> 5) & 3]));
            break;
        case 1:
            cambiado = xBase.NewRecord();
            ++esperados;
            break;
        case 2:
            xBase.WriteRecordAttributes(id, xModo & 0xF8);
            break;
        default:
            if (xBase.DeleteRecord(id)) --esperados;
            break;
        }
    } catch (const ErrorVB&) {
        Exigir(Contenido(xRuta) == bytesAntes, "a write that failed changed the file");
        return;
    }
    const QByteArray bytesDespues = Contenido(xRuta);
    std::unique_ptr<clsArchivoPDB> despues;
    try {
        despues = std::make_unique<clsArchivoPDB>(clsArchivoPDB::Leer(bytesDespues));
    } catch (const ErrorFormatoPDB&) {
        Exigir(false, "a write left a file that is not a database");
    }
    Exigir(despues->Registros.size() == esperados, "a write changed the number of records");
    Exigir(despues->AppInfo == xAntes.AppInfo && despues->SortInfo == xAntes.SortInfo &&
               despues->Nombre == xAntes.Nombre && despues->Tipo == xAntes.Tipo &&
               despues->Creador == xAntes.Creador,
           "a write changed the database's blocks or identity");
    // Every other record keeps its place, ID, attributes and bytes; a new one has an ID of its
    // own.
    qsizetype tocado = -1;
    for (qsizetype i = 0; i < xAntes.Registros.size() && tocado < 0; ++i) {
        if (static_cast<qint32>(xAntes.Registros[i].ID) == cambiado) tocado = i;
    }
    Exigir((xModo & 3) != 1 || tocado < 0, "a new record got an ID already in use");
    qsizetype j = 0;
    for (qsizetype i = 0; i < xAntes.Registros.size(); ++i) {
        const EntradaRegistroPDB& registro = xAntes.Registros[i];
        if (i == tocado) {
            if ((xModo & 3) != 3 || esperados == xAntes.Registros.size()) ++j;
            continue;
        }
        Exigir(j < despues->Registros.size(), "a write lost a record");
        const EntradaRegistroPDB& ahora = despues->Registros[j++];
        Exigir(ahora.ID == registro.ID && ahora.Atributos == registro.Atributos &&
                   ahora.Datos == registro.Datos,
               "a write changed another record");
    }
}

// A decoder either decodes a record into one value per field or refuses it with its own error.
void Decodificar(const clsDecodificadorEstandar& xDecodificador, const RegistroPalm& xRegistro) {
    QVariantList valores;
    try {
        xDecodificador.Valores(xRegistro, valores);
        Exigir(valores.size() == xDecodificador.Campos().size(),
               "a record decoded to too few values");
        clsEscritorCSV(xDecodificador).Agregar(xRegistro);
        clsEscritorICalendar calendario(QStringLiteral("F-"), QDateTime());
        switch (xDecodificador.Clase()) {
        case ClaseEstandar::Direcciones:
            clsEscritorVCard(static_cast<const clsDecodificadorDirecciones&>(xDecodificador),
                             QStringLiteral("F-"))
                .Agregar(xRegistro);
            break;
        case ClaseEstandar::Agenda:
            calendario.AgregarCita(static_cast<const clsDecodificadorAgenda&>(xDecodificador),
                                   xRegistro);
            break;
        case ClaseEstandar::Tareas:
            calendario.AgregarTarea(static_cast<const clsDecodificadorTareas&>(xDecodificador),
                                    xRegistro);
            break;
        default:
            break;
        }
    } catch (const ErrorVB& error) {
        Exigir(error.Numero() == ErroresEstandar::RegistroDanado,
               "a decoder raised an error other than its own");
    }
}

void DecodificarEstandar(const clsArchivoPDB& xArchivo, quint8 xModo) {
    if (xArchivo.EsRecursos()) return;
    clsDecodificadorEstandar::Contexto contexto;
    contexto.Base = QStringLiteral("F");
    contexto.Tabla = &modFuncionesConversion::TablaCodigoPagina::Para(
        xModo & 0x40 ? QStringLiteral("windows-932") : QStringLiteral("windows-1252"));
    for (int k = 0; k < 16; ++k)
        contexto.Categorias << QStringLiteral("c%1").arg(k);
    for (ClaseEstandar clase : {ClaseEstandar::Memos, ClaseEstandar::Tareas,
                                ClaseEstandar::Direcciones, ClaseEstandar::Agenda}) {
        const auto decodificador =
            clsDecodificadorEstandar::Crear(clase, xArchivo.AppInfo, contexto);
        for (qsizetype i = 0; i < xArchivo.Registros.size(); ++i) {
            const EntradaRegistroPDB& entrada = xArchivo.Registros[i];
            RegistroPalm registro;
            registro.Indice = static_cast<qint32>(i);
            registro.ID = static_cast<qint32>(entrada.ID);
            registro.Bytes = entrada.Datos;
            clsArchivoPDB::SepararAtributos(entrada.Atributos, registro.Atributos,
                                            registro.Categoria);
            Decodificar(*decodificador, registro);
        }
    }
}

// A database of a built-in application is read whole through its own database object, whose
// records either read or are refused with the decoders' error.
void LeerEstandar(const std::shared_ptr<clsFuentePalm>& xFuente, const QString& xNombre) {
    if (clsEstandarPDB::ClaseDeBase(*xFuente, xNombre) == ClaseEstandar::Ninguna) return;
    clsEstandarPDB base(xFuente);
    try {
        if (!base.OpenFile(xNombre)) return;
    } catch (const ErrorVB&) {
        return;
    }
    try {
        LeerTodo(base);
    } catch (const ErrorVB& error) {
        Exigir(error.Numero() == ErroresEstandar::RegistroDanado,
               "a standard database raised an error other than the decoders'");
    }
}

// The folder's catalogue lists the file as one database, or leaves it out as the reader does;
// the database it lists is read whole and written once.
void Carpeta(const QByteArray& xArchivo, quint8 xModo, const clsArchivoPDB* xLeido) {
    static QTemporaryDir raiz(QDir::tempPath() + QStringLiteral("/pandrel-fuzz-XXXXXX"));
    const bool recursos = xLeido != nullptr && xLeido->EsRecursos();
    const QString ruta =
        raiz.path() + (recursos ? QStringLiteral("/F.prc") : QStringLiteral("/F.pdb"));
    QFile::remove(raiz.path() + (recursos ? QStringLiteral("/F.pdb") : QStringLiteral("/F.prc")));
    {
        QFile archivo(ruta);
        Exigir(archivo.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
                   archivo.write(xArchivo) == xArchivo.size(),
               "the fuzz folder cannot be written");
    }
    const auto fuente = std::make_shared<clsFuenteCarpeta>(raiz.path());
    modHandheld::EstablecerFuente(fuente);
    clsPalmPDB base(fuente);
    QString nombre;
    try {
        // The AppForge listing opens every database the folder lists.
        if (xLeido != nullptr) {
            base.RetrieveCreatorsID(0, QStringLiteral("\t"));
            base.CloseDatabase();
        }
        const QString bases = base.RetrieveDataBases(QString(), QStringLiteral("\t"));
        fuente->Avisos();
        if (bases.isEmpty()) return;
        nombre = bases.section(QLatin1Char('*'), 0, 0);
    } catch (const ErrorVB&) {
        return;
    }
    Exigir(xLeido != nullptr, "the catalogue lists a file the reader refuses");
    LeerEstandar(fuente, nombre);
    try {
        if (!base.OpenFile(nombre)) return;
        LeerTodo(base);
    } catch (const ErrorVB&) {
        return;
    }
    if (base.IsDataBase()) Escribir(base, *xLeido, ruta, xModo);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* xArgc, char*** xArgv) {
    static QCoreApplication aplicacion(*xArgc, *xArgv);
    CargarMensajes();
    clsConfiguracionRegional::EstablecerActual(QLocale(QStringLiteral("en_US")));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* xDatos, size_t xLargo) {
    if (xLargo < 1) return 0;
    const quint8 modo = xDatos[0];
    const QByteArray archivo(reinterpret_cast<const char*>(xDatos + 1),
                             static_cast<qsizetype>(xLargo - 1));
    const std::unique_ptr<clsArchivoPDB> leido = LeerArchivo(archivo);
    if (leido) DecodificarEstandar(*leido, modo);
    Carpeta(archivo, modo, leido.get());
    return 0;
}
