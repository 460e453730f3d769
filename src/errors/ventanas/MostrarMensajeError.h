#pragma once

#include <QString>
#include <QtGlobal>
#include <functional>

class ErrorVB;

// Shows the error report window modally; every window trap calls it and then abandons its work.
void MostrarMensajeError(qint32 xNumero, const QString& xDescripcion, const QString& xFuente,
                         const QString& xFormulario, const QString& xProcedimiento);
// The same for a caught ErrorVB.
void MostrarMensajeError(const ErrorVB& xError, const QString& xFormulario,
                         const QString& xProcedimiento);

// The window trap: runs xTrabajo and returns true, or, when it fails, shows the failure in the
// error report window (any exception that is no ErrorVB as ErrorVB::De makes it, with no source)
// and returns false. xAntes, when given, runs with the failure just before the window opens.
bool Atrapar(const QString& xFormulario, const QString& xProcedimiento,
             const std::function<void()>& xTrabajo,
             const std::function<void(const ErrorVB&)>& xAntes = {});
