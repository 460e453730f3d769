#include "common/modFunciones.h"

#include "common/ErrorVB.h"

#include <QDir>
#include <QFileInfo>
#include <QtGlobal>
#include <utility>

#ifdef Q_OS_WIN
#include <QtCore/qt_windows.h>
#else
#include <pwd.h>
#include <unistd.h>
#endif

namespace modFunciones {

namespace {

// The largest index a 16-bit loop counter can step past without overflowing.
constexpr qsizetype MaximoElementos = 32767;

bool FueraDeOrden(const QString& xPrimero, const QString& xSegundo, int sentido) {
    const int comparacion = QString::compare(xSegundo, xPrimero, Qt::CaseSensitive);
    return sentido == 1 ? comparacion < 0 : comparacion > 0;
}

QString NombreDelSistema() {
#ifdef Q_OS_WIN
    wchar_t nombre[256];
    DWORD largo = 256;
    if (GetUserNameW(nombre, &largo) && largo > 0)
        return QString::fromWCharArray(nombre, static_cast<int>(largo) - 1);
    return {};
#else
    if (const passwd* usuario = getpwuid(geteuid()))
        return QString::fromLocal8Bit(usuario->pw_name);
    return qEnvironmentVariable("USER");
#endif
}

} // namespace

void OrdenarVector(QStringList& lista, int sentido) {
    if (lista.size() > MaximoElementos)
        throw ErrorVB::Overflow(QStringLiteral("modFunciones.OrdenarVector"));
    if (sentido != 0 && sentido != 1) return;
    const qsizetype ultimo = lista.size() - 1;
    for (qsizetype i = 0; i < ultimo; ++i) {
        for (qsizetype j = i + 1; j <= ultimo; ++j) {
            if (FueraDeOrden(lista[i], lista[j], sentido)) std::swap(lista[i], lista[j]);
        }
    }
}

void CrearCarpeta(const QString& xCarpeta) {
    const QString fuente = QStringLiteral("modFunciones.CrearCarpeta");
    if (xCarpeta.trimmed().isEmpty()) throw ErrorVB(76, fuente, QStringLiteral("Path not found"));
    const QFileInfo info(xCarpeta);
    if (info.isDir()) return;
    if (info.exists()) throw ErrorVB(75, fuente, QStringLiteral("Path/File access error"));
    if (!QDir().mkpath(xCarpeta))
        throw ErrorVB(75, fuente, QStringLiteral("Path/File access error"));
}

QString NombreUsuario() {
    return NombreDelSistema().left(255);
}

} // namespace modFunciones
