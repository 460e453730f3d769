#pragma once

#include <QString>

// The bundled sample handheld. The program and pandrel-cli open a working copy of it in the user's
// data folder when no handheld is named, so the bundled sample itself is never changed.
namespace modMuestra {
// The bundled sample: "sample" beside the executable (or in the build tree). "" when absent.
QString CarpetaMuestra();
// The working copy, made on first use from the bundled sample. Raises ErrorVB when it cannot be
// made.
QString CarpetaDeTrabajo();
} // namespace modMuestra
