#include "estandar/modTextoEstandar.h"

#include <QDate>
#include <QDateTime>

namespace modTextoEstandar {

namespace {

void AgregarVerdad(clsBufferTexto& xTexto, bool xValor) {
    if (xValor)
        xTexto.Letras("True", 4);
    else
        xTexto.Letras("False", 5);
}

// With the tab as separator (the grid's, the explorer export's and the report's reading) a text
// stays on one line of its cell: a tab becomes a blank and each line break a pilcrow.
void AgregarCadena(clsBufferTexto& xTexto, const QString& xCadena, const QString& xSeparator) {
    if (xSeparator != QLatin1String("\t")) {
        xTexto.Texto(xCadena);
        return;
    }
    for (qsizetype k = 0; k < xCadena.size(); ++k) {
        const char16_t letra = xCadena[k].unicode();
        if (letra == u'\r' && k + 1 < xCadena.size() && xCadena[k + 1] == QLatin1Char('\n'))
            continue;
        xTexto.Letra(letra == u'\t' ? u' ' : letra == u'\n' || letra == u'\r' ? u'\u00b6' : letra);
    }
}

} // namespace

void AgregarValor(clsBufferTexto& xTexto, const QVariant& xValor, bool xEsTexto,
                  const QString& xSeparator, const clsConfiguracionRegional& xRegional) {
    const bool comillas = xEsTexto && xSeparator == QLatin1String(",");
    if (comillas) xTexto.Letra(u'"');
    switch (xValor.typeId()) {
    case QMetaType::QString:
        AgregarCadena(xTexto, xValor.toString(), xSeparator);
        break;
    case QMetaType::Bool:
        AgregarVerdad(xTexto, xValor.toBool());
        break;
    case QMetaType::Int:
        xTexto.Entero(xValor.toInt());
        break;
    case QMetaType::QDate:
        xRegional.AgregarFechaGeneral(xTexto, xValor.toDate(), 0);
        break;
    case QMetaType::QDateTime: {
        const QDateTime fecha = xValor.toDateTime();
        xRegional.AgregarFechaGeneral(xTexto, fecha.date(),
                                      fecha.time().msecsSinceStartOfDay() / 1000);
        break;
    }
    case QMetaType::QVariantList: {
        bool primero = true;
        for (const QVariant& dia : xValor.toList()) {
            if (!primero) xTexto.Letras(", ", 2);
            primero = false;
            xTexto.Texto(xRegional.TextoFechaCorta(QDateTime(dia.toDate(), QTime(0, 0))));
        }
        break;
    }
    default:
        break;
    }
    if (comillas) xTexto.Letra(u'"');
}

QString TextoIntercambio(const QVariant& xValor) {
    switch (xValor.typeId()) {
    case QMetaType::Bool:
        return xValor.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::QDate:
        return xValor.toDate().toString(Qt::ISODate);
    case QMetaType::QDateTime:
        return xValor.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm"));
    case QMetaType::QVariantList: {
        QStringList dias;
        for (const QVariant& dia : xValor.toList())
            dias << dia.toDate().toString(Qt::ISODate);
        return dias.join(QStringLiteral(", "));
    }
    default:
        return xValor.toString();
    }
}

} // namespace modTextoEstandar
