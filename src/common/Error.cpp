#include "nvArticulo/Error.h"

using namespace Qt::StringLiterals;

namespace nv {

const char *Error::what() const noexcept
{
    try {
        m_utf8 = descripcion.toUtf8();
        return m_utf8.constData();
    } catch (...) {
        return "";
    }
}

namespace errores {

Error desbordamiento(const QString &valor)
{
    constexpr qsizetype Legible = 40; // characters
    const QString visto = valor.size() > Legible ? valor.first(Legible) + u'…' : valor;
    return {Desbordamiento, u"El número %1 se sale de lo que cabe."_s.arg(visto)};
}

Error noCoinciden()
{
    return {NoCoinciden, u"No coinciden los tipos."_s};
}

Error sinEmpresa()
{
    return {SinObjeto, u"No se ha establecido la empresa."_s};
}

Error conexionCerrada()
{
    return {ConexionCerrada, u"La conexión con la base de datos está cerrada."_s};
}

Error sinModelo(const QString &modelo)
{
    return {0,
            u"El modelo de búsqueda %1 no existe. Revise el parámetro BusquedaArticulos de la empresa."_s.arg(modelo)};
}

Error sinConexion()
{
    return {SinObjeto, u"No se ha establecido la conexión con la base de datos."_s};
}

} // namespace errores

} // namespace nv
