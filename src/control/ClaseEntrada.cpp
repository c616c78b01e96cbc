#include "control/ClaseEntrada.h"

#include "common/Valores.h"

namespace nv {

namespace {

/// Characters `primero` (from 1) to `primero + cuantos - 1`, as far as they exist.
QStringView trozo(QStringView texto, qsizetype primero, qsizetype cuantos)
{
    return texto.mid(primero - 1, cuantos);
}

} // namespace

ClaseEntrada clasificada(QStringView entrada)
{
    if (entrada.isEmpty())
        return ClaseEntrada::Nada;
    switch (entrada.front().unicode()) {
    case u'.':
        return ClaseEntrada::ReferenciaProveedor;
    case u'*':
        return ClaseEntrada::ReferenciaCliente;
    case u'+':
        return ClaseEntrada::Plu;
    case u'/':
    case u'-':
        return ClaseEntrada::CodigoBarras;
    default:
        break;
    }
    if (esNumerico(entrada))
        return entrada.size() > 7 ? ClaseEntrada::NumeroLargo : ClaseEntrada::NumeroCorto;
    return entrada.size() > 2 ? ClaseEntrada::Descripcion : ClaseEntrada::Nada;
}

CodigoConCualidades codigoConCualidades(QStringView entrada, bool xPrimero)
{
    const qint16 primera = ValEntero16(trozo(entrada, 9, 2));
    const qint16 segunda = ValEntero16(trozo(entrada, 11, 2));
    return {ValEntero32(trozo(entrada, 1, 8)), xPrimero ? primera : segunda, xPrimero ? segunda : primera};
}

bool esCodigoDeTienda(QStringView entrada)
{
    const double prefijo = Val(trozo(entrada, 1, 2));
    return prefijo >= 20 && prefijo <= 29;
}

QString articuloDeTienda(QStringView entrada)
{
    return ValTexto(trozo(entrada, 3, 5));
}

} // namespace nv
