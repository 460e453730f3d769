#pragma once

#include "data/clsFuentePalm.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QVector>
#include <memory>
#include <vector>

// A handheld held in memory: every role of the database source over databases that a test lays
// out by hand. Failures are raised with the source's own numbers (ErroresFuente).
struct BaseMemoria {
    QString Nombre;
    QString Tipo = QStringLiteral("DATA");
    QString Creador = QStringLiteral("TEST");
    qint32 Atributos = 0; // bit 0: resource database
    qint32 Version = 1;
    qint32 VersionCompanero = 0;
    QDateTime FechaCreacion;
    QDateTime FechaModificacion;
    QDateTime FechaBackup;
    qint32 Tamano = 0;
    QByteArray AppInfo;
    QByteArray SortInfo;
    QStringList Categorias;
    QVector<RegistroPalm> Registros; // Indice is the position; it is renumbered on every change
    QVector<RecursoPalm> Recursos;
    bool EnUso = false;            // opening it raises ErroresFuente::BaseEnUso
    bool FallarAperturas = false;  // opening it raises ErroresFuente::BaseNoEncontrada
    bool FallarEscrituras = false; // every write raises ErroresFuente::EscrituraFallida
    int Escrituras = 0;            // writes that reached the database
};

class clsFuenteMemoria : public clsFuentePalm {
public:
    clsFuenteMemoria();

    // Adds a database; its records get the indices of their positions.
    BaseMemoria& Agregar(BaseMemoria xBase);
    // The database with that name, or nullptr.
    BaseMemoria* Base(const QString& xNombre);

    // Calls the managers made by this source answered (catalogue, finds, opens).
    int LlamadasGestor() const { return *mLlamadas; }
    void CodigoPagina(const QString& xCodigoPagina) { mCodigoPagina = xCodigoPagina; }

    std::unique_ptr<clsGestorBases> CrearGestor() override;
    std::unique_ptr<clsSistemaPalm> CrearSistema() override;
    QString CodigoATexto(qint32 xCodigo, qint32 xOpcion) const override;
    QString CodigoPagina() const override { return mCodigoPagina; }

    static qint32 Codigo(const QString& xCuatroLetras);

private:
    std::shared_ptr<std::vector<std::shared_ptr<BaseMemoria>>> mBases;
    std::shared_ptr<int> mLlamadas;
    QString mCodigoPagina = QStringLiteral("windows-1252");
};

// Blocks laid out as the handheld's applications write them.
namespace modBloquesPalm {

// The standard 276-byte category block: renamed flags, 16 names of 16 bytes, 16 IDs, the last ID
// and a pad byte.
QByteArray BloqueCategorias(const QStringList& xNombres);

struct CampoAppForge {
    QString Nombre;
    quint16 Tipo;
};

// The AppInfo block of an AppForge database as its converter writes it: the category block, the
// marker in a 12-byte field at 276, four 16-bit words at 288 (size, name-table offset, field
// count, blank-record length), four unused bytes, one descriptor of three 16-bit words per field
// from 300 (name offset, type code, 0), then the table name and the field names.
QByteArray AppInfoAppForge(const QString& xTabla, const QVector<CampoAppForge>& xCampos,
                           quint16 xLargoRegistroVacio,
                           const QByteArray& xMarca = QByteArrayLiteral("APPFORG2"),
                           const QStringList& xCategorias = {});

} // namespace modBloquesPalm
