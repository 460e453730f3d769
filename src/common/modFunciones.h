#pragma once

#include <QString>
#include <QStringList>
#include <functional>

// General helpers shared by the whole program.
namespace modFunciones {

// Exchange sort of a list of texts in place with a binary (case-sensitive) comparison: sentido 1
// ascending, 0 descending, any other value leaves the list as it is. The counters are 16-bit, so
// a list of more than 32767 texts raises ErrorVB 6 (overflow) and is left untouched.
void OrdenarVector(QStringList& lista, int sentido);

// The text without the blanks at both ends, the blanks being the characters of xBlancos.
QStringView SinBlancos(QStringView xTexto, QStringView xBlancos = u" ");

// A size in KB as every window shows one: bytes / 1024 rounded to 2 decimals, a half going to the
// even hundredth (640 bytes are 0.62 KB, 1920 bytes 1.88 KB).
double Kilobytes(double xBytes);

// A value held in one of the program's 16-bit counters: rounded half to even; beyond -32768 ..
// 32767 it raises ErrorVB 6 (overflow) with source xFuente instead of wrapping.
qint16 Entero16(double xValor, const QString& xFuente);

// The number at the start of a text, as the desktop's Val reads it: blanks anywhere in it are
// skipped, a sign may lead and a decimal point follow the digits; "4" gives 4, " -4.5x" -4.5,
// "1 2" 12, "x" 0.
double Val(QStringView xTexto);

// A person's text as a message quotes it: whole when short, otherwise its first xMaximo
// characters and "...", so that a message stays a line however long the text.
QString Cita(const QString& xTexto, qsizetype xMaximo = 60);

// The file a write to xRuta reaches: a link is followed to where it leads, link after link, as
// QSaveFile follows them, whether or not the last one exists; "" for links that lead round in a
// loop.
QString DestinoFinal(const QString& xRuta);

// Creates the folder and every missing folder above it; raises ErrorVB when it cannot.
void CrearCarpeta(const QString& xCarpeta);

// Login name of the user of this computer (at most 255 characters), as CortarNombreUsuario cuts it.
QString NombreUsuario();
// The name as the program has always read it from its 255-character buffer: cut before the first
// occurrence of the buffer's 15th character. For a name of up to 14 characters that character is
// the end of the name; a longer name is cut at the first place its own 15th character appears.
QString CortarNombreUsuario(const QString& xNombre);

// The printed width of a text, in the measuring device's current scale.
using AnchoDeTexto = std::function<double(const QString&)>;

// Breaks a text into lines no wider than xAncho, measured with xAnchoDe (a printer's TextWidth).
// Blanks at both ends go, runs of blanks separate words; every line after the first starts with
// xSangria blanks; line breaks already in the text are kept (as CR LF). A word too wide for a line
// of its own is cut, each cut marked with "-". A failure of the measure is raised again with
// ".modFunciones.MultiLinea" and a line break added to its source.
QString MultiLinea(const QString& xTexto, double xAncho, int xSangria,
                   const AnchoDeTexto& xAnchoDe);

// Whether a CSV cell must be quoted: it holds a comma (unless xSinComas, for a number whose
// decimal comma becomes a full stop), a quote or a line break. Inline: the export asks it of
// every text cell.
inline bool NecesitaComillasCSV(QStringView xTexto, bool xSinComas = false) {
    for (const QChar c : xTexto)
        if ((c == u',' && !xSinComas) || c == u'"' || c == u'\r' || c == u'\n') return true;
    return false;
}

} // namespace modFunciones
