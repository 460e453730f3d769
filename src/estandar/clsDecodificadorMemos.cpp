#include "estandar/clsDecodificadorMemos.h"

#include "data/formato/clsLectorBytes.h"

namespace {
constexpr qsizetype PosicionOrden = 280;
} // namespace

clsDecodificadorMemos::clsDecodificadorMemos(QByteArrayView xAppInfo, const Contexto& xContexto)
    : clsDecodificadorEstandar(ClaseEstandar::Memos, xContexto,
                               {{QStringLiteral("Title"), QStringLiteral("String")},
                                {QStringLiteral("Memo"), QStringLiteral("String")}}) {
    clsLectorBytes lector(xAppInfo);
    quint8 orden = 0;
    if (lector.IrA(PosicionOrden) && lector.LeerU8(orden)) mAjustes.OrdenAlfabetico = orden != 0;
}

// A memo written without its terminator is its bytes to the record's end.
MemoPalm clsDecodificadorMemos::Memo(const RegistroPalm& xRegistro) const {
    clsLectorBytes lector(xRegistro.Bytes);
    QByteArrayView texto;
    if (!lector.LeerTextoTerminado(texto)) texto = xRegistro.Bytes;
    return {Texto(texto)};
}

void clsDecodificadorMemos::ValoresPropios(const RegistroPalm& xRegistro,
                                           QVariantList& xValores) const {
    const MemoPalm memo = Memo(xRegistro);
    xValores.append(memo.Titulo());
    xValores.append(memo.Texto);
}
