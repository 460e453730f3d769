#pragma once

#include "common/clsBufferTexto.h"
#include "common/clsConfiguracionRegional.h"
#include "data/clsFuentePalm.h"
#include "data/clsPDBInterface.h"
#include "data/formato/modFuncionesConversion.h"

#include <QByteArray>
#include <QString>
#include <memory>
#include <vector>

// The database-access contract over a source of Palm databases. One object keeps at most one
// database open; the catalogue works without one. AppForge record databases are decoded by the
// schema their AppInfo block carries.
class clsPalmPDB : public clsPDBInterface {
public:
    explicit clsPalmPDB(std::shared_ptr<clsFuentePalm> xFuente);

    bool OpenFile(const QString& xFile) override;
    void CloseDatabase() override;
    qint32 ReadRecord(bool& xMoverAlPrincipio, QString& xRegistro, const QString& xSeparator,
                      qint32 xCategoryID = -1, bool xModified = false) override;
    bool ReadRecordByID(qint32 xRecordID, QString& xRegistro, const QString& xSeparator) override;
    qint32 UpdateRecord(qint32 xRecordID, qint32 xNroCampo, const QString& xValor) override;
    QString FieldsTitles(const QString& xSeparator) override;
    qint16 NumFields() override;
    bool DeleteRecord(qint32 xRecordID) override;
    void DeleteAllRecords() override;
    qint32 NewRecord() override;
    QString FieldType(qint32 xNroCampo) override;
    QString FieldName(qint32 xNroCampo) override;
    qint32 FieldAlignment(qint32 xNroCampo) override;
    qint32 NumRecords() override;
    qint32 RecordAttributes(qint32 xRecordID) override;
    bool WriteRecordAttributes(qint32 xRecordID, qint32 xAttributes) override;
    qint32 CategoryID(qint32 xRecordID) override;
    qint32 RecordIndex(qint32 xRecordID) override;
    QByteArray RetrieveSortInfo() override;
    qint32 RecordLength(qint32 xRecordID) override;
    float DBVersion() override;
    QString DBType() override;
    QDateTime CreationDate() override;
    QDateTime ModificationDate() override;
    QDateTime BackupDate() override;
    QString RetrieveCreatorsID(qint32 xAppType, const QString& xSeparator) override;
    QString RetrieveDataBases(const QString& xCreatorID, const QString& xSeparador) override;
    qint32 CategoriesCount() override;
    QString CategoryName(qint32 xIndex) override;
    bool IsDataBase() override;
    float DBSize() override;
    bool IsAppForgeDB() override;
    const modFuncionesConversion::TablaCodigoPagina& PaginaCodigos() const override {
        return *mTabla;
    }
    // The handheld the object reads.
    clsFuentePalm& Fuente() const { return *mFuente; }

    // How a record adapter is asked of the source: the adapter's class and the open mode.
    static constexpr const char* ClaseAdaptadorRegistros = "PDDirect.PDRecordAdapter";
    static constexpr qint32 ModoApertura = 208;

    // What WriteRecordAttributes makes of a record's attributes: any of the flags Delete, Dirty,
    // Secret or Archive in xAttributes makes it the whole attribute byte; with none of them the
    // record keeps the attributes it has. ComprobarAtributos, first, raises the overflow error
    // (6) for a value that is no byte.
    static void ComprobarAtributos(qint32 xAttributes);
    static void AplicarAtributos(RegistroPalm& xRegistro, qint32 xAttributes);

    // Reading records by their place in the file, for a reader that shares a long listing among
    // threads. Valid once ReadRecord has read a record of the open database (which loads its
    // schema). TextoEnIndice writes the text ReadRecord would and returns the record's ID, or -1
    // where ReadRecord's reading ends (past the last record, or at a last record whose ID is 0); it
    // changes nothing of this object, so threads may call it at once, each with its own
    // LecturaIndice, while nobody writes and when LecturaCompartible says so.
    //
    // What the reading threads share, all of it read-only while they run: this object, its
    // record adapter and the open database's bytes and layout (clsBaseAbierta), the code page's
    // table (single-byte pages only) and the regional settings (clsConfiguracionRegional::Actual,
    // set before the threads start). Each thread has its own LecturaIndice and output, and the
    // texts of days written are kept per thread (modEscrituraFecha).
    struct LecturaIndice {
        RegistroPalm Leido;
        clsBufferTexto Texto;
    };
    qint32 RegistrosEnArchivo() const;
    qint32 TextoEnIndice(qint32 xIndice, const QString& xSeparator, LecturaIndice& xLectura,
                         QString& xRegistro) const;
    // False for a multi-byte code page, whose texts go through one shared converter.
    bool LecturaCompartible() const { return !mTabla->Multibyte(); }

private:
    bool OpenDataBase(const QString& xNombre);
    bool OpenResource(const QString& xNombre);
    qint32 LeerRegistro(bool xMoverAlPrincipio, QString& xRegistro, const QString& xSeparator,
                        qint32 xCategoryID, bool xModified, qint32 xRecordID);
    // The fields of xBytes by the loaded schema, each followed by xSeparator, into xTexto.
    void TextoCampos(const QByteArray& xBytes, const QString& xSeparator,
                     clsBufferTexto& xTexto) const;

    void VerificarAbierta(const char* xOperacion) const;
    void VerificarCerrada(const char* xOperacion) const;
    void VerificarEsquema(const char* xOperacion) const;
    clsAdaptadorRegistros& Registros(const char* xOperacion) const;
    // Takes the record's bytes by exchanging buffers with xRegistro.
    void TomarRegistro(RegistroPalm& xRegistro);
    void TomarRegistro(RegistroPalm&& xRegistro) { TomarRegistro(xRegistro); }
    QString TextoDeCodigo(qint32 xCodigo) const;

    std::shared_ptr<clsFuentePalm> mFuente;
    const modFuncionesConversion::TablaCodigoPagina* mTabla;
    std::unique_ptr<clsGestorBases> mGestor;
    std::shared_ptr<clsInfoBase> mInfoBase;
    std::unique_ptr<clsAdaptadorRegistros> mAdaptadorRegistros;
    std::unique_ptr<clsAdaptadorRecursos> mAdaptadorRecursos;
    bool mEsAppForge = false;
    bool mBaseAbierta = false;
    bool mEsBaseDatos = false;
    qint32 mIndice = 0;
    qint32 mIDActual = 0;
    qint32 mAtributos = 0;
    qint32 mCategoria = 0;
    QByteArray mRegistroActual;
    bool mCargarTipos = false;
    std::vector<quint8> mTiposCampo; // each field's type, as its code, read with the first record
    qint16 mCantidadCampos = 0;      // the field count, read with the types
    // Working space of the record reader, kept between records so that reading allocates little.
    clsBufferTexto mTextoRegistro;
    RegistroPalm mLeido;
    bool mEnumerando = false;
    // The creator lists of RetrieveCreatorsID, kept by kind (0, 1, 2) once built.
    QString mCreadoresAppForge;
    QString mCreadoresOtros;
    QString mCreadoresTodos;
};
