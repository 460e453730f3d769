#pragma once

#include "device/modTextosInformacion.h"

#include <QDialog>
#include <QHash>
#include <QList>
#include <QString>
#include <memory>

class QLabel;
class QTabWidget;
class clsPalmInformation;

// What the handheld reports about its memory card and its user, read once when the window is
// made. Nothing in it can be changed. When the handheld cannot be read the window says so once
// and opens with what it had read by then.
class frmInformacion : public QDialog {
    Q_OBJECT
public:
    explicit frmInformacion(QWidget* parent = nullptr);
    ~frmInformacion() override;

    void done(int xResultado) override;

private:
    struct Campo {
        const char* Titulo;
        const char* Nombre;
        const char* TextoInicial;
    };

    void CrearControles();
    // A tab page holding the frame "Information" with the fields.
    QWidget* CrearPagina(const QString& xMarco, const QList<Campo>& xCampos);
    void Form_Load();
    void LlenarTarjeta();
    void LlenarUsuario();
    void Mostrar(const QList<modTextosInformacion::TextoInformacion>& xTextos);

    QTabWidget* stabInformacion = nullptr;
    QHash<QString, QLabel*> mValores; // value label by caption
    std::unique_ptr<clsPalmInformation> mInformacion;
};
