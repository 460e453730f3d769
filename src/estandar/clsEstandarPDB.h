#pragma once

#include "common/clsBufferTexto.h"
#include "data/clsFuentePalm.h"
#include "data/clsPDBInterface.h"
#include "data/clsPalmPDB.h"
#include "estandar/clsDecodificadorEstandar.h"

#include <QVariantList>
#include <functional>
#include <memory>

// The database-access contract over the databases of the handheld's built-in applications, so
// that the record browser, find, export, print and pandrel-cli show their records as they show
// AppForge records: the schema is the decoder's field list and a record's text its decoded
// values. The header, the catalogue and the categories come from an inner clsPalmPDB, which
// opens the database when it is first asked (an export never asks); the records, their facts and
// their attributes from a record adapter of its own, so what is read and what is written are the
// same records. The records' bytes are never changed: adding,
// updating and deleting records do nothing (attributes are written, as that leaves the bytes as
// they are). IsAppForgeDB says whether the open database has such a schema, which is what the
// record browser asks before it acts.
class clsEstandarPDB : public clsPDBInterface {
public:
    explicit clsEstandarPDB(std::shared_ptr<clsFuentePalm> xFuente);

    // The kind of the database of that name on the handheld; Ninguna for any other database, or
    // when no database has that name.
    static ClaseEstandar ClaseDeBase(clsFuentePalm& xFuente, const QString& xNombre);

    bool OpenFile(const QString& xFile) override;
    void CloseDatabase() override;
    qint32 ReadRecord(bool& xMoverAlPrincipio, QString& xRegistro, const QString& xSeparator,
                      qint32 xCategoryID = -1, bool xModified = false) override;
    bool ReadRecordByID(qint32 xRecordID, QString& xRegistro, const QString& xSeparator) override;
    // Nothing is written: -1, no record.
    qint32 UpdateRecord(qint32 xRecordID, qint32 xNroCampo, const QString& xValor) override;
    QString FieldsTitles(const QString& xSeparator) override;
    qint16 NumFields() override;
    // Nothing is deleted: false.
    bool DeleteRecord(qint32 xRecordID) override;
    void DeleteAllRecords() override;
    // Nothing is added: -1.
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
        return mPalm.PaginaCodigos();
    }

    // The decoder of the open database; null when none is open or it is of no standard kind.
    const clsDecodificadorEstandar* Decodificador() const { return mDecodificador.get(); }
    // Every record of the open standard database in file order, deleted ones too.
    void Recorrer(const std::function<void(const RegistroPalm&)>& xVisita) const;
    // The open database's name, creator as its four letters and creation date.
    const QString& NombreBase() const { return mNombre; }
    QString Creador() const;
    QDateTime Creacion() const;
    qint64 Tamano() const { return mInfo ? mInfo->TamanoBase() : 0; } // bytes of its file

private:
    // The inner clsPalmPDB, with the open database opened in it.
    clsPalmPDB& Palm();
    void VerificarAbierta(const char* xOperacion) const;
    void VerificarEsquema(const char* xOperacion) const;
    // The record's text with the fields separated by xSeparator; returns its ID.
    qint32 TextoRegistro(const RegistroPalm& xRegistro, const QString& xSeparator, QString& xTexto);

    std::shared_ptr<clsFuentePalm> mFuente;
    clsPalmPDB mPalm;
    std::unique_ptr<clsGestorBases> mGestor;
    std::unique_ptr<clsAdaptadorRegistros> mRegistros;
    std::unique_ptr<clsDecodificadorEstandar> mDecodificador;
    QString mNombre;
    std::shared_ptr<clsInfoBase> mInfo;
    bool mAbierta = false; // a database is open (its name may be empty)
    bool mPalmAbierta = false;
    // Working space of the record reader, kept between records.
    RegistroPalm mLeido;
    QVariantList mValores;
    clsBufferTexto mTexto;
};
