#pragma once

#include <QDialog>

// The notice shown for a choice whose function is not built yet.
class frmMensajeConstruccion : public QDialog {
    Q_OBJECT
public:
    explicit frmMensajeConstruccion(QWidget* parent = nullptr);
};
