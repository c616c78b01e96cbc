#include "dialogs/frmPLUs.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"

using namespace Qt::StringLiterals;

namespace {

enum Columna { Departamento, Codigo, Descripcion };

nv::Sentencia articulosDePlu(qint16 empresa, qint16 empresaArticulos, qint32 plu)
{
    nv::Sentencia sentencia(u"SELECT b.Codigo, b.Descripcion, c.Nombre"
                            u" FROM Balanzas_Articulos a INNER JOIN Articulos b"
                            u" ON b.Cod_Empresa =");
    sentencia << empresaArticulos << u" AND a.Cod_Articulo = b.Codigo"
              << u" INNER JOIN Balanzas_Dptos c"
                 u" ON a.Cod_Empresa = c.Cod_Empresa AND a.Dpto = c.Codigo"
                 u" WHERE a.Cod_Empresa ="
              << empresa << u" AND a.Plu =" << plu;
    return sentencia;
}

} // namespace

frmPLUs::frmPLUs(QWidget *padre)
    : ListaEleccion(padre, u"PLU:"_s, {{u"Dpto", 1500}, {u"Código", 1000}, {u"Descripción"}}, ::Codigo)
{}

void frmPLUs::llenar()
{
    nv::Registros registros =
        nv::ranura::exigida().Abrir(articulosDePlu(cEmpresa->Codigo(), cEmpresa->CodigoArticulos(), Plu));
    while (registros.siguiente())
        rejilla()->anadir({registros.textoO(u"Nombre"), registros.texto(u"Codigo"), registros.textoO(u"Descripcion")});
}

QString frmPLUs::nombreCarga() const
{
    return u"frmPLUs:Cargar_Articulos"_s;
}
