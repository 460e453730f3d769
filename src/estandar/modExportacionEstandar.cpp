#include "estandar/modExportacionEstandar.h"

#include "common/ErrorVB.h"
#include "common/clsEscrituraSegura.h"
#include "data/formato/modBasesEstandar.h"
#include "data/modDestino.h"
#include "estandar/clsEscritorCSV.h"
#include "estandar/clsEscritorICalendar.h"
#include "estandar/clsEscritorVCard.h"

#include <QDir>
#include <QFileInfo>

namespace modExportacionEstandar {

namespace {

const QString kOperacion = QStringLiteral("Export");

// Each kind as a person knows it, its usual database, the extensions it exports to and what its
// records are called.
struct DatosClase {
    ClaseEstandar Clase;
    quint32 Creador;
    const char* Nombre;
    const char* Base;
    const char* Extensiones;
    const char* Registros;
    const char* Archivo; // in a whole handheld's export
};

const DatosClase kClases[] = {
    {ClaseEstandar::Direcciones, modBasesEstandar::CreadorDirecciones, "Address Book", "AddressDB",
     ".vcf, .csv or .txt", "contacts", "contacts.vcf"},
    {ClaseEstandar::Agenda, modBasesEstandar::CreadorAgenda, "Date Book", "DatebookDB",
     ".ics, .csv or .txt", "appointments", "calendar.ics"},
    {ClaseEstandar::Tareas, modBasesEstandar::CreadorTareas, "To Do List", "ToDoDB",
     ".ics, .csv or .txt", "to-dos", "todos.ics"},
    {ClaseEstandar::Memos, modBasesEstandar::CreadorMemos, "Memo Pad", "MemoDB", ".csv or .txt",
     "memos", "memos.csv"},
};

const DatosClase* DatosDe(ClaseEstandar xClase) {
    for (const DatosClase& datos : kClases)
        if (datos.Clase == xClase) return &datos;
    return nullptr;
}

// A UID that stays the same from one export of the database to the next.
QString PrefijoUID(clsEstandarPDB& xBase) {
    return QStringLiteral("%1-%2-").arg(
        xBase.Creador(), xBase.Creacion().toString(QStringLiteral("yyyyMMddHHmmss")));
}

void Guardar(const QString& xArchivo, QByteArrayView xBytes) {
    const QString destino = QFileInfo(xArchivo).absoluteFilePath();
    modDestino::Comprobar(destino, kOperacion);
    const auto falla = [&destino](const QString& xCausa) {
        return ErrorVB(75, kOperacion,
                       QStringLiteral("The file %1 cannot be written (%2).").arg(destino, xCausa));
    };
    if (!QDir().mkpath(QFileInfo(destino).absolutePath()))
        throw falla(QStringLiteral("its folder cannot be created"));
    clsEscrituraSegura archivo(destino);
    if (!archivo.Abrir() || !archivo.Escribir(xBytes) || !archivo.Terminar())
        throw falla(archivo.Error());
}

// Writes the records the handheld has not deleted into xArchivo; returns how many.
qint32 Escribir(clsEstandarPDB& xBase, Formato xFormato, const QDateTime& xAhora,
                const QString& xArchivo) {
    const clsDecodificadorEstandar& decodificador = *xBase.Decodificador();
    qint32 cantidad = 0;
    const auto vigentes = [&](const std::function<void(const RegistroPalm&)>& xEscribir) {
        xBase.Recorrer([&](const RegistroPalm& xRegistro) {
            if (clsDecodificadorEstandar::Borrado(xRegistro)) return;
            xEscribir(xRegistro);
            ++cantidad;
        });
    };
    if (xFormato == Formato::CSV) {
        clsEscritorCSV csv(decodificador);
        vigentes([&](const RegistroPalm& xRegistro) { csv.Agregar(xRegistro); });
        Guardar(xArchivo, csv.Texto());
        return cantidad;
    }
    if (xFormato == Formato::VCard) {
        clsEscritorVCard vcard(static_cast<const clsDecodificadorDirecciones&>(decodificador),
                               PrefijoUID(xBase), 2 * xBase.Tamano());
        vigentes([&](const RegistroPalm& xRegistro) { vcard.Agregar(xRegistro); });
        Guardar(xArchivo, vcard.Texto());
        return cantidad;
    }
    // A calendar takes about five times its database's bytes, cards about twice.
    clsEscritorICalendar calendario(PrefijoUID(xBase), xAhora, 5 * xBase.Tamano());
    if (decodificador.Clase() == ClaseEstandar::Agenda) {
        const auto& agenda = static_cast<const clsDecodificadorAgenda&>(decodificador);
        vigentes([&](const RegistroPalm& xRegistro) { calendario.AgregarCita(agenda, xRegistro); });
    } else {
        const auto& tareas = static_cast<const clsDecodificadorTareas&>(decodificador);
        vigentes(
            [&](const RegistroPalm& xRegistro) { calendario.AgregarTarea(tareas, xRegistro); });
    }
    Guardar(xArchivo, calendario.Terminar());
    return cantidad;
}

// The database of that kind on the handheld: its usual one, else the first of its creator.
QString BaseDeClase(const std::shared_ptr<clsFuentePalm>& xFuente, const DatosClase& xDatos) {
    const QString usual = QLatin1String(xDatos.Base);
    if (clsEstandarPDB::ClaseDeBase(*xFuente, usual) == xDatos.Clase) return usual;
    const auto gestor = xFuente->CrearGestor();
    const QString creador = xFuente->CodigoATexto(static_cast<qint32>(xDatos.Creador), -1);
    const QString tipo =
        xFuente->CodigoATexto(static_cast<qint32>(modBasesEstandar::TipoDatos), -1);
    const auto info = gestor->EnumerarBases(creador, tipo, true);
    return info ? info->Nombre() : QString();
}

} // namespace

Formato FormatoDeArchivo(const QString& xArchivo) {
    const QString extension = QFileInfo(xArchivo).suffix().toLower();
    if (extension == QLatin1String("vcf")) return Formato::VCard;
    if (extension == QLatin1String("ics")) return Formato::ICalendar;
    if (extension == QLatin1String("csv")) return Formato::CSV;
    return Formato::Ninguno;
}

bool Admite(Formato xFormato, ClaseEstandar xClase) {
    switch (xFormato) {
    case Formato::VCard:
        return xClase == ClaseEstandar::Direcciones;
    case Formato::ICalendar:
        return xClase == ClaseEstandar::Agenda || xClase == ClaseEstandar::Tareas;
    case Formato::CSV:
        return xClase != ClaseEstandar::Ninguna;
    case Formato::Ninguno:
        break;
    }
    return false;
}

qint32 Exportar(clsEstandarPDB& xBase, const QString& xArchivo, Formato xFormato,
                const QDateTime& xAhora) {
    const clsDecodificadorEstandar* decodificador = xBase.Decodificador();
    const DatosClase* datos = decodificador ? DatosDe(decodificador->Clase()) : nullptr;
    if (!datos)
        throw ErrorVB(ErroresEstandar::FormatoNoAdmitido, kOperacion,
                      QStringLiteral("\"%1\" is no database of a built-in application; .vcf, "
                                     ".ics and .csv files are made from those.")
                          .arg(xBase.NombreBase()));
    if (!Admite(xFormato, datos->Clase))
        throw ErrorVB(ErroresEstandar::FormatoNoAdmitido, kOperacion,
                      QStringLiteral("\"%1\" is a %2 database: it exports to %3 files, not to %4.")
                          .arg(xBase.NombreBase(), QLatin1String(datos->Nombre),
                               QLatin1String(datos->Extensiones), QFileInfo(xArchivo).fileName()));
    return Escribir(xBase, xFormato, xAhora, xArchivo);
}

QStringList ArchivosHandheld() {
    QStringList archivos;
    for (const DatosClase& datos : kClases)
        archivos << QLatin1String(datos.Archivo);
    return archivos;
}

QStringList ExportarHandheld(const std::shared_ptr<clsFuentePalm>& xFuente, const QString& xCarpeta,
                             const QDateTime& xAhora) {
    QStringList resumen;
    for (const DatosClase& datos : kClases) {
        const QString archivo = QLatin1String(datos.Archivo);
        const QString nombre = BaseDeClase(xFuente, datos);
        if (nombre.isEmpty()) {
            resumen << QStringLiteral("%1: not written, the handheld has no %2 database.")
                           .arg(archivo, QLatin1String(datos.Nombre));
            continue;
        }
        clsEstandarPDB base(xFuente);
        base.OpenFile(nombre);
        const qint32 cantidad =
            Exportar(base, QDir(xCarpeta).filePath(archivo), FormatoDeArchivo(archivo), xAhora);
        resumen << QStringLiteral("%1: %2 %3 from %4.")
                       .arg(archivo)
                       .arg(cantidad)
                       .arg(QLatin1String(datos.Registros), nombre);
    }
    return resumen;
}

} // namespace modExportacionEstandar
