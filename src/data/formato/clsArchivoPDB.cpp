#include "data/formato/clsArchivoPDB.h"

#include "common/modMemoria.h"
#include "data/formato/clsLectorBytes.h"

#include <QtEndian>

#include <limits>

namespace {

constexpr qsizetype TamanoCampoNombre = 32;
constexpr qsizetype TamanoRelleno = 2; // between the entry list and the first block
constexpr quint32 MaximoID = 0xFFFFFF;
constexpr qint32 MaximoEntradas = 0xFFFF;

constexpr qint32 BanderasAltas = 0xF0;
constexpr qint32 MascaraCategoria = 0x0F;

[[noreturn]] void Rechazar(const QString& xMotivo) {
    throw ErrorFormatoPDB(xMotivo.toStdString());
}

void Exigir(bool xLeido, const char* xQue) {
    if (!xLeido) Rechazar(QStringLiteral("the file ends inside %1").arg(QLatin1String(xQue)));
}

void AgregarU16(QByteArray& xSalida, quint16 xValor) {
    const quint16 big = qToBigEndian(xValor);
    xSalida.append(reinterpret_cast<const char*>(&big), sizeof big);
}

void AgregarU32(QByteArray& xSalida, quint32 xValor) {
    const quint32 big = qToBigEndian(xValor);
    xSalida.append(reinterpret_cast<const char*>(&big), sizeof big);
}

// A record entry: data offset u32, attribute byte, 24-bit unique ID, appended at once.
void AgregarEntradaRegistro(QByteArray& xSalida, quint32 xDesde, quint8 xAtributos, quint32 xID) {
    const quint64 entrada =
        qToBigEndian((quint64(xDesde) << 32) | (quint64(xAtributos) << 24) | (xID & MaximoID));
    static_assert(sizeof entrada == clsArchivoPDB::TamanoEntradaRegistro);
    xSalida.append(reinterpret_cast<const char*>(&entrada), sizeof entrada);
}

// What a block is, for the error texts, which are made only when a file is rejected.
struct Bloque {
    enum Clase : quint8 { AppInfo, SortInfo, Registro, Recurso };
    Clase Que = AppInfo;
    qint32 Indice = 0;
    quint32 Desde = 0;

    QString Nombre() const {
        switch (Que) {
        case AppInfo:
            return QStringLiteral("the AppInfo block");
        case SortInfo:
            return QStringLiteral("the SortInfo block");
        case Registro:
            return QStringLiteral("record %1").arg(Indice);
        case Recurso:
            break;
        }
        return QStringLiteral("resource %1").arg(Indice);
    }
};

// Checks block starts in file order: each after the entry list, inside the file and not before
// the block that precedes it.
class ComprobadorBloques {
public:
    ComprobadorBloques(qint64 xFinIndice, qint64 xTamano)
        : mFinIndice(xFinIndice), mTamano(xTamano) {}

    // Called once per entry: the rules are checked inline, the text made only on a rejection. The
    // block comes in its parts and is kept in them, which keeps the loop free of stalls.
    void Comprobar(Bloque::Clase xQue, qint32 xIndice, quint32 xDesde) {
        if (xDesde < mFinIndice || xDesde > mTamano || xDesde < mAnterior.Desde)
            Rechazo({xQue, xIndice, xDesde});
        mAnterior.Que = xQue;
        mAnterior.Indice = xIndice;
        mAnterior.Desde = xDesde;
    }

private:
    [[noreturn]] Q_DECL_COLD_FUNCTION Q_NEVER_INLINE void Rechazo(const Bloque& xBloque) const {
        if (xBloque.Desde < mFinIndice)
            Rechazar(QStringLiteral("%1 starts at offset %2, inside the header or the entry list "
                                    "(which end at %3)")
                         .arg(xBloque.Nombre())
                         .arg(xBloque.Desde)
                         .arg(mFinIndice));
        if (xBloque.Desde > mTamano)
            Rechazar(QStringLiteral("%1 starts at offset %2, past the end of the file (%3 bytes)")
                         .arg(xBloque.Nombre())
                         .arg(xBloque.Desde)
                         .arg(mTamano));
        Rechazar(QStringLiteral("%1 starts at offset %2, before %3 at offset %4")
                     .arg(xBloque.Nombre())
                     .arg(xBloque.Desde)
                     .arg(mAnterior.Nombre())
                     .arg(mAnterior.Desde));
    }

    qint64 mFinIndice;
    qint64 mTamano;
    Bloque mAnterior; // none before the first: it starts at offset 0
};

// A block runs up to the start of the next one; the last one to the end of the file.
template <typename Entrada> void PonerLargos(QVector<Entrada>& xEntradas, qint64 xTamano) {
    for (qsizetype i = 0; i < xEntradas.size(); ++i) {
        const qint64 fin = i + 1 < xEntradas.size() ? xEntradas[i + 1].Datos.Desde : xTamano;
        xEntradas[i].Datos.Largo = static_cast<quint32>(fin - xEntradas[i].Datos.Desde);
    }
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

DisposicionPDB clsArchivoPDB::Analizar(QByteArrayView xBytes, qint64 xTamanoArchivo,
                                       bool xSinEntradas) {
    if (xTamanoArchivo < TamanoCabecera || xBytes.size() < TamanoCabecera)
        RechazarCorto(qMin<qint64>(xTamanoArchivo, xBytes.size()));
    DisposicionPDB disposicion;
    clsLectorBytes lector(xBytes);
    quint32 appInfo = 0;
    quint32 sortInfo = 0;
    quint16 entradas = 0;
    LeerCabecera(lector, disposicion, appInfo, sortInfo, entradas);
    disposicion.Entradas = entradas;

    const qint64 finIndice = TamanoIndice(xBytes);
    if (finIndice > xTamanoArchivo)
        Rechazar(QStringLiteral("the entry list of %1 entries ends at offset %2, past the end of "
                                "the file (%3 bytes)")
                     .arg(entradas)
                     .arg(finIndice)
                     .arg(xTamanoArchivo));
    if (finIndice > xBytes.size())
        Rechazar(QStringLiteral("only %1 bytes of the entry list were read").arg(xBytes.size()));

    ComprobadorBloques comprobador(finIndice, xTamanoArchivo);
    if (appInfo != 0) comprobador.Comprobar(Bloque::AppInfo, 0, appInfo);
    if (sortInfo != 0) comprobador.Comprobar(Bloque::SortInfo, 0, sortInfo);
    const bool recursos = disposicion.EsRecursos();
    if (!xSinEntradas) {
        if (recursos) {
            modMemoria::Reservar(disposicion.Recursos, entradas);
            disposicion.Recursos.resize(entradas);
        } else {
            modMemoria::Reservar(disposicion.Registros, entradas);
            disposicion.Registros.resize(entradas);
        }
    }
    // The entry list lies whole in xBytes (checked above), so its entries are read straight.
    const auto* entrada = reinterpret_cast<const uchar*>(xBytes.data()) + TamanoCabecera;
    IndiceRegistroPDB* registro = disposicion.Registros.data();
    IndiceRecursoPDB* recurso = disposicion.Recursos.data();
    qint64 primerDato = xTamanoArchivo;
    for (qint32 i = 0; i < entradas; ++i) {
        quint32 desde = 0;
        if (recursos) {
            desde = qFromBigEndian<quint32>(entrada + 6);
            if (!xSinEntradas)
                *recurso++ = {{desde, 0},
                              qFromBigEndian<quint32>(entrada),
                              qFromBigEndian<quint16>(entrada + 4)};
            entrada += TamanoEntradaRecurso;
        } else {
            desde = qFromBigEndian<quint32>(entrada);
            if (!xSinEntradas)
                *registro++ = {{desde, 0},
                               (quint32(entrada[5]) << 16) | (quint32(entrada[6]) << 8) |
                                   entrada[7],
                               entrada[4]};
            entrada += TamanoEntradaRegistro;
        }
        comprobador.Comprobar(recursos ? Bloque::Recurso : Bloque::Registro, i, desde);
        if (i == 0) primerDato = desde;
    }
    PonerLargos(disposicion.Registros, xTamanoArchivo);
    PonerLargos(disposicion.Recursos, xTamanoArchivo);
    if (sortInfo != 0)
        disposicion.SortInfo = {sortInfo, static_cast<quint32>(primerDato - sortInfo)};
    if (appInfo != 0)
        disposicion.AppInfo = {
            appInfo, static_cast<quint32>((sortInfo != 0 ? sortInfo : primerDato) - appInfo)};
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

namespace {

void ComprobarCabecera(const CabeceraPDB& xCabecera, qint64 xEntradas) {
    if (xCabecera.Nombre.size() >= TamanoCampoNombre)
        Rechazar(QStringLiteral("the database name is %1 bytes long; at most %2 fit")
                     .arg(xCabecera.Nombre.size())
                     .arg(TamanoCampoNombre - 1));
    if (xCabecera.Nombre.contains('\0'))
        Rechazar(QStringLiteral("the database name holds a zero byte"));
    if (xEntradas > MaximoEntradas)
        Rechazar(QStringLiteral("%1 entries do not fit in a database (at most %2)")
                     .arg(xEntradas)
                     .arg(MaximoEntradas));
}

void AgregarCabecera(QByteArray& xSalida, const CabeceraPDB& xCabecera, quint32 xAppInfo,
                     quint32 xSortInfo, qint64 xEntradas) {
    xSalida.append(xCabecera.Nombre);
    xSalida.append('\0');
    if (xCabecera.Nombre.size() + 1 + xCabecera.RellenoNombre.size() == TamanoCampoNombre)
        xSalida.append(xCabecera.RellenoNombre);
    else
        xSalida.append(TamanoCampoNombre - 1 - xCabecera.Nombre.size(), '\0');
    AgregarU16(xSalida, xCabecera.Atributos);
    AgregarU16(xSalida, xCabecera.Version);
    AgregarU32(xSalida, xCabecera.FechaCreacion);
    AgregarU32(xSalida, xCabecera.FechaModificacion);
    AgregarU32(xSalida, xCabecera.FechaBackup);
    AgregarU32(xSalida, xCabecera.NumeroModificacion);
    AgregarU32(xSalida, xAppInfo);
    AgregarU32(xSalida, xSortInfo);
    AgregarU32(xSalida, xCabecera.Tipo);
    AgregarU32(xSalida, xCabecera.Creador);
    AgregarU32(xSalida, xCabecera.SemillaID);
    AgregarU32(xSalida, 0); // next record list: the whole list is always in this header
    AgregarU16(xSalida, static_cast<quint16>(xEntradas));
}

void ComprobarTamano(qint64 xTamano) {
    if (xTamano > std::numeric_limits<quint32>::max())
        Rechazar(QStringLiteral("the database would be %1 bytes long; offsets reach 4 GB only")
                     .arg(xTamano));
}

} // namespace

QByteArray clsArchivoPDB::Componer(const CabeceraPDB& xCabecera, QByteArrayView xAppInfo,
                                   QByteArrayView xSortInfo, qint32 xCantidad,
                                   const std::function<PiezaRegistroPDB(qint32)>& xRegistro,
                                   DisposicionPDB& xDisposicion) {
    if (xCabecera.EsRecursos()) Rechazar(QStringLiteral("a resource database cannot hold records"));
    ComprobarCabecera(xCabecera, xCantidad);
    const qint64 inicioAppInfo = TamanoCabecera + xCantidad * TamanoEntradaRegistro + TamanoRelleno;
    const qint64 inicioDatos = inicioAppInfo + xAppInfo.size() + xSortInfo.size();
    // Each record is asked for once; the data of a large database is megabytes, its entry list
    // tens of thousands of entries.
    QVector<PiezaRegistroPDB> piezas;
    modMemoria::Reservar(piezas, xCantidad);
    qint64 tamano = inicioDatos;
    for (qint32 i = 0; i < xCantidad; ++i) {
        piezas.append(xRegistro(i));
        const PiezaRegistroPDB& pieza = piezas.back();
        if (pieza.ID > MaximoID)
            Rechazar(QStringLiteral("the unique ID %1 does not fit in 24 bits").arg(pieza.ID));
        tamano += pieza.Datos.size();
    }
    ComprobarTamano(tamano);

    const auto tramo = [](qint64 xDesde, qint64 xLargo) {
        return xLargo == 0 ? TramoPDB{} : TramoPDB{quint32(xDesde), quint32(xLargo)};
    };
    static_cast<CabeceraPDB&>(xDisposicion) = xCabecera;
    xDisposicion.AppInfo = tramo(inicioAppInfo, xAppInfo.size());
    xDisposicion.SortInfo = tramo(inicioAppInfo + xAppInfo.size(), xSortInfo.size());
    xDisposicion.Recursos.clear();
    xDisposicion.Registros.clear();
    modMemoria::Reservar(xDisposicion.Registros, xCantidad);
    xDisposicion.Entradas = xCantidad;

    QByteArray salida;
    salida.reserve(tamano);
    modMemoria::Preparar(salida.data(), salida.capacity());
    AgregarCabecera(salida, xCabecera, xDisposicion.AppInfo.Desde, xDisposicion.SortInfo.Desde,
                    xCantidad);
    quint32 desde = static_cast<quint32>(inicioDatos);
    for (const PiezaRegistroPDB& pieza : piezas) {
        AgregarEntradaRegistro(salida, desde, pieza.Atributos, pieza.ID);
        const quint32 largo = static_cast<quint32>(pieza.Datos.size());
        xDisposicion.Registros.append({{desde, largo}, pieza.ID, pieza.Atributos});
        desde += largo;
    }
    salida.append(TamanoRelleno, '\0');
    salida.append(xAppInfo);
    salida.append(xSortInfo);
    // Records that lie one after the other where they come from are copied in one go.
    QByteArrayView seguidos;
    for (const PiezaRegistroPDB& pieza : piezas) {
        if (!seguidos.isEmpty() &&
            seguidos.constData() + seguidos.size() == pieza.Datos.constData()) {
            seguidos = QByteArrayView(seguidos.constData(), seguidos.size() + pieza.Datos.size());
            continue;
        }
        salida.append(seguidos);
        seguidos = pieza.Datos;
    }
    salida.append(seguidos);
    return salida;
}

QByteArray clsArchivoPDB::Componer(const CabeceraPDB& xCabecera, QByteArrayView xAppInfo,
                                   QByteArrayView xSortInfo,
                                   const QVector<PiezaRegistroPDB>& xRegistros,
                                   const QVector<PiezaRecursoPDB>& xRecursos) {
    if (!xCabecera.EsRecursos()) {
        if (!xRecursos.isEmpty())
            Rechazar(QStringLiteral("a record database cannot hold resources"));
        DisposicionPDB disposicion;
        return Componer(
            xCabecera, xAppInfo, xSortInfo, static_cast<qint32>(xRegistros.size()),
            [&xRegistros](qint32 i) { return xRegistros[i]; }, disposicion);
    }
    if (!xRegistros.isEmpty()) Rechazar(QStringLiteral("a resource database cannot hold records"));
    ComprobarCabecera(xCabecera, xRecursos.size());
    const qint64 entradas = xRecursos.size();
    qint64 posicion = TamanoCabecera + entradas * TamanoEntradaRecurso + TamanoRelleno;
    const quint32 desdeAppInfo = xAppInfo.isEmpty() ? 0 : static_cast<quint32>(posicion);
    posicion += xAppInfo.size();
    const quint32 desdeSortInfo = xSortInfo.isEmpty() ? 0 : static_cast<quint32>(posicion);
    posicion += xSortInfo.size();
    const qint64 inicioDatos = posicion;
    for (const PiezaRecursoPDB& recurso : xRecursos)
        posicion += recurso.Datos.size();
    ComprobarTamano(posicion);

    QByteArray salida;
    salida.reserve(posicion);
    AgregarCabecera(salida, xCabecera, desdeAppInfo, desdeSortInfo, entradas);
    quint32 desde = static_cast<quint32>(inicioDatos);
    for (const PiezaRecursoPDB& recurso : xRecursos) {
        AgregarU32(salida, recurso.Tipo);
        AgregarU16(salida, recurso.ID);
        AgregarU32(salida, desde);
        desde += static_cast<quint32>(recurso.Datos.size());
    }
    salida.append(TamanoRelleno, '\0');
    salida.append(xAppInfo);
    salida.append(xSortInfo);
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

QString clsArchivoPDB::TextoDemasiadoGrande(qint64 xTamano) {
    return QStringLiteral("it is %1 bytes, more than a Palm database holds").arg(xTamano);
}
