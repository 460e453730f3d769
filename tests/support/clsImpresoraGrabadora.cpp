#include "support/clsImpresoraGrabadora.h"

namespace {
constexpr double TwipsPorPunto = 12;
constexpr double FactorNegrita = 1.1;
constexpr double AltoPorPunto = 24;
} // namespace

clsImpresoraGrabadora::clsImpresoraGrabadora(double xAnchoPagina, double xAltoPagina,
                                             double xMargen)
    : mAnchoPagina(xAnchoPagina), mAltoPagina(xAltoPagina), mMargen(xMargen) {}

void clsImpresoraGrabadora::FallarEn(const QString& xLlamada, const ErrorVB& xError, int xVez) {
    mFallarEn = xLlamada;
    mError = xError;
    mVecesHastaFallar = xVez;
}

void clsImpresoraGrabadora::Anotar(const QString& xLlamada, const QString& xArgumentos) const {
    mLlamadas << (xArgumentos.isEmpty() ? xLlamada : xLlamada + QLatin1Char(' ') + xArgumentos);
    if (!mError || xLlamada != mFallarEn || --mVecesHastaFallar > 0) return;
    const ErrorVB error = *mError;
    mError.reset();
    throw error;
}

double clsImpresoraGrabadora::AnchoTexto(const QString& xLinea) const {
    const double porCaracter = FontSize() * TwipsPorPunto * (FontBold() ? FactorNegrita : 1.0);
    return xLinea.size() * porCaracter;
}

double clsImpresoraGrabadora::AltoLinea() const {
    return FontSize() * AltoPorPunto;
}

void clsImpresoraGrabadora::DibujarTexto(double xX, double xY, const QString& xLinea) {
    const bool celdas = ScaleMode() == EscalaCaracteres;
    TextoImpreso texto;
    texto.Pagina = Page();
    texto.X = celdas ? xX / TwipsPorColumna : xX;
    texto.Y = celdas ? xY / TwipsPorFila : xY;
    texto.Escala = ScaleMode();
    texto.Texto = xLinea;
    texto.Fuente = FontName();
    texto.Tamano = FontSize();
    texto.Negrita = FontBold();
    mTextos << texto;
}

void clsImpresoraGrabadora::DibujarLinea(double xX1, double xY1, double xX2, double xY2) {
    mLineas << LineaImpresa{Page(), xX1, xY1, xX2, xY2};
}

void clsImpresoraGrabadora::PasarPagina() {
    ++mPaginasPasadas;
}

void clsImpresoraGrabadora::TerminarDocumento() {
    ++mDocumentos;
}
