#include "data/clsArchivoPDB.h"

#include "data/clsLectorBytes.h"

#include <QtEndian>

#include <limits>

namespace {

constexpr qsizetype TamanoCampoNombre = 32;
constexpr qsizetype TamanoRelleno = 2; // between the entry list and the first block
constexpr quint32 MaximoID = 0xFFFFFF;
constexpr qint32 MaximoEntradas = 0xFFFF;

constexpr qint32 AtributoBorrado = 0x80;
constexpr qint32 AtributoOcupado = 0x20;
constexpr qint32 AtributoArchivado = 0x08;
constexpr qint32 BanderasAltas = 0xF0;
constexpr qint32 MascaraCategoria = 0x0F;

[[noreturn]] void Rechazar(const QString& xMotivo) {
    throw ErrorFormatoPDB(xMotivo.toStdString());
}

void Exigir(bool xLeido, const char* xQue) {
    if (!xLeido) Rechazar(QStringLiteral("the file ends inside %1").arg(QLatin1String(xQue)));
}

void AgregarU8(QByteArray& xSalida, quint8 xValor) {
    xSalida.append(static_cast<char>(xValor));
}

void AgregarU16(QByteArray& xSalida, quint16 xValor) {
    const quint16 big = qToBigEndian(xValor);
    xSalida.append(reinterpret_cast<const char*>(&big), sizeof big);
}

void AgregarU24(QByteArray& xSalida, quint32 xValor) {
    AgregarU8(xSalida, static_cast<quint8>(xValor >> 16));
    AgregarU16(xSalida, static_cast<quint16>(xValor));
}

void AgregarU32(QByteArray& xSalida, quint32 xValor) {
    const quint32 big = qToBigEndian(xValor);
    xSalida.append(reinterpret_cast<const char*>(&big), sizeof big);
}

// One block start in file order, with its name for the error texts.
struct Inicio {
    QString Nombre;
    quint32 Desde = 0;
};

// Checks that every block starts after the entry list, inside the file and not before the block
// that precedes it, then gives each block its length: up to the next start, the last to the end.
QVector<TramoPDB> Tramos(const QVector<Inicio>& xInicios, qint64 xFinIndice, qint64 xTamano) {
    QVector<TramoPDB> tramos;
    tramos.reserve(xInicios.size());
    const Inicio* anterior = nullptr;
    for (const Inicio& inicio : xInicios) {
        if (inicio.Desde < xFinIndice)
            Rechazar(QStringLiteral("%1 starts at offset %2, inside the header or the entry list "
                                    "(which end at %3)")
                         .arg(inicio.Nombre)
                         .arg(inicio.Desde)
                         .arg(xFinIndice));
        if (inicio.Desde > xTamano)
            Rechazar(QStringLiteral("%1 starts at offset %2, past the end of the file (%3 bytes)")
                         .arg(inicio.Nombre)
                         .arg(inicio.Desde)
                         .arg(xTamano));
        if (anterior && inicio.Desde < anterior->Desde)
            Rechazar(QStringLiteral("%1 starts at offset %2, before %3 at offset %4")
                         .arg(inicio.Nombre)
                         .arg(inicio.Desde)
                         .arg(anterior->Nombre)
                         .arg(anterior->Desde));
        if (!tramos.isEmpty()) tramos.last().Largo = inicio.Desde - tramos.last().Desde;
        tramos.append({inicio.Desde, 0});
        anterior = &inicio;
    }
    if (!tramos.isEmpty())
        tramos.last().Largo = static_cast<quint32>(xTamano - tramos.last().Desde);
    return tramos;
}

void LeerCabecera(clsLectorBytes& xLector, CabeceraPDB& xCabecera, quint32& xAppInfo,
                  quint32& xSortInfo, quint16& xEntradas) {
    QByteArrayView campoNombre;
    Exigir(xLector.LeerBytes(TamanoCampoNombre, campoNombre), "the header");
    const qsizetype fin = campoNombre.indexOf('\0');
    if (fin < 0) Rechazar(QStringLiteral("the database name is not zero-terminated"));
    xCabecera.Nombre = campoNombre.first(fin).toByteArray();
    xCabecera.RellenoNombre = campoNombre.sliced(fin + 1).toByteArray();
    quint32 siguienteLista = 0;
    Exigir(xLector.LeerU16(xCabecera.Atributos) && xLector.LeerU16(xCabecera.Version) &&
               xLector.LeerU32(xCabecera.FechaCreacion) &&
               xLector.LeerU32(xCabecera.FechaModificacion) &&
               xLector.LeerU32(xCabecera.FechaBackup) &&
               xLector.LeerU32(xCabecera.NumeroModificacion) && xLector.LeerU32(xAppInfo) &&
               xLector.LeerU32(xSortInfo) && xLector.LeerU32(xCabecera.Tipo) &&
               xLector.LeerU32(xCabecera.Creador) && xLector.LeerU32(xCabecera.SemillaID) &&
               xLector.LeerU32(siguienteLista) && xLector.LeerU16(xEntradas),
           "the header");
}

void RechazarCorto(qint64 xTamano) {
    Rechazar(QStringLiteral("the file is %1 bytes long, shorter than the %2-byte header")
                 .arg(xTamano)
                 .arg(clsArchivoPDB::TamanoCabecera));
}

} // namespace

qint64 clsArchivoPDB::TamanoIndice(QByteArrayView xCabecera) {
    if (xCabecera.size() < TamanoCabecera) RechazarCorto(xCabecera.size());
    clsLectorBytes lector(xCabecera);
    quint16 atributos = 0;
    quint16 entradas = 0;
    Exigir(lector.IrA(32) && lector.LeerU16(atributos) && lector.IrA(76) &&
               lector.LeerU16(entradas),
           "the header");
    const qint64 ancho =
        (atributos & AtributoRecursos) ? TamanoEntradaRecurso : TamanoEntradaRegistro;
    return TamanoCabecera + entradas * ancho;
}

DisposicionPDB clsArchivoPDB::Analizar(QByteArrayView xBytes, qint64 xTamanoArchivo) {
    if (xTamanoArchivo < TamanoCabecera || xBytes.size() < TamanoCabecera)
        RechazarCorto(qMin<qint64>(xTamanoArchivo, xBytes.size()));
    DisposicionPDB disposicion;
    clsLectorBytes lector(xBytes);
    quint32 appInfo = 0;
    quint32 sortInfo = 0;
    quint16 entradas = 0;
    LeerCabecera(lector, disposicion, appInfo, sortInfo, entradas);

    const qint64 finIndice = TamanoIndice(xBytes);
    if (finIndice > xTamanoArchivo)
        Rechazar(QStringLiteral("the entry list of %1 entries ends at offset %2, past the end of "
                                "the file (%3 bytes)")
                     .arg(entradas)
                     .arg(finIndice)
                     .arg(xTamanoArchivo));
    if (finIndice > xBytes.size())
        Rechazar(QStringLiteral("only %1 bytes of the entry list were read").arg(xBytes.size()));

    QVector<Inicio> inicios;
    inicios.reserve(entradas + 2);
    if (appInfo != 0) inicios.append({QStringLiteral("the AppInfo block"), appInfo});
    if (sortInfo != 0) inicios.append({QStringLiteral("the SortInfo block"), sortInfo});
    const qsizetype primeraEntrada = inicios.size();

    if (disposicion.EsRecursos()) {
        disposicion.Recursos.resize(entradas);
        for (IndiceRecursoPDB& recurso : disposicion.Recursos) {
            quint32 desde = 0;
            Exigir(lector.LeerU32(recurso.Tipo) && lector.LeerU16(recurso.ID) &&
                       lector.LeerU32(desde),
                   "the entry list");
            recurso.Datos.Desde = desde;
        }
    } else {
        disposicion.Registros.resize(entradas);
        for (IndiceRegistroPDB& registro : disposicion.Registros) {
            Exigir(lector.LeerU32(registro.Datos.Desde) && lector.LeerU8(registro.Atributos) &&
                       lector.LeerU24(registro.ID),
                   "the entry list");
        }
    }
    const QString clase =
        disposicion.EsRecursos() ? QStringLiteral("resource %1") : QStringLiteral("record %1");
    for (qint32 i = 0; i < entradas; ++i) {
        const quint32 desde = disposicion.EsRecursos() ? disposicion.Recursos[i].Datos.Desde
                                                       : disposicion.Registros[i].Datos.Desde;
        inicios.append({clase.arg(i), desde});
    }

    const QVector<TramoPDB> tramos = Tramos(inicios, finIndice, xTamanoArchivo);
    qsizetype k = 0;
    if (appInfo != 0) disposicion.AppInfo = tramos[k++];
    if (sortInfo != 0) disposicion.SortInfo = tramos[k++];
    for (qint32 i = 0; i < entradas; ++i) {
        if (disposicion.EsRecursos())
            disposicion.Recursos[i].Datos = tramos[primeraEntrada + i];
        else
            disposicion.Registros[i].Datos = tramos[primeraEntrada + i];
    }
    return disposicion;
}

clsArchivoPDB clsArchivoPDB::Leer(const QByteArray& xBytes) {
    const DisposicionPDB disposicion = Analizar(xBytes);
    const auto copia = [&xBytes](const TramoPDB& xTramo) {
        return xBytes.mid(xTramo.Desde, xTramo.Largo);
    };
    clsArchivoPDB archivo;
    static_cast<CabeceraPDB&>(archivo) = disposicion;
    archivo.AppInfo = copia(disposicion.AppInfo);
    archivo.SortInfo = copia(disposicion.SortInfo);
    archivo.Registros.reserve(disposicion.Registros.size());
    for (const IndiceRegistroPDB& registro : disposicion.Registros)
        archivo.Registros.append({registro.Atributos, registro.ID, copia(registro.Datos)});
    archivo.Recursos.reserve(disposicion.Recursos.size());
    for (const IndiceRecursoPDB& recurso : disposicion.Recursos)
        archivo.Recursos.append({recurso.Tipo, recurso.ID, copia(recurso.Datos)});
    return archivo;
}

QByteArray clsArchivoPDB::Escribir() const {
    QVector<PiezaRegistroPDB> registros;
    registros.reserve(Registros.size());
    for (const EntradaRegistroPDB& registro : Registros)
        registros.append({registro.Atributos, registro.ID, registro.Datos});
    QVector<PiezaRecursoPDB> recursos;
    recursos.reserve(Recursos.size());
    for (const EntradaRecursoPRC& recurso : Recursos)
        recursos.append({recurso.Tipo, recurso.ID, recurso.Datos});
    return Componer(*this, AppInfo, SortInfo, registros, recursos);
}

QByteArray clsArchivoPDB::Componer(const CabeceraPDB& xCabecera, QByteArrayView xAppInfo,
                                   QByteArrayView xSortInfo,
                                   const QVector<PiezaRegistroPDB>& xRegistros,
                                   const QVector<PiezaRecursoPDB>& xRecursos) {
    if (xCabecera.Nombre.size() >= TamanoCampoNombre)
        Rechazar(QStringLiteral("the database name is %1 bytes long; at most %2 fit")
                     .arg(xCabecera.Nombre.size())
                     .arg(TamanoCampoNombre - 1));
    if (xCabecera.Nombre.contains('\0'))
        Rechazar(QStringLiteral("the database name holds a zero byte"));
    if (xCabecera.EsRecursos() ? !xRegistros.isEmpty() : !xRecursos.isEmpty())
        Rechazar(xCabecera.EsRecursos()
                     ? QStringLiteral("a resource database cannot hold records")
                     : QStringLiteral("a record database cannot hold resources"));
    const qint64 entradas = xCabecera.EsRecursos() ? xRecursos.size() : xRegistros.size();
    if (entradas > MaximoEntradas)
        Rechazar(QStringLiteral("%1 entries do not fit in a database (at most %2)")
                     .arg(entradas)
                     .arg(MaximoEntradas));
    for (const PiezaRegistroPDB& registro : xRegistros)
        if (registro.ID > MaximoID)
            Rechazar(QStringLiteral("the unique ID %1 does not fit in 24 bits").arg(registro.ID));

    const qint64 ancho = xCabecera.EsRecursos() ? TamanoEntradaRecurso : TamanoEntradaRegistro;
    qint64 posicion = TamanoCabecera + entradas * ancho + TamanoRelleno;
    const quint32 desdeAppInfo = xAppInfo.isEmpty() ? 0 : static_cast<quint32>(posicion);
    posicion += xAppInfo.size();
    const quint32 desdeSortInfo = xSortInfo.isEmpty() ? 0 : static_cast<quint32>(posicion);
    posicion += xSortInfo.size();
    const qint64 inicioDatos = posicion;
    for (const PiezaRegistroPDB& registro : xRegistros)
        posicion += registro.Datos.size();
    for (const PiezaRecursoPDB& recurso : xRecursos)
        posicion += recurso.Datos.size();
    if (posicion > std::numeric_limits<quint32>::max())
        Rechazar(QStringLiteral("the database would be %1 bytes long; offsets reach 4 GB only")
                     .arg(posicion));

    QByteArray salida;
    salida.reserve(posicion);
    salida.append(xCabecera.Nombre);
    salida.append('\0');
    if (xCabecera.Nombre.size() + 1 + xCabecera.RellenoNombre.size() == TamanoCampoNombre)
        salida.append(xCabecera.RellenoNombre);
    else
        salida.append(TamanoCampoNombre - 1 - xCabecera.Nombre.size(), '\0');
    AgregarU16(salida, xCabecera.Atributos);
    AgregarU16(salida, xCabecera.Version);
    AgregarU32(salida, xCabecera.FechaCreacion);
    AgregarU32(salida, xCabecera.FechaModificacion);
    AgregarU32(salida, xCabecera.FechaBackup);
    AgregarU32(salida, xCabecera.NumeroModificacion);
    AgregarU32(salida, desdeAppInfo);
    AgregarU32(salida, desdeSortInfo);
    AgregarU32(salida, xCabecera.Tipo);
    AgregarU32(salida, xCabecera.Creador);
    AgregarU32(salida, xCabecera.SemillaID);
    AgregarU32(salida, 0); // next record list: the whole list is always in this header
    AgregarU16(salida, static_cast<quint16>(entradas));

    quint32 desde = static_cast<quint32>(inicioDatos);
    for (const PiezaRegistroPDB& registro : xRegistros) {
        AgregarU32(salida, desde);
        AgregarU8(salida, registro.Atributos);
        AgregarU24(salida, registro.ID);
        desde += static_cast<quint32>(registro.Datos.size());
    }
    for (const PiezaRecursoPDB& recurso : xRecursos) {
        AgregarU32(salida, recurso.Tipo);
        AgregarU16(salida, recurso.ID);
        AgregarU32(salida, desde);
        desde += static_cast<quint32>(recurso.Datos.size());
    }
    salida.append(TamanoRelleno, '\0');
    salida.append(xAppInfo);
    salida.append(xSortInfo);
    for (const PiezaRegistroPDB& registro : xRegistros)
        salida.append(registro.Datos);
    for (const PiezaRecursoPDB& recurso : xRecursos)
        salida.append(recurso.Datos);
    return salida;
}

void clsArchivoPDB::SepararAtributos(quint8 xByte, qint32& xAtributos, qint32& xCategoria) {
    xAtributos = xByte & BanderasAltas;
    if (xByte & (AtributoBorrado | AtributoOcupado)) {
        xAtributos |= xByte & AtributoArchivado;
        xCategoria = 0;
    } else {
        xCategoria = xByte & MascaraCategoria;
    }
}

quint8 clsArchivoPDB::UnirAtributos(qint32 xAtributos, qint32 xCategoria) {
    quint8 byte = static_cast<quint8>(xAtributos & BanderasAltas);
    if (xAtributos & (AtributoBorrado | AtributoOcupado))
        byte |= static_cast<quint8>(xAtributos & AtributoArchivado);
    else
        byte |= static_cast<quint8>(xCategoria & MascaraCategoria);
    return byte;
}
