#include "common/clsConfig.h"

#include "common/Conexion.h"
#include "common/Error.h"

using namespace Qt::StringLiterals;

namespace NVUTConfig {

namespace {

QVariant leido(const nv::Sentencia &sentencia, const QVariant &defecto)
{
    nv::Registros registros = nv::ranura::exigida().Abrir(sentencia);
    if (!registros.siguiente() || registros.esNulo(0))
        return defecto;
    return registros.texto(0);
}

} // namespace

QVariant clsConfig::GetParametro_App(const QString &clave, const QVariant &defecto) const
{
    nv::Sentencia sentencia(u"SELECT Valor FROM Parametros_App WHERE Clave ='");
    sentencia << nv::Doblado(clave) << u"'";
    return leido(sentencia, defecto);
}

QVariant clsConfig::GetParametro_Usuario(const QString &clave, const QVariant &defecto) const
{
    if (!m_empresa)
        throw nv::Error{nv::errores::SinObjeto, u"No se ha establecido la empresa."_s, {}};
    nv::Sentencia sentencia(u"SELECT Valor FROM Parametros_Usuario WHERE Usuario ='");
    sentencia << nv::Doblado(m_empresa->Valor(u"UsuarioActual"_s)) << u"' AND Clave ='" << nv::Doblado(clave) << u"'";
    return leido(sentencia, defecto);
}

} // namespace NVUTConfig
