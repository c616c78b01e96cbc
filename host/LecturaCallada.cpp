#include "LecturaCallada.h"

#include "Base.h"
#include "common/Valores.h"
#include "control/ClaseEntrada.h"
#include "control/Resolucion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/nvArticulo.h"

using namespace Qt::StringLiterals;

namespace mostrador {

namespace {

/// Thrown where a person would have to choose. A resolution works on copies: nothing is left behind.
struct Preguntaria
{};

class DialogosMudos final : public Dialogos
{
public:
    DialogoPropio<ContratoBusqueda> crearBusqueda(qint16, QWidget *) override { throw Preguntaria{}; }
    qint32 elegirReferencia(QWidget *, ::cEmpresa &, const QString &, qint32, bool) override { throw Preguntaria{}; }
    qint32 elegirPlu(QWidget *, ::cEmpresa &, qint32) override { throw Preguntaria{}; }
    void pedirCodigoBarras(QWidget *, const Servicios &, const DatosCodigoBarras &,
                           const AlAceptar<DatosCodigoBarras> &) override
    {
        throw Preguntaria{};
    }
    void pedirReferencia(QWidget *, const Servicios &, const DatosReferencia &,
                         const AlAceptar<DatosReferencia> &) override
    {
        throw Preguntaria{};
    }
    bool crearArticulo(QWidget *, ::cEmpresa &, Conexion &, DatosCreacion &) override { throw Preguntaria{}; }
};

} // namespace

LecturaCallada LecturaCallada::de(const QString &leido, const nvArticulo &articulo, Base &base)
{
    LecturaCallada lectura;
    // Words would open a search.
    if (clasificada(leido.trimmed()) == ClaseEntrada::Descripcion)
        return lectura;
    AjustesCaja ajustes;
    ajustes.busqueda.cliente = articulo.Cliente;
    EstadoCaja partida;
    partida.texto = leido;
    partida.proveedor = articulo.Proveedor();
    // Who may not attach what is missing is not asked.
    partida.permisoReferencias = partida.permisoBarras = false;
    try {
        const Servicios servicios{&base.empresa(), &base.parametros()};
        const EstadoCaja hecho =
            Resolutor(servicios, std::make_shared<DialogosMudos>(), nullptr, ajustes, partida).resolver().estado;
        if (hecho.existe) {
            const Cualidades &c = hecho.cualidades;
            lectura.hallazgo = eHallazgo::Articulo;
            lectura.codigo = ValTexto(hecho.texto);
            lectura.descripcion = descripcionConCualidades(hecho.nombre, c.hay, c.nombreX, c.nombreY);
        }
    } catch (const Preguntaria &) {
        lectura.hallazgo = eHallazgo::Varios;
    } catch (const Error &error) {
        lectura.error = error.descripcion;
    }
    return lectura;
}

QString descripcionConCualidades(const QString &descripcion, bool hay, const QString &x, const QString &y)
{
    return hay ? descripcion + u" (%1 / %2)"_s.arg(x, y) : descripcion;
}

} // namespace mostrador
