#pragma once

#include <QString>

class frmInicio;

// Start-up of the program.
namespace modMain {
// The handheld folder to open: the one named (xNombrada), else the working copy of the sample
// handheld. Raises ErrorVB when there is none.
QString CarpetaHandheld(const QString& xNombrada);
// Fills the error texts, opens the handheld of folder (or zip backup) xCarpeta, takes the desktop's
// regional settings and shows the frame (which ends the program when it closes).
frmInicio* Main(const QString& xCarpeta);
} // namespace modMain
