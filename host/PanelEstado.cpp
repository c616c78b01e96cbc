#include "PanelEstado.h"

#include "control/nvArticulo.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <array>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr int LineasGuardadas = 1000;

QString siNo(bool valor)
{
    return valor ? u"True"_s : u"False"_s;
}

struct Propiedad
{
    const char16_t *nombre;
    QString (*leer)(nvArticulo &);
};

constexpr std::array<Propiedad, 13> Propiedades{{
    {u"Text", [](nvArticulo &a) { return a.Text(); }},
    {u"Codigo", [](nvArticulo &a) { return a.Codigo(); }},
    {u"Nombre", [](nvArticulo &a) { return a.Nombre(); }},
    {u"Existe", [](nvArticulo &a) { return siNo(a.Existe()); }},
    {u"Pendiente", [](nvArticulo &a) { return siNo(a.Pendiente()); }},
    {u"TieneCualidad", [](nvArticulo &a) { return siNo(a.TieneCualidad()); }},
    {u"Valor_CualidadX", [](nvArticulo &a) { return QString::number(a.Valor_CualidadX()); }},
    {u"Valor_CualidadY", [](nvArticulo &a) { return QString::number(a.Valor_CualidadY()); }},
    {u"Nombre_CualidadX", [](nvArticulo &a) { return a.Nombre_CualidadX(); }},
    {u"Nombre_CualidadY", [](nvArticulo &a) { return a.Nombre_CualidadY(); }},
    {u"Proveedor", [](nvArticulo &a) { return QString::number(a.Proveedor()); }},
    {u"MultiCodigo", [](nvArticulo &a) { return a.MultiCodigo(); }},
    {u"MultiDescripcion", [](nvArticulo &a) { return a.MultiDescripcion(); }},
}};

} // namespace

PanelEstado::PanelEstado(QWidget *padre)
    : QWidget(padre)
{
    auto *grupo = new QGroupBox(u"Componente"_s);
    auto *rejilla = new QGridLayout(grupo);
    rejilla->setColumnStretch(1, 1);
    rejilla->setVerticalSpacing(2);
    for (const Propiedad &propiedad : Propiedades) {
        const QString nombre = QString::fromUtf16(propiedad.nombre);
        const int fila = static_cast<int>(m_valores.size());
        auto *titulo = new QLabel(nombre);
        titulo->setForegroundRole(QPalette::PlaceholderText);
        auto *valor = new QLabel;
        valor->setObjectName(u"estado"_s + nombre);
        valor->setTextFormat(Qt::PlainText);
        valor->setTextInteractionFlags(Qt::TextSelectableByMouse);
        // A long list of codes must not widen the window.
        valor->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        valor->setAccessibleName(nombre);
        rejilla->addWidget(titulo, fila, 0);
        rejilla->addWidget(valor, fila, 1);
        m_valores.push_back(valor);
    }

    m_sentencias = new QPlainTextEdit;
    m_sentencias->setObjectName(u"txtSentencias"_s);
    m_sentencias->setReadOnly(true);
    m_sentencias->setMaximumBlockCount(LineasGuardadas);
    m_sentencias->setTabChangesFocus(true);
    m_sentencias->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_sentencias->setAccessibleName(u"Sentencias enviadas"_s);
    m_resumen = new QLabel;
    auto *limpiar = new QPushButton(u"&Limpiar"_s);
    limpiar->setObjectName(u"cmdLimpiar"_s);
    connect(limpiar, &QPushButton::clicked, this, &PanelEstado::limpiarSentencias);

    auto *cabecera = new QHBoxLayout;
    auto *titulo = new QLabel(u"&Sentencias"_s);
    titulo->setBuddy(m_sentencias);
    cabecera->addWidget(titulo);
    cabecera->addStretch();
    cabecera->addWidget(m_resumen);
    cabecera->addWidget(limpiar);
    auto *columna = new QVBoxLayout(this);
    columna->addWidget(grupo);
    columna->addLayout(cabecera);
    columna->addWidget(m_sentencias, 1);
}

PanelEstado::~PanelEstado()
{
    setConexion(nullptr);
}

void PanelEstado::setConexion(Conexion *conexion)
{
    if (m_conexion)
        m_conexion->dejarDeEscuchar(this);
    m_conexion = conexion;
    if (m_conexion)
        m_conexion->escuchar(this);
}

void PanelEstado::setArticulo(nvArticulo *articulo)
{
    m_articulo = articulo;
    actualizar();
}

void PanelEstado::limpiarSentencias()
{
    m_pendientes.clear();
    m_numero = 0;
    m_sentencias->clear();
    m_resumen->clear();
}

void PanelEstado::sentencia(const SucesoSentencia &suceso)
{
    ++m_numero;
    QString linea = u"%1 ms  %2"_s.arg(QString::number(static_cast<double>(suceso.nanosegundos) / 1e6, 'f', 3), 8)
                        .arg(suceso.texto);
    if (suceso.filas >= 0)
        linea += u"   → %1"_s.arg(suceso.filas);
    if (!suceso.error.isEmpty())
        linea += u"   ✗ "_s + suceso.error;
    m_pendientes << linea;
    if (m_pendientes.size() > LineasGuardadas)
        m_pendientes.removeFirst();
    actualizar();
}

void PanelEstado::actualizar()
{
    if (std::exchange(m_previsto, true))
        return;
    QTimer::singleShot(0, this, &PanelEstado::mostrar);
}

void PanelEstado::mostrar()
{
    m_previsto = false;
    if (!m_pendientes.isEmpty()) {
        m_sentencias->appendPlainText(m_pendientes.join(u'\n'));
        m_pendientes.clear();
        m_resumen->setText(m_numero == 1 ? u"1 sentencia"_s : u"%1 sentencias"_s.arg(m_numero));
    }
    if (!m_articulo)
        return;
    for (std::size_t i = 0; i < Propiedades.size(); ++i) {
        const QString valor = Propiedades[i].leer(*m_articulo);
        m_valores[i]->setText(valor);
        m_valores[i]->setToolTip(valor.toHtmlEscaped());
    }
}

} // namespace nv
