#pragma once

#include "common/ErrorVB.h"
#include "printing/clsImpresora.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

// A printer that prints nothing and remembers everything: every call in order, every text with
// its place and font, every line. Tests print through it and read the page back.
//
// Its type has a fixed metric so that measures never depend on the fonts installed: every
// character is FontSize x 12 twips wide (FontSize x 13.2 in bold) and a line is FontSize x 24
// twips high, so a 10-point character is exactly one character cell. The sheet is Letter
// (12240 x 15840 twips) with a quarter-inch margin on every side unless told otherwise.
class clsImpresoraGrabadora : public clsImpresora {
public:
    struct TextoImpreso {
        int Pagina = 1;
        double X = 0; // in the scale that was current when it was printed
        double Y = 0;
        int Escala = EscalaTwips;
        QString Texto;
        QString Fuente;
        double Tamano = 0;
        bool Negrita = false;
    };
    struct LineaImpresa {
        int Pagina = 1;
        double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0; // twips
    };

    explicit clsImpresoraGrabadora(double xAnchoPagina = 12240, double xAltoPagina = 15840,
                                   double xMargen = 360);

    // Every call as "Name arguments" ("FontSize 9", "Print Date: ...", "EndDoc").
    const QStringList& Llamadas() const { return mLlamadas; }
    const QList<TextoImpreso>& Textos() const { return mTextos; }
    const QList<LineaImpresa>& Lineas() const { return mLineas; }
    int PaginasPasadas() const { return mPaginasPasadas; }
    int DocumentosTerminados() const { return mDocumentos; }

    // The xVez-th call of that name from now raises xError instead of acting, as a failing
    // printer would.
    void FallarEn(const QString& xLlamada, const ErrorVB& xError, int xVez = 1);

protected:
    double AnchoTexto(const QString& xLinea) const override;
    double AltoLinea() const override;
    double AnchoPagina() const override { return mAnchoPagina; }
    double AltoPagina() const override { return mAltoPagina; }
    double AnchoImprimible() const override { return mAnchoPagina - 2 * mMargen; }
    double AltoImprimible() const override { return mAltoPagina - 2 * mMargen; }
    void DibujarTexto(double xX, double xY, const QString& xLinea) override;
    void DibujarLinea(double xX1, double xY1, double xX2, double xY2) override;
    void PasarPagina() override;
    void TerminarDocumento() override;
    void Anotar(const QString& xLlamada, const QString& xArgumentos) const override;

private:
    double mAnchoPagina;
    double mAltoPagina;
    double mMargen;
    mutable QStringList mLlamadas;
    mutable QString mFallarEn;
    mutable int mVecesHastaFallar = 0;
    mutable std::optional<ErrorVB> mError;
    QList<TextoImpreso> mTextos;
    QList<LineaImpresa> mLineas;
    int mPaginasPasadas = 0;
    int mDocumentos = 0;
};
