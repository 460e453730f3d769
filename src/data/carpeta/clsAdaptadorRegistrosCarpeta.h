#pragma once

#include "data/carpeta/clsBaseAbierta.h"
#include "data/carpeta/clsCategoriasCarpeta.h"
#include "data/clsFuentePalm.h"

#include <memory>

// The record adapter of one open record database (of a folder or any other store). Sequential reads
// walk the records in file order, whatever their flags; the end flag is set once a read has
// consumed the last record (or found nothing more), and reads after it return false until
// IrAlPrincipio.
class clsAdaptadorRegistrosCarpeta : public clsAdaptadorRegistros {
public:
    clsAdaptadorRegistrosCarpeta(std::unique_ptr<clsBaseAbierta> xBase, QString xCodigoPagina);

    QByteArray LeerAppInfo() override;
    QByteArray LeerInfoOrden() override;
    void IrAlPrincipio(qint32 xIndice) override;
    bool FinDeRegistros() override;
    bool LeerSiguiente(RegistroPalm& xRegistro) override;
    bool LeerSiguienteModificado(RegistroPalm& xRegistro) override;
    bool LeerSiguienteEnCategoria(qint32 xCategoria, RegistroPalm& xRegistro) override;
    bool LeerSiguienteModificadoEnCategoria(qint32 xCategoria, RegistroPalm& xRegistro) override;
    RegistroPalm LeerPorID(qint32 xID) override;
    qint32 CantidadRegistros() const override;
    void LeerEnIndice(qint32 xIndice, RegistroPalm& xRegistro) const override;
    qint32 EscribirRegistro(qint32 xID, qint32 xCategoria, qint32 xAtributos,
                            const QByteArray& xBytes) override;
    RegistroPalm CambiarRegistro(qint32 xID,
                                 const std::function<void(RegistroPalm&)>& xCambio) override;
    void BorrarRegistro(qint32 xID) override;
    void BorrarTodos(qint32 xDesde, qint32 xHasta) override;
    const clsCategoriasPalm& Categorias() override;

private:
    // The next record whose attributes and category xAcepta(attributes, category) accepts.
    template <typename Acepta> bool LeerSiguienteQue(Acepta xAcepta, RegistroPalm& xRegistro);

    std::unique_ptr<clsBaseAbierta> mBase;
    QString mCodigoPagina;
    qint32 mCursor = 0;
    // One object for the adapter's life, so a reference to it stays valid; refreshed on each call.
    clsCategoriasCarpeta mCategorias{QByteArrayView(), QString()};
};
