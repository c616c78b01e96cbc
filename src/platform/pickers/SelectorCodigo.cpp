#include "platform/pickers/SelectorCodigo.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/pickers/ListaCodigos.h"
#include "platform/widgets/Colores.h"
#include "platform/widgets/DialogoPropio.h"
#include "platform/widgets/EtiquetaElidida.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Twips.h"
#include "platform/widgets/nvTextBox.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <limits>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr int AnchoCaja = 900; // twips
constexpr QColor Desconocido(176, 0, 32);

/// A locked picker still says what it is locked to: its name stays easier to read than other disabled texts.
QPalette coloresNombre(const QPalette &propia, bool existe)
{
    const QColor fondo = propia.color(QPalette::Active, QPalette::Window);
    const QColor texto =
        existe ? propia.color(QPalette::Active, QPalette::WindowText) : colores::legible(Desconocido, fondo);
    const auto mezcla = [](int a, int b) { return (2 * a + b) / 3; };
    QPalette colores;
    if (!existe)
        colores.setColor(QPalette::WindowText, texto);
    colores.setColor(QPalette::Disabled, QPalette::WindowText,
                     QColor(mezcla(texto.red(), fondo.red()), mezcla(texto.green(), fondo.green()),
                            mezcla(texto.blue(), fondo.blue())));
    return colores;
}

} // namespace

SelectorCodigo::SelectorCodigo(const Tabla &tabla, QWidget *padre)
    : QWidget(padre)
    , m_tabla(tabla)
    , m_caja(new nvTextBox(this))
    , m_etiqueta(new EtiquetaElidida(this))
{
    m_caja->setObjectName(u"caja"_s);
    m_caja->setFixedWidth(twips::conLetra(AnchoCaja, this));
    m_caja->setMaxLength(20);
    m_caja->installEventFilter(this);
    m_etiqueta->setObjectName(u"nombre"_s);
    m_etiqueta->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    auto *fila = new QHBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->setSpacing(twips::aPixeles(90, this));
    fila->addWidget(m_caja);
    fila->addWidget(m_etiqueta);
    setFocusProxy(m_caja);
    setFocusPolicy(Qt::StrongFocus);
    connect(m_caja, &QLineEdit::textChanged, this, [this] {
        olvidarNombre();
        Q_EMIT Cambio();
    });
    connect(m_caja, &nvTextBox::Intro, this, &SelectorCodigo::alPulsarIntro);
    connect(m_caja, &nvTextBox::Salida, this, &SelectorCodigo::alSalir);
}

Sentencia SelectorCodigo::desde() const
{
    Sentencia s(m_tabla.desde);
    if (m_tabla.de == De::Todas)
        return s;
    if (!m_empresa)
        throw errores::sinEmpresa();
    s << u" WHERE Cod_Empresa =";
    switch (m_tabla.de) {
    case De::Articulos:
        return s << m_empresa->CodigoArticulos();
    case De::Proveedores:
        return s << m_empresa->CodigoProveedores();
    case De::Clientes:
        return s << m_empresa->CodigoClientes();
    case De::Todas:
    case De::Empresa:
        break;
    }
    return s << m_empresa->Codigo();
}

Sentencia SelectorCodigo::consultaNombre(const QString &codigo) const
{
    Sentencia s(u"SELECT Nombre");
    s << desde() << (m_tabla.de == De::Todas ? Fragmento(u" WHERE") : Fragmento(u" AND")) << u" Codigo =";
    if (m_tabla.numericos)
        return s << NumeroEscrito(codigo);
    return s << u"'" << Doblado(codigo) << u"'";
}

Sentencia SelectorCodigo::consultaLista() const
{
    Sentencia s(u"SELECT Codigo, Nombre");
    const bool porNombre = m_tabla.orden == Por::Nombre;
    return s << desde() << (porNombre ? Orden(u" ORDER BY Nombre, Codigo") : Orden(u" ORDER BY Codigo"));
}

Conexion &SelectorCodigo::conexion() const
{
    return m_conexion ? *m_conexion : ranura::exigida();
}

qint32 SelectorCodigo::Codigo() const
{
    return Texto().toInt();
}

qint64 SelectorCodigo::CodigoBuscado() const
{
    constexpr qint64 ninguno = qint64{std::numeric_limits<qint32>::max()} + 1;
    const QString texto = Texto();
    bool cabe = texto.isEmpty();
    const qint32 codigo = cabe ? 0 : texto.toInt(&cabe);
    return cabe && codigo >= 0 ? codigo : ninguno;
}

void SelectorCodigo::setCodigo(qint32 codigo)
{
    setTexto(codigo == 0 ? QString() : QString::number(codigo));
}

QString SelectorCodigo::Texto() const
{
    return m_caja->text().trimmed();
}

void SelectorCodigo::setTexto(const QString &texto)
{
    m_caja->setText(texto);
}

void SelectorCodigo::olvidarNombre()
{
    m_pendiente = true;
    m_existe = false;
    m_nombre.clear();
    m_etiqueta->clear();
}

void SelectorCodigo::mostrarNombre(const QString &nombre, bool existe)
{
    m_pendiente = false;
    m_existe = existe;
    m_nombre = existe ? nombre : QString();
    m_etiqueta->setPalette(coloresNombre(palette(), existe));
    m_etiqueta->setText(nombre);
    m_caja->setAccessibleDescription(nombre);
    Q_EMIT Cargado();
}

bool SelectorCodigo::Cargar()
{
    olvidarNombre();
    // Whatever comes of it, leaving the box does not ask the same again.
    m_pendiente = false;
    QString codigo = Texto();
    if (m_tabla.numericos && !codigo.isEmpty()) {
        bool numero = false;
        const qint32 valor = codigo.toInt(&numero);
        if (!numero) {
            mostrarNombre(u"No existe"_s, false);
            return false;
        }
        codigo = valor == 0 ? QString() : QString::number(valor);
    }
    if (codigo.isEmpty()) {
        mostrarNombre({}, false);
        return false;
    }
    Registros registros = conexion().Abrir(consultaNombre(codigo));
    if (registros.siguiente())
        mostrarNombre(registros.textoO(u"Nombre").trimmed(), true);
    else
        mostrarNombre(u"No existe"_s, false);
    return m_existe;
}

bool SelectorCodigo::Asentar()
{
    return !m_pendiente || mensajes::guardar(this, titulo(), [this] { Cargar(); });
}

void SelectorCodigo::alPulsarIntro(bool &tratada)
{
    const QPointer<SelectorCodigo> vivo(this);
    if (Asentar() && vivo)
        Q_EMIT Intro(tratada);
    else
        tratada = true;
}

void SelectorCodigo::alSalir()
{
    const QPointer<SelectorCodigo> vivo(this);
    Asentar();
    if (vivo)
        Q_EMIT Salida();
}

bool SelectorCodigo::event(QEvent *evento)
{
    if (evento->type() == QEvent::Polish) {
        m_caja->setNumerico(m_tabla.numericos);
        m_caja->setConSigno(false);
        m_caja->setAccessibleName(accessibleName().isEmpty() ? titulo() : accessibleName());
    }
    return QWidget::event(evento);
}

bool SelectorCodigo::eventFilter(QObject *objeto, QEvent *evento)
{
    const bool deTecla = evento->type() == QEvent::ShortcutOverride || evento->type() == QEvent::KeyPress;
    if (objeto != m_caja || !deTecla || static_cast<QKeyEvent *>(evento)->key() != Qt::Key_F3)
        return QWidget::eventFilter(objeto, evento);
    evento->accept();
    if (evento->type() == QEvent::KeyPress && !static_cast<QKeyEvent *>(evento)->isAutoRepeat())
        elegirEnLista();
    return true;
}

void SelectorCodigo::elegirEnLista()
{
    const QPointer<SelectorCodigo> vivo(this);
    mensajes::guardar(this, titulo(), [&] {
        const DialogoPropio<ListaCodigos> lista(new ListaCodigos(titulo(), m_tabla.numericos, this));
        Registros registros = conexion().Abrir(consultaLista());
        lista->llenar(registros, Texto());
        lista->MostrarModal();
        if (!vivo || !lista.vivo() || lista->elegido().isEmpty())
            return;
        setTexto(lista->elegido());
        if (m_pendiente)
            Cargar();
        m_caja->selectAll();
    });
}

} // namespace nv
