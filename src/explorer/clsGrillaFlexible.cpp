#include "explorer/clsGrillaFlexible.h"

#include "common/ErrorVB.h"

#include <algorithm>
#include <numeric>

namespace {
const QString kFuente = QStringLiteral("clsGrillaFlexible");
const QChar kTab = QLatin1Char('\t');
} // namespace

clsGrillaFlexible::clsGrillaFlexible(QObject* xPadre) : QAbstractTableModel(xPadre) {}

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
        if (fila.Celdas.size() > xColumnas)
            fila.Celdas.erase(fila.Celdas.begin() + xColumnas, fila.Celdas.end());
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
    const QStringList& celdas = mFilas.at(xFila).Celdas;
    return xColumna < celdas.size() ? celdas.at(xColumna) : QString();
}

void clsGrillaFlexible::SetTextMatrix(qint32 xFila, qint32 xColumna, const QString& xTexto) {
    ValidarFila(xFila);
    ValidarColumna(xColumna);
    QStringList& celdas = mFilas[xFila].Celdas;
    while (celdas.size() <= xColumna)
        celdas.append(QString());
    celdas[xColumna] = xTexto;
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
    fila.Celdas = xTexto.split(kTab);
    if (fila.Celdas.size() > mColumnas)
        fila.Celdas.erase(fila.Celdas.begin() + mColumnas, fila.Celdas.end());
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
    mFilas.reserve(primera + xTextos.size());
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
}

double clsGrillaFlexible::ValorNumerico(const QString& xTexto) const {
    bool ok = false;
    const QString texto = xTexto.trimmed();
    double valor = mLocale.toDouble(texto, &ok);
    if (!ok) valor = QLocale::c().toDouble(texto, &ok);
    return ok ? valor : 0.0;
}

void clsGrillaFlexible::Sort(qint32 xModo, qint32 xColumna) {
    ValidarColumna(xColumna);
    if (xModo != NumericoAscendente && xModo != TextoAscendente)
        return; // a custom order without a compare rule keeps the rows as they are
    const qint32 primera = mFilasFijas;
    const qint32 cantidad = Rows() - primera;
    if (cantidad < 2) return;

    QVector<qint32> orden(cantidad);
    std::iota(orden.begin(), orden.end(), primera);
    if (xModo == NumericoAscendente) {
        QVector<double> claves(Rows());
        for (qint32 f = primera; f < Rows(); ++f)
            claves[f] = ValorNumerico(TextMatrix(f, xColumna));
        std::stable_sort(orden.begin(), orden.end(),
                         [&](qint32 a, qint32 b) { return claves.at(a) < claves.at(b); });
    } else {
        std::stable_sort(orden.begin(), orden.end(), [&](qint32 a, qint32 b) {
            return QString::compare(TextMatrix(a, xColumna), TextMatrix(b, xColumna),
                                    Qt::CaseSensitive) < 0;
        });
    }

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
