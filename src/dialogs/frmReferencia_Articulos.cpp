#include "dialogs/frmReferencia_Articulos.h"

#include "nvArticulo/Conexion.h"

using namespace Qt::StringLiterals;

namespace {

enum Columna { Codigo, Descripcion, Proveedor };

nv::Sentencia porProveedor(qint16 empresaProveedores, qint16 empresaArticulos, const QString &referencia,
                           qint32 proveedor)
{
    nv::Sentencia sentencia(u"SELECT b.Codigo, b.Descripcion,Prov.Codigo AS Cod_Prove,Prov.Nombre"
                            u" FROM Articulos_Ref a INNER JOIN Articulos b"
                            u" ON a.Cod_Empresa = b.Cod_Empresa AND a.Cod_Articulo = b.Codigo"
                            u" INNER JOIN Proveedores Prov"
                            u" ON Prov.Cod_Empresa =");
    sentencia << empresaProveedores << u" AND Prov.Codigo = a.Cod_Prov" << u" WHERE a.Cod_Empresa =" << empresaArticulos
              << u" AND a.Ref ='" << nv::Doblado(referencia) << u"'";
    if (proveedor != 0)
        sentencia << u" AND a.Cod_Prov =" << proveedor;
    return sentencia;
}

nv::Sentencia porCliente(qint16 empresaArticulos, const QString &referencia)
{
    nv::Sentencia sentencia(u"SELECT b.Codigo, b.Descripcion"
                            u" FROM Articulos_RefCli a INNER JOIN Articulos b"
                            u" ON a.Cod_Empresa = b.Cod_Empresa And a.Cod_Articulo = b.Codigo"
                            u" WHERE a.Cod_Empresa =");
    return sentencia << empresaArticulos << u" AND a.Ref ='" << nv::Doblado(referencia) << u"'";
}

/// The supplier's code in the pattern ######: nothing for 0.
QString textoProveedor(qint32 codigo, const QString &nombre)
{
    return (codigo == 0 ? QString() : QString::number(codigo)) + u'-' + nombre;
}

} // namespace

frmReferencia_Articulos::frmReferencia_Articulos(QWidget *padre)
    : ListaEleccion(padre, u"Referencia:"_s,
                    {{u"Código", 1500, Qt::AlignLeft}, {u"Descripción", 4000}, {u"Proveedor", 3000}}, ::Codigo)
{
    rejilla()->setElastica(::Descripcion);
}

void frmReferencia_Articulos::Cargar_Articulos()
{
    rejilla()->setColumnaOculta(::Proveedor, !RefProveedor);
    nv::Registros registros = nv::ranura::exigida().Abrir(
        RefProveedor ? porProveedor(EmpresaProveedores, EmpresaArticulos, Referencia, Proveedor)
                     : porCliente(EmpresaArticulos, Referencia));
    while (registros.siguiente()) {
        nv::FilaRejilla fila{registros.texto(u"Codigo"), registros.textoO(u"Descripcion"), {}};
        if (RefProveedor)
            fila[::Proveedor] = textoProveedor(registros.entero32(u"Cod_Prove"), registros.textoO(u"Nombre"));
        rejilla()->anadir(std::move(fila));
    }
}

QString frmReferencia_Articulos::nombreCarga() const
{
    return u"frmReferencia_Articulos:Cargar_Articulos"_s;
}
