#include "data/carpeta/clsSistemaCarpeta.h"

#include "common/ErrorVB.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <QVariantMap>
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

// The values of Handheld.ini, each read as its kind when it is asked for; a key the file does not
// give takes the value derived from the handheld.
class clsAjustes {
public:
    clsAjustes(std::shared_ptr<clsCatalogoCarpeta> xCatalogo, const QString& xOperacion)
        : mCatalogo(std::move(xCatalogo)), mOperacion(xOperacion),
          mValores(mCatalogo->Ajustes(xOperacion)) {}

    const clsCatalogoCarpeta& Catalogo() const { return *mCatalogo; }
    const QVector<FichaBaseCarpeta>& Bases() const { return mCatalogo->Bases(); }

    qint64 Entero(const char* xClave, qint64 xDerivado) const {
        if (!mValores.contains(QLatin1String(xClave))) return xDerivado;
        const QString texto = Crudo(xClave).trimmed();
        bool correcto = false;
        const qint64 valor = texto.toLongLong(&correcto);
        if (!correcto) Invalido(xClave, texto);
        return valor;
    }
    double Numero(const char* xClave, double xDerivado) const {
        if (!mValores.contains(QLatin1String(xClave))) return xDerivado;
        const QString texto = Crudo(xClave).trimmed();
        bool correcto = false;
        const double valor = texto.toDouble(&correcto);
        if (!correcto) Invalido(xClave, texto);
        return valor;
    }
    QDateTime Fecha(const char* xClave, const QDateTime& xDerivada) const {
        if (!mValores.contains(QLatin1String(xClave))) return xDerivada;
        const QString texto = Crudo(xClave).trimmed();
        const QDateTime fecha = LeerFecha(texto);
        if (!fecha.isValid()) Invalido(xClave, texto);
        return fecha;
    }
    QString Texto(const char* xClave, const QString& xDerivado) const {
        return mValores.contains(QLatin1String(xClave)) ? Crudo(xClave) : xDerivado;
    }

private:
    QString Crudo(const char* xClave) const {
        return mValores.value(QLatin1String(xClave)).toString();
    }
    [[noreturn]] void Invalido(const char* xClave, const QString& xTexto) const {
        throw ErrorVB(ErroresFuente::HandheldInaccesible, mOperacion,
                      QStringLiteral("%1 of %2 gives %3 the value \"%4\", which is not of its "
                                     "kind.")
                          .arg(NombreIni, mCatalogo->Donde(), QLatin1String(xClave), xTexto));
    }

    std::shared_ptr<clsCatalogoCarpeta> mCatalogo;
    QString mOperacion;
    QVariantMap mValores;
};

class clsTarjetaCarpeta : public clsTarjetaPalm {
public:
    explicit clsTarjetaCarpeta(clsAjustes xAjustes) : mAjustes(std::move(xAjustes)) {}

    qint32 Numero() const override { return Entero32("Card/Number", 0); }
    double Version() const override { return mAjustes.Numero("Card/Version", 1); }
    QDateTime FechaCreacion() const override {
        return mAjustes.Fecha("Card/CreationDate", MasAntigua());
    }
    qint64 TamanoRom() const override { return mAjustes.Entero("Card/RomSize", 0); }
    qint64 TamanoRam() const override {
        qint64 tamano = 0;
        for (const FichaBaseCarpeta& ficha : mAjustes.Bases())
            tamano += ficha.Tamano;
        return mAjustes.Entero("Card/RamSize", tamano);
    }
    qint64 RamLibre() const override {
        return mAjustes.Entero("Card/FreeRam",
                               QStorageInfo(mAjustes.Catalogo().Carpeta()).bytesAvailable());
    }
    QString Nombre() const override {
        return mAjustes.Texto("Card/Name", mAjustes.Catalogo().NombreHandheld());
    }
    QString Fabricante() const override { return mAjustes.Texto("Card/Manufacturer", QString()); }
    qint32 CantidadBasesRom() const override { return Entero32("Card/RomDbCount", 0); }
    qint32 CantidadBasesRam() const override {
        return Entero32("Card/RamDbCount", mAjustes.Bases().size());
    }

private:
    qint32 Entero32(const char* xClave, qint64 xDerivado) const {
        return static_cast<qint32>(mAjustes.Entero(xClave, xDerivado));
    }
    // The creation date of the oldest database.
    QDateTime MasAntigua() const {
        QDateTime masAntigua;
        for (const FichaBaseCarpeta& ficha : mAjustes.Bases()) {
            const QDateTime creacion = clsCatalogoCarpeta::FechaPalm(ficha.Cabecera.FechaCreacion);
            if (!masAntigua.isValid() || creacion < masAntigua) masAntigua = creacion;
        }
        return masAntigua;
    }

    clsAjustes mAjustes;
};

class clsUsuarioCarpeta : public clsUsuarioPalm {
public:
    explicit clsUsuarioCarpeta(clsAjustes xAjustes) : mAjustes(std::move(xAjustes)) {}

    // A desktop backup is <user>/Backup (or <user>/Backup.zip).
    QString Nombre() const override {
        const clsCatalogoCarpeta& catalogo = mAjustes.Catalogo();
        QString nombre;
        if (catalogo.NombreHandheld().compare(QLatin1String("Backup"), Qt::CaseInsensitive) == 0)
            nombre = QFileInfo(catalogo.Carpeta()).dir().dirName();
        return mAjustes.Texto("User/Name", nombre);
    }
    QString Clave() const override { return mAjustes.Texto("User/Password", QString()); }
    QDateTime FechaUltimaSincronizacion() const override {
        return mAjustes.Fecha("User/LastSyncDate", {});
    }
    qint32 UltimaSincronizacionPC() const override {
        return static_cast<qint32>(mAjustes.Entero("User/LastSyncPC", 0));
    }
    qint32 IDUsuario() const override {
        return static_cast<qint32>(mAjustes.Entero("User/UserID", 0));
    }

private:
    clsAjustes mAjustes;
};

} // namespace

clsSistemaCarpeta::clsSistemaCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo)
    : mCatalogo(std::move(xCatalogo)) {}

std::unique_ptr<clsTarjetaPalm> clsSistemaCarpeta::TarjetaMemoria() {
    return std::make_unique<clsTarjetaCarpeta>(
        clsAjustes(mCatalogo, QStringLiteral("TarjetaMemoria")));
}

std::unique_ptr<clsUsuarioPalm> clsSistemaCarpeta::InformacionUsuario() {
    return std::make_unique<clsUsuarioCarpeta>(
        clsAjustes(mCatalogo, QStringLiteral("InformacionUsuario")));
}
