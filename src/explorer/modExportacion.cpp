#include "explorer/modExportacion.h"

#include "common/ErrorVB.h"
#include "common/modFunciones.h"
#include "data/modDestino.h"
#include "explorer/clsGrillaFlexible.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <cstring>
#include <utility>

namespace modExportacion {

const QString kFiltros = QStringLiteral("Tab Delimited (*.txt);;Comma Delimited(*.csv)");

namespace {

const QString kFuente = QStringLiteral("modExportacion");

// Lines are gathered in memory and written in blocks of about this size.
constexpr qsizetype kBloque = 1 << 20;

ErrorVB ErrorArchivo(qint32 xNumero, const QString& xDescripcion, const QString& xArchivo,
                     const clsEscrituraSegura& xEscritura) {
    return ErrorVB(xNumero, kFuente,
                   QStringLiteral("%1: %2 (%3)").arg(xDescripcion, xArchivo, xEscritura.Error()));
}

// Copies xTexto a byte per character into xDestino and says whether every character was below
// 128, so that the copy stands; one pass, written to let the compiler take many at once.
bool CopiarAscii(QStringView xTexto, char* xDestino) {
    char16_t todos = 0;
    const char16_t* c = xTexto.utf16();
    for (qsizetype i = 0; i < xTexto.size(); ++i) {
        todos |= c[i];
        xDestino[i] = char(c[i]);
    }
    return todos < 128;
}

} // namespace

QString NombreConExtension(const QString& xNombre, int xIndiceFiltro) {
    const qsizetype punto = xNombre.lastIndexOf(QLatin1Char('.'));
    const qsizetype barra = xNombre.lastIndexOf(QLatin1Char('/'));
    if (!xNombre.endsWith(QLatin1Char('.')) && punto >= barra) return xNombre;
    QString nombre = xNombre;
    if (nombre.endsWith(QLatin1Char('.'))) nombre.chop(1);
    return nombre + (xIndiceFiltro == 1 ? QStringLiteral(".txt") : QStringLiteral(".csv"));
}

int IndiceFiltro(const QString& xFiltroElegido) {
    const qsizetype indice = kFiltros.split(QStringLiteral(";;")).indexOf(xFiltroElegido);
    return indice < 0 ? 1 : int(indice) + 1;
}

Formato FormatoDeFiltro(int xIndiceFiltro) {
    return xIndiceFiltro == 1 ? Formato::Tabulado : Formato::Comas;
}

bool ValidarArchivoExportacion(const QString& xArchivo, const Respuestas& xRespuestas) {
    const QString archivo = xArchivo.trimmed();
    if (archivo.isEmpty()) {
        xRespuestas.Avisar(QStringLiteral("Invalid file name"));
        return false;
    }
    modDestino::Comprobar(archivo, QStringLiteral("ValidarArchivoExportacion"));
    if (QFileInfo::exists(archivo) &&
        !xRespuestas.Preguntar(QStringLiteral("The file already exist, replace it?")))
        return false;
    const QString carpeta = archivo.left(archivo.lastIndexOf(QLatin1Char('/')) + 1);
    if (carpeta.isEmpty() || QFileInfo(carpeta).isDir()) return true;
    if (!xRespuestas.Preguntar(QStringLiteral("The Folder ") + carpeta.trimmed() +
                               QStringLiteral(" not exist.\r\nDo you want to create this Folder?")))
        return false;
    modFunciones::CrearCarpeta(carpeta);
    return true;
}

clsArchivoExportacion::clsArchivoExportacion(
    const QString& xArchivo, Formato xFormato, QStringList xTipos,
    const modFuncionesConversion::TablaCodigoPagina& xTabla)
    : mNombre(xArchivo), mArchivo(xArchivo), mFormato(xFormato), mTipos(std::move(xTipos)),
      mTabla(xTabla), mSeparador(xFormato == Formato::Tabulado ? '\t' : ',') {
    for (const QString& tipo : std::as_const(mTipos)) {
        mEsTexto.push_back(tipo == QLatin1String("String"));
        mEsSingle.push_back(tipo == QLatin1String("Single"));
    }
    if (!mArchivo.Abrir())
        throw ErrorArchivo(75, QStringLiteral("The file cannot be created"), mNombre, mArchivo);
    for (int c = 0; c < 128; ++c) {
        mAscii[c] = char(mTabla.Byte(QChar(c)));
        mAsciiIgual = mAsciiIgual && mAscii[c] == char(c);
    }
    mBuffer.resize(size_t(kBloque));
}

void clsArchivoExportacion::Encabezado(const std::vector<QStringView>& xCeldas) {
    Linea(xCeldas, true);
}

void clsArchivoExportacion::Fila(const std::vector<QStringView>& xCeldas) {
    Linea(xCeldas, false);
}

void clsArchivoExportacion::FilaTabulada(QStringView xTexto) {
    mCeldas.clear();
    // Cells are a few letters long: a plain search beats a library call per cell.
    const char16_t* celda = xTexto.utf16();
    const char16_t* const fin = celda + xTexto.size();
    while (qsizetype(mCeldas.size()) < mTipos.size()) {
        const char16_t* const tab = std::find(celda, fin, u'\t');
        mCeldas.emplace_back(celda, tab - celda);
        if (tab == fin) break;
        celda = tab + 1;
    }
    Linea(mCeldas, false);
}

void clsArchivoExportacion::Linea(const std::vector<QStringView>& xCeldas, bool xEncabezado) {
    const bool estricto = mFormato == Formato::ComasEstricto;
    const bool comas = mFormato != Formato::Tabulado;
    for (qsizetype c = 0; c < mTipos.size(); ++c) {
        if (c > 0) Poner(mSeparador);
        const QStringView texto =
            c < qsizetype(xCeldas.size()) ? xCeldas[size_t(c)] : QStringView();
        if (xEncabezado) {
            Celda(texto, estricto && modFunciones::NecesitaComillasCSV(texto), false, estricto);
            continue;
        }
        const bool single = mEsSingle[size_t(c)];
        const bool comillas = (comas && mEsTexto[size_t(c)]) ||
                              (estricto && modFunciones::NecesitaComillasCSV(texto, single));
        Celda(texto, comillas, single, estricto);
    }
    Poner('\r');
    Poner('\n');
}

void clsArchivoExportacion::Celda(QStringView xTexto, bool xComillas, bool xPuntoDecimal,
                                  bool xDuplicarComillas) {
    if (xComillas) Poner('"');
    Agregar(xTexto, xPuntoDecimal, xDuplicarComillas && xComillas);
    if (xComillas) Poner('"');
}

// The text in the handheld's code page, each character one byte.
void clsArchivoExportacion::Agregar(QStringView xTexto, bool xPuntoDecimal,
                                    bool xDuplicarComillas) {
    if (mTabla.Multibyte()) {
        AgregarMultibyte(xTexto, xPuntoDecimal, xDuplicarComillas);
        return;
    }
    char* const inicio = Espacio(2 * xTexto.size());
    // Most cells are plain ASCII with nothing to change: one narrowing copy, written over below
    // when it does not stand.
    if (mAsciiIgual && !xPuntoDecimal && !xDuplicarComillas && CopiarAscii(xTexto, inicio)) {
        mUsado += xTexto.size();
        return;
    }
    char* destino = inicio;
    for (const QChar c : xTexto) {
        const char16_t u = c.unicode();
        if (xPuntoDecimal && u == u',') {
            *destino++ = '.';
            continue;
        }
        if (xDuplicarComillas && u == u'"') *destino++ = '"';
        *destino++ = u < 128 ? mAscii[u] : char(mTabla.Byte(c));
    }
    mUsado += destino - inicio;
}

// The same in a page where a character may take two bytes: through the page's converter.
void clsArchivoExportacion::AgregarMultibyte(QStringView xTexto, bool xPuntoDecimal,
                                             bool xDuplicarComillas) {
    QString texto;
    texto.reserve(xTexto.size());
    for (const QChar c : xTexto) {
        if (xDuplicarComillas && c == u'"') texto += c;
        texto += xPuntoDecimal && c == u',' ? QChar(u'.') : c;
    }
    const QByteArray bytes = mTabla.CodificarSustituyendo(texto);
    std::memcpy(Espacio(bytes.size()), bytes.constData(), size_t(bytes.size()));
    mUsado += bytes.size();
}

// Room for xBytes more bytes; a full block goes to the file first.
char* clsArchivoExportacion::Espacio(qsizetype xBytes) {
    if (mUsado + xBytes > qsizetype(mBuffer.size())) {
        Volcar();
        if (xBytes > qsizetype(mBuffer.size())) mBuffer.resize(size_t(xBytes));
    }
    return mBuffer.data() + mUsado;
}

void clsArchivoExportacion::Volcar() {
    if (mUsado > 0 && !mArchivo.Escribir(QByteArrayView(mBuffer.data(), mUsado)))
        throw ErrorArchivo(57, QStringLiteral("The file cannot be written"), mNombre, mArchivo);
    mUsado = 0;
}

void clsArchivoExportacion::Terminar() {
    Volcar();
    if (!mArchivo.Terminar())
        throw ErrorArchivo(57, QStringLiteral("The file cannot be written"), mNombre, mArchivo);
}

void ExportarGrilla(const clsGrillaFlexible& xGrilla, const QString& xArchivo, Formato xFormato,
                    const std::function<QString(qint32)>& xTipoCampo,
                    const modFuncionesConversion::TablaCodigoPagina& xTabla) {
    const qint32 columnas = std::max(0, xGrilla.Cols() - 1);
    QStringList tipos;
    for (qint32 c = 0; c < columnas; ++c)
        tipos << xTipoCampo(c);
    clsArchivoExportacion archivo(xArchivo, xFormato, tipos, xTabla);
    // The cells of the row being written: the views need their texts alive.
    QStringList textos;
    std::vector<QStringView> celdas;
    for (qint32 fila = 0; fila < xGrilla.Rows(); ++fila) {
        textos.clear();
        celdas.clear();
        for (qint32 c = 0; c < columnas; ++c)
            textos << xGrilla.TextMatrix(fila, c);
        for (const QString& texto : std::as_const(textos))
            celdas.push_back(texto);
        if (fila == 0)
            archivo.Encabezado(celdas);
        else
            archivo.Fila(celdas);
    }
    archivo.Terminar();
}

} // namespace modExportacion
