#include "common/Valores.h"
#include "control/CajaCodigo.h"
#include "control/Disposicion.h"
#include "control/Resolucion.h"
#include "nvArticulo/BolsaPropiedades.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/nvArticulo.h"
#include "platform/widgets/Teclas.h"

#include "platform/widgets/EtiquetaElidida.h"

using namespace Qt::StringLiterals;

namespace {

/// The container's ambient font.
QFont fuenteAmbiente(const QWidget *widget)
{
    return widget->parentWidget() ? widget->parentWidget()->font() : widget->font();
}

/// A tool tip shows plain text: names hold "<" and "&".
QString sinFormato(const QString &texto)
{
    return texto.isEmpty() ? texto : u"<span>"_s + texto.toHtmlEscaped() + u"</span>"_s;
}

} // namespace

void nvArticulo::setcEmpresa(::cEmpresa *empresa)
{
    m_servicios->empresa = empresa;
}

void nvArticulo::setParametros(NVUTConfig::clsConfig *parametros)
{
    m_servicios->parametros = parametros;
}

void nvArticulo::setComprobador(nv::ComprobadorReferencias *comprobador)
{
    m_servicios->comprobador = comprobador;
}

void nvArticulo::setConexion(nv::Conexion *conexion)
{
    nv::ranura::ofrecer(conexion);
}

QString nvArticulo::Nombre() const
{
    return m_nombre->text();
}

QString nvArticulo::Text() const
{
    return nv::recortado(m_caja->text());
}

void nvArticulo::setText(const QString &texto)
{
    const QString hueco = nv::disposicion::corchetesDeTexto(*this);
    ponerTexto(texto, hueco.isEmpty() ? m_nombre->text() : hueco);
    Q_EMIT PropertyChanged(u"Text"_s);
}

QString nvArticulo::Codigo() const
{
    try {
        return nv::ValTexto(m_caja->text());
    } catch (const nv::Error &) {
        return u"0"_s; // an exponent beyond any number names no item
    }
}

void nvArticulo::setCodigo(const QString &codigo)
{
    ponerTexto(codigo, {});
}

void nvArticulo::ponerTexto(const QString &texto, const QString &nombre)
{
    const nv::EstadoCaja partida = estado();
    nv::EstadoCaja nuevo = partida;
    nuevo.texto = nv::recortado(texto);
    nuevo.nombre = nombre;
    nuevo.existe = false;
    nuevo.pendiente = true;
    aplicar(partida, nuevo);
}

bool nvArticulo::Existe() const
{
    return m_estado->existe;
}

bool nvArticulo::Pendiente() const
{
    return m_estado->pendiente;
}

qint32 nvArticulo::Proveedor() const
{
    return m_estado->proveedor;
}

void nvArticulo::setProveedor(qint32 valor)
{
    m_estado->proveedor = valor;
}

qint16 nvArticulo::Modelo()
{
    if (m_servicios->empresa)
        m_estado->modelo = nv::modeloDeBusqueda(m_estado->modelo, *m_servicios->empresa);
    return m_estado->modelo;
}

bool nvArticulo::TieneCualidad() const
{
    return m_estado->cualidades.hay;
}

qint16 nvArticulo::Valor_CualidadX() const
{
    return TieneCualidad() ? m_estado->cualidades.x : qint16{0};
}

qint16 nvArticulo::Valor_CualidadY() const
{
    return TieneCualidad() ? m_estado->cualidades.y : qint16{0};
}

QString nvArticulo::Nombre_CualidadX() const
{
    return TieneCualidad() ? m_estado->cualidades.nombreX : u"0"_s;
}

QString nvArticulo::Nombre_CualidadY() const
{
    return TieneCualidad() ? m_estado->cualidades.nombreY : u"0"_s;
}

QString nvArticulo::MultiCodigo() const
{
    return m_estado->multiCodigo;
}

QString nvArticulo::MultiDescripcion() const
{
    return m_estado->multiDescripcion;
}

void nvArticulo::SelectText()
{
    m_caja->selectAll();
}

void nvArticulo::Refresh()
{
    m_caja->repaint();
}

template <class Valor>
void nvArticulo::cambiar(Valor &miembro, const Valor &valor, const QString &propiedad)
{
    miembro = valor;
    Q_EMIT PropertyChanged(propiedad);
}

void nvArticulo::setAppearance(int valor)
{
    if (valor != 0 && valor != 1)
        throw nv::Error(380, u"Valor de propiedad no válido."_s);
    m_caja->setFrame(valor == 1);
    cambiar(m_appearance, valor, u"Appearance"_s);
}

void nvArticulo::setTipoFicha(eFormsFichas valor)
{
    cambiar(m_tipoFicha, valor, u"TipoFicha"_s);
}

void nvArticulo::setKeyFichaArt(qint32 valor)
{
    cambiar(m_keyFichaArt, valor, u"KeyFichaArt"_s);
}

void nvArticulo::setVital(bool valor)
{
    cambiar(m_vital, valor, u"Vital"_s);
}

void nvArticulo::setInicial(bool valor)
{
    cambiar(m_inicial, valor, u"Inicial"_s);
}

bool nvArticulo::Enabled() const
{
    return parentWidget() ? isEnabledTo(parentWidget()) : isEnabled();
}

void nvArticulo::setEnabled(bool valor)
{
    QWidget::setEnabled(valor);
    if (valor)
        m_caja->setEnabled(true); // stored properties may have disabled the box alone
    pintarSegunEstado();
    Q_EMIT PropertyChanged(u"Enabled"_s);
}

QFont nvArticulo::Font() const
{
    return m_caja->font();
}

void nvArticulo::setFont(const QFont &fuente)
{
    ponerFuente(fuente);
    Q_EMIT PropertyChanged(u"Font"_s);
}

void nvArticulo::ponerFuente(const QFont &fuente)
{
    QWidget::setFont(fuente);
    m_caja->setFont(fuente);
    m_nombre->setFont(fuente);
}

qint32 nvArticulo::MaxLength() const
{
    return m_caja->maxLength();
}

void nvArticulo::setCausesValidation(bool valor)
{
    cambiar(m_causesValidation, valor, u"CausesValidation"_s);
}

void nvArticulo::setKeyUpChangeFocus(bool valor)
{
    cambiar(m_keyUpChangeFocus, valor, u"KeyUpChangeFocus"_s);
}

void nvArticulo::setKeyEnterChangeFocus(bool valor)
{
    cambiar(m_keyEnterChangeFocus, valor, u"KeyEnterChangeFocus"_s);
}

bool nvArticulo::Locked() const
{
    return m_caja->isReadOnly();
}

void nvArticulo::setLocked(bool valor)
{
    m_caja->setReadOnly(valor);
    pintarSegunEstado();
    Q_EMIT PropertyChanged(u"Locked"_s);
}

void nvArticulo::setToolTipText(const QString &texto)
{
    m_caja->setToolTip(sinFormato(texto));
    cambiar(m_toolTipText, texto, u"ToolTipText"_s);
    describirCaja();
}

void nvArticulo::setModelo(qint16 valor)
{
    cambiar(m_estado->modelo, valor, u"Modelo"_s);
}

nv::PeticionBusqueda nvArticulo::peticion() const
{
    return {0,       MultiResultado,  SeleccionarTodo, AlmacenStock,
            Cliente, GuardarBusqueda, RecordarAspecto, {Familia_1, Familia_2, Familia_3}};
}

nv::AjustesCaja nvArticulo::ajustes() const
{
    return {m_vital, m_inicial, DejarEnBlanco, m_keyEnterChangeFocus, peticion()};
}

void nvArticulo::InitProperties()
{
    QWidget::setEnabled(true);
    DejarEnBlanco = false;
    m_keyFichaArt = nv::teclas::F4;
    m_tipoFicha = FichaArticulos;
}

void nvArticulo::ReadProperties(const nv::BolsaPropiedades &bolsa)
{
    m_caja->setEnabled(bolsa.leer(u"Enabled"_s, true).toBool());
    ponerFuente(bolsa.leer(u"Font"_s, fuenteAmbiente(this)).value<QFont>());
    m_causesValidation = bolsa.leer(u"CausesValidation"_s, true).toBool();
    m_caja->setReadOnly(bolsa.leer(u"Locked"_s, false).toBool());
    pintarSegunEstado();
    m_caja->setText(bolsa.leer(u"Text"_s, QString()).toString());
    m_toolTipText = bolsa.leer(u"ToolTipText"_s, QString()).toString();
    m_caja->setToolTip(sinFormato(m_toolTipText));
    describirCaja();
    m_caja->setMaxLength(21);
    m_vital = bolsa.leer(u"Vital"_s, true).toBool();
    m_inicial = bolsa.leer(u"Inicial"_s, true).toBool();
    m_keyUpChangeFocus = bolsa.leer(u"KeyUpChangeFocus"_s, true).toBool();
    m_keyEnterChangeFocus = bolsa.leer(u"KeyEnterChangeFocus"_s, true).toBool();
    DejarEnBlanco = bolsa.leer(u"DejarEnBlanco"_s, false).toBool();
    m_keyFichaArt = bolsa.leer(u"KeyFichaArt"_s, nv::teclas::F7).toInt();
    m_tipoFicha = static_cast<eFormsFichas>(bolsa.leer(u"TipoFicha"_s, 0).toInt());
    m_appearance = bolsa.leer(u"Appearance"_s, 1).toInt();
    m_caja->setFrame(m_appearance == 1);
}

void nvArticulo::WriteProperties(nv::BolsaPropiedades &bolsa) const
{
    bolsa.escribir(u"Enabled"_s, m_caja->isEnabledTo(this), true);
    bolsa.escribir(u"Font"_s, m_caja->font(), fuenteAmbiente(this));
    bolsa.escribir(u"CausesValidation"_s, m_causesValidation, true);
    bolsa.escribir(u"Locked"_s, m_caja->isReadOnly(), false);
    bolsa.escribir(u"Text"_s, m_caja->text(), QString());
    bolsa.escribir(u"ToolTipText"_s, m_toolTipText, QString());
    bolsa.escribir(u"Vital"_s, m_vital, true);
    bolsa.escribir(u"Inicial"_s, m_inicial, true);
    bolsa.escribir(u"KeyUpChangeFocus"_s, m_keyUpChangeFocus, true);
    bolsa.escribir(u"KeyEnterChangeFocus"_s, m_keyEnterChangeFocus, true);
    bolsa.escribir(u"DejarEnBlanco"_s, DejarEnBlanco, false);
    bolsa.escribir(u"KeyFichaArt"_s, m_keyFichaArt, int(nv::teclas::F7));
    bolsa.escribir(u"TipoFicha"_s, int(m_tipoFicha), 0);
    bolsa.escribir(u"Appearance"_s, m_appearance, 1);
}
