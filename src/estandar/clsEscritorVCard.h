#pragma once

#include "estandar/clsDecodificadorDirecciones.h"
#include "estandar/clsLineasContenido.h"

#include <QByteArrayView>
#include <QString>

// The contacts of an address book as a vCard 3.0 file (RFC 2426): names with their readings
// (the phonetic name properties desktop address books read), company, title, every phone and
// e-mail with its label's type (the shown one preferred), the address, the custom fields under
// their own label names, the note, the category and the private mark.
class clsEscritorVCard {
public:
    // Each card's UID is xPrefijoUID followed by the record's unique ID; xCapacidad is about how
    // many octets the cards will take.
    clsEscritorVCard(const clsDecodificadorDirecciones& xDecodificador, QString xPrefijoUID,
                     qsizetype xCapacidad = 64 * 1024);

    void Agregar(const RegistroPalm& xRegistro);
    QByteArrayView Texto() const { return mLineas.Bytes(); }

private:
    void Nombres(const ContactoPalm& xContacto);
    void Telefonos(const ContactoPalm& xContacto);
    void Direccion(const ContactoPalm& xContacto);
    void Personalizados(const ContactoPalm& xContacto);

    const clsDecodificadorDirecciones& mDecodificador;
    QString mPrefijoUID;
    clsLineasContenido mLineas;
};
