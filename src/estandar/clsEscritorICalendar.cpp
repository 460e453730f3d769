#include "estandar/clsEscritorICalendar.h"

#include <utility>

namespace {

const char* const DiasICalendar[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};

// The first day on or after the appointment's day that a weekly repeat falls on: a start that
// is no occurrence leaves a calendar's reading of the rule undefined.
QDate PrimerDiaSemanal(const CitaPalm& xCita) {
    QDate dia = xCita.Dia;
    for (int k = 0; k < 7 && xCita.DiasSemana != 0; ++k, dia = dia.addDays(1))
        if (xCita.DiasSemana & (1 << (dia.dayOfWeek() % 7))) return dia;
    return xCita.Dia;
}

} // namespace

clsEscritorICalendar::clsEscritorICalendar(QString xPrefijoUID, const QDateTime& xSello,
                                           qsizetype xCapacidad)
    : mPrefijoUID(std::move(xPrefijoUID)),
      mSello(xSello.toUTC().toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'")).toLatin1()),
      mLineas(xCapacidad) {
    mLineas.Linea("BEGIN", "VCALENDAR");
    mLineas.Linea("VERSION", "2.0");
    mLineas.Linea("PRODID", "-//Pandrel//Palm Date Book and To Do List//EN");
    mLineas.Linea("CALSCALE", "GREGORIAN");
}

QByteArrayView clsEscritorICalendar::Terminar() {
    mLineas.Linea("END", "VCALENDAR");
    return mLineas.Bytes();
}

void clsEscritorICalendar::Comunes(const RegistroPalm& xRegistro, const QString& xResumen) {
    mLineas.Empezar("UID");
    mLineas.Texto(mPrefijoUID);
    mLineas.Numero(xRegistro.ID);
    mLineas.Terminar();
    mLineas.Linea("DTSTAMP", mSello.constData());
    mLineas.LineaTexto("SUMMARY", xResumen);
}

void clsEscritorICalendar::Privacidad(const clsDecodificadorEstandar& xDecodificador,
                                      const RegistroPalm& xRegistro, const QString& xNota) {
    if (!xNota.isEmpty()) mLineas.LineaTexto("DESCRIPTION", xNota);
    if (xRegistro.Categoria != 0 && !xDecodificador.Categoria(xRegistro).isEmpty())
        mLineas.LineaTexto("CATEGORIES", xDecodificador.Categoria(xRegistro));
    if (clsDecodificadorEstandar::Privado(xRegistro)) mLineas.Linea("CLASS", "PRIVATE");
}

void clsEscritorICalendar::ComoInicio(const CitaPalm& xCita, const QDate& xDia) {
    if (xCita.SinHora)
        mLineas.Dia(xDia);
    else
        mLineas.DiaHora(xDia, xCita.Inicio);
}

void clsEscritorICalendar::Repeticion(const CitaPalm& xCita) {
    static const char* const frecuencias[] = {"",        "DAILY",   "WEEKLY",
                                              "MONTHLY", "MONTHLY", "YEARLY"};
    if (xCita.Repetir == CitaPalm::Ninguna) return;
    mLineas.Empezar("RRULE");
    mLineas.Literal("FREQ=");
    mLineas.Literal(frecuencias[xCita.Repetir]);
    if (xCita.Frecuencia > 1) {
        mLineas.Literal(";INTERVAL=");
        mLineas.Numero(xCita.Frecuencia);
    }
    if (xCita.Repetir == CitaPalm::Semanal && xCita.DiasSemana != 0) {
        const char* separador = ";BYDAY=";
        for (int dia = 0; dia < 7; ++dia) {
            if (!(xCita.DiasSemana & (1 << dia))) continue;
            mLineas.Literal(separador);
            mLineas.Literal(DiasICalendar[dia]);
            separador = ",";
        }
    }
    if (xCita.Repetir == CitaPalm::MensualPorDia) {
        mLineas.Literal(";BYDAY=");
        mLineas.Numero(xCita.SemanaDelMes == CitaPalm::UltimaSemana ? -1 : xCita.SemanaDelMes + 1);
        mLineas.Literal(DiasICalendar[xCita.DiaSemana]);
    }
    if (xCita.FinRepeticion.isValid()) {
        mLineas.Literal(";UNTIL=");
        ComoInicio(xCita, xCita.FinRepeticion);
    }
    // Weeks that count every other (or more) week begin on the handheld's first day.
    if (xCita.Repetir == CitaPalm::Semanal) {
        mLineas.Literal(";WKST=");
        mLineas.Literal(DiasICalendar[xCita.InicioSemana % 7]);
    }
    mLineas.Terminar();
}

void clsEscritorICalendar::Excepciones(const CitaPalm& xCita) {
    if (xCita.Excepciones.isEmpty()) return;
    mLineas.Empezar(xCita.SinHora ? "EXDATE;VALUE=DATE" : "EXDATE");
    for (qsizetype k = 0; k < xCita.Excepciones.size(); ++k) {
        if (k > 0) mLineas.Literal(",");
        ComoInicio(xCita, xCita.Excepciones[k]);
    }
    mLineas.Terminar();
}

void clsEscritorICalendar::AgregarCita(const clsDecodificadorAgenda& xDecodificador,
                                       const RegistroPalm& xRegistro) {
    const CitaPalm cita = xDecodificador.Cita(xRegistro);
    const QDate dia = cita.Repetir == CitaPalm::Semanal ? PrimerDiaSemanal(cita) : cita.Dia;
    mLineas.Linea("BEGIN", "VEVENT");
    Comunes(xRegistro, cita.Descripcion);
    if (cita.SinHora) {
        mLineas.Empezar("DTSTART;VALUE=DATE");
        mLineas.Dia(dia);
        mLineas.Terminar();
        mLineas.Empezar("DTEND;VALUE=DATE");
        mLineas.Dia(dia.addDays(1));
        mLineas.Terminar();
    } else {
        mLineas.Empezar("DTSTART");
        mLineas.DiaHora(dia, cita.Inicio);
        mLineas.Terminar();
        // An end that is not after the start leaves the event without length.
        if (cita.Fin > cita.Inicio) {
            mLineas.Empezar("DTEND");
            mLineas.DiaHora(dia, cita.Fin);
            mLineas.Terminar();
        }
    }
    Repeticion(cita);
    Excepciones(cita);
    Privacidad(xDecodificador, xRegistro, cita.Nota);
    if (cita.ConAlarma) Alarma(cita);
    mLineas.Linea("END", "VEVENT");
}

// How long before the start, as a duration: -PT15M, -PT2H, -P1D (after the start: no minus).
void clsEscritorICalendar::Alarma(const CitaPalm& xCita) {
    static const char* const unidades[] = {"M", "H", "D"};
    mLineas.Linea("BEGIN", "VALARM");
    mLineas.Linea("ACTION", "DISPLAY");
    mLineas.LineaTexto("DESCRIPTION", xCita.Descripcion);
    mLineas.Empezar("TRIGGER");
    mLineas.Literal(xCita.Anticipo > 0 ? "-P" : "P");
    if (xCita.UnidadAlarma != CitaPalm::Dias) mLineas.Literal("T");
    mLineas.Numero(qAbs(int(xCita.Anticipo)));
    mLineas.Literal(unidades[xCita.UnidadAlarma]);
    mLineas.Terminar();
    mLineas.Linea("END", "VALARM");
}

void clsEscritorICalendar::AgregarTarea(const clsDecodificadorTareas& xDecodificador,
                                        const RegistroPalm& xRegistro) {
    const TareaPalm tarea = xDecodificador.Tarea(xRegistro);
    mLineas.Linea("BEGIN", "VTODO");
    Comunes(xRegistro, tarea.Descripcion);
    if (tarea.Vence.isValid()) {
        mLineas.Empezar("DUE;VALUE=DATE");
        mLineas.Dia(tarea.Vence);
        mLineas.Terminar();
    }
    // The handheld's 1 (highest) to 5 spread over iCalendar's 1 to 9.
    if (tarea.Prioridad >= 1 && tarea.Prioridad <= 5) {
        mLineas.Empezar("PRIORITY");
        mLineas.Numero(2 * tarea.Prioridad - 1);
        mLineas.Terminar();
    }
    mLineas.Linea("STATUS", tarea.Completada ? "COMPLETED" : "NEEDS-ACTION");
    if (tarea.Completada) mLineas.Linea("PERCENT-COMPLETE", "100");
    Privacidad(xDecodificador, xRegistro, tarea.Nota);
    mLineas.Linea("END", "VTODO");
}
