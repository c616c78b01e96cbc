#include "Ventana.h"

#include "Base.h"
#include "PanelAjustes.h"
#include "PanelEstado.h"
#include "SelectorCliente.h"
#include "common/Valores.h"
#include "control/nvArticulo.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/nvTextBox.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <utility>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

enum Columna { ColCodigo, ColDescripcion, ColUnidades, ColPrecio, ColImporte };

/// Units × price, rounded to the cent.
Moneda importe(Moneda unidades, Moneda precio)
{
    return precio.porcentaje(Moneda::deDiezmilesimas(unidades.diezmilesimas() * 100), 2);
}

Moneda leida(const QString &texto)
{
    QString conPunto = texto.trimmed();
    return Moneda::deTexto(conPunto.replace(u',', u'.'));
}

} // namespace

void Ventana::crearArticulo()
{
    m_articulo = new nvArticulo(m_documento);
    m_articulo->setObjectName(u"articulo"_s);
    m_articulo->setAccessibleName(u"Artículo"_s);
    m_articulo->InitProperties();
    m_articulo->setToolTipText(
        u"Código, código de barras o texto; .referencia  *ref. de cliente  +PLU  /código de barras.  F3 busca."_s);
    m_lugarArticulo->addWidget(m_articulo, 1);
    m_tituloArticulo->setBuddy(m_articulo);
    if (m_base) {
        m_articulo->setcEmpresa(&m_base->empresa());
        m_articulo->setConexion(&m_base->conexion());
    }
    m_articulo->Cliente = m_cliente->Codigo();
    m_articulo->AlmacenStock = static_cast<qint16>(m_almacen->currentData().toInt());
    connect(m_articulo, &nvArticulo::KeyDown, this, [this](qint16 &codigo, qint16 &) { alTecla(codigo); });
    connect(m_articulo, &nvArticulo::KeyPress, this, [this](qint16 &ascii) {
        if (ascii == teclas::Intro || ascii == 0)
            alResolver();
    });
    connect(m_articulo, &nvArticulo::Change, this, [this] {
        m_precio->clear();
        m_estado->actualizar();
    });
    // The boxes themselves: an order of composites leaves their inner boxes where they were made.
    setTabOrder(m_cliente->caja(), m_almacen);
    setTabOrder(m_almacen, m_articulo->focusProxy());
    setTabOrder(m_articulo->focusProxy(), m_unidades);
    setTabOrder(m_unidades, m_anadir);
    setTabOrder(m_anadir, m_lineas);
    m_estado->setArticulo(m_articulo);
    m_ajustes->setArticulo(m_articulo);
}

/// What the user had set in the former box goes to the new one.
void Ventana::renovarArticulo()
{
    nvArticulo *antes = m_articulo;
    crearArticulo();
    m_articulo->setVital(antes->Vital());
    m_articulo->setInicial(antes->Inicial());
    m_articulo->setKeyUpChangeFocus(antes->KeyUpChangeFocus());
    m_articulo->setKeyEnterChangeFocus(antes->KeyEnterChangeFocus());
    m_articulo->setLocked(antes->Locked());
    m_articulo->setProveedor(antes->Proveedor());
    m_articulo->DejarEnBlanco = antes->DejarEnBlanco;
    m_articulo->MultiResultado = antes->MultiResultado;
    m_articulo->SeleccionarTodo = antes->SeleccionarTodo;
    m_articulo->GuardarBusqueda = antes->GuardarBusqueda;
    retirar(antes);
}

/// A box that goes with the focus in it would be told of losing it when it is half gone.
void Ventana::retirar(nvArticulo *articulo)
{
    if (!articulo)
        return;
    articulo->focusProxy()->clearFocus();
    articulo->hide();
    delete articulo;
}

void Ventana::alTecla(qint16 codigo)
{
    if (codigo == teclas::Intro)
        m_tecleado = m_articulo->Text();
    else if (codigo == teclas::F3)
        alBuscar();
    m_estado->actualizar();
}

/// F3 has put a list in `MultiCodigo`, or emptied it, when the box asks for several.
void Ventana::alBuscar()
{
    if (m_articulo->MultiResultado && !m_articulo->MultiCodigo().isEmpty())
        anadirVarios();
}

void Ventana::alResolver()
{
    m_estado->actualizar();
    const QString texto = m_articulo->Text();
    // A search from a typed description that brought several items leaves the description in the box, dealt with.
    const bool varios = !m_articulo->Existe() && !m_articulo->Pendiente() && texto.size() > 2 && !esNumerico(texto) &&
                        !m_articulo->MultiCodigo().isEmpty();
    if (varios) {
        anadirVarios();
    } else if (m_articulo->Existe()) {
        avisar({});
        if (m_articulo->KeyEnterChangeFocus()) {
            mostrarPrecio();
        } else {
            m_unidades->setText(u"1"_s);
            anadirActual();
        }
    } else if (!m_articulo->KeyEnterChangeFocus() && !m_tecleado.isEmpty() && m_articulo->Text().isEmpty()) {
        avisar(u"No encontrado: %1"_s.arg(m_tecleado));
    }
}

void Ventana::anadirVarios()
{
    const QStringList codigos = m_articulo->MultiCodigo().split(u'|', Qt::SkipEmptyParts);
    // Descriptions may be empty: only the separator in front goes.
    QStringList nombres = m_articulo->MultiDescripcion().split(u'|');
    if (nombres.size() == codigos.size() + 1)
        nombres.removeFirst();
    m_lineas->setRedibujo(false);
    for (qsizetype i = 0; i < codigos.size(); ++i)
        anadir(codigos[i], nombres.value(i), Moneda::deUnidades(1));
    m_lineas->setRedibujo(true);
    siguienteArticulo();
}

std::optional<Moneda> Ventana::precio(const QString &codigo)
{
    try {
        Sentencia s(u"SELECT Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =");
        s << m_base->empresa().CodigoArticulos() << u" AND Cod_Articulo =" << NumeroEscrito(codigo)
          << u" AND Cod_Tarifa =" << m_tarifa;
        Registros registros = m_base->conexion().Abrir(s);
        if (registros.siguiente() && !registros.esNulo(0))
            return registros.moneda(0);
    } catch (const Error &error) {
        avisar(error.descripcion);
    }
    return std::nullopt;
}

void Ventana::mostrarPrecio()
{
    const std::optional<Moneda> pvp = precio(m_articulo->Codigo());
    m_precio->setText(pvp ? pvp->texto(m_base->empresa().DecimalesPvp()) + u" €"_s : u"sin precio"_s);
}

void Ventana::anadir(const QString &codigo, const QString &descripcion, Moneda unidades)
{
    const Moneda pvp = precio(codigo).value_or(Moneda());
    const Moneda suma = importe(unidades, pvp);
    m_lineas->anadir(
        {codigo, descripcion, unidades.textoCorto(), pvp.texto(m_base->empresa().DecimalesPvp()), suma.texto(2)});
    m_total = m_total + suma;
    m_lineas->setFilaActual(m_lineas->filasDatos());
    actualizarTotal();
}

void Ventana::anadirActual()
{
    if (!m_base)
        return;
    // What came from F3 has its description but has not been looked up yet.
    if (!m_articulo->Existe() && m_articulo->Pendiente() && !m_articulo->Text().isEmpty() &&
        esNumerico(m_articulo->Text()))
        m_articulo->Cargar();
    if (!m_articulo->Existe()) {
        avisar(u"Indique primero un artículo."_s);
        m_articulo->setFocus();
        return;
    }
    Moneda unidades;
    try {
        unidades = leida(m_unidades->text());
    } catch (const Error &) {
        avisar(u"Las unidades no son un número."_s);
        m_unidades->setFocus();
        return;
    }
    QString descripcion = m_articulo->Nombre();
    if (m_articulo->TieneCualidad())
        descripcion += u" (%1 / %2)"_s.arg(m_articulo->Nombre_CualidadX(), m_articulo->Nombre_CualidadY());
    anadir(m_articulo->Codigo(), descripcion, unidades);
    siguienteArticulo();
}

void Ventana::siguienteArticulo()
{
    m_articulo->setCodigo({});
    m_unidades->setText(u"1"_s);
    m_precio->clear();
    m_articulo->setFocus();
    m_estado->actualizar();
}

void Ventana::quitarLinea()
{
    const int fila = m_lineas->filaActual();
    if (fila < 1 || fila > m_lineas->filasDatos())
        return;
    std::vector<FilaRejilla> restantes;
    m_total = Moneda();
    for (int i = 1; i <= m_lineas->filasDatos(); ++i) {
        if (i == fila)
            continue;
        FilaRejilla textos;
        for (int columna = ColCodigo; columna <= ColImporte; ++columna)
            textos.push_back(m_lineas->texto(i, columna));
        m_total = m_total + leida(textos[ColImporte]);
        restantes.push_back(std::move(textos));
    }
    m_lineas->vaciar();
    m_lineas->anadir(std::move(restantes));
    if (m_lineas->filasDatos() > 0)
        m_lineas->setFilaActual(std::min(fila, m_lineas->filasDatos()));
    actualizarTotal();
}

void Ventana::vaciar()
{
    m_lineas->vaciar();
    m_total = Moneda();
    actualizarTotal();
    siguienteArticulo();
}

void Ventana::actualizarTotal()
{
    m_totalRotulo->setText(m_total.textoAgrupado() + u" €"_s);
    const int numero = m_lineas->filasDatos();
    m_contador->setText(numero == 1 ? u"1 línea"_s : u"%1 líneas"_s.arg(numero));
}

int Ventana::lineas() const
{
    return m_lineas->filasDatos();
}

void Ventana::avisar(const QString &texto)
{
    statusBar()->showMessage(texto, 8000);
}

void Ventana::reiniciar(std::optional<int> modelo)
{
    if (m_base) {
        if (modelo)
            m_base->empresa().PonerValor(u"BusquedaArticulos"_s, QString::number(*modelo));
        m_base->empresa().Recargar();
    }
    m_cliente->Limpiar();
    m_almacen->setCurrentIndex(0);
    retirar(std::exchange(m_articulo, nullptr));
    crearArticulo();
    releerAjustes();
    vaciar();
    m_estado->limpiarSentencias();
}

void Ventana::ponerAjuste(const QString &clave, const QString &valor)
{
    nv::EmpresaBD &empresa = m_base->empresa();
    if (!m_ajustesDelGuion.contains(clave))
        m_ajustesDelGuion.insert(clave, empresa.Valor(clave));
    empresa.PonerValor(clave, valor);
    releerAjustes();
}

void Ventana::deshacerAjustes()
{
    for (auto ajuste = m_ajustesDelGuion.constBegin(); ajuste != m_ajustesDelGuion.constEnd(); ++ajuste)
        m_base->empresa().PonerValor(ajuste.key(), ajuste.value());
    m_ajustesDelGuion.clear();
}

void Ventana::releerAjustes()
{
    m_ajustes->releer();
}

} // namespace nv
