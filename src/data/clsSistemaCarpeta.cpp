#include "data/clsSistemaCarpeta.h"

#include "common/ErrorVB.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <utility>

namespace {

const QString NombreIni = QStringLiteral("Handheld.ini");

QDateTime LeerFecha(const QString& xTexto) {
    for (const char* formato : {"yyyy-MM-dd HH:mm:ss", "yyyy-MM-ddTHH:mm:ss", "yyyy-MM-dd"}) {
        QDateTime fecha = QDateTime::fromString(xTexto, QLatin1String(formato));
        if (fecha.isValid()) return QDateTime(fecha.date(), fecha.time(), Qt::UTC);
    }
    return {};
}

} // namespace

clsSistemaCarpeta::clsSistemaCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo)
    : mCatalogo(std::move(xCatalogo)) {}

QVariantMap clsSistemaCarpeta::Ajustes(const QString& xOperacion) const {
    return mCatalogo->Ajustes(xOperacion);
}

void clsSistemaCarpeta::ValorInvalido(const QString& xOperacion, const QString& xClave,
                                      const QString& xTexto) const {
    throw ErrorVB(ErroresFuente::HandheldInaccesible, xOperacion,
                  QStringLiteral("%1 of the handheld folder \"%2\" gives %3 the value \"%4\", "
                                 "which is not of its kind.")
                      .arg(NombreIni, mCatalogo->Carpeta(), xClave, xTexto));
}

qint64 clsSistemaCarpeta::Entero(const QVariantMap& xAjustes, const QString& xClave,
                                 qint64 xDerivado, const QString& xOperacion) const {
    if (!xAjustes.contains(xClave)) return xDerivado;
    const QString texto = xAjustes.value(xClave).toString().trimmed();
    bool correcto = false;
    const qint64 valor = texto.toLongLong(&correcto);
    if (!correcto) ValorInvalido(xOperacion, xClave, texto);
    return valor;
}

double clsSistemaCarpeta::Numero(const QVariantMap& xAjustes, const QString& xClave,
                                 double xDerivado, const QString& xOperacion) const {
    if (!xAjustes.contains(xClave)) return xDerivado;
    const QString texto = xAjustes.value(xClave).toString().trimmed();
    bool correcto = false;
    const double valor = texto.toDouble(&correcto);
    if (!correcto) ValorInvalido(xOperacion, xClave, texto);
    return valor;
}

QDateTime clsSistemaCarpeta::Fecha(const QVariantMap& xAjustes, const QString& xClave,
                                   const QDateTime& xDerivada, const QString& xOperacion) const {
    if (!xAjustes.contains(xClave)) return xDerivada;
    const QString texto = xAjustes.value(xClave).toString().trimmed();
    const QDateTime fecha = LeerFecha(texto);
    if (!fecha.isValid()) ValorInvalido(xOperacion, xClave, texto);
    return fecha;
}

QString clsSistemaCarpeta::Texto(const QVariantMap& xAjustes, const QString& xClave,
                                 const QString& xDerivado) {
    return xAjustes.contains(xClave) ? xAjustes.value(xClave).toString() : xDerivado;
}

TarjetaPalm clsSistemaCarpeta::TarjetaMemoria() {
    const QString operacion = QStringLiteral("TarjetaMemoria");
    const QVariantMap ajustes = Ajustes(operacion);
    const QVector<FichaBaseCarpeta>& bases = mCatalogo->Bases();
    qint64 tamanoBases = 0;
    QDateTime masAntigua;
    for (const FichaBaseCarpeta& ficha : bases) {
        tamanoBases += ficha.Tamano;
        const QDateTime creacion = clsCatalogoCarpeta::FechaPalm(ficha.Cabecera.FechaCreacion);
        if (!masAntigua.isValid() || creacion < masAntigua) masAntigua = creacion;
    }
    TarjetaPalm tarjeta;
    tarjeta.Numero = static_cast<qint32>(Entero(ajustes, "Card/Number", 0, operacion));
    tarjeta.Version = Numero(ajustes, "Card/Version", 1, operacion);
    tarjeta.FechaCreacion = Fecha(ajustes, "Card/CreationDate", masAntigua, operacion);
    tarjeta.TamanoRom = Entero(ajustes, "Card/RomSize", 0, operacion);
    tarjeta.TamanoRam = Entero(ajustes, "Card/RamSize", tamanoBases, operacion);
    tarjeta.RamLibre = Entero(ajustes, "Card/FreeRam",
                              QStorageInfo(mCatalogo->Carpeta()).bytesAvailable(), operacion);
    tarjeta.Nombre = Texto(ajustes, "Card/Name", mCatalogo->NombreHandheld());
    tarjeta.Fabricante = Texto(ajustes, "Card/Manufacturer", QString());
    tarjeta.CantidadBasesRom =
        static_cast<qint32>(Entero(ajustes, "Card/RomDbCount", 0, operacion));
    tarjeta.CantidadBasesRam =
        static_cast<qint32>(Entero(ajustes, "Card/RamDbCount", bases.size(), operacion));
    return tarjeta;
}

UsuarioPalm clsSistemaCarpeta::InformacionUsuario() {
    const QString operacion = QStringLiteral("InformacionUsuario");
    const QVariantMap ajustes = Ajustes(operacion);
    // A desktop backup is <user>/Backup (or <user>/Backup.zip).
    QString nombre;
    if (mCatalogo->NombreHandheld().compare(QLatin1String("Backup"), Qt::CaseInsensitive) == 0)
        nombre = QFileInfo(mCatalogo->Carpeta()).dir().dirName();
    UsuarioPalm usuario;
    usuario.Nombre = Texto(ajustes, "User/Name", nombre);
    usuario.Clave = Texto(ajustes, "User/Password", QString());
    usuario.FechaUltimaSincronizacion = Fecha(ajustes, "User/LastSyncDate", {}, operacion);
    usuario.UltimaSincronizacionPC =
        static_cast<qint32>(Entero(ajustes, "User/LastSyncPC", 0, operacion));
    usuario.IDUsuario = static_cast<qint32>(Entero(ajustes, "User/UserID", 0, operacion));
    return usuario;
}
