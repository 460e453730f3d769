#include "common/modRecientes.h"
#include "constructor/clsConstructorBase.h"
#include "constructor/modHandheldEstandar.h"
#include "data/carpeta/clsFuenteCarpeta.h"
#include "data/modHandheld.h"
#include "data/zip/clsFuenteZip.h"
#include "explorer/ventanas/frmPandrel.h"
#include "shell/frmInicio.h"
#include "shell/modMain.h"
#include "support/modZipPrueba.h"
#include "support/ventanas/clsPruebaVentana.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QSettings>
#include <memory>

namespace {

// The folder handheld, noting what the frame showed when an explorer began to read it.
class clsFuenteObservada : public clsFuenteCarpeta {
public:
    clsFuenteObservada(const QString& xCarpeta, std::function<void()> xAlLeer)
        : clsFuenteCarpeta(xCarpeta), mAlLeer(std::move(xAlLeer)) {}
    std::unique_ptr<clsGestorBases> CrearGestor() override {
        mAlLeer();
        return clsFuenteCarpeta::CrearGestor();
    }

private:
    std::function<void()> mAlLeer;
};

class frmInicioTest : public clsPruebaVentana {
protected:
    void SetUp() override {
        clsPruebaVentana::SetUp();
        mCarpeta = clsPruebaVentana::mCarpeta.path();
        clsConstructorBase clientes("Clients", "DATA", "AFa1");
        clientes.EsquemaAppForge("Clients", {{"Name", clsConstructorBase::String}});
        clientes.Guardar(mCarpeta + "/Clients.pdb");
        modHandheld::EstablecerFuente(
            std::make_shared<clsFuenteObservada>(mCarpeta, [this] { Observar(); }));
        mInicio = new frmInicio;
        mInicio->show();
    }
    void TearDown() override {
        delete mInicio.data();
        clsPruebaVentana::TearDown();
    }

    void Observar() {
        if (mInicio)
            Vistos << QStringLiteral("%1|%2").arg(Mensaje()).arg(mInicio->cursor().shape());
    }
    QString Mensaje() const { return Texto(mInicio, "Mensaje"); }
    QAction* Menu(const char* xNombre) const {
        QAction* item = mInicio->findChild<QAction*>(QString::fromLatin1(xNombre));
        EXPECT_NE(item, nullptr) << xNombre;
        return item;
    }
    QList<QMdiSubWindow*> Hijas() const { return mInicio->findChild<QMdiArea*>()->subWindowList(); }
    // Runs xAccion while every modal window that opens is closed; returns their class names.
    static QStringList ConModales(const std::function<void()>& xAccion) {
        modDialogosPrueba::clsModales modales;
        xAccion();
        return modales.Vistas;
    }

    QString mCarpeta;
    QPointer<frmInicio> mInicio;
    QStringList Vistos;
};

TEST_F(frmInicioTest, EachFileDebuggerCommandOpensAnotherExplorer) {
    mInicio->tlbOpciones_ButtonClick(mInicio->Boton("Archivos"));
    Menu("mnuFileDebugger")->trigger();
    ASSERT_EQ(Hijas().size(), 2);
    EXPECT_NE(Hijas()[0]->widget(), Hijas()[1]->widget());
    EXPECT_FALSE(qobject_cast<frmPandrel*>(Hijas()[1]->widget())->Ocupado());
    // While an explorer reads the handheld the frame says so with the hourglass; then it is clear.
    ASSERT_FALSE(Vistos.isEmpty());
    EXPECT_EQ(Vistos.first(), QStringLiteral("Analizyng Palm databases...|%1").arg(Qt::WaitCursor));
    EXPECT_EQ(Mensaje(), "");
    EXPECT_EQ(mInicio->cursor().shape(), Qt::ArrowCursor);
    EXPECT_FALSE(mInicio->findChild<QWidget*>("Progreso")->isVisible());
    EXPECT_TRUE(Mensajes.isEmpty());
}

TEST_F(frmInicioTest, InformationAboutAndTheNoticeOpenTheirWindowsModally) {
    struct Caso {
        std::function<void()> Accion;
        QString Ventana;
    };
    const Caso casos[] = {
        {[this] { Menu("mnuSystemInfo")->trigger(); }, "frmInformacion"},
        {[this] { mInicio->tlbOpciones_ButtonClick(mInicio->Boton("Informacion")); },
         "frmInformacion"},
        {[this] { Menu("mnuHelpAbout")->trigger(); }, "frmSplash"},
        // The explorer asks for the "under construction" notice; the frame shows it.
        {[this] {
             Menu("mnuFileDebugger")->trigger();
             emit qobject_cast<frmPandrel*>(Hijas().last()->widget())->AvisoConstruccion();
         },
         "frmMensajeConstruccion"},
    };
    for (const Caso& caso : casos)
        EXPECT_EQ(ConModales(caso.Accion), QStringList{caso.Ventana});
}

// Opening a backup asks before closing the explorers of the handheld open now; the new handheld
// becomes the current one and the first recent one, and its code page can be changed from the
// menu. A handheld that cannot be read is reported and the previous one stays.
TEST_F(frmInicioTest, TheHandheldMenuOpensABackupAfterClosingTheExplorers) {
    QTemporaryDir otra;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, otra.filePath("settings"));
    const QString zip = otra.filePath("Backup.zip");
    ASSERT_TRUE(modZipPrueba::GuardarZip(zip, modZipPrueba::DeCarpeta(mCarpeta)));
    QString elegido = zip;
    QStringList titulos;
    modDialogos::ResponderArchivos([&](const modDialogos::PeticionArchivo& xPeticion, QString*) {
        titulos << xPeticion.Titulo;
        return elegido;
    });
    Respuesta = QMessageBox::No;
    const auto previa = modHandheld::FuenteActual();

    Menu("mnuFileDebugger")->trigger();
    Menu("mnuHandheldArchive")->trigger();
    EXPECT_EQ(Hijas().size(), 1) << "No keeps the explorer and the handheld";
    EXPECT_EQ(modHandheld::FuenteActual(), previa);

    Respuesta = QMessageBox::Yes;
    Menu("mnuHandheldArchive")->trigger();
    EXPECT_EQ(Hijas().size(), 0);
    EXPECT_NE(dynamic_cast<clsFuenteZip*>(modHandheld::FuenteActual().get()), nullptr);
    EXPECT_EQ(modRecientes::Lista().value(0), zip);
    QCoreApplication::processEvents();
    EXPECT_TRUE(Menu("mnuHandheldRecent1")->text().endsWith(zip));
    EXPECT_TRUE(Menu("mnuHandheldRecent1")->isChecked());
    EXPECT_TRUE(Menu("mnuCodePage_windows-1252")->isChecked());

    Menu("mnuCodePage_Shift_JIS")->trigger();
    EXPECT_EQ(modHandheld::FuenteActual()->CodigoPagina(), "Shift_JIS");
    elegido = mCarpeta;
    Menu("mnuHandheldFolder")->trigger();
    EXPECT_EQ(dynamic_cast<clsFuenteCarpeta&>(*modHandheld::FuenteActual()).Carpeta(), mCarpeta);
    EXPECT_EQ(modRecientes::Lista().mid(0, 2), QStringList({mCarpeta, zip}));
    EXPECT_EQ(titulos,
              QStringList({"Open Backup Archive", "Open Backup Archive", "Open Handheld Folder"}));

    const auto carpeta = modHandheld::FuenteActual();
    elegido = otra.filePath("missing.zip");
    EXPECT_EQ(ConModales([&] { Menu("mnuHandheldArchive")->trigger(); }),
              QStringList{"frmMensajeError"});
    EXPECT_EQ(modHandheld::FuenteActual(), carpeta);
    EXPECT_EQ(Mensajes.size(), 2) << "only the openings with an explorer open ask";
}

// A database file given to the program opens its folder and an explorer with it chosen.
TEST_F(frmInicioTest, ADatabaseFileOpensItsFolderAndChoosesIt) {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, mCarpeta + "/settings");
    delete mInicio.data();
    mInicio = modMain::Main(mCarpeta + "/Clients.pdb");
    ASSERT_EQ(Hijas().size(), 1);
    EXPECT_EQ(Hijas()[0]->widget()->windowTitle(), "Explorer [Clients]");
    EXPECT_EQ(dynamic_cast<clsFuenteCarpeta&>(*modHandheld::FuenteActual()).Carpeta(), mCarpeta);
    EXPECT_TRUE(Mensajes.isEmpty());
}

// Export Standard Data writes a file per application into the folder chosen and says what it
// wrote; it asks before it replaces files there.
TEST_F(frmInicioTest, ExportStandardDataWritesTheHandheldsFilesAndSaysSo) {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, mCarpeta + "/settings");
    modHandheldEstandar::Guardar(mCarpeta);
    mInicio->TomarHandheld(mCarpeta);
    QCoreApplication::processEvents();
    QTemporaryDir destino;
    modDialogos::ResponderArchivos(
        [&](const modDialogos::PeticionArchivo&, QString*) { return destino.path(); });
    Menu("mnuHandheldExport")->trigger();
    ASSERT_EQ(Mensajes.size(), 1);
    EXPECT_TRUE(Mensajes[0].Texto.startsWith("Written to " + destino.path() + ":\n\ncontacts.vcf"));
    EXPECT_EQ(QDir(destino.path()).entryList(QDir::Files).size(), 4);

    QFile::remove(destino.filePath("calendar.ics"));
    Respuesta = QMessageBox::No;
    Menu("mnuHandheldExport")->trigger();
    EXPECT_EQ(Mensajes.value(1).Texto,
              "The folder already holds contacts.vcf, todos.ics, memos.csv. Replace them?");
    EXPECT_EQ(Mensajes.size(), 2);
    EXPECT_FALSE(QFile::exists(destino.filePath("calendar.ics")));
}

} // namespace
