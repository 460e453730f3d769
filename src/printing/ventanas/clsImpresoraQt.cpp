#include "printing/ventanas/clsImpresoraQt.h"

#include "common/ErrorVB.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <utility>

namespace {

// A point is 20 twips.
constexpr double TwipsPorPunto = 20;
constexpr double TwipsPorPulgada = 1440;

clsImpresoraQt::Fabrica& FabricaActual() {
    static clsImpresoraQt::Fabrica fabrica;
    return fabrica;
}

} // namespace

clsImpresoraQt::clsImpresoraQt(QPrinter& xImpresora) : mImpresora(xImpresora) {}

clsImpresoraQt::~clsImpresoraQt() {
    if (mPintor && mPintor->isActive()) mPintor->end();
}

std::shared_ptr<clsImpresora> clsImpresoraQt::Para(QPrinter& xImpresora) {
    if (FabricaActual()) return FabricaActual()(xImpresora);
    return std::make_shared<clsImpresoraQt>(xImpresora);
}

void clsImpresoraQt::Sustituir(Fabrica xFabrica) {
    FabricaActual() = std::move(xFabrica);
}

QFont clsImpresoraQt::Fuente() const {
    QFont fuente(FontName());
    fuente.setPointSizeF(FontSize());
    fuente.setBold(FontBold());
    return fuente;
}

QPainter& clsImpresoraQt::Pintor() {
    if (mPintor && mPintor->isActive()) return *mPintor;
    mImpresora.setCopyCount(Copies());
    mPintor = std::make_unique<QPainter>();
    if (!mPintor->begin(&mImpresora)) {
        mPintor.reset();
        throw ErrorVB(482, QStringLiteral("clsImpresoraQt"), QStringLiteral("Printer error"));
    }
    return *mPintor;
}

double clsImpresoraQt::PixelesX(double xTwips) const {
    return xTwips * mImpresora.logicalDpiX() / TwipsPorPulgada;
}

double clsImpresoraQt::PixelesY(double xTwips) const {
    return xTwips * mImpresora.logicalDpiY() / TwipsPorPulgada;
}

double clsImpresoraQt::AnchoTexto(const QString& xLinea) const {
    const QFontMetricsF medidas(Fuente(), &mImpresora);
    return medidas.horizontalAdvance(xLinea) * TwipsPorPulgada / mImpresora.logicalDpiX();
}

double clsImpresoraQt::AltoLinea() const {
    const QFontMetricsF medidas(Fuente(), &mImpresora);
    return medidas.lineSpacing() * TwipsPorPulgada / mImpresora.logicalDpiY();
}

double clsImpresoraQt::AnchoPagina() const {
    return mImpresora.paperRect(QPrinter::Point).width() * TwipsPorPunto;
}

double clsImpresoraQt::AltoPagina() const {
    return mImpresora.paperRect(QPrinter::Point).height() * TwipsPorPunto;
}

double clsImpresoraQt::AnchoImprimible() const {
    return mImpresora.pageRect(QPrinter::Point).width() * TwipsPorPunto;
}

double clsImpresoraQt::AltoImprimible() const {
    return mImpresora.pageRect(QPrinter::Point).height() * TwipsPorPunto;
}

void clsImpresoraQt::DibujarTexto(double xX, double xY, const QString& xLinea) {
    QPainter& pintor = Pintor();
    const QFont fuente = Fuente();
    pintor.setFont(fuente);
    const QFontMetricsF medidas(fuente, &mImpresora);
    pintor.drawText(QPointF(PixelesX(xX), PixelesY(xY) + medidas.ascent()), xLinea);
}

void clsImpresoraQt::DibujarLinea(double xX1, double xY1, double xX2, double xY2) {
    QPainter& pintor = Pintor();
    pintor.setPen(QPen(Qt::black, PixelesX(TwipsPorPunto / 2)));
    pintor.drawLine(QPointF(PixelesX(xX1), PixelesY(xY1)), QPointF(PixelesX(xX2), PixelesY(xY2)));
}

void clsImpresoraQt::PasarPagina() {
    Pintor();
    if (!mImpresora.newPage())
        throw ErrorVB(482, QStringLiteral("clsImpresoraQt"), QStringLiteral("Printer error"));
}

void clsImpresoraQt::TerminarDocumento() {
    if (!mPintor || !mPintor->isActive()) return;
    mPintor->end();
    mPintor.reset();
}
