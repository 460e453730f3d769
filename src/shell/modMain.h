#pragma once

#include <QString>

class frmInicio;

// Start-up of the program.
namespace modMain {
// The handheld folder to open: the one named (xNombrada), else the working copy of the sample
// handheld. Raises ErrorVB when there is none.
QString CarpetaHandheld(const QString& xNombrada);
// Fills the error texts, opens the handheld xHandheld (a folder or a zip backup), takes the
// desktop's regional settings and shows the frame (which ends the program when it closes). A
// .pdb or .prc file opens its folder and an explorer with that database chosen.
frmInicio* Main(const QString& xHandheld);
} // namespace modMain
