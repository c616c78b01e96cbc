#include "support/doble/BaseSuite.h"

#include "platform/datos/Motores.h"

using namespace Qt::StringLiterals;

namespace nv::doble {

void Tablas::anotar(const QString &tabla, const std::vector<Columna> &columnas)
{
    const std::lock_guard guarda(m_cerrojo);
    m_columnas.insert(tabla, columnas);
}

std::vector<Columna> Tablas::de(const QString &tabla) const
{
    const std::lock_guard guarda(m_cerrojo);
    return m_columnas.value(tabla);
}

BaseSuite::BaseSuite(const QString &ruta)
    : m_ruta(ruta)
{
    const std::unique_ptr<Conexion> conexion = conectar();
    Registros disparadores =
        conexion->Abrir(Sentencia(u"SELECT tbl_name, sql FROM sqlite_master WHERE type = 'trigger'"));
    while (disparadores.siguiente())
        m_disparadores[disparadores.texto(0).toLower()].push_back(disparadores.texto(1));
    // The engine's own tables stay: they are no part of the suite's schema.
    Registros tablas = conexion->Abrir(Sentencia(u"SELECT name FROM sqlite_master WHERE type = 'table' AND"
                                                 u" name NOT LIKE 'nv_%' AND name NOT LIKE 'sqlite_%'"));
    Transaccion transaccion(*conexion);
    while (tablas.siguiente())
        conexion->Ejecutar(Sentencia::deConsola(u"DROP TABLE "_s + tablas.texto(0)));
    transaccion.confirmar();
}

std::unique_ptr<Conexion> BaseSuite::conectar() const
{
    return datos::abrirEmbebida(m_ruta);
}

void BaseSuite::completar(Conexion &conexion, const QString &tabla) const
{
    for (const QString &disparador : m_disparadores.value(tabla))
        conexion.Ejecutar(Sentencia::deConsola(disparador));
}

} // namespace nv::doble
