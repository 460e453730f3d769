#include "common/clsConfiguracionRegional.h"

#include "common/ErrorVB.h"
#include "common/modFecha.h"
#include "common/modFunciones.h"

#include <QDate>
#include <QTime>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

using Pieza = clsConfiguracionRegional::PiezaFecha;
using Patron = clsConfiguracionRegional::PatronFecha;

const QDate DiaCero(1899, 12, 30);

qsizetype LargoMaximo(const Patron& xPatron);

// ---- Digits ---------------------------------------------------------------------------------

// Gathers a text in a local buffer and hands it to the destination in one append: the record
// reader builds hundreds of thousands of these texts.
class Escritor {
public:
    explicit Escritor(QString& xDestino) : mDestino(xDestino) {}
    ~Escritor() { Vaciar(); }
    Escritor(const Escritor&) = delete;
    Escritor& operator=(const Escritor&) = delete;

    void Letra(char16_t xLetra) {
        if (mCantidad == Capacidad) Vaciar();
        mLetras[mCantidad++] = xLetra;
    }
    void Letras(const char* xLetras, qsizetype xCantidad) {
        if (xCantidad > Capacidad - mCantidad) Vaciar();
        for (qsizetype k = 0; k < xCantidad; ++k)
            mLetras[mCantidad++] = static_cast<uchar>(xLetras[k]);
    }
    void Texto(const QString& xTexto) {
        if (xTexto.size() > Capacidad - mCantidad) {
            Vaciar();
            if (xTexto.size() > Capacidad) {
                mDestino += xTexto;
                return;
            }
        }
        const QChar* letras = xTexto.constData();
        for (qsizetype k = 0; k < xTexto.size(); ++k)
            mLetras[mCantidad++] = letras[k].unicode();
    }
    void Entero(int xValor, int xAncho) {
        // Days, months, hours, minutes and seconds: the common case, written straight.
        if (xValor >= 0 && xValor < 100 && xAncho <= 2 && mCantidad + 2 <= Capacidad) {
            if (xValor >= 10 || xAncho == 2) mLetras[mCantidad++] = u'0' + xValor / 10;
            mLetras[mCantidad++] = u'0' + xValor % 10;
            return;
        }
        char cifras[16] = {};
        char* const fin = cifras + sizeof cifras;
        char* inicio = fin;
        unsigned valor = static_cast<unsigned>(xValor < 0 ? -xValor : xValor);
        do {
            *--inicio = static_cast<char>('0' + valor % 10);
            valor /= 10;
        } while (valor != 0);
        while (fin - inicio < xAncho && inicio > cifras + 1)
            *--inicio = '0';
        if (xValor < 0) *--inicio = '-';
        Letras(inicio, fin - inicio);
    }

private:
    void Vaciar() {
        if (mCantidad == 0) return;
        mDestino.append(reinterpret_cast<const QChar*>(mLetras), mCantidad);
        mCantidad = 0;
    }

    static constexpr int Capacidad = 64;
    QString& mDestino;
    char16_t mLetras[Capacidad];
    int mCantidad = 0;
};

// The significant digits of a finite, non-zero value rounded to xDigitos digits, with trailing
// zeros removed, and the decimal exponent of the first digit.
struct Cifras {
    char Digitos[24] = {};
    int Cantidad = 0;
    int Exponente = 0;
};

void QuitarCerosFinales(Cifras& xCifras) {
    while (xCifras.Cantidad > 1 && xCifras.Digitos[xCifras.Cantidad - 1] == '0')
        --xCifras.Cantidad;
}

// Rounds half away from zero on the exact decimal expansion of the value, as the desktop does.
Cifras SignificativasExactas(double xValor, int xDigitos) {
    // Enough digits to hold the whole expansion of any double.
    static thread_local char texto[800];
    const auto resultado = std::to_chars(texto, texto + sizeof texto, std::fabs(xValor),
                                         std::chars_format::scientific, 770);
    char digitos[800];
    int cantidad = 0;
    const char* p = texto;
    for (; p < resultado.ptr && *p != 'e'; ++p) {
        if (*p != '.') digitos[cantidad++] = *p;
    }
    Cifras cifras{};
    std::from_chars(p + 1 + (p[1] == '+'), resultado.ptr, cifras.Exponente);
    bool subir = cantidad > xDigitos && digitos[xDigitos] >= '5';
    for (int k = xDigitos - 1; k >= 0; --k) {
        char digito = digitos[k];
        if (subir) {
            subir = digito == '9';
            digito = subir ? '0' : static_cast<char>(digito + 1);
        }
        cifras.Digitos[k] = digito;
    }
    cifras.Cantidad = xDigitos;
    if (subir) {
        cifras.Digitos[0] = '1';
        ++cifras.Exponente;
    }
    QuitarCerosFinales(cifras);
    return cifras;
}

// Powers of ten as doubles; exact up to 1e22, within half an ulp beyond.
struct Potencias {
    double Valor[64];
    constexpr Potencias() : Valor() {
        double potencia = 1;
        for (int k = 0; k < 64; ++k) {
            Valor[k] = potencia;
            potencia *= 10;
        }
    }
};
constexpr Potencias PotenciasDeDiez;

// The few digits of a Single by scaling in double precision, which carries far more digits than
// needed; a value that lands too near a rounding tie goes the exact way.
bool SignificativasRapidas(double xValor, int xDigitos, Cifras& xCifras) {
    const double valor = std::fabs(xValor);
    int binario = 0;
    std::frexp(valor, &binario);
    int e = static_cast<int>(std::floor((binario - 1) * 0.30102999566398120));
    const double minimo = PotenciasDeDiez.Valor[xDigitos - 1];
    const double maximo = PotenciasDeDiez.Valor[xDigitos];
    double escalado = 0;
    for (int intento = 0; intento < 3; ++intento) {
        const int k = xDigitos - 1 - e;
        if (k >= 64 || k <= -64) return false;
        escalado = k >= 0 ? valor * PotenciasDeDiez.Valor[k] : valor / PotenciasDeDiez.Valor[-k];
        if (escalado >= maximo)
            ++e;
        else if (escalado < minimo)
            --e;
        else
            break;
    }
    if (escalado < minimo || escalado >= maximo) return false;
    if (std::fabs(escalado - std::floor(escalado) - 0.5) < 1e-6) return false;
    auto entero = static_cast<qint64>(std::nearbyint(escalado));
    if (entero >= static_cast<qint64>(maximo)) {
        entero /= 10;
        ++e;
    }
    for (int k = xDigitos - 1; k >= 0; --k) {
        xCifras.Digitos[k] = static_cast<char>('0' + entero % 10);
        entero /= 10;
    }
    xCifras.Cantidad = xDigitos;
    xCifras.Exponente = e;
    QuitarCerosFinales(xCifras);
    return true;
}

// A double whose shortest exact text has at most 15 digits: those are its 15-digit rounding,
// since a double's rounding interval is narrower than the spacing of 15-digit decimals.
bool SignificativasCortas(double xValor, int xDigitos, Cifras& xCifras) {
    char texto[40];
    const auto resultado = std::to_chars(texto, texto + sizeof texto, std::fabs(xValor),
                                         std::chars_format::scientific);
    const char* p = texto;
    for (; p < resultado.ptr && *p != 'e'; ++p) {
        if (*p == '.') continue;
        if (xCifras.Cantidad == xDigitos) return false;
        xCifras.Digitos[xCifras.Cantidad++] = *p;
    }
    std::from_chars(p + 1 + (p[1] == '+'), resultado.ptr, xCifras.Exponente);
    QuitarCerosFinales(xCifras);
    return true;
}

// A Single with at most three decimals and at most seven significant digits is its own rounding:
// its digits are those of the value times 1000, which a double holds exactly for any Single.
bool CifrasDeSingleExacto(double xValor, Cifras& xCifras) {
    const double milesimas = std::fabs(xValor) * 1000;
    if (milesimas >= 1e10 || milesimas != std::floor(milesimas)) return false;
    char cifras[16] = {};
    const auto resultado =
        std::to_chars(cifras, cifras + sizeof cifras, static_cast<qint64>(milesimas));
    const int cantidad = static_cast<int>(resultado.ptr - cifras);
    int significativas = cantidad;
    while (significativas > 1 && cifras[significativas - 1] == '0')
        --significativas;
    if (significativas > 7) return false;
    std::memcpy(xCifras.Digitos, cifras, static_cast<size_t>(significativas));
    xCifras.Cantidad = significativas;
    xCifras.Exponente = cantidad - 1 - 3;
    return true;
}

// The significant digits of a finite, non-zero value rounded to xDigitos digits. Seven digits
// are those of a Single.
void Significativas(double xValor, int xDigitos, Cifras& xCifras) {
    xCifras = Cifras{};
    if (xDigitos == 7 && CifrasDeSingleExacto(xValor, xCifras)) return;
    xCifras = Cifras{};
    if (xDigitos <= 9 && SignificativasRapidas(xValor, xDigitos, xCifras)) return;
    xCifras = Cifras{};
    if (xDigitos == 15 && SignificativasCortas(xValor, xDigitos, xCifras)) return;
    xCifras = SignificativasExactas(xValor, xDigitos);
}

// ---- Date patterns ----------------------------------------------------------------------------

void AgregarLiteral(Patron& xPatron, const QString& xTexto) {
    if (xTexto.isEmpty()) return;
    if (!xPatron.empty() && xPatron.back().Clase == Pieza::Literal)
        xPatron.back().Texto += xTexto;
    else
        xPatron.push_back({Pieza::Literal, 0, xTexto, {}});
}

void AgregarCampo(Patron& xPatron, Pieza::Tipo xClase, int xAncho) {
    xPatron.push_back({xClase, static_cast<quint8>(xAncho), {}, {}});
}

// A day or a month: one or two letters write its number, three its short name, more its long one.
void AgregarNombrable(Patron& xPatron, int xCorrida, Pieza::Tipo xNumero, Pieza::Tipo xCorto,
                      Pieza::Tipo xLargo) {
    AgregarCampo(xPatron,
                 xCorrida <= 2   ? xNumero
                 : xCorrida == 3 ? xCorto
                                 : xLargo,
                 qMin(xCorrida, 2));
}

int Corrida(const QString& xFormato, qsizetype xDesde) {
    const QChar letra = xFormato.at(xDesde);
    qsizetype hasta = xDesde;
    while (hasta < xFormato.size() && xFormato.at(hasta) == letra)
        ++hasta;
    return static_cast<int>(hasta - xDesde);
}

bool TieneAmPmQt(const QString& xFormato) {
    bool entreComillas = false;
    for (const QChar c : xFormato) {
        if (c == QLatin1Char('\''))
            entreComillas = !entreComillas;
        else if (!entreComillas && (c == QLatin1Char('a') || c == QLatin1Char('A')))
            return true;
    }
    return false;
}

// The morning and afternoon marks, both in the case the pattern asks for.
Pieza PiezaAmPm(const QString& xAm, const QString& xPm, bool xMinusculas) {
    if (xMinusculas) return {Pieza::AmPm, 0, xAm.toLower(), xPm.toLower()};
    return {Pieza::AmPm, 0, xAm.toUpper(), xPm.toUpper()};
}

void QuitarBlancosExtremos(Patron& xPatron) {
    if (!xPatron.empty() && xPatron.back().Clase == Pieza::Literal) {
        QString& texto = xPatron.back().Texto;
        while (!texto.isEmpty() && texto.back().isSpace())
            texto.chop(1);
        if (texto.isEmpty()) xPatron.pop_back();
    }
    if (!xPatron.empty() && xPatron.front().Clase == Pieza::Literal) {
        QString& texto = xPatron.front().Texto;
        while (!texto.isEmpty() && texto.front().isSpace())
            texto.remove(0, 1);
        if (texto.isEmpty()) xPatron.erase(xPatron.begin());
    }
}

// A locale's date or time format (QLocale's pattern letters), with the year always in four
// digits and without the time zone, as the desktop writes its general dates.
Patron CompilarLocale(const QString& xFormato, const QLocale& xLocale) {
    Patron patron;
    const bool doceHoras = TieneAmPmQt(xFormato);
    bool sinZona = false;
    qsizetype i = 0;
    while (i < xFormato.size()) {
        const QChar c = xFormato.at(i);
        if (c == QLatin1Char('\'')) {
            const qsizetype cierre = xFormato.indexOf(QLatin1Char('\''), i + 1);
            const qsizetype fin = cierre < 0 ? xFormato.size() : cierre;
            AgregarLiteral(patron,
                           fin == i + 1 ? QStringLiteral("'") : xFormato.mid(i + 1, fin - i - 1));
            i = fin + 1;
            continue;
        }
        const int corrida = Corrida(xFormato, i);
        switch (c.unicode()) {
        case 'd':
            AgregarNombrable(patron, corrida, Pieza::Dia, Pieza::NombreDiaCorto,
                             Pieza::NombreDiaLargo);
            break;
        case 'M':
            AgregarNombrable(patron, corrida, Pieza::Mes, Pieza::NombreMesCorto,
                             Pieza::NombreMesLargo);
            break;
        case 'y':
            AgregarCampo(patron, Pieza::Anio4, 4);
            break;
        case 'h':
            AgregarCampo(patron, doceHoras ? Pieza::Hora12 : Pieza::Hora24, qMin(corrida, 2));
            break;
        case 'H':
            AgregarCampo(patron, Pieza::Hora24, qMin(corrida, 2));
            break;
        case 'm':
            AgregarCampo(patron, Pieza::Minuto, qMin(corrida, 2));
            break;
        case 's':
            AgregarCampo(patron, Pieza::Segundo, qMin(corrida, 2));
            break;
        case 'z':
            AgregarCampo(patron, Pieza::Milisegundo, corrida >= 3 ? 3 : 1);
            break;
        case 't':
            sinZona = true;
            break;
        case 'a':
        case 'A': {
            const bool mayusculas = c == QLatin1Char('A');
            const QChar siguiente = i + 1 < xFormato.size() ? xFormato.at(i + 1) : QChar();
            const bool doble = siguiente == QLatin1Char('p') || siguiente == QLatin1Char('P');
            patron.push_back(PiezaAmPm(xLocale.amText(), xLocale.pmText(), !mayusculas));
            i += doble ? 2 : 1;
            continue;
        }
        default:
            AgregarLiteral(patron, QString(corrida, c));
            break;
        }
        i += corrida;
    }
    if (sinZona) QuitarBlancosExtremos(patron);
    return patron;
}

const Pieza* CampoAnterior(const Patron& xPatron, size_t xIndice) {
    while (xIndice > 0) {
        --xIndice;
        if (xPatron[xIndice].Clase != Pieza::Literal) return &xPatron[xIndice];
    }
    return nullptr;
}

const Pieza* CampoSiguiente(const Patron& xPatron, size_t xIndice) {
    for (++xIndice; xIndice < xPatron.size(); ++xIndice) {
        if (xPatron[xIndice].Clase != Pieza::Literal) return &xPatron[xIndice];
    }
    return nullptr;
}

bool EsHora(const Pieza* xPieza) {
    return xPieza && (xPieza->Clase == Pieza::Hora12 || xPieza->Clase == Pieza::Hora24);
}

// "m" or "mm" right after an hour or right before the seconds is the minute, not the month.
void ResolverMinutos(Patron& xPatron) {
    for (size_t i = 0; i < xPatron.size(); ++i) {
        if (xPatron[i].Clase != Pieza::Mes) continue;
        const Pieza* siguiente = CampoSiguiente(xPatron, i);
        if (EsHora(CampoAnterior(xPatron, i)) || (siguiente && siguiente->Clase == Pieza::Segundo))
            xPatron[i].Clase = Pieza::Minuto;
    }
}

struct MarcaAmPm {
    const char* Marca;
    bool DelLocale;
};

// The desktop's format letters: d, m, y, h, n, s, AM/PM and its kin, "/" and ":" as the locale's
// separators, quoted text and backslash escapes.
Patron CompilarFormato(const QString& xFormato, const QLocale& xLocale, QChar xSeparadorFecha,
                       QChar xSeparadorHora, const Patron& xFechaCorta) {
    static const MarcaAmPm marcas[] = {{"AM/PM", false}, {"A/P", false}, {"AMPM", true}};
    Patron patron;
    const QString mayusculas = xFormato.toUpper();
    const bool doceHoras = mayusculas.contains(QLatin1String("AM/PM")) ||
                           mayusculas.contains(QLatin1String("A/P")) ||
                           mayusculas.contains(QLatin1String("AMPM"));
    qsizetype i = 0;
    while (i < xFormato.size()) {
        const QChar c = xFormato.at(i);
        if (c == QLatin1Char('"')) {
            const qsizetype cierre = xFormato.indexOf(QLatin1Char('"'), i + 1);
            const qsizetype fin = cierre < 0 ? xFormato.size() : cierre;
            AgregarLiteral(patron, xFormato.mid(i + 1, fin - i - 1));
            i = fin + 1;
            continue;
        }
        if (c == QLatin1Char('\\')) {
            if (i + 1 < xFormato.size()) AgregarLiteral(patron, xFormato.at(i + 1));
            i += 2;
            continue;
        }
        bool esMarca = false;
        for (const MarcaAmPm& marca : marcas) {
            const QLatin1String texto(marca.Marca);
            if (!mayusculas.mid(i).startsWith(texto)) continue;
            const qsizetype barra = texto.indexOf(QLatin1Char('/'));
            patron.push_back(marca.DelLocale
                                 ? Pieza{Pieza::AmPm, 0, xLocale.amText(), xLocale.pmText()}
                                 : PiezaAmPm(xFormato.mid(i, barra),
                                             xFormato.mid(i + barra + 1, texto.size() - barra - 1),
                                             c.isLower()));
            i += texto.size();
            esMarca = true;
            break;
        }
        if (esMarca) continue;
        const int corrida = Corrida(xFormato, i);
        switch (c.toLower().unicode()) {
        case 'd':
            if (corrida >= 5)
                patron.insert(patron.end(), xFechaCorta.begin(), xFechaCorta.end());
            else
                AgregarNombrable(patron, corrida, Pieza::Dia, Pieza::NombreDiaCorto,
                                 Pieza::NombreDiaLargo);
            break;
        case 'm':
            AgregarNombrable(patron, corrida, Pieza::Mes, Pieza::NombreMesCorto,
                             Pieza::NombreMesLargo);
            break;
        case 'y':
            if (corrida == 1)
                AgregarCampo(patron, Pieza::DiaDelAnio, 1);
            else
                AgregarCampo(patron, corrida == 2 ? Pieza::Anio2 : Pieza::Anio4,
                             corrida == 2 ? 2 : 4);
            break;
        case 'h':
            AgregarCampo(patron, doceHoras ? Pieza::Hora12 : Pieza::Hora24, qMin(corrida, 2));
            break;
        case 'n':
            AgregarCampo(patron, Pieza::Minuto, qMin(corrida, 2));
            break;
        case 's':
            AgregarCampo(patron, Pieza::Segundo, qMin(corrida, 2));
            break;
        case '/':
            AgregarLiteral(patron, QString(corrida, xSeparadorFecha));
            break;
        case ':':
            AgregarLiteral(patron, QString(corrida, xSeparadorHora));
            break;
        default:
            AgregarLiteral(patron, QString(corrida, c));
            break;
        }
        i += corrida;
    }
    ResolverMinutos(patron);
    return patron;
}

QChar PrimerSeparador(const Patron& xPatron, QChar xPredeterminado) {
    for (const Pieza& pieza : xPatron) {
        const QString texto = pieza.Texto.trimmed();
        if (pieza.Clase == Pieza::Literal && !texto.isEmpty() && !texto.front().isLetterOrNumber())
            return texto.front();
    }
    return xPredeterminado;
}

// ---- Reading numbers ---------------------------------------------------------------------------

// Blanks around a number or a date are spaces and tabs.
QStringView SinBlancos(const QString& xTexto) {
    return modFunciones::SinBlancos(xTexto, u" \t");
}

bool EsDigito(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// "&H1F" and "&O17": a 16-bit value when it fits in four hex (six octal) digits, else 32-bit.
bool LeerHexOctal(QStringView xTexto, double& xValor) {
    if (xTexto.size() < 3 || xTexto.at(0) != QLatin1Char('&')) return false;
    const QChar clase = xTexto.at(1).toUpper();
    const int base = clase == QLatin1Char('H') ? 16 : clase == QLatin1Char('O') ? 8 : 0;
    if (base == 0) return false;
    bool correcto = false;
    const qulonglong valor = xTexto.mid(2).toULongLong(&correcto, base);
    if (!correcto || valor > 0xFFFFFFFFull) return false;
    const bool corto = base == 16 ? valor <= 0xFFFF : valor <= 0177777;
    xValor = corto ? static_cast<qint16>(static_cast<quint16>(valor))
                   : static_cast<qint32>(static_cast<quint32>(valor));
    return true;
}

// The decimal exponent of the first significant digit of a plain number text ("-12.5e3" is 4).
long long ExponenteDecimal(const QByteArray& xNormal) {
    const qsizetype e = xNormal.indexOf('e');
    const QByteArray mantisa = e < 0 ? xNormal : xNormal.left(e);
    const long long explicito = e < 0 ? 0 : xNormal.mid(e + 1).toLongLong();
    const qsizetype punto = mantisa.contains('.') ? mantisa.indexOf('.') : mantisa.size();
    for (qsizetype k = 0; k < mantisa.size(); ++k) {
        if (mantisa.at(k) >= '1' && mantisa.at(k) <= '9')
            return explicito + (k < punto ? punto - k - 1 : punto - k);
    }
    return std::numeric_limits<long long>::min();
}

// ---- Reading dates -----------------------------------------------------------------------------

struct Componente {
    int Valor;
    int Digitos; // 0 for a month given by name
};

int AnioCompleto(const Componente& xAnio) {
    if (xAnio.Digitos > 2) return xAnio.Valor;
    return xAnio.Valor < 30 ? 2000 + xAnio.Valor : 1900 + xAnio.Valor;
}

bool DiaValido(int xAnio, int xMes, int xDia, QDate& xFecha) {
    if (xAnio < 100 || xAnio > 9999) return false;
    xFecha = QDate(xAnio, xMes, xDia);
    return xFecha.isValid();
}

bool ParecidoAnio(const Componente& xComponente) {
    return xComponente.Digitos > 2 || xComponente.Valor > 31;
}

// Day, month and year in the order given ('d', 'M', 'y').
bool EnOrden(const Componente* xPartes, const char* xOrden, QDate& xFecha) {
    int dia = 0, mes = 0, anio = 0;
    for (int k = 0; k < 3; ++k) {
        const Componente& parte = xPartes[k];
        if (xOrden[k] == 'y') {
            if (parte.Digitos == 0) return false;
            anio = AnioCompleto(parte);
        } else if (xOrden[k] == 'M') {
            mes = parte.Valor;
        } else {
            if (parte.Digitos == 0) return false;
            dia = parte.Valor;
        }
    }
    return DiaValido(anio, mes, dia, xFecha);
}

bool ResolverDia(const std::vector<Componente>& xPartes, const char* xOrden, int xAnioActual,
                 QDate& xFecha) {
    const Componente actual{xAnioActual, 4};
    int nombrados = 0;
    for (const Componente& parte : xPartes)
        nombrados += parte.Digitos == 0 ? 1 : 0;
    if (nombrados > 1 || xPartes.size() > 3) return false;
    if (nombrados == 1) {
        std::vector<Componente> numeros;
        int mes = 0;
        for (const Componente& parte : xPartes) {
            if (parte.Digitos == 0)
                mes = parte.Valor;
            else
                numeros.push_back(parte);
        }
        if (numeros.empty()) return false;
        if (numeros.size() == 1) {
            if (ParecidoAnio(numeros[0]))
                return DiaValido(AnioCompleto(numeros[0]), mes, 1, xFecha);
            return DiaValido(xAnioActual, mes, numeros[0].Valor, xFecha);
        }
        const bool anioPrimero = ParecidoAnio(numeros[0]);
        const Componente& dia = anioPrimero ? numeros[1] : numeros[0];
        const Componente& anio = anioPrimero ? numeros[0] : numeros[1];
        return DiaValido(AnioCompleto(anio), mes, dia.Valor, xFecha);
    }
    if (xPartes.size() == 2) {
        const Componente& a = xPartes[0];
        const Componente& b = xPartes[1];
        if (ParecidoAnio(a)) return DiaValido(AnioCompleto(a), b.Valor, 1, xFecha);
        if (ParecidoAnio(b)) return DiaValido(AnioCompleto(b), a.Valor, 1, xFecha);
        const bool mesPrimero = std::strchr(xOrden, 'M') < std::strchr(xOrden, 'd') ||
                                std::strchr(xOrden, 'd') == nullptr;
        const Componente partes[3] = {a, b, actual};
        const char* ordenes[2] = {mesPrimero ? "Mdy" : "dMy", mesPrimero ? "dMy" : "Mdy"};
        return EnOrden(partes, ordenes[0], xFecha) || EnOrden(partes, ordenes[1], xFecha);
    }
    if (xPartes.size() == 3) {
        if (ParecidoAnio(xPartes[0]))
            return EnOrden(xPartes.data(), "yMd", xFecha) || EnOrden(xPartes.data(), "ydM", xFecha);
        const char* ordenes[] = {xOrden, "Mdy", "dMy", "yMd"};
        for (const char* orden : ordenes) {
            if (EnOrden(xPartes.data(), orden, xFecha)) return true;
        }
        return false;
    }
    return false;
}

} // namespace

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

const clsConfiguracionRegional& clsConfiguracionRegional::Actual() {
    static clsConfiguracionRegional actual;
    return actual;
}

void clsConfiguracionRegional::EstablecerActual(const QLocale& xLocale) {
    const_cast<clsConfiguracionRegional&>(Actual()) = clsConfiguracionRegional(xLocale);
}

// ---- Number texts -------------------------------------------------------------------------------

namespace {

// The desktop's general number form: up to xDigitos significant digits; the exponent form
// (1.234568E+07, 1E-05) when the exponent reaches xDigitos or falls below -4.
template <typename Escritura>
void TextoGeneral(Escritura& xTexto, double xValor, int xDigitos, QChar xDecimal,
                  const QString& xMenos) {
    if (std::isnan(xValor)) {
        xTexto.Texto(std::signbit(xValor) ? QStringLiteral("-1.#QNAN") : QStringLiteral("1.#QNAN"));
        return;
    }
    if (std::isinf(xValor)) {
        xTexto.Texto(xValor < 0 ? QStringLiteral("-1.#INF") : QStringLiteral("1.#INF"));
        return;
    }
    if (xValor == 0) {
        xTexto.Letra(u'0');
        return;
    }
    Cifras cifras{};
    Significativas(xValor, xDigitos, cifras);
    if (xValor < 0) xTexto.Texto(xMenos);
    const int e = cifras.Exponente;
    if (e >= xDigitos || e < -4) {
        xTexto.Letra(cifras.Digitos[0]);
        if (cifras.Cantidad > 1) {
            xTexto.Letra(xDecimal.unicode());
            xTexto.Letras(cifras.Digitos + 1, cifras.Cantidad - 1);
        }
        xTexto.Letra(u'E');
        xTexto.Letra(e < 0 ? u'-' : u'+');
        xTexto.Entero(e < 0 ? -e : e, 2);
        return;
    }
    if (e < 0) {
        xTexto.Letra(u'0');
        xTexto.Letra(xDecimal.unicode());
        for (int cero = e + 1; cero < 0; ++cero)
            xTexto.Letra(u'0');
        xTexto.Letras(cifras.Digitos, cifras.Cantidad);
        return;
    }
    for (int k = 0; k <= e; ++k)
        xTexto.Letra(k < cifras.Cantidad ? cifras.Digitos[k] : '0');
    if (cifras.Cantidad > e + 1) {
        xTexto.Letra(xDecimal.unicode());
        xTexto.Letras(cifras.Digitos + e + 1, cifras.Cantidad - e - 1);
    }
}

// A date and time taken apart once, for the patterns that write it.
struct PartesFecha {
    PartesFecha(const QDate& xDia, const QTime& xHora)
        : PartesFecha(xDia, xHora.msecsSinceStartOfDay()) {}
    PartesFecha(const QDate& xDia, int xMilisegundos) : Dia(xDia) {
        Calendario(xDia);
        const int milisegundos = xMilisegundos;
        Hora = milisegundos / 3600000;
        Minuto = milisegundos / 60000 % 60;
        Segundo = milisegundos / 1000 % 60;
        Milisegundo = milisegundos % 1000;
    }
    QDate Dia;
    int Anio = 0, Mes = 0, DiaDelMes = 0;

private:
    // Year, month and day from the day number in integer steps (proleptic Gregorian calendar,
    // as QDate counts), for the years after 1 AD; QDate itself for the others.
    void Calendario(const QDate& xDia) {
        constexpr qint64 PrimerDiaDeLaEra = 1721426; // 0001-01-01
        const qint64 juliano = xDia.toJulianDay();
        if (!xDia.isValid() || juliano < PrimerDiaDeLaEra) {
            xDia.getDate(&Anio, &Mes, &DiaDelMes);
            return;
        }
        // Days since 0000-03-01 in eras of 400 years.
        const qint64 dias = juliano - 1721120;
        const qint64 era = dias / 146097;
        const qint64 diaDeEra = dias - era * 146097;
        const qint64 anioDeEra =
            (diaDeEra - diaDeEra / 1460 + diaDeEra / 36524 - diaDeEra / 146096) / 365;
        const qint64 diaDelAnio = diaDeEra - (365 * anioDeEra + anioDeEra / 4 - anioDeEra / 100);
        const qint64 mesDesdeMarzo = (5 * diaDelAnio + 2) / 153;
        DiaDelMes = static_cast<int>(diaDelAnio - (153 * mesDesdeMarzo + 2) / 5 + 1);
        Mes = static_cast<int>(mesDesdeMarzo < 10 ? mesDesdeMarzo + 3 : mesDesdeMarzo - 9);
        Anio = static_cast<int>(anioDeEra + era * 400 + (Mes <= 2 ? 1 : 0));
    }

public:
    int Hora, Minuto, Segundo, Milisegundo;
};

// One date through a compiled pattern.
template <typename Escritura>
void EscribirFecha(Escritura& xTexto, const PartesFecha& xFecha, const Patron& xPatron,
                   const QLocale& xLocale) {
    for (const Pieza& pieza : xPatron) {
        switch (pieza.Clase) {
        case Pieza::Literal:
            xTexto.Texto(pieza.Texto);
            break;
        case Pieza::Dia:
            xTexto.Entero(xFecha.DiaDelMes, pieza.Ancho);
            break;
        case Pieza::NombreDiaCorto:
            xTexto.Texto(xLocale.dayName(xFecha.Dia.dayOfWeek(), QLocale::ShortFormat));
            break;
        case Pieza::NombreDiaLargo:
            xTexto.Texto(xLocale.dayName(xFecha.Dia.dayOfWeek(), QLocale::LongFormat));
            break;
        case Pieza::Mes:
            xTexto.Entero(xFecha.Mes, pieza.Ancho);
            break;
        case Pieza::NombreMesCorto:
            xTexto.Texto(xLocale.monthName(xFecha.Mes, QLocale::ShortFormat));
            break;
        case Pieza::NombreMesLargo:
            xTexto.Texto(xLocale.monthName(xFecha.Mes, QLocale::LongFormat));
            break;
        case Pieza::Anio2:
            xTexto.Entero(xFecha.Anio % 100, 2);
            break;
        case Pieza::Anio4:
            xTexto.Entero(xFecha.Anio, 4);
            break;
        case Pieza::DiaDelAnio:
            xTexto.Entero(xFecha.Dia.dayOfYear(), 1);
            break;
        case Pieza::Hora12:
            xTexto.Entero(xFecha.Hora % 12 == 0 ? 12 : xFecha.Hora % 12, pieza.Ancho);
            break;
        case Pieza::Hora24:
            xTexto.Entero(xFecha.Hora, pieza.Ancho);
            break;
        case Pieza::Minuto:
            xTexto.Entero(xFecha.Minuto, pieza.Ancho);
            break;
        case Pieza::Segundo:
            xTexto.Entero(xFecha.Segundo, pieza.Ancho);
            break;
        case Pieza::Milisegundo:
            xTexto.Entero(xFecha.Milisegundo, pieza.Ancho);
            break;
        case Pieza::AmPm:
            xTexto.Texto(xFecha.Hora < 12 ? pieza.Texto : pieza.Texto2);
            break;
        }
    }
}

} // namespace

QString clsConfiguracionRegional::TextoNumero(double xValor) const {
    QString texto;
    Escritor escritor(texto);
    TextoGeneral(escritor, xValor, 15, mDecimal, mMenos);
    return texto;
}

QString clsConfiguracionRegional::TextoSingle(float xValor) const {
    QString texto;
    AgregarTextoSingle(texto, xValor);
    return texto;
}

void clsConfiguracionRegional::AgregarTextoSingle(QString& xDestino, float xValor) const {
    Escritor escritor(xDestino);
    TextoGeneral(escritor, xValor, 7, mDecimal, mMenos);
}

namespace {

// The general text of a Single with at most three decimals and seven significant digits, which
// needs no rounding: its whole part and its thousandths, as integers. False for any other value.
bool TextoSingleExacto(clsBufferTexto& xTexto, float xValor, QChar xDecimal,
                       const QString& xMenos) {
    const double milesimas = std::fabs(static_cast<double>(xValor)) * 1000;
    if (!(milesimas < 1e10) || milesimas != std::floor(milesimas)) return false;
    auto valor = static_cast<quint64>(milesimas);
    if (valor == 0) {
        xTexto.Letra(u'0');
        return true;
    }
    int decimales = 3;
    while (decimales > 0 && valor % 10 == 0) {
        valor /= 10;
        --decimales;
    }
    quint64 limite = 10000000; // eight digits are too many
    if (valor >= limite) return false;
    quint64 potencia = 1;
    for (int k = 0; k < decimales; ++k)
        potencia *= 10;
    if (xValor < 0) xTexto.Texto(xMenos);
    xTexto.Entero(static_cast<qint64>(valor / potencia));
    if (decimales > 0) {
        xTexto.Letra(xDecimal.unicode());
        xTexto.Entero(static_cast<qint64>(valor % potencia), decimales);
    }
    return true;
}

} // namespace

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
    Escritor escritor(texto);
    EscribirFecha(escritor, PartesFecha(xFecha.date(), xFecha.time()), xPatron, mLocale);
    return texto;
}

QString clsConfiguracionRegional::TextoFechaGeneral(const QDateTime& xFecha) const {
    QString texto;
    AgregarFechaGeneral(texto, xFecha);
    return texto;
}

namespace {

// The longest text a pattern of numbers and literals gives; -1 when it holds names of days or
// months, whose lengths depend on the language.
qsizetype LargoMaximo(const Patron& xPatron) {
    qsizetype largo = 0;
    for (const Pieza& pieza : xPatron) {
        switch (pieza.Clase) {
        case Pieza::Literal:
            largo += pieza.Texto.size();
            break;
        case Pieza::AmPm:
            largo += qMax(pieza.Texto.size(), pieza.Texto2.size());
            break;
        case Pieza::NombreDiaCorto:
        case Pieza::NombreDiaLargo:
        case Pieza::NombreMesCorto:
        case Pieza::NombreMesLargo:
            return -1;
        default:
            largo += qMax<qsizetype>(pieza.Ancho, 10) + 1; // the digits and a sign
            break;
        }
    }
    return largo;
}

// xValor at xDestino with zeros in front up to xAncho digits, as Escritor::Entero writes it;
// returns the end.
inline char16_t* Numero(char16_t* xDestino, int xValor, int xAncho) {
    if (xValor >= 0 && xValor < 100 && xAncho <= 2) {
        if (xValor >= 10 || xAncho == 2) *xDestino++ = static_cast<char16_t>(u'0' + xValor / 10);
        *xDestino++ = static_cast<char16_t>(u'0' + xValor % 10);
        return xDestino;
    }
    return clsBufferTexto::EscribirEntero(xDestino, xValor, qMin(xAncho, 15));
}

// A pattern of numbers and literals (LargoMaximo not -1) written straight into room reserved
// for it; returns the end.
char16_t* EscribirFechaNumerica(char16_t* xDestino, const PartesFecha& xFecha,
                                const Patron& xPatron) {
    for (const Pieza& pieza : xPatron) {
        switch (pieza.Clase) {
        case Pieza::Literal:
        case Pieza::AmPm: {
            const QString& texto =
                pieza.Clase == Pieza::Literal || xFecha.Hora < 12 ? pieza.Texto : pieza.Texto2;
            for (const QChar letra : texto)
                *xDestino++ = letra.unicode();
            break;
        }
        case Pieza::Dia:
            xDestino = Numero(xDestino, xFecha.DiaDelMes, pieza.Ancho);
            break;
        case Pieza::Mes:
            xDestino = Numero(xDestino, xFecha.Mes, pieza.Ancho);
            break;
        case Pieza::Anio2:
            xDestino = Numero(xDestino, xFecha.Anio % 100, 2);
            break;
        case Pieza::Anio4:
            xDestino = Numero(xDestino, xFecha.Anio, 4);
            break;
        case Pieza::DiaDelAnio:
            xDestino = Numero(xDestino, xFecha.Dia.dayOfYear(), 1);
            break;
        case Pieza::Hora12:
            xDestino = Numero(xDestino, xFecha.Hora % 12 == 0 ? 12 : xFecha.Hora % 12, pieza.Ancho);
            break;
        case Pieza::Hora24:
            xDestino = Numero(xDestino, xFecha.Hora, pieza.Ancho);
            break;
        case Pieza::Minuto:
            xDestino = Numero(xDestino, xFecha.Minuto, pieza.Ancho);
            break;
        case Pieza::Segundo:
            xDestino = Numero(xDestino, xFecha.Segundo, pieza.Ancho);
            break;
        case Pieza::Milisegundo:
            xDestino = Numero(xDestino, xFecha.Milisegundo, pieza.Ancho);
            break;
        default:
            break;
        }
    }
    return xDestino;
}

template <typename Escritura>
void EscribirFechaGeneral(Escritura& xTexto, const PartesFecha& xPartes, int xMilisegundos,
                          const Patron& xFechaCorta, const Patron& xHoraLarga,
                          const QLocale& xLocale) {
    if (xPartes.Dia == DiaCero) {
        EscribirFecha(xTexto, xPartes, xHoraLarga, xLocale);
    } else if (xMilisegundos == 0) {
        EscribirFecha(xTexto, xPartes, xFechaCorta, xLocale);
    } else {
        EscribirFecha(xTexto, xPartes, xFechaCorta, xLocale);
        xTexto.Letra(u' ');
        EscribirFecha(xTexto, xPartes, xHoraLarga, xLocale);
    }
}

} // namespace

void clsConfiguracionRegional::AgregarFechaGeneral(QString& xDestino,
                                                   const QDateTime& xFecha) const {
    if (!xFecha.isValid()) return;
    const int milisegundos = xFecha.time().msecsSinceStartOfDay();
    Escritor escritor(xDestino);
    EscribirFechaGeneral(escritor, PartesFecha(xFecha.date(), milisegundos), milisegundos,
                         mFechaCorta, mHoraLarga, mLocale);
}

void clsConfiguracionRegional::AgregarFechaGeneral(clsBufferTexto& xDestino, const QDate& xDia,
                                                   int xSegundos) const {
    const int milisegundos = xSegundos * 1000;
    const PartesFecha partes(xDia, milisegundos);
    if (mLargoFechaGeneral < 0) {
        EscribirFechaGeneral(xDestino, partes, milisegundos, mFechaCorta, mHoraLarga, mLocale);
        return;
    }
    // Patterns of numbers alone, the usual ones, are written without a check per piece.
    char16_t* const inicio = xDestino.Reservar(mLargoFechaGeneral);
    char16_t* fin = inicio;
    if (partes.Dia == DiaCero) {
        fin = EscribirFechaNumerica(fin, partes, mHoraLarga);
    } else {
        fin = EscribirFechaNumerica(fin, partes, mFechaCorta);
        if (milisegundos != 0) {
            *fin++ = u' ';
            fin = EscribirFechaNumerica(fin, partes, mHoraLarga);
        }
    }
    xDestino.Usar(fin - inicio);
}

QString clsConfiguracionRegional::TextoFechaCorta(const QDateTime& xFecha) const {
    return Fecha(xFecha, mFechaCorta);
}

const clsConfiguracionRegional::PatronFecha&
clsConfiguracionRegional::PatronDe(const QString& xFormato) const {
    if (mUltimoPatron.empty() || xFormato != mUltimoFormato) {
        mUltimoPatron =
            CompilarFormato(xFormato, mLocale, mSeparadorFecha, mSeparadorHora, mFechaCorta);
        mUltimoFormato = xFormato;
    }
    return mUltimoPatron;
}

QString clsConfiguracionRegional::FormatoFecha(const QDateTime& xFecha,
                                               const QString& xFormato) const {
    return Fecha(xFecha, PatronDe(xFormato));
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
