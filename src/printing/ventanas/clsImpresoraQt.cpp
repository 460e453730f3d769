#include "printing/ventanas/clsImpresoraQt.h"

#include "common/ErrorVB.h"
#include "data/modDestino.h"
#include "printing/ventanas/clsImpresoraPdf.h"

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

clsImpresoraQt::clsImpresoraQt(QPrinter& xImpresora)
    : mDispositivo(xImpresora), mImpresora(&xImpresora) {}

clsImpresoraQt::clsImpresoraQt(QPagedPaintDevice& xDispositivo)
    : mDispositivo(xDispositivo), mImpresora(nullptr) {}

clsImpresoraQt::~clsImpresoraQt() {
    if (mPintor && mPintor->isActive()) mPintor->end();
}

std::shared_ptr<clsImpresora> clsImpresoraQt::Para(QPrinter& xImpresora) {
    if (FabricaActual()) return FabricaActual()(xImpresora);
    const QString archivo = xImpresora.outputFileName();
    if (xImpresora.outputFormat() != QPrinter::PdfFormat || archivo.isEmpty())
        return std::make_shared<clsImpresoraQt>(xImpresora);
    modDestino::Comprobar(archivo, QStringLiteral("clsImpresoraQt"));
    return std::make_shared<clsImpresoraPdf>(archivo, xImpresora.pageLayout(),
                                             xImpresora.resolution());
}

bool clsImpresoraQt::Pintando() const {
    return mPintor && mPintor->isActive();
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
    if (mImpresora) mImpresora->setCopyCount(Copies());
    mPintor = std::make_unique<QPainter>();
    if (!mPintor->begin(&mDispositivo)) {
        mPintor.reset();
        throw ErrorVB(482, QStringLiteral("clsImpresoraQt"), QStringLiteral("Printer error"));
    }
    return *mPintor;
}

double clsImpresoraQt::PixelesX(double xTwips) const {
    return xTwips * mDispositivo.logicalDpiX() / TwipsPorPulgada;
}

double clsImpresoraQt::PixelesY(double xTwips) const {
    return xTwips * mDispositivo.logicalDpiY() / TwipsPorPulgada;
}

double clsImpresoraQt::AnchoTexto(const QString& xLinea) const {
    const QFontMetricsF medidas(Fuente(), &mDispositivo);
    return medidas.horizontalAdvance(xLinea) * TwipsPorPulgada / mDispositivo.logicalDpiX();
}

double clsImpresoraQt::AltoLinea() const {
    const QFontMetricsF medidas(Fuente(), &mDispositivo);
    return medidas.lineSpacing() * TwipsPorPulgada / mDispositivo.logicalDpiY();
}

// The sheet and its printable part in points: a printer's as its driver gives them, another
// device's from its page layout.
QRectF clsImpresoraQt::Hoja() const {
    return mImpresora ? mImpresora->paperRect(QPrinter::Point)
                      : mDispositivo.pageLayout().fullRect(QPageLayout::Point);
}

QRectF clsImpresoraQt::Imprimible() const {
    return mImpresora ? mImpresora->pageRect(QPrinter::Point)
                      : mDispositivo.pageLayout().paintRect(QPageLayout::Point);
}

double clsImpresoraQt::AnchoPagina() const {
    return Hoja().width() * TwipsPorPunto;
}

double clsImpresoraQt::AltoPagina() const {
    return Hoja().height() * TwipsPorPunto;
}

double clsImpresoraQt::AnchoImprimible() const {
    return Imprimible().width() * TwipsPorPunto;
}

double clsImpresoraQt::AltoImprimible() const {
    return Imprimible().height() * TwipsPorPunto;
}

void clsImpresoraQt::DibujarTexto(double xX, double xY, const QString& xLinea) {
    QPainter& pintor = Pintor();
    const QFont fuente = Fuente();
    pintor.setFont(fuente);
    const QFontMetricsF medidas(fuente, &mDispositivo);
    pintor.drawText(QPointF(PixelesX(xX), PixelesY(xY) + medidas.ascent()), xLinea);
}

void clsImpresoraQt::DibujarLinea(double xX1, double xY1, double xX2, double xY2) {
    QPainter& pintor = Pintor();
    pintor.setPen(QPen(Qt::black, PixelesX(TwipsPorPunto / 2)));
    pintor.drawLine(QPointF(PixelesX(xX1), PixelesY(xY1)), QPointF(PixelesX(xX2), PixelesY(xY2)));
}

void clsImpresoraQt::PasarPagina() {
    Pintor();
    if (!mDispositivo.newPage())
        throw ErrorVB(482, QStringLiteral("clsImpresoraQt"), QStringLiteral("Printer error"));
}

void clsImpresoraQt::TerminarDocumento() {
    if (!mPintor || !mPintor->isActive()) return;
    mPintor->end();
    mPintor.reset();
}
