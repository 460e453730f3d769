#include "data/carpeta/clsAdaptadorRecursosCarpeta.h"

#include "common/ErrorVB.h"

#include <utility>

clsAdaptadorRecursosCarpeta::clsAdaptadorRecursosCarpeta(std::unique_ptr<clsBaseAbierta> xBase)
    : mBase(std::move(xBase)) {}

qint32 clsAdaptadorRecursosCarpeta::CantidadRecursos() {
    return static_cast<qint32>(mBase->Disposicion().Recursos.size());
}

RecursoPalm clsAdaptadorRecursosCarpeta::LeerRecurso(qint32 xIndice) {
    if (xIndice < 0 || xIndice >= CantidadRecursos())
        throw ErrorVB(ErroresFuente::RegistroNoEncontrado, QStringLiteral("LeerRecurso"),
                      QStringLiteral("The database \"%1\" has no resource at index %2.")
                          .arg(mBase->Nombre())
                          .arg(xIndice));
    const IndiceRecursoPDB& indice = mBase->Disposicion().Recursos[xIndice];
    return {xIndice, static_cast<qint32>(indice.Tipo), indice.ID, mBase->Datos(indice.Datos)};
}
