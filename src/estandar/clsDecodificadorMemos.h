#pragma once

#include "estandar/clsDecodificadorEstandar.h"

// One memo of the Memo Pad: its text, whose first line is its title.
struct MemoPalm {
    QString Texto;
    QString Titulo() const { return Texto.section(QLatin1Char('\n'), 0, 0); }
};

// The Memo Pad's settings: after the category block, 4 reserved bytes and the sort order byte
// at 280 (0 as the person arranged them, 1 alphabetic).
struct AjustesMemos {
    bool OrdenAlfabetico = false;
};

// Memo Pad (memo/DATA, "MemoDB"): a record is the memo's text, zero-terminated.
class clsDecodificadorMemos : public clsDecodificadorEstandar {
public:
    clsDecodificadorMemos(QByteArrayView xAppInfo, const Contexto& xContexto);

    MemoPalm Memo(const RegistroPalm& xRegistro) const;
    const AjustesMemos& Ajustes() const { return mAjustes; }

protected:
    void ValoresPropios(const RegistroPalm& xRegistro, QVariantList& xValores) const override;

private:
    AjustesMemos mAjustes;
};
