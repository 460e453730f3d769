#pragma once

#include <QDateTime>

// Dates of the system are wall-clock date-times without a time zone; they are held as QDateTime
// in UTC so that no daylight-saving rule ever moves them. Day numbers count from 1899-12-30.
namespace modFecha {
QDateTime Crear(int xAnio, int xMes, int xDia, int xHora = 0, int xMinuto = 0, int xSegundo = 0);
QDateTime Ahora();
QDateTime DesdeDia(double xDia);
double ADia(const QDateTime& xFecha);
} // namespace modFecha
