#include "estandar/clsDecodificadorTareas.h"

#include "data/formato/clsLectorBytes.h"

namespace {
constexpr qsizetype PosicionAjustes = 278;
constexpr quint8 MarcaCompletada = 0x80;
} // namespace

clsDecodificadorTareas::clsDecodificadorTareas(QByteArrayView xAppInfo, const Contexto& xContexto)
    : clsDecodificadorEstandar(ClaseEstandar::Tareas, xContexto,
                               {{QStringLiteral("Description"), QStringLiteral("String")},
                                {QStringLiteral("Due Date"), QStringLiteral("Date")},
                                {QStringLiteral("Priority"), QStringLiteral("Byte")},
                                {QStringLiteral("Completed"), QStringLiteral("Boolean")},
                                {QStringLiteral("Note"), QStringLiteral("String")}}) {
    clsLectorBytes lector(xAppInfo);
    if (lector.IrA(PosicionAjustes) && lector.LeerU16(mAjustes.Modificados))
        (void)lector.LeerU8(mAjustes.Orden);
}

// A to-do that ends after its description has no note.
TareaPalm clsDecodificadorTareas::Tarea(const RegistroPalm& xRegistro) const {
    clsLectorBytes lector(xRegistro.Bytes);
    quint16 vence = 0;
    quint8 prioridad = 0;
    if (!lector.LeerU16(vence) || !lector.LeerU8(prioridad))
        Danado(xRegistro, QStringLiteral("it is too short for a to-do"));
    TareaPalm tarea;
    if (vence != SinDia) tarea.Vence = Dia(vence, xRegistro, "due date");
    tarea.Prioridad = prioridad & ~MarcaCompletada;
    tarea.Completada = (prioridad & MarcaCompletada) != 0;
    tarea.Descripcion = Texto(TramoTerminado(lector, xRegistro, "description"));
    if (lector.Restantes() > 0) tarea.Nota = Texto(TramoTerminado(lector, xRegistro, "note"));
    return tarea;
}

void clsDecodificadorTareas::ValoresPropios(const RegistroPalm& xRegistro,
                                            QVariantList& xValores) const {
    const TareaPalm tarea = Tarea(xRegistro);
    xValores.append(tarea.Descripcion);
    xValores.append(tarea.Vence.isValid() ? QVariant(tarea.Vence) : QVariant());
    xValores.append(int(tarea.Prioridad));
    xValores.append(tarea.Completada);
    xValores.append(tarea.Nota);
}
