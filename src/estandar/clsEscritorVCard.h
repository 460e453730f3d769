#pragma once

#include "estandar/clsDecodificadorDirecciones.h"

#include <QByteArray>
#include <QString>

// The contacts of an address book as a vCard 3.0 file (RFC 2426): names with their readings
// (the phonetic name properties desktop address books read), company, title, every phone and
// e-mail with its label's type (the shown one preferred), the address, the custom fields under
// their own label names, the note, the category and the private mark.
class clsEscritorVCard {
public:
    // Each card's UID is xPrefijoUID followed by the record's unique ID.
    clsEscritorVCard(const clsDecodificadorDirecciones& xDecodificador, QString xPrefijoUID);

    void Agregar(const RegistroPalm& xRegistro);
    const QByteArray& Texto() const { return mTexto; }

private:
    void Nombres(const ContactoPalm& xContacto);
    void Telefonos(const ContactoPalm& xContacto);
    void Personalizados(const ContactoPalm& xContacto);
    void Linea(const char* xNombre, const QString& xValor);

    const clsDecodificadorDirecciones& mDecodificador;
    QString mPrefijoUID;
    QByteArray mTexto;
    int mGrupo = 0; // the last itemN group given
};
