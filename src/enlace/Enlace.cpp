#include "barcodes/frmCodBarra_Datos.h"
#include "control/Dialogos.h"
#include "creation/frmArticulos_Creacion.h"
#include "dialogs/frmPLUs.h"
#include "dialogs/frmReferencia_Articulos.h"
#include "dialogs/frmReferencias_Modificar.h"
#include "nvArticulo/cEmpresa.h"
#include "search/Fabrica.h"

namespace nv {

namespace {

/// The forms behind the component. Every form is made for the call and gone when it returns.
class DialogosDelSistema final : public Dialogos
{
public:
    DialogoPropio<ContratoBusqueda> crearBusqueda(qint16 modelo, QWidget *padre) override
    {
        return crearDialogoBusqueda(modelo, padre);
    }

    qint32 elegirReferencia(QWidget *padre, ::cEmpresa &empresa, const QString &referencia, qint32 proveedor,
                            bool refProveedor) override
    {
        const DialogoPropio<frmReferencia_Articulos> lista(new frmReferencia_Articulos(padre));
        lista->EmpresaArticulos = empresa.CodigoArticulos();
        lista->EmpresaProveedores = empresa.CodigoProveedores();
        lista->Referencia = referencia;
        lista->Proveedor = proveedor;
        lista->RefProveedor = refProveedor;
        lista->MostrarModal();
        return lista.vivo() ? lista->Codigo : -1;
    }

    qint32 elegirPlu(QWidget *padre, ::cEmpresa &empresa, qint32 plu) override
    {
        const DialogoPropio<frmPLUs> lista(new frmPLUs(padre));
        lista->cEmpresa = &empresa;
        lista->Plu = plu;
        lista->MostrarModal();
        return lista.vivo() ? lista->Codigo : -1;
    }

    void pedirCodigoBarras(QWidget *padre, const Servicios &servicios, const DatosCodigoBarras &datos,
                           const AlAceptar<DatosCodigoBarras> &alAceptar) override
    {
        const DialogoPropio<frmCodBarra_Datos> forma(new frmCodBarra_Datos(padre));
        forma->cEmpresa = servicios.empresa;
        forma->Parametros = servicios.parametros;
        forma->Comprobador = servicios.comprobador;
        forma->Articulo = datos.Articulo;
        forma->CodBarras = datos.CodBarras;
        forma->AlAceptar = [&](frmCodBarra_Datos &f) { return alAceptar(&f, {f.Articulo, f.CodBarras}); };
        forma->MostrarModal();
    }

    void pedirReferencia(QWidget *padre, const Servicios &servicios, const DatosReferencia &datos,
                         const AlAceptar<DatosReferencia> &alAceptar) override
    {
        const DialogoPropio<frmReferencias_Modificar> forma(new frmReferencias_Modificar(padre));
        forma->cEmpresa = servicios.empresa;
        forma->Parametros = servicios.parametros;
        forma->Comprobador = servicios.comprobador;
        forma->Articulo = datos.Articulo;
        forma->Proveedor = datos.Proveedor;
        forma->Referencia = datos.Referencia;
        forma->AlAceptar = [&](frmReferencias_Modificar &f) {
            return alAceptar(&f, {f.Articulo, f.Proveedor, f.Referencia});
        };
        forma->MostrarModal();
    }

    bool crearArticulo(QWidget *padre, ::cEmpresa &empresa, Conexion &conexion, DatosCreacion &datos) override
    {
        const DialogoPropio<frmArticulos_Creacion> forma(new frmArticulos_Creacion(padre));
        forma->Conexion = &conexion;
        forma->cEmpresa = &empresa;
        static_cast<DatosCreacion &>(*forma) = datos;
        forma->MostrarModal();
        if (!forma.vivo() || !forma->Aceptado)
            return false;
        datos = *forma;
        return true;
    }
};

} // namespace

std::unique_ptr<Dialogos> crearDialogos()
{
    return std::make_unique<DialogosDelSistema>();
}

} // namespace nv
