#pragma once

#include <QDateTime>
#include <QString>
#include <QtGlobal>

class clsConfiguracionRegional;
class clsImpresora;

// One failure as the error report shows and prints it: what failed, where and when. The window
// shows these texts in its fields; Imprimir lays out the one-page printout.
class clsMensajeError {
public:
    clsMensajeError() = default;
    clsMensajeError(qint32 xNumero, const QString& xDescripcion, const QString& xFuente,
                    const QString& xFormulario, const QString& xProcedimiento,
                    const QDateTime& xFecha);

    QString Numero() const { return QString::number(mNumero); }
    const QString& Descripcion() const { return mDescripcion; }
    const QString& Fuente() const { return mFuente; }
    const QString& Formulario() const { return mFormulario; }
    const QString& Procedimiento() const { return mProcedimiento; }
    // The computer's name is never filled in: the report leaves it blank.
    QString Computadora() const { return {}; }
    // The moment of the failure as "mm/dd/yyyy hh:mm:ss", and its time alone as "hh:mm:ss".
    QString Fecha(const clsConfiguracionRegional& xRegional) const;
    QString Hora(const clsConfiguracionRegional& xRegional) const;

    // Prints the report on one page, in character cells, and ends the document. A failure of the
    // printer or of the wrapping of the description is raised to the caller.
    void Imprimir(clsImpresora& xImpresora, const clsConfiguracionRegional& xRegional) const;

private:
    qint32 mNumero = 0;
    QString mDescripcion;
    QString mFuente;
    QString mFormulario;
    QString mProcedimiento;
    QDateTime mFecha;
};
