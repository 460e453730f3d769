#include "common/modFecha.h"

#include <QDate>
#include <QTime>
#include <cmath>

namespace modFecha {

namespace {
const QDate DiaCero(1899, 12, 30);
constexpr qint64 MilisegundosPorDia = 86400000;
} // namespace

QDateTime Crear(int xAnio, int xMes, int xDia, int xHora, int xMinuto, int xSegundo) {
    return QDateTime(QDate(xAnio, xMes, xDia), QTime(xHora, xMinuto, xSegundo), Qt::UTC);
}

QDateTime Ahora() {
    const QDateTime local = QDateTime::currentDateTime();
    return QDateTime(local.date(), local.time(), Qt::UTC);
}

// A day number carries the time of day as its fraction; before day 0 the fraction still counts
// forward from midnight (-1.25 is 1899-12-29 06:00), as the desktop's date scale does.
QDateTime DesdeDia(double xDia) {
    const double entero = std::trunc(xDia);
    const qint64 milisegundos = std::llround(std::fabs(xDia - entero) * MilisegundosPorDia);
    const QDateTime medianoche(DiaCero.addDays(static_cast<qint64>(entero)), QTime(0, 0), Qt::UTC);
    return medianoche.addMSecs(milisegundos);
}

double ADia(const QDateTime& xFecha) {
    const double dias = static_cast<double>(DiaCero.daysTo(xFecha.date()));
    const double fraccion =
        static_cast<double>(xFecha.time().msecsSinceStartOfDay()) / MilisegundosPorDia;
    return dias >= 0 ? dias + fraccion : dias - fraccion;
}

} // namespace modFecha
