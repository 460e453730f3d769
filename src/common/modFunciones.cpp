#include "common/modFunciones.h"

#include "common/ErrorVB.h"

#include <QDir>
#include <QFileInfo>
#include <QtGlobal>
#include <cmath>
#include <limits>
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

qint16 Entero16(double xValor, const QString& xFuente) {
    const double redondo = std::nearbyint(xValor);
    if (!(redondo >= std::numeric_limits<qint16>::min() &&
          redondo <= std::numeric_limits<qint16>::max()))
        throw ErrorVB::Overflow(xFuente);
    return static_cast<qint16>(redondo);
}

QStringView SinBlancos(QStringView xTexto, QStringView xBlancos) {
    qsizetype inicio = 0;
    qsizetype fin = xTexto.size();
    while (inicio < fin && xBlancos.contains(xTexto.at(inicio)))
        ++inicio;
    while (fin > inicio && xBlancos.contains(xTexto.at(fin - 1)))
        --fin;
    return xTexto.mid(inicio, fin - inicio);
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
    return CortarNombreUsuario(NombreDelSistema());
}

QString CortarNombreUsuario(const QString& xNombre) {
    constexpr qsizetype Buffer = 255;
    constexpr qsizetype Marca = 14; // the 15th character
    const QString nombre = xNombre.left(Buffer);
    if (nombre.size() <= Marca) return nombre;
    return nombre.left(nombre.indexOf(nombre.at(Marca)));
}

namespace {

// Builds the lines of MultiLinea one word at a time.
class Renglones {
public:
    Renglones(double xAncho, int xSangria, const AnchoDeTexto& xAnchoDe)
        : mAncho(xAncho), mSangria(qMax(xSangria, 0), QLatin1Char(' ')), mAnchoDe(xAnchoDe) {}

    void Palabra(QString xPalabra) {
        if (xPalabra.isEmpty()) return;
        if (!mVacia) {
            const QString conPalabra = mLinea + QLatin1Char(' ') + xPalabra;
            if (Cabe(conPalabra)) {
                mLinea = conPalabra;
                return;
            }
            Salto();
        }
        while (xPalabra.size() > 1 && !Cabe(mLinea + xPalabra)) {
            const qsizetype corte = LargoQueCabe(xPalabra);
            mTexto += mLinea + xPalabra.left(corte) + QStringLiteral("-\r\n");
            mLinea = mSangria;
            xPalabra = xPalabra.mid(corte);
        }
        mLinea += xPalabra;
        mVacia = false;
    }

    void Salto() {
        mTexto += mLinea + QStringLiteral("\r\n");
        mLinea = mSangria;
        mVacia = true;
    }

    QString Texto() const { return mTexto + mLinea; }

private:
    bool Cabe(const QString& xLinea) const { return mAnchoDe(xLinea) <= mAncho; }

    // The longest start of the word that fits on the line with its "-", at least one character.
    qsizetype LargoQueCabe(const QString& xPalabra) const {
        qsizetype largo = 1;
        while (largo + 1 < xPalabra.size() &&
               Cabe(mLinea + xPalabra.left(largo + 1) + QLatin1Char('-')))
            ++largo;
        return largo;
    }

    double mAncho;
    QString mSangria;
    const AnchoDeTexto& mAnchoDe;
    QString mTexto;
    QString mLinea;
    bool mVacia = true;
};

QString Envolver(const QString& xTexto, double xAncho, int xSangria, const AnchoDeTexto& xAnchoDe) {
    const QString texto = SinBlancos(xTexto).toString();
    Renglones renglones(xAncho, xSangria, xAnchoDe);
    QString palabra;
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const QChar c = texto[i];
        if (c != QLatin1Char(' ') && c != QLatin1Char('\r') && c != QLatin1Char('\n')) {
            palabra += c;
            continue;
        }
        renglones.Palabra(std::exchange(palabra, QString()));
        if (c == QLatin1Char(' ')) continue;
        if (c == QLatin1Char('\r') && i + 1 < texto.size() && texto[i + 1] == QLatin1Char('\n'))
            ++i;
        renglones.Salto();
    }
    renglones.Palabra(palabra);
    return renglones.Texto();
}

} // namespace

QString MultiLinea(const QString& xTexto, double xAncho, int xSangria,
                   const AnchoDeTexto& xAnchoDe) {
    try {
        return Envolver(xTexto, xAncho, xSangria, xAnchoDe);
    } catch (const ErrorVB& error) {
        throw error.ConFuente(error.Fuente() + QStringLiteral(".modFunciones.MultiLinea\r\n"));
    }
}

// bytes * 100 / 1024 is bytes * 25 / 256, exact in a double, so a half is a true half; the
// default rounding of nearbyint takes it to the even neighbour.
double Kilobytes(double xBytes) {
    return std::nearbyint(xBytes * 25.0 / 256.0) / 100.0;
}

QString Cita(const QString& xTexto, qsizetype xMaximo) {
    if (xTexto.size() <= xMaximo) return xTexto;
    return xTexto.left(xMaximo) + QStringLiteral("...");
}

QString DestinoFinal(const QString& xRuta) {
    QFileInfo destino(xRuta);
    for (int saltos = 0; destino.isSymLink(); ++saltos) {
        if (saltos == 128) return QString();
        destino.setFile(destino.symLinkTarget());
    }
    return destino.absoluteFilePath();
}

double Val(QStringView xTexto) {
    QByteArray numero;
    bool punto = false;
    for (const QChar c : xTexto) {
        if (c.isSpace()) continue;
        const char16_t letra = c.unicode();
        const bool cifra = letra >= u'0' && letra <= u'9';
        const bool signo = (letra == u'-' || letra == u'+') && numero.isEmpty();
        const bool primerPunto = letra == u'.' && !punto;
        if (!cifra && !signo && !primerPunto) break;
        punto = punto || primerPunto;
        numero += char(letra);
    }
    bool correcto = false;
    const double valor = numero.toDouble(&correcto);
    return correcto ? valor : 0.0;
}

} // namespace modFunciones
