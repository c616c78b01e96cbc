#include "search/BusquedaTextoLibre.h"

#include "common/Conexion.h"
#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "common/clsConfig.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvTextBox.h"
#include "search/piezas/FranjaMensaje.h"
#include "search/piezas/Marcas.h"

#include <QPointer>
#include <QScopeGuard>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace nv {

void BusquedaTextoLibre::cargar()
{
    mostrarRecordados();
    const QPointer<BusquedaTextoLibre> vivo(this);
    const bool ajustada = mensajes::guardar(parentWidget(), windowTitle(), [this] { ajustar(); });
    if (!vivo)
        return;
    m_marcas->setVisibles(MultiResultado);
    dimensionar();
    m_caja->setFocus();
    m_caja->selectAll();
    if (!ajustada || Busqueda_Descripcion.isEmpty())
        return;
    // The grid is then the first in the tab order of a form that is about to appear.
    if (Recuperar_Registros(Busqueda_Descripcion) && rejilla()->filasDatos() > 0)
        rejilla()->setFocus();
}

/// Once; a search tries again what failed at load.
void BusquedaTextoLibre::ajustar()
{
    if (AlmacenStock == 0)
        AlmacenStock = cEmpresa->ValorEntero16(u"Almacen_PD"_s);
    if (m_ajustada)
        return;
    leerAjustes();
    NVUTConfig::clsConfig parametros;
    parametros.setcEmpresa(cEmpresa);
    const QString clave = QStringView(NVUTConfig::Biblioteca).toString() + m_configuracion.parametroReferencia;
    m_soloRefPrincipal = comoBooleano(parametros.GetParametro_Usuario(clave, 1).toString());
    m_ajustada = true;
}

void BusquedaTextoLibre::leerAjustes()
{
    const qint16 almacen = cEmpresa->ValorEntero16(u"Almacen_PD"_s);
    Registros registros = ranura::exigida().Abrir(sql::tarifaAlmacen(cEmpresa->Codigo(), almacen));
    m_tarifa = 0;
    if (!registros.siguiente())
        return;
    const int tarifa = registros.columna(u"Tarifa");
    m_tarifa = registros.esNulo(tarifa) ? qint16{0} : registros.entero16(tarifa);
}

void BusquedaTextoLibre::mostrarRecordados()
{
    m_caja->setText(Busqueda_Descripcion);
}

void BusquedaTextoLibre::recordarEscritos()
{
    Busqueda_Descripcion = m_caja->text();
}

bool BusquedaTextoLibre::hayTexto() const
{
    return !recortado(m_caja->text()).isEmpty();
}

bool BusquedaTextoLibre::hayCriterios() const
{
    return hayTexto();
}

sql::EntornoTextoLibre BusquedaTextoLibre::entorno() const
{
    return {cEmpresa->Codigo(), cEmpresa->CodigoArticulos(), AlmacenStock, m_tarifa, m_soloRefPrincipal, limite()};
}

QString BusquedaTextoLibre::tituloBusqueda() const
{
    return u"Recuperar_Registros"_s;
}

void BusquedaTextoLibre::buscarEscrito()
{
    if (!hayCriterios())
        return;
    if (mensajes::guardar(this, tituloBusqueda(), [this] { recordarEscritos(); }))
        Recuperar_Registros(m_caja->text());
}

bool BusquedaTextoLibre::Recuperar_Registros(const QString &texto)
{
    if (m_buscando)
        return false;
    const bool hecha = buscar([&] {
        const QScopedValueRollback<bool> buscando(m_buscando, true);
        try {
            recuperar(texto);
        } catch (Error &error) {
            if (m_configuracion.errorNumerado)
                error.descripcion.prepend(u"0 - ");
            throw;
        }
    });
    // After an error box the form may be gone.
    if (!hecha || rejilla()->filasDatos() == 0)
        return hecha;
    ordenarTabulacion(true);
    rejilla()->setFilaActual(1);
    if (m_configuracion.enfocarRejilla)
        rejilla()->setFocus();
    return true;
}

void BusquedaTextoLibre::recuperar(const QString &texto)
{
    rejilla()->vaciar();
    m_marcas->reiniciar();
    const FranjaMensaje::Aviso aviso(*m_franja);
    ajustar();
    const Sentencia sentencia = consulta(texto);
    std::vector<FilaRejilla> filas;
    const auto mostrar = qScopeGuard([&] {
        rejilla()->anadir(std::move(filas));
        alLlenar();
    });
    Registros registros = ranura::exigida().Abrir(sentencia);
    // Before the rows: where reading them fails, those that came before stay and can be accepted.
    recordar(sentencia);
    const Lector leer = lector(registros);
    while (registros.siguiente())
        filas.push_back(leer(registros));
}

int BusquedaTextoLibre::marcadas() const
{
    return MultiResultado ? m_marcas->cuantas() : 0;
}

/// A list without items is accepted too, and gives no code.
bool BusquedaTextoLibre::puedeAceptar() const
{
    return rejilla()->filasDatos() == 0 || marcadas() > 0 || BusquedaBase::puedeAceptar();
}

Eleccion BusquedaTextoLibre::eleccion() const
{
    if (marcadas() == 0)
        return BusquedaBase::eleccion();
    Eleccion lista = eleccionMarcada(*rejilla(), columnasEleccion(), 0, u"1");
    if (marcadas() == 1) {
        lista.codigo.remove(0, 1);
        lista.descripcion.remove(0, 1);
    }
    return lista;
}

void BusquedaTextoLibre::alAceptar()
{
    MultiResultado = marcadas() > 1;
}

} // namespace nv
