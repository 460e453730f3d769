#pragma once

#include "common/ErrorVB.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/clsGestorDelegado.h"

#include <QMap>
#include <memory>

// The header facts of a folder database with a companion value of the version, which a file's
// header has no room for.
class InfoConCompanero : public clsInfoBase {
public:
    InfoConCompanero(std::shared_ptr<clsInfoBase> xInfo, qint32 xCompanero)
        : mInfo(std::move(xInfo)), mCompanero(xCompanero) {}
    void Liberar() override { mInfo->Liberar(); }
    QString Nombre() const override { return mInfo->Nombre(); }
    qint32 Tipo() const override { return mInfo->Tipo(); }
    qint32 Creador() const override { return mInfo->Creador(); }
    qint32 AtributosBase() const override { return mInfo->AtributosBase(); }
    qint32 Version() const override { return mInfo->Version(); }
    qint32 VersionCompanero() const override { return mCompanero; }
    QDateTime FechaCreacion() const override { return mInfo->FechaCreacion(); }
    QDateTime FechaModificacion() const override { return mInfo->FechaModificacion(); }
    QDateTime FechaBackup() const override { return mInfo->FechaBackup(); }
    qint32 TamanoBase() const override { return mInfo->TamanoBase(); }
    qint32 CantidadRegistros() const override { return mInfo->CantidadRegistros(); }

private:
    std::shared_ptr<clsInfoBase> mInfo;
    qint32 mCompanero;
};

// What a folder cannot show: databases whose opening fails with a given error number, and a
// companion value of the version.
struct Rarezas {
    QMap<QString, qint32> FallasApertura;
    qint32 Companero = 0;
};

class clsGestorRaro : public clsGestorDelegado {
public:
    clsGestorRaro(std::unique_ptr<clsGestorBases> xGestor, Rarezas xRarezas)
        : clsGestorDelegado(std::move(xGestor)), mRarezas(std::move(xRarezas)) {}
    std::shared_ptr<clsInfoBase> BuscarBase(const QString& xNombre) override {
        return std::make_shared<InfoConCompanero>(clsGestorDelegado::BuscarBase(xNombre),
                                                  mRarezas.Companero);
    }
    std::unique_ptr<clsAdaptadorRegistros>
    AbrirBaseRegistros(const QString& xNombre, const QString& xClase, qint32 xModo) override {
        if (mRarezas.FallasApertura.contains(xNombre))
            throw ErrorVB(mRarezas.FallasApertura[xNombre], "AbrirBase", "cannot open");
        return clsGestorDelegado::AbrirBaseRegistros(xNombre, xClase, xModo);
    }

private:
    Rarezas mRarezas;
};

class clsFuenteCarpetaRara : public clsFuenteCarpeta {
public:
    clsFuenteCarpetaRara(const QString& xCarpeta, Rarezas xRarezas)
        : clsFuenteCarpeta(xCarpeta), mRarezas(std::move(xRarezas)) {}
    std::unique_ptr<clsGestorBases> CrearGestor() override {
        return std::make_unique<clsGestorRaro>(clsFuenteCarpeta::CrearGestor(), mRarezas);
    }

private:
    Rarezas mRarezas;
};
