#pragma once

#include "constructor/clsConstructorBase.h"
#include "estandar/clsDecodificadorAgenda.h"
#include "estandar/clsDecodificadorDirecciones.h"
#include "estandar/clsDecodificadorTareas.h"

// Builds the databases of the handheld's built-in applications as the handheld writes them: the
// usual name, creator and type of the kind, the category block and the kind's settings in the
// AppInfo block, and records laid out as the decoders read them. Set the categories before the
// settings.
class clsConstructorEstandar : public clsConstructorBase {
public:
    explicit clsConstructorEstandar(ClaseEstandar xClase,
                                    const QString& xCodigoPagina = QStringLiteral("windows-1252"));

    // xEtiquetas: the 22 labels, an empty one left as the handheld's usual name.
    void AjustesDirecciones(const QStringList& xEtiquetas, quint8 xPais, bool xOrdenPorEmpresa);
    void AjustesAgenda(quint8 xInicioSemana);
    void AjustesTareas(quint16 xModificados, quint8 xOrden);
    void AjustesMemos(bool xOrdenAlfabetico);

    // A Japanese name's reading goes after a 0x01 byte.
    void AgregarContacto(const ContactoPalm& xContacto, qint32 xAtributos = 0,
                         qint32 xCategoria = 0);
    // xMarcas: the flags word's low byte, which handhelds fill with junk.
    void AgregarCita(const CitaPalm& xCita, qint32 xAtributos = 0, quint8 xMarcas = 0);
    void AgregarTarea(const TareaPalm& xTarea, qint32 xAtributos = 0, qint32 xCategoria = 0);
    void AgregarMemo(const QString& xTexto, qint32 xAtributos = 0, qint32 xCategoria = 0);

    static quint16 DiaEmpaquetado(const QDate& xDia);

private:
    // The AppInfo block cut back to its category block, for the settings that follow it.
    QByteArray& BloqueTrasCategorias();

    QString mPagina;
};
