#include "control/nvArticulo.h"

#include "common/Conexion.h"
#include "common/Error.h"
#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "control/CajaCodigo.h"
#include "control/Dialogos.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/Twips.h"

#include <QEvent>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int AnchoCaja = 1380;
constexpr int AnchoMinimo = 930;
constexpr int AltoMinimo = 195;

/// A tool tip shows plain text: names hold "<" and "&".
QString sinFormato(const QString &texto)
{
    return texto.isEmpty() ? texto : u"<span>"_s + texto.toHtmlEscaped() + u"</span>"_s;
}

bool enDisposicion(const QWidget *widget)
{
    const QWidget *padre = widget->parentWidget();
    return padre && padre->layout();
}

} // namespace

nvArticulo::nvArticulo(QWidget *padre)
    : QWidget(padre)
    , m_caja(new nv::CajaCodigo(this))
    , m_nombre(new QLabel(this))
    , m_keyFichaArt(nv::teclas::F4)
    , m_creacion(std::make_unique<nv::ValoresCreacion>())
{
    m_caja->setObjectName(u"txtCodigo"_s);
    m_caja->setAccessibleName(u"Código de artículo"_s);
    m_nombre->setObjectName(u"lblNombre"_s);
    m_nombre->setTextFormat(Qt::PlainText);
    // Off the edge of the box; an indent would push the text down too.
    m_nombre->setContentsMargins(nv::twips::aPixeles(90, this), 0, 0, 0);
    m_nombre->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setFocusProxy(m_caja);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    using nv::CajaCodigo;
    connect(m_caja, &CajaCodigo::textChanged, this, &nvArticulo::alCambiar);
    connect(m_caja, &CajaCodigo::teclaAbajo, this, &nvArticulo::alTeclaAbajo);
    connect(m_caja, &CajaCodigo::teclaArriba, this, &nvArticulo::KeyUp);
    connect(m_caja, &CajaCodigo::caracter, this, &nvArticulo::KeyPress);
    connect(m_caja, &CajaCodigo::intro, this, &nvArticulo::alIntro);
    connect(m_caja, &CajaCodigo::enfocada, this, &nvArticulo::alEnfocar);
    connect(m_caja, &CajaCodigo::desenfocada, this, &nvArticulo::alDesenfocar);
    connect(m_caja, &CajaCodigo::clic, this, &nvArticulo::Click);
    connect(m_caja, &CajaCodigo::dobleClic, this, &nvArticulo::DblClick);
    connect(m_caja, &CajaCodigo::ratonAbajo, this,
            [this](qint16 b, qint16 e, QPointF p) { reenviarRaton(&nvArticulo::MouseDown, b, e, p); });
    connect(m_caja, &CajaCodigo::ratonMovido, this,
            [this](qint16 b, qint16 e, QPointF p) { reenviarRaton(&nvArticulo::MouseMove, b, e, p); });
    connect(m_caja, &CajaCodigo::ratonArriba, this,
            [this](qint16 b, qint16 e, QPointF p) { reenviarRaton(&nvArticulo::MouseUp, b, e, p); });
    InitProperties();
}

/// The box still loses its focus while it is taken down: it must not tell what is half gone.
nvArticulo::~nvArticulo()
{
    m_caja->disconnect(this);
}

void nvArticulo::setConexion(nv::Conexion *conexion)
{
    nv::ranura::ofrecer(conexion);
}

void nvArticulo::setAppearance(int valor)
{
    if (valor != 0 && valor != 1)
        throw nv::Error{380, u"Valor de propiedad no válido."_s, {}};
    m_appearance = valor;
    m_caja->setFrame(valor == 1);
    marcarCambiada(u"Appearance"_s);
}

void nvArticulo::setTipoFicha(eFormsFichas valor)
{
    m_tipoFicha = valor;
    marcarCambiada(u"TipoFicha"_s);
}

void nvArticulo::setKeyFichaArt(qint32 valor)
{
    m_keyFichaArt = valor;
    marcarCambiada(u"KeyFichaArt"_s);
}

void nvArticulo::setVital(bool valor)
{
    m_vital = valor;
    marcarCambiada(u"Vital"_s);
}

void nvArticulo::setInicial(bool valor)
{
    m_inicial = valor;
    marcarCambiada(u"Inicial"_s);
}

QString nvArticulo::Nombre() const
{
    return m_nombre->text();
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
    marcarCambiada(u"Enabled"_s);
}

QFont nvArticulo::Font() const
{
    return m_caja->font();
}

void nvArticulo::setFont(const QFont &fuente)
{
    QWidget::setFont(fuente);
    m_caja->setFont(fuente);
    m_nombre->setFont(fuente);
    marcarCambiada(u"Font"_s);
}

qint32 nvArticulo::MaxLength() const
{
    return m_caja->maxLength();
}

void nvArticulo::setCausesValidation(bool valor)
{
    m_causesValidation = valor;
    marcarCambiada(u"CausesValidation"_s);
}

void nvArticulo::setKeyUpChangeFocus(bool valor)
{
    m_keyUpChangeFocus = valor;
    marcarCambiada(u"KeyUpChangeFocus"_s);
}

void nvArticulo::setKeyEnterChangeFocus(bool valor)
{
    m_keyEnterChangeFocus = valor;
    marcarCambiada(u"KeyEnterChangeFocus"_s);
}

bool nvArticulo::Locked() const
{
    return m_caja->isReadOnly();
}

void nvArticulo::setLocked(bool valor)
{
    m_caja->setReadOnly(valor);
    marcarCambiada(u"Locked"_s);
}

QString nvArticulo::Text() const
{
    return nv::recortado(m_caja->text());
}

void nvArticulo::setText(const QString &texto)
{
    ponerCaja(nv::recortado(texto));
    marcarCambiada(u"Text"_s);
    if (const QString hueco = corchetes(1785); !hueco.isEmpty())
        ponerNombre(hueco);
    m_existe = false;
    m_pendiente = true;
}

void nvArticulo::setToolTipText(const QString &texto)
{
    m_toolTipText = texto;
    m_caja->setToolTip(sinFormato(texto));
    marcarCambiada(u"ToolTipText"_s);
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
    ponerCaja(nv::recortado(codigo));
    ponerNombre({});
    m_existe = false;
    m_pendiente = true;
}

qint16 nvArticulo::Modelo()
{
    if (m_modelo == 0 && m_empresa)
        m_modelo = m_empresa->ValorEntero16(u"BusquedaArticulos"_s);
    return m_modelo;
}

void nvArticulo::setModelo(qint16 valor)
{
    m_modelo = valor;
    marcarCambiada(u"Modelo"_s);
}

QString nvArticulo::Nombre_CualidadX() const
{
    return m_tieneCualidad ? m_nombreX : u"0"_s;
}

QString nvArticulo::Nombre_CualidadY() const
{
    return m_tieneCualidad ? m_nombreY : u"0"_s;
}

void nvArticulo::SelectText()
{
    m_caja->selectAll();
}

void nvArticulo::Refresh()
{
    m_caja->repaint();
}

QSize nvArticulo::sizeHint() const
{
    return {nv::twips::aPixeles(AnchoCaja + 4000, this), m_caja->sizeHint().height()};
}

QSize nvArticulo::minimumSizeHint() const
{
    return {nv::twips::aPixeles(AnchoCaja, this), m_caja->minimumSizeHint().height()};
}

void nvArticulo::resizeEvent(QResizeEvent *evento)
{
    QWidget::resizeEvent(evento);
    disponer();
}

void nvArticulo::changeEvent(QEvent *evento)
{
    QWidget::changeEvent(evento);
    if (evento->type() == QEvent::EnabledChange)
        pintarSegunEstado();
}

/// Text-field colour while the component itself is enabled, light grey while not, whatever its form's state.
void nvArticulo::pintarSegunEstado()
{
    if (!Enabled())
        m_caja->pintarFondo(QColor(224, 224, 224));
    else if (m_caja->hasFocus())
        m_caja->pintarFondo(QColor(192, 255, 255));
    else
        m_caja->restaurarFondo();
}

void nvArticulo::disponer()
{
    using nv::twips::aPixeles;
    if (height() < aPixeles(AltoMinimo, this))
        return;
    const int caja = aPixeles(AnchoCaja, this);
    if (width() >= caja) {
        const int alto = nv::twips::dePixeles(height(), this);
        m_caja->setGeometry(0, 0, caja, height());
        m_nombre->setGeometry(caja, aPixeles((alto - AltoMinimo) / 2, this), width() - caja, aPixeles(alto - 90, this));
    } else if (!enDisposicion(this)) {
        // A layout has the last word on the width of its widgets.
        resize(aPixeles(AnchoMinimo, this), height());
    }
    const QString hueco = corchetes(AnchoCaja);
    if (!hueco.isEmpty() && m_nombre->text().isEmpty())
        ponerNombre(hueco);
}

/// "[", blanks and "]" for the free width in blanks of the component's font; empty when there is no room.
QString nvArticulo::corchetes(int twipsDescontados) const
{
    const int blanco = nv::twips::dePixeles(fontMetrics().horizontalAdvance(u' '), this);
    const int libres = blanco > 0 ? (nv::twips::dePixeles(width(), this) - twipsDescontados) / blanco - 2 : 0;
    return libres >= 1 ? u'[' + QString(libres, u' ') + u']' : QString();
}

void nvArticulo::ponerCaja(const QString &texto)
{
    m_caja->setText(texto);
}

void nvArticulo::ponerNombre(const QString &nombre)
{
    m_nombre->setText(nombre);
    m_caja->setAccessibleDescription(nombre.startsWith(u'[') ? QString() : nombre);
    const bool cabe = m_nombre->fontMetrics().horizontalAdvance(nombre) <= m_nombre->width();
    m_nombre->setToolTip(cabe ? QString() : sinFormato(nombre));
}

void nvArticulo::marcarCambiada(const QString &propiedad)
{
    Q_EMIT PropertyChanged(propiedad);
}

::cEmpresa &nvArticulo::empresaExigida() const
{
    if (!m_empresa)
        throw nv::Error{nv::errores::SinObjeto, u"No se ha establecido la empresa."_s, {}};
    return *m_empresa;
}

nv::Dialogos &nvArticulo::dialogos()
{
    if (!m_dialogos)
        m_dialogos = nv::crearDialogos();
    return *m_dialogos;
}
