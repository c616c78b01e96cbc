#include "search/BusquedaBase.h"

#include "common/Conexion.h"
#include "common/cEmpresa.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Rejilla.h"
#include "search/piezas/PunteroEspera.h"
#include "search/sql/Condiciones.h"
#include "search/sql/CopiaBusqueda.h"

#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace nv {

BusquedaBase::BusquedaBase(QWidget *padre)
    : QDialog(padre)
    , m_rejilla(new Rejilla(this))
{
    setWindowTitle(u"Búsqueda de Artículos"_s);
    m_rejilla->setObjectName(u"vsListado"_s);
    m_rejilla->setAccessibleName(u"Artículos encontrados"_s);
    connect(m_rejilla, &Rejilla::Intro, this, &BusquedaBase::Aceptar);
}

void BusquedaBase::MostrarModal()
{
    if (!cEmpresa)
        throw Error{errores::SinObjeto, u"No se ha establecido la empresa."_s, {}};
    const QPointer<BusquedaBase> vivo(this);
    cargar();
    if (vivo)
        exec();
}

void BusquedaBase::Aceptar()
{
    if (!puedeAceptar())
        return;
    mensajes::guardar(this, tituloAceptar(), [this] {
        const Eleccion elegido = eleccion();
        Codigo = elegido.codigo;
        Descripcion = elegido.descripcion;
        if (GuardarBusqueda)
            copiar();
        alAceptar();
        hide();
    });
}

void BusquedaBase::reject()
{
    Codigo.clear();
    QDialog::reject();
}

void BusquedaBase::keyPressEvent(QKeyEvent *evento)
{
    const bool intro = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
    auto *boton = qobject_cast<QPushButton *>(focusWidget());
    // Without default buttons the toolkit leaves Enter on a focused one without effect.
    if (intro && boton && !evento->isAutoRepeat())
        boton->click();
    else
        QDialog::keyPressEvent(evento);
}

bool BusquedaBase::puedeAceptar() const
{
    return m_rejilla->filaActual() >= 1;
}

Eleccion BusquedaBase::eleccion() const
{
    return eleccionActual(*m_rejilla, columnasEleccion());
}

QString BusquedaBase::tituloAceptar() const
{
    return u"Error"_s;
}

QString BusquedaBase::tituloBusqueda() const
{
    return u"Búsqueda de Artículos"_s;
}

Fragmento BusquedaBase::listaCopia() const
{
    return u", a.Codigo, a.Descripcion ";
}

std::optional<qint32> BusquedaBase::limite() const
{
    if (MultiResultado)
        return std::nullopt;
    return sql::limiteFilas(cEmpresa->Valor(u"Articulos_BusquedaCantMax"_s));
}

bool BusquedaBase::buscar(const std::function<void()> &busqueda)
{
    return mensajes::guardar(this, tituloBusqueda(), [&] {
        const PunteroEspera espera;
        busqueda();
    });
}

void BusquedaBase::copiar()
{
    if (m_ultima.vacia())
        return;
    const QString terminal = cEmpresa->Terminal();
    Conexion &conexion = ranura::exigida();
    conexion.Ejecutar(sql::borrarCopia(terminal));
    conexion.Ejecutar(sql::insertarCopia(terminal, cEmpresa->CodigoArticulos(), listaCopia(), m_ultima));
}

} // namespace nv
