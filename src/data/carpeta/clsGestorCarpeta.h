#pragma once

#include "data/carpeta/clsCatalogoCarpeta.h"
#include "data/clsFuentePalm.h"

#include <memory>

// The database manager of a folder of .pdb/.prc files: the catalogue and the open operations.
// The adapter class name and the open mode that the direct-access library takes mean nothing to
// a file and are ignored.
class clsGestorCarpeta : public clsGestorBases {
public:
    explicit clsGestorCarpeta(std::shared_ptr<clsCatalogoCarpeta> xCatalogo);

    // The names of every database, in file-name order. The argument is ignored.
    QStringList ListarBases(qint32 xCual) override;
    std::shared_ptr<clsInfoBase> BuscarBase(const QString& xNombre) override;
    // Creator and type filters compare the four-character codes exactly; "" matches any.
    std::shared_ptr<clsInfoBase> EnumerarBases(const QString& xCreador, const QString& xTipo,
                                               bool xReiniciar) override;
    std::unique_ptr<clsAdaptadorRegistros>
    AbrirBaseRegistros(const QString& xNombre, const QString& xClase, qint32 xModo) override;
    std::unique_ptr<clsAdaptadorRecursos>
    AbrirBaseRecursos(const QString& xNombre, const QString& xClase, qint32 xModo) override;

    // A code as its four characters, most significant byte first.
    static QString Codigo(quint32 xCodigo);

private:
    std::unique_ptr<class clsBaseAbierta> Abrir(const QString& xNombre, bool xRecursos,
                                                const QString& xOperacion);

    std::shared_ptr<clsCatalogoCarpeta> mCatalogo;
    QVector<FichaBaseCarpeta> mEnumeracion;
    qsizetype mSiguiente = 0;
};
