#include "estandar/clsEscritorVCard.h"

#include "estandar/modLineasContenido.h"

#include <utility>

using modLineasContenido::Escapar;

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

// The components of a structured value, each escaped, joined by semicolons.
QString Estructurado(std::initializer_list<QString> xPartes) {
    QStringList partes;
    for (const QString& parte : xPartes)
        partes << Escapar(parte);
    return partes.join(QLatin1Char(';'));
}

} // namespace

clsEscritorVCard::clsEscritorVCard(const clsDecodificadorDirecciones& xDecodificador,
                                   QString xPrefijoUID)
    : mDecodificador(xDecodificador), mPrefijoUID(std::move(xPrefijoUID)) {}

void clsEscritorVCard::Linea(const char* xNombre, const QString& xValor) {
    modLineasContenido::Linea(mTexto, QLatin1StringView(xNombre), xValor);
}

void clsEscritorVCard::Agregar(const RegistroPalm& xRegistro) {
    const ContactoPalm contacto = mDecodificador.Contacto(xRegistro);
    mGrupo = 0;
    Linea("BEGIN", QStringLiteral("VCARD"));
    Linea("VERSION", QStringLiteral("3.0"));
    Nombres(contacto);
    if (!contacto.Textos[ContactoPalm::Cargo].isEmpty())
        Linea("TITLE", Escapar(contacto.Textos[ContactoPalm::Cargo]));
    Telefonos(contacto);
    const auto& t = contacto.Textos;
    if (!(t[ContactoPalm::Direccion] + t[ContactoPalm::Ciudad] + t[ContactoPalm::Estado] +
          t[ContactoPalm::CodigoPostal] + t[ContactoPalm::Pais])
             .isEmpty())
        Linea("ADR", Estructurado({QString(), QString(), t[ContactoPalm::Direccion],
                                   t[ContactoPalm::Ciudad], t[ContactoPalm::Estado],
                                   t[ContactoPalm::CodigoPostal], t[ContactoPalm::Pais]}));
    Personalizados(contacto);
    if (!t[ContactoPalm::Nota].isEmpty()) Linea("NOTE", Escapar(t[ContactoPalm::Nota]));
    if (xRegistro.Categoria != 0 && !mDecodificador.Categoria(xRegistro).isEmpty())
        Linea("CATEGORIES", Escapar(mDecodificador.Categoria(xRegistro)));
    if (clsDecodificadorEstandar::Privado(xRegistro)) Linea("CLASS", QStringLiteral("PRIVATE"));
    Linea("UID", mPrefijoUID + QString::number(xRegistro.ID));
    Linea("END", QStringLiteral("VCARD"));
}

// The name as people write it: the family name first on a Japanese handheld; the company's
// when the card has no person's name.
void clsEscritorVCard::Nombres(const ContactoPalm& xContacto) {
    const QString& apellido = xContacto.Textos[ContactoPalm::Apellido];
    const QString& nombre = xContacto.Textos[ContactoPalm::Nombre];
    const QString& empresa = xContacto.Textos[ContactoPalm::Empresa];
    Linea("N", Estructurado({apellido, nombre, QString(), QString(), QString()}));
    QString completo = mDecodificador.Ajustes().EsJapones()
                           ? QStringList{apellido, nombre}.join(QLatin1Char(' ')).trimmed()
                           : QStringList{nombre, apellido}.join(QLatin1Char(' ')).trimmed();
    if (completo.isEmpty()) completo = empresa;
    Linea("FN", Escapar(completo));
    if (!xContacto.LecturaApellido.isEmpty())
        Linea("X-PHONETIC-LAST-NAME", Escapar(xContacto.LecturaApellido));
    if (!xContacto.LecturaNombre.isEmpty())
        Linea("X-PHONETIC-FIRST-NAME", Escapar(xContacto.LecturaNombre));
    if (!empresa.isEmpty()) Linea("ORG", Escapar(empresa));
    if (!xContacto.LecturaEmpresa.isEmpty())
        Linea("X-PHONETIC-ORG", Escapar(xContacto.LecturaEmpresa));
}

void clsEscritorVCard::Telefonos(const ContactoPalm& xContacto) {
    for (int k = 0; k < ContactoPalm::CantidadTelefonos; ++k) {
        const QString& numero = xContacto.Telefono(k);
        if (numero.isEmpty()) continue;
        QByteArray propiedad = PropiedadTelefono(xContacto.Etiquetas[k]);
        if (k == xContacto.TelefonoMostrado)
            propiedad += propiedad.contains(";TYPE=") ? ",PREF" : ";TYPE=PREF";
        modLineasContenido::Linea(mTexto, QLatin1StringView(propiedad), Escapar(numero));
    }
}

// Each custom field in a group with the label the handheld gives it (the way desktop address
// books label a property).
void clsEscritorVCard::Personalizados(const ContactoPalm& xContacto) {
    for (int k = 0; k < 4; ++k) {
        const QString& valor = xContacto.Textos[ContactoPalm::Personalizado1 + k];
        if (valor.isEmpty()) continue;
        const QByteArray grupo = "item" + QByteArray::number(++mGrupo) + '.';
        modLineasContenido::Linea(mTexto,
                                  QLatin1StringView(grupo + "X-CUSTOM" + QByteArray::number(k + 1)),
                                  Escapar(valor));
        modLineasContenido::Linea(mTexto, QLatin1StringView(grupo + "X-ABLabel"),
                                  Escapar(mDecodificador.Ajustes().NombrePersonalizado(k)));
    }
}
