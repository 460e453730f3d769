#include "printing/modImpresionGRD.h"

#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "common/modFunciones.h"
#include "printing/clsGrillaImpresion.h"
#include "printing/clsImpresora.h"

#include <QDate>
#include <QDateTime>
#include <QTime>
#include <cmath>
#include <vector>

namespace modImpresionGRD {

namespace {

// The source of a failure that arose in this module, before its procedure's tag is added.
const QString kAplicacion = QStringLiteral("Pandrel");

constexpr double kMargenDerecho = 700; // twips left free at the right of the sheet
constexpr double kEspacioColumnas = 50;
constexpr double kExcesoRaya = 100; // the rules reach this far past the usable width
constexpr qint16 kTamanoGrilla = 10;

// Runs the work of one procedure: a failure that arose in this module leaves with the
// procedure's tag added to its source; one from deeper leaves as it came.
template <class Trabajo>
auto Etiquetar(const QString& xEtiqueta, Trabajo&& xTrabajo) -> decltype(xTrabajo()) {
    try {
        return xTrabajo();
    } catch (const ErrorVB& error) {
        if (error.Fuente() == kAplicacion) throw error.ConFuente(kAplicacion + xEtiqueta);
        throw;
    }
}

// The counters of the report are 16-bit.
qint16 Entero16(double xValor) {
    return modFunciones::Entero16(xValor, kAplicacion);
}

enum class Lado { Izquierda, Centro, Derecha, Ninguno };

// The side a grid alignment code puts a column's texts on.
Lado LadoDe(qint32 xCodigo) {
    if (xCodigo >= clsGrillaImpresion::IzquierdaArriba &&
        xCodigo <= clsGrillaImpresion::IzquierdaAbajo)
        return Lado::Izquierda;
    if (xCodigo >= clsGrillaImpresion::CentroArriba && xCodigo <= clsGrillaImpresion::CentroAbajo)
        return Lado::Centro;
    if (xCodigo >= clsGrillaImpresion::DerechaArriba && xCodigo <= clsGrillaImpresion::DerechaAbajo)
        return Lado::Derecha;
    return Lado::Ninguno;
}

// Sets the printer's position for xTexto in a space of xAncho starting at xInicio; any other
// side leaves the position where it is. A text wider than its space starts at the space's start,
// whatever its side, rather than over what stands before it.
void Colocar(clsImpresora& xImpresora, Lado xLado, double xInicio, double xAncho,
             const QString& xTexto) {
    double x = xInicio;
    switch (xLado) {
    case Lado::Izquierda:
        break;
    case Lado::Derecha:
        x += xAncho - xImpresora.TextWidth(xTexto);
        break;
    case Lado::Centro:
        x += (xAncho - xImpresora.TextWidth(xTexto)) / 2;
        break;
    case Lado::Ninguno:
        return;
    }
    xImpresora.SetCurrentX(std::max(x, xInicio));
}

Lado LadoDeLinea(qint32 xAlineacion) {
    switch (xAlineacion) {
    case clsItemImpresionGrd::Derecha:
        return Lado::Derecha;
    case clsItemImpresionGrd::Izquierda:
        return Lado::Izquierda;
    case clsItemImpresionGrd::Centro:
        return Lado::Centro;
    default:
        return Lado::Ninguno;
    }
}

// One report on one printer, with what its procedures share while it prints.
class clsInforme {
public:
    clsInforme(clsImpresora& xImpresora, const clsGrillaImpresion& xGrilla,
               const clsColImpresionGrd& xEncabezado, const QString& xTitulo)
        : p(xImpresora), mGrilla(xGrilla), mEncabezado(xEncabezado), mTitulo(xTitulo) {}

    void Imprimir(const clsColImpresionGrd& xPie);

private:
    void ImprimirRotulo();
    void ImprimirEncabezado();
    void ImprimirPiePagina(const clsColImpresionGrd& xPie);
    void Veri_Hoja(qint16& xContador, qint16 xLineasPorPagina, double xPrimeraFilaY,
                   double& xFilaY);
    qint16 LineasPorPagina(double xPrimeraFilaY) const;
    void MedirColumnas();
    void ImprimirFila(qint32 xFila, double xFilaY);
    void ImprimirEnColumna(qint32 xColumna, double xAncho, QString xTexto, bool xCortar);
    void LineaLibre(const clsItemImpresionGrd& xLinea);
    void Raya();
    // The printed columns: all but the grid's last.
    qint32 Columnas() const { return std::max(0, mGrilla.Cols() - 1); }
    // What column xColumna takes of the width the columns share: with the gap after it for its
    // title, without it for its cells.
    double AnchoTitulo(qint32 xColumna) const {
        return std::floor(mAnchoColumnas * (mGrilla.ColWidth(xColumna) + kEspacioColumnas) /
                          mAnchoTotal);
    }
    double AnchoCelda(qint32 xColumna) const {
        return std::floor(mAnchoColumnas * mGrilla.ColWidth(xColumna) / mAnchoTotal);
    }

    clsImpresora& p;
    const clsGrillaImpresion& mGrilla;
    const clsColImpresionGrd& mEncabezado;
    const QString& mTitulo;
    std::vector<double> mInicios; // where each column starts, set by every page head
    double mAnchoTotal = 0;
    double mAnchoUtil = 0;
    double mAnchoColumnas = 0; // the usable width less the gaps between the columns
    qint16 mTamanoGrilla = kTamanoGrilla;
};

void clsInforme::Imprimir(const clsColImpresionGrd& xPie) {
    // 700 twips of the sheet stay free at the right, and the rules that run past the usable width
    // stay inside the printable area.
    mAnchoUtil = std::min(p.Width() - kMargenDerecho, p.ScaleWidth() - kExcesoRaya);
    ImprimirRotulo();
    const double primeraFilaY = p.CurrentY();
    const qint16 lineasPorPagina = LineasPorPagina(primeraFilaY);
    p.SetCurrentX(0);
    p.SetFontSize(mTamanoGrilla);
    const qint16 ultimaFila = Entero16(mGrilla.Rows() - 1);
    qint16 contador = 0;
    double filaY = primeraFilaY;
    for (qint32 fila = 1; fila <= ultimaFila; ++fila) {
        Veri_Hoja(contador, lineasPorPagina, primeraFilaY, filaY);
        ImprimirFila(fila, filaY);
        filaY = p.CurrentY();
    }
    ImprimirPiePagina(xPie);
    p.EndDoc();
}

// Rows are counted in the height of the type they print in, which a narrow grid makes larger
// than the head's: the sheet's share less a row, and never more rows than the printable area
// holds under the column titles, so a page always breaks between two rows.
qint16 clsInforme::LineasPorPagina(double xPrimeraFilaY) const {
    const double altoFila = p.TextHeight(QStringLiteral("W"));
    const double porHoja = (p.Height() - xPrimeraFilaY + 1000) / (1.5 * altoFila) - 1;
    const double caben = std::floor((p.ScaleHeight() - xPrimeraFilaY) / altoFila);
    return Entero16(std::max(1.0, std::min(porHoja, caben)));
}

// Every cell is cut to its column and placed by the column's alignment. The cells' share leaves
// out the gap between columns, so right and centred cells stand a little left of their titles.
void clsInforme::ImprimirFila(qint32 xFila, double xFilaY) {
    const qint32 columnas = Columnas();
    for (qint32 c = 0; c < columnas; ++c) {
        p.SetCurrentY(xFilaY);
        ImprimirEnColumna(c, AnchoCelda(c), mGrilla.TextMatrix(xFila, c).trimmed(), true);
    }
}

// A text is cut from the right, when xCortar, while it is wider than the room its column has:
// up to the next column, or for the last column up to the end of the rules, so it never prints
// past the margin. It is then placed in xAncho by the column's alignment.
void clsInforme::ImprimirEnColumna(qint32 xColumna, double xAncho, QString xTexto, bool xCortar) {
    const double inicio = mInicios[size_t(xColumna)];
    if (xCortar) {
        const bool ultima = size_t(xColumna) + 1 == mInicios.size();
        const double fin = ultima ? mAnchoUtil + kExcesoRaya : mInicios[size_t(xColumna) + 1];
        while (!xTexto.isEmpty() && p.TextWidth(xTexto) > fin - inicio)
            xTexto.chop(1);
    }
    Colocar(p, LadoDe(mGrilla.ColAlignment(xColumna)), inicio, xAncho, xTexto);
    p.Print(xTexto);
}

void clsInforme::Veri_Hoja(qint16& xContador, qint16 xLineasPorPagina, double xPrimeraFilaY,
                           double& xFilaY) {
    Etiquetar(QStringLiteral(".ImpresionLVW.Veri_Hoja"), [&] {
        if (xContador >= xLineasPorPagina) {
            p.NewPage();
            ImprimirRotulo();
            p.SetCurrentY(xPrimeraFilaY);
            p.SetCurrentX(0);
            xFilaY = p.CurrentY();
            xContador = 1;
        }
        xContador = Entero16(double(xContador) + 1);
    });
}

void clsInforme::ImprimirRotulo() {
    Etiquetar(QStringLiteral("ImprimirRotulo"), [&] {
        ImprimirEncabezado();
        const double lineaTitulos = p.CurrentY();
        MedirColumnas();
        p.SetFontSize(mTamanoGrilla);
        // A title is cut only where it would run past the margin.
        const qint32 columnas = Columnas();
        for (qint32 c = 0; c < columnas; ++c) {
            ImprimirEnColumna(c, AnchoTitulo(c), mGrilla.TextMatrix(0, c).trimmed(),
                              c + 1 == columnas);
            p.SetCurrentY(lineaTitulos);
        }
        p.Print();
        Raya();
    });
}

// The columns' shares of the grid's width, the type size and where each column starts. The
// columns and the gaps between them fill the usable width, so the last column ends inside it.
void clsInforme::MedirColumnas() {
    const qint32 columnas = Columnas();
    mAnchoTotal = 0;
    for (qint32 c = 0; c < columnas; ++c)
        mAnchoTotal += mGrilla.ColWidth(c) + kEspacioColumnas;

    mAnchoColumnas = std::max(0.0, mAnchoUtil - kEspacioColumnas * (columnas - 1));
    // A grid narrower than the room its columns share prints in a larger type, grown as its
    // columns are, so a text that fits its column on screen fits it on paper.
    mTamanoGrilla = kTamanoGrilla;
    if (mAnchoTotal == 0) throw ErrorVB(11, kAplicacion, QStringLiteral("Division by zero"));
    const double razon = std::nearbyint(mAnchoColumnas / mAnchoTotal * 100) / 100;
    if (1 < razon) mTamanoGrilla = Entero16(std::floor(p.FontSize() * razon));

    mInicios.clear();
    double x = 0;
    for (qint32 c = 0; c < columnas; ++c) {
        mInicios.push_back(x);
        x += AnchoTitulo(c) + kEspacioColumnas;
    }
}

void clsInforme::ImprimirEncabezado() {
    Etiquetar(QStringLiteral(".ImpresionLVW.ImprimirEncabezado"), [&] {
        p.SetCurrentX(0);
        p.SetCurrentY(1);
        p.SetFontName(QStringLiteral("Times New Roman"));
        p.SetFontSize(16);
        p.SetFontBold(true);
        p.Print(NombrePropio(modFunciones::NombreUsuario()));

        p.SetFontBold(false);
        p.SetCurrentX(0);
        p.SetFontName(QStringLiteral("Arial"));
        p.SetFontSize(10);
        p.SetCurrentY(1);
        const clsConfiguracionRegional& regional = clsConfiguracionRegional::Actual();
        const QDateTime ahora = QDateTime::currentDateTime();
        const QString textos[] = {
            QStringLiteral("Page : ") + QString::number(p.Page()),
            QStringLiteral("Date : ") +
                regional.FormatoFecha(ahora, QStringLiteral("mm/dd/yyyy hh:mm:ss")),
            // The time alone, as the desktop writes a time of day.
            QStringLiteral("Time : ") +
                regional.TextoFechaGeneral(QDateTime(QDate(1899, 12, 30), ahora.time())),
        };
        for (const QString& texto : textos) {
            Colocar(p, Lado::Derecha, 0, mAnchoUtil, texto);
            p.Print(texto);
        }
        p.Print();
        Raya();
        p.Print();

        p.SetFontSize(14);
        p.SetFontName(QStringLiteral("Times New Roman"));
        p.SetFontBold(true);
        Colocar(p, Lado::Centro, 0, mAnchoUtil, mTitulo);
        p.Print(mTitulo);
        p.SetFontBold(false);
        p.SetFontName(QStringLiteral("Arial"));
        p.SetFontSize(10);

        for (const clsItemImpresionGrd& linea : mEncabezado)
            LineaLibre(linea);
        p.Print();
        Raya();
    });
}

void clsInforme::ImprimirPiePagina(const clsColImpresionGrd& xPie) {
    Etiquetar(QStringLiteral(".ImpresionLVW.ImprimirPiePagina"), [&] {
        // The foot stays with the last rows; a page with no room left for it gives it a new page
        // under the head, rather than one without.
        const double alto = p.TextHeight(QStringLiteral("W")) * (xPie.Count() + 1);
        if (p.CurrentY() + alto > p.ScaleHeight()) {
            p.NewPage();
            ImprimirRotulo();
        }
        Raya();
        for (const clsItemImpresionGrd& linea : xPie)
            LineaLibre(linea);
        p.Print();
    });
}

void clsInforme::LineaLibre(const clsItemImpresionGrd& xLinea) {
    const QString texto = xLinea.Detalle();
    Colocar(p, LadoDeLinea(xLinea.Alineacion()), 0, mAnchoUtil, texto);
    p.Print(texto);
}

// A horizontal rule across the page at the current line.
void clsInforme::Raya() {
    const double y = p.CurrentY();
    p.Line(0, y, mAnchoUtil + kExcesoRaya, y);
}

} // namespace

QString NombrePropio(const QString& xNombre) {
    QString nombre = xNombre;
    for (qsizetype i = 0; i < nombre.size(); ++i)
        if (i == 0 || nombre[i - 1].isSpace()) nombre[i] = nombre[i].toUpper();
    return nombre;
}

bool OutImpresion(const QString& xTitulo, const clsGrillaImpresion& xGrilla,
                  const DialogoImpresora& xDialogo, const clsColImpresionGrd& xEncabezado,
                  const clsColImpresionGrd& xPie) {
    // The pointer goes back to normal however the report ends.
    struct Puntero {
        const DialogoImpresora& Dialogo;
        explicit Puntero(const DialogoImpresora& xDialogo) : Dialogo(xDialogo) {
            if (Dialogo.Esperar) Dialogo.Esperar(true);
        }
        ~Puntero() {
            if (Dialogo.Esperar) Dialogo.Esperar(false);
        }
    } puntero(xDialogo);

    qint32 copias = 1;
    std::shared_ptr<clsImpresora> impresora;
    try {
        impresora = xDialogo.Mostrar(copias);
    } catch (const std::exception&) {
        impresora.reset();
    }
    if (!impresora) {
        xDialogo.Avisar(
            QStringLiteral("Error de la Impresora, verifique que esté lista para imprimir."),
            QStringLiteral("Error"));
        return false;
    }
    return Etiquetar(QStringLiteral(".ImpresionLVW.OutImpresion"), [&] {
        clsImpresora& p = *impresora;
        p.SetCopies(copias);
        p.SetFontName(QStringLiteral("Arial"));
        p.SetFontSize(10);
        p.SetScaleMode(clsImpresora::EscalaTwips);
        clsInforme(p, xGrilla, xEncabezado, xTitulo).Imprimir(xPie);
        return true;
    });
}

} // namespace modImpresionGRD
