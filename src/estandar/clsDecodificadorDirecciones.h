#pragma once

#include "estandar/clsDecodificadorEstandar.h"

#include <array>

// One contact of the Address Book. Its texts are numbered as the record stores them.
struct ContactoPalm {
    enum Texto {
        Apellido,
        Nombre,
        Empresa,
        Telefono1, // to Telefono1 + 4
        Direccion = Telefono1 + 5,
        Ciudad,
        Estado,
        CodigoPostal,
        Pais,
        Cargo,
        Personalizado1, // to Personalizado1 + 3
        Nota = Personalizado1 + 4,
        CantidadTextos
    };
    // The kinds of phone a phone's label names, numbered as the record stores them.
    enum Etiqueta { Trabajo, Casa, Fax, Otro, Correo, Principal, Buscapersonas, Movil };
    static constexpr int CantidadTelefonos = 5;

    std::array<QString, CantidadTextos> Textos;
    std::array<quint8, CantidadTelefonos> Etiquetas{}; // each phone's label, 0 to 15
    quint8 TelefonoMostrado = 0;                       // 0 to 4: the phone the list shows
    // On Japanese handhelds the names carry how they are read.
    QString LecturaApellido;
    QString LecturaNombre;
    QString LecturaEmpresa;

    const QString& Telefono(int xIndice) const { return Textos[Telefono1 + xIndice]; }
};

// The Address Book's settings: after the category block, 2 reserved bytes, the 32-bit field
// of renamed labels at 278, the 22 labels of 16 bytes from 282 (the 19 texts', then those of
// the phone labels Main, Pager and Mobile), the country byte at 634, a reserved byte, and the
// sort flag at 636 (sorted by company when set).
struct AjustesDirecciones {
    static constexpr int CantidadEtiquetas = 22;
    quint32 Renombradas = 0;
    std::array<QString, CantidadEtiquetas> Etiquetas; // empty ones read as the usual names
    qint32 Pais = -1;                                 // Palm OS country number; -1 when unknown
    bool OrdenPorEmpresa = false;

    // The name the handheld shows for phone label xEtiqueta; "" for a label number it lacks.
    QString NombreEtiquetaTelefono(quint8 xEtiqueta) const;
    // The name of custom field xIndice (0 to 3).
    const QString& NombrePersonalizado(int xIndice) const;
    bool EsJapones() const;
};

// Address Book (addr/DATA, "AddressDB"): a record is a 32-bit word of phone labels (a nibble
// per phone, the shown phone in bits 20-23), a 32-bit mask of the texts present, a byte with
// the company's offset, then each text present, zero-terminated, in the order of the mask.
class clsDecodificadorDirecciones : public clsDecodificadorEstandar {
public:
    clsDecodificadorDirecciones(QByteArrayView xAppInfo, const Contexto& xContexto);

    ContactoPalm Contacto(const RegistroPalm& xRegistro) const;
    const AjustesDirecciones& Ajustes() const { return mAjustes; }

    static AjustesDirecciones LeerAjustes(QByteArrayView xAppInfo,
                                          const modFuncionesConversion::TablaCodigoPagina& xTabla);

protected:
    void ValoresPropios(const RegistroPalm& xRegistro, QVariantList& xValores) const override;

private:
    clsDecodificadorDirecciones(AjustesDirecciones xAjustes, const Contexto& xContexto);
    // A name's bytes: the name before a 0x01 byte, its reading after it.
    QString NombreYLectura(QByteArrayView xBytes, QString& xLectura) const;

    AjustesDirecciones mAjustes;
};
