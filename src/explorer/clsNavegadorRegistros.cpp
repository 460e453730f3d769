#include "explorer/clsNavegadorRegistros.h"

#include "common/ErrorVB.h"
#include "common/modFunciones.h"
#include "data/clsPDBInterface.h"
#include "data/formato/clsArchivoPDB.h"
#include "explorer/clsGrillaFlexible.h"

#include <QStringList>
#include <QVector>
#include <algorithm>

namespace {
const QString kSeparador = QStringLiteral("\t");

// Rows reach the grid in batches of this many, so a whole database loads in a blink.
constexpr int kLote = 1000;
// The batch size box's arrows step within these.
constexpr int kCantidadMinima = -1;
constexpr int kCantidadMaxima = 1000;

// Width of a field column, in twips; a left-aligned text column is twice as wide.
constexpr qint32 kAnchoCampo = 1000;
constexpr qint32 kAnchoTexto = 2000;
} // namespace

clsNavegadorRegistros::clsNavegadorRegistros(clsGrillaFlexible& xTabla) : mTabla(xTabla) {}

void clsNavegadorRegistros::CargarFormatoTabla(clsGrillaFlexible& xCampos) {
    mTabla.SetRows(0);
    xCampos.SetRows(1);
    const qint16 cantidad = mBase->NumFields();
    mTabla.SetCols(cantidad + 1);
    mTabla.AddItem(mBase->FieldsTitles(kSeparador));
    mTabla.SetColWidth(cantidad, 0);
    for (qint32 i = 0; i < cantidad; ++i) {
        const QString tipo = mBase->FieldType(i);
        const qint32 alineacion = mBase->FieldAlignment(i);
        mTabla.SetColWidth(i, alineacion == 1 && tipo == QStringLiteral("String") ? kAnchoTexto
                                                                                  : kAnchoCampo);
        if (alineacion == 0)
            mTabla.SetColAlignment(i, clsGrillaFlexible::DerechaArriba);
        else if (alineacion == 1)
            mTabla.SetColAlignment(i, clsGrillaFlexible::IzquierdaCentro);
        else if (alineacion == 2)
            mTabla.SetColAlignment(i, clsGrillaFlexible::CentroCentro);
        xCampos.AddItem(mTabla.TextMatrix(0, i) + kSeparador + tipo);
    }
    AplicarReglaFijas();
    xCampos.SetFixedCols(0);
    if (xCampos.Rows() > 1) xCampos.SetFixedRows(1);
}

qint32 clsNavegadorRegistros::CargarTabla(bool xReiniciar, qint16 xCantidad, bool xSoloModificados,
                                          const Progreso& xProgreso) {
    if (xReiniciar) {
        mTabla.SetRows(1);
        AplicarReglaFijas();
        mFinAlcanzado = false;
    }
    const qint32 antes = mTabla.Rows();
    QStringList textos;
    QVector<qint32> ids;
    const auto volcar = [&] {
        if (textos.isEmpty()) return;
        mTabla.AddItems(textos, ids);
        textos.clear();
        ids.clear();
        AplicarReglaFijas();
    };
    try {
        // The database keeps its reading position between batches; a restart moves it to the
        // first record.
        bool reiniciar = xReiniciar;
        qint32 id = 0;
        for (qint32 k = 0; id != -1 && (xCantidad == -1 || k < xCantidad); ++k) {
            QString registro;
            id = mBase->ReadRecord(reiniciar, registro, kSeparador, -1, xSoloModificados);
            if (id == -1) {
                mFinAlcanzado = true;
                continue;
            }
            textos << registro;
            ids << id;
            if (textos.size() >= kLote) {
                volcar();
                if (xProgreso)
                    xProgreso(mTabla.Rows() - 1, std::max(mCantidadRegistros, mTabla.Rows() - 1));
            }
        }
    } catch (...) {
        volcar();
        throw;
    }
    volcar();
    return mTabla.Rows() - antes;
}

qint32 clsNavegadorRegistros::CargarTodos(bool xSoloModificados, const Progreso& xProgreso) {
    return CargarTabla(true, -1, xSoloModificados, xProgreso);
}

void clsNavegadorRegistros::AplicarReglaFijas() {
    if (mTabla.Rows() > 1) {
        mTabla.SetFixedCols(0);
        mTabla.SetFixedRows(1);
    } else {
        mTabla.SetFixedRows(0);
        mTabla.SetFixedCols(std::max(0, mTabla.Cols() - 1));
    }
}

bool clsNavegadorRegistros::TieneRegistros() const {
    return mTabla.Rows() > 1;
}

qint32 clsNavegadorRegistros::FilaDeRegistro(qint32 xRecordID) const {
    for (qint32 f = 1; f < mTabla.Rows(); ++f)
        if (mTabla.RowData(f) == xRecordID) return f;
    return -1;
}

qint32 clsNavegadorRegistros::RegistroDeFila(qint32 xFila) const {
    return mTabla.RowData(xFila);
}

QString clsNavegadorRegistros::TextoPosicion(qint32 xFilaActual) const {
    return TieneRegistros() ? TextoPosicion(xFilaActual, mCantidadRegistros) : TextoPosicion(0, 0);
}

QString clsNavegadorRegistros::TextoPosicionInicial() const {
    return TextoPosicion(mCantidadRegistros > 0 ? 1 : 0, mCantidadRegistros);
}

QString clsNavegadorRegistros::TextoPosicion(qint32 xFila, qint32 xTotal) {
    return QStringLiteral("Record %1/ %2").arg(xFila).arg(xTotal);
}

qint32 clsNavegadorRegistros::ModoOrdenTipo(const QString& xTipo, qint32 xAnterior) {
    static const QStringList numeros = {QStringLiteral("Byte"), QStringLiteral("Int"),
                                        QStringLiteral("Long"), QStringLiteral("Single")};
    if (numeros.contains(xTipo)) return clsGrillaFlexible::NumericoAscendente;
    if (xTipo == QStringLiteral("Date")) return clsGrillaFlexible::Personalizado;
    if (xTipo == QStringLiteral("String") || xTipo == QStringLiteral("Boolean"))
        return clsGrillaFlexible::TextoAscendente;
    return xAnterior;
}

void clsNavegadorRegistros::OrdenarPorColumna(qint16 xColumna) {
    mColumnaOrden = xColumna;
    mModoOrden = ModoOrdenTipo(mBase->FieldType(xColumna), mModoOrden);
    mTabla.Sort(mModoOrden, mColumnaOrden);
}

bool clsNavegadorRegistros::Reordenar() {
    if (mColumnaOrden == SinColumna) return false;
    mTabla.Sort(mModoOrden, mColumnaOrden);
    return true;
}

qint16 clsNavegadorRegistros::RecordarBase(const QString& xNombreBase) {
    const bool misma = xNombreBase == mNombreUltimaBase && mColumnaOrden != SinColumna;
    mNombreUltimaBase = xNombreBase;
    if (misma) {
        Reordenar();
        return mColumnaOrden;
    }
    mColumnaOrden = SinColumna;
    mModoOrden = SinOrden;
    return SinColumna;
}

bool clsNavegadorRegistros::CaracterCantidadAceptado(QChar xCaracter) {
    return xCaracter.isDigit() || xCaracter == QLatin1Char('\b') || xCaracter == QLatin1Char(',') ||
           xCaracter == QLatin1Char('-') || xCaracter == QLatin1Char('.');
}

QString clsNavegadorRegistros::CantidadTrasPaso(const QString& xCantidad, int xPaso) {
    const int valor = static_cast<int>(modFunciones::Val(xCantidad)) + xPaso;
    return QString::number(std::clamp(valor, kCantidadMinima, kCantidadMaxima));
}

qint32 clsNavegadorRegistros::ByteAtributos(bool xDeleted, bool xDirty, bool xArchive,
                                            bool xSecret) {
    return (xDeleted ? clsArchivoPDB::AtributoBorrado : 0) |
           (xDirty ? clsArchivoPDB::AtributoModificado : 0) |
           (xArchive ? clsArchivoPDB::AtributoArchivado : 0) |
           (xSecret ? clsArchivoPDB::AtributoSecreto : 0);
}

qint32 clsNavegadorRegistros::AgregarRegistro() {
    const qint32 id = mBase->NewRecord();
    if (id == 0) return -1;
    QString registro;
    if (!mBase->ReadRecordByID(id, registro, kSeparador)) return -1;
    const qint32 fila = mTabla.AddItem(registro);
    mTabla.SetRowData(fila, id);
    if (mTabla.Rows() == 2) AplicarReglaFijas();
    Reordenar();
    return id;
}

qint32 clsNavegadorRegistros::ActualizarFila(qint32 xFila, qint32 xColumna, const QString& xValor,
                                             qint32 xNuevoID) {
    mTabla.SetTextMatrix(xFila, xColumna, xValor);
    mTabla.SetRowData(xFila, xNuevoID);
    if (!Reordenar()) return xFila;
    return FilaDeRegistro(xNuevoID);
}

bool clsNavegadorRegistros::ValorRechazado(const ErrorVB& xError) {
    return xError.Numero() == ErrorVB::Desbordamiento ||
           xError.Numero() == ErrorVB::TiposNoCoinciden ||
           xError.Numero() == ErrorVB::SubindiceFueraDeRango;
}

clsNavegadorRegistros::Eliminacion clsNavegadorRegistros::EliminarRegistro(qint32 xFila) {
    if (!mBase->DeleteRecord(mTabla.RowData(xFila))) return Eliminacion::Rechazada;
    --mCantidadRegistros;
    if (mTabla.Rows() < 3) return Eliminacion::Recargar;
    mTabla.RemoveItem(xFila);
    return Eliminacion::FilaQuitada;
}

qint32 clsNavegadorRegistros::FilaTrasEliminar(qint32 xFila, qint32 xFilas) {
    return xFilas - 1 > xFila ? xFila : xFilas - 1;
}
