#pragma once

#include <QString>
#include <QtGlobal>

class ErrorVB;

// Shows the error report window modally; every window trap calls it and then abandons its work.
void MostrarMensajeError(qint32 xNumero, const QString& xDescripcion, const QString& xFuente,
                         const QString& xFormulario, const QString& xProcedimiento);
// The same for a caught ErrorVB.
void MostrarMensajeError(const ErrorVB& xError, const QString& xFormulario,
                         const QString& xProcedimiento);
