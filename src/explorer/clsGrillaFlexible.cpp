#include "explorer/clsGrillaFlexible.h"

#include "common/ErrorVB.h"

#include <algorithm>
#include <numeric>

namespace {
const QString kFuente = QStringLiteral("clsGrillaFlexible");
const QChar kTab = QLatin1Char('\t');
} // namespace

QStringView clsGrillaFlexible::Fila::Celda(qint32 xCelda) const {
    const qint32 inicio = xCelda == 0 ? 0 : Finales.at(xCelda - 1) + 1;
    return QStringView(Texto).mid(inicio, Finales.at(xCelda) - inicio);
}

void clsGrillaFlexible::Fila::Recortar(qint32 xCeldas) {
    if (Celdas() <= xCeldas) return;
    Texto.truncate(xCeldas == 0 ? 0 : Finales.at(xCeldas - 1));
    Finales.resize(xCeldas);
}

clsGrillaFlexible::clsGrillaFlexible(QObject* xPadre) : QAbstractTableModel(xPadre) {
    SetLocale(QLocale());
}

void clsGrillaFlexible::ValidarFila(qint32 xFila) const {
    if (xFila < 0 || xFila >= Rows()) throw ErrorVB::SubscriptOutOfRange(kFuente);
}

void clsGrillaFlexible::ValidarColumna(qint32 xColumna) const {
    if (xColumna < 0 || xColumna >= mColumnas) throw ErrorVB::SubscriptOutOfRange(kFuente);
}

void clsGrillaFlexible::SetRows(qint32 xFilas) {
    if (xFilas < 0) throw ErrorVB::SubscriptOutOfRange(kFuente);
    const qint32 actuales = Rows();
    if (xFilas == actuales) return;
    // At least one row scrolls: fewer rows take fixed rows with them.
    const bool fijasCambian = mFilasFijas > 0 && mFilasFijas >= xFilas;
    if (fijasCambian) mFilasFijas = std::max(0, xFilas - 1);
    if (xFilas > actuales) {
        beginInsertRows(QModelIndex(), actuales, xFilas - 1);
        mFilas.resize(xFilas);
        endInsertRows();
    } else {
        beginRemoveRows(QModelIndex(), xFilas, actuales - 1);
        mFilas.resize(xFilas);
        endRemoveRows();
    }
    if (fijasCambian) {
        emit headerDataChanged(Qt::Horizontal, 0, std::max(0, mColumnas - 1));
        emit FormatoCambiado();
    }
}

void clsGrillaFlexible::CambiarColumnas(qint32 xColumnas) {
    mColumnas = xColumnas;
    mAnchos.resize(xColumnas);
    mAlineaciones.resize(xColumnas);
    for (Fila& fila : mFilas)
        fila.Recortar(xColumnas);
}

void clsGrillaFlexible::SetCols(qint32 xColumnas) {
    if (xColumnas < 0) throw ErrorVB::SubscriptOutOfRange(kFuente);
    const qint32 actuales = mColumnas;
    if (xColumnas == actuales) return;
    if (mColumnasFijas >= xColumnas) mColumnasFijas = std::max(0, xColumnas - 1);
    if (xColumnas > actuales) {
        beginInsertColumns(QModelIndex(), actuales, xColumnas - 1);
        CambiarColumnas(xColumnas);
        std::fill(mAnchos.begin() + actuales, mAnchos.end(), AnchoPredeterminado);
        std::fill(mAlineaciones.begin() + actuales, mAlineaciones.end(), General);
        endInsertColumns();
    } else {
        beginRemoveColumns(QModelIndex(), xColumnas, actuales - 1);
        CambiarColumnas(xColumnas);
        endRemoveColumns();
    }
    emit FormatoCambiado();
}

void clsGrillaFlexible::SetFixedRows(qint32 xFijas) {
    if (xFijas < 0 || (xFijas > 0 && xFijas >= Rows())) throw ErrorVB::SubscriptOutOfRange(kFuente);
    if (xFijas == mFilasFijas) return;
    mFilasFijas = xFijas;
    if (Rows() > 0) emit dataChanged(index(0, 0), index(Rows() - 1, std::max(0, mColumnas - 1)));
    if (mColumnas > 0) emit headerDataChanged(Qt::Horizontal, 0, mColumnas - 1);
    emit FormatoCambiado();
}

void clsGrillaFlexible::SetFixedCols(qint32 xFijas) {
    if (xFijas < 0 || (xFijas > 0 && xFijas >= mColumnas))
        throw ErrorVB::SubscriptOutOfRange(kFuente);
    if (xFijas == mColumnasFijas) return;
    mColumnasFijas = xFijas;
    if (Rows() > 0) emit dataChanged(index(0, 0), index(Rows() - 1, mColumnas - 1));
    emit FormatoCambiado();
}

QString clsGrillaFlexible::TextMatrix(qint32 xFila, qint32 xColumna) const {
    ValidarFila(xFila);
    ValidarColumna(xColumna);
    const Fila& fila = mFilas.at(xFila);
    return xColumna < fila.Celdas() ? fila.Celda(xColumna).toString() : QString();
}

void clsGrillaFlexible::SetTextMatrix(qint32 xFila, qint32 xColumna, const QString& xTexto) {
    ValidarFila(xFila);
    ValidarColumna(xColumna);
    Fila& fila = mFilas[xFila];
    Fila nueva;
    nueva.Dato = fila.Dato;
    for (qint32 c = 0; c < std::max(fila.Celdas(), xColumna + 1); ++c) {
        if (c > 0) nueva.Texto += kTab;
        nueva.Texto += c == xColumna ? QStringView(xTexto)
                                     : (c < fila.Celdas() ? fila.Celda(c) : QStringView());
        nueva.Finales.append(static_cast<qint32>(nueva.Texto.size()));
    }
    fila = std::move(nueva);
    const QModelIndex celda = index(xFila, xColumna);
    emit dataChanged(celda, celda);
    if (xFila == 0 && mFilasFijas > 0) emit headerDataChanged(Qt::Horizontal, xColumna, xColumna);
}

qint32 clsGrillaFlexible::RowData(qint32 xFila) const {
    ValidarFila(xFila);
    return mFilas.at(xFila).Dato;
}

void clsGrillaFlexible::SetRowData(qint32 xFila, qint32 xDato) {
    ValidarFila(xFila);
    mFilas[xFila].Dato = xDato;
    if (mColumnas > 0) emit dataChanged(index(xFila, 0), index(xFila, mColumnas - 1), {RolDato});
}

qint32 clsGrillaFlexible::ColWidth(qint32 xColumna) const {
    ValidarColumna(xColumna);
    return mAnchos.at(xColumna);
}

void clsGrillaFlexible::SetColWidth(qint32 xColumna, qint32 xTwips) {
    ValidarColumna(xColumna);
    mAnchos[xColumna] = std::max(0, xTwips);
    emit FormatoCambiado();
}

qint32 clsGrillaFlexible::ColAlignment(qint32 xColumna) const {
    ValidarColumna(xColumna);
    return mAlineaciones.at(xColumna);
}

void clsGrillaFlexible::SetColAlignment(qint32 xColumna, qint32 xCodigo) {
    ValidarColumna(xColumna);
    if (xCodigo < IzquierdaArriba || xCodigo > General) throw ErrorVB::SubscriptOutOfRange(kFuente);
    mAlineaciones[xColumna] = xCodigo;
    if (Rows() > 0)
        emit dataChanged(index(0, xColumna), index(Rows() - 1, xColumna), {Qt::TextAlignmentRole});
    emit headerDataChanged(Qt::Horizontal, xColumna, xColumna);
}

clsGrillaFlexible::Fila clsGrillaFlexible::FilaDeTexto(const QString& xTexto) const {
    Fila fila;
    if (mColumnas == 0) return fila;
    fila.Texto = xTexto;
    qsizetype tab = -1;
    while (fila.Celdas() < mColumnas - 1 && (tab = xTexto.indexOf(kTab, tab + 1)) >= 0)
        fila.Finales.append(static_cast<qint32>(tab));
    // Parts beyond the last column are dropped.
    const qsizetype fin =
        xTexto.indexOf(kTab, fila.Finales.isEmpty() ? 0 : fila.Finales.last() + 1);
    if (fila.Celdas() == mColumnas - 1 && fin >= 0) fila.Texto.truncate(fin);
    fila.Finales.append(static_cast<qint32>(fila.Texto.size()));
    return fila;
}

qint32 clsGrillaFlexible::AddItem(const QString& xTexto) {
    const qint32 fila = Rows();
    beginInsertRows(QModelIndex(), fila, fila);
    mFilas.append(FilaDeTexto(xTexto));
    endInsertRows();
    return fila;
}

void clsGrillaFlexible::AddItems(const QStringList& xTextos, const QVector<qint32>& xDatos) {
    if (xTextos.isEmpty()) return;
    const qint32 primera = Rows();
    beginInsertRows(QModelIndex(), primera, primera + static_cast<qint32>(xTextos.size()) - 1);
    for (qsizetype i = 0; i < xTextos.size(); ++i) {
        Fila fila = FilaDeTexto(xTextos.at(i));
        fila.Dato = i < xDatos.size() ? xDatos.at(i) : 0;
        mFilas.append(std::move(fila));
    }
    endInsertRows();
}

void clsGrillaFlexible::RemoveItem(qint32 xFila) {
    ValidarFila(xFila);
    if (xFila < mFilasFijas) throw ErrorVB::SubscriptOutOfRange(kFuente);
    beginRemoveRows(QModelIndex(), xFila, xFila);
    mFilas.removeAt(xFila);
    endRemoveRows();
    // At least one row scrolls: the last scrolling row takes a fixed row with it.
    if (mFilasFijas > 0 && mFilasFijas >= Rows()) {
        mFilasFijas = std::max(0, Rows() - 1);
        emit headerDataChanged(Qt::Horizontal, 0, std::max(0, mColumnas - 1));
        emit FormatoCambiado();
    }
}

double clsGrillaFlexible::ValorNumerico(QStringView xTexto) const {
    bool ok = false;
    const QStringView texto = xTexto.trimmed();
    // Where the locale writes numbers as C does, the quick C reading goes first.
    if (mDecimalComoC) {
        const double valor = texto.toDouble(&ok);
        if (ok) return valor;
    }
    double valor = mLocale.toDouble(texto, &ok);
    if (!ok) valor = QLocale::c().toDouble(texto, &ok);
    return ok ? valor : 0.0;
}

void clsGrillaFlexible::SetLocale(const QLocale& xLocale) {
    mLocale = xLocale;
    mDecimalComoC = xLocale.decimalPoint() == QStringLiteral(".") &&
                    xLocale.groupSeparator() != QStringLiteral(".");
}

namespace {
// The stable ascending order of the indices in xOrden (ascending themselves) under xMenor. A grid
// that is already in order, or has one row out of place (an edited or added row), is put in order
// in one pass; anything else gets a full stable sort. Returns false when nothing moves.
template <typename Menor> bool Ordenar(QVector<qint32>& xOrden, const Menor& xMenor) {
    const auto enOrden = [&](const QVector<qint32>& xFilas) {
        return std::adjacent_find(xFilas.cbegin(), xFilas.cend(), [&](qint32 a, qint32 b) {
                   return xMenor(b, a);
               }) == xFilas.cend();
    };
    const auto descenso = std::adjacent_find(xOrden.cbegin(), xOrden.cend(),
                                             [&](qint32 a, qint32 b) { return xMenor(b, a); });
    if (descenso == xOrden.cend()) return false;
    const qsizetype primero = descenso - xOrden.cbegin();
    for (const qsizetype candidato : {primero, primero + 1}) {
        QVector<qint32> resto = xOrden;
        const qint32 fila = resto.takeAt(candidato);
        if (!enOrden(resto)) continue;
        // Among equal values the rows keep the order they had.
        const auto lugar = std::find_if(resto.cbegin(), resto.cend(), [&](qint32 otra) {
            return xMenor(fila, otra) || (!xMenor(otra, fila) && otra > fila);
        });
        resto.insert(lugar - resto.cbegin(), fila);
        xOrden = std::move(resto);
        return true;
    }
    std::stable_sort(xOrden.begin(), xOrden.end(), xMenor);
    return true;
}
} // namespace

void clsGrillaFlexible::Sort(qint32 xModo, qint32 xColumna) {
    ValidarColumna(xColumna);
    if (xModo != NumericoAscendente && xModo != TextoAscendente)
        return; // a custom order without a compare rule keeps the rows as they are
    const qint32 primera = mFilasFijas;
    const qint32 cantidad = Rows() - primera;
    if (cantidad < 2) return;

    QVector<qint32> orden(cantidad);
    std::iota(orden.begin(), orden.end(), primera);
    bool cambia = false;
    if (xModo == NumericoAscendente) {
        QVector<double> claves(Rows());
        for (qint32 f = primera; f < Rows(); ++f) {
            const Fila& fila = mFilas.at(f);
            claves[f] =
                ValorNumerico(xColumna < fila.Celdas() ? fila.Celda(xColumna) : QStringView());
        }
        cambia = Ordenar(orden, [&](qint32 a, qint32 b) { return claves.at(a) < claves.at(b); });
    } else {
        // Views of the cells: the rows do not move while their order is worked out.
        QVector<QStringView> claves(Rows());
        for (qint32 f = primera; f < Rows(); ++f) {
            const Fila& fila = mFilas.at(f);
            if (xColumna < fila.Celdas()) claves[f] = fila.Celda(xColumna);
        }
        cambia = Ordenar(orden, [&](qint32 a, qint32 b) {
            return claves.at(a).compare(claves.at(b), Qt::CaseSensitive) < 0;
        });
    }
    if (!cambia) return;

    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    QVector<qint32> nuevaPosicion(Rows());
    std::iota(nuevaPosicion.begin(), nuevaPosicion.end(), 0);
    QVector<Fila> ordenadas;
    ordenadas.reserve(cantidad);
    for (qint32 i = 0; i < cantidad; ++i) {
        nuevaPosicion[orden.at(i)] = primera + i;
        ordenadas.append(std::move(mFilas[orden.at(i)]));
    }
    std::move(ordenadas.begin(), ordenadas.end(), mFilas.begin() + primera);
    const QModelIndexList anteriores = persistentIndexList();
    QModelIndexList nuevos;
    nuevos.reserve(anteriores.size());
    for (const QModelIndex& indice : anteriores)
        nuevos.append(index(nuevaPosicion.at(indice.row()), indice.column()));
    changePersistentIndexList(anteriores, nuevos);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

int clsGrillaFlexible::rowCount(const QModelIndex& xPadre) const {
    return xPadre.isValid() ? 0 : Rows();
}

int clsGrillaFlexible::columnCount(const QModelIndex& xPadre) const {
    return xPadre.isValid() ? 0 : mColumnas;
}

Qt::Alignment clsGrillaFlexible::AlineacionQt(qint32 xCodigo, const QString& xTexto) {
    if (xCodigo == General) {
        bool numero = false;
        QLocale::c().toDouble(xTexto.trimmed(), &numero);
        return (numero ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    }
    static const Qt::Alignment horizontal[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    static const Qt::Alignment vertical[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    return horizontal[xCodigo / 3] | vertical[xCodigo % 3];
}

QVariant clsGrillaFlexible::data(const QModelIndex& xIndice, int xRol) const {
    if (!checkIndex(xIndice, CheckIndexOption::IndexIsValid)) return {};
    const int fila = xIndice.row();
    const int columna = xIndice.column();
    switch (xRol) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return TextMatrix(fila, columna);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(
            AlineacionQt(mAlineaciones.at(columna), TextMatrix(fila, columna)));
    case RolDato:
        return mFilas.at(fila).Dato;
    case RolFija:
        return fila < mFilasFijas || columna < mColumnasFijas;
    default:
        return {};
    }
}

QVariant clsGrillaFlexible::headerData(int xSeccion, Qt::Orientation xOrientacion, int xRol) const {
    if (xOrientacion != Qt::Horizontal || xSeccion < 0 || xSeccion >= mColumnas)
        return QAbstractTableModel::headerData(xSeccion, xOrientacion, xRol);
    if (xRol == Qt::DisplayRole) return mFilasFijas > 0 ? TextMatrix(0, xSeccion) : QString();
    if (xRol == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    return {};
}

Qt::ItemFlags clsGrillaFlexible::flags(const QModelIndex& xIndice) const {
    if (!xIndice.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}
