#include "estandar/clsDecodificadorEstandar.h"

#include "common/ErrorVB.h"
#include "data/formato/clsArchivoPDB.h"
#include "data/formato/clsLectorBytes.h"
#include "data/formato/modBasesEstandar.h"
#include "estandar/clsDecodificadorAgenda.h"
#include "estandar/clsDecodificadorDirecciones.h"
#include "estandar/clsDecodificadorMemos.h"
#include "estandar/clsDecodificadorTareas.h"

#include <utility>

ClaseEstandar ClaseDe(quint32 xCreador, quint32 xTipo) {
    using namespace modBasesEstandar;
    if (xTipo != TipoDatos) return ClaseEstandar::Ninguna;
    switch (xCreador) {
    case CreadorMemos:
        return ClaseEstandar::Memos;
    case CreadorTareas:
        return ClaseEstandar::Tareas;
    case CreadorDirecciones:
        return ClaseEstandar::Direcciones;
    case CreadorAgenda:
        return ClaseEstandar::Agenda;
    default:
        return ClaseEstandar::Ninguna;
    }
}

std::unique_ptr<clsDecodificadorEstandar>
clsDecodificadorEstandar::Crear(ClaseEstandar xClase, QByteArrayView xAppInfo,
                                const Contexto& xContexto) {
    switch (xClase) {
    case ClaseEstandar::Memos:
        return std::make_unique<clsDecodificadorMemos>(xAppInfo, xContexto);
    case ClaseEstandar::Tareas:
        return std::make_unique<clsDecodificadorTareas>(xAppInfo, xContexto);
    case ClaseEstandar::Direcciones:
        return std::make_unique<clsDecodificadorDirecciones>(xAppInfo, xContexto);
    case ClaseEstandar::Agenda:
        return std::make_unique<clsDecodificadorAgenda>(xAppInfo, xContexto);
    case ClaseEstandar::Ninguna:
        break;
    }
    return nullptr;
}

clsDecodificadorEstandar::clsDecodificadorEstandar(ClaseEstandar xClase, const Contexto& xContexto,
                                                   QVector<CampoEstandar> xCampos)
    : mClase(xClase), mContexto(xContexto), mCampos(std::move(xCampos)) {
    mCampos.append({QStringLiteral("Category"), QStringLiteral("String")});
    mCampos.append({QStringLiteral("Private"), QStringLiteral("Boolean")});
}

void clsDecodificadorEstandar::Valores(const RegistroPalm& xRegistro,
                                       QVariantList& xValores) const {
    xValores.clear();
    // A record deleted on the handheld keeps its entry until the next synchronisation, often
    // without its data.
    if (Borrado(xRegistro) && xRegistro.Bytes.isEmpty()) {
        for (qsizetype k = 2; k < mCampos.size(); ++k)
            xValores.append(QVariant());
    } else {
        ValoresPropios(xRegistro, xValores);
    }
    const QString categoria = Categoria(xRegistro);
    xValores.append(categoria.isEmpty() ? QVariant() : QVariant(categoria));
    xValores.append(Privado(xRegistro));
}

QString clsDecodificadorEstandar::Categoria(const RegistroPalm& xRegistro) const {
    const qint32 categoria = xRegistro.Categoria;
    if (categoria < 0 || categoria >= mContexto.Categorias.size()) return QString();
    return mContexto.Categorias[categoria];
}

bool clsDecodificadorEstandar::Privado(const RegistroPalm& xRegistro) {
    return (xRegistro.Atributos & clsArchivoPDB::AtributoSecreto) != 0;
}

bool clsDecodificadorEstandar::Borrado(const RegistroPalm& xRegistro) {
    return (xRegistro.Atributos & clsArchivoPDB::AtributoBorrado) != 0;
}

QString clsDecodificadorEstandar::Texto(QByteArrayView xBytes) const {
    return mContexto.Tabla->Decodificar(xBytes);
}

QByteArrayView clsDecodificadorEstandar::TramoTerminado(clsLectorBytes& xLector,
                                                        const RegistroPalm& xRegistro,
                                                        const char* xCampo) const {
    QByteArrayView tramo;
    if (!xLector.LeerTextoTerminado(tramo))
        Danado(xRegistro,
               QStringLiteral("its %1 runs past the end of the record").arg(QLatin1String(xCampo)));
    return tramo;
}

QDate clsDecodificadorEstandar::Dia(quint16 xEmpaquetado, const RegistroPalm& xRegistro,
                                    const char* xCampo) const {
    const QDate dia(1904 + (xEmpaquetado >> 9), (xEmpaquetado >> 5) & 0x0F, xEmpaquetado & 0x1F);
    if (!dia.isValid())
        Danado(xRegistro, QStringLiteral("its %1 (%2) is no day of the calendar")
                              .arg(QLatin1String(xCampo))
                              .arg(xEmpaquetado, 4, 16, QLatin1Char('0')));
    return dia;
}

void clsDecodificadorEstandar::Danado(const RegistroPalm& xRegistro, const QString& xMotivo) const {
    throw ErrorVB(ErroresEstandar::RegistroDanado, QStringLiteral("ReadRecord"),
                  QStringLiteral("The record %1 of \"%2\" cannot be decoded: %3.")
                      .arg(xRegistro.ID)
                      .arg(mContexto.Base, xMotivo));
}
