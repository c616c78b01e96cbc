#include "PanelEstado.h"

#include "Formas.h"
#include "Propiedades.h"
#include "nvArticulo/nvArticulo.h"
#include "platform/widgets/EtiquetaElidida.h"

#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace mostrador {

using namespace formas;

constexpr int LineasGuardadas = 1000;

QWidget *PanelEstado::grupoComponente()
{
    auto *grupo = new QGroupBox(u"Componente"_s);
    auto *formulario = new QFormLayout(grupo);
    formulario->setVerticalSpacing(2);
    for (const QString &nombre : {u"Text"_s, u"Codigo"_s, u"Nombre"_s, u"Existe"_s, u"Pendiente"_s, u"TieneCualidad"_s,
                                  u"Valor_CualidadX"_s, u"Valor_CualidadY"_s, u"Nombre_CualidadX"_s,
                                  u"Nombre_CualidadY"_s, u"Proveedor"_s, u"MultiCodigo"_s, u"MultiDescripcion"_s}) {
        auto *titulo = new QLabel(nombre);
        auto *valor = nombrado<EtiquetaElidida>(u"estado"_s + nombre);
        // A long list of codes must not widen the window.
        valor->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        valor->setAccessibleName(nombre);
        formulario->addRow(titulo, valor);
        m_valores.push_back(valor);
    }
    return grupo;
}

PanelEstado::PanelEstado(QWidget *padre)
    : QWidget(padre)
    , m_sentencias(nombrado<QPlainTextEdit>(u"txtSentencias"_s))
    , m_resumen(nombrado<QLabel>(u"lblSentencias"_s))
{
    m_pronto.setSingleShot(true);
    connect(&m_pronto, &QTimer::timeout, this, &PanelEstado::mostrar);
    m_sentencias->setReadOnly(true);
    m_sentencias->setMaximumBlockCount(LineasGuardadas);
    m_sentencias->setTabChangesFocus(true);
    QFont fija = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fija.setPointSizeF(font().pointSizeF());
    m_sentencias->setFont(fija);
    auto *limpiar = nombrado<QPushButton>(u"cmdLimpiar"_s, u"&Limpiar"_s);
    connect(limpiar, &QPushButton::clicked, this, &PanelEstado::limpiarSentencias);
    auto *columna = new QVBoxLayout(this);
    columna->addWidget(grupoComponente());
    columna->addLayout(enFila({rotulo(u"&Sentencias"_s, m_sentencias), nullptr, m_resumen, limpiar}));
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

void PanelEstado::mostrar()
{
    if (!m_pendientes.isEmpty()) {
        m_sentencias->appendPlainText(m_pendientes.join(u'\n'));
        m_pendientes.clear();
        m_resumen->setText(m_numero == 1 ? u"1 sentencia"_s : u"%1 sentencias"_s.arg(m_numero));
    }
    if (!m_articulo)
        return;
    for (QLabel *rotulo : m_valores)
        rotulo->setText(propiedades::leida(*m_articulo, rotulo->accessibleName()).value_or(QString()));
}

} // namespace mostrador
