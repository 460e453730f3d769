#pragma once

#include <QString>
#include <QtGlobal>
#include <exception>
#include <string>

// The one error type of the program: a number, the source that raised it and a description.
// The database layer raises its numbered errors (ErrorBase + 1001..1004) with it, the conversions
// raise the runtime errors 6, 9 and 13, and every window trap hands one to MostrarMensajeError.
class ErrorVB : public std::exception {
public:
    ErrorVB(qint32 xNumero, QString xFuente, QString xDescripcion);

    qint32 Numero() const { return mNumero; }
    const QString& Fuente() const { return mFuente; }
    const QString& Descripcion() const { return mDescripcion; }

    // The same error with the source extended, as a module does when it re-raises.
    ErrorVB ConFuente(const QString& xFuente) const;

    const char* what() const noexcept override { return mTexto.c_str(); }

    // Runtime errors the system relies on.
    static constexpr qint32 Desbordamiento = 6;        // "Overflow"
    static constexpr qint32 SubindiceFueraDeRango = 9; // "Subscript out of range"
    static constexpr qint32 TiposNoCoinciden = 13;     // "Type mismatch"

    static constexpr qint32 SinMemoria = 7; // "Out of memory"

    // The error a caught exception stands for: an ErrorVB as it is, a failed allocation as error
    // 7 "Out of memory" with source xFuente, anything else as number 0 with its text.
    static ErrorVB De(const std::exception& xFalla, const QString& xFuente);

    static ErrorVB Overflow(const QString& xFuente);
    static ErrorVB SubscriptOutOfRange(const QString& xFuente);
    static ErrorVB TypeMismatch(const QString& xFuente);

private:
    qint32 mNumero;
    QString mFuente;
    QString mDescripcion;
    std::string mTexto;
};

// Component errors are offset from this base (0x80040000).
constexpr qint32 ErrorBase = static_cast<qint32>(0x80040000u);
