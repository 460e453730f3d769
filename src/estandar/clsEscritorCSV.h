#pragma once

#include "estandar/clsDecodificadorEstandar.h"

#include <QByteArray>

// The records of any standard database as CSV (RFC 4180) in UTF-8: a header row of the field
// titles, then a row per record with every field in the form programs read
// (modTextoEstandar::TextoIntercambio); a cell holding a comma, a quote or a line break is
// quoted, its quotes doubled; lines end in CR LF.
class clsEscritorCSV {
public:
    explicit clsEscritorCSV(const clsDecodificadorEstandar& xDecodificador);

    void Agregar(const RegistroPalm& xRegistro);
    QByteArrayView Texto() const { return mTexto; }

    // One cell as RFC 4180 writes it.
    static QString Celda(const QString& xTexto);

private:
    void Fila(const QStringList& xCeldas);

    const clsDecodificadorEstandar& mDecodificador;
    QByteArray mTexto;
    QVariantList mValores;
};
