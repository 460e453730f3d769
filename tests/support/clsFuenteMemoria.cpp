#include "support/clsFuenteMemoria.h"

#include "common/ErrorVB.h"

#include <QtEndian>
#include <algorithm>
#include <utility>

namespace {

using Bases = std::vector<std::shared_ptr<BaseMemoria>>;

ErrorVB ErrorFuente(qint32 xNumero, const char* xFuente, const char* xTexto) {
    return ErrorVB(xNumero, QString::fromLatin1(xFuente), QString::fromLatin1(xTexto));
}

void Renumerar(BaseMemoria& xBase) {
    for (int i = 0; i < xBase.Registros.size(); ++i)
        xBase.Registros[i].Indice = i;
}

class InfoMemoria : public clsInfoBase {
public:
    explicit InfoMemoria(std::shared_ptr<BaseMemoria> xBase) : mBase(std::move(xBase)) {}
    void Liberar() override {}
    QString Nombre() const override { return mBase->Nombre; }
    qint32 Tipo() const override { return clsFuenteMemoria::Codigo(mBase->Tipo); }
    qint32 Creador() const override { return clsFuenteMemoria::Codigo(mBase->Creador); }
    qint32 AtributosBase() const override { return mBase->Atributos; }
    qint32 Version() const override { return mBase->Version; }
    qint32 VersionCompanero() const override { return mBase->VersionCompanero; }
    QDateTime FechaCreacion() const override { return mBase->FechaCreacion; }
    QDateTime FechaModificacion() const override { return mBase->FechaModificacion; }
    QDateTime FechaBackup() const override { return mBase->FechaBackup; }
    qint32 TamanoBase() const override { return mBase->Tamano; }
    qint32 CantidadRegistros() const override {
        return static_cast<qint32>(mBase->Atributos & 1 ? mBase->Recursos.size()
                                                        : mBase->Registros.size());
    }

private:
    std::shared_ptr<BaseMemoria> mBase;
};

class CategoriasMemoria : public clsCategoriasPalm {
public:
    explicit CategoriasMemoria(std::shared_ptr<BaseMemoria> xBase) : mBase(std::move(xBase)) {}
    qint32 CantidadCategorias() const override {
        return static_cast<qint32>(mBase->Categorias.size());
    }
    QString NombreCategoria(qint32 xIndice) const override {
        return mBase->Categorias.value(xIndice);
    }

private:
    std::shared_ptr<BaseMemoria> mBase;
};

class RegistrosMemoria : public clsAdaptadorRegistros {
public:
    explicit RegistrosMemoria(std::shared_ptr<BaseMemoria> xBase)
        : mBase(std::move(xBase)), mCategorias(mBase) {}

    QByteArray LeerAppInfo() override { return mBase->AppInfo; }
    QByteArray LeerInfoOrden() override { return mBase->SortInfo; }
    void IrAlPrincipio(qint32 xIndice) override { mCursor = xIndice; }
    bool FinDeRegistros() override { return mCursor >= mBase->Registros.size(); }

    bool LeerSiguiente(RegistroPalm& xRegistro) override {
        return Siguiente(xRegistro, [](const RegistroPalm&) { return true; });
    }
    bool LeerSiguienteModificado(RegistroPalm& xRegistro) override {
        return Siguiente(xRegistro,
                         [](const RegistroPalm& r) { return (r.Atributos & 0x40) != 0; });
    }
    bool LeerSiguienteEnCategoria(qint32 xCategoria, RegistroPalm& xRegistro) override {
        return Siguiente(xRegistro,
                         [xCategoria](const RegistroPalm& r) { return r.Categoria == xCategoria; });
    }
    bool LeerSiguienteModificadoEnCategoria(qint32 xCategoria, RegistroPalm& xRegistro) override {
        return Siguiente(xRegistro, [xCategoria](const RegistroPalm& r) {
            return r.Categoria == xCategoria && (r.Atributos & 0x40) != 0;
        });
    }

    RegistroPalm LeerPorID(qint32 xID) override { return mBase->Registros.at(Posicion(xID)); }

    qint32 EscribirRegistro(qint32 xID, qint32 xCategoria, qint32 xAtributos,
                            const QByteArray& xBytes) override {
        VerificarEscritura();
        if (xID == 0) {
            qint32 mayor = 0;
            for (const RegistroPalm& r : mBase->Registros)
                mayor = std::max(mayor, r.ID);
            mBase->Registros.append({0, mayor + 1, xAtributos, xCategoria, xBytes});
            Renumerar(*mBase);
            ++mBase->Escrituras;
            return mayor + 1;
        }
        RegistroPalm& registro = mBase->Registros[Posicion(xID)];
        registro.Categoria = xCategoria;
        registro.Atributos = xAtributos;
        registro.Bytes = xBytes;
        ++mBase->Escrituras;
        return xID;
    }

    void BorrarRegistro(qint32 xID) override {
        const int posicion = Posicion(xID);
        VerificarEscritura();
        mBase->Registros.remove(posicion);
        Renumerar(*mBase);
        ++mBase->Escrituras;
    }

    void BorrarTodos(qint32, qint32) override {
        VerificarEscritura();
        mBase->Registros.clear();
        ++mBase->Escrituras;
    }

    const clsCategoriasPalm& Categorias() override { return mCategorias; }

private:
    template <typename Filtro> bool Siguiente(RegistroPalm& xRegistro, Filtro xFiltro) {
        while (mCursor < mBase->Registros.size()) {
            const RegistroPalm& registro = mBase->Registros.at(mCursor++);
            if (xFiltro(registro)) {
                xRegistro = registro;
                return true;
            }
        }
        return false;
    }

    int Posicion(qint32 xID) const {
        for (int i = 0; i < mBase->Registros.size(); ++i) {
            if (mBase->Registros.at(i).ID == xID) return i;
        }
        throw ErrorFuente(ErroresFuente::RegistroNoEncontrado, "LeerPorID", "Record not found.");
    }

    void VerificarEscritura() const {
        if (mBase->FallarEscrituras)
            throw ErrorFuente(ErroresFuente::EscrituraFallida, "EscribirRegistro",
                              "The database could not be written.");
    }

    std::shared_ptr<BaseMemoria> mBase;
    CategoriasMemoria mCategorias;
    qint32 mCursor = 0;
};

class RecursosMemoria : public clsAdaptadorRecursos {
public:
    explicit RecursosMemoria(std::shared_ptr<BaseMemoria> xBase) : mBase(std::move(xBase)) {}
    qint32 CantidadRecursos() override { return static_cast<qint32>(mBase->Recursos.size()); }
    RecursoPalm LeerRecurso(qint32 xIndice) override { return mBase->Recursos.value(xIndice); }

private:
    std::shared_ptr<BaseMemoria> mBase;
};

class GestorMemoria : public clsGestorBases {
public:
    GestorMemoria(std::shared_ptr<Bases> xBases, std::shared_ptr<int> xLlamadas)
        : mBases(std::move(xBases)), mLlamadas(std::move(xLlamadas)) {}

    QStringList ListarBases(qint32) override {
        ++*mLlamadas;
        QStringList nombres;
        for (const auto& base : *mBases)
            nombres.append(base->Nombre);
        return nombres;
    }

    std::shared_ptr<clsInfoBase> BuscarBase(const QString& xNombre) override {
        ++*mLlamadas;
        return std::make_shared<InfoMemoria>(Buscar(xNombre));
    }

    std::shared_ptr<clsInfoBase> EnumerarBases(const QString& xCreador, const QString& xTipo,
                                               bool xReiniciar) override {
        ++*mLlamadas;
        if (xReiniciar) mCursor = 0;
        while (mCursor < mBases->size()) {
            const auto& base = mBases->at(mCursor++);
            if (base->Creador == xCreador && (xTipo.isEmpty() || base->Tipo == xTipo))
                return std::make_shared<InfoMemoria>(base);
        }
        return nullptr;
    }

    std::unique_ptr<clsAdaptadorRegistros> AbrirBaseRegistros(const QString& xNombre,
                                                              const QString&, qint32) override {
        ++*mLlamadas;
        return std::make_unique<RegistrosMemoria>(Abrir(xNombre));
    }

    std::unique_ptr<clsAdaptadorRecursos> AbrirBaseRecursos(const QString& xNombre, const QString&,
                                                            qint32) override {
        ++*mLlamadas;
        return std::make_unique<RecursosMemoria>(Abrir(xNombre));
    }

private:
    std::shared_ptr<BaseMemoria> Buscar(const QString& xNombre) const {
        for (const auto& base : *mBases) {
            if (base->Nombre == xNombre) return base;
        }
        throw ErrorFuente(ErroresFuente::BaseNoEncontrada, "BuscarBase", "Database not found.");
    }

    std::shared_ptr<BaseMemoria> Abrir(const QString& xNombre) const {
        auto base = Buscar(xNombre);
        if (base->EnUso)
            throw ErrorFuente(ErroresFuente::BaseEnUso, "AbrirBase", "The database is in use.");
        if (base->FallarAperturas)
            throw ErrorFuente(ErroresFuente::BaseNoEncontrada, "AbrirBase",
                              "The database cannot be opened.");
        return base;
    }

    std::shared_ptr<Bases> mBases;
    std::shared_ptr<int> mLlamadas;
    size_t mCursor = 0;
};

} // namespace

clsFuenteMemoria::clsFuenteMemoria()
    : mBases(std::make_shared<Bases>()), mLlamadas(std::make_shared<int>(0)) {}

BaseMemoria& clsFuenteMemoria::Agregar(BaseMemoria xBase) {
    Renumerar(xBase);
    mBases->push_back(std::make_shared<BaseMemoria>(std::move(xBase)));
    return *mBases->back();
}

BaseMemoria* clsFuenteMemoria::Base(const QString& xNombre) {
    for (const auto& base : *mBases) {
        if (base->Nombre == xNombre) return base.get();
    }
    return nullptr;
}

std::unique_ptr<clsGestorBases> clsFuenteMemoria::CrearGestor() {
    return std::make_unique<GestorMemoria>(mBases, mLlamadas);
}

// The memory handheld holds databases only: it has no card or user to describe.
std::unique_ptr<clsSistemaPalm> clsFuenteMemoria::CrearSistema() {
    throw ErrorFuente(ErroresFuente::HandheldInaccesible, "CrearSistema",
                      "The handheld cannot be reached.");
}

QString clsFuenteMemoria::CodigoATexto(qint32 xCodigo, qint32) const {
    const auto codigo = static_cast<quint32>(xCodigo);
    QString texto;
    for (int desplazamiento = 24; desplazamiento >= 0; desplazamiento -= 8)
        texto += QChar(static_cast<uchar>(codigo >> desplazamiento));
    return texto;
}

qint32 clsFuenteMemoria::Codigo(const QString& xCuatroLetras) {
    const QByteArray letras = xCuatroLetras.toLatin1().leftJustified(4, ' ', true);
    return static_cast<qint32>(qFromBigEndian<quint32>(letras.constData()));
}

namespace modBloquesPalm {

namespace {
void Palabra(QByteArray& xBloque, qsizetype xPos, quint16 xValor) {
    xBloque[xPos] = static_cast<char>(xValor >> 8);
    xBloque[xPos + 1] = static_cast<char>(xValor & 0xFF);
}
} // namespace

QByteArray BloqueCategorias(const QStringList& xNombres) {
    QByteArray bloque(276, '\0');
    for (int i = 0; i < xNombres.size() && i < 16; ++i) {
        const QByteArray nombre = xNombres.at(i).toLatin1().left(15);
        bloque.replace(2 + 16 * i, nombre.size(), nombre);
        bloque[2 + 256 + i] = static_cast<char>(i);
    }
    bloque[274] = static_cast<char>(qMax<qsizetype>(xNombres.size() - 1, 0));
    return bloque;
}

QByteArray AppInfoAppForge(const QString& xTabla, const QVector<CampoAppForge>& xCampos,
                           quint16 xLargoRegistroVacio, const QByteArray& xMarca,
                           const QStringList& xCategorias) {
    QByteArray bloque = BloqueCategorias(xCategorias);
    QByteArray marca = xMarca.left(12);
    marca = marca.leftJustified(12, '\0');
    bloque += marca;
    const auto campos = static_cast<quint16>(xCampos.size());
    QByteArray palabras(12, '\0');
    const quint16 tablaNombres = static_cast<quint16>(300 - 276 + 6 * campos);
    QByteArray nombres = xTabla.toLatin1() + '\0';
    QByteArray descriptores(6 * campos, '\0');
    for (int i = 0; i < xCampos.size(); ++i) {
        Palabra(descriptores, 6 * i, static_cast<quint16>(tablaNombres + nombres.size()));
        Palabra(descriptores, 6 * i + 2, xCampos.at(i).Tipo);
        nombres += xCampos.at(i).Nombre.toLatin1() + '\0';
    }
    Palabra(palabras, 0, static_cast<quint16>(24 + descriptores.size() + nombres.size()));
    Palabra(palabras, 2, tablaNombres);
    Palabra(palabras, 4, campos);
    Palabra(palabras, 6, xLargoRegistroVacio);
    bloque += palabras + descriptores + nombres;
    return bloque;
}

} // namespace modBloquesPalm
