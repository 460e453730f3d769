#pragma once

#include <QDialog>

class QLabel;
class QTimer;

// The about window: the product, its version and the maker's contacts. It closes itself when its
// clock ticks (after 4 seconds as the about window) or at any key; a click does not close it.
class frmSplash : public QDialog {
    Q_OBJECT
public:
    // The maker's contacts.
    static constexpr const char* CorreoVentas = "sales@pandrel.example";
    static constexpr const char* SitioWeb = "www.pandrel.example";
    static constexpr int IntervaloAcercaDe = 4000; // ms
    static constexpr int IntervaloInicio = 2000;   // ms

    explicit frmSplash(QWidget* parent = nullptr);

    // Call before showing: true when the window opens as the about window.
    void Parametros(bool xAcercaDe);

protected:
    void showEvent(QShowEvent* xEvento) override;
    void keyPressEvent(QKeyEvent* xEvento) override;
    bool eventFilter(QObject* xObjeto, QEvent* xEvento) override;

private:
    void CrearControles();
    void Form_Load();
    void tmrReloj_Timer();

    QLabel* lblMail = nullptr;
    QLabel* lblWebSite = nullptr;
    QTimer* tmrReloj = nullptr;
    bool mAcercaDe = false;
    bool mCargada = false;
};
