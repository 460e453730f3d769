#pragma once

#include <QByteArrayView>
#include <QSaveFile>
#include <QString>

// A file written beside its name and put in place only when whole, over QSaveFile: a link at the
// name is followed to the file it leads to, and a crash or a failure leaves the file that was
// there, or none. Two things are added: a failure of a flush stops the file from being put in
// place (QSaveFile would put a file cut short there), and the first failure's reason is kept in
// the system's words ("No space left on device"), which Qt loses when a write is cut short.
class clsEscrituraSegura {
public:
    explicit clsEscrituraSegura(const QString& xArchivo);

    // False, with Error set, when the file cannot be begun.
    bool Abrir();
    // Writes the bytes through to the file, so that a full disk shows here.
    bool Escribir(QByteArrayView xBytes);
    // For a writer that writes on its own (a PDF writer); Terminar checks what it left.
    QIODevice& Dispositivo() { return mArchivo; }
    // Flushes the file to the disk and puts it in place under its name.
    bool Terminar();
    const QString& Error() const { return mError; }

    // The same end for a file another writer made whole beside its name (libzip writes an archive
    // only to a path of its own): xHecho is flushed to the disk and renamed over xArchivo. False,
    // with the system's reason in xError, when it cannot be.
    static bool PonerEnLugar(const QString& xHecho, const QString& xArchivo, QString& xError);

private:
    bool Fallar();

    QSaveFile mArchivo;
    QString mError;
};
