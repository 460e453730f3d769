#include "data/zip/clsCatalogoZip.h"

#include "common/ErrorVB.h"
#include "data/clsFuentePalm.h"
#include "data/zip/clsBaseAbiertaZip.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

namespace {

const QString NombreIni = QStringLiteral("Handheld.ini");

bool Termina(const QString& xNombre, const char* xExtension) {
    return xNombre.endsWith(QLatin1String(xExtension), Qt::CaseInsensitive);
}

// Entries named like a database, and archives inside the archive, which are reported.
bool EsCandidata(const EntradaZip& xEntrada) {
    return !xEntrada.Carpeta &&
           (Termina(xEntrada.Nombre, ".pdb") || Termina(xEntrada.Nombre, ".prc") ||
            Termina(xEntrada.Nombre, ".zip"));
}

// Why an entry cannot be a database before a byte of it is read; "" when it may be one.
QString Rechazo(const EntradaZip& xEntrada) {
    if (Termina(xEntrada.Nombre, ".zip"))
        return QStringLiteral("it is an archive inside the archive, which is not opened");
    // Either slash separates folders for some program that unpacks the archive, and a drive
    // letter or a leading slash makes a path absolute.
    static const QRegularExpression separador(QStringLiteral("[/\\\\]"));
    static const QRegularExpression absoluto(QStringLiteral("^([/\\\\]|[A-Za-z]:)"));
    if (absoluto.match(xEntrada.Nombre).hasMatch() ||
        xEntrada.Nombre.split(separador).contains(QStringLiteral("..")))
        return QStringLiteral("its name leads out of the archive");
    if (xEntrada.Cifrada) return QStringLiteral("it is encrypted");
    if (xEntrada.Tamano > clsArchivoPDB::TamanoMaximo)
        return QStringLiteral("it claims %1 bytes, more than a Palm database holds")
            .arg(xEntrada.Tamano);
    return {};
}

// What tells one version of an entry from another: its size, checksum and date. The entry's date
// stands for the file's; a date in the current second or later is not trusted to tell, as for a
// file.
EstadoArchivo EstadoDeEntrada(const EntradaZip& xEntrada) {
    constexpr qint64 NanoPorSegundo = 1000000000;
    return {true,
            xEntrada.Tamano,
            xEntrada.Modificado * NanoPorSegundo,
            xEntrada.Modificado * NanoPorSegundo,
            xEntrada.Crc,
            quint64(xEntrada.TamanoComprimido)};
}

// The entry named Handheld.ini nearest the archive's root, or null.
const EntradaZip* EntradaIni(const clsArchivoZip& xZip) {
    const EntradaZip* mejor = nullptr;
    for (const EntradaZip& entrada : xZip.Entradas()) {
        const QString nombre = entrada.Nombre.section(QLatin1Char('/'), -1);
        if (entrada.Carpeta || nombre.compare(NombreIni, Qt::CaseInsensitive) != 0) continue;
        if (!mejor ||
            entrada.Nombre.count(QLatin1Char('/')) < mejor->Nombre.count(QLatin1Char('/')))
            mejor = &entrada;
    }
    return mejor;
}

// The archive's Handheld.ini, read into memory.
modAjustesIni::Ajustes LeerIni(clsArchivoZip& xZip) {
    modAjustesIni::Ajustes ajustes;
    const EntradaZip* entrada = EntradaIni(xZip);
    if (!entrada) return ajustes;
    ajustes.Presente = true;
    QByteArray bytes;
    ajustes.Error = Rechazo(*entrada);
    if (!ajustes.Error.isEmpty()) return ajustes;
    if (entrada->Tamano > modAjustesIni::TamanoMaximo)
        ajustes.Error = QStringLiteral("it is larger than a Handheld.ini can be");
    else if (!xZip.Leer(*entrada, -1, bytes))
        ajustes.Error = xZip.Error();
    else
        modAjustesIni::Leer(bytes, ajustes.Valores, ajustes.Error);
    return ajustes;
}

// The archive's Handheld.ini when it is opened; an archive that cannot be read has none here, and
// says so when it is read.
modAjustesIni::Ajustes AjustesDe(const QString& xArchivo) {
    clsArchivoZip zip(xArchivo);
    return zip.Abierto() ? LeerIni(zip) : modAjustesIni::Ajustes();
}

QString DondeZip(const QString& xArchivo) {
    return QStringLiteral("the backup archive \"%1\"").arg(xArchivo);
}

} // namespace

clsCatalogoZip::clsCatalogoZip(const QString& xArchivo, const QString& xCodigoPagina)
    : clsCatalogoCarpeta(QFileInfo(xArchivo).absoluteFilePath(), xCodigoPagina,
                         xCodigoPagina.isEmpty() ? AjustesDe(xArchivo) : modAjustesIni::Ajustes(),
                         DondeZip(QFileInfo(xArchivo).absoluteFilePath())) {}

QString clsCatalogoZip::Donde() const {
    return DondeZip(Carpeta());
}

bool clsCatalogoZip::EsPropio(const QString& xArchivo) const {
    const QString archivo = QFileInfo(Carpeta()).canonicalFilePath();
    const QFileInfo destino(xArchivo);
    return !archivo.isEmpty() && (destino.canonicalFilePath() == archivo ||
                                  destino.absoluteFilePath() == archivo + QStringLiteral(".lock"));
}

QString clsCatalogoZip::NombreHandheld() const {
    return QFileInfo(Carpeta()).completeBaseName();
}

const clsCatalogoZip::Instantanea& clsCatalogoZip::Actual(Mirada xMirada) const {
    if (xMirada == Mirada::Ninguna && mInstantanea.Zip) return mInstantanea;
    const EstadoArchivo estado = clsLecturaArchivo::EstadoDe(Carpeta());
    if (xMirada != Mirada::Releer && mInstantanea.Zip && mInstantanea.Estado == estado)
        return mInstantanea;
    Instantanea nueva;
    nueva.Estado = estado;
    nueva.Momento = clsLecturaArchivo::Ahora();
    nueva.Zip = std::make_shared<clsArchivoZip>(Carpeta());
    // Of two entries of one name, the first is the one libzip finds by name too.
    for (const EntradaZip& entrada : nueva.Zip->Entradas()) {
        if (!EsCandidata(entrada)) continue;
        if (nueva.PorNombre.contains(entrada.Nombre))
            nueva.Repetidas.append(entrada.Nombre);
        else
            nueva.PorNombre.insert(entrada.Nombre, entrada);
    }
    mInstantanea = std::move(nueva);
    return mInstantanea;
}

QString clsCatalogoZip::NombreEntrada(const QString& xRuta) const {
    return xRuta.mid(Carpeta().size() + 1);
}

const EntradaZip* clsCatalogoZip::Entrada(const QString& xRuta) const {
    const Instantanea& actual = Actual(Mirada::Ninguna);
    const auto encontrada = actual.PorNombre.constFind(NombreEntrada(xRuta));
    return encontrada == actual.PorNombre.constEnd() ? nullptr : &*encontrada;
}

void clsCatalogoZip::ComprobarCarpeta() const {
    const Instantanea& actual = Actual(Mirada::Mirar);
    if (actual.Zip->Abierto()) return;
    const QString motivo = actual.Estado.Existe || QFileInfo::exists(Carpeta())
                               ? QStringLiteral("cannot be read (%1)").arg(actual.Zip->Error())
                               : QStringLiteral("does not exist");
    throw ErrorVB(ErroresFuente::HandheldInaccesible, QStringLiteral("Handheld"),
                  QStringLiteral("The backup archive \"%1\" %2.").arg(Carpeta(), motivo));
}

QStringList clsCatalogoZip::AvisosAlmacen() const {
    QStringList avisos;
    for (const QString& nombre : Actual(Mirada::Ninguna).Repetidas)
        avisos.append(QStringLiteral("A second entry %1 in the archive was left out; the first is "
                                     "used.")
                          .arg(nombre));
    return avisos;
}

QStringList clsCatalogoZip::Archivos() const {
    ComprobarCarpeta();
    QStringList nombres = Actual(Mirada::Ninguna).PorNombre.keys();
    std::sort(nombres.begin(), nombres.end());
    return nombres;
}

EstadoArchivo clsCatalogoZip::EstadoEntrada(const QString& xRuta) const {
    Actual(Mirada::Releer);
    return EstadoDe(xRuta);
}

EstadoArchivo clsCatalogoZip::EstadoDe(const QString& xRuta) const {
    const EntradaZip* entrada = Entrada(xRuta);
    return entrada ? EstadoDeEntrada(*entrada) : EstadoArchivo();
}

clsCatalogoCarpeta::Lectura clsCatalogoZip::Leer(const QString& xRuta) {
    Lectura lectura;
    lectura.Momento = clsLecturaArchivo::Ahora();
    const EntradaZip* entrada = Entrada(xRuta);
    if (!entrada) return lectura; // gone since the archive was listed
    const EntradaZip copia = *entrada;
    lectura.Presente = true;
    lectura.Motivo = Rechazo(copia);
    if (!lectura.Motivo.isEmpty()) return lectura;
    lectura.Estado = EstadoDeEntrada(copia);
    std::shared_ptr<clsArchivoZip> zip = mInstantanea.Zip;
    QByteArray entera;
    Interpretar(lectura, xRuta,
                [&](qint64 xDesde, qint64 xCantidad, QByteArray& xBytes, QString& xError) {
                    QByteArray inicio;
                    if (!zip->Leer(copia, xDesde + xCantidad, inicio)) {
                        xError = zip->Error();
                        return false;
                    }
                    if (inicio.size() == copia.Tamano) entera = inicio;
                    xBytes.append(inicio.mid(xDesde));
                    return true;
                });
    if (lectura.Valida && !entera.isNull() && zip == mInstantanea.Zip)
        mInstantanea.Leidas.insert(copia.Nombre, entera);
    return lectura;
}

bool clsCatalogoZip::LeerEntrada(const QString& xRuta, QByteArray& xBytes, QString& xError) {
    const EntradaZip* entrada = Entrada(xRuta);
    if (!entrada) {
        xError = QStringLiteral("it is no longer in the backup archive");
        return false;
    }
    xError = Rechazo(*entrada);
    if (!xError.isEmpty()) return false;
    const auto leida = mInstantanea.Leidas.constFind(entrada->Nombre);
    if (leida != mInstantanea.Leidas.constEnd()) {
        xBytes = *leida;
        return true;
    }
    if (mInstantanea.Zip->Leer(*entrada, -1, xBytes)) return true;
    xError = mInstantanea.Zip->Error();
    return false;
}

bool clsCatalogoZip::LeerContenido(const FichaBaseCarpeta& xFicha, ContenidoArchivo& xContenido,
                                   QString& xError) {
    // Opening a database sees the archive as it is now.
    Actual(Mirada::Mirar);
    xContenido.Momento = clsLecturaArchivo::Ahora();
    xContenido.Estado = EstadoDe(xFicha.Archivo);
    return LeerEntrada(xFicha.Archivo, xContenido.Bytes, xError);
}

QVariantMap clsCatalogoZip::Ajustes(const QString& xOperacion) {
    Actualizar(); // raises when the archive cannot be read
    return Valores(LeerIni(*Actual(Mirada::Ninguna).Zip), xOperacion);
}

std::unique_ptr<clsBaseAbierta> clsCatalogoZip::AbrirBase(const FichaBaseCarpeta& xFicha,
                                                          const QString& xNombre,
                                                          ContenidoArchivo xContenido,
                                                          const QString& xOperacion) {
    return std::make_unique<clsBaseAbiertaZip>(
        std::static_pointer_cast<clsCatalogoZip>(shared_from_this()), xFicha, xNombre,
        std::move(xContenido), xOperacion);
}
