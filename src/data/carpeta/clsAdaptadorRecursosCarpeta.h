#pragma once

#include "data/carpeta/clsBaseAbierta.h"
#include "data/clsFuentePalm.h"

#include <memory>

// The resource adapter of one resource database (an application) of the folder.
class clsAdaptadorRecursosCarpeta : public clsAdaptadorRecursos {
public:
    explicit clsAdaptadorRecursosCarpeta(std::unique_ptr<clsBaseAbierta> xBase);

    qint32 CantidadRecursos() override;
    // Raises RegistroNoEncontrado outside 0 .. CantidadRecursos() - 1.
    RecursoPalm LeerRecurso(qint32 xIndice) override;

private:
    std::unique_ptr<clsBaseAbierta> mBase;
};
