#pragma once

#include "data/clsFuentePalm.h"
#include "data/formato/modFuncionesConversion.h"

#include <QByteArrayView>
#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <memory>

class clsLectorBytes;

// The kinds of databases of the handheld's built-in applications that Pandrel decodes.
enum class ClaseEstandar { Ninguna, Memos, Tareas, Direcciones, Agenda };

// The kind of a database by its creator and type; Ninguna for any other database.
ClaseEstandar ClaseDe(quint32 xCreador, quint32 xTipo);

// A record whose bytes do not hold what they claim (a field past the record's end, a value out
// of its range) cannot be decoded.
namespace ErroresEstandar {
constexpr qint32 RegistroDanado = static_cast<qint32>(0x80042010u);
// An export asked of a database in a format that does not carry its records.
constexpr qint32 FormatoNoAdmitido = static_cast<qint32>(0x80042011u);
// A change asked of the records of such a database, which are only read.
constexpr qint32 SoloLectura = static_cast<qint32>(0x80042012u);
} // namespace ErroresEstandar

// One field as the record browser shows it: its title and the name of its type ("String",
// "Date", "Byte", "Boolean"...), which rules its alignment, sorting and finding.
struct CampoEstandar {
    QString Nombre;
    QString Tipo;
};

// A decoder of one kind of standard database: its field list, a record's bytes, attributes and
// category into typed field values, and its AppInfo block into its settings (each kind's own
// class keeps them). Values are QString, int, bool, QDate (a day) or QDateTime (a day and a
// time); a null value is an empty field. Every byte is read through the bounds-checked cursor;
// a record that lies about its contents raises ErroresEstandar::RegistroDanado naming it.
class clsDecodificadorEstandar {
public:
    // What every decoder of one open database shares.
    struct Contexto {
        QString Base; // the database's name, for the texts of errors
        const modFuncionesConversion::TablaCodigoPagina* Tabla = nullptr;
        QStringList Categorias; // the names of the categories by number (up to the last named)
    };

    // The decoder of a database of kind xClase (not Ninguna) with that AppInfo block.
    static std::unique_ptr<clsDecodificadorEstandar>
    Crear(ClaseEstandar xClase, QByteArrayView xAppInfo, const Contexto& xContexto);
    virtual ~clsDecodificadorEstandar() = default;

    ClaseEstandar Clase() const { return mClase; }
    // The kind's own fields, then "Category" and "Private", which every kind has.
    const QVector<CampoEstandar>& Campos() const { return mCampos; }
    // The record's values in field order. A deleted record whose data is gone has empty fields.
    void Valores(const RegistroPalm& xRegistro, QVariantList& xValores) const;

    // The name of the record's category ("" when it has none). Category 0 is Unfiled: the
    // record is in no category, which the exports leave unsaid.
    QString Categoria(const RegistroPalm& xRegistro) const;
    static bool Privado(const RegistroPalm& xRegistro);
    static bool Borrado(const RegistroPalm& xRegistro);
    const QString& NombreBase() const { return mContexto.Base; }

protected:
    clsDecodificadorEstandar(ClaseEstandar xClase, const Contexto& xContexto,
                             QVector<CampoEstandar> xCampos);

    // The values of the kind's own fields.
    virtual void ValoresPropios(const RegistroPalm& xRegistro, QVariantList& xValores) const = 0;

    QString Texto(QByteArrayView xBytes) const;
    // The zero-terminated text at the cursor; raises when the record ends before its terminator.
    QByteArrayView TramoTerminado(clsLectorBytes& xLector, const RegistroPalm& xRegistro,
                                  const char* xCampo) const;
    // A day packed in 16 bits (7 bits of years since 1904, 4 of month, 5 of day); raises when
    // it is no day of the calendar.
    QDate Dia(quint16 xEmpaquetado, const RegistroPalm& xRegistro, const char* xCampo) const;
    // Raises RegistroDanado for the record, saying why.
    [[noreturn]] void Danado(const RegistroPalm& xRegistro, const QString& xMotivo) const;

    // A 16-bit packed day that stands for none.
    static constexpr quint16 SinDia = 0xFFFF;

private:
    ClaseEstandar mClase;
    Contexto mContexto;
    QVector<CampoEstandar> mCampos;
};
