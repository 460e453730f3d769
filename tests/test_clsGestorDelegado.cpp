#include "data/clsGestorDelegado.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

// Notes each call with its arguments, and fails any call that expects a database.
class GestorAnotador : public clsGestorBases {
public:
    explicit GestorAnotador(QString& xNota) : mNota(xNota) {}
    QStringList ListarBases(qint32 xCual) override {
        mNota = QStringLiteral("Listar %1").arg(xCual);
        return {QStringLiteral("A"), QStringLiteral("B")};
    }
    std::shared_ptr<clsInfoBase> BuscarBase(const QString& xNombre) override {
        mNota = QStringLiteral("Buscar ") + xNombre;
        return nullptr;
    }
    std::shared_ptr<clsInfoBase> EnumerarBases(const QString& xCreador, const QString& xTipo,
                                               bool xReiniciar) override {
        mNota = QStringLiteral("Enumerar %1 %2 %3").arg(xCreador, xTipo).arg(xReiniciar);
        return nullptr;
    }
    std::unique_ptr<clsAdaptadorRegistros>
    AbrirBaseRegistros(const QString& xNombre, const QString& xClase, qint32 xModo) override {
        mNota = QStringLiteral("Registros %1 %2 %3").arg(xNombre, xClase).arg(xModo);
        return nullptr;
    }
    std::unique_ptr<clsAdaptadorRecursos>
    AbrirBaseRecursos(const QString& xNombre, const QString& xClase, qint32 xModo) override {
        mNota = QStringLiteral("Recursos %1 %2 %3").arg(xNombre, xClase).arg(xModo);
        return nullptr;
    }

private:
    QString& mNota;
};

TEST(clsGestorDelegado, HandsEveryCallOnWithItsArguments) {
    QString nota;
    clsGestorDelegado gestor(std::make_unique<GestorAnotador>(nota));
    const struct {
        std::function<void()> Llamada;
        const char* Esperada;
    } casos[] = {
        {[&] { EXPECT_EQ(gestor.ListarBases(2).size(), 2); }, "Listar 2"},
        {[&] { gestor.BuscarBase("MemoDB"); }, "Buscar MemoDB"},
        {[&] { gestor.EnumerarBases("memo", "DATA", true); }, "Enumerar memo DATA 1"},
        {[&] { gestor.EnumerarBases("memo", "", false); }, "Enumerar memo  0"},
        {[&] { gestor.AbrirBaseRegistros("MemoDB", "Clase", 208); }, "Registros MemoDB Clase 208"},
        {[&] { gestor.AbrirBaseRecursos("App", "Otra", 1); }, "Recursos App Otra 1"},
    };
    for (const auto& caso : casos) {
        nota.clear();
        caso.Llamada();
        EXPECT_EQ(nota, QLatin1String(caso.Esperada));
    }
}

} // namespace
