#include "shell/frmMensajeConstruccion.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// A road-works barrier: a striped board on two legs.
QPixmap ImagenObra() {
    QPixmap imagen(72, 64);
    imagen.fill(Qt::transparent);
    QPainter pintor(&imagen);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.setPen(QPen(QColor(60, 60, 60), 4, Qt::SolidLine, Qt::RoundCap));
    pintor.drawLine(QPointF(16, 30), QPointF(10, 60));
    pintor.drawLine(QPointF(56, 30), QPointF(62, 60));

    const QRectF tabla(4, 8, 64, 24);
    pintor.save();
    pintor.setClipRect(tabla);
    pintor.fillRect(tabla, Qt::white);
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(QColor(240, 120, 0));
    for (int x = -24; x < 72; x += 20) {
        const QPointF franja[] = {{double(x), 32}, {x + 10.0, 32}, {x + 34.0, 8}, {x + 24.0, 8}};
        pintor.drawPolygon(franja, 4);
    }
    pintor.restore();
    pintor.setPen(QPen(QColor(40, 40, 40), 2));
    pintor.setBrush(Qt::NoBrush);
    pintor.drawRect(tabla);
    return imagen;
}

} // namespace

frmMensajeConstruccion::frmMensajeConstruccion(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QStringLiteral("Under Construction"));
    setModal(true);

    auto* Image1 = new QLabel;
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setPixmap(ImagenObra());
    auto* texto = new QLabel(QStringLiteral("This option is under construction"));
    texto->setObjectName(QStringLiteral("lblMensaje"));
    texto->setFont(QFont(QStringLiteral("Arial"), 11));
    auto* CTRBotClose = new QPushButton(QStringLiteral("&Close"));
    CTRBotClose->setObjectName(QStringLiteral("CTRBotClose"));
    CTRBotClose->setDefault(true);
    connect(CTRBotClose, &QPushButton::clicked, this, &QDialog::accept);

    auto* aviso = new QHBoxLayout;
    aviso->setSpacing(16);
    aviso->addWidget(Image1);
    aviso->addWidget(texto, 1);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(CTRBotClose);
    auto* principal = new QVBoxLayout(this);
    principal->setContentsMargins(20, 20, 20, 14);
    principal->setSpacing(16);
    principal->addLayout(aviso);
    principal->addLayout(botones);
}
