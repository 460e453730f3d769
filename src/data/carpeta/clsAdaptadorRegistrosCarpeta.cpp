#include "data/carpeta/clsAdaptadorRegistrosCarpeta.h"

#include "common/ErrorVB.h"

#include <utility>

clsAdaptadorRegistrosCarpeta::clsAdaptadorRegistrosCarpeta(std::unique_ptr<clsBaseAbierta> xBase,
                                                           QString xCodigoPagina)
    : mBase(std::move(xBase)), mCodigoPagina(std::move(xCodigoPagina)) {}

QByteArray clsAdaptadorRegistrosCarpeta::LeerAppInfo() {
    return mBase->AppInfo();
}

QByteArray clsAdaptadorRegistrosCarpeta::LeerInfoOrden() {
    return mBase->SortInfo();
}

qint32 clsAdaptadorRegistrosCarpeta::CantidadRegistros() const {
    return static_cast<qint32>(mBase->Disposicion().Registros.size());
}

void clsAdaptadorRegistrosCarpeta::IrAlPrincipio(qint32 xIndice) {
    mCursor = qBound(0, xIndice, CantidadRegistros());
}

bool clsAdaptadorRegistrosCarpeta::FinDeRegistros() {
    return mCursor >= CantidadRegistros();
}

void clsAdaptadorRegistrosCarpeta::LeerEnIndice(qint32 xIndice, RegistroPalm& xRegistro) const {
    const IndiceRegistroPDB& indice = mBase->Disposicion().Registros[xIndice];
    xRegistro.Indice = xIndice;
    xRegistro.ID = static_cast<qint32>(indice.ID);
    clsArchivoPDB::SepararAtributos(indice.Atributos, xRegistro.Atributos, xRegistro.Categoria);
    mBase->Datos(indice.Datos, xRegistro.Bytes);
}

template <typename Acepta>
bool clsAdaptadorRegistrosCarpeta::LeerSiguienteQue(Acepta xAcepta, RegistroPalm& xRegistro) {
    const QVector<IndiceRegistroPDB>& registros = mBase->Disposicion().Registros;
    while (mCursor < registros.size()) {
        const qint32 indice = mCursor++;
        qint32 atributos = 0;
        qint32 categoria = 0;
        clsArchivoPDB::SepararAtributos(registros[indice].Atributos, atributos, categoria);
        if (xAcepta(atributos, categoria)) {
            LeerEnIndice(indice, xRegistro);
            return true;
        }
    }
    return false;
}

bool clsAdaptadorRegistrosCarpeta::LeerSiguiente(RegistroPalm& xRegistro) {
    return LeerSiguienteQue([](qint32, qint32) { return true; }, xRegistro);
}

bool clsAdaptadorRegistrosCarpeta::LeerSiguienteModificado(RegistroPalm& xRegistro) {
    return LeerSiguienteQue(
        [](qint32 xAtributos, qint32) {
            return (xAtributos & clsArchivoPDB::AtributoModificado) != 0;
        },
        xRegistro);
}

bool clsAdaptadorRegistrosCarpeta::LeerSiguienteEnCategoria(qint32 xCategoria,
                                                            RegistroPalm& xRegistro) {
    return LeerSiguienteQue(
        [xCategoria](qint32, qint32 xCategoriaLeida) { return xCategoriaLeida == xCategoria; },
        xRegistro);
}

bool clsAdaptadorRegistrosCarpeta::LeerSiguienteModificadoEnCategoria(qint32 xCategoria,
                                                                      RegistroPalm& xRegistro) {
    return LeerSiguienteQue(
        [xCategoria](qint32 xAtributos, qint32 xCategoriaLeida) {
            return xCategoriaLeida == xCategoria &&
                   (xAtributos & clsArchivoPDB::AtributoModificado) != 0;
        },
        xRegistro);
}

RegistroPalm clsAdaptadorRegistrosCarpeta::LeerPorID(qint32 xID) {
    const qint32 indice = mBase->IndicePorID(static_cast<quint32>(xID));
    if (indice < 0)
        throw ErrorVB(ErroresFuente::RegistroNoEncontrado, QStringLiteral("LeerPorID"),
                      QStringLiteral("The database \"%1\" has no record with the unique ID %2.")
                          .arg(mBase->Nombre())
                          .arg(xID));
    RegistroPalm registro;
    LeerEnIndice(indice, registro);
    return registro;
}

qint32 clsAdaptadorRegistrosCarpeta::EscribirRegistro(qint32 xID, qint32 xCategoria,
                                                      qint32 xAtributos, const QByteArray& xBytes) {
    const quint8 byte = clsArchivoPDB::UnirAtributos(xAtributos, xCategoria);
    return static_cast<qint32>(mBase->EscribirRegistro(static_cast<quint32>(xID), byte, xBytes));
}

RegistroPalm
clsAdaptadorRegistrosCarpeta::CambiarRegistro(qint32 xID,
                                              const std::function<void(RegistroPalm&)>& xCambio) {
    RegistroPalm registro;
    mBase->CambiarRegistro(static_cast<quint32>(xID), [&](quint8& xAtributos, QByteArray& xBytes) {
        registro.ID = xID;
        clsArchivoPDB::SepararAtributos(xAtributos, registro.Atributos, registro.Categoria);
        registro.Bytes = std::move(xBytes);
        const qint32 atributos = registro.Atributos;
        const qint32 categoria = registro.Categoria;
        xCambio(registro);
        // Left alone, the byte keeps the bits that reading it into flags and category drops.
        if (registro.Atributos != atributos || registro.Categoria != categoria)
            xAtributos = clsArchivoPDB::UnirAtributos(registro.Atributos, registro.Categoria);
        xBytes = registro.Bytes;
    });
    registro.Indice = mBase->IndicePorID(static_cast<quint32>(xID));
    return registro;
}

void clsAdaptadorRegistrosCarpeta::BorrarRegistro(qint32 xID) {
    // The sequential reading goes on with the record that followed the one removed.
    if (mBase->BorrarRegistro(static_cast<quint32>(xID)) < mCursor) --mCursor;
    mCursor = qMin(mCursor, CantidadRegistros());
}

// The range the direct-access library takes is meaningless for a file: every record goes.
void clsAdaptadorRegistrosCarpeta::BorrarTodos(qint32, qint32) {
    mBase->BorrarTodos();
    mCursor = 0;
}

const clsCategoriasPalm& clsAdaptadorRegistrosCarpeta::Categorias() {
    mCategorias = clsCategoriasCarpeta(LeerAppInfo(), mCodigoPagina);
    return mCategorias;
}
