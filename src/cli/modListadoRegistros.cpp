#include "cli/modListadoRegistros.h"

#include "cli/modTextoSalida.h"

#include <array>
#include <exception>
#include <system_error>
#include <thread>

namespace modListadoRegistros {

namespace {

// Below this many records one thread lists them all: another would cost more than it saves.
constexpr qint32 MinimoParaDividir = 4096;

// How the lines are written: a record that holds no character to escape beyond the separators
// between its fields is written as read; any other is read again with the separator's stand-in
// and escaped.
struct Forma {
    QString Separador;
    QString Lectura;
    std::array<qsizetype, 4> EnSeparadores;
};

// The records from xDesde to xHasta (not included) in file order.
void ListarTramo(const clsPalmPDB& xBase, const Forma& xForma, qint32 xDesde, qint32 xHasta,
                 clsSalida& xSalida) {
    clsPalmPDB::LecturaIndice lectura;
    QString registro;
    for (qint32 indice = xDesde; indice < xHasta; ++indice) {
        const qint32 id = xBase.TextoEnIndice(indice, xForma.Separador, lectura, registro);
        if (id == -1) return;
        if (modTextoSalida::Especiales(registro) == xForma.EnSeparadores) {
            xSalida.Linea(id, registro);
            continue;
        }
        xBase.TextoEnIndice(indice, xForma.Lectura, lectura, registro);
        xSalida.Registro(id, registro, xForma.Separador);
    }
}

// The second half on a thread of its own, the first on this one; the first failure in file
// order is the one raised.
void ListarEnDos(const clsPalmPDB& xBase, const Forma& xForma, qint32 xTotal, clsSalida& xSalida) {
    const qint32 mitad = xTotal / 2;
    clsSalida segunda;
    std::exception_ptr fallaSegunda;
    std::thread hilo;
    try {
        hilo = std::thread([&] {
            // The thread writes its lines into an output of its own stack and hands the blocks
            // over at the end: what it writes per line then shares no cache line with what this
            // thread writes.
            clsSalida propia;
            try {
                ListarTramo(xBase, xForma, mitad, xTotal, propia);
            } catch (...) {
                fallaSegunda = std::current_exception();
            }
            segunda.Anexar(std::move(propia));
        });
    } catch (const std::system_error&) {
        // No thread to be had: one does it all.
        ListarTramo(xBase, xForma, 0, xTotal, xSalida);
        return;
    }
    std::exception_ptr fallaPrimera;
    try {
        ListarTramo(xBase, xForma, 0, mitad, xSalida);
    } catch (...) {
        fallaPrimera = std::current_exception();
    }
    hilo.join();
    if (fallaPrimera) std::rethrow_exception(fallaPrimera);
    if (fallaSegunda) std::rethrow_exception(fallaSegunda);
    xSalida.Anexar(std::move(segunda));
}

} // namespace

void Listar(clsPalmPDB& xBase, const QString& xSeparador, clsSalida& xSalida) {
    // A resource database has no records to read.
    if (!xBase.IsDataBase()) return;
    // The first record is read as every reader reads it, which loads the schema and reports a
    // database without one.
    bool alPrincipio = true;
    QString registro;
    if (xBase.ReadRecord(alPrincipio, registro, xSeparador) == -1) return;
    Forma forma{xSeparador, modTextoSalida::SeparadorLectura(xSeparador),
                modTextoSalida::Especiales(xSeparador)};
    const qsizetype entre = qMax(0, xBase.NumFields() - 1);
    for (qsizetype& cuenta : forma.EnSeparadores)
        cuenta *= entre;
    const qint32 total = xBase.RegistrosEnArchivo();
    if (total < MinimoParaDividir || !xBase.LecturaCompartible()) {
        ListarTramo(xBase, forma, 0, total, xSalida);
        return;
    }
    ListarEnDos(xBase, forma, total, xSalida);
}

void Listar(clsPDBInterface& xBase, const QString& xSeparador, clsSalida& xSalida) {
    if (!xBase.IsDataBase()) return;
    const QString lectura = modTextoSalida::SeparadorLectura(xSeparador);
    bool alPrincipio = true;
    QString registro;
    for (qint32 id; (id = xBase.ReadRecord(alPrincipio, registro, lectura)) != -1;)
        xSalida.Registro(id, registro, xSeparador);
}

} // namespace modListadoRegistros
