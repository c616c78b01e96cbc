#include "Documento.h"

#include "Base.h"
#include "Formas.h"
#include "LecturaCallada.h"
#include "Lineas.h"
#include "Propiedades.h"
#include "SelectorCliente.h"
#include "common/Valores.h"
#include "control/ClaseEntrada.h"
#include "nvArticulo/nvArticulo.h"
#include "platform/widgets/Aviso.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"

#include <QApplication>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>
#include <utility>

using namespace Qt::StringLiterals;

namespace mostrador {

using namespace formas;

constexpr int RolTarifa = Qt::UserRole + 1;
constexpr qsizetype CifrasUnidades = 7; ///< no customer takes more

Documento::Documento(QWidget *padre)
    : QWidget(padre)
{
    auto *columna = new QVBoxLayout(this);
    columna->setContentsMargins(12, 12, 6, 12);
    columna->setSpacing(10);
    columna->addLayout(cabecera());
    columna->addWidget(entrada());
    m_lineas = new Lineas;
    connect(m_lineas, &Lineas::VaciadoPedido, this, &Documento::alVaciar);
    connect(m_lineas, &Lineas::FinPedido, this, &Documento::finalizar);
    connect(m_lineas, &Lineas::ArticuloPedido, this, &Documento::pedirArticulo);
    columna->addWidget(m_lineas, 1);
}

Documento::~Documento()
{
    // The box speaks to what is around it while it goes.
    disconnect();
    retirar(std::exchange(m_articulo, nullptr));
}

QLayout *Documento::cabecera()
{
    m_cliente = nombrado<SelectorCliente>(u"txtCliente"_s);
    m_cliente->setAccessibleName(u"Cliente"_s);
    m_cliente->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_almacen = nombrado<QComboBox>(u"cboAlmacen"_s);
    m_almacen->setMinimumContentsLength(16);
    connect(m_cliente, &SelectorCodigo::Cambio, this, &Documento::ponerContexto);
    connect(m_almacen, &QComboBox::currentIndexChanged, this, &Documento::ponerContexto);
    return enFila({rotulo(u"&Cliente:"_s, m_cliente->caja()), m_cliente, rotulo(u"Al&macén:"_s, m_almacen), m_almacen});
}

QWidget *Documento::entrada()
{
    m_rotuloArticulo = new QLabel(u"A&rtículo:"_s);
    m_lugarArticulo = new QHBoxLayout;
    m_unidades = nombrado<nvTextBox>(u"txtUnidades"_s);
    m_unidades->setNumerico(true);
    m_unidades->setDecimales(3);
    m_unidades->setMaxLength(14); // a barcode, too: the next item, scanned too soon
    m_unidades->setFixedWidth(fontMetrics().horizontalAdvance(u"9999999,999"_s) + 16);
    m_precio = nombrado<QLabel>(u"lblPrecio"_s);
    m_escaner = nombrado<nvCheckBox>(u"chkEscaner"_s, u"Modo &escáner"_s);
    m_escaner->setToolTip(u"Cada artículo leído es una línea de una unidad."_s);
    m_anadir = nombrado<QPushButton>(u"cmdAnadir"_s, u"Aña&dir"_s);
    auto *ayuda = new QLabel(u"F3 busca · .referencia · *ref. cliente · +PLU · /\u2060barras"_s);
    ayuda->setWordWrap(true);

    auto *marco = new QFrame;
    marco->setFrameShape(QFrame::StyledPanel);
    auto *rejilla = new QGridLayout(marco);
    rejilla->addWidget(m_rotuloArticulo, 0, 0);
    rejilla->addLayout(m_lugarArticulo, 0, 1);
    rejilla->addWidget(rotulo(u"&Unidades:"_s, m_unidades), 1, 0);
    rejilla->addLayout(enFila({m_unidades, m_precio, nullptr, m_escaner, m_anadir}), 1, 1);
    rejilla->addWidget(ayuda, 2, 1);
    connect(m_unidades, &nvTextBox::Intro, this, [this](bool &tratada) {
        tratada = true;
        const QString escrito = m_unidades->text();
        const bool esLectura = escrito.size() > CifrasUnidades && !escrito.contains(u',');
        if (!esLectura) {
            anadirActual();
            return;
        }
        m_unidades->setText(u"1"_s);
        leer(escrito);
    });
    connect(m_anadir, &QPushButton::clicked, this, &Documento::anadirActual);
    connect(m_escaner, &QCheckBox::toggled, this, [this](bool activo) {
        if (m_articulo->Existe())
            anadirActual();
        m_articulo->setKeyEnterChangeFocus(!activo);
        Q_EMIT Aviso(activo ? u"Modo escáner: cada artículo leído es una línea."_s : QString());
        siguienteArticulo();
    });
    return marco;
}

void Documento::crearArticulo()
{
    m_articulo = nombrado<nvArticulo>(u"articulo"_s, this);
    m_articulo->setAccessibleName(u"Artículo"_s);
    m_articulo->InitProperties();
    m_articulo->setToolTipText(
        u"Código, código de barras o texto; .referencia  *ref. de cliente  +PLU  /código de barras.  F3 busca."_s);
    m_lugarArticulo->addWidget(m_articulo, 1);
    m_rotuloArticulo->setBuddy(m_articulo);
    if (m_base) {
        m_articulo->setcEmpresa(&m_base->empresa());
        m_articulo->setParametros(&m_base->parametros());
        m_articulo->setConexion(&m_base->conexion());
    }
    ponerContexto();
    connect(m_articulo, &nvArticulo::KeyDown, this, [this](qint16 &codigo, qint16 &) { alTecla(codigo); });
    connect(m_articulo, &nvArticulo::KeyPress, this, [this](qint16 &ascii) {
        if (ascii == teclas::Intro || ascii == 0)
            alResolver();
    });
    // The word at the box goes with the next key, which may be the scanner's own line feed; this one stays a while.
    connect(m_articulo, &nvArticulo::NoEncontrado, this,
            [this](const QString &texto) { Q_EMIT Aviso(u"No existe: %1"_s.arg(texto)); });
    connect(m_articulo, &nvArticulo::Change, this, [this] {
        m_precio->clear();
        Q_EMIT Cambio();
    });
    // The boxes themselves: an order of composites leaves their inner boxes where they were made.
    setTabOrder(m_cliente->caja(), m_almacen);
    setTabOrder(m_almacen, m_articulo->focusProxy());
    setTabOrder(m_articulo->focusProxy(), m_unidades);
    setTabOrder(m_unidades, m_anadir);
    setTabOrder(m_anadir, &m_lineas->rejilla());
    Q_EMIT ArticuloNuevo(m_articulo);
}

void Documento::renovarArticulo()
{
    nvArticulo *antes = m_articulo;
    crearArticulo();
    propiedades::copiar(*antes, *m_articulo);
    retirar(antes);
}

/// A box that goes with the focus in it would be told of losing it when it is half gone.
void Documento::retirar(nvArticulo *articulo)
{
    if (!articulo)
        return;
    articulo->focusProxy()->clearFocus();
    articulo->hide();
    delete articulo;
}

void Documento::setBase(Base *base)
{
    retirar(std::exchange(m_articulo, nullptr));
    m_base = base;
    setEnabled(base != nullptr);
    m_cliente->setConexion(base ? &base->conexion() : nullptr);
    m_cliente->setcEmpresa(base ? &base->empresa() : nullptr);
    m_almacen->clear();
    if (base)
        mensajes::guardar(this, u"Mostrador"_s, [this] { cargarAlmacenes(); });
}

void Documento::cargarAlmacenes()
{
    Sentencia s(u"SELECT Codigo, Nombre, Tarifa FROM Almacenes WHERE Cod_Empresa =");
    s << m_base->empresa().Codigo() << u" ORDER BY Codigo";
    for (Registros almacenes = m_base->conexion().Abrir(s); almacenes.siguiente();) {
        const qint16 codigo = almacenes.entero16(u"Codigo");
        m_almacen->addItem(u"%1 - %2"_s.arg(codigo).arg(almacenes.textoO(u"Nombre")), codigo);
        m_almacen->setItemData(m_almacen->count() - 1, almacenes.entero16(u"Tarifa"), RolTarifa);
    }
}

void Documento::reiniciar()
{
    m_cliente->Limpiar();
    m_almacen->setCurrentIndex(0);
    const QSignalBlocker callado(m_escaner);
    m_escaner->setChecked(false);
    retirar(std::exchange(m_articulo, nullptr));
    crearArticulo();
    vaciar();
}

/// What the document says of the item that is sought.
void Documento::ponerContexto()
{
    if (!m_articulo)
        return;
    m_articulo->Cliente = codigoDe(*m_cliente);
    m_articulo->AlmacenStock = static_cast<qint16>(m_almacen->currentData().toInt());
}

void Documento::alTecla(qint16 &codigo)
{
    if (codigo == teclas::Intro) {
        m_tecleado = m_articulo->Text();
        if (m_escaner->isChecked() && leidoSinPreguntar())
            codigo = 0;
    }
    // F3 has put a list in `MultiCodigo`, or emptied it, when the box asks for several.
    if (codigo == teclas::F3 && m_articulo->MultiResultado && !m_articulo->MultiCodigo().isEmpty())
        anadirVarios();
    Q_EMIT Cambio();
}

/// In scanner mode nothing pops up: what is not one known item becomes a line that waits, and the next scan may come.
bool Documento::leidoSinPreguntar()
{
    const QString rafaga = std::exchange(m_rafaga, {});
    const bool cabe = !qobject_cast<CajaTexto *>(m_articulo->focusProxy())->rechazaIncompleto();
    const QString leido = (cabe ? m_tecleado : rafaga).trimmed();
    if (leido.isEmpty())
        return !cabe;
    const LecturaCallada lectura = cabe ? LecturaCallada::de(leido, *m_articulo, *m_base) : LecturaCallada();
    if (lectura.hallazgo == LecturaCallada::eHallazgo::Articulo)
        return false;
    const bool varios = lectura.hallazgo == LecturaCallada::eHallazgo::Varios;
    dejarEnEspera(leido, varios ? u"VARIOS ARTÍCULOS"_s : u"SIN ARTÍCULO"_s,
                  !lectura.error.isEmpty() ? lectura.error
                  : varios                 ? u"«%1» es de varios artículos."_s.arg(leido)
                                           : u"«%1» no existe."_s.arg(leido));
    return true;
}

void Documento::dejarEnEspera(const QString &leido, const QString &motivo, const QString &dicho)
{
    m_lineas->anadirEnEspera(leido, motivo);
    siguienteArticulo();
    decir(m_articulo, dicho);
    // Nobody looks at the screen while he scans.
    QApplication::beep();
}

void Documento::alResolver()
{
    Q_EMIT Cambio();
    if (m_asignando)
        return;
    const QString texto = m_articulo->Text();
    // A search from a typed description that brought several items leaves the description in the box, dealt with.
    const bool varios = !m_articulo->Existe() && !m_articulo->Pendiente() && texto.size() > 2 && !esNumerico(texto) &&
                        !m_articulo->MultiCodigo().isEmpty();
    if (varios) {
        anadirVarios();
    } else if (m_articulo->Existe()) {
        Q_EMIT Aviso({});
        if (!m_articulo->KeyEnterChangeFocus()) {
            m_unidades->setText(u"1"_s);
            anadirActual();
        } else {
            const std::optional<Moneda> pvp = precio(m_articulo->Codigo());
            m_precio->setText(pvp ? pvp->texto(m_base->empresa().DecimalesPvp()) + u" €"_s : u"sin precio"_s);
        }
    } else if (m_articulo->Vital() && texto.isEmpty() && m_tecleado.trimmed().isEmpty()) {
        decir(m_articulo, u"Lea o escriba un artículo; F3 lo busca."_s);
    }
}

/// What the component offers for the code of a line that waits; the item that comes of it is the line's.
void Documento::pedirArticulo(int fila, bool buscando)
{
    const QString leido = m_lineas->leido(fila);
    if (leido.isEmpty()) {
        m_articulo->setFocus();
        if (buscando)
            pulsarEnCaja(Qt::Key_F3, {});
        return;
    }
    if (m_articulo->Existe() && !anadirActual())
        return;
    const QPointer<nvArticulo> articulo(m_articulo);
    {
        const QScopedValueRollback<bool> asignando(m_asignando, true);
        const bool varios = std::exchange(m_articulo->MultiResultado, false);
        // A number alone is only looked up; as a barcode it can be attached.
        const bool barras = clasificada(leido) == ClaseEntrada::NumeroLargo;
        if (buscando)
            m_articulo->Buscar();
        else
            m_articulo->Emular_Enter(barras ? u'/' + leido : leido);
        if (!articulo)
            return;
        m_articulo->MultiResultado = varios;
        if (!m_articulo->Existe() && m_articulo->Pendiente() && esNumerico(m_articulo->Text()))
            m_articulo->Cargar();
    }
    // Dialogs have been up: the lines may be others by now.
    const bool sigue = articulo && m_lineas->leido(fila) == leido;
    const bool hallado = articulo && m_articulo->Existe();
    if (sigue && hallado)
        asentar(fila, m_articulo->Codigo(), descripcionActual());
    if (articulo)
        siguienteArticulo();
    if (!sigue)
        return;
    if (const int otra = m_lineas->siguienteEnEspera(fila))
        m_lineas->enfocar(otra);
    if (!hallado)
        decir(m_lineas->lugarDeAviso(), u"«%1» sigue sin artículo."_s.arg(leido));
}

/// And with it what was read alike, and whatever else has its item by now.
void Documento::asentar(int fila, const QString &codigo, const QString &descripcion)
{
    const QString este = m_lineas->leido(fila);
    const LineaArticulo suya = linea(codigo, descripcion, Moneda::deUnidades(1));
    m_lineas->asentar(fila, suya);
    for (int otra = 1; otra <= m_lineas->numero(); ++otra) {
        const QString leido = m_lineas->leido(otra);
        if (leido.isEmpty())
            continue;
        const LecturaCallada lectura = LecturaCallada::de(leido, *m_articulo, *m_base);
        if (lectura.hallazgo == LecturaCallada::eHallazgo::Articulo)
            m_lineas->asentar(otra, linea(lectura.codigo, lectura.descripcion, Moneda::deUnidades(1)));
        else if (leido == este && lectura.hallazgo == LecturaCallada::eHallazgo::Nada)
            m_lineas->asentar(otra, suya);
    }
}

void Documento::empezar(const QString &caracteres)
{
    if (alArticulo())
        m_articulo->setText(caracteres);
}

void Documento::leer(const QString &codigo)
{
    if (!alArticulo())
        return;
    // The box would cut it, and the rest may be some other item's.
    auto &caja = *qobject_cast<CajaTexto *>(m_articulo->focusProxy());
    if (codigo.size() <= caja.maxLength()) {
        m_articulo->setText(codigo);
        pulsarEnCaja(Qt::Key_Return, u"\r"_s);
    } else if (m_escaner->isChecked()) {
        dejarEnEspera(codigo.trimmed(), u"SIN ARTÍCULO"_s, u"«%1» no existe."_s.arg(codigo.trimmed()));
    } else {
        Q_EMIT Aviso(u"«%1» es demasiado largo."_s.arg(codigo));
        caja.avisarLargo(codigo.size());
    }
}

/// The focus where the next item begins. What is found, but not yet a line, becomes one first.
bool Documento::alArticulo()
{
    if (m_articulo->Existe() && !anadirActual())
        return false;
    m_articulo->setFocus();
    return true;
}

void Documento::pulsarEnCaja(Qt::Key tecla, const QString &texto)
{
    QKeyEvent evento(QEvent::KeyPress, tecla, Qt::NoModifier, texto);
    QCoreApplication::sendEvent(m_articulo->focusProxy(), &evento);
}

void Documento::anadirVarios()
{
    const QStringList codigos = m_articulo->MultiCodigo().split(u'|', Qt::SkipEmptyParts);
    // Descriptions may be empty: only the separator in front goes.
    const QStringList nombres = m_articulo->MultiDescripcion().split(u'|');
    const qsizetype primero = nombres.size() - codigos.size();
    m_lineas->rejilla().setRedibujo(false);
    for (qsizetype i = 0; i < codigos.size(); ++i)
        m_lineas->anadir(linea(codigos[i], nombres.value(primero + i), Moneda::deUnidades(1)));
    m_lineas->rejilla().setRedibujo(true);
    siguienteArticulo();
}

std::optional<Moneda> Documento::precio(const QString &codigo)
{
    try {
        Sentencia s(u"SELECT Pvp FROM Articulos_Tarifas WHERE Cod_Empresa =");
        s << m_base->empresa().CodigoArticulos() << u" AND Cod_Articulo =" << NumeroEscrito(codigo)
          << u" AND Cod_Tarifa =" << m_almacen->currentData(RolTarifa).toInt();
        Registros registros = m_base->conexion().Abrir(s);
        if (registros.siguiente() && !registros.esNulo(0))
            return registros.moneda(0);
    } catch (const Error &error) {
        Q_EMIT Aviso(error.descripcion);
    }
    return std::nullopt;
}

LineaArticulo Documento::linea(const QString &codigo, const QString &descripcion, Moneda unidades)
{
    return {codigo, descripcion, unidades, precio(codigo).value_or(Moneda()), m_base->empresa().DecimalesPvp()};
}

QString Documento::descripcionActual() const
{
    return descripcionConCualidades(m_articulo->Nombre(), m_articulo->TieneCualidad(), m_articulo->Nombre_CualidadX(),
                                    m_articulo->Nombre_CualidadY());
}

bool Documento::anadirActual()
{
    // With the focus in the box, or what F3 has brought: as Enter would find it. What is not found stays to be seen.
    if (m_articulo->Pendiente() && !m_articulo->Text().trimmed().isEmpty()) {
        const nvArticulo::eConfirmacion hay = m_articulo->Confirmar();
        if (hay == nvArticulo::eConfirmacion::NoExiste)
            decir(m_articulo, u"«%1» no existe."_s.arg(m_articulo->Text()));
        if (hay != nvArticulo::eConfirmacion::Existe)
            return false;
    }
    if (!m_articulo->Existe()) {
        m_articulo->setFocus();
        decir(m_articulo, u"Indique primero un artículo."_s);
        return false;
    }
    const std::optional<Moneda> unidades = unidadesEscritas();
    if (!unidades)
        return false;
    m_lineas->anadir(linea(m_articulo->Codigo(), descripcionActual(), *unidades));
    siguienteArticulo();
    return true;
}

/// None, and said, when they are no number or one that somebody has scanned.
std::optional<Moneda> Documento::unidadesEscritas()
{
    const QString escrito = m_unidades->text().trimmed();
    QString queja = u"Las unidades no son un número."_s;
    try {
        const Moneda unidades = Moneda::deTexto(QString(escrito).replace(u',', u'.'));
        if (escrito.section(u',', 0, 0).remove(u'-').size() <= CifrasUnidades)
            return unidades;
        queja = u"Demasiadas unidades: %1."_s.arg(escrito);
    } catch (const Error &) {}
    m_unidades->setFocus();
    m_unidades->selectAll();
    decir(m_unidades, queja);
    return std::nullopt;
}

/// Nothing in the box that is not a line yet.
bool Documento::asentarActual()
{
    return (m_articulo->Text().trimmed().isEmpty() && !m_articulo->Existe()) || anadirActual();
}

bool Documento::nadaEnEspera()
{
    const int fila = m_lineas->siguienteEnEspera();
    if (fila == 0)
        return true;
    m_lineas->enfocar(fila);
    decir(m_lineas->lugarDeAviso(), u"Hay líneas sin artículo."_s);
    return false;
}

bool Documento::puedeDejarse()
{
    if (!nadaEnEspera())
        return false;
    const int lineas = m_lineas->numero();
    return lineas == 0 || mensajes::preguntar(
                              window(), u"Mostrador"_s,
                              lineas == 1 ? u"Se perderá la línea del documento. ¿Desea continuar?"_s
                                          : u"Se perderán las %1 líneas del documento. ¿Desea continuar?"_s.arg(lineas),
                              mensajes::Respuesta::No) == mensajes::Respuesta::Si;
}

void Documento::alVaciar()
{
    if (puedeDejarse())
        vaciar();
}

void Documento::finalizar()
{
    if (!nadaEnEspera() || !asentarActual())
        return;
    const int lineas = m_lineas->numero();
    const QString total = m_lineas->total().textoAgrupado();
    vaciar();
    decir(m_articulo, lineas == 0   ? u"El documento no tiene líneas."_s
                      : lineas == 1 ? u"Documento terminado: 1 línea, %1 €"_s.arg(total)
                                    : u"Documento terminado: %1 líneas, %2 €"_s.arg(lineas).arg(total));
}

/// In the status bar for a while, and at the field until the next key.
void Documento::decir(QWidget *campo, const QString &texto)
{
    Q_EMIT Aviso(texto);
    nv::Aviso::mostrar(campo, texto);
}

void Documento::vaciar()
{
    m_lineas->vaciar();
    siguienteArticulo();
}

void Documento::siguienteArticulo()
{
    m_articulo->setCodigo({});
    m_unidades->setText(u"1"_s);
    m_precio->clear();
    m_articulo->setFocus();
    Q_EMIT Cambio();
}

} // namespace mostrador
