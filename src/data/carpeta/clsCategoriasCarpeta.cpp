#include "data/carpeta/clsCategoriasCarpeta.h"

#include "common/ErrorVB.h"
#include "data/formato/clsLectorBytes.h"

#include <QStringDecoder>

namespace {
constexpr int LargoNombre = 16;
} // namespace

clsCategoriasCarpeta::clsCategoriasCarpeta(QByteArrayView xAppInfo, const QString& xCodigoPagina) {
    clsLectorBytes lector(xAppInfo);
    quint16 renombradas = 0;
    if (!lector.LeerU16(renombradas) || lector.Restantes() < Cantidad * LargoNombre) return;
    QStringDecoder decodificador(xCodigoPagina.toLatin1().constData(),
                                 QStringDecoder::Flag::Stateless);
    for (int i = 0; i < Cantidad; ++i) {
        QByteArrayView campo;
        if (!lector.LeerBytes(LargoNombre, campo)) return;
        const qsizetype fin = campo.indexOf('\0');
        mNombres.append(decodificador.decode(fin < 0 ? campo : campo.first(fin)));
    }
}

qint32 clsCategoriasCarpeta::CantidadCategorias() const {
    for (qint32 cantidad = static_cast<qint32>(mNombres.size()); cantidad > 0; --cantidad)
        if (!mNombres[cantidad - 1].isEmpty()) return cantidad;
    return 0;
}

QString clsCategoriasCarpeta::NombreCategoria(qint32 xIndice) const {
    if (xIndice < 0 || xIndice >= Cantidad)
        throw ErrorVB::SubscriptOutOfRange(QStringLiteral("NombreCategoria"));
    return xIndice < mNombres.size() ? mNombres[xIndice] : QString();
}
