#include "data/clsPalmPDB.h"

#include "common/ErrorVB.h"
#include "common/clsConfiguracionRegional.h"
#include "common/modFunciones.h"
#include "data/MensajesError.h"
#include "data/formato/clsArchivoPDB.h"
#include "data/formato/modCamposRegistro.h"
#include "data/modEntradaCatalogo.h"

#include <cstring>
#include <utility>

using namespace modCamposRegistro;
using namespace modFuncionesConversion;

namespace {

// Layout of the AppForge schema inside the AppInfo block, as the reader walks it.
constexpr qint32 PosicionMarca = 276;
constexpr qint32 PosicionCantidadCampos = 293;
constexpr qint32 PosicionRegistroVacio = 295;
constexpr qint32 PosicionDescriptores = 300;
constexpr qint32 PosicionTipos = 303;
constexpr qint32 AnchoDescriptor = 6;

const char* const ClaseRecursos = "PDDirect.PDResourceAdapter";

// Attribute flags that make WriteRecordAttributes take the given value.
constexpr qint32 FlagsAtributos = clsArchivoPDB::AtributoBorrado |
                                  clsArchivoPDB::AtributoModificado |
                                  clsArchivoPDB::AtributoSecreto | clsArchivoPDB::AtributoArchivado;

// The record's text without the separator after its last field, into xRegistro (whose buffer is
// kept for the next record).
void TextoSinUltimoSeparador(clsBufferTexto& xTexto, const QString& xSeparator,
                             QString& xRegistro) {
    if (xTexto.Cantidad() > 0) xTexto.Recortar(xSeparator.size());
    const QStringView vista = xTexto.Vista();
    xRegistro.resize(vista.size());
    std::memcpy(xRegistro.data(), vista.data(),
                sizeof(char16_t) * static_cast<size_t>(vista.size()));
}

} // namespace

clsPalmPDB::clsPalmPDB(std::shared_ptr<clsFuentePalm> xFuente)
    : mFuente(std::move(xFuente)), mTabla(&TablaCodigoPagina::Para(mFuente->CodigoPagina())),
      mGestor(mFuente->CrearGestor()) {}

// ---- State checks -------------------------------------------------------------------------------

void clsPalmPDB::VerificarAbierta(const char* xOperacion) const {
    if (!mBaseAbierta) throw ErrorDeBase(ErroresBase::Cerrada, xOperacion);
}

void clsPalmPDB::VerificarCerrada(const char* xOperacion) const {
    if (mBaseAbierta && !mEnumerando) throw ErrorDeBase(ErroresBase::YaAbierta, xOperacion);
}

void clsPalmPDB::VerificarEsquema(const char* xOperacion) const {
    if (!mEsAppForge) throw ErrorDeBase(ErroresBase::SinEsquema, xOperacion);
}

// The record adapter; a resource database has none, which is the error of a missing object.
clsAdaptadorRegistros& clsPalmPDB::Registros(const char* xOperacion) const {
    if (!mAdaptadorRegistros)
        throw ErrorVB(91, QString::fromLatin1(xOperacion),
                      QStringLiteral("Object variable or With block variable not set"));
    return *mAdaptadorRegistros;
}

void clsPalmPDB::TomarRegistro(RegistroPalm& xRegistro) {
    mIndice = xRegistro.Indice;
    mAtributos = xRegistro.Atributos;
    mCategoria = xRegistro.Categoria;
    mRegistroActual.swap(xRegistro.Bytes);
}

QString clsPalmPDB::TextoDeCodigo(qint32 xCodigo) const {
    return mFuente->CodigoATexto(xCodigo, -1);
}

// ---- Open and close -----------------------------------------------------------------------------

bool clsPalmPDB::OpenFile(const QString& xFile) {
    VerificarCerrada("OpenFile");
    if (mInfoBase) mInfoBase->Liberar();
    mInfoBase = mGestor->BuscarBase(xFile);
    if (mInfoBase->AtributosBase() & 1) {
        const bool abierta = OpenResource(xFile);
        mEsBaseDatos = false;
        return abierta;
    }
    const bool abierta = OpenDataBase(xFile);
    mEsBaseDatos = true;
    return abierta;
}

bool clsPalmPDB::OpenResource(const QString& xNombre) {
    VerificarCerrada("OpenResource");
    mAdaptadorRecursos.reset();
    try {
        mAdaptadorRecursos =
            mGestor->AbrirBaseRecursos(xNombre, QString::fromLatin1(ClaseRecursos), ModoApertura);
    } catch (const ErrorVB&) {
        // A resource database that cannot be opened still leaves the object open, without an
        // adapter: the result tells the caller.
    }
    mEsAppForge = false;
    mBaseAbierta = true;
    return mAdaptadorRecursos != nullptr;
}

bool clsPalmPDB::OpenDataBase(const QString& xNombre) {
    VerificarCerrada("OpenDataBase");
    mAdaptadorRegistros.reset();
    try {
        mAdaptadorRegistros = mGestor->AbrirBaseRegistros(
            xNombre, QString::fromLatin1(ClaseAdaptadorRegistros), ModoApertura);
    } catch (const ErrorVB& error) {
        if (error.Numero() == ErroresFuente::BaseEnUso) throw;
    }
    if (!mAdaptadorRegistros) return false;

    mEsAppForge = false;
    const QByteArray info = mAdaptadorRegistros->LeerAppInfo();
    // Longer than the standard category block: the AppForge marker may follow it.
    if (!info.isEmpty() && info.size() - 1 >= PosicionMarca) {
        qint32 pos = PosicionMarca;
        try {
            mEsAppForge = LeerTexto(info, pos, *mTabla).toUpper() == QLatin1String("APPFORG2");
        } catch (const ErrorVB&) {
            // A block with no terminator after the category block carries no marker.
        }
        mCargarTipos = true;
    }
    mBaseAbierta = true;
    return true;
}

void clsPalmPDB::CloseDatabase() {
    if (mInfoBase) mInfoBase->Liberar();
    mInfoBase.reset();
    mGestor = mFuente->CrearGestor();
    mAdaptadorRegistros.reset();
    mBaseAbierta = false;
}

bool clsPalmPDB::IsDataBase() {
    return mEsBaseDatos;
}

bool clsPalmPDB::IsAppForgeDB() {
    return mEsAppForge;
}

// ---- Header -------------------------------------------------------------------------------------

QString clsPalmPDB::DBType() {
    VerificarAbierta("DBType");
    return TextoDeCodigo(mInfoBase->Tipo());
}

float clsPalmPDB::DBVersion() {
    VerificarAbierta("DBVersion");
    double version = mInfoBase->Version();
    if (mInfoBase->VersionCompanero() >= 1) version += mInfoBase->VersionCompanero() / 100.0;
    return static_cast<float>(std::nearbyint(version * 100) / 100);
}

QDateTime clsPalmPDB::CreationDate() {
    VerificarAbierta("CreationDate");
    return mInfoBase->FechaCreacion();
}

QDateTime clsPalmPDB::ModificationDate() {
    VerificarAbierta("ModificationDate");
    return mInfoBase->FechaModificacion();
}

QDateTime clsPalmPDB::BackupDate() {
    VerificarAbierta("BackupDate");
    return mInfoBase->FechaBackup();
}

float clsPalmPDB::DBSize() {
    VerificarAbierta("DBSize");
    return static_cast<float>(mInfoBase->TamanoBase());
}

// ---- Catalogue ----------------------------------------------------------------------------------

QString clsPalmPDB::RetrieveDataBases(const QString& xCreatorID, const QString& xSeparador) {
    QStringList lista;
    const QString sinTipo;
    for (auto info = mGestor->EnumerarBases(xCreatorID, sinTipo, true); info;
         info = mGestor->EnumerarBases(xCreatorID, sinTipo, false)) {
        const QString tipo = TextoDeCodigo(info->Tipo()).toUpper();
        const int clase = tipo == QLatin1String("DATA")   ? 1
                          : tipo == QLatin1String("APPL") ? 4
                                                          : 12;
        // Sorted with a "*" after the kind, then read back as any entry is read.
        lista.append(modEntradaCatalogo::Entrada(info->Nombre(), clase) + QLatin1Char('*'));
    }
    modFunciones::OrdenarVector(lista, 1);
    QString resultado;
    for (const QString& entrada : lista) {
        const modEntradaCatalogo::EntradaBase leida = modEntradaCatalogo::LeerEntrada(entrada);
        resultado += modEntradaCatalogo::Entrada(leida.Nombre, leida.Clase) + xSeparador;
    }
    return resultado;
}

QString clsPalmPDB::RetrieveCreatorsID(qint32 xAppType, const QString& xSeparator) {
    QString* guardadas[] = {&mCreadoresAppForge, &mCreadoresOtros, &mCreadoresTodos};
    if (xAppType < 0 || xAppType > 2)
        throw ErrorVB::SubscriptOutOfRange(QStringLiteral("RetrieveCreatorsID"));
    QString& guardada = *guardadas[xAppType];
    // Blank means spaces only: a kept list of tabs (the separators of blank creator codes) is
    // kept like any other.
    if (!modFunciones::SinBlancos(guardada).isEmpty()) return guardada;

    // While listing, databases are opened one after another without closing the previous one.
    struct Enumerando {
        bool& Marca;
        explicit Enumerando(bool& xMarca) : Marca(xMarca) { Marca = true; }
        ~Enumerando() { Marca = false; }
    } enumerando(mEnumerando);

    const QStringList nombres = mGestor->ListarBases(-1);
    if (xAppType == 1 && modFunciones::SinBlancos(mCreadoresAppForge).isEmpty()) {
        RetrieveCreatorsID(0, xSeparator);
        mEnumerando = true;
    }
    const QString tab(QLatin1Char('\t'));
    QStringList lista;
    QString tomados;
    for (const QString& nombre : nombres) {
        mInfoBase = mGestor->BuscarBase(nombre);
        const QString creador = TextoDeCodigo(mInfoBase->Creador());
        if (tomados.contains(QLatin1Char('*') + creador + QLatin1Char('*'))) continue;
        if (xAppType == 1 && mCreadoresAppForge.contains(creador + tab)) continue;
        if (xAppType != 2) {
            bool abierta = false;
            try {
                abierta = OpenFile(nombre);
            } catch (const ErrorVB&) {
                // A database that cannot be opened is left out of the listing.
            }
            if (!abierta || mEsAppForge != (xAppType == 0)) continue;
        }
        lista.append(creador);
        tomados += QLatin1Char('*') + creador + QLatin1Char('*');
    }
    modFunciones::OrdenarVector(lista, 1);
    QString resultado;
    for (const QString& creador : lista)
        resultado += creador + xSeparator;
    guardada = resultado;
    return resultado;
}

// ---- Schema -------------------------------------------------------------------------------------

qint16 clsPalmPDB::NumFields() {
    VerificarAbierta("NumFields");
    VerificarEsquema("NumFields");
    const QByteArray info = Registros("NumFields").LeerAppInfo();
    qint32 pos = PosicionCantidadCampos;
    return LeerInt(info, pos);
}

QString clsPalmPDB::FieldType(qint32 xNroCampo) {
    VerificarAbierta("FieldType");
    const QByteArray info = Registros("FieldType").LeerAppInfo();
    qint32 pos =
        PosicionEn(PosicionTipos + static_cast<qint64>(AnchoDescriptor) * xNroCampo, "FieldType");
    return NombreTipo(LeerInt(info, pos));
}

QString clsPalmPDB::FieldName(qint32 xNroCampo) {
    VerificarAbierta("FieldName");
    const QByteArray info = Registros("FieldName").LeerAppInfo();
    qint32 pos = PosicionDescriptores + AnchoDescriptor * NumFields();
    LeerTexto(info, pos, *mTabla);
    QString nombre;
    for (qint32 k = 0; k <= xNroCampo; ++k)
        nombre = LeerTexto(info, pos, *mTabla);
    return nombre;
}

QString clsPalmPDB::FieldsTitles(const QString& xSeparator) {
    VerificarAbierta("FieldsTitles");
    VerificarEsquema("FieldsTitles");
    const QByteArray info = Registros("FieldsTitles").LeerAppInfo();
    const qint16 campos = NumFields();
    qint32 pos = PosicionDescriptores + AnchoDescriptor * campos;
    LeerTexto(info, pos, *mTabla);
    QString titulos;
    for (qint16 k = 0; k < campos; ++k)
        titulos += LeerTexto(info, pos, *mTabla) + xSeparator;
    // Only the last character goes, whatever the separator's length.
    if (!titulos.isEmpty()) titulos.chop(1);
    return titulos;
}

qint32 clsPalmPDB::FieldAlignment(qint32 xNroCampo) {
    VerificarAbierta("FieldAlignment");
    return FieldType(xNroCampo) == QLatin1String("String") ? 1 : 0;
}

// ---- Records ------------------------------------------------------------------------------------

qint32 clsPalmPDB::ReadRecord(bool& xMoverAlPrincipio, QString& xRegistro,
                              const QString& xSeparator, qint32 xCategoryID, bool xModified) {
    const qint32 id =
        LeerRegistro(xMoverAlPrincipio, xRegistro, xSeparator, xCategoryID, xModified, 0);
    // Once at the start, the caller's next reads go on from there.
    xMoverAlPrincipio = false;
    return id;
}

bool clsPalmPDB::ReadRecordByID(qint32 xRecordID, QString& xRegistro, const QString& xSeparator) {
    VerificarAbierta("ReadRecordByID");
    if (!mEsBaseDatos) return false;
    VerificarEsquema("ReadRecordByID");
    return LeerRegistro(false, xRegistro, xSeparator, -1, false, xRecordID) == xRecordID;
}

qint32 clsPalmPDB::LeerRegistro(bool xMoverAlPrincipio, QString& xRegistro,
                                const QString& xSeparator, qint32 xCategoryID, bool xModified,
                                qint32 xRecordID) {
    VerificarAbierta("ReadRecord");
    if (!mEsBaseDatos) return 0;
    VerificarEsquema("ReadRecord");
    // The text's buffer is kept for the next record.
    xRegistro.resize(0);
    mIDActual = 0;
    clsAdaptadorRegistros& adaptador = Registros("ReadRecord");
    if (xMoverAlPrincipio) adaptador.IrAlPrincipio(0);

    if (xRecordID != 0) {
        mIDActual = xRecordID;
        TomarRegistro(adaptador.LeerPorID(xRecordID));
    } else if (!adaptador.FinDeRegistros()) {
        // The record comes into the buffer of the one read before it.
        RegistroPalm& leido = mLeido;
        bool hay;
        if (xCategoryID != -1) {
            mCategoria = xCategoryID;
            hay = xModified ? adaptador.LeerSiguienteModificadoEnCategoria(xCategoryID, leido)
                            : adaptador.LeerSiguienteEnCategoria(xCategoryID, leido);
        } else {
            hay = xModified ? adaptador.LeerSiguienteModificado(leido)
                            : adaptador.LeerSiguiente(leido);
        }
        if (hay) {
            TomarRegistro(leido);
            mIDActual = leido.ID;
        }
    }
    // The end flag turns on as the last record is read; that record is still decoded.
    if (adaptador.FinDeRegistros() && mIDActual == 0) return -1;

    clsBufferTexto& texto = mTextoRegistro;
    texto.Vaciar();
    if (mCargarTipos) {
        // The field count is read with the types, once per open, as the schema does not change.
        mCantidadCampos = NumFields();
        mTiposCampo.clear();
        const clsConfiguracionRegional& regional = clsConfiguracionRegional::Actual();
        qint32 pos = 0;
        for (qint16 i = 0; i < mCantidadCampos; ++i) {
            mTiposCampo.push_back(CodigoDeNombre(FieldType(i)));
            AgregarCampo(texto, mRegistroActual, mTiposCampo[i], pos, xSeparator, *mTabla,
                         regional);
            texto.Texto(xSeparator);
        }
        mCargarTipos = false;
    } else {
        TextoCampos(mRegistroActual, xSeparator, texto);
    }
    TextoSinUltimoSeparador(texto, xSeparator, xRegistro);
    return mIDActual;
}

void clsPalmPDB::TextoCampos(const QByteArray& xBytes, const QString& xSeparator,
                             clsBufferTexto& xTexto) const {
    AgregarCampos(xTexto, xBytes, mTiposCampo, mCantidadCampos, xSeparator, *mTabla,
                  clsConfiguracionRegional::Actual());
}

qint32 clsPalmPDB::RegistrosEnArchivo() const {
    return mEsBaseDatos && mAdaptadorRegistros ? mAdaptadorRegistros->CantidadRegistros() : 0;
}

qint32 clsPalmPDB::TextoEnIndice(qint32 xIndice, const QString& xSeparator, LecturaIndice& xLectura,
                                 QString& xRegistro) const {
    const clsAdaptadorRegistros& adaptador = Registros("ReadRecord");
    const qint32 cantidad = adaptador.CantidadRegistros();
    if (xIndice < 0 || xIndice >= cantidad) return -1;
    adaptador.LeerEnIndice(xIndice, xLectura.Leido);
    // ReadRecord's reading takes a last record whose ID is 0 for the end of the records.
    if (xIndice == cantidad - 1 && xLectura.Leido.ID == 0) return -1;
    clsBufferTexto& texto = xLectura.Texto;
    texto.Vaciar();
    TextoCampos(xLectura.Leido.Bytes, xSeparator, texto);
    TextoSinUltimoSeparador(texto, xSeparator, xRegistro);
    return xLectura.Leido.ID;
}

// The field is encoded into the record as the database holds it when the write is made, so a
// change another writer made to the record's other fields stays.
qint32 clsPalmPDB::UpdateRecord(qint32 xRecordID, qint32 xNroCampo, const QString& xValor) {
    VerificarAbierta("UpdateRecord");
    clsAdaptadorRegistros& adaptador = Registros("UpdateRecord");
    mIDActual = xRecordID;
    TomarRegistro(adaptador.CambiarRegistro(xRecordID, [&](RegistroPalm& xActual) {
        TomarRegistro(xActual);
        CodificarCampo(mRegistroActual, mTiposCampo, xNroCampo, xValor, *mTabla);
        xActual.Bytes = mRegistroActual;
    }));
    return mIDActual;
}

qint32 clsPalmPDB::NewRecord() {
    VerificarAbierta("DeleteAllRecord");
    clsAdaptadorRegistros& adaptador = Registros("NewRecord");
    const QByteArray info = adaptador.LeerAppInfo();
    qint32 pos = PosicionRegistroVacio;
    const qint16 largo = LeerInt(info, pos);
    if (largo < 0 || largo > 255) throw ErrorVB::Overflow(QStringLiteral("NewRecord"));
    mIDActual = adaptador.EscribirRegistro(0, mCategoria, 0, QByteArray(largo + 1, '\0'));
    return mIDActual;
}

// ---- Attributes, categories and deletion --------------------------------------------------------

qint32 clsPalmPDB::NumRecords() {
    VerificarAbierta("NumRecords");
    return mEsBaseDatos ? mInfoBase->CantidadRegistros() : 0;
}

qint32 clsPalmPDB::RecordAttributes(qint32 xRecordID) {
    VerificarAbierta("RecordAttributes");
    try {
        TomarRegistro(Registros("RecordAttributes").LeerPorID(xRecordID));
        return mAtributos;
    } catch (const ErrorVB&) {
        return -1;
    }
}

qint32 clsPalmPDB::CategoryID(qint32 xRecordID) {
    VerificarAbierta("CategoryID");
    try {
        TomarRegistro(Registros("CategoryID").LeerPorID(xRecordID));
        return mCategoria;
    } catch (const ErrorVB&) {
        return 0;
    }
}

qint32 clsPalmPDB::RecordIndex(qint32 xRecordID) {
    VerificarAbierta("RecordIndex");
    try {
        TomarRegistro(Registros("RecordIndex").LeerPorID(xRecordID));
        return mIndice;
    } catch (const ErrorVB&) {
        return 0;
    }
}

qint32 clsPalmPDB::RecordLength(qint32 xRecordID) {
    VerificarAbierta("RecordLength");
    TomarRegistro(Registros("RecordLength").LeerPorID(xRecordID));
    return static_cast<qint32>(mRegistroActual.size());
}

QByteArray clsPalmPDB::RetrieveSortInfo() {
    VerificarAbierta("RetrieveSortInfo");
    return Registros("RetrieveSortInfo").LeerInfoOrden();
}

void clsPalmPDB::ComprobarAtributos(qint32 xAttributes) {
    // The attribute byte holds no more: a larger value would lose its high bits silently.
    if (xAttributes < 0 || xAttributes > 255)
        throw ErrorVB(ErrorVB::Desbordamiento, QStringLiteral("WriteRecordAttributes"),
                      QStringLiteral("The attributes %1 are not a byte: give a value from 0 to "
                                     "255.")
                          .arg(xAttributes));
}

void clsPalmPDB::AplicarAtributos(RegistroPalm& xRegistro, qint32 xAttributes) {
    if (xAttributes & FlagsAtributos) xRegistro.Atributos = xAttributes;
}

bool clsPalmPDB::WriteRecordAttributes(qint32 xRecordID, qint32 xAttributes) {
    VerificarAbierta("WriteRecordAttributes");
    ComprobarAtributos(xAttributes);
    clsAdaptadorRegistros& adaptador = Registros("WriteRecordAttributes");
    mIDActual = xRecordID;
    // Only the attribute byte of the record as it is on disk changes.
    TomarRegistro(adaptador.CambiarRegistro(xRecordID, [xAttributes](RegistroPalm& xActual) {
        AplicarAtributos(xActual, xAttributes);
    }));
    return true;
}

qint32 clsPalmPDB::CategoriesCount() {
    VerificarAbierta("CategoriesCount");
    if (!mEsBaseDatos) return 0;
    return Registros("CategoriesCount").Categorias().CantidadCategorias();
}

QString clsPalmPDB::CategoryName(qint32 xIndex) {
    VerificarAbierta("CategoryName");
    if (!mEsBaseDatos) return QString();
    return Registros("CategoryName").Categorias().NombreCategoria(xIndex);
}

// A record that cannot be deleted (an ID the database does not hold, a resource database) gives
// False; a write that fails is an error like any other write's, as the record is still there.
bool clsPalmPDB::DeleteRecord(qint32 xRecordID) {
    VerificarAbierta("DeleteRecord");
    try {
        Registros("DeleteRecord").BorrarRegistro(xRecordID);
        return true;
    } catch (const ErrorVB& error) {
        if (error.Numero() == ErroresFuente::EscrituraFallida ||
            error.Numero() == ErroresFuente::BaseCambiada)
            throw;
        return false;
    }
}

void clsPalmPDB::DeleteAllRecords() {
    VerificarAbierta("DeleteAllRecords");
    Registros("DeleteAllRecords").BorrarTodos(0, 255);
}
