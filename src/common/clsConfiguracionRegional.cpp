#include "common/clsConfiguracionRegional.h"

#include "common/ErrorVB.h"
#include "common/clsEscritorTexto.h"
#include "common/modCifras.h"
#include "common/modEscrituraFecha.h"
#include "common/modFecha.h"
#include "common/modFunciones.h"
#include "common/modLecturaTexto.h"

#include <QDate>
#include <QTime>
#include <atomic>
#include <charconv>
#include <cmath>
#include <cstring>

using namespace modCifras;
using namespace modEscrituraFecha;
using namespace modLecturaTexto;
using namespace modPatronFecha;

// ---- The object ---------------------------------------------------------------------------------

clsConfiguracionRegional::clsConfiguracionRegional(const QLocale& xLocale)
    : mLocale(xLocale), mDecimal(xLocale.decimalPoint().front()),
      mGrupo(xLocale.groupSeparator().isEmpty() ? QChar() : xLocale.groupSeparator().front()),
      mMenos(xLocale.negativeSign()), mAM(xLocale.amText()), mPM(xLocale.pmText()) {
    mFechaCorta = CompilarLocale(mLocale.dateFormat(QLocale::ShortFormat), mLocale);
    mHoraLarga = CompilarLocale(mLocale.timeFormat(QLocale::LongFormat), mLocale);
    const qsizetype largoFecha = LargoMaximo(mFechaCorta);
    const qsizetype largoHora = LargoMaximo(mHoraLarga);
    mLargoFechaGeneral = largoFecha < 0 || largoHora < 0 ? -1 : largoFecha + 1 + largoHora;
    mHoraSola = SoloHora(mHoraLarga);
    static std::atomic<quint64> versiones{0};
    mVersion = ++versiones;
    mSeparadorFecha = PrimerSeparador(mFechaCorta, QLatin1Char('/'));
    mSeparadorHora = PrimerSeparador(mHoraLarga, QLatin1Char(':'));
    QByteArray orden;
    for (const Pieza& pieza : mFechaCorta) {
        char campo = 0;
        if (pieza.Clase == Pieza::Dia)
            campo = 'd';
        else if (pieza.Clase == Pieza::Mes || pieza.Clase == Pieza::NombreMesCorto ||
                 pieza.Clase == Pieza::NombreMesLargo)
            campo = 'M';
        else if (pieza.Clase == Pieza::Anio4)
            campo = 'y';
        if (campo != 0 && !orden.contains(campo)) orden += campo;
    }
    std::memcpy(mOrdenFecha, orden.size() == 3 ? orden.constData() : "Mdy", 4);
}

namespace {
// The settings in use: set at start-up (and by tests between cases) before any thread reads them;
// the reading threads of a listing share them read-only.
clsConfiguracionRegional& EnUso() {
    static clsConfiguracionRegional actual;
    return actual;
}
} // namespace

const clsConfiguracionRegional& clsConfiguracionRegional::Actual() {
    return EnUso();
}

void clsConfiguracionRegional::EstablecerActual(const QLocale& xLocale) {
    EnUso() = clsConfiguracionRegional(xLocale);
}

// ---- Number texts -------------------------------------------------------------------------------

QString clsConfiguracionRegional::TextoNumero(double xValor) const {
    QString texto;
    clsEscritorTexto escritor(texto);
    TextoGeneral(escritor, xValor, 15, mDecimal, mMenos);
    return texto;
}

QString clsConfiguracionRegional::TextoSingle(float xValor) const {
    QString texto;
    AgregarTextoSingle(texto, xValor);
    return texto;
}

void clsConfiguracionRegional::AgregarTextoSingle(QString& xDestino, float xValor) const {
    clsEscritorTexto escritor(xDestino);
    TextoGeneral(escritor, xValor, 7, mDecimal, mMenos);
}

void clsConfiguracionRegional::AgregarTextoSingle(clsBufferTexto& xDestino, float xValor) const {
    if (TextoSingleExacto(xDestino, xValor, mDecimal, mMenos)) return;
    TextoGeneral(xDestino, xValor, 7, mDecimal, mMenos);
}

// Formats of digits: '0' a digit always shown, '#' a digit shown when significant, '.' the
// decimal separator (always printed when present), ',' in the integer part groups thousands.
// The value is taken to 15 significant digits and rounded half away from zero.
QString clsConfiguracionRegional::Formato(double xValor, const QString& xFormato) const {
    int cerosEnteros = 0;
    int minimoDecimales = 0;
    int maximoDecimales = 0;
    bool conPunto = false;
    bool agrupar = false;
    QString prefijo;
    QString sufijo;
    bool enDigitos = false;
    for (const QChar c : xFormato) {
        const bool digito = c == QLatin1Char('0') || c == QLatin1Char('#');
        if (c == QLatin1Char('.') && !conPunto) {
            conPunto = true;
            enDigitos = true;
        } else if (c == QLatin1Char(',') && enDigitos && !conPunto) {
            agrupar = true;
        } else if (digito && sufijo.isEmpty()) {
            enDigitos = true;
            if (conPunto) {
                ++maximoDecimales;
                if (c == QLatin1Char('0')) minimoDecimales = maximoDecimales;
            } else if (c == QLatin1Char('0')) {
                ++cerosEnteros;
            }
        } else if (enDigitos) {
            sufijo += c;
        } else {
            prefijo += c;
        }
    }
    if (!std::isfinite(xValor)) throw ErrorVB::Overflow(QStringLiteral("Format"));

    // Digits of |value| to 15 significant digits, then rounded at the last decimal kept.
    QByteArray enteros;
    QByteArray decimales;
    if (xValor != 0) {
        Cifras cifras{};
        Significativas(xValor, 15, cifras);
        QByteArray todos(cifras.Digitos, cifras.Cantidad);
        int puntoEn = cifras.Exponente + 1; // digits before the decimal point
        if (puntoEn <= 0) {
            todos.prepend(QByteArray(-puntoEn + 1, '0'));
            puntoEn = 1;
        } else if (todos.size() < puntoEn) {
            todos.append(QByteArray(puntoEn - todos.size(), '0'));
        }
        const int guardar = puntoEn + maximoDecimales;
        if (todos.size() > guardar) {
            const bool subir = todos.at(guardar) >= '5';
            todos.truncate(guardar);
            for (int k = guardar - 1; subir && k >= 0; --k) {
                if (todos[k] == '9') {
                    todos[k] = '0';
                    if (k == 0) {
                        todos.prepend('1');
                        ++puntoEn;
                    }
                } else {
                    todos[k] = static_cast<char>(todos[k] + 1);
                    break;
                }
            }
        }
        enteros = todos.left(puntoEn);
        decimales = todos.mid(puntoEn);
    }
    while (enteros.startsWith('0'))
        enteros.remove(0, 1);
    decimales = decimales.leftJustified(maximoDecimales, '0', true);
    while (decimales.size() > minimoDecimales && decimales.endsWith('0'))
        decimales.chop(1);
    if (enteros.size() < cerosEnteros)
        enteros.prepend(QByteArray(cerosEnteros - enteros.size(), '0'));

    QString texto = prefijo;
    const bool negativo = xValor < 0 && (enteros.count('0') != enteros.size() ||
                                         decimales.count('0') != decimales.size());
    if (negativo) texto += mMenos;
    for (int k = 0; k < enteros.size(); ++k) {
        if (agrupar && k > 0 && (enteros.size() - k) % 3 == 0) texto += mGrupo;
        texto += QLatin1Char(enteros.at(k));
    }
    if (conPunto) texto += mDecimal;
    texto += QLatin1String(decimales);
    return texto + sufijo;
}

// ---- Date texts ---------------------------------------------------------------------------------

QString clsConfiguracionRegional::Fecha(const QDateTime& xFecha, const PatronFecha& xPatron) const {
    QString texto;
    if (!xFecha.isValid()) return texto;
    clsEscritorTexto escritor(texto);
    EscribirFecha(escritor, PartesFecha(xFecha.date(), xFecha.time()), xPatron, mLocale);
    return texto;
}

QString clsConfiguracionRegional::TextoFechaGeneral(const QDateTime& xFecha) const {
    QString texto;
    AgregarFechaGeneral(texto, xFecha);
    return texto;
}

void clsConfiguracionRegional::AgregarFechaGeneral(QString& xDestino,
                                                   const QDateTime& xFecha) const {
    if (!xFecha.isValid()) return;
    const int milisegundos = xFecha.time().msecsSinceStartOfDay();
    clsEscritorTexto escritor(xDestino);
    EscribirFechaGeneral(escritor, PartesFecha(xFecha.date(), milisegundos), milisegundos,
                         mFechaCorta, mHoraLarga, mLocale);
}

void clsConfiguracionRegional::AgregarFechaGeneral(clsBufferTexto& xDestino, const QDate& xDia,
                                                   int xSegundos) const {
    const int milisegundos = xSegundos * 1000;
    if (mLargoFechaGeneral < 0) {
        EscribirFechaGeneral(xDestino, PartesFecha(xDia, milisegundos), milisegundos, mFechaCorta,
                             mHoraLarga, mLocale);
        return;
    }
    // Patterns of numbers alone, the usual ones, are written without a check per piece, the day
    // through the texts kept for the days last written.
    char16_t* const inicio = xDestino.Reservar(mLargoFechaGeneral);
    char16_t* fin = inicio;
    const auto hora = [&] {
        return mHoraSola ? PartesFecha(milisegundos) : PartesFecha(xDia, milisegundos);
    };
    if (xDia == DiaCero) {
        fin = EscribirFechaNumerica(fin, hora(), mHoraLarga);
    } else {
        fin = EscribirDiaNumerico(fin, xDia, mFechaCorta, mVersion);
        if (milisegundos != 0) {
            *fin++ = u' ';
            fin = EscribirFechaNumerica(fin, hora(), mHoraLarga);
        }
    }
    xDestino.Usar(fin - inicio);
}

QString clsConfiguracionRegional::TextoFechaCorta(const QDateTime& xFecha) const {
    return Fecha(xFecha, mFechaCorta);
}

QString clsConfiguracionRegional::TextoKilobytes(double xBytes, const QString& xFormato) const {
    const double kb = modFunciones::Kilobytes(xBytes);
    return (xFormato.isEmpty() ? TextoNumero(kb) : Formato(kb, xFormato)) + QStringLiteral(" KB");
}

// The format is compiled at each call: it is asked for a few dates at a time (a header, a page),
// never per record, and an object that keeps nothing between calls is safe on any thread.
QString clsConfiguracionRegional::FormatoFecha(const QDateTime& xFecha,
                                               const QString& xFormato) const {
    return Fecha(xFecha,
                 CompilarFormato(xFormato, mLocale, mSeparadorFecha, mSeparadorHora, mFechaCorta));
}

// ---- Conversions of a user's text ---------------------------------------------------------------

// A number as the desktop reads it: blanks around it, a sign before it (or parentheses around
// it), the locale's group separators in the integer part, its decimal separator, an exponent.
double clsConfiguracionRegional::LeerNumero(const QString& xTexto, const char* xFuente) const {
    const QString fuente = QString::fromLatin1(xFuente);
    QStringView texto = SinBlancos(xTexto);
    double valor = 0;
    if (LeerHexOctal(texto, valor)) return valor;
    bool negativo = false;
    if (texto.size() >= 2 && texto.front() == QLatin1Char('(') &&
        texto.back() == QLatin1Char(')')) {
        negativo = true;
        texto = texto.mid(1, texto.size() - 2).trimmed();
    } else if (texto.startsWith(mMenos) || texto.startsWith(QLatin1Char('-'))) {
        negativo = true;
        texto = texto.mid(texto.startsWith(mMenos) ? mMenos.size() : 1);
    } else if (texto.startsWith(QLatin1Char('+'))) {
        texto = texto.mid(1);
    }

    QByteArray normal;
    normal.reserve(texto.size() + 1);
    if (negativo) normal += '-';
    qsizetype i = 0;
    int digitos = 0;
    for (; i < texto.size(); ++i) {
        const QChar c = texto.at(i);
        if (EsDigito(c)) {
            normal += static_cast<char>(c.unicode());
            ++digitos;
        } else if (!(c == mGrupo && digitos > 0 && !mGrupo.isNull())) {
            break;
        }
    }
    if (i < texto.size() && texto.at(i) == mDecimal) {
        normal += '.';
        for (++i; i < texto.size() && EsDigito(texto.at(i)); ++i) {
            normal += static_cast<char>(texto.at(i).unicode());
            ++digitos;
        }
    }
    if (digitos == 0) throw ErrorVB::TypeMismatch(fuente);
    if (i < texto.size() && QStringLiteral("eEdD").contains(texto.at(i))) {
        normal += 'e';
        ++i;
        if (i < texto.size() &&
            (texto.at(i) == QLatin1Char('+') || texto.at(i) == QLatin1Char('-')))
            normal += static_cast<char>(texto.at(i++).unicode());
        const qsizetype inicioExponente = i;
        for (; i < texto.size() && EsDigito(texto.at(i)); ++i)
            normal += static_cast<char>(texto.at(i).unicode());
        if (i == inicioExponente) throw ErrorVB::TypeMismatch(fuente);
    }
    if (i != texto.size()) throw ErrorVB::TypeMismatch(fuente);
    const auto resultado = std::from_chars(normal.constData(), normal.constData() + normal.size(),
                                           valor, std::chars_format::general);
    if (resultado.ec == std::errc::result_out_of_range) {
        // Too small to hold is zero; too large is an overflow.
        if (ExponenteDecimal(normal) < 0) return 0;
        throw ErrorVB::Overflow(fuente);
    }
    if (resultado.ec != std::errc() || !std::isfinite(valor)) throw ErrorVB::Overflow(fuente);
    return valor;
}

namespace {

// Integer conversions round half to even, then check the range.
double Redondear(double xValor, double xMinimo, double xMaximo, const char* xFuente) {
    const double redondo = std::nearbyint(xValor);
    if (redondo < xMinimo || redondo > xMaximo)
        throw ErrorVB::Overflow(QString::fromLatin1(xFuente));
    return redondo == 0 ? 0 : redondo;
}

} // namespace

quint8 clsConfiguracionRegional::CByte(const QString& xTexto) const {
    return static_cast<quint8>(Redondear(LeerNumero(xTexto, "CByte"), 0, 255, "CByte"));
}

qint16 clsConfiguracionRegional::CInt(const QString& xTexto) const {
    return static_cast<qint16>(Redondear(LeerNumero(xTexto, "CInt"), -32768, 32767, "CInt"));
}

qint32 clsConfiguracionRegional::CLng(const QString& xTexto) const {
    return static_cast<qint32>(
        Redondear(LeerNumero(xTexto, "CLng"), -2147483648.0, 2147483647.0, "CLng"));
}

float clsConfiguracionRegional::CSng(const QString& xTexto) const {
    const double valor = LeerNumero(xTexto, "CSng");
    const float simple = static_cast<float>(valor);
    if (std::isinf(simple)) throw ErrorVB::Overflow(QStringLiteral("CSng"));
    return simple;
}

double clsConfiguracionRegional::CDbl(const QString& xTexto) const {
    return LeerNumero(xTexto, "CDbl");
}

bool clsConfiguracionRegional::CBool(const QString& xTexto) const {
    const QStringView texto = SinBlancos(xTexto);
    if (texto.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return true;
    if (texto.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) return false;
    return LeerNumero(xTexto, "CBool") != 0;
}

// A date, a time, or both, in the locale's order of day, month and year (another order is tried
// when the locale's gives no valid date, as the desktop does). Months may be named; two-digit
// years 00-29 are 2000-2029 and 30-99 are 1930-1999; a time alone falls on 1899-12-30.
QDateTime clsConfiguracionRegional::CDate(const QString& xTexto) const {
    const QString fuente = QStringLiteral("CDate");
    const QString texto = SinBlancos(xTexto).toString();
    if (texto.isEmpty()) throw ErrorVB::TypeMismatch(fuente);

    struct Ficha {
        enum Clase { Numero, Palabra, Separador } Tipo;
        QString Texto;
    };
    std::vector<Ficha> fichas;
    for (qsizetype i = 0; i < texto.size();) {
        const QChar c = texto.at(i);
        qsizetype j = i + 1;
        if (EsDigito(c)) {
            while (j < texto.size() && EsDigito(texto.at(j)))
                ++j;
            fichas.push_back({Ficha::Numero, texto.mid(i, j - i)});
        } else if (c.isLetter()) {
            while (j < texto.size() && (texto.at(j).isLetter() || texto.at(j) == QLatin1Char('.')))
                ++j;
            fichas.push_back({Ficha::Palabra, texto.mid(i, j - i)});
        } else if (!c.isSpace()) {
            fichas.push_back({Ficha::Separador, QString(c)});
        } else {
            while (j < texto.size() && texto.at(j).isSpace())
                ++j;
            fichas.push_back({Ficha::Separador, QStringLiteral(" ")});
        }
        i = j;
    }

    auto esSeparadorHora = [&](size_t k) {
        return k < fichas.size() && fichas[k].Tipo == Ficha::Separador &&
               (fichas[k].Texto == mSeparadorHora || fichas[k].Texto == QLatin1String(":"));
    };
    auto esNumero = [&](size_t k) { return k < fichas.size() && fichas[k].Tipo == Ficha::Numero; };
    auto marcaAmPm = [&](const QString& xPalabra) {
        const QString sinPuntos = QString(xPalabra).remove(QLatin1Char('.'));
        if (sinPuntos.compare(mAM, Qt::CaseInsensitive) == 0 ||
            sinPuntos.compare(QLatin1String("AM"), Qt::CaseInsensitive) == 0 ||
            sinPuntos.compare(QLatin1String("A"), Qt::CaseInsensitive) == 0)
            return 1;
        if (sinPuntos.compare(mPM, Qt::CaseInsensitive) == 0 ||
            sinPuntos.compare(QLatin1String("PM"), Qt::CaseInsensitive) == 0 ||
            sinPuntos.compare(QLatin1String("P"), Qt::CaseInsensitive) == 0)
            return 2;
        return 0;
    };
    auto mesPorNombre = [&](const QString& xPalabra) {
        const QString palabra = QString(xPalabra).remove(QLatin1Char('.'));
        static const QLocale ingles(QLocale::English, QLocale::UnitedStates);
        for (int mes = 1; mes <= 12; ++mes) {
            for (const QLocale* locale : {&mLocale, &ingles}) {
                for (const auto forma : {QLocale::LongFormat, QLocale::ShortFormat}) {
                    QString nombre = locale->monthName(mes, forma);
                    nombre.remove(QLatin1Char('.'));
                    if (!nombre.isEmpty() && palabra.compare(nombre, Qt::CaseInsensitive) == 0)
                        return mes;
                }
            }
        }
        return 0;
    };

    // The time: h:m[:s] with an optional AM/PM mark, or h followed by the mark.
    bool conHora = false;
    int hora = 0, minuto = 0, segundo = 0;
    std::vector<Componente> componentes;
    for (size_t k = 0; k < fichas.size(); ++k) {
        const Ficha& ficha = fichas[k];
        if (ficha.Tipo == Ficha::Separador) continue;
        size_t siguiente = k + 1;
        while (siguiente < fichas.size() && fichas[siguiente].Texto == QLatin1String(" "))
            ++siguiente;
        const bool empiezaHora =
            ficha.Tipo == Ficha::Numero &&
            ((esSeparadorHora(k + 1) && esNumero(k + 2)) ||
             (siguiente < fichas.size() && fichas[siguiente].Tipo == Ficha::Palabra &&
              marcaAmPm(fichas[siguiente].Texto) != 0));
        if (empiezaHora) {
            if (conHora) throw ErrorVB::TypeMismatch(fuente);
            conHora = true;
            int partes[3] = {0, 0, 0};
            int cantidad = 0;
            size_t m = k;
            while (true) {
                if (!esNumero(m) || fichas[m].Texto.size() > 4 || cantidad == 3)
                    throw ErrorVB::TypeMismatch(fuente);
                partes[cantidad++] = fichas[m].Texto.toInt();
                if (!(esSeparadorHora(m + 1) && esNumero(m + 2))) break;
                m += 2;
            }
            hora = partes[0];
            minuto = partes[1];
            segundo = partes[2];
            size_t marca = m + 1;
            while (marca < fichas.size() && fichas[marca].Texto == QLatin1String(" "))
                ++marca;
            const int amPm = marca < fichas.size() && fichas[marca].Tipo == Ficha::Palabra
                                 ? marcaAmPm(fichas[marca].Texto)
                                 : 0;
            if (amPm != 0) {
                if (hora < 1 || hora > 12) throw ErrorVB::TypeMismatch(fuente);
                hora = hora % 12 + (amPm == 2 ? 12 : 0);
                m = marca;
            }
            if (hora > 23 || minuto > 59 || segundo > 59) throw ErrorVB::TypeMismatch(fuente);
            k = m;
            continue;
        }
        if (ficha.Tipo == Ficha::Numero) {
            if (ficha.Texto.size() > 4) throw ErrorVB::TypeMismatch(fuente);
            componentes.push_back({ficha.Texto.toInt(), static_cast<int>(ficha.Texto.size())});
            continue;
        }
        const int mes = mesPorNombre(ficha.Texto);
        if (mes == 0) throw ErrorVB::TypeMismatch(fuente);
        componentes.push_back({mes, 0});
    }

    QDate dia;
    if (componentes.empty()) {
        if (!conHora) throw ErrorVB::TypeMismatch(fuente);
        dia = DiaCero;
    } else if (!ResolverDia(componentes, mOrdenFecha, modFecha::Ahora().date().year(), dia)) {
        throw ErrorVB::TypeMismatch(fuente);
    }
    return QDateTime(dia, QTime(hora, minuto, segundo), Qt::UTC);
}
