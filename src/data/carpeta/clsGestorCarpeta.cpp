#include "data/carpeta/clsGestorCarpeta.h"

#include "common/ErrorVB.h"
#include "data/carpeta/clsAdaptadorRecursosCarpeta.h"
#include "data/carpeta/clsAdaptadorRegistrosCarpeta.h"
#include "data/carpeta/clsBaseAbierta.h"
#include "data/carpeta/clsInfoBaseCarpeta.h"

#include <utility>

clsGestorCarpeta::clsGestorCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo)
    : mCatalogo(std::move(xCatalogo)) {}

QString clsGestorCarpeta::Codigo(quint32 xCodigo) {
    QString texto;
    for (int desplazamiento = 24; desplazamiento >= 0; desplazamiento -= 8)
        texto.append(QChar(static_cast<char16_t>((xCodigo >> desplazamiento) & 0xFF)));
    return texto;
}

QStringList clsGestorCarpeta::ListarBases(qint32) {
    mCatalogo->Actualizar();
    QStringList nombres;
    for (const FichaBaseCarpeta& ficha : mCatalogo->Bases())
        nombres.append(ficha.Nombre);
    return nombres;
}

std::shared_ptr<clsInfoBase> clsGestorCarpeta::BuscarBase(const QString& xNombre) {
    return std::make_shared<clsInfoBaseCarpeta>(
        mCatalogo, mCatalogo->Buscar(xNombre, QStringLiteral("BuscarBase")));
}

std::shared_ptr<clsInfoBase>
clsGestorCarpeta::EnumerarBases(const QString& xCreador, const QString& xTipo, bool xReiniciar) {
    if (xReiniciar) {
        mCatalogo->Actualizar();
        mEnumeracion = mCatalogo->Bases();
        mSiguiente = 0;
    }
    while (mSiguiente < mEnumeracion.size()) {
        const FichaBaseCarpeta& ficha = mEnumeracion[mSiguiente++];
        if (!xCreador.isEmpty() && Codigo(ficha.Cabecera.Creador) != xCreador) continue;
        if (!xTipo.isEmpty() && Codigo(ficha.Cabecera.Tipo) != xTipo) continue;
        return std::make_shared<clsInfoBaseCarpeta>(mCatalogo, ficha);
    }
    return nullptr;
}

std::unique_ptr<clsBaseAbierta> clsGestorCarpeta::Abrir(const QString& xNombre, bool xRecursos,
                                                        const QString& xOperacion) {
    FichaBaseCarpeta ficha;
    ContenidoArchivo contenido = mCatalogo->Contenido(xNombre, xOperacion, ficha);
    std::unique_ptr<clsBaseAbierta> base =
        mCatalogo->AbrirBase(ficha, xNombre, std::move(contenido), xOperacion);
    const DisposicionPDB& disposicion = base->Disposicion();
    QString motivo;
    if (mCatalogo->Decodificar(disposicion.Nombre) != xNombre)
        motivo = QStringLiteral("its file changed on disk while it was being opened");
    else if (disposicion.EsRecursos() != xRecursos)
        motivo = xRecursos ? QStringLiteral("it is a record database, not a resource database")
                           : QStringLiteral("it is a resource database, not a record database");
    if (!motivo.isEmpty())
        throw ErrorVB(
            ErroresFuente::BaseEnUso, xOperacion,
            QStringLiteral("The database \"%1\" cannot be opened: %2.").arg(xNombre, motivo));
    return base;
}

std::unique_ptr<clsAdaptadorRegistros>
clsGestorCarpeta::AbrirBaseRegistros(const QString& xNombre, const QString&, qint32) {
    return std::make_unique<clsAdaptadorRegistrosCarpeta>(
        Abrir(xNombre, false, QStringLiteral("AbrirBaseRegistros")), mCatalogo->CodigoPagina());
}

std::unique_ptr<clsAdaptadorRecursos> clsGestorCarpeta::AbrirBaseRecursos(const QString& xNombre,
                                                                          const QString&, qint32) {
    return std::make_unique<clsAdaptadorRecursosCarpeta>(
        Abrir(xNombre, true, QStringLiteral("AbrirBaseRecursos")));
}
