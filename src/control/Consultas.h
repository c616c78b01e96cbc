#pragma once

#include <QString>
#include <optional>

class QWidget;
class cEmpresa;

namespace nv {

class Conexion;
class Dialogos;

/// The lookups of the item box: one 32-bit result each, the item code (> 0), 0 when nothing matched, -1 when the user
/// cancelled a choice. Lives as long as one resolution; borrows everything. Every operation throws Error.
class Consultas
{
public:
    Consultas(Conexion &conexion, ::cEmpresa &empresa, Dialogos &dialogos, QWidget *padre)
        : m_conexion(conexion)
        , m_empresa(empresa)
        , m_dialogos(dialogos)
        , m_padre(padre)
    {}

    /// `Articulos_Ref`, of every supplier when `proveedor` is 0. Several matches open the matches list.
    qint32 referenciaProveedor(const QString &referencia, qint32 proveedor);
    /// `Articulos_RefCli`. With a customer never a list.
    qint32 referenciaCliente(const QString &referencia, qint32 cliente);
    /// `Articulos_CBarras`.
    qint32 codigoBarras(const QString &codigoBarras);
    /// `Balanzas_Articulos`, counted under the item-master company; the PLU on several scales opens the choice list.
    qint32 plu(qint32 plu);

    /// `Articulos.Descripcion` of the item whose code is `codigo` (decimal text of any length). A null description is an
    /// Error.
    std::optional<QString> descripcion(const QString &codigo);

    struct NombresCualidades
    {
        QString x;
        QString y;
    };
    /// Names of an item's quality values (`Articulos`, `Cualidades_Des`); nothing when one of them is not defined.
    std::optional<NombresCualidades> cualidades(qint32 articulo, qint16 x, qint16 y);

    /// Whether the company lets its users create what is missing: `Empresas.NoProcesarPermisosControles`, or no row for
    /// the control in `SGD_Controles_Grupos` (a row denies). `control`: 8 barcodes, 19 supplier references.
    bool permisoCrear(int control);

private:
    Conexion &m_conexion;
    ::cEmpresa &m_empresa;
    Dialogos &m_dialogos;
    QWidget *m_padre;
};

} // namespace nv
