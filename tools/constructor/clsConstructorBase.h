#pragma once

#include "data/formato/clsArchivoPDB.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

// Builds Palm database files for the sample handheld and the benchmarks: record databases with
// the standard category block, AppForge databases laid out as the AppForge converter writes them,
// and resource databases (applications).
class clsConstructorBase {
public:
    enum TipoCampo : quint16 {
        Byte = 1,
        Int = 2,
        Long = 3,
        Single = 4,
        String = 5,
        Boolean = 6,
        Date = 7
    };
    struct Campo {
        QString Nombre;
        TipoCampo Tipo;
    };

    // Texts (name, categories, schema, String values) are written in xCodigoPagina.
    clsConstructorBase(const QString& xNombre, const QString& xTipo, const QString& xCreador,
                       const QString& xCodigoPagina = QStringLiteral("windows-1252"));

    void Fechas(const QDateTime& xCreacion, const QDateTime& xModificacion,
                const QDateTime& xBackup);
    void Version(quint16 xVersion);
    void Categorias(const QStringList& xNombres);
    // The AppInfo block: the category block followed by the AppForge schema of xTabla.
    void EsquemaAppForge(const QString& xTabla, const QVector<Campo>& xCampos);
    // One record of typed values in schema order (int, double, QString, bool, QDateTime).
    void AgregarRegistro(const QVariantList& xValores, qint32 xAtributos = 0,
                         qint32 xCategoria = 0);
    void AgregarRegistroCrudo(const QByteArray& xBytes, qint32 xAtributos = 0,
                              qint32 xCategoria = 0);
    void AgregarRecurso(const QString& xTipo, quint16 xID, const QByteArray& xBytes);

    const clsArchivoPDB& Archivo() const { return mArchivo; }
    // For a file the typed calls cannot lay out: raw AppInfo bytes, chosen record IDs.
    clsArchivoPDB& Archivo() { return mArchivo; }
    // Writes the file; throws std::runtime_error when it cannot.
    void Guardar(const QString& xRuta) const;

    static quint32 Codigo(const QString& xCuatroLetras);
    static quint32 SegundosPalm(const QDateTime& xFecha);
    static QByteArray Texto(const QString& xTexto,
                            const QString& xCodigoPagina = QStringLiteral("windows-1252"));

private:
    QByteArray BloqueCategorias() const;
    QByteArray CodificarRegistro(const QVariantList& xValores) const;

    clsArchivoPDB mArchivo;
    QString mCodigoPagina;
    QStringList mCategorias;
    QVector<Campo> mCampos;
    quint32 mSiguienteID = 0x100001;
};
