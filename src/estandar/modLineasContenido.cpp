#include "estandar/modLineasContenido.h"

namespace modLineasContenido {

namespace {
constexpr qsizetype LargoLinea = 75;

bool Continuacion(char xByte) {
    return (static_cast<uchar>(xByte) & 0xC0) == 0x80;
}
} // namespace

QString Escapar(QStringView xTexto) {
    QString escapado;
    escapado.reserve(xTexto.size() + 8);
    for (qsizetype k = 0; k < xTexto.size(); ++k) {
        const QChar letra = xTexto[k];
        switch (letra.unicode()) {
        case u'\\':
        case u';':
        case u',':
            escapado += QLatin1Char('\\');
            escapado += letra;
            break;
        case u'\r':
            if (k + 1 < xTexto.size() && xTexto[k + 1] == QLatin1Char('\n')) ++k;
            escapado += QLatin1String("\\n");
            break;
        case u'\n':
            escapado += QLatin1String("\\n");
            break;
        default:
            escapado += letra;
        }
    }
    return escapado;
}

void Linea(QByteArray& xSalida, QLatin1StringView xNombre, QStringView xValor) {
    QByteArray linea(xNombre.data(), xNombre.size());
    linea += ':';
    linea += xValor.toUtf8();
    qsizetype desde = 0;
    qsizetype cabe = LargoLinea;
    while (linea.size() - desde > cabe) {
        qsizetype corte = desde + cabe;
        while (corte > desde && Continuacion(linea[corte]))
            --corte;
        xSalida.append(linea.constData() + desde, corte - desde);
        xSalida.append("\r\n ");
        desde = corte;
        cabe = LargoLinea - 1; // after the blank that continues the line
    }
    xSalida.append(linea.constData() + desde, linea.size() - desde);
    xSalida.append("\r\n");
}

} // namespace modLineasContenido
