#pragma once

#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/formato/clsArchivoPDB.h"
#include "support/modPrueba.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

// The source suite lays databases out in a handheld through a factory; this one is a folder.
// A handheld that is a folder in a temporary directory.
class FabricaCarpeta {
public:
    FabricaCarpeta() : mCarpeta(mRaiz.filePath(QStringLiteral("Palm"))) { QDir().mkpath(mCarpeta); }
    ~FabricaCarpeta() {
        QFile::setPermissions(mCarpeta, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    // The handheld as a desktop backup of that user (<user>/Backup).
    void ComoRespaldoDe(const QString& xUsuario, const QString& xRespaldo = "Backup") {
        mCarpeta = mRaiz.filePath(xUsuario + QLatin1Char('/') + xRespaldo);
        QDir().mkpath(mCarpeta);
    }
    QString NombreHandheld() const { return QDir(mCarpeta).dirName(); }

    void Poner(const QString& xArchivo, const QByteArray& xBytes) {
        modPrueba::Poner(Ruta(xArchivo), xBytes);
        mPuestos.append(xArchivo);
    }
    void Poner(const QString& xArchivo, const clsArchivoPDB& xBase) {
        Poner(xArchivo, xBase.Escribir());
    }
    void PonerAjustes(const QByteArray& xTexto) { Poner(QStringLiteral("Handheld.ini"), xTexto); }
    QByteArray Contenido(const QString& xArchivo) const { return modPrueba::Leer(Ruta(xArchivo)); }
    // Another program changes the database behind the source's back.
    void CambiarPorFuera(const QString& xArchivo, const clsArchivoPDB& xBase) {
        Poner(xArchivo, xBase);
    }
    // Another program rewrites bytes of the file in place, same size, and sets its time back, so
    // that only its content tells the change.
    void CambiarEnSuSitio(const QString& xArchivo, const QByteArray& xAntes,
                          const QByteArray& xDespues) {
        const qsizetype posicion = Contenido(xArchivo).indexOf(xAntes);
        ASSERT_GT(posicion, 0);
        const QDateTime hora = QFileInfo(Ruta(xArchivo)).lastModified();
        QFile archivo(Ruta(xArchivo));
        ASSERT_TRUE(archivo.open(QIODevice::ReadWrite));
        archivo.seek(posicion);
        archivo.write(xDespues);
        archivo.setFileTime(hora, QFileDevice::FileModificationTime);
    }
    void Quitar(const QString& xArchivo) { QFile::remove(Ruta(xArchivo)); }
    void HacerSoloLectura(const QString& xArchivo) {
        QFile::setPermissions(Ruta(xArchivo), QFile::ReadOwner | QFile::ReadGroup);
    }
    void HacerCarpetaSoloLectura() {
        QFile::setPermissions(mCarpeta, QFile::ReadOwner | QFile::ExeOwner);
    }
    // Files left beside the handheld's own: locks, temporary files.
    QStringList Sobrantes() const {
        QStringList archivos =
            QDir(mCarpeta).entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
        for (const QString& puesto : mPuestos)
            archivos.removeAll(puesto);
        return archivos;
    }

    std::shared_ptr<clsFuentePalm> Crear() { return std::make_shared<clsFuenteCarpeta>(mCarpeta); }
    std::shared_ptr<clsFuentePalm> CrearInaccesible() {
        return std::make_shared<clsFuenteCarpeta>(mRaiz.filePath(QStringLiteral("nowhere")));
    }
    static QStringList Avisos(const clsFuentePalm& xFuente) {
        return dynamic_cast<const clsFuenteCarpeta&>(xFuente).Avisos();
    }
    qint64 EspacioLibre() const { return QStorageInfo(mCarpeta).bytesAvailable(); }

    QString Ruta(const QString& xArchivo) const { return QDir(mCarpeta).filePath(xArchivo); }
    // The lock file a write of the database file xArchivo takes.
    QString Candado(const QString& xArchivo) const { return Ruta(xArchivo) + ".lock"; }
    // The file that holds a database: its own.
    QString Almacen(const QString& xArchivo) const { return Ruta(xArchivo); }

private:
    QTemporaryDir mRaiz;
    QString mCarpeta;
    QStringList mPuestos;
};
