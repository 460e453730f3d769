#include "common/ventanas/modRecursosGraficos.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QToolBar>
#include <functional>

namespace modRecursosGraficos {
namespace {

// Every picture is drawn on a 32 x 32 grid and scaled to each size a view asks for.
using Dibujo = std::function<void(QPainter&)>;

QIcon Icono(const Dibujo& xDibujo) {
    QIcon icono;
    for (const int lado : {16, 20, 24, 32, 48}) {
        QPixmap imagen(lado, lado);
        imagen.fill(Qt::transparent);
        QPainter pintor(&imagen);
        pintor.setRenderHint(QPainter::Antialiasing);
        pintor.scale(lado / 32.0, lado / 32.0);
        xDibujo(pintor);
        pintor.end();
        icono.addPixmap(imagen);
    }
    return icono;
}

QPen Trazo(const QColor& xColor, qreal xAncho = 1.6) {
    return QPen(xColor, xAncho, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

// A closed outline through the given corners.
QPainterPath Contorno(std::initializer_list<QPointF> xEsquinas) {
    QPainterPath contorno;
    contorno.addPolygon(QPolygonF(xEsquinas));
    contorno.closeSubpath();
    return contorno;
}

void Handheld(QPainter& p) {
    p.setPen(Trazo(QColor(40, 44, 52)));
    p.setBrush(QColor(92, 100, 116));
    p.drawRoundedRect(QRectF(6, 1.5, 20, 29), 4, 4);
    p.setPen(Trazo(QColor(40, 60, 30), 1));
    p.setBrush(QColor(170, 210, 130));
    p.drawRect(QRectF(9, 5, 14, 15));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(225, 230, 238));
    for (const qreal x : {9.5, 14.0, 18.5})
        p.drawEllipse(QRectF(x, 23, 4, 4));
}

void Creador(QPainter& p) {
    p.setPen(Trazo(QColor(150, 100, 20)));
    p.setBrush(QColor(245, 196, 80));
    p.drawPath(Contorno({{2, 8}, {12, 8}, {15, 11}, {30, 11}, {30, 27}, {2, 27}}));
    p.setBrush(QColor(252, 220, 130));
    p.drawRect(QRectF(2, 14, 28, 13));
}

void Cilindro(QPainter& p, const QColor& xRelleno, const QColor& xBorde) {
    p.setPen(Trazo(xBorde));
    p.setBrush(xRelleno);
    QPainterPath cuerpo;
    cuerpo.moveTo(5, 8);
    cuerpo.lineTo(5, 24);
    cuerpo.arcTo(QRectF(5, 20, 22, 8), 180, 180);
    cuerpo.lineTo(27, 8);
    p.drawPath(cuerpo);
    p.setBrush(xRelleno.lighter(130));
    p.drawEllipse(QRectF(5, 4, 22, 8));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(5, 10, 22, 8), 180 * 16, 180 * 16);
    p.drawArc(QRectF(5, 15, 22, 8), 180 * 16, 180 * 16);
}

void BaseDatos(QPainter& p) {
    Cilindro(p, QColor(70, 130, 210), QColor(25, 60, 120));
}

void Aplicacion(QPainter& p) {
    p.setPen(Trazo(QColor(70, 30, 110)));
    p.setBrush(QColor(140, 90, 200));
    p.drawRoundedRect(QRectF(3, 3, 26, 26), 6, 6);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    for (const qreal x : {8.0, 17.0})
        for (const qreal y : {8.0, 17.0})
            p.drawRoundedRect(QRectF(x, y, 7, 7), 2, 2);
}

void Documento(QPainter& p) {
    p.setPen(Trazo(QColor(90, 90, 90)));
    p.setBrush(QColor(245, 245, 245));
    p.drawPath(Contorno({{6, 2}, {20, 2}, {27, 9}, {27, 30}, {6, 30}}));
    p.drawPolyline(QPolygonF({QPointF(20, 2), QPointF(20, 9), QPointF(27, 9)}));
    p.setPen(Trazo(QColor(150, 150, 150), 1.4));
    for (const qreal y : {14.0, 18.0, 22.0, 26.0})
        p.drawLine(QPointF(10, y), QPointF(23, y));
}

void Lupa(QPainter& p, qreal xX, qreal xY, qreal xRadio) {
    p.setPen(Trazo(QColor(60, 60, 60), 3));
    p.drawLine(QPointF(xX + xRadio * 0.7, xY + xRadio * 0.7),
               QPointF(xX + xRadio * 1.6, xY + xRadio * 1.6));
    p.setPen(Trazo(QColor(60, 60, 60), 2));
    p.setBrush(QColor(200, 230, 255, 200));
    p.drawEllipse(QPointF(xX, xY), xRadio, xRadio);
}

void Depurador(QPainter& p) {
    p.save();
    p.scale(0.8, 0.8);
    BaseDatos(p);
    p.restore();
    Lupa(p, 19, 19, 6.5);
}

void Informacion(QPainter& p) {
    p.setPen(Trazo(QColor(20, 70, 150)));
    p.setBrush(QColor(50, 120, 220));
    p.drawEllipse(QRectF(2, 2, 28, 28));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawEllipse(QRectF(14, 7, 4.5, 4.5));
    p.drawRoundedRect(QRectF(14, 13.5, 4.5, 12), 1.5, 1.5);
}

void Salir(QPainter& p) {
    p.setPen(Trazo(QColor(90, 60, 30)));
    p.setBrush(QColor(170, 120, 70));
    p.drawRect(QRectF(4, 3, 15, 26));
    p.setBrush(QColor(240, 220, 120));
    p.drawEllipse(QRectF(14, 15, 3, 3));
    p.setPen(Trazo(QColor(200, 40, 40), 3));
    p.drawLine(QPointF(16, 16), QPointF(29, 16));
    p.drawLine(QPointF(24, 11), QPointF(29, 16));
    p.drawLine(QPointF(24, 21), QPointF(29, 16));
}

void Tilde(QPainter& p) {
    p.setPen(Trazo(QColor(30, 130, 50), 4));
    p.drawPolyline(QPolygonF({{6, 17}, {13, 24}, {26, 8}}));
}

void Cancelar(QPainter& p) {
    p.setPen(Trazo(QColor(190, 40, 40), 4));
    p.drawLine(QPointF(8, 8), QPointF(24, 24));
    p.drawLine(QPointF(24, 8), QPointF(8, 24));
}

void Mas(QPainter& p) {
    p.setPen(Trazo(QColor(20, 110, 40)));
    p.setBrush(QColor(60, 170, 80));
    p.drawEllipse(QRectF(3, 3, 26, 26));
    p.setPen(Trazo(Qt::white, 3.5));
    p.drawLine(QPointF(16, 9), QPointF(16, 23));
    p.drawLine(QPointF(9, 16), QPointF(23, 16));
}

void Lapiz(QPainter& p) {
    p.setPen(Trazo(QColor(120, 80, 10)));
    p.setBrush(QColor(250, 190, 60));
    p.drawPolygon(QPolygonF({QPointF(22, 3), QPointF(29, 10), QPointF(11, 28), QPointF(4, 21)}));
    p.setBrush(QColor(240, 210, 170));
    p.drawPolygon(QPolygonF({QPointF(4, 21), QPointF(11, 28), QPointF(3, 29)}));
    p.setBrush(QColor(230, 110, 110));
    p.drawPolygon(QPolygonF({QPointF(22, 3), QPointF(29, 10), QPointF(26, 13), QPointF(19, 6)}));
}

void Cruz(QPainter& p, qreal xX, qreal xY, qreal xLado) {
    p.setPen(Trazo(QColor(200, 30, 30), 4));
    p.drawLine(QPointF(xX, xY), QPointF(xX + xLado, xY + xLado));
    p.drawLine(QPointF(xX + xLado, xY), QPointF(xX, xY + xLado));
}

void Eliminar(QPainter& p) {
    Cruz(p, 7, 7, 18);
}

void EliminarTodos(QPainter& p) {
    Documento(p);
    Cruz(p, 13, 13, 15);
}

void Impresora(QPainter& p) {
    p.setPen(Trazo(QColor(60, 60, 60)));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(9, 3, 14, 10));
    p.setBrush(QColor(150, 155, 165));
    p.drawRoundedRect(QRectF(3, 11, 26, 12), 2, 2);
    p.setBrush(Qt::white);
    p.drawRect(QRectF(9, 19, 14, 10));
    p.setPen(Trazo(QColor(150, 150, 150), 1.2));
    p.drawLine(QPointF(12, 23), QPointF(20, 23));
    p.drawLine(QPointF(12, 26), QPointF(20, 26));
}

void Buscar(QPainter& p) {
    Lupa(p, 13, 13, 9);
}

void Exportar(QPainter& p) {
    Documento(p);
    p.setPen(Trazo(QColor(20, 110, 40), 3.5));
    p.drawLine(QPointF(12, 21), QPointF(29, 21));
    p.drawLine(QPointF(24, 16), QPointF(29, 21));
    p.drawLine(QPointF(24, 26), QPointF(29, 21));
}

} // namespace

QIcon IconoArbol(int xNumero) {
    static const QHash<int, QIcon> iconos = {
        {1, Icono(BaseDatos)},  {2, Icono(Handheld)},   {3, Icono(Creador)},
        {4, Icono(Aplicacion)}, {12, Icono(Documento)},
    };
    return iconos.value(xNumero);
}

QIcon IconoBoton(const QString& xClave) {
    static const QHash<QString, QIcon> iconos = {
        {QStringLiteral("Archivos"), Icono(Depurador)},
        {QStringLiteral("Informacion"), Icono(Informacion)},
        {QStringLiteral("Volver"), Icono(Salir)},
        {QStringLiteral("Agregar"), Icono(Mas)},
        {QStringLiteral("Aceptar"), Icono(Tilde)},
        {QStringLiteral("Cancelar"), Icono(Cancelar)},
        {QStringLiteral("Modificar"), Icono(Lapiz)},
        {QStringLiteral("Eliminar"), Icono(Eliminar)},
        {QStringLiteral("Imprimir"), Icono(Impresora)},
        {QStringLiteral("Buscar"), Icono(Buscar)},
        {QStringLiteral("Exportar"), Icono(Exportar)},
        {QStringLiteral("EliminarTodos"), Icono(EliminarTodos)},
    };
    return iconos.value(xClave);
}

QToolBar* BarraOpciones(QWidget* xPadre, Qt::ToolButtonStyle xEstilo,
                        const QList<QPair<QString, QString>>& xBotones) {
    auto* barra = new QToolBar(xPadre);
    barra->setObjectName(QStringLiteral("tlbOpciones"));
    barra->setToolButtonStyle(xEstilo);
    for (const auto& [clave, texto] : xBotones) {
        QAction* boton = barra->addAction(IconoBoton(clave), texto);
        boton->setObjectName(clave);
        boton->setData(clave);
    }
    return barra;
}

QIcon IconoPrograma() {
    return IconoArbol(2);
}

QFont FuenteGrilla(QFont xBase) {
    if (xBase.pointSizeF() > 8.5) xBase.setPointSizeF(8.5);
    return xBase;
}

} // namespace modRecursosGraficos
