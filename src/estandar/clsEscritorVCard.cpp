#include "estandar/clsEscritorVCard.h"

#include <cstring>
#include <utility>

namespace {

// The vCard property and types of each phone label; an e-mail is no phone.
const char* PropiedadTelefono(quint8 xEtiqueta) {
    switch (xEtiqueta) {
    case ContactoPalm::Trabajo:
        return "TEL;TYPE=WORK,VOICE";
    case ContactoPalm::Casa:
        return "TEL;TYPE=HOME,VOICE";
    case ContactoPalm::Fax:
        return "TEL;TYPE=FAX";
    case ContactoPalm::Otro:
        return "TEL;TYPE=OTHER,VOICE";
    case ContactoPalm::Correo:
        return "EMAIL;TYPE=INTERNET";
    case ContactoPalm::Principal:
        return "TEL;TYPE=MAIN";
    case ContactoPalm::Buscapersonas:
        return "TEL;TYPE=PAGER";
    case ContactoPalm::Movil:
        return "TEL;TYPE=CELL,VOICE";
    default:
        return "TEL";
    }
}

} // namespace

clsEscritorVCard::clsEscritorVCard(const clsDecodificadorDirecciones& xDecodificador,
                                   QString xPrefijoUID, qsizetype xCapacidad)
    : mDecodificador(xDecodificador), mPrefijoUID(std::move(xPrefijoUID)), mLineas(xCapacidad) {}

void clsEscritorVCard::Agregar(const RegistroPalm& xRegistro) {
    const ContactoPalm contacto = mDecodificador.Contacto(xRegistro);
    const auto& t = contacto.Textos;
    mLineas.Linea("BEGIN", "VCARD");
    mLineas.Linea("VERSION", "3.0");
    Nombres(contacto);
    if (!t[ContactoPalm::Cargo].isEmpty()) mLineas.LineaTexto("TITLE", t[ContactoPalm::Cargo]);
    Telefonos(contacto);
    Direccion(contacto);
    Personalizados(contacto);
    if (!t[ContactoPalm::Nota].isEmpty()) mLineas.LineaTexto("NOTE", t[ContactoPalm::Nota]);
    if (xRegistro.Categoria != 0 && !mDecodificador.Categoria(xRegistro).isEmpty())
        mLineas.LineaTexto("CATEGORIES", mDecodificador.Categoria(xRegistro));
    if (clsDecodificadorEstandar::Privado(xRegistro)) mLineas.Linea("CLASS", "PRIVATE");
    mLineas.Empezar("UID");
    mLineas.Texto(mPrefijoUID);
    mLineas.Numero(xRegistro.ID);
    mLineas.Terminar();
    mLineas.Linea("END", "VCARD");
}

// The name as people write it: the family name first on a Japanese handheld; the company's
// when the card has no person's name.
void clsEscritorVCard::Nombres(const ContactoPalm& xContacto) {
    const QString& apellido = xContacto.Textos[ContactoPalm::Apellido];
    const QString& nombre = xContacto.Textos[ContactoPalm::Nombre];
    const QString& empresa = xContacto.Textos[ContactoPalm::Empresa];
    mLineas.Empezar("N");
    mLineas.Texto(apellido);
    mLineas.Literal(";");
    mLineas.Texto(nombre);
    mLineas.Literal(";;;");
    mLineas.Terminar();
    const bool japones = mDecodificador.Ajustes().EsJapones();
    const QString& primero = japones ? apellido : nombre;
    const QString& segundo = japones ? nombre : apellido;
    mLineas.Empezar("FN");
    if (primero.isEmpty() && segundo.isEmpty()) mLineas.Texto(empresa);
    mLineas.Texto(primero);
    if (!primero.isEmpty() && !segundo.isEmpty()) mLineas.Literal(" ");
    mLineas.Texto(segundo);
    mLineas.Terminar();
    if (!xContacto.LecturaApellido.isEmpty())
        mLineas.LineaTexto("X-PHONETIC-LAST-NAME", xContacto.LecturaApellido);
    if (!xContacto.LecturaNombre.isEmpty())
        mLineas.LineaTexto("X-PHONETIC-FIRST-NAME", xContacto.LecturaNombre);
    if (!empresa.isEmpty()) mLineas.LineaTexto("ORG", empresa);
    if (!xContacto.LecturaEmpresa.isEmpty())
        mLineas.LineaTexto("X-PHONETIC-ORG", xContacto.LecturaEmpresa);
}

void clsEscritorVCard::Telefonos(const ContactoPalm& xContacto) {
    for (int k = 0; k < ContactoPalm::CantidadTelefonos; ++k) {
        const QString& numero = xContacto.Telefono(k);
        if (numero.isEmpty()) continue;
        const char* propiedad = PropiedadTelefono(xContacto.Etiquetas[k]);
        mLineas.Literal(propiedad);
        if (k == xContacto.TelefonoMostrado)
            mLineas.Literal(std::strchr(propiedad, ';') ? ",PREF" : ";TYPE=PREF");
        mLineas.Literal(":");
        mLineas.Texto(numero);
        mLineas.Terminar();
    }
}

void clsEscritorVCard::Direccion(const ContactoPalm& xContacto) {
    bool hay = false;
    for (int k = ContactoPalm::Direccion; k <= ContactoPalm::Pais; ++k)
        hay = hay || !xContacto.Textos[k].isEmpty();
    if (!hay) return;
    // Post office box and extended address, then the street, city, state, code and country.
    mLineas.Empezar("ADR");
    mLineas.Literal(";");
    for (int k = ContactoPalm::Direccion; k <= ContactoPalm::Pais; ++k) {
        mLineas.Literal(";");
        mLineas.Texto(xContacto.Textos[k]);
    }
    mLineas.Terminar();
}

// Each custom field in a group with the label the handheld gives it (the way desktop address
// books label a property).
void clsEscritorVCard::Personalizados(const ContactoPalm& xContacto) {
    static const char* const propiedades[] = {"X-CUSTOM1", "X-CUSTOM2", "X-CUSTOM3", "X-CUSTOM4"};
    int grupo = 0;
    for (int k = 0; k < 4; ++k) {
        const QString& valor = xContacto.Textos[ContactoPalm::Personalizado1 + k];
        if (valor.isEmpty()) continue;
        mLineas.EmpezarEnGrupo(++grupo, propiedades[k]);
        mLineas.Texto(valor);
        mLineas.Terminar();
        mLineas.EmpezarEnGrupo(grupo, "X-ABLabel");
        mLineas.Texto(mDecodificador.Ajustes().NombrePersonalizado(k));
        mLineas.Terminar();
    }
}
