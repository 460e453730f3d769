#pragma once

#include <QString>
#include <QtGlobal>
#include <functional>

class ErrorVB;
class clsGrillaFlexible;
class clsPDBInterface;

// The record browser's rules over the records grid, with no window: the layout from the schema,
// the batches and the end of the records, the fixed-row rule, the record of a row found by its
// unique ID (the row's data word), the sort modes by field type, and what adding, updating and
// deleting a record do to the grid. The explorer window builds the controls and wires their events
// here; export and print read every record through CargarTodos.
//
// Every reading and writing goes through the database-access object; its failures are raised
// as they come, and the rows added before a failure stay in the grid.
class clsNavegadorRegistros {
public:
    // Progress of a long load: rows read so far and the expected total.
    using Progreso = std::function<void(qint32 xLeidos, qint32 xTotal)>;

    // No sort column, and no sort mode applied yet.
    static constexpr qint16 SinColumna = -1;
    static constexpr qint32 SinOrden = 100;

    explicit clsNavegadorRegistros(clsGrillaFlexible& xTabla);

    void EstablecerBase(clsPDBInterface* xBase) { mBase = xBase; }
    clsGrillaFlexible& Tabla() const { return mTabla; }

    // Clears both grids, lays the records grid out from the schema (one column per field and the
    // hidden spare one, the titles in the header row) and lists the fields in the schema grid.
    void CargarFormatoTabla(clsGrillaFlexible& xCampos);

    // Reads up to xCantidad records (-1: all) after the last one read, or from the first when
    // xReiniciar (which first cuts the grid back to its header). Returns the rows appended.
    qint32 CargarTabla(bool xReiniciar, qint16 xCantidad, bool xSoloModificados,
                       const Progreso& xProgreso = {});
    // Every record from the first into the grid: what export and print take.
    qint32 CargarTodos(bool xSoloModificados = false, const Progreso& xProgreso = {});
    // The last batch reached the end of the database's records.
    bool FinAlcanzado() const { return mFinAlcanzado; }

    // With records: one fixed row and no fixed column. Header alone: no fixed row and every field
    // column fixed, so the header keeps the fixed colour.
    void AplicarReglaFijas();
    bool TieneRegistros() const;

    // The row holding the record, or -1.
    qint32 FilaDeRegistro(qint32 xRecordID) const;
    qint32 RegistroDeFila(qint32 xFila) const;

    // Total records of the database, shown after "/ " in the position text.
    qint32 CantidadRegistros() const { return mCantidadRegistros; }
    void EstablecerCantidadRegistros(qint32 xCantidad) { mCantidadRegistros = xCantidad; }
    // "Record r/ n" for the current row r, or "Record 0/ 0" without records.
    QString TextoPosicion(qint32 xFilaActual) const;
    // The position text of row xFila of xTotal records: "Record 3/ 45".
    static QString TextoPosicion(qint32 xFila, qint32 xTotal);
    // The position text when a database is chosen: its first record, or "Record 0/ 0".
    QString TextoPosicionInicial() const;
    // The widest position text of a database, whose records count in 16 bits.
    static QString TextoPosicionMasAncho() { return TextoPosicion(65535, 65535); }

    // The sort mode of a field type: numeric for numbers, the custom order (rows keep their
    // order) for dates, case-sensitive text for texts and booleans; any other type keeps xAnterior.
    static qint32 ModoOrdenTipo(const QString& xTipo, qint32 xAnterior);
    // A header click: remembers the column and its mode and sorts by it.
    void OrdenarPorColumna(qint16 xColumna);
    // Sorts again on the remembered column, if any; returns whether it did.
    bool Reordenar();
    qint16 ColumnaOrden() const { return mColumnaOrden; }
    qint32 ModoOrden() const { return mModoOrden; }
    // After a load: the same database keeps and re-applies its remembered sort, another one
    // forgets it. Returns the column sorted again, or -1.
    qint16 RecordarBase(const QString& xNombreBase);

    // A character typed into the batch size box is kept when it is a digit, Backspace, a comma,
    // a minus or a period.
    static bool CaracterCantidadAceptado(QChar xCaracter);
    // The batch size box after a step of its arrows: its number (Val) moved by xPaso and kept
    // within -1 (all records) and 1000.
    static QString CantidadTrasPaso(const QString& xCantidad, int xPaso);

    // The attribute byte of the four boxes.
    static qint32 ByteAtributos(bool xDeleted, bool xDirty, bool xArchive, bool xSecret);

    // A new blank record, read back and appended as the last row (and sorted again). Returns the
    // new record's ID, or -1 when the database gave none or it cannot be read back.
    qint32 AgregarRegistro();
    // The field xColumna of the row's record now reads xValor and its ID is xNuevoID; the grid is
    // sorted again on the remembered column. Returns the row the record is in afterwards.
    qint32 ActualizarFila(qint32 xFila, qint32 xColumna, const QString& xValor, qint32 xNuevoID);
    // What deleting a row's record came to.
    enum class Eliminacion {
        Rechazada,   // the database refused: the grid is unchanged
        FilaQuitada, // the row is gone
        Recargar     // it was the only data row: the grid is to be loaded again from the first
    };
    // An update the record codec refused for its value (overflow, type mismatch, a field beyond
    // the schema): nothing was written, and the dialog asks for another value instead of showing
    // the error.
    static bool ValorRechazado(const ErrorVB& xError);
    // Deletes the record of row xFila and lowers the record count.
    Eliminacion EliminarRegistro(qint32 xFila);
    // Where the current row goes after row xFila was deleted from a grid now of xFilas rows.
    static qint32 FilaTrasEliminar(qint32 xFila, qint32 xFilas);

private:
    clsGrillaFlexible& mTabla;
    clsPDBInterface* mBase = nullptr;
    bool mFinAlcanzado = false;
    qint32 mCantidadRegistros = 0;
    qint16 mColumnaOrden = SinColumna;
    qint32 mModoOrden = SinOrden;
    QString mNombreUltimaBase;
};
