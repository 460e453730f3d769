#include "estandar/clsDecodificadorAgenda.h"

#include "data/formato/clsLectorBytes.h"

namespace {

constexpr qsizetype PosicionInicioSemana = 278;
constexpr quint8 SinHora = 0xFF;

// The flags of the high byte of the flags word.
constexpr quint16 ConAlarma = 0x4000;
constexpr quint16 ConRepeticion = 0x2000;
constexpr quint16 ConNota = 0x1000;
constexpr quint16 ConExcepciones = 0x0800;
constexpr quint16 ConDescripcion = 0x0400;

const char* const DiasSemana[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

} // namespace

clsDecodificadorAgenda::clsDecodificadorAgenda(QByteArrayView xAppInfo, const Contexto& xContexto)
    : clsDecodificadorEstandar(ClaseEstandar::Agenda, xContexto,
                               {{QStringLiteral("Description"), QStringLiteral("String")},
                                {QStringLiteral("Start"), QStringLiteral("Date")},
                                {QStringLiteral("End"), QStringLiteral("Date")},
                                {QStringLiteral("Untimed"), QStringLiteral("Boolean")},
                                {QStringLiteral("Alarm"), QStringLiteral("Int")},
                                {QStringLiteral("Alarm Unit"), QStringLiteral("String")},
                                {QStringLiteral("Repeat"), QStringLiteral("String")},
                                {QStringLiteral("Repeat Every"), QStringLiteral("Byte")},
                                {QStringLiteral("Repeat On"), QStringLiteral("String")},
                                {QStringLiteral("Repeat End"), QStringLiteral("Date")},
                                {QStringLiteral("Exceptions"), QStringLiteral("String")},
                                {QStringLiteral("Note"), QStringLiteral("String")}}) {
    clsLectorBytes lector(xAppInfo);
    if (lector.IrA(PosicionInicioSemana)) (void)lector.LeerU8(mAjustes.InicioSemana);
}

QString clsDecodificadorAgenda::NombreRepeticion(quint8 xRepetir) {
    static const char* const nombres[] = {
        "", "Daily", "Weekly", "Monthly by Day", "Monthly by Date", "Yearly"};
    return xRepetir <= CitaPalm::Anual ? QLatin1String(nombres[xRepetir]) : QString();
}

QString clsDecodificadorAgenda::TextoDiasRepeticion(const CitaPalm& xCita) {
    if (xCita.Repetir == CitaPalm::MensualPorDia) {
        static const char* const semanas[] = {"1st", "2nd", "3rd", "4th", "Last"};
        return QLatin1String(semanas[xCita.SemanaDelMes]) + QLatin1Char(' ') +
               QLatin1String(DiasSemana[xCita.DiaSemana]);
    }
    if (xCita.Repetir != CitaPalm::Semanal) return QString();
    QStringList dias;
    for (int dia = 0; dia < 7; ++dia)
        if (xCita.DiasSemana & (1 << dia)) dias << QLatin1String(DiasSemana[dia]);
    return dias.join(QLatin1Char(' '));
}

void clsDecodificadorAgenda::LeerHoras(clsLectorBytes& xLector, const RegistroPalm& xRegistro,
                                       CitaPalm& xCita) const {
    quint8 horaInicio = 0, minutoInicio = 0, horaFin = 0, minutoFin = 0;
    quint16 dia = 0;
    if (!xLector.LeerU8(horaInicio) || !xLector.LeerU8(minutoInicio) || !xLector.LeerU8(horaFin) ||
        !xLector.LeerU8(minutoFin) || !xLector.LeerU16(dia))
        Danado(xRegistro, QStringLiteral("it is too short for an appointment"));
    xCita.Dia = Dia(dia, xRegistro, "day");
    xCita.SinHora = horaInicio == SinHora && minutoInicio == SinHora;
    if (xCita.SinHora) return;
    xCita.Inicio = QTime(horaInicio, minutoInicio);
    xCita.Fin = QTime(horaFin, minutoFin);
    if (!xCita.Inicio.isValid() || !xCita.Fin.isValid())
        Danado(xRegistro, QStringLiteral("its time %1:%2 to %3:%4 is no time of the day")
                              .arg(horaInicio)
                              .arg(minutoInicio)
                              .arg(horaFin)
                              .arg(minutoFin));
}

void clsDecodificadorAgenda::LeerRepeticion(clsLectorBytes& xLector, const RegistroPalm& xRegistro,
                                            CitaPalm& xCita) const {
    quint8 tipo = 0, frecuencia = 0, en = 0, inicioSemana = 0;
    quint16 fin = 0;
    if (!xLector.LeerU8(tipo) || !xLector.Saltar(1) || !xLector.LeerU16(fin) ||
        !xLector.LeerU8(frecuencia) || !xLector.LeerU8(en) || !xLector.LeerU8(inicioSemana) ||
        !xLector.Saltar(1))
        Danado(xRegistro, QStringLiteral("its repeat runs past the end of the record"));
    if (tipo > CitaPalm::Anual)
        Danado(xRegistro, QStringLiteral("its repeat type %1 is out of range").arg(tipo));
    xCita.Repetir = tipo;
    if (fin != SinDia) xCita.FinRepeticion = Dia(fin, xRegistro, "repeat end");
    // Every 0 is every 1: each occurrence.
    xCita.Frecuencia = qMax<quint8>(frecuencia, 1);
    xCita.InicioSemana = inicioSemana;
    if (tipo == CitaPalm::Semanal) xCita.DiasSemana = en & 0x7F;
    if (tipo != CitaPalm::MensualPorDia) return;
    if (en / 7 > CitaPalm::UltimaSemana)
        Danado(xRegistro, QStringLiteral("its monthly repeat day %1 is out of range").arg(en));
    xCita.SemanaDelMes = en / 7;
    xCita.DiaSemana = en % 7;
}

void clsDecodificadorAgenda::LeerExcepciones(clsLectorBytes& xLector, const RegistroPalm& xRegistro,
                                             CitaPalm& xCita) const {
    quint16 cantidad = 0;
    if (!xLector.LeerU16(cantidad) || xLector.Restantes() < 2 * qsizetype(cantidad))
        Danado(xRegistro, QStringLiteral("its exceptions run past the end of the record"));
    xCita.Excepciones.reserve(cantidad);
    for (quint16 k = 0; k < cantidad; ++k) {
        quint16 dia = 0;
        (void)xLector.LeerU16(dia); // the count was checked against the bytes left
        xCita.Excepciones.append(Dia(dia, xRegistro, "exception"));
    }
}

CitaPalm clsDecodificadorAgenda::Cita(const RegistroPalm& xRegistro) const {
    clsLectorBytes lector(xRegistro.Bytes);
    CitaPalm cita;
    LeerHoras(lector, xRegistro, cita);
    quint16 marcas = 0;
    if (!lector.LeerU16(marcas))
        Danado(xRegistro, QStringLiteral("it is too short for an appointment"));
    if (marcas & ConAlarma) {
        quint8 anticipo = 0;
        if (!lector.LeerU8(anticipo) || !lector.LeerU8(cita.UnidadAlarma))
            Danado(xRegistro, QStringLiteral("its alarm runs past the end of the record"));
        if (cita.UnidadAlarma > CitaPalm::Dias)
            Danado(xRegistro,
                   QStringLiteral("its alarm unit %1 is out of range").arg(cita.UnidadAlarma));
        cita.ConAlarma = true;
        cita.Anticipo = static_cast<qint8>(anticipo);
    }
    if (marcas & ConRepeticion) LeerRepeticion(lector, xRegistro, cita);
    if (marcas & ConExcepciones) LeerExcepciones(lector, xRegistro, cita);
    if (marcas & ConDescripcion)
        cita.Descripcion = Texto(TramoTerminado(lector, xRegistro, "description"));
    if (marcas & ConNota) cita.Nota = Texto(TramoTerminado(lector, xRegistro, "note"));
    return cita;
}

void clsDecodificadorAgenda::ValoresPropios(const RegistroPalm& xRegistro,
                                            QVariantList& xValores) const {
    const CitaPalm c = Cita(xRegistro);
    const auto opcional = [&xValores](bool xHay, const QVariant& xValor) {
        xValores.append(xHay ? xValor : QVariant());
    };
    xValores.append(c.Descripcion);
    xValores.append(c.SinHora ? QVariant(c.Dia) : QVariant(QDateTime(c.Dia, c.Inicio)));
    opcional(!c.SinHora, QDateTime(c.Dia, c.Fin));
    xValores.append(c.SinHora);
    static const char* const unidades[] = {"Minutes", "Hours", "Days"};
    opcional(c.ConAlarma, int(c.Anticipo));
    opcional(c.ConAlarma, QLatin1String(unidades[c.UnidadAlarma]));
    const bool repite = c.Repetir != CitaPalm::Ninguna;
    opcional(repite, NombreRepeticion(c.Repetir));
    opcional(repite, int(c.Frecuencia));
    const QString dias = TextoDiasRepeticion(c);
    opcional(!dias.isEmpty(), dias);
    opcional(repite && c.FinRepeticion.isValid(), c.FinRepeticion);
    QVariantList excepciones;
    for (const QDate& dia : c.Excepciones)
        excepciones.append(dia);
    opcional(!excepciones.isEmpty(), excepciones);
    xValores.append(c.Nota);
}
