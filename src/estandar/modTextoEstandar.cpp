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

void AgregarCadena(clsBufferTexto& xTexto, const QString& xCadena, const QString& xSeparator) {
    if (xSeparator != QLatin1String("\t") || !xCadena.contains(QLatin1Char('\t'))) {
        xTexto.Texto(xCadena);
        return;
    }
    QString enUnaCelda = xCadena;
    xTexto.Texto(enUnaCelda.replace(QLatin1Char('\t'), QLatin1Char(' ')));
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
