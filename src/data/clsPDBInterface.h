#pragma once

#include "data/formato/modFuncionesConversion.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QtGlobal>

// The database-access contract every window works through. One object holds at most one open
// database; the catalogue calls need none. Failures are raised as ErrorVB.
class clsPDBInterface {
public:
    virtual ~clsPDBInterface() = default;

    virtual bool OpenFile(const QString& xFile) = 0;
    virtual void CloseDatabase() = 0;
    // Returns the record's ID, or -1 at the end. xCategoryID -1 means every category.
    virtual qint32 ReadRecord(bool& xMoverAlPrincipio, QString& xRegistro,
                              const QString& xSeparator, qint32 xCategoryID = -1,
                              bool xModified = false) = 0;
    virtual bool ReadRecordByID(qint32 xRecordID, QString& xRegistro,
                                const QString& xSeparator) = 0;
    virtual qint32 UpdateRecord(qint32 xRecordID, qint32 xNroCampo, const QString& xValor) = 0;
    virtual QString FieldsTitles(const QString& xSeparator) = 0;
    virtual qint16 NumFields() = 0;
    virtual bool DeleteRecord(qint32 xRecordID) = 0;
    virtual void DeleteAllRecords() = 0;
    virtual qint32 NewRecord() = 0;
    virtual QString FieldType(qint32 xNroCampo) = 0;
    virtual QString FieldName(qint32 xNroCampo) = 0;
    virtual qint32 FieldAlignment(qint32 xNroCampo) = 0;
    virtual qint32 NumRecords() = 0;
    virtual qint32 RecordAttributes(qint32 xRecordID) = 0;
    virtual bool WriteRecordAttributes(qint32 xRecordID, qint32 xAttributes) = 0;
    virtual qint32 CategoryID(qint32 xRecordID) = 0;
    virtual qint32 RecordIndex(qint32 xRecordID) = 0;
    virtual QByteArray RetrieveSortInfo() = 0;
    virtual qint32 RecordLength(qint32 xRecordID) = 0;
    virtual float DBVersion() = 0;
    virtual QString DBType() = 0;
    virtual QDateTime CreationDate() = 0;
    virtual QDateTime ModificationDate() = 0;
    virtual QDateTime BackupDate() = 0;
    virtual QString RetrieveCreatorsID(qint32 xAppType, const QString& xSeparator) = 0;
    virtual QString RetrieveDataBases(const QString& xCreatorID, const QString& xSeparador) = 0;
    virtual qint32 CategoriesCount() = 0;
    virtual QString CategoryName(qint32 xIndex) = 0;
    virtual bool IsDataBase() = 0;
    virtual float DBSize() = 0;
    virtual bool IsAppForgeDB() = 0;

    // The code page of the handheld the object reads, as its texts are in.
    virtual const modFuncionesConversion::TablaCodigoPagina& PaginaCodigos() const = 0;
};
