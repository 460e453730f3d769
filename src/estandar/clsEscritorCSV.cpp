#include "estandar/clsEscritorCSV.h"

#include "common/modFunciones.h"
#include "estandar/modTextoEstandar.h"

clsEscritorCSV::clsEscritorCSV(const clsDecodificadorEstandar& xDecodificador)
    : mDecodificador(xDecodificador) {
    QStringList titulos;
    for (const CampoEstandar& campo : xDecodificador.Campos())
        titulos << campo.Nombre;
    Fila(titulos);
}

QString clsEscritorCSV::Celda(const QString& xTexto) {
    if (!modFunciones::NecesitaComillasCSV(xTexto)) return xTexto;
    QString celda = xTexto;
    celda.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + celda + QLatin1Char('"');
}

void clsEscritorCSV::Fila(const QStringList& xCeldas) {
    QStringList celdas;
    for (const QString& celda : xCeldas)
        celdas << Celda(celda);
    mTexto += celdas.join(QLatin1Char(',')).toUtf8();
    mTexto += "\r\n";
}

void clsEscritorCSV::Agregar(const RegistroPalm& xRegistro) {
    mDecodificador.Valores(xRegistro, mValores);
    QStringList celdas;
    for (const QVariant& valor : std::as_const(mValores))
        celdas << modTextoEstandar::TextoIntercambio(valor);
    Fila(celdas);
}
