#pragma once

#include "common/modFunciones.h"

#include <QString>

// The printer as reports see it: a page with a current position, a current font and a scale.
// Positions and measures are in the current scale: twips (EscalaTwips, 1440 to the inch) or
// character cells (EscalaCaracteres, 120 twips wide and 240 twips high, whatever the font).
// The origin is the top left corner of the printable area. Print writes a text at the current
// position and moves to the start of the next line; a line break inside the text does the same,
// and a line that would end below the printable area goes to a new page first.
//
// The state and the arithmetic live here; an implementation only measures and draws in twips.
// Invalid values (an unknown scale mode, a font size or copy count below 1) raise ErrorVB 380.
class clsImpresora {
public:
    static constexpr int EscalaTwips = 1;
    static constexpr int EscalaCaracteres = 4;
    static constexpr double TwipsPorColumna = 120;
    static constexpr double TwipsPorFila = 240;

    virtual ~clsImpresora() = default;

    int ScaleMode() const { return mModoEscala; }
    void SetScaleMode(int xModo);

    // Printable area in the current scale.
    double ScaleWidth() const;
    double ScaleHeight() const;
    // The whole sheet, in twips.
    double Width() const;
    double Height() const;

    double CurrentX() const;
    double CurrentY() const;
    void SetCurrentX(double xValor);
    void SetCurrentY(double xValor);

    const QString& FontName() const { return mFuente; }
    double FontSize() const { return mTamano; }
    bool FontBold() const { return mNegrita; }
    void SetFontName(const QString& xNombre);
    void SetFontSize(double xTamano);
    void SetFontBold(bool xNegrita);

    // Width of the widest line and height of all the lines of a text, in the current scale.
    double TextWidth(const QString& xTexto) const;
    // TextWidth as a measure for MultiLinea; the printer must outlive it.
    modFunciones::AnchoDeTexto AnchoDe() const {
        return [this](const QString& xTexto) { return TextWidth(xTexto); };
    }
    double TextHeight(const QString& xTexto) const;

    void Print(const QString& xTexto = QString());
    void Line(double xX1, double xY1, double xX2, double xY2);
    void NewPage();
    // Sends the document; the next output starts a new one at page 1.
    void EndDoc();

    int Page() const { return mPagina; }
    int Copies() const { return mCopias; }
    void SetCopies(int xCopias);

protected:
    clsImpresora() = default;

    // Measures of one line of text (no line break) in the current font, in twips.
    virtual double AnchoTexto(const QString& xLinea) const = 0;
    virtual double AltoLinea() const = 0;
    // Sheet and printable area, in twips.
    virtual double AnchoPagina() const = 0;
    virtual double AltoPagina() const = 0;
    virtual double AnchoImprimible() const = 0;
    virtual double AltoImprimible() const = 0;
    // Output at a position in twips from the top left of the printable area; the text's top
    // edge is at xY.
    virtual void DibujarTexto(double xX, double xY, const QString& xLinea) = 0;
    virtual void DibujarLinea(double xX1, double xY1, double xX2, double xY2) = 0;
    virtual void PasarPagina() = 0;
    virtual void TerminarDocumento() = 0;
    // Every public call, by name and arguments, before it acts; a recorder keeps them.
    virtual void Anotar(const QString& xLlamada, const QString& xArgumentos) const;

private:
    double ATwipsX(double xValor) const;
    double ATwipsY(double xValor) const;
    double DesdeTwipsX(double xTwips) const;
    double DesdeTwipsY(double xTwips) const;
    void ImprimirLinea(const QString& xLinea);

    int mModoEscala = EscalaTwips;
    double mX = 0; // twips
    double mY = 0; // twips
    QString mFuente = QStringLiteral("Arial");
    double mTamano = 10;
    bool mNegrita = false;
    int mPagina = 1;
    int mCopias = 1;
};
