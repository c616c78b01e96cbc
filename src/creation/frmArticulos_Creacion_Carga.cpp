#include "creation/frmArticulos_Creacion.h"

#include "common/Conexion.h"
#include "common/Error.h"
#include "common/cEmpresa.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/pickers/nvTemporada.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"

#include <QComboBox>
#include <QLabel>

using namespace Qt::StringLiterals;
using nv::Registros;
using nv::Sentencia;

namespace {

bool booleano(const Registros &registros, QStringView columna)
{
    return !registros.esNulo(columna) && registros.booleano(columna);
}

qint16 entero16(const Registros &registros, QStringView columna)
{
    return registros.esNulo(columna) ? qint16(0) : registros.entero16(columna);
}

/// A name that cannot be looked up is missing on screen and no more. With the line gone all of them say the same: once
/// is enough.
template <class Carga>
void anotando(QStringList &fallos, Carga &&carga)
{
    try {
        carga();
    } catch (const nv::Error &error) {
        if (!fallos.contains(error.descripcion))
            fallos << error.descripcion;
    }
}

} // namespace

void frmArticulos_Creacion::Cargar(QStringList &fallos)
{
    if (!cEmpresa)
        throw nv::Error{nv::errores::SinObjeto, u"No se ha indicado la empresa."_s, {}};
    if (!Conexion)
        throw nv::Error{nv::errores::SinObjeto, u"No se ha establecido la conexión con la base de datos."_s, {}};
    {
        const Suspension suspension(*this);
        cargarSelectores(fallos);
        cargarNombres();
        cargarFamilias(fallos);
        cargarEmpresa();
        cargarFormatos();
        m_unidadesDecimales->setValue(UnidadesDecimales == 1 ? 1 : 0);
    }
    Formar_Descripciones();
}

void frmArticulos_Creacion::cargarSelectores(QStringList &fallos)
{
    m_proveedor->setcEmpresa(cEmpresa);
    m_proveedor->setConexion(Conexion);
    if (Proveedor != 0) {
        m_proveedor->setCodigo(Proveedor);
        anotando(fallos, [this] { m_proveedor->Cargar(); });
    }
    m_referencia->setText(Ref);
    for (std::size_t i = 0; i < m_familias.size(); ++i) {
        m_familias[i]->setConexion(Conexion);
        m_familias[i]->setcEmpresa(cEmpresa);
        m_familias[i]->setNivel(static_cast<int>(i) + 1);
    }
    m_marca->setConexion(Conexion);
    if (Marca != 0) {
        m_marca->setCodigo(Marca);
        anotando(fallos, [this] { m_marca->Cargar(); });
    }
    if (TipoImpuesto != 0) {
        m_impuesto->setText(QString::number(TipoImpuesto));
        anotando(fallos, [this] { mostrarPorcentaje(); });
    }
    m_temporada->setConexion(Conexion);
    m_temporada->setTexto(Temporada);
    if (!Temporada.isEmpty())
        anotando(fallos, [this] { m_temporada->Cargar(); });
}

void frmArticulos_Creacion::cargarNombres()
{
    for (std::size_t i = 0; i < m_familias.size(); ++i) {
        const QString nombre = cEmpresa->NombreFamilia(static_cast<int>(i));
        if (nombre.isEmpty())
            continue;
        m_rotulosFamilia[i]->setText(nombre + u':');
        m_familias[i]->setAccessibleName(nombre);
        m_rotulosFamilia[i]->show();
        m_familias[i]->show();
    }
    const std::array listas{m_cualidadX, m_cualidadY};
    for (std::size_t i = 0; i < listas.size(); ++i) {
        const QString nombre = cEmpresa->NombreCualidad(static_cast<int>(i));
        if (nombre.isEmpty())
            continue;
        m_rotulosCualidad[i]->setText(nombre + u':');
        listas[i]->setAccessibleName(nombre);
    }
}

void frmArticulos_Creacion::cargarFamilias(QStringList &fallos)
{
    const std::array codigos{Familia_1, Familia_2, Familia_3};
    for (std::size_t i = 0; i < m_familias.size(); ++i) {
        if (m_familias[i]->isHidden())
            continue;
        if (codigos[i] != 0) {
            m_familias[i]->setCodigoPadre1(Familia_1);
            m_familias[i]->setCodigoPadre2(Familia_2);
            m_familias[i]->setCodigo(codigos[i]);
        }
        anotando(fallos, [&] { m_familias[i]->Cargar(); });
    }
}

void frmArticulos_Creacion::cargarEmpresa()
{
    Sentencia sentencia(u"SELECT FamiliaObligada, DirImagenArt, MargenReal_FArt_sUltimoPUC, MaxCodigoArt, "
                        u"CualidadX_PorDefecto, CualidadY_PorDefecto, Series_Automaticas "
                        u" FROM Empresas WHERE Codigo=");
    sentencia << cEmpresa->Codigo();
    Registros registros = Conexion->Abrir(sentencia);
    const bool hay = registros.siguiente();
    m_familiaObligada = hay && booleano(registros, u"FamiliaObligada");
    m_maxCodigoArt = hay && !registros.esNulo(u"MaxCodigoArt") ? registros.entero32(u"MaxCodigoArt") : 0;
    const qint16 x = hay ? entero16(registros, u"CualidadX_PorDefecto") : qint16(0);
    const qint16 y = hay ? entero16(registros, u"CualidadY_PorDefecto") : qint16(0);
    const bool series = hay && booleano(registros, u"Series_Automaticas");
    registros.cerrar();
    m_sinSerieEan->setEnabled(series);
    m_sinSerieEan->setValue(NoGenerarSerieEAN == 1 ? 1 : 0);
    const bool porDefecto = CualidadX == 0 && CualidadY == 0;
    cargarCualidades(porDefecto ? x : CualidadX, porDefecto ? y : CualidadY);
}

void frmArticulos_Creacion::cargarCualidades(qint16 x, qint16 y)
{
    m_cualidadX->clear();
    m_cualidadY->clear();
    Registros registros = Conexion->Abrir(Sentencia(u"SELECT * FROM Cualidades"));
    while (registros.siguiente()) {
        const QString nombre = registros.textoO(u"Nombre");
        const int codigo = registros.entero16(u"Codigo");
        m_cualidadX->addItem(nombre, codigo);
        m_cualidadY->addItem(nombre, codigo);
    }
    m_cualidadX->setCurrentIndex(m_cualidadX->findData(int(x)));
    m_cualidadY->setCurrentIndex(m_cualidadY->findData(int(y)));
}

void frmArticulos_Creacion::cargarFormatos()
{
    m_formatoTicket = leerFormato(false);
    m_formatoLargo = leerFormato(true);
}

nv::FormatoDescripcion frmArticulos_Creacion::leerFormato(bool larga)
{
    const Sentencia sentencia = larga ? Sentencia(u"SELECT * FROM Formacion_Desc WHERE Desc_Larga=1 ORDER BY Orden")
                                      : Sentencia(u"SELECT * FROM Formacion_Desc WHERE Desc_Larga=0 ORDER BY Orden");
    nv::FormatoDescripcion formato;
    Registros registros = Conexion->Abrir(sentencia);
    while (registros.siguiente())
        formato.push_back({entero16(registros, u"Cod_Campo"), entero16(registros, u"Longitud")});
    return formato;
}
