#include "constructor/clsConstructorEstandar.h"

#include <stdexcept>

namespace {

constexpr int TamanoCategorias = 276;

void AgregarU16(QByteArray& xDestino, quint16 xValor) {
    xDestino.append(char(xValor >> 8)).append(char(xValor & 0xFF));
}

void AgregarU32(QByteArray& xDestino, quint32 xValor) {
    AgregarU16(xDestino, quint16(xValor >> 16));
    AgregarU16(xDestino, quint16(xValor & 0xFFFF));
}

struct Identidad {
    const char* Nombre;
    const char* Creador;
};

Identidad IdentidadDe(ClaseEstandar xClase) {
    switch (xClase) {
    case ClaseEstandar::Memos:
        return {"MemoDB", "memo"};
    case ClaseEstandar::Tareas:
        return {"ToDoDB", "todo"};
    case ClaseEstandar::Direcciones:
        return {"AddressDB", "addr"};
    case ClaseEstandar::Agenda:
        return {"DatebookDB", "date"};
    case ClaseEstandar::Ninguna:
        break;
    }
    throw std::invalid_argument("no standard database of that kind");
}

} // namespace

clsConstructorEstandar::clsConstructorEstandar(ClaseEstandar xClase, const QString& xCodigoPagina)
    : clsConstructorBase(QLatin1String(IdentidadDe(xClase).Nombre), QStringLiteral("DATA"),
                         QLatin1String(IdentidadDe(xClase).Creador), xCodigoPagina),
      mPagina(xCodigoPagina) {
    Categorias({QStringLiteral("Unfiled")});
}

quint16 clsConstructorEstandar::DiaEmpaquetado(const QDate& xDia) {
    if (!xDia.isValid()) return 0xFFFF;
    return quint16(((xDia.year() - 1904) << 9) | (xDia.month() << 5) | xDia.day());
}

QByteArray& clsConstructorEstandar::BloqueTrasCategorias() {
    QByteArray& bloque = Archivo().AppInfo;
    bloque.resize(TamanoCategorias, '\0');
    return bloque;
}

void clsConstructorEstandar::AjustesDirecciones(const QStringList& xEtiquetas, quint8 xPais,
                                                bool xOrdenPorEmpresa) {
    QByteArray& bloque = BloqueTrasCategorias();
    AgregarU16(bloque, 0);
    AgregarU32(bloque, 0);
    for (int k = 0; k < AjustesDirecciones::CantidadEtiquetas; ++k) {
        const QByteArray etiqueta =
            k < xEtiquetas.size() ? Texto(xEtiquetas[k], mPagina).left(15) : QByteArray();
        bloque.append(etiqueta).append(QByteArray(16 - etiqueta.size(), '\0'));
    }
    bloque.append(char(xPais)).append('\0').append(char(xOrdenPorEmpresa ? 1 : 0)).append('\0');
}

void clsConstructorEstandar::AjustesAgenda(quint8 xInicioSemana) {
    BloqueTrasCategorias().append(QByteArray(2, '\0')).append(char(xInicioSemana)).append('\0');
}

void clsConstructorEstandar::AjustesTareas(quint16 xModificados, quint8 xOrden) {
    QByteArray& bloque = BloqueTrasCategorias();
    AgregarU16(bloque, 0);
    AgregarU16(bloque, xModificados);
    bloque.append(char(xOrden)).append('\0');
}

void clsConstructorEstandar::AjustesMemos(bool xOrdenAlfabetico) {
    BloqueTrasCategorias().append(QByteArray(4, '\0')).append(char(xOrdenAlfabetico)).append('\0');
}

void clsConstructorEstandar::AgregarContacto(const ContactoPalm& xContacto, qint32 xAtributos,
                                             qint32 xCategoria) {
    quint32 etiquetas = quint32(xContacto.TelefonoMostrado & 0x0F) << 20;
    for (int k = 0; k < ContactoPalm::CantidadTelefonos; ++k)
        etiquetas |= quint32(xContacto.Etiquetas[k] & 0x0F) << (4 * k);
    const QString lecturas[] = {xContacto.LecturaApellido, xContacto.LecturaNombre,
                                xContacto.LecturaEmpresa};
    quint32 presentes = 0;
    QByteArray textos;
    quint8 desplazamientoEmpresa = 0;
    for (int k = 0; k < ContactoPalm::CantidadTextos; ++k) {
        QByteArray texto = Texto(xContacto.Textos[k], mPagina);
        if (k <= ContactoPalm::Empresa && !lecturas[k].isEmpty())
            texto.append('\x01').append(Texto(lecturas[k], mPagina));
        if (texto.isEmpty()) continue;
        if (k == ContactoPalm::Empresa) desplazamientoEmpresa = quint8(textos.size() + 1);
        presentes |= 1u << k;
        textos.append(texto).append('\0');
    }
    QByteArray registro;
    AgregarU32(registro, etiquetas);
    AgregarU32(registro, presentes);
    registro.append(char(desplazamientoEmpresa)).append(textos);
    AgregarRegistroCrudo(registro, xAtributos, xCategoria);
}

void clsConstructorEstandar::AgregarCita(const CitaPalm& xCita, qint32 xAtributos, quint8 xMarcas) {
    QByteArray registro;
    const auto hora = [&registro, &xCita](const QTime& xHora) {
        registro.append(char(xCita.SinHora ? 0xFF : xHora.hour()))
            .append(char(xCita.SinHora ? 0xFF : xHora.minute()));
    };
    hora(xCita.Inicio);
    hora(xCita.Fin);
    AgregarU16(registro, DiaEmpaquetado(xCita.Dia));
    const quint16 marcas =
        (xCita.ConAlarma ? 0x4000 : 0) | (xCita.Repetir != CitaPalm::Ninguna ? 0x2000 : 0) |
        (!xCita.Nota.isEmpty() ? 0x1000 : 0) | (!xCita.Excepciones.isEmpty() ? 0x0800 : 0) |
        (!xCita.Descripcion.isEmpty() ? 0x0400 : 0) | xMarcas;
    AgregarU16(registro, marcas);
    if (xCita.ConAlarma) registro.append(char(xCita.Anticipo)).append(char(xCita.UnidadAlarma));
    if (xCita.Repetir != CitaPalm::Ninguna) {
        registro.append(char(xCita.Repetir)).append('\0');
        AgregarU16(registro, DiaEmpaquetado(xCita.FinRepeticion));
        const quint8 en = xCita.Repetir == CitaPalm::Semanal ? xCita.DiasSemana
                          : xCita.Repetir == CitaPalm::MensualPorDia
                              ? quint8(xCita.SemanaDelMes * 7 + xCita.DiaSemana)
                              : 0;
        registro.append(char(xCita.Frecuencia)).append(char(en)).append(char(xCita.InicioSemana));
        registro.append('\0');
    }
    if (!xCita.Excepciones.isEmpty()) {
        AgregarU16(registro, quint16(xCita.Excepciones.size()));
        for (const QDate& dia : xCita.Excepciones)
            AgregarU16(registro, DiaEmpaquetado(dia));
    }
    if (!xCita.Descripcion.isEmpty())
        registro.append(Texto(xCita.Descripcion, mPagina)).append('\0');
    if (!xCita.Nota.isEmpty()) registro.append(Texto(xCita.Nota, mPagina)).append('\0');
    AgregarRegistroCrudo(registro, xAtributos, 0);
}

void clsConstructorEstandar::AgregarTarea(const TareaPalm& xTarea, qint32 xAtributos,
                                          qint32 xCategoria) {
    QByteArray registro;
    AgregarU16(registro, DiaEmpaquetado(xTarea.Vence));
    registro.append(char(xTarea.Prioridad | (xTarea.Completada ? 0x80 : 0)));
    registro.append(Texto(xTarea.Descripcion, mPagina)).append('\0');
    registro.append(Texto(xTarea.Nota, mPagina)).append('\0');
    AgregarRegistroCrudo(registro, xAtributos, xCategoria);
}

void clsConstructorEstandar::AgregarMemo(const QString& xTexto, qint32 xAtributos,
                                         qint32 xCategoria) {
    AgregarRegistroCrudo(Texto(xTexto, mPagina).append('\0'), xAtributos, xCategoria);
}
