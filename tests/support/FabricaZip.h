#pragma once

#include "data/zip/clsFuenteZip.h"
#include "support/FabricaCarpeta.h"
#include "support/modZipPrueba.h"

#include <QMap>

// A handheld that is a zip backup in a temporary directory: every change the test makes rewrites
// the archive whole, as another program would.
class FabricaZip {
public:
    FabricaZip() : mArchivo(mRaiz.filePath(QStringLiteral("Palm.zip"))) { Guardar(); }
    ~FabricaZip() {
        QFile::setPermissions(QFileInfo(mArchivo).absolutePath(),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    // The handheld as a desktop backup of that user (<user>/Backup.zip).
    void ComoRespaldoDe(const QString& xUsuario, const QString& xRespaldo = "Backup") {
        QDir().mkpath(mRaiz.filePath(xUsuario));
        mArchivo = mRaiz.filePath(xUsuario + QLatin1Char('/') + xRespaldo + QStringLiteral(".zip"));
        Guardar();
    }
    QString NombreHandheld() const { return QFileInfo(mArchivo).completeBaseName(); }

    void Poner(const QString& xArchivo, const QByteArray& xBytes) {
        Leer();
        mEntradas[xArchivo] = xBytes;
        Guardar();
    }
    void Poner(const QString& xArchivo, const clsArchivoPDB& xBase) {
        Poner(xArchivo, xBase.Escribir());
    }
    void PonerAjustes(const QByteArray& xTexto) { Poner(QStringLiteral("Handheld.ini"), xTexto); }
    QByteArray Contenido(const QString& xArchivo) {
        Leer();
        return mEntradas.value(xArchivo);
    }
    void CambiarPorFuera(const QString& xArchivo, const clsArchivoPDB& xBase) {
        Poner(xArchivo, xBase);
    }
    // Another program rewrites the archive with the same size and sets its time back.
    void CambiarEnSuSitio(const QString& xArchivo, const QByteArray& xAntes,
                          const QByteArray& xDespues) {
        Leer();
        const QDateTime hora = QFileInfo(mArchivo).lastModified();
        ASSERT_GT(mEntradas[xArchivo].indexOf(xAntes), 0);
        mEntradas[xArchivo].replace(xAntes, xDespues);
        Guardar();
        QFile archivo(mArchivo);
        ASSERT_TRUE(archivo.open(QIODevice::ReadWrite));
        archivo.setFileTime(hora, QFileDevice::FileModificationTime);
    }
    void Quitar(const QString& xArchivo) {
        Leer();
        mEntradas.remove(xArchivo);
        Guardar();
    }
    void HacerSoloLectura(const QString&) {
        QFile::setPermissions(mArchivo, QFile::ReadOwner | QFile::ReadGroup);
    }
    void HacerCarpetaSoloLectura() {
        QFile::setPermissions(QFileInfo(mArchivo).absolutePath(),
                              QFile::ReadOwner | QFile::ExeOwner);
    }
    QStringList Sobrantes() const {
        QStringList archivos =
            QFileInfo(mArchivo).dir().entryList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
        archivos.removeAll(QFileInfo(mArchivo).fileName());
        return archivos;
    }

    // Any write to the archive takes its lock file.
    QString Candado(const QString&) const { return mArchivo + ".lock"; }

    std::shared_ptr<clsFuentePalm> Crear() { return std::make_shared<clsFuenteZip>(mArchivo); }
    std::shared_ptr<clsFuentePalm> CrearInaccesible() {
        return std::make_shared<clsFuenteZip>(mRaiz.filePath(QStringLiteral("nowhere.zip")));
    }
    static QStringList Avisos(const clsFuentePalm& xFuente) {
        return FabricaCarpeta::Avisos(xFuente);
    }
    qint64 EspacioLibre() const { return QStorageInfo(mRaiz.path()).bytesAvailable(); }
    // The file that holds a database: the archive.
    QString Almacen(const QString&) const { return mArchivo; }

private:
    // The entries as the archive holds them now: the source under test may have rewritten it.
    void Leer() {
        mEntradas.clear();
        for (const auto& [nombre, bytes] : modZipPrueba::Leer(mArchivo))
            mEntradas.insert(nombre, bytes);
    }
    void Guardar() {
        modZipPrueba::Entradas entradas;
        for (auto i = mEntradas.cbegin(); i != mEntradas.cend(); ++i)
            entradas.append({i.key(), i.value()});
        ASSERT_TRUE(modZipPrueba::GuardarZip(mArchivo, entradas));
    }

    QTemporaryDir mRaiz;
    QString mArchivo;
    QMap<QString, QByteArray> mEntradas;
};
