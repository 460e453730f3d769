#pragma once

#include "common/clsEscrituraSegura.h"
#include "data/formato/modFuncionesConversion.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <functional>
#include <vector>

class clsGrillaFlexible;

// The records grid written out as a text file a spreadsheet opens: tab or comma delimited, one
// line per grid row ended by CR LF, in the handheld's code page. The grid's last column is a
// spare one and is never written. Record cells follow the field's type: a String is enclosed in
// double quotes in the comma format (its own quotes left as they are), and the commas of a Single
// become full stops in both formats, so that a decimal comma never splits a cell. The header row
// is written as it stands.
//
// The file is written beside its final name and renamed over it only when whole, so a failure
// leaves no half-written file and an existing file as it was.
namespace modExportacion {

enum class Formato {
    Tabulado,
    Comas,
    // Comma delimited for tools that need strict CSV: quotes inside a cell are doubled and every
    // cell holding a comma, a quote or a line break is quoted, the header too.
    ComasEstricto
};

// The save dialog's filters, in order: filter 1 is the tab-delimited one.
extern const QString kFiltros;

// The file name the export writes: a name whose last part has no dot, or that ends in a dot, gets
// ".txt" for filter 1 and ".csv" for any other; any other name keeps its extension.
QString NombreConExtension(const QString& xNombre, int xIndiceFiltro);

Formato FormatoDeFiltro(int xIndiceFiltro);
// The 1-based index of the filter the save dialog reports as chosen (1 when it reports none).
int IndiceFiltro(const QString& xFiltroElegido);

// The answers ValidarArchivoExportacion needs from the person.
struct Respuestas {
    std::function<void(const QString& xMensaje)> Avisar;     // a refusal (OK only)
    std::function<bool(const QString& xPregunta)> Preguntar; // Yes/No: true for Yes
};

// Checks and prepares the target: an empty name is refused, an existing file is replaced only
// after Yes, a missing folder is created (every missing level) only after Yes. True when the
// export may go on. A target that is no place for a file (see modDestino) raises ErrorVB 75.
bool ValidarArchivoExportacion(const QString& xArchivo, const Respuestas& xRespuestas);

// One export being written. Raises ErrorVB when the file cannot be created or written.
class clsArchivoExportacion {
public:
    // xTipos: the field type of each written column, in column order.
    clsArchivoExportacion(const QString& xArchivo, Formato xFormato, QStringList xTipos,
                          const modFuncionesConversion::TablaCodigoPagina& xTabla);

    qsizetype Columnas() const { return mTipos.size(); }

    // A line of cells; missing cells are empty, cells beyond the written columns are left out.
    void Encabezado(const std::vector<QStringView>& xCeldas);
    void Fila(const std::vector<QStringView>& xCeldas);
    // The same for a text whose cells are separated by tabs.
    void FilaTabulada(QStringView xTexto);
    // Puts the file in place under its name.
    void Terminar();

private:
    void Linea(const std::vector<QStringView>& xCeldas, bool xEncabezado);
    void Celda(QStringView xTexto, bool xComillas, bool xPuntoDecimal, bool xDuplicarComillas);
    void Agregar(QStringView xTexto, bool xPuntoDecimal, bool xDuplicarComillas);
    void AgregarMultibyte(QStringView xTexto, bool xPuntoDecimal, bool xDuplicarComillas);
    char* Espacio(qsizetype xBytes);
    void Poner(char xByte) {
        if (mUsado == qsizetype(mBuffer.size())) Volcar();
        mBuffer[size_t(mUsado++)] = xByte;
    }
    void Volcar();

    QString mNombre;
    clsEscrituraSegura mArchivo;
    Formato mFormato;
    QStringList mTipos;
    std::vector<bool> mEsTexto;
    std::vector<bool> mEsSingle;
    const modFuncionesConversion::TablaCodigoPagina& mTabla;
    char mSeparador;
    char mAscii[128];        // the code page's bytes of the first 128 characters, looked up inline
    bool mAsciiIgual = true; // the page writes those characters as their own codes
    std::vector<char> mBuffer;
    qsizetype mUsado = 0;
    std::vector<QStringView> mCeldas;
};

// Writes every row of the grid (header included) to xArchivo; xTipoCampo gives a column's field
// type and is asked once per column.
void ExportarGrilla(const clsGrillaFlexible& xGrilla, const QString& xArchivo, Formato xFormato,
                    const std::function<QString(qint32)>& xTipoCampo,
                    const modFuncionesConversion::TablaCodigoPagina& xTabla);

} // namespace modExportacion
