#pragma once

#include "estandar/clsDecodificadorEstandar.h"

#include <QTime>
#include <QVector>

// One appointment of the Date Book, in the handheld's local time.
struct CitaPalm {
    enum Repeticion : quint8 { Ninguna, Diaria, Semanal, MensualPorDia, MensualPorFecha, Anual };
    enum Unidad : quint8 { Minutos, Horas, Dias };
    // The week of the month of a monthly repeat by day that stands for the last one, be it the
    // fourth or the fifth.
    static constexpr quint8 UltimaSemana = 4;

    QDate Dia;
    bool SinHora = false; // an untimed event takes the whole day
    QTime Inicio;         // both invalid for an untimed event
    QTime Fin;
    bool ConAlarma = false;
    qint8 Anticipo = 0; // how long before the start the alarm sounds, in Unidad
    quint8 UnidadAlarma = Minutos;
    quint8 Repetir = Ninguna;
    QDate FinRepeticion; // invalid: the repeat has no end
    quint8 Frecuencia = 1;
    quint8 DiasSemana = 0;   // weekly: bit 0 Sunday to bit 6 Saturday
    quint8 SemanaDelMes = 0; // monthly by day: 0 to 3 the first to the fourth week, 4 the last
    quint8 DiaSemana = 0;    // monthly by day: 0 Sunday to 6 Saturday
    quint8 InicioSemana = 0; // weekly: the first day of the week the repeat counts by
    QVector<QDate> Excepciones;
    QString Descripcion;
    QString Nota;
};

// The Date Book's settings: after the category block, 2 reserved bytes and the first day of the
// week at 278 (0 Sunday, 1 Monday).
struct AjustesAgenda {
    quint8 InicioSemana = 0;
};

// Date Book (date/DATA, "DatebookDB"): a record is the start and end hour and minute (all 0xFF
// for an untimed event), the day packed in 16 bits and a 16-bit word of flags whose high byte
// tells which parts follow (alarm 0x40, repeat 0x20, note 0x10, exceptions 0x08, description
// 0x04; the low byte carries junk on real handhelds): the alarm's advance and unit, the repeat
// (type, a reserved byte, end day, frequency, the days it repeats on, the week's first day, a
// reserved byte), the exceptions (a count and as many packed days), the description and the note.
class clsDecodificadorAgenda : public clsDecodificadorEstandar {
public:
    clsDecodificadorAgenda(QByteArrayView xAppInfo, const Contexto& xContexto);

    CitaPalm Cita(const RegistroPalm& xRegistro) const;
    const AjustesAgenda& Ajustes() const { return mAjustes; }

    // "Daily", "Weekly", ... for a repeat type, "" for none.
    static QString NombreRepeticion(quint8 xRepetir);
    // The days a repeat falls on: "Mon Wed" for a weekly one, "2nd Tue" or "Last Fri" for a
    // monthly one by day, "" for the others.
    static QString TextoDiasRepeticion(const CitaPalm& xCita);

protected:
    void ValoresPropios(const RegistroPalm& xRegistro, QVariantList& xValores) const override;

private:
    void LeerHoras(clsLectorBytes& xLector, const RegistroPalm& xRegistro, CitaPalm& xCita) const;
    void LeerRepeticion(clsLectorBytes& xLector, const RegistroPalm& xRegistro,
                        CitaPalm& xCita) const;
    void LeerExcepciones(clsLectorBytes& xLector, const RegistroPalm& xRegistro,
                         CitaPalm& xCita) const;

    AjustesAgenda mAjustes;
};
