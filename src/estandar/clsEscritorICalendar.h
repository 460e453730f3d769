#pragma once

#include "estandar/clsDecodificadorAgenda.h"
#include "estandar/clsDecodificadorTareas.h"

#include <QByteArray>
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
    // moment the file is made (DTSTAMP).
    clsEscritorICalendar(QString xPrefijoUID, const QDateTime& xSello);

    void AgregarCita(const clsDecodificadorAgenda& xDecodificador, const RegistroPalm& xRegistro);
    void AgregarTarea(const clsDecodificadorTareas& xDecodificador, const RegistroPalm& xRegistro);
    // The whole file.
    QByteArray Terminar();

    // The RRULE value of a repeating appointment ("" for none).
    static QString ReglaRepeticion(const CitaPalm& xCita);

private:
    void Comunes(const RegistroPalm& xRegistro, const QString& xResumen);
    void Privacidad(const clsDecodificadorEstandar& xDecodificador, const RegistroPalm& xRegistro,
                    const QString& xNota);
    void Alarma(const CitaPalm& xCita, const QString& xResumen);
    void Linea(const char* xNombre, const QString& xValor);

    QString mPrefijoUID;
    QString mSello;
    QByteArray mTexto;
};
