#pragma once

#include <QByteArrayView>
#include <QtGlobal>

// What the database layer knows of the databases of the handheld's built-in applications: their
// creators and type, and where the address book's AppInfo block names the country the handheld
// is made for, which tells the handheld's code page when nothing else names one.
namespace modBasesEstandar {

// A four-letter code as the header stores it, most significant byte first.
constexpr quint32 Codigo(const char (&xLetras)[5]) {
    return quint32(quint8(xLetras[0])) << 24 | quint32(quint8(xLetras[1])) << 16 |
           quint32(quint8(xLetras[2])) << 8 | quint32(quint8(xLetras[3]));
}

constexpr quint32 TipoDatos = Codigo("DATA");
constexpr quint32 CreadorMemos = Codigo("memo");
constexpr quint32 CreadorTareas = Codigo("todo");
constexpr quint32 CreadorDirecciones = Codigo("addr");
constexpr quint32 CreadorAgenda = Codigo("date");

// The country byte of the address book's AppInfo block, after its 22 field labels.
constexpr qsizetype PosicionPais = 634;
// Palm OS country numbers run from Australia (0) to the United States (23) in alphabetical order.
constexpr quint8 PaisJapon = 13;

// The country an address book's AppInfo block names; -1 when the block is too short to hold one.
qint32 PaisDirecciones(QByteArrayView xAppInfo);

} // namespace modBasesEstandar
