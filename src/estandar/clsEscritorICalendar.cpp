#include "estandar/clsEscritorICalendar.h"

#include "estandar/modLineasContenido.h"

#include <utility>

using modLineasContenido::Escapar;

namespace {

const char* const DiasICalendar[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};

QString TextoDia(const QDate& xDia) {
    return xDia.toString(QStringLiteral("yyyyMMdd"));
}

// A floating local time: no zone, as the handheld keeps its times.
QString TextoDiaHora(const QDate& xDia, const QTime& xHora) {
    return TextoDia(xDia) + xHora.toString(QStringLiteral("'T'HHmmss"));
}

// The day or the day and time, as the appointment's start is written.
QString TextoComoInicio(const CitaPalm& xCita, const QDate& xDia) {
    return xCita.SinHora ? TextoDia(xDia) : TextoDiaHora(xDia, xCita.Inicio);
}

// The first day on or after the appointment's day that a weekly repeat falls on: a start that
// is no occurrence leaves a calendar's reading of the rule undefined.
QDate PrimerDiaSemanal(const CitaPalm& xCita) {
    QDate dia = xCita.Dia;
    for (int k = 0; k < 7 && xCita.DiasSemana != 0; ++k, dia = dia.addDays(1))
        if (xCita.DiasSemana & (1 << (dia.dayOfWeek() % 7))) return dia;
    return xCita.Dia;
}

QString Disparo(const CitaPalm& xCita) {
    static const char* const unidades[] = {"M", "H", "D"};
    const int cantidad = qAbs(int(xCita.Anticipo));
    const bool enDias = xCita.UnidadAlarma == CitaPalm::Dias;
    return QLatin1String(xCita.Anticipo > 0 ? "-P" : "P") + QLatin1String(enDias ? "" : "T") +
           QString::number(cantidad) + QLatin1String(unidades[xCita.UnidadAlarma]);
}

} // namespace

clsEscritorICalendar::clsEscritorICalendar(QString xPrefijoUID, const QDateTime& xSello)
    : mPrefijoUID(std::move(xPrefijoUID)),
      mSello(xSello.toUTC().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'"))) {
    Linea("BEGIN", QStringLiteral("VCALENDAR"));
    Linea("VERSION", QStringLiteral("2.0"));
    Linea("PRODID", QStringLiteral("-//Pandrel//Palm Date Book and To Do List//EN"));
    Linea("CALSCALE", QStringLiteral("GREGORIAN"));
}

void clsEscritorICalendar::Linea(const char* xNombre, const QString& xValor) {
    modLineasContenido::Linea(mTexto, QLatin1StringView(xNombre), xValor);
}

QByteArray clsEscritorICalendar::Terminar() {
    Linea("END", QStringLiteral("VCALENDAR"));
    return std::exchange(mTexto, QByteArray());
}

void clsEscritorICalendar::Comunes(const RegistroPalm& xRegistro, const QString& xResumen) {
    Linea("UID", mPrefijoUID + QString::number(xRegistro.ID));
    Linea("DTSTAMP", mSello);
    Linea("SUMMARY", Escapar(xResumen));
}

void clsEscritorICalendar::Privacidad(const clsDecodificadorEstandar& xDecodificador,
                                      const RegistroPalm& xRegistro, const QString& xNota) {
    if (!xNota.isEmpty()) Linea("DESCRIPTION", Escapar(xNota));
    if (xRegistro.Categoria != 0 && !xDecodificador.Categoria(xRegistro).isEmpty())
        Linea("CATEGORIES", Escapar(xDecodificador.Categoria(xRegistro)));
    if (clsDecodificadorEstandar::Privado(xRegistro)) Linea("CLASS", QStringLiteral("PRIVATE"));
}

QString clsEscritorICalendar::ReglaRepeticion(const CitaPalm& xCita) {
    static const char* const frecuencias[] = {"",        "DAILY",   "WEEKLY",
                                              "MONTHLY", "MONTHLY", "YEARLY"};
    if (xCita.Repetir == CitaPalm::Ninguna) return QString();
    QString regla = QStringLiteral("FREQ=") + QLatin1String(frecuencias[xCita.Repetir]);
    if (xCita.Frecuencia > 1) regla += QStringLiteral(";INTERVAL=%1").arg(xCita.Frecuencia);
    if (xCita.Repetir == CitaPalm::Semanal && xCita.DiasSemana != 0) {
        QStringList dias;
        for (int dia = 0; dia < 7; ++dia)
            if (xCita.DiasSemana & (1 << dia)) dias << QLatin1String(DiasICalendar[dia]);
        regla += QStringLiteral(";BYDAY=") + dias.join(QLatin1Char(','));
    }
    if (xCita.Repetir == CitaPalm::MensualPorDia) {
        const int semana =
            xCita.SemanaDelMes == CitaPalm::UltimaSemana ? -1 : xCita.SemanaDelMes + 1;
        regla +=
            QStringLiteral(";BYDAY=%1").arg(semana) + QLatin1String(DiasICalendar[xCita.DiaSemana]);
    }
    if (xCita.FinRepeticion.isValid())
        regla += QStringLiteral(";UNTIL=") + TextoComoInicio(xCita, xCita.FinRepeticion);
    // Weeks that count every other (or more) week begin on the handheld's first day.
    if (xCita.Repetir == CitaPalm::Semanal)
        regla += QStringLiteral(";WKST=") + QLatin1String(DiasICalendar[xCita.InicioSemana % 7]);
    return regla;
}

void clsEscritorICalendar::AgregarCita(const clsDecodificadorAgenda& xDecodificador,
                                       const RegistroPalm& xRegistro) {
    const CitaPalm cita = xDecodificador.Cita(xRegistro);
    const QDate dia = cita.Repetir == CitaPalm::Semanal ? PrimerDiaSemanal(cita) : cita.Dia;
    Linea("BEGIN", QStringLiteral("VEVENT"));
    Comunes(xRegistro, cita.Descripcion);
    if (cita.SinHora) {
        Linea("DTSTART;VALUE=DATE", TextoDia(dia));
        Linea("DTEND;VALUE=DATE", TextoDia(dia.addDays(1)));
    } else {
        Linea("DTSTART", TextoDiaHora(dia, cita.Inicio));
        // An end that is not after the start leaves the event without length.
        if (cita.Fin > cita.Inicio) Linea("DTEND", TextoDiaHora(dia, cita.Fin));
    }
    const QString regla = ReglaRepeticion(cita);
    if (!regla.isEmpty()) Linea("RRULE", regla);
    if (!cita.Excepciones.isEmpty()) {
        QStringList dias;
        for (const QDate& excepcion : cita.Excepciones)
            dias << TextoComoInicio(cita, excepcion);
        Linea(cita.SinHora ? "EXDATE;VALUE=DATE" : "EXDATE", dias.join(QLatin1Char(',')));
    }
    Privacidad(xDecodificador, xRegistro, cita.Nota);
    if (cita.ConAlarma) Alarma(cita, cita.Descripcion);
    Linea("END", QStringLiteral("VEVENT"));
}

void clsEscritorICalendar::Alarma(const CitaPalm& xCita, const QString& xResumen) {
    Linea("BEGIN", QStringLiteral("VALARM"));
    Linea("ACTION", QStringLiteral("DISPLAY"));
    Linea("DESCRIPTION", Escapar(xResumen));
    Linea("TRIGGER", Disparo(xCita));
    Linea("END", QStringLiteral("VALARM"));
}

void clsEscritorICalendar::AgregarTarea(const clsDecodificadorTareas& xDecodificador,
                                        const RegistroPalm& xRegistro) {
    const TareaPalm tarea = xDecodificador.Tarea(xRegistro);
    Linea("BEGIN", QStringLiteral("VTODO"));
    Comunes(xRegistro, tarea.Descripcion);
    if (tarea.Vence.isValid()) Linea("DUE;VALUE=DATE", TextoDia(tarea.Vence));
    // The handheld's 1 (highest) to 5 spread over iCalendar's 1 to 9.
    if (tarea.Prioridad >= 1 && tarea.Prioridad <= 5)
        Linea("PRIORITY", QString::number(2 * tarea.Prioridad - 1));
    Linea("STATUS",
          tarea.Completada ? QStringLiteral("COMPLETED") : QStringLiteral("NEEDS-ACTION"));
    if (tarea.Completada) Linea("PERCENT-COMPLETE", QStringLiteral("100"));
    Privacidad(xDecodificador, xRegistro, tarea.Nota);
    Linea("END", QStringLiteral("VTODO"));
}
