#include "shell/frmSplash.h"

#include <QDesktopServices>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

namespace {

QLabel* Rotulo(const QString& xNombre, const QString& xTexto, int xTamano, bool xNegrita = false) {
    auto* rotulo = new QLabel(xTexto);
    rotulo->setObjectName(xNombre);
    QFont fuente(QStringLiteral("Arial"), xTamano);
    fuente.setBold(xNegrita);
    rotulo->setFont(fuente);
    return rotulo;
}

QLabel* Enlace(const QString& xNombre, const QString& xTexto) {
    QLabel* enlace = Rotulo(xNombre, xTexto, 9);
    QFont fuente = enlace->font();
    fuente.setUnderline(true);
    enlace->setFont(fuente);
    enlace->setStyleSheet(QStringLiteral("color: #0000c0;"));
    enlace->setCursor(Qt::PointingHandCursor);
    return enlace;
}

// The product picture: a handheld with a list of records on its screen.
QPixmap ImagenProducto() {
    QPixmap imagen(120, 170);
    imagen.fill(Qt::transparent);
    QPainter pintor(&imagen);
    pintor.setRenderHint(QPainter::Antialiasing);

    QLinearGradient cuerpo(0, 0, 120, 0);
    cuerpo.setColorAt(0, QColor(70, 78, 92));
    cuerpo.setColorAt(0.5, QColor(120, 130, 148));
    cuerpo.setColorAt(1, QColor(60, 66, 80));
    pintor.setPen(QPen(QColor(30, 34, 42), 2));
    pintor.setBrush(cuerpo);
    pintor.drawRoundedRect(QRectF(6, 4, 108, 162), 16, 16);

    const QRectF pantalla(18, 18, 84, 96);
    pintor.setPen(QPen(QColor(20, 24, 20), 2));
    pintor.setBrush(QColor(168, 196, 150));
    pintor.drawRect(pantalla);
    pintor.setPen(QPen(QColor(40, 60, 40), 3));
    for (int i = 0; i < 6; ++i) {
        const double y = pantalla.top() + 14 + i * 13;
        pintor.drawLine(QPointF(pantalla.left() + 8, y),
                        QPointF(pantalla.right() - (i % 2 ? 22 : 10), y));
    }

    pintor.setPen(QPen(QColor(25, 28, 34), 1.5));
    pintor.setBrush(QColor(190, 196, 206));
    for (int i = 0; i < 4; ++i)
        pintor.drawEllipse(QPointF(24 + i * 24, 140), 8, 8);
    return imagen;
}

} // namespace

frmSplash::frmSplash(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("About Pandrel"));
    setModal(true);
    setFocusPolicy(Qt::StrongFocus);
    tmrReloj = new QTimer(this);
    tmrReloj->setObjectName(QStringLiteral("tmrReloj"));
    tmrReloj->setTimerType(Qt::PreciseTimer);
    tmrReloj->setInterval(IntervaloInicio);
    connect(tmrReloj, &QTimer::timeout, this, &frmSplash::tmrReloj_Timer);
    CrearControles();
}

void frmSplash::CrearControles() {
    auto* Image1 = new QLabel;
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setPixmap(ImagenProducto());
    Image1->setAlignment(Qt::AlignCenter);

    lblMail = Enlace(QStringLiteral("lblMail"), QString::fromLatin1(CorreoVentas));
    lblWebSite = Enlace(QStringLiteral("lblWebSite"), QString::fromLatin1(SitioWeb));
    lblMail->installEventFilter(this);
    lblWebSite->installEventFilter(this);

    auto* textos = new QVBoxLayout;
    textos->addWidget(
        Rotulo(QStringLiteral("lblProductName"), QStringLiteral("Pandrel"), 30, true));
    textos->addWidget(Rotulo(QStringLiteral("lblVersion"), QStringLiteral("Versión 1.0"), 12));
    textos->addSpacing(8);
    textos->addWidget(
        Rotulo(QStringLiteral("Label5"), QStringLiteral("Active data administration"), 12, true));
    textos->addWidget(
        Rotulo(QStringLiteral("lblPlatform"), QStringLiteral("Windows 9.x/ me/ 2000/ XP"), 10));
    textos->addStretch();
    auto* contactos = new QVBoxLayout;
    contactos->setSpacing(2);
    contactos->addWidget(lblMail);
    contactos->addWidget(lblWebSite);
    textos->addLayout(contactos);

    auto* Frame1 = new QGroupBox;
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto* contenido = new QHBoxLayout(Frame1);
    contenido->setContentsMargins(16, 16, 24, 16);
    contenido->setSpacing(24);
    contenido->addWidget(Image1);
    contenido->addLayout(textos, 1);

    auto* principal = new QVBoxLayout(this);
    principal->addWidget(Frame1);
}

void frmSplash::Parametros(bool xAcercaDe) {
    mAcercaDe = xAcercaDe;
}

void frmSplash::showEvent(QShowEvent* xEvento) {
    QDialog::showEvent(xEvento);
    if (mCargada) return;
    mCargada = true;
    Form_Load();
}

void frmSplash::Form_Load() {
    if (mAcercaDe) tmrReloj->setInterval(IntervaloAcercaDe);
    tmrReloj->start();
}

void frmSplash::tmrReloj_Timer() {
    tmrReloj->stop();
    accept();
}

void frmSplash::keyPressEvent(QKeyEvent*) {
    tmrReloj_Timer();
}

// The contacts act as links: a click opens them with the desktop's own program and the window
// stays. Whether the desktop managed to open them is not our concern.
bool frmSplash::eventFilter(QObject* xObjeto, QEvent* xEvento) {
    if (xEvento->type() != QEvent::MouseButtonRelease ||
        static_cast<QMouseEvent*>(xEvento)->button() != Qt::LeftButton)
        return QDialog::eventFilter(xObjeto, xEvento);
    if (xObjeto == lblMail) {
        QDesktopServices::openUrl(QUrl(QStringLiteral("mailto:") + QLatin1String(CorreoVentas)));
        return true;
    }
    if (xObjeto == lblWebSite) {
        QDesktopServices::openUrl(QUrl::fromUserInput(QLatin1String(SitioWeb)));
        return true;
    }
    return QDialog::eventFilter(xObjeto, xEvento);
}
