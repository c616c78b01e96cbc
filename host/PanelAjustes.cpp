#include "PanelAjustes.h"

#include "common/Conexion.h"
#include "common/EmpresaBD.h"
#include "control/nvArticulo.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

const QString ClaveModelo = u"BusquedaArticulos"_s;

/// Of the search dialogs, by model.
QStringList nombresModelos()
{
    return {u"0 - Descripción, código, referencia y familia"_s,
            u"1 - Precios y existencias, varias marcas"_s,
            u"2 - Texto libre con existencias y precios"_s,
            u"3 - Proveedor, familia y marca"_s,
            u"4 - Almacén y más vendidos"_s,
            u"5 - Existencias por almacén y ofertas"_s,
            u"6 - Surtido del almacén"_s,
            u"7 - Texto libre con marca"_s,
            u"8 - Texto libre, a la venta por familia"_s};
}

} // namespace

PanelAjustes::PanelAjustes(QWidget *padre)
    : QWidget(padre)
{
    auto *columna = new QVBoxLayout(this);
    columna->addWidget(grupoEmpresa());
    columna->addWidget(grupoArticulo());
    columna->addStretch();
}

nvCheckBox *PanelAjustes::casilla(const QString &nombre, const QString &texto, std::function<bool()> leer,
                                  std::function<void(bool)> escribir)
{
    auto *caja = new nvCheckBox(texto);
    caja->setObjectName(nombre);
    m_casillas.push_back({caja, std::move(leer), escribir});
    connect(caja, &QCheckBox::toggled, this, [this, escribir = std::move(escribir)](bool marcada) {
        if (m_leyendo || !m_empresa)
            return;
        if (!mensajes::guardar(window(), u"Ajustes"_s, [&] { escribir(marcada); }))
            releer();
    });
    return caja;
}

nvCheckBox *PanelAjustes::ajuste(const QString &clave, const QString &texto)
{
    return casilla(
        u"chk"_s + clave, texto, [this, clave] { return m_empresa->ValorBooleano(clave); },
        [this, clave](bool marcada) { m_empresa->PonerValor(clave, marcada ? u"1"_s : u"0"_s); });
}

bool PanelAjustes::denegado(int control) const
{
    Sentencia s(u"SELECT Permiso FROM SGD_Controles_Grupos WHERE Cod_Formulario = 1 AND Cod_Control =");
    s << control << u" AND Permiso > 0";
    return m_conexion->Abrir(s).siguiente();
}

void PanelAjustes::denegar(int control, bool denegado)
{
    Sentencia fuera(u"DELETE FROM SGD_Controles_Grupos WHERE Cod_Formulario = 1 AND Cod_Control =");
    m_conexion->Ejecutar(fuera << control);
    if (denegado) {
        Sentencia fila(
            u"INSERT INTO SGD_Controles_Grupos (Cod_Formulario, Cod_Control, Cod_Grupo, Permiso) VALUES (1, ");
        m_conexion->Ejecutar(fila << control << u", 1, 1)");
    }
    // Permissions are asked for once in the life of a box.
    Q_EMIT ArticuloCaducado();
}

nvCheckBox *PanelAjustes::permiso(const QString &nombre, const QString &texto, int control)
{
    return casilla(
        nombre, texto, [this, control] { return !denegado(control); },
        [this, control](bool marcada) { denegar(control, !marcada); });
}

QWidget *PanelAjustes::grupoEmpresa()
{
    auto *grupo = new QGroupBox(u"Empresa"_s);
    m_modelo = new QComboBox;
    m_modelo->setObjectName(u"cboModelo"_s);
    m_modelo->addItems(nombresModelos());
    m_modelo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_modelo->setMinimumContentsLength(20);
    connect(m_modelo, &QComboBox::currentIndexChanged, this, &PanelAjustes::cambiarModelo);

    auto *etiqueta = new QLabel(u"Modelo de &búsqueda:"_s);
    etiqueta->setBuddy(m_modelo);
    auto *columna = new QVBoxLayout(grupo);
    auto *fila = new QHBoxLayout;
    fila->addWidget(etiqueta);
    fila->addWidget(m_modelo, 1);
    columna->addLayout(fila);
    columna->addWidget(ajuste(u"EsUlvaro"_s, u"Edición de moda (EsUlvaro)"_s));
    columna->addWidget(casilla(
        u"chkOrdenCualidades"_s, u"En los códigos, posiciones 9-10 = X y 11-12 = Y"_s,
        [this] { return m_empresa->OrdenCualidades(); },
        [this](bool marcada) {
            Sentencia s(u"UPDATE Empresas SET OrdenCualidades =");
            m_conexion->Ejecutar(s << (marcada ? 1 : 0) << u" WHERE Codigo =" << m_empresa->Codigo());
            m_empresa->Recargar();
        }));
    columna->addWidget(ajuste(u"OficinaCentral"_s, u"&Oficina central"_s));
    columna->addWidget(permiso(u"chkPermisoReferencias"_s, u"Permiso para crear referencias"_s, 19));
    columna->addWidget(permiso(u"chkPermisoBarras"_s, u"Permiso para crear códigos de barras"_s, 8));
    return grupo;
}

QWidget *PanelAjustes::grupoArticulo()
{
    auto *grupo = new QGroupBox(u"Caja de artículo"_s);
    auto *rejilla = new QGridLayout;
    const auto propiedad = [this](const QString &nombre, bool (nvArticulo::*leer)() const,
                                  void (nvArticulo::*escribir)(bool)) {
        return casilla(
            u"chk"_s + nombre, nombre, [this, leer] { return m_articulo && ((*m_articulo).*leer)(); },
            [this, escribir](bool marcada) {
                if (m_articulo)
                    ((*m_articulo).*escribir)(marcada);
            });
    };
    const auto campo = [this](const QString &nombre, bool nvArticulo::*miembro) {
        return casilla(
            u"chk"_s + nombre, nombre, [this, miembro] { return m_articulo && (*m_articulo).*miembro; },
            [this, miembro](bool marcada) {
                if (m_articulo)
                    (*m_articulo).*miembro = marcada;
            });
    };
    const std::vector<nvCheckBox *> cajas{
        propiedad(u"Vital"_s, &nvArticulo::Vital, &nvArticulo::setVital),
        propiedad(u"Inicial"_s, &nvArticulo::Inicial, &nvArticulo::setInicial),
        campo(u"DejarEnBlanco"_s, &nvArticulo::DejarEnBlanco),
        campo(u"MultiResultado"_s, &nvArticulo::MultiResultado),
        campo(u"SeleccionarTodo"_s, &nvArticulo::SeleccionarTodo),
        campo(u"GuardarBusqueda"_s, &nvArticulo::GuardarBusqueda),
        propiedad(u"KeyUpChangeFocus"_s, &nvArticulo::KeyUpChangeFocus, &nvArticulo::setKeyUpChangeFocus),
        propiedad(u"Locked"_s, &nvArticulo::Locked, &nvArticulo::setLocked),
    };
    for (std::size_t i = 0; i < cajas.size(); ++i)
        rejilla->addWidget(cajas[i], static_cast<int>(i / 2), static_cast<int>(i % 2));

    m_escaner = casilla(
        u"chkEscaner"_s, u"Modo &escáner"_s, [this] { return m_articulo && !m_articulo->KeyEnterChangeFocus(); },
        [this](bool marcada) {
            if (m_articulo)
                m_articulo->setKeyEnterChangeFocus(!marcada);
            Q_EMIT ModoEscaner(marcada);
        });
    m_escaner->setToolTip(u"Cada artículo leído es una línea de una unidad."_s);
    m_proveedor = new nvProveedor;
    m_proveedor->setObjectName(u"txtProveedor"_s);
    connect(m_proveedor, &SelectorCodigo::Cambio, this, [this] {
        if (m_articulo && !m_leyendo)
            m_articulo->setProveedor(m_proveedor->Codigo());
    });
    auto *etiqueta = new QLabel(u"&Proveedor:"_s);
    etiqueta->setBuddy(m_proveedor->caja());
    auto *fila = new QHBoxLayout;
    fila->addWidget(etiqueta);
    fila->addWidget(m_proveedor, 1);

    auto *columna = new QVBoxLayout(grupo);
    columna->addLayout(rejilla);
    columna->addLayout(fila);
    return grupo;
}

void PanelAjustes::setOrigen(Conexion *conexion, EmpresaBD *empresa)
{
    m_conexion = conexion;
    m_empresa = empresa;
    m_proveedor->setConexion(conexion);
    m_proveedor->setcEmpresa(empresa);
    setEnabled(empresa != nullptr);
}

void PanelAjustes::setArticulo(nvArticulo *articulo)
{
    m_articulo = articulo;
}

nvCheckBox *PanelAjustes::casillaEscaner() const
{
    return m_escaner;
}

void PanelAjustes::cambiarModelo(int modelo)
{
    if (m_leyendo || !m_empresa || modelo < 0)
        return;
    mensajes::guardar(window(), u"Ajustes"_s, [&] {
        m_empresa->PonerValor(ClaveModelo, QString::number(modelo));
        if (m_articulo)
            m_articulo->setModelo(static_cast<qint16>(modelo));
    });
}

void PanelAjustes::releer()
{
    if (!m_empresa)
        return;
    m_leyendo = true;
    mensajes::guardar(window(), u"Ajustes"_s, [this] {
        m_modelo->setCurrentIndex(m_empresa->ValorEntero16(ClaveModelo));
        for (const Casilla &casilla : m_casillas)
            casilla.caja->setChecked(casilla.leer());
        if (m_articulo && m_proveedor->Codigo() != m_articulo->Proveedor())
            m_proveedor->setCodigo(m_articulo->Proveedor());
        m_proveedor->Cargar();
    });
    m_leyendo = false;
}

} // namespace nv
