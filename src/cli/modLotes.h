#pragma once

#include <QString>
#include <QStringList>
#include <cstdio>
#include <functional>

// The batch mode of pandrel-cli: commands read from a stream, one per line, each line split into
// words as a POSIX shell splits and quotes them (no expansion of any kind).
namespace modLotes {

enum class Palabras {
    Completas,  // the text is whole: its words are in the list
    Incompletas // a quote or a trailing backslash is still open: the command goes on below
};

// Splits xTexto (one or more lines joined by '\n') into words: blanks separate words; a
// backslash keeps the next character as it is and a backslash before a line break joins the
// lines; 'single quotes' keep everything up to the next one; "double quotes" keep everything
// but a backslash before $ ` " \ or a line break; an unquoted # that starts a word begins a
// comment that runs to the end of the line.
Palabras Partir(const QString& xTexto, QStringList& xPalabras);

// The longest command a batch takes, in bytes of its lines.
constexpr qsizetype kLineaMaxima = 1024 * 1024;

// Reads commands from xEntrada until its end and runs each through xEjecutar, which prints the
// command's output and returns the exit status that command would have had; after each command
// "#end STATUS" follows on stdout, flushed so that a program on the other end of a pipe can
// answer. A line ends at a line feed, a carriage return before it included. Lines without words
// are skipped. A command left open by the end of the input, and one longer than kLineaMaxima
// (which is not kept in memory), are reported on stderr as usage errors. Returns the highest
// status of all the commands.
int Ejecutar(std::FILE* xEntrada, const std::function<int(const QStringList&)>& xEjecutar);

} // namespace modLotes
