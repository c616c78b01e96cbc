#include "nvArticulo/EmpresaBD.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"

using namespace Qt::StringLiterals;

namespace nv {

EmpresaBD::EmpresaBD(Conexion &conexion, qint16 codigo)
    : m_conexion(conexion)
    , m_codigo(codigo)
{}

const EmpresaBD::Ficha &EmpresaBD::ficha() const
{
    if (m_ficha)
        return *m_ficha;
    Sentencia sentencia(
        u"SELECT Nombre, Cod_Empresa_Articulos, Cod_Empresa_Proveedores, Cod_Empresa_Clientes, "
        u"Nombre_Familia_1, Nombre_Familia_2, Nombre_Familia_3, Nombre_CualidadX, Nombre_CualidadY, "
        u"Nombre_Alternativo1, OrdenCualidades, DecimalesPvp, DirInformes FROM Empresas WHERE Codigo =");
    sentencia << m_codigo;
    Registros registros = m_conexion.Abrir(sentencia);
    if (!registros.siguiente())
        throw Error{0, u"La empresa %1 no existe."_s.arg(m_codigo), u"EmpresaBD"_s};
    // A company without masters of its own shares none: it is its own master.
    Ficha leida{registros.textoO(u"Nombre"),
                registros.entero16O(u"Cod_Empresa_Articulos", m_codigo),
                registros.entero16O(u"Cod_Empresa_Proveedores", m_codigo),
                registros.entero16O(u"Cod_Empresa_Clientes", m_codigo),
                {registros.textoO(u"Nombre_Familia_1"), registros.textoO(u"Nombre_Familia_2"),
                 registros.textoO(u"Nombre_Familia_3")},
                {registros.textoO(u"Nombre_CualidadX"), registros.textoO(u"Nombre_CualidadY")},
                registros.textoO(u"Nombre_Alternativo1"),
                registros.entero16O(u"OrdenCualidades", 0) != 0,
                registros.entero16O(u"DecimalesPvp", 2),
                registros.textoO(u"DirInformes")};
    m_ficha = std::move(leida);
    return *m_ficha;
}

QString EmpresaBD::NombreFamilia(int nivel) const
{
    return nivel >= 0 && nivel < 3 ? ficha().familias[static_cast<std::size_t>(nivel)] : QString();
}

QString EmpresaBD::NombreCualidad(int eje) const
{
    return eje >= 0 && eje < 2 ? ficha().cualidades[static_cast<std::size_t>(eje)] : QString();
}

EmpresaBD::Impuesto EmpresaBD::impuesto(qint16 tipo) const
{
    if (!m_impuestos) {
        QHash<qint16, Impuesto> leidos;
        Registros registros =
            m_conexion.Abrir(Sentencia(u"SELECT Codigo, Porcentaje, Porcentaje2 FROM Tipos_Impuesto"));
        while (registros.siguiente())
            leidos.insert(registros.entero16(u"Codigo"),
                          {registros.monedaO(u"Porcentaje"), registros.monedaO(u"Porcentaje2")});
        m_impuestos = std::move(leidos);
    }
    return m_impuestos->value(tipo);
}

QHash<QString, QString> &EmpresaBD::valores() const
{
    if (!m_valores) {
        QHash<QString, QString> leidos;
        Sentencia sentencia(u"SELECT Clave, Valor FROM Parametros_Empresa WHERE Cod_Empresa =");
        sentencia << m_codigo;
        Registros registros = m_conexion.Abrir(sentencia);
        while (registros.siguiente())
            leidos.insert(registros.texto(u"Clave").toLower(), registros.textoO(u"Valor"));
        m_valores = std::move(leidos);
    }
    return *m_valores;
}

QString EmpresaBD::Valor(const QString &clave) const
{
    return valores().value(clave.toLower());
}

QDate EmpresaBD::Hoy() const
{
    return m_reloj ? m_reloj() : cEmpresa::Hoy();
}

void EmpresaBD::Recargar()
{
    m_ficha.reset();
    m_valores.reset();
    m_impuestos.reset();
}

void EmpresaBD::PonerValor(const QString &clave, const QString &valor)
{
    QHash<QString, QString> &conocidos = valores();
    Sentencia cambio(u"UPDATE Parametros_Empresa SET Valor ='");
    cambio << Doblado(valor) << u"' WHERE Cod_Empresa =" << m_codigo << u" AND Clave ='" << Doblado(clave) << u"'";
    if (m_conexion.Ejecutar(cambio) == 0) {
        Sentencia alta(u"INSERT INTO Parametros_Empresa (Cod_Empresa, Clave, Valor) VALUES (");
        alta << m_codigo << u", '" << Doblado(clave) << u"', '" << Doblado(valor) << u"')";
        m_conexion.Ejecutar(alta);
    }
    conocidos.insert(clave.toLower(), valor);
}

} // namespace nv
