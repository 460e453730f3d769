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
// side leaves the position where it is.
void Colocar(clsImpresora& xImpresora, Lado xLado, double xInicio, double xAncho,
             const QString& xTexto) {
    switch (xLado) {
    case Lado::Izquierda:
        xImpresora.SetCurrentX(xInicio);
        break;
    case Lado::Derecha:
        xImpresora.SetCurrentX(xInicio + xAncho - xImpresora.TextWidth(xTexto));
        break;
    case Lado::Centro:
        xImpresora.SetCurrentX(xInicio + (xAncho - xImpresora.TextWidth(xTexto)) / 2);
        break;
    case Lado::Ninguno:
        break;
    }
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
    void ImprimirFila(qint32 xFila, double xFilaY);
    void LineaLibre(const clsItemImpresionGrd& xLinea);
    void Raya();
    // The printed columns: all but the grid's last.
    qint32 Columnas() const { return std::max(0, mGrilla.Cols() - 1); }

    clsImpresora& p;
    const clsGrillaImpresion& mGrilla;
    const clsColImpresionGrd& mEncabezado;
    const QString& mTitulo;
    std::vector<double> mInicios; // where each column starts, set by every page head
    double mAnchoTotal = 0;
    double mAnchoUtil = 0;
    qint16 mTamanoGrilla = kTamanoGrilla;
};

void clsInforme::Imprimir(const clsColImpresionGrd& xPie) {
    const double altoLinea = p.TextHeight(QStringLiteral("W"));
    mAnchoUtil = p.Width() - kMargenDerecho;
    ImprimirRotulo();
    const double primeraFilaY = p.CurrentY();
    const qint16 lineasPorPagina =
        Entero16((p.Height() - primeraFilaY + 1000) / (1.5 * altoLinea) - 1);
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

// A text wider than its column is cut from the right until it fits, except in the last printed
// column, and only then placed by its column's alignment; a cut cell never starts left of its
// column, so a long right-aligned one does not run over the column before it. The cells' share
// leaves out the gap between columns, so right and centred cells stand a little left of their
// titles.
void clsInforme::ImprimirFila(qint32 xFila, double xFilaY) {
    const qint32 columnas = Columnas();
    for (qint32 c = 0; c < columnas; ++c) {
        const double inicio = mInicios[size_t(c)];
        const double ancho = std::floor(mAnchoUtil * (mGrilla.ColWidth(c) / mAnchoTotal));
        QString texto = mGrilla.TextMatrix(xFila, c).trimmed();
        const bool cortable = size_t(c) + 1 < mInicios.size();
        if (cortable) {
            const double espacio = mInicios[size_t(c) + 1] - inicio;
            while (p.TextWidth(texto) > espacio)
                texto.chop(1);
        }
        Colocar(p, LadoDe(mGrilla.ColAlignment(c)), inicio, ancho, texto);
        if (cortable) p.SetCurrentX(std::max(p.CurrentX(), inicio));
        p.SetCurrentY(xFilaY);
        p.Print(texto);
    }
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
        mInicios.clear();
        ImprimirEncabezado();
        const double lineaTitulos = p.CurrentY();
        const qint32 columnas = Columnas();
        mAnchoTotal = 0;
        for (qint32 c = 0; c < columnas; ++c)
            mAnchoTotal += mGrilla.ColWidth(c) + kEspacioColumnas;

        // A grid narrower than the sheet prints in a larger type.
        mTamanoGrilla = kTamanoGrilla;
        if (mAnchoTotal == 0) throw ErrorVB(11, kAplicacion, QStringLiteral("Division by zero"));
        const double razon = std::nearbyint(p.Width() / mAnchoTotal * 100) / 100;
        if (1 < razon) mTamanoGrilla = Entero16(std::floor(p.FontSize() * razon));
        p.SetFontSize(mTamanoGrilla);

        double x = 0;
        for (qint32 c = 0; c < columnas; ++c) {
            const double parte = (mGrilla.ColWidth(c) + kEspacioColumnas) / mAnchoTotal;
            const double ancho = std::floor(mAnchoUtil * parte);
            const QString titulo = mGrilla.TextMatrix(0, c).trimmed();
            Colocar(p, LadoDe(mGrilla.ColAlignment(c)), x, ancho, titulo);
            mInicios.push_back(x);
            p.Print(titulo);
            p.SetCurrentY(lineaTitulos);
            x += ancho + kEspacioColumnas;
        }
        p.Print();
        Raya();
    });
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
