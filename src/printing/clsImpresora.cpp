#include "printing/clsImpresora.h"

#include "common/ErrorVB.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace {

ErrorVB ValorInvalido(const QString& xPropiedad) {
    return ErrorVB(380, QStringLiteral("clsImpresora.") + xPropiedad,
                   QStringLiteral("Invalid property value"));
}

QStringList Lineas(const QString& xTexto) {
    static const QRegularExpression salto(QStringLiteral("\r\n|\r|\n"));
    return xTexto.split(salto);
}

QString Numero(double xValor) {
    return QString::number(xValor, 'g', 10);
}

} // namespace

void clsImpresora::Anotar(const QString&, const QString&) const {}

void clsImpresora::SetScaleMode(int xModo) {
    Anotar(QStringLiteral("ScaleMode"), QString::number(xModo));
    if (xModo != EscalaTwips && xModo != EscalaCaracteres) throw ValorInvalido("ScaleMode");
    mModoEscala = xModo;
}

double clsImpresora::ScaleWidth() const {
    return DesdeTwipsX(AnchoImprimible());
}
double clsImpresora::ScaleHeight() const {
    return DesdeTwipsY(AltoImprimible());
}
double clsImpresora::Width() const {
    return AnchoPagina();
}
double clsImpresora::Height() const {
    return AltoPagina();
}

double clsImpresora::CurrentX() const {
    return DesdeTwipsX(mX);
}
double clsImpresora::CurrentY() const {
    return DesdeTwipsY(mY);
}

void clsImpresora::SetCurrentX(double xValor) {
    Anotar(QStringLiteral("CurrentX"), Numero(xValor));
    mX = ATwipsX(xValor);
}

void clsImpresora::SetCurrentY(double xValor) {
    Anotar(QStringLiteral("CurrentY"), Numero(xValor));
    mY = ATwipsY(xValor);
}

void clsImpresora::SetFontName(const QString& xNombre) {
    Anotar(QStringLiteral("FontName"), xNombre);
    mFuente = xNombre;
}

void clsImpresora::SetFontSize(double xTamano) {
    Anotar(QStringLiteral("FontSize"), Numero(xTamano));
    if (!(xTamano >= 1)) throw ValorInvalido("FontSize");
    mTamano = xTamano;
}

void clsImpresora::SetFontBold(bool xNegrita) {
    Anotar(QStringLiteral("FontBold"), xNegrita ? QStringLiteral("True") : QStringLiteral("False"));
    mNegrita = xNegrita;
}

double clsImpresora::TextWidth(const QString& xTexto) const {
    Anotar(QStringLiteral("TextWidth"), xTexto);
    double ancho = 0;
    for (const QString& linea : Lineas(xTexto))
        ancho = std::max(ancho, AnchoTexto(linea));
    return DesdeTwipsX(ancho);
}

double clsImpresora::TextHeight(const QString& xTexto) const {
    Anotar(QStringLiteral("TextHeight"), xTexto);
    return DesdeTwipsY(AltoLinea() * Lineas(xTexto).size());
}

void clsImpresora::Print(const QString& xTexto) {
    Anotar(QStringLiteral("Print"), xTexto);
    for (const QString& linea : Lineas(xTexto))
        ImprimirLinea(linea);
}

void clsImpresora::ImprimirLinea(const QString& xLinea) {
    const double alto = AltoLinea();
    if (mY > 0 && mY + alto > AltoImprimible()) {
        PasarPagina();
        ++mPagina;
        mY = 0;
    }
    if (!xLinea.isEmpty()) DibujarTexto(mX, mY, xLinea);
    mX = 0;
    mY += alto;
}

void clsImpresora::Line(double xX1, double xY1, double xX2, double xY2) {
    Anotar(QStringLiteral("Line"), QStringLiteral("(%1, %2)-(%3, %4)")
                                       .arg(Numero(xX1), Numero(xY1), Numero(xX2), Numero(xY2)));
    const double x2 = ATwipsX(xX2);
    const double y2 = ATwipsY(xY2);
    DibujarLinea(ATwipsX(xX1), ATwipsY(xY1), x2, y2);
    mX = x2;
    mY = y2;
}

void clsImpresora::NewPage() {
    Anotar(QStringLiteral("NewPage"), QString());
    PasarPagina();
    ++mPagina;
    mX = 0;
    mY = 0;
}

void clsImpresora::EndDoc() {
    Anotar(QStringLiteral("EndDoc"), QString());
    TerminarDocumento();
    mPagina = 1;
    mX = 0;
    mY = 0;
}

void clsImpresora::SetCopies(int xCopias) {
    Anotar(QStringLiteral("Copies"), QString::number(xCopias));
    if (xCopias < 1) throw ValorInvalido("Copies");
    mCopias = xCopias;
}

double clsImpresora::ATwipsX(double xValor) const {
    return mModoEscala == EscalaCaracteres ? xValor * TwipsPorColumna : xValor;
}

double clsImpresora::ATwipsY(double xValor) const {
    return mModoEscala == EscalaCaracteres ? xValor * TwipsPorFila : xValor;
}

double clsImpresora::DesdeTwipsX(double xTwips) const {
    return mModoEscala == EscalaCaracteres ? xTwips / TwipsPorColumna : xTwips;
}

double clsImpresora::DesdeTwipsY(double xTwips) const {
    return mModoEscala == EscalaCaracteres ? xTwips / TwipsPorFila : xTwips;
}
