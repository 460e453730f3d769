#pragma once

#include "data/clsPalmPDB.h"

#include <QString>
#include <QStringView>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

// The texts of a database's records in file order, read ahead on a thread of its own while the
// caller uses them (writes a file, say): the two halves of the work run side by side. A short
// database, or one in a multi-byte code page, is read on the caller's thread instead. The
// database must not be written while this object lives.
class clsLecturaAdelantada {
public:
    // From the record at xDesde on (ReadRecord must have read one of the open database, which
    // loads its schema), each text with its fields separated by xSeparador.
    clsLecturaAdelantada(const clsPalmPDB& xBase, const QString& xSeparador, qint32 xDesde);
    ~clsLecturaAdelantada();
    clsLecturaAdelantada(const clsLecturaAdelantada&) = delete;
    clsLecturaAdelantada& operator=(const clsLecturaAdelantada&) = delete;

    // The next record's text, valid until the next call; false after the last. What stopped the
    // reading is raised here, at the record where it happened.
    bool Siguiente(QStringView& xTexto);

private:
    // Records' texts one after another in one buffer. Batches go back to the reader once taken,
    // so that memory is neither allocated per record nor freed by the other thread.
    struct Lote {
        std::vector<char16_t> Letras;
        std::vector<size_t> Fines; // where each text ends in Letras
        std::exception_ptr Falla;  // raised once its texts were taken
        bool Ultimo = false;
    };
    void Leer();
    // Reads on this thread: for a short database, or when no thread is to be had.
    bool SiguienteAqui(QStringView& xTexto);

    const clsPalmPDB& mBase;
    const QString mSeparador;
    qint32 mIndice;
    clsPalmPDB::LecturaIndice mLectura;
    QString mTexto; // the text read on this thread

    std::mutex mCerrojo;
    std::condition_variable mCambio;
    std::deque<Lote> mLotes;   // read, not yet taken
    std::vector<Lote> mLibres; // taken, for the reader to fill again
    bool mParar = false;       // the caller is gone: the reader stops
    Lote mActual;              // the batch being taken
    size_t mPosicion = 0;
    bool mTerminado = false;
    std::thread mHilo;
};
