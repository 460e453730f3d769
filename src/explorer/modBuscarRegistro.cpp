#include "explorer/modBuscarRegistro.h"

#include "common/clsConfiguracionRegional.h"
#include "common/modFunciones.h"
#include "explorer/clsGrillaFlexible.h"

namespace modBuscarRegistro {
namespace {
QString Recortado(const QString& xTexto) {
    return modFunciones::SinBlancos(xTexto).toString();
}

// What is searched for, worked out once for the whole walk.
struct Criterio {
    Criterio(const QString& xBuscado, ClaseTipo xClase, bool xMayMin, bool xCompleta)
        : Clase(xClase), MayMin(xMayMin), Completa(xCompleta), Buscado(Recortado(xBuscado)),
          Mayusculas(Buscado.toUpper()) {
        if (Completa) return;
        if (Clase == Numero) ValorNumero = modFunciones::Val(Buscado);
        if (Clase == Fecha) ValorFecha = clsConfiguracionRegional::Actual().CDate(Buscado);
    }

    bool Coincide(const QString& xCelda) const {
        const QString celda = Recortado(xCelda);
        if (Completa && MayMin) return celda == Buscado;
        if (Completa) return celda.toUpper() == Mayusculas;
        switch (Clase) {
        case Texto:
            if (MayMin) return celda.startsWith(Buscado, Qt::CaseSensitive);
            return QString::compare(celda.toUpper(), Mayusculas, Qt::CaseSensitive) >= 0;
        case Fecha: {
            const QDateTime fecha = clsConfiguracionRegional::Actual().CDate(celda);
            return MayMin ? fecha == ValorFecha : fecha >= ValorFecha;
        }
        case Numero: {
            const double numero = modFunciones::Val(celda);
            return MayMin ? numero == ValorNumero : numero >= ValorNumero;
        }
        }
        return false;
    }

    ClaseTipo Clase;
    bool MayMin, Completa;
    QString Buscado, Mayusculas;
    double ValorNumero = 0;
    QDateTime ValorFecha;
};
} // namespace

ClaseTipo ClaseDeTipo(const QString& xTipo) {
    if (xTipo == QStringLiteral("String") || xTipo == QStringLiteral("Boolean")) return Texto;
    if (xTipo == QStringLiteral("Date")) return Fecha;
    return Numero;
}

qint32 OrdenDeClase(ClaseTipo xClase) {
    return xClase == Texto ? clsGrillaFlexible::TextoAscendente
                           : clsGrillaFlexible::NumericoAscendente;
}

bool Coincide(const QString& xCelda, const QString& xBuscado, ClaseTipo xClase, bool xMayMin,
              bool xCompleta) {
    return Criterio(xBuscado, xClase, xMayMin, xCompleta).Coincide(xCelda);
}

qint32 Buscar(clsGrillaFlexible& xGrilla, qint32 xColumna, const QString& xTipo,
              const QString& xBuscado, bool xMayMin, bool xCompleta) {
    const ClaseTipo clase = ClaseDeTipo(xTipo);
    xGrilla.Sort(OrdenDeClase(clase), xColumna);
    if (xGrilla.Rows() < 2) return 0;
    const Criterio criterio(xBuscado, clase, xMayMin, xCompleta);
    for (qint32 fila = 1; fila < xGrilla.Rows(); ++fila)
        if (criterio.Coincide(xGrilla.TextMatrix(fila, xColumna))) return fila;
    return 0;
}

} // namespace modBuscarRegistro
