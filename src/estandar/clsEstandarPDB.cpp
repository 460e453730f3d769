#include "estandar/clsEstandarPDB.h"

#include "common/ErrorVB.h"
#include "data/MensajesError.h"
#include "estandar/modTextoEstandar.h"

#include <utility>

namespace {

// The kind of the database an information object describes.
ClaseEstandar ClaseDeInfo(const clsInfoBase& xInfo) {
    if (xInfo.AtributosBase() & 1) return ClaseEstandar::Ninguna; // a resource database
    return ClaseDe(static_cast<quint32>(xInfo.Creador()), static_cast<quint32>(xInfo.Tipo()));
}

} // namespace

clsEstandarPDB::clsEstandarPDB(std::shared_ptr<clsFuentePalm> xFuente)
    : mFuente(std::move(xFuente)), mPalm(mFuente), mGestor(mFuente->CrearGestor()) {}

ClaseEstandar clsEstandarPDB::ClaseDeBase(clsFuentePalm& xFuente, const QString& xNombre) {
    try {
        return ClaseDeInfo(*xFuente.CrearGestor()->BuscarBase(xNombre));
    } catch (const ErrorVB&) {
        return ClaseEstandar::Ninguna;
    }
}

// ---- Open and close -----------------------------------------------------------------------------

void clsEstandarPDB::VerificarAbierta(const char* xOperacion) const {
    if (!mAbierta) throw ErrorDeBase(ErroresBase::Cerrada, xOperacion);
}

void clsEstandarPDB::VerificarEsquema(const char* xOperacion) const {
    if (!mDecodificador) throw ErrorDeBase(ErroresBase::SinEsquema, xOperacion);
}

bool clsEstandarPDB::OpenFile(const QString& xFile) {
    if (mAbierta) throw ErrorDeBase(ErroresBase::YaAbierta, "OpenFile");
    const auto info = mGestor->BuscarBase(xFile);
    const ClaseEstandar clase = ClaseDeInfo(*info);
    if (clase == ClaseEstandar::Ninguna) {
        // Any other database is the inner object's alone.
        const bool abierta = mPalm.OpenFile(xFile);
        if (!abierta && mPalm.IsDataBase()) return false;
        mNombre = xFile;
        mInfo = info;
        mAbierta = true;
        mPalmAbierta = true;
        return abierta;
    }
    try {
        mRegistros = mGestor->AbrirBaseRegistros(
            xFile, QString::fromLatin1(clsPalmPDB::ClaseAdaptadorRegistros),
            clsPalmPDB::ModoApertura);
        clsDecodificadorEstandar::Contexto contexto;
        contexto.Base = xFile;
        contexto.Tabla = &modFuncionesConversion::TablaCodigoPagina::Para(mFuente->CodigoPagina());
        const clsCategoriasPalm& categorias = mRegistros->Categorias();
        for (qint32 k = 0; k < categorias.CantidadCategorias(); ++k)
            contexto.Categorias << categorias.NombreCategoria(k);
        mDecodificador =
            clsDecodificadorEstandar::Crear(clase, mRegistros->LeerAppInfo(), contexto);
    } catch (...) {
        CloseDatabase();
        throw;
    }
    mNombre = xFile;
    mInfo = info;
    mAbierta = true;
    return true;
}

clsPalmPDB& clsEstandarPDB::Palm() {
    if (mAbierta && !mPalmAbierta) {
        mPalm.OpenFile(mNombre);
        mPalmAbierta = true;
    }
    return mPalm;
}

void clsEstandarPDB::CloseDatabase() {
    mPalm.CloseDatabase();
    mPalmAbierta = false;
    mDecodificador.reset();
    mRegistros.reset();
    mGestor = mFuente->CrearGestor();
    mNombre.clear();
    mInfo.reset();
    mAbierta = false;
}

bool clsEstandarPDB::IsDataBase() {
    return mRegistros || mPalm.IsDataBase();
}

bool clsEstandarPDB::IsAppForgeDB() {
    return mDecodificador != nullptr;
}

QString clsEstandarPDB::Creador() const {
    return mInfo ? mFuente->CodigoATexto(mInfo->Creador(), -1) : QString();
}

QDateTime clsEstandarPDB::Creacion() const {
    return mInfo ? mInfo->FechaCreacion() : QDateTime();
}

// ---- Schema -------------------------------------------------------------------------------------

qint16 clsEstandarPDB::NumFields() {
    VerificarAbierta("NumFields");
    VerificarEsquema("NumFields");
    return static_cast<qint16>(mDecodificador->Campos().size());
}

QString clsEstandarPDB::FieldsTitles(const QString& xSeparator) {
    VerificarAbierta("FieldsTitles");
    VerificarEsquema("FieldsTitles");
    QString titulos;
    for (const CampoEstandar& campo : mDecodificador->Campos())
        titulos += campo.Nombre + xSeparator;
    // As for AppForge schemas: only the last character goes, whatever the separator's length.
    if (!titulos.isEmpty()) titulos.chop(1);
    return titulos;
}

QString clsEstandarPDB::FieldType(qint32 xNroCampo) {
    VerificarAbierta("FieldType");
    if (!mDecodificador || xNroCampo < 0 || xNroCampo >= mDecodificador->Campos().size())
        return QString();
    return mDecodificador->Campos()[xNroCampo].Tipo;
}

QString clsEstandarPDB::FieldName(qint32 xNroCampo) {
    VerificarAbierta("FieldName");
    if (!mDecodificador || xNroCampo < 0 || xNroCampo >= mDecodificador->Campos().size())
        return QString();
    return mDecodificador->Campos()[xNroCampo].Nombre;
}

qint32 clsEstandarPDB::FieldAlignment(qint32 xNroCampo) {
    VerificarAbierta("FieldAlignment");
    return FieldType(xNroCampo) == QLatin1String("String") ? 1 : 0;
}

// ---- Records ------------------------------------------------------------------------------------

qint32 clsEstandarPDB::TextoRegistro(const RegistroPalm& xRegistro, const QString& xSeparator,
                                     QString& xTexto) {
    mDecodificador->Valores(xRegistro, mValores);
    const QVector<CampoEstandar>& campos = mDecodificador->Campos();
    const clsConfiguracionRegional& regional = clsConfiguracionRegional::Actual();
    mTexto.Vaciar();
    for (qsizetype k = 0; k < mValores.size(); ++k) {
        if (k > 0) mTexto.Texto(xSeparator);
        modTextoEstandar::AgregarValor(
            mTexto, mValores[k], campos[k].Tipo == QLatin1String("String"), xSeparator, regional);
    }
    xTexto = mTexto.Vista().toString();
    return xRegistro.ID;
}

qint32 clsEstandarPDB::ReadRecord(bool& xMoverAlPrincipio, QString& xRegistro,
                                  const QString& xSeparator, qint32 xCategoryID, bool xModified) {
    VerificarAbierta("ReadRecord");
    if (!IsDataBase()) return 0;
    VerificarEsquema("ReadRecord");
    xRegistro.clear();
    if (xMoverAlPrincipio) mRegistros->IrAlPrincipio(0);
    // Once at the start, the caller's next reads go on from there.
    xMoverAlPrincipio = false;
    bool hay;
    if (xCategoryID != -1)
        hay = xModified ? mRegistros->LeerSiguienteModificadoEnCategoria(xCategoryID, mLeido)
                        : mRegistros->LeerSiguienteEnCategoria(xCategoryID, mLeido);
    else
        hay = xModified ? mRegistros->LeerSiguienteModificado(mLeido)
                        : mRegistros->LeerSiguiente(mLeido);
    if (!hay) return -1;
    return TextoRegistro(mLeido, xSeparator, xRegistro);
}

bool clsEstandarPDB::ReadRecordByID(qint32 xRecordID, QString& xRegistro,
                                    const QString& xSeparator) {
    VerificarAbierta("ReadRecordByID");
    if (!IsDataBase()) return false;
    VerificarEsquema("ReadRecordByID");
    xRegistro.clear();
    return TextoRegistro(mRegistros->LeerPorID(xRecordID), xSeparator, xRegistro) == xRecordID;
}

void clsEstandarPDB::Recorrer(const std::function<void(const RegistroPalm&)>& xVisita) const {
    if (!mRegistros) return;
    RegistroPalm registro;
    const qint32 cantidad = mRegistros->CantidadRegistros();
    for (qint32 indice = 0; indice < cantidad; ++indice) {
        mRegistros->LeerEnIndice(indice, registro);
        xVisita(registro);
    }
}

qint32 clsEstandarPDB::UpdateRecord(qint32, qint32, const QString&) {
    VerificarAbierta("UpdateRecord");
    return -1;
}

qint32 clsEstandarPDB::NewRecord() {
    VerificarAbierta("NewRecord");
    return -1;
}

bool clsEstandarPDB::DeleteRecord(qint32) {
    VerificarAbierta("DeleteRecord");
    return false;
}

void clsEstandarPDB::DeleteAllRecords() {
    VerificarAbierta("DeleteAllRecords");
}

// ---- Record facts and attributes: from the adapter the records come from ------------------------

qint32 clsEstandarPDB::RecordAttributes(qint32 xRecordID) {
    if (!mRegistros) return Palm().RecordAttributes(xRecordID);
    try {
        return mRegistros->LeerPorID(xRecordID).Atributos;
    } catch (const ErrorVB&) {
        return -1;
    }
}

qint32 clsEstandarPDB::CategoryID(qint32 xRecordID) {
    if (!mRegistros) return Palm().CategoryID(xRecordID);
    try {
        return mRegistros->LeerPorID(xRecordID).Categoria;
    } catch (const ErrorVB&) {
        return 0;
    }
}

qint32 clsEstandarPDB::RecordIndex(qint32 xRecordID) {
    if (!mRegistros) return Palm().RecordIndex(xRecordID);
    try {
        return mRegistros->LeerPorID(xRecordID).Indice;
    } catch (const ErrorVB&) {
        return 0;
    }
}

qint32 clsEstandarPDB::RecordLength(qint32 xRecordID) {
    if (!mRegistros) return Palm().RecordLength(xRecordID);
    return static_cast<qint32>(mRegistros->LeerPorID(xRecordID).Bytes.size());
}

bool clsEstandarPDB::WriteRecordAttributes(qint32 xRecordID, qint32 xAttributes) {
    if (!mRegistros) return Palm().WriteRecordAttributes(xRecordID, xAttributes);
    clsPalmPDB::ComprobarAtributos(xAttributes);
    // Only the attribute byte of the record as it is on disk changes.
    mRegistros->CambiarRegistro(xRecordID, [xAttributes](RegistroPalm& xActual) {
        clsPalmPDB::AplicarAtributos(xActual, xAttributes);
    });
    return true;
}

// ---- The header, the catalogue and the categories: the inner clsPalmPDB's ---------------------

qint32 clsEstandarPDB::NumRecords() {
    return Palm().NumRecords();
}

QByteArray clsEstandarPDB::RetrieveSortInfo() {
    return Palm().RetrieveSortInfo();
}

float clsEstandarPDB::DBVersion() {
    return Palm().DBVersion();
}

QString clsEstandarPDB::DBType() {
    return Palm().DBType();
}

QDateTime clsEstandarPDB::CreationDate() {
    return Palm().CreationDate();
}

QDateTime clsEstandarPDB::ModificationDate() {
    return Palm().ModificationDate();
}

QDateTime clsEstandarPDB::BackupDate() {
    return Palm().BackupDate();
}

float clsEstandarPDB::DBSize() {
    return Palm().DBSize();
}

QString clsEstandarPDB::RetrieveCreatorsID(qint32 xAppType, const QString& xSeparator) {
    const QString lista = mPalm.RetrieveCreatorsID(xAppType, xSeparator);
    // The listing leaves in the inner object the last database it looked at.
    if (!mPalmAbierta) mPalm.CloseDatabase();
    return lista;
}

QString clsEstandarPDB::RetrieveDataBases(const QString& xCreatorID, const QString& xSeparador) {
    return mPalm.RetrieveDataBases(xCreatorID, xSeparador);
}

qint32 clsEstandarPDB::CategoriesCount() {
    return Palm().CategoriesCount();
}

QString clsEstandarPDB::CategoryName(qint32 xIndex) {
    return Palm().CategoryName(xIndex);
}
