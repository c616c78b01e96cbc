#include "PanelAjustes.h"

#include "Base.h"
#include "Formas.h"
#include "nvArticulo/nvArticulo.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"

#include <QComboBox>
#include <QGroupBox>

using namespace Qt::StringLiterals;

namespace mostrador {

using namespace formas;

const QString ClaveModelo = u"BusquedaArticulos"_s;
/// Of the search dialogs, by model.
constexpr auto Modelos = u"0 - Descripción, código, referencia y familia|1 - Precios y existencias, varias marcas|"
                         u"2 - Texto libre con existencias y precios|3 - Proveedor, familia y marca|"
                         u"4 - Almacén y más vendidos|5 - Existencias por almacén y ofertas|6 - Surtido del almacén|"
                         u"7 - Texto libre con marca|8 - Texto libre, a la venta por familia";

PanelAjustes::PanelAjustes(QWidget *padre)
    : QWidget(padre)
    , m_modelo(nombrado<QComboBox>(u"cboModelo"_s))
    , m_proveedor(nombrado<nvProveedor>(u"txtProveedor"_s))
{
    auto *columna = new QVBoxLayout(this);
    columna->addWidget(grupoEmpresa());
    columna->addWidget(grupoArticulo());
    columna->addStretch();
}

QWidget *PanelAjustes::grupoEmpresa()
{
    m_modelo->addItems(QString::fromUtf16(Modelos).split(u'|'));
    m_modelo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_modelo->setMinimumContentsLength(12);
    m_modelo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    connect(m_modelo, &QComboBox::currentIndexChanged, this, [this](int modelo) {
        escribir([&] {
            m_base->empresa().PonerValor(ClaveModelo, QString::number(modelo));
            m_articulo->setModelo(static_cast<qint16>(modelo));
        });
    });
    auto *grupo = new QGroupBox(u"Empresa"_s);
    auto *columna = new QVBoxLayout(grupo);
    columna->addWidget(rotulo(u"Modelo de &búsqueda:"_s, m_modelo));
    columna->addWidget(m_modelo);
    columna->addWidget(ajuste(u"EsUlvaro"_s, u"Edición de moda (EsUlvaro)"_s));
    columna->addWidget(casilla(
        u"chkOrdenCualidades"_s, u"Posiciones 9-10 = X, 11-12 = Y"_s,
        [this] { return m_base->empresa().OrdenCualidades(); },
        [this](bool marcada) {
            Sentencia s(u"UPDATE Empresas SET OrdenCualidades =");
            m_base->conexion().Ejecutar(s << int(marcada) << u" WHERE Codigo =" << m_base->empresa().Codigo());
            m_base->empresa().Recargar();
        }));
    columna->addWidget(ajuste(u"OficinaCentral"_s, u"&Oficina central"_s));
    columna->addWidget(permiso(u"chkPermisoReferencias"_s, u"Permiso: crear referencias"_s, 19));
    columna->addWidget(permiso(u"chkPermisoBarras"_s, u"Permiso: crear códigos de barras"_s, 8));
    return grupo;
}

QWidget *PanelAjustes::grupoArticulo()
{
    auto *grupo = new QGroupBox(u"Caja de artículo"_s);
    auto *columna = new QVBoxLayout(grupo);
    for (const char *nombre : {"Vital", "Inicial", "DejarEnBlanco", "MultiResultado", "SeleccionarTodo",
                               "GuardarBusqueda", "KeyUpChangeFocus", "Locked"})
        columna->addWidget(propiedad(nombre));
    m_proveedor->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    connect(m_proveedor, &SelectorCodigo::Cambio, this,
            [this] { escribir([this] { m_articulo->setProveedor(codigoDe(*m_proveedor)); }); });
    columna->addLayout(enFila({rotulo(u"&Proveedor:"_s, m_proveedor->caja()), m_proveedor}));
    return grupo;
}

nvCheckBox *PanelAjustes::casilla(const QString &nombre, const QString &texto, std::function<bool()> leer,
                                  std::function<void(bool)> cambiar)
{
    auto *caja = nombrado<nvCheckBox>(nombre, texto);
    m_lecturas.push_back([caja, leer = std::move(leer)] { caja->setChecked(leer()); });
    connect(caja, &QCheckBox::toggled, this,
            [this, cambiar = std::move(cambiar)](bool marcada) { escribir([&] { cambiar(marcada); }); });
    return caja;
}

nvCheckBox *PanelAjustes::ajuste(const QString &clave, const QString &texto)
{
    return casilla(
        u"chk"_s + clave, texto, [this, clave] { return m_base->empresa().ValorBooleano(clave); },
        [this, clave](bool marcada) { m_base->empresa().PonerValor(clave, QString::number(marcada)); });
}

/// A row denies.
nvCheckBox *PanelAjustes::permiso(const QString &nombre, const QString &texto, int control)
{
    const auto leer = [this, control] {
        Sentencia s(u"SELECT Permiso FROM SGD_Controles_Grupos WHERE Cod_Formulario = 1 AND Cod_Control =");
        return !m_base->conexion().Abrir(s << control << u" AND Permiso > 0").siguiente();
    };
    const auto cambiar = [this, control](bool concedido) {
        Conexion &conexion = m_base->conexion();
        Transaccion transaccion(conexion);
        Sentencia fuera(u"DELETE FROM SGD_Controles_Grupos WHERE Cod_Formulario = 1 AND Cod_Control =");
        conexion.Ejecutar(fuera << control);
        Sentencia fila(
            u"INSERT INTO SGD_Controles_Grupos (Cod_Formulario, Cod_Control, Cod_Grupo, Permiso) VALUES (1, ");
        if (!concedido)
            conexion.Ejecutar(fila << control << u", 1, 1)");
        transaccion.confirmar();
        // Permissions are asked for once in the life of a box.
        Q_EMIT ArticuloCaducado();
    };
    return casilla(nombre, texto, leer, cambiar);
}

nvCheckBox *PanelAjustes::propiedad(const QByteArray &nombre)
{
    return casilla(
        u"chk"_s + QString::fromLatin1(nombre), QString::fromLatin1(nombre),
        [this, nombre] { return m_articulo->property(nombre).toBool(); },
        [this, nombre](bool marcada) { m_articulo->setProperty(nombre, marcada); });
}

/// Nothing while the panel reads; a change that fails shows again what is set.
void PanelAjustes::escribir(const std::function<void()> &cambio)
{
    if (!m_leyendo && m_base && m_articulo && !mensajes::guardar(window(), u"Ajustes"_s, cambio))
        releer();
}

void PanelAjustes::setBase(Base *base)
{
    m_base = base;
    m_proveedor->setConexion(base ? &base->conexion() : nullptr);
    m_proveedor->setcEmpresa(base ? &base->empresa() : nullptr);
    setEnabled(base != nullptr);
}

void PanelAjustes::setArticulo(nvArticulo *articulo)
{
    m_articulo = articulo;
}

void PanelAjustes::releer()
{
    if (!m_base || !m_articulo)
        return;
    m_leyendo = true;
    mensajes::guardar(window(), u"Ajustes"_s, [this] {
        m_modelo->setCurrentIndex(m_base->empresa().ValorEntero16(ClaveModelo));
        for (const auto &leer : m_lecturas)
            leer();
        if (codigoDe(*m_proveedor) != m_articulo->Proveedor())
            m_proveedor->setCodigo(m_articulo->Proveedor());
        m_proveedor->Cargar();
    });
    m_leyendo = false;
}

} // namespace mostrador
