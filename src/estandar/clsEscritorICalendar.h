#pragma once

#include "estandar/clsDecodificadorAgenda.h"
#include "estandar/clsDecodificadorTareas.h"
#include "estandar/clsLineasContenido.h"

#include <QByteArrayView>
#include <QDateTime>
#include <QString>

// Appointments and to-dos as an iCalendar 2.0 file (RFC 5545). Appointments are VEVENTs in
// floating local time, as the handheld keeps them: an untimed one a whole day (VALUE=DATE, its
// end the day after), a repeat an RRULE whose UNTIL has the start's value type, exceptions
// EXDATEs of that type too, the alarm a VALARM, the note the description. To-dos are VTODOs
// with their due day, priority, completion and note. Categories and private marks go along.
class clsEscritorICalendar {
public:
    // Each component's UID is xPrefijoUID followed by the record's unique ID; xSello is the
    // moment the file is made (DTSTAMP); xCapacidad is about how many octets the file will take.
    clsEscritorICalendar(QString xPrefijoUID, const QDateTime& xSello,
                         qsizetype xCapacidad = 64 * 1024);

    void AgregarCita(const clsDecodificadorAgenda& xDecodificador, const RegistroPalm& xRegistro);
    void AgregarTarea(const clsDecodificadorTareas& xDecodificador, const RegistroPalm& xRegistro);
    // The whole file, once ended.
    QByteArrayView Terminar();

private:
    void Comunes(const RegistroPalm& xRegistro, const QString& xResumen);
    void Privacidad(const clsDecodificadorEstandar& xDecodificador, const RegistroPalm& xRegistro,
                    const QString& xNota);
    void Repeticion(const CitaPalm& xCita);
    void Excepciones(const CitaPalm& xCita);
    void Alarma(const CitaPalm& xCita);
    // The day, with the appointment's start time for a timed one.
    void ComoInicio(const CitaPalm& xCita, const QDate& xDia);

    QString mPrefijoUID;
    QByteArray mSello; // the DTSTAMP value
    clsLineasContenido mLineas;
};
