#include "ParametrosBD.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"

using namespace Qt::StringLiterals;

namespace mostrador {

namespace {

/// `sentencia` but for the key with which it ends.
QVariant leido(Conexion &conexion, Sentencia sentencia, const QString &clave, const QVariant &defecto)
{
    try {
        Registros registros = conexion.Abrir(sentencia << Doblado(clave) << u"'");
        return !registros.siguiente() || registros.esNulo(0) ? defecto : registros.texto(0);
    } catch (const Error &) {
        return defecto; // the suite's own database has no such tables
    }
}

} // namespace

QVariant ParametrosBD::GetParametro_App(const QString &clave, const QVariant &defecto) const
{
    return leido(m_conexion, Sentencia(u"SELECT Valor FROM Parametros_App WHERE Clave ='"), clave, defecto);
}

QVariant ParametrosBD::GetParametro_Usuario(const QString &clave, const QVariant &defecto) const
{
    if (!m_empresa)
        throw errores::sinEmpresa();
    Sentencia sentencia(u"SELECT Valor FROM Parametros_Usuario WHERE Usuario ='");
    sentencia << Doblado(m_empresa->Valor(u"UsuarioActual"_s)) << u"' AND Clave ='";
    return leido(m_conexion, sentencia, clave, defecto);
}

} // namespace mostrador
