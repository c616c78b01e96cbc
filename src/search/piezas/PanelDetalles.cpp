#include "search/piezas/PanelDetalles.h"

#include "common/Valores.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/Colores.h"
#include "platform/widgets/Twips.h"
#include "search/piezas/CajaImagen.h"
#include "search/sql/Detalles.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr int AltoFoto = 2600; // twips
constexpr QColor Agotado(192, 0, 0);
constexpr QColor Disponible(0, 0, 192);

QLabel *titulo(const QString &texto, QWidget *padre)
{
    auto *etiqueta = new QLabel(texto, padre);
    etiqueta->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return etiqueta;
}

} // namespace

PanelDetalles::PanelDetalles(QWidget *padre)
    : QFrame(padre)
    , m_cuerpo(new QVBoxLayout(this))
    , m_foto(new CajaImagen(this))
    , m_avisoFoto(new QLabel(m_foto))
    , m_notas(new QPlainTextEdit(this))
    , m_stock(cifra(u"lblStock"_s, u"Stock"_s))
    , m_servir(cifra(u"lblPendServir"_s, u"Pendiente de servir"_s))
    , m_disponible(cifra(u"lblDisponible"_s, u"Disponible"_s))
    , m_tituloDisponible(titulo(u"Disponible:"_s, this))
    , m_recibir(cifra(u"lblPendRecibir"_s, u"Pendiente de recibir"_s))
    , m_pvp(cifra(u"lblPvp"_s, u"Pvp"_s))
{
    setObjectName(u"fraExtendido"_s);
    m_foto->setObjectName(u"picFoto"_s);
    m_foto->setAccessibleName(u"Imagen del artículo"_s);
    m_foto->setFixedHeight(twips::aPixeles(AltoFoto, this));
    m_avisoFoto->setObjectName(u"lblFotoCargando"_s);
    m_avisoFoto->setAlignment(Qt::AlignCenter);
    m_notas->setObjectName(u"txtObserv"_s);
    m_notas->setAccessibleName(u"Observaciones"_s);
    m_notas->setReadOnly(true);
    m_notas->setTabChangesFocus(true);

    auto *sobreFoto = new QVBoxLayout(m_foto);
    sobreFoto->addWidget(m_avisoFoto);
    QLabel *observaciones = nuevoRotulo(u"Observaciones:"_s, m_notas, this);

    auto *cifras = new QGridLayout;
    cifras->setHorizontalSpacing(twips::aPixeles(90, this));
    cifras->setVerticalSpacing(twips::aPixeles(45, this));
    cifras->setColumnStretch(1, 1);
    cifras->setColumnStretch(3, 1);
    const auto poner = [&](int fila, int columna, QLabel *rotulo, QLabel *valor) {
        cifras->addWidget(rotulo, fila, columna);
        cifras->addWidget(valor, fila, columna + 1);
    };
    poner(0, 0, titulo(u"Stock:"_s, this), m_stock);
    poner(1, 0, titulo(u"Pend. Servir:"_s, this), m_servir);
    poner(2, 0, m_tituloDisponible, m_disponible);
    poner(0, 2, titulo(u"Pend. Recibir:"_s, this), m_recibir);
    poner(2, 2, titulo(u"Pvp:"_s, this), m_pvp);
    QFont destacada = font();
    destacada.setBold(true);
    m_disponible->setFont(destacada);
    m_pvp->setFont(destacada);

    m_cuerpo->setContentsMargins(0, 0, 0, 0);
    m_cuerpo->setSpacing(twips::aPixeles(75, this));
    m_cuerpo->addWidget(m_foto);
    m_cuerpo->addWidget(observaciones);
    m_cuerpo->addWidget(m_notas, 1);
    m_cuerpo->addLayout(cifras);
    PanelDetalles::limpiar();
}

QLabel *PanelDetalles::cifra(const QString &nombre, const QString &accesible)
{
    auto *etiqueta = new QLabel(this);
    etiqueta->setObjectName(nombre);
    etiqueta->setAccessibleName(accesible);
    etiqueta->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    etiqueta->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    etiqueta->setMargin(twips::aPixeles(30, this));
    etiqueta->setBackgroundRole(QPalette::Base);
    etiqueta->setAutoFillBackground(true);
    return etiqueta;
}

const ::cEmpresa &PanelDetalles::empresa() const
{
    if (!m_empresa)
        throw errores::sinEmpresa();
    return *m_empresa;
}

void PanelDetalles::preparar(const ::cEmpresa &empresa, qint32 cliente)
{
    m_empresa = &empresa;
    m_precio.emplace(empresa, cliente);
    Registros registros = ranura::exigida().Abrir(sql::directorioImagenes(empresa.Codigo()));
    m_directorio = registros.siguiente() ? registros.textoO(u"DirImagenArt") : QString();
    // Directories are stored as the suite's Windows programs write them.
    m_directorio.replace(u'\\', QDir::separator());
}

void PanelDetalles::DevPropiedades(const QString &codigo)
{
    Conexion &conexion = ranura::exigida();
    const qint32 articulo = ValEntero32(codigo);
    vaciarCifras();
    mostrarNotas(conexion, articulo);
    Registros existencias = conexion.Abrir(consultaExistencias(articulo));
    if (existencias.siguiente())
        mostrarExistencias(existencias);
    existencias.cerrar();
    m_pvp->setText(m_precio->precio(conexion, articulo).texto(empresa().DecimalesPvp()));
    mostrarFoto(codigo);
}

void PanelDetalles::limpiar()
{
    vaciarCifras();
    m_foto->limpiar();
    m_avisoFoto->hide();
}

void PanelDetalles::vaciarCifras()
{
    for (QLabel *cifra : {m_stock, m_servir, m_disponible, m_recibir, m_pvp})
        cifra->setText(u"0,00"_s);
    pintarDisponible({});
    m_notas->clear();
}

void PanelDetalles::mostrarNotas(Conexion &conexion, qint32 articulo)
{
    Registros registros = conexion.Abrir(sql::notas(empresa().CodigoArticulos(), articulo));
    if (registros.siguiente())
        m_notas->setPlainText(registros.textoO(u"Desc_Memo"));
}

Sentencia PanelDetalles::consultaExistencias(qint32 articulo) const
{
    return sql::existencias(empresa().Codigo(), empresa().ValorEntero16(u"Almacen_PD"_s), articulo);
}

void PanelDetalles::mostrarExistencias(const Registros &registros)
{
    const Moneda stock = registros.monedaO(u"Stock_Actual");
    const Moneda servir = registros.monedaO(u"Pend_Servir");
    const Moneda disponible = stock - servir;
    m_stock->setText(stock.texto(2));
    m_servir->setText(servir.texto(2));
    m_disponible->setText(disponible.texto(2));
    m_recibir->setText(registros.monedaO(u"Pend_Recibir").texto(2));
    pintarDisponible(disponible > Moneda() ? Disponible : Agotado);
}

void PanelDetalles::pintarDisponible(const QColor &color)
{
    for (QLabel *etiqueta : {m_disponible, m_tituloDisponible}) {
        QPalette paleta;
        if (color.isValid())
            paleta.setColor(etiqueta->foregroundRole(),
                            colores::legible(color, paleta.color(etiqueta->backgroundRole())));
        etiqueta->setPalette(paleta);
    }
}

void PanelDetalles::mostrarFoto(const QString &codigo)
{
    const QString fichero = m_directorio + codigo + u".jpg"_s;
    if (!m_directorio.isEmpty() && QFileInfo(fichero).isFile()) {
        avisarFoto(u"<<< Cargando imagen >>>"_s);
        m_avisoFoto->repaint();
        if (m_foto->cargar(fichero)) {
            m_avisoFoto->hide();
            return;
        }
    }
    m_foto->limpiar();
    avisarFoto(u"<<< Imagen no disponible >>>"_s);
}

void PanelDetalles::avisarFoto(const QString &aviso)
{
    m_avisoFoto->setText(aviso);
    m_avisoFoto->show();
    m_avisoFoto->raise();
}

} // namespace nv
