#pragma once

#include "estandar/clsDecodificadorEstandar.h"

// One to-do: due day (none when not valid), priority (1 highest to 5), its completion, the
// description and the note.
struct TareaPalm {
    QDate Vence;
    quint8 Prioridad = 0;
    bool Completada = false;
    QString Descripcion;
    QString Nota;
};

// The To Do List's settings: after the category block, 2 reserved bytes, a 16-bit word of
// changed settings at 278 and the sort flags byte at 280 (sorted by priority when set).
struct AjustesTareas {
    quint16 Modificados = 0;
    quint8 Orden = 0;
    bool OrdenPorPrioridad() const { return Orden != 0; }
};

// To Do List (todo/DATA, "ToDoDB"): a record is the due day packed in 16 bits (0xFFFF for
// none), a byte of priority whose high bit marks it completed, then the description and the
// note, each zero-terminated.
class clsDecodificadorTareas : public clsDecodificadorEstandar {
public:
    clsDecodificadorTareas(QByteArrayView xAppInfo, const Contexto& xContexto);

    TareaPalm Tarea(const RegistroPalm& xRegistro) const;
    const AjustesTareas& Ajustes() const { return mAjustes; }

protected:
    void ValoresPropios(const RegistroPalm& xRegistro, QVariantList& xValores) const override;

private:
    AjustesTareas mAjustes;
};
