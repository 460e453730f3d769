#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

// What one look at a file finds. Two looks that agree saw the same file, unless it was rewritten
// in place with the same size within one tick of the file system's clock: see Seguro.
struct EstadoArchivo {
    bool Existe = false; // a regular file is there
    qint64 Tamano = 0;
    qint64 Modificado = 0; // the contents' last change, ns since 1970 (as the file system keeps it)
    qint64 Cambiado = 0;   // the file's last change of any kind (contents, times, owner), ns
    quint64 Inodo = 0;     // which file: a file replaced by a rename is another one
    quint64 Dispositivo = 0;

    bool operator==(const EstadoArchivo& x) const {
        return Existe == x.Existe && Tamano == x.Tamano && Modificado == x.Modificado &&
               Cambiado == x.Cambiado && Inodo == x.Inodo && Dispositivo == x.Dispositivo;
    }
    bool operator!=(const EstadoArchivo& x) const { return !(*this == x); }

    // True when a later look that agrees with this one proves the contents unchanged since the
    // moment xMomento (ms since 1970) at which they were read: the file's last change lies in an
    // earlier second, so a change after the reading would show in its times. A file changed in
    // the second of the reading, or later, must be compared byte by byte.
    bool Seguro(qint64 xMomento) const;
    // True when xAhora, a later look at the file, proves its contents unchanged since they were
    // read with this look at xMomento.
    bool SinCambios(const EstadoArchivo& xAhora, qint64 xMomento) const {
        return Seguro(xMomento) && xAhora == *this;
    }
};

// One file opened for reading: its state when opened and reads at any offset. The file is closed
// when the object goes.
class clsLecturaArchivo {
public:
    explicit clsLecturaArchivo(const QString& xRuta);
    ~clsLecturaArchivo();
    clsLecturaArchivo(const clsLecturaArchivo&) = delete;
    clsLecturaArchivo& operator=(const clsLecturaArchivo&) = delete;

    // False when the file could not be opened or is not a regular file; Error says why.
    bool Abierto() const { return mAbierto; }
    const QString& Error() const { return mError; }
    const EstadoArchivo& Estado() const { return mEstado; }
    // When the file was opened (ms since 1970), for EstadoArchivo::Seguro.
    qint64 Momento() const { return mMomento; }

    // Appends to xBytes the bytes from xDesde on, at most xCantidad of them (fewer at the end of
    // the file). False, with Error set, when the reading fails.
    bool Leer(qint64 xDesde, qint64 xCantidad, QByteArray& xBytes);
    // The whole file as its state gave its size; false, with Error set, for a file larger than
    // any database (clsArchivoPDB::TamanoMaximo), which is not read.
    bool LeerTodo(QByteArray& xBytes);

    // A look at a file without opening it.
    static EstadoArchivo EstadoDe(const QString& xRuta);
    static qint64 Ahora();

private:
    bool mAbierto = false;
    QString mError;
    EstadoArchivo mEstado;
    qint64 mMomento = 0;
#ifdef Q_OS_LINUX
    int mDescriptor = -1;
#else
    class QFile* mArchivo = nullptr;
#endif
};
