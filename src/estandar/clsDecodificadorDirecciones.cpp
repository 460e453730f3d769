#include "estandar/clsDecodificadorDirecciones.h"

#include "data/formato/clsLectorBytes.h"
#include "data/formato/modBasesEstandar.h"

#include <utility>

namespace {

constexpr qsizetype PosicionRenombradas = 278;
constexpr qsizetype LargoEtiqueta = 16;
constexpr qsizetype PosicionOrden = 636;
// Between a Japanese name and its reading.
constexpr char MarcaLectura = '\x01';

// The labels of a handheld that names none.
const std::array<QString, AjustesDirecciones::CantidadEtiquetas>& EtiquetasUsuales() {
    static const std::array<QString, AjustesDirecciones::CantidadEtiquetas> etiquetas = {
        QStringLiteral("Last name"), QStringLiteral("First name"), QStringLiteral("Company"),
        QStringLiteral("Work"),      QStringLiteral("Home"),       QStringLiteral("Fax"),
        QStringLiteral("Other"),     QStringLiteral("E-mail"),     QStringLiteral("Address"),
        QStringLiteral("City"),      QStringLiteral("State"),      QStringLiteral("Zip Code"),
        QStringLiteral("Country"),   QStringLiteral("Title"),      QStringLiteral("Custom 1"),
        QStringLiteral("Custom 2"),  QStringLiteral("Custom 3"),   QStringLiteral("Custom 4"),
        QStringLiteral("Note"),      QStringLiteral("Main"),       QStringLiteral("Pager"),
        QStringLiteral("Mobile")};
    return etiquetas;
}

// The texts of a record as the errors name them.
const char* const NombresTextos[ContactoPalm::CantidadTextos] = {
    "last name", "first name", "company",  "phone 1",  "phone 2",  "phone 3", "phone 4",
    "phone 5",   "address",    "city",     "state",    "zip code", "country", "title",
    "custom 1",  "custom 2",   "custom 3", "custom 4", "note"};

// The label of phone label number xEtiqueta among the 22: Work to E-mail follow the company's,
// Main, Pager and Mobile come last.
int IndiceEtiqueta(quint8 xEtiqueta) {
    return xEtiqueta <= ContactoPalm::Correo ? 3 + xEtiqueta : 14 + xEtiqueta;
}

QVector<CampoEstandar> CamposDe(const AjustesDirecciones& xAjustes) {
    const QString texto = QStringLiteral("String");
    QVector<CampoEstandar> campos = {{QStringLiteral("Last Name"), texto},
                                     {QStringLiteral("First Name"), texto},
                                     {QStringLiteral("Company"), texto},
                                     {QStringLiteral("Title"), texto}};
    for (int k = 1; k <= ContactoPalm::CantidadTelefonos; ++k) {
        campos.append({QStringLiteral("Phone %1").arg(k), texto});
        campos.append({QStringLiteral("Phone %1 Label").arg(k), texto});
    }
    campos.append({QStringLiteral("Shown Phone"), QStringLiteral("Byte")});
    for (const char* nombre : {"Address", "City", "State", "Zip Code", "Country"})
        campos.append({QLatin1String(nombre), texto});
    for (int k = 0; k < 4; ++k)
        campos.append({xAjustes.NombrePersonalizado(k), texto});
    for (const char* nombre :
         {"Note", "Last Name Reading", "First Name Reading", "Company Reading"})
        campos.append({QLatin1String(nombre), texto});
    return campos;
}

} // namespace

QString AjustesDirecciones::NombreEtiquetaTelefono(quint8 xEtiqueta) const {
    return xEtiqueta <= ContactoPalm::Movil ? Etiquetas[IndiceEtiqueta(xEtiqueta)] : QString();
}

const QString& AjustesDirecciones::NombrePersonalizado(int xIndice) const {
    return Etiquetas[ContactoPalm::Personalizado1 + xIndice];
}

bool AjustesDirecciones::EsJapones() const {
    return Pais == modBasesEstandar::PaisJapon;
}

AjustesDirecciones
clsDecodificadorDirecciones::LeerAjustes(QByteArrayView xAppInfo,
                                         const modFuncionesConversion::TablaCodigoPagina& xTabla) {
    AjustesDirecciones ajustes;
    ajustes.Etiquetas = EtiquetasUsuales();
    clsLectorBytes lector(xAppInfo);
    if (!lector.IrA(PosicionRenombradas) || !lector.LeerU32(ajustes.Renombradas)) return ajustes;
    for (QString& etiqueta : ajustes.Etiquetas) {
        QByteArrayView campo;
        if (!lector.LeerBytes(LargoEtiqueta, campo)) return ajustes;
        // A renamed label may keep the old name's bytes after its terminator.
        const qsizetype fin = campo.indexOf('\0');
        const QString nombre = xTabla.Decodificar(fin < 0 ? campo : campo.first(fin));
        if (!nombre.isEmpty()) etiqueta = nombre;
    }
    ajustes.Pais = modBasesEstandar::PaisDirecciones(xAppInfo);
    quint8 orden = 0;
    if (lector.IrA(PosicionOrden) && lector.LeerU8(orden)) ajustes.OrdenPorEmpresa = orden != 0;
    return ajustes;
}

clsDecodificadorDirecciones::clsDecodificadorDirecciones(QByteArrayView xAppInfo,
                                                         const Contexto& xContexto)
    : clsDecodificadorDirecciones(LeerAjustes(xAppInfo, *xContexto.Tabla), xContexto) {}

clsDecodificadorDirecciones::clsDecodificadorDirecciones(AjustesDirecciones xAjustes,
                                                         const Contexto& xContexto)
    : clsDecodificadorEstandar(ClaseEstandar::Direcciones, xContexto, CamposDe(xAjustes)),
      mAjustes(std::move(xAjustes)) {}

QString clsDecodificadorDirecciones::NombreYLectura(QByteArrayView xBytes,
                                                    QString& xLectura) const {
    const qsizetype marca = xBytes.indexOf(MarcaLectura);
    if (marca < 0) return Texto(xBytes);
    xLectura = Texto(xBytes.sliced(marca + 1));
    return Texto(xBytes.first(marca));
}

ContactoPalm clsDecodificadorDirecciones::Contacto(const RegistroPalm& xRegistro) const {
    clsLectorBytes lector(xRegistro.Bytes);
    quint32 etiquetas = 0;
    quint32 presentes = 0;
    quint8 desplazamientoEmpresa = 0;
    if (!lector.LeerU32(etiquetas) || !lector.LeerU32(presentes) ||
        !lector.LeerU8(desplazamientoEmpresa))
        Danado(xRegistro, QStringLiteral("it is too short for a contact"));
    ContactoPalm contacto;
    for (int k = 0; k < ContactoPalm::CantidadTelefonos; ++k)
        contacto.Etiquetas[k] = (etiquetas >> (4 * k)) & 0x0F;
    contacto.TelefonoMostrado = (etiquetas >> 20) & 0x0F;
    // Mask bits beyond the 19 texts name nothing the record holds.
    for (int k = 0; k < ContactoPalm::CantidadTextos; ++k) {
        if (!(presentes & (1u << k))) continue;
        const QByteArrayView bytes = TramoTerminado(lector, xRegistro, NombresTextos[k]);
        QString* lectura = k == ContactoPalm::Apellido  ? &contacto.LecturaApellido
                           : k == ContactoPalm::Nombre  ? &contacto.LecturaNombre
                           : k == ContactoPalm::Empresa ? &contacto.LecturaEmpresa
                                                        : nullptr;
        contacto.Textos[k] = lectura ? NombreYLectura(bytes, *lectura) : Texto(bytes);
    }
    return contacto;
}

void clsDecodificadorDirecciones::ValoresPropios(const RegistroPalm& xRegistro,
                                                 QVariantList& xValores) const {
    const ContactoPalm c = Contacto(xRegistro);
    // An empty text is no value: the cell stays blank.
    const auto texto = [&xValores](const QString& xTexto) {
        xValores.append(xTexto.isEmpty() ? QVariant() : QVariant(xTexto));
    };
    for (int k :
         {ContactoPalm::Apellido, ContactoPalm::Nombre, ContactoPalm::Empresa, ContactoPalm::Cargo})
        texto(c.Textos[k]);
    for (int k = 0; k < ContactoPalm::CantidadTelefonos; ++k) {
        texto(c.Telefono(k));
        texto(c.Telefono(k).isEmpty() ? QString()
                                      : mAjustes.NombreEtiquetaTelefono(c.Etiquetas[k]));
    }
    xValores.append(int(c.TelefonoMostrado) + 1);
    for (int k = ContactoPalm::Direccion; k <= ContactoPalm::Pais; ++k)
        texto(c.Textos[k]);
    for (int k = ContactoPalm::Personalizado1; k <= ContactoPalm::Nota; ++k)
        texto(c.Textos[k]);
    texto(c.LecturaApellido);
    texto(c.LecturaNombre);
    texto(c.LecturaEmpresa);
}
