#include "cli/clsLecturaAdelantada.h"

#include <system_error>
#include <utility>

namespace {

// Below this many records the caller reads them itself: a thread would cost more than it saves.
constexpr qint32 MinimoAdelantado = 4096;
// Records per batch, and batches read ahead at most: enough to keep both threads busy, little
// enough that a large database is never held twice in memory.
constexpr qsizetype RegistrosPorLote = 512;
constexpr size_t LotesAdelantados = 8;

} // namespace

clsLecturaAdelantada::clsLecturaAdelantada(const clsPalmPDB& xBase, const QString& xSeparador,
                                           qint32 xDesde)
    : mBase(xBase), mSeparador(xSeparador), mIndice(xDesde) {
    if (xBase.RegistrosEnArchivo() - xDesde < MinimoAdelantado || !xBase.LecturaCompartible())
        return;
    try {
        mHilo = std::thread([this] { Leer(); });
    } catch (const std::system_error&) {
        // No thread to be had: the caller reads.
    }
}

clsLecturaAdelantada::~clsLecturaAdelantada() {
    if (!mHilo.joinable()) return;
    {
        const std::lock_guard<std::mutex> cerrojo(mCerrojo);
        mParar = true;
    }
    mCambio.notify_all();
    mHilo.join();
}

void clsLecturaAdelantada::Leer() {
    // What the reader writes per record stays on its own stack, away from this object, which the
    // other thread's stack holds.
    clsPalmPDB::LecturaIndice lectura;
    QString texto;
    qint32 indice = mIndice;
    for (bool ultimo = false; !ultimo;) {
        Lote lote;
        {
            std::unique_lock<std::mutex> cerrojo(mCerrojo);
            mCambio.wait(cerrojo, [this] { return mParar || mLotes.size() < LotesAdelantados; });
            if (mParar) return;
            if (!mLibres.empty()) {
                lote = std::move(mLibres.back());
                mLibres.pop_back();
            }
        }
        lote.Letras.clear();
        lote.Fines.clear();
        try {
            while (qsizetype(lote.Fines.size()) < RegistrosPorLote) {
                if (mBase.TextoEnIndice(indice, mSeparador, lectura, texto) == -1) {
                    lote.Ultimo = true;
                    break;
                }
                ++indice;
                lote.Letras.insert(lote.Letras.end(), texto.utf16(), texto.utf16() + texto.size());
                lote.Fines.push_back(lote.Letras.size());
            }
        } catch (...) {
            lote.Falla = std::current_exception();
            lote.Ultimo = true;
        }
        ultimo = lote.Ultimo;
        {
            const std::lock_guard<std::mutex> cerrojo(mCerrojo);
            mLotes.push_back(std::move(lote));
        }
        mCambio.notify_all();
    }
}

bool clsLecturaAdelantada::Siguiente(QStringView& xTexto) {
    if (!mHilo.joinable()) return SiguienteAqui(xTexto);
    while (mPosicion == mActual.Fines.size()) {
        if (mActual.Falla) std::rethrow_exception(std::exchange(mActual.Falla, nullptr));
        if (mTerminado) return false;
        {
            std::unique_lock<std::mutex> cerrojo(mCerrojo);
            mCambio.wait(cerrojo, [this] { return !mLotes.empty(); });
            mLibres.push_back(std::move(mActual));
            mActual = std::move(mLotes.front());
            mLotes.pop_front();
        }
        mCambio.notify_all();
        mPosicion = 0;
        mTerminado = mActual.Ultimo;
    }
    const size_t desde = mPosicion == 0 ? 0 : mActual.Fines[mPosicion - 1];
    xTexto =
        QStringView(mActual.Letras.data() + desde, qsizetype(mActual.Fines[mPosicion] - desde));
    ++mPosicion;
    return true;
}

bool clsLecturaAdelantada::SiguienteAqui(QStringView& xTexto) {
    if (mTerminado) return false;
    if (mBase.TextoEnIndice(mIndice, mSeparador, mLectura, mTexto) == -1) {
        mTerminado = true;
        return false;
    }
    ++mIndice;
    xTexto = mTexto;
    return true;
}
