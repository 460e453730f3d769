#pragma once

#include "common/clsBufferTexto.h"
#include "common/clsConfiguracionRegional.h"
#include "data/formato/modFuncionesConversion.h"

#include <QByteArray>
#include <QString>
#include <vector>

// The fields of an AppForge record: their types, the text of each as the record listing writes
// it, and the encoding of a value written into one. A record is its fields one after another,
// each in the layout its type gives.
namespace modCamposRegistro {

using modFuncionesConversion::TablaCodigoPagina;

enum CodigoTipo : quint8 {
    Desconocido = 0,
    TipoByte = 1,
    TipoInt,
    TipoLong,
    TipoSingle,
    TipoString,
    TipoBoolean,
    TipoDate
};

// The type's name ("Byte" ... "Date"), empty for an unknown code.
const QString& NombreTipo(qint16 xCodigo);
CodigoTipo CodigoDeNombre(const QString& xNombre);

// A position computed in 64 bits, as a record position; an overflow beyond 32 bits.
qint32 PosicionEn(qint64 xPosicion, const char* xFuente);

// Appends one field's text, read from xRegistro at xPos, and moves xPos past the field.
void AgregarCampo(clsBufferTexto& xTexto, const QByteArray& xRegistro, quint8 xCodigoTipo,
                  qint32& xPos, const QString& xSeparator, const TablaCodigoPagina& xTabla,
                  const clsConfiguracionRegional& xRegional);

// Appends the texts of the first xCampos fields of xRegistro, whose types xTipos gives, each
// followed by xSeparator. Raises SubscriptOutOfRange (source ReadRecord) when xTipos is shorter.
void AgregarCampos(clsBufferTexto& xTexto, const QByteArray& xRegistro,
                   const std::vector<quint8>& xTipos, qint16 xCampos, const QString& xSeparator,
                   const TablaCodigoPagina& xTabla, const clsConfiguracionRegional& xRegional);

// The position of field xNroCampo in xRegistro, whose fields have the types xTipos.
// The field counter is 16-bit: a last field beyond its range overflows before any field is
// walked, whatever the schema holds.
qint32 PosicionCampo(const QByteArray& xRegistro, const std::vector<quint8>& xTipos,
                     qint32 xNroCampo, const TablaCodigoPagina& xTabla);

// Writes xValor, converted by the current regional settings, into field xNroCampo of xRegistro.
void CodificarCampo(QByteArray& xRegistro, const std::vector<quint8>& xTipos, qint32 xNroCampo,
                    const QString& xValor, const TablaCodigoPagina& xTabla);

} // namespace modCamposRegistro
