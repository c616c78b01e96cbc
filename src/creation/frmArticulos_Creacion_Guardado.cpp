#include "creation/frmArticulos_Creacion.h"

#include "barcodes/clsArticulo_CBarra.h"
#include "common/Conexion.h"
#include "common/Error.h"
#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvMarca.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/pickers/nvTemporada.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvCheckBox.h"
#include "platform/widgets/nvTextBox.h"

#include <QComboBox>
#include <QPointer>
#include <limits>
#include <optional>

using namespace Qt::StringLiterals;
using nv::Doblado;
using nv::Registros;
using nv::Sentencia;

namespace {

constexpr qint32 CualidadesNoUnicas = -2147221503;
constexpr qint16 SinValorUnico = -1;

qint16 entero16(qint32 valor)
{
    if (valor < std::numeric_limits<qint16>::min() || valor > std::numeric_limits<qint16>::max())
        throw nv::Error{nv::errores::Desbordamiento, u"Desbordamiento."_s, {}};
    return static_cast<qint16>(valor);
}

qint16 codigoElegido(const QComboBox &lista)
{
    return entero16(lista.currentData().toInt());
}

} // namespace

void frmArticulos_Creacion::aceptar()
{
    const QPointer<frmArticulos_Creacion> vivo(this);
    if (m_barrasPendientes)
        comprobarBarras();
    if (!vivo)
        return;
    const QString titulo = u"Error"_s;
    bool valido = false;
    const bool comprobado = nv::mensajes::guardar(this, titulo, [&] {
        asentarSelector();
        valido = Validar_Articulo();
    });
    if (!vivo || !comprobado || !valido || !nv::mensajes::guardar(this, titulo, [&] { escribir(); }))
        return;
    // The item is complete: from here on nothing may lead to the deletion of an unsaved one.
    Aceptado = true;
    nv::mensajes::guardar(this, titulo, [&] {
        const Suspension suspension(*this);
        Limpiar_Controles();
        entradaDeCodigo();
    });
    if (vivo)
        hide();
}

/// Everything that an accept writes, in one transaction. One that the host has open is joined.
void frmArticulos_Creacion::escribir()
{
    std::optional<nv::Transaccion> propia;
    if (!Conexion->enTransaccion())
        propia.emplace(*Conexion);
    tomarPropiedades();
    if (!m_barras->text().isEmpty() && cEmpresa->ValorBooleano(u"EsUlvaro"_s)) {
        m_valorUnicoX = Valor_Unico_Cualidad(CualidadX);
        m_valorUnicoY = Valor_Unico_Cualidad(CualidadY);
        if (m_valorUnicoX == SinValorUnico || m_valorUnicoY == SinValorUnico)
            throw nv::Error{CualidadesNoUnicas,
                            u" En este formulario no es posible establecer un código de barras de proveedor a un "
                            u"artículo con cualidades no únicas, debe ir a la ficha de artículo. "_s,
                            {}};
    }
    Temporada = m_temporada->Texto();
    NoGenerarSerieEAN = m_sinSerieEan->Value() == 1 ? -1 : 0;
    UnidadesDecimales = m_unidadesDecimales->Value() == 1 ? -1 : 0;
    try {
        Guardar_Articulo();
    } catch (const nv::Error &) {
        if (!propia)
            quitarLoEscrito();
        throw;
    }
    if (propia)
        propia->confirmar();
}

/// In a transaction of the host nothing is rolled back here: what this item has got so far goes, so that it can be
/// accepted again or deleted whole.
void frmArticulos_Creacion::quitarLoEscrito()
{
    nv::Sentencia referencias(u"DELETE FROM Articulos_Ref WHERE Cod_Empresa =");
    referencias << cEmpresa->CodigoArticulos() << u" AND Cod_Articulo =" << Codigo;
    nv::Sentencia barras(u"DELETE FROM Articulos_CBarras WHERE Cod_Empresa =");
    barras << cEmpresa->CodigoArticulos() << u" AND Cod_Articulo =" << Codigo;
    try {
        Conexion->Ejecutar(referencias);
        Conexion->Ejecutar(barras);
    } catch (const nv::Error &) {
        // The first error is the one to be told.
    }
}

void frmArticulos_Creacion::tomarPropiedades()
{
    Codigo = nv::ValEntero32(m_codigo->text());
    Ref = m_referencia->text();
    Proveedor = m_proveedor->Codigo();
    Marca = entero16(m_marca->Codigo());
    TipoImpuesto = nv::ValEntero16(textoImpuesto());
    Familia_1 = entero16(m_familias[0]->Codigo());
    Familia_2 = entero16(m_familias[1]->Codigo());
    Familia_3 = entero16(m_familias[2]->Codigo());
    CualidadX = codigoElegido(*m_cualidadX);
    CualidadY = codigoElegido(*m_cualidadY);
}

Sentencia frmArticulos_Creacion::sentenciaArticulo() const
{
    Sentencia s(u"UPDATE Articulos SET Descripcion ='");
    s << Doblado(m_descripcion->text()) << u"', Desc_Ticket ='" << Doblado(m_ticket->text()) << u"', Familia_1 ="
      << m_familias[0]->Codigo() << u", Familia_2 =" << m_familias[1]->Codigo() << u", Familia_3 ="
      << m_familias[2]->Codigo() << u", Marca =" << m_marca->Codigo() << u", TipoImpuesto ="
      << nv::NumeroEscrito(textoImpuesto()) << u", CualidadX =" << codigoElegido(*m_cualidadX) << u", CualidadY ="
      << codigoElegido(*m_cualidadY) << u", NoGenerarSerieEAN = " << (m_sinSerieEan->Value() == 1 ? 1 : 0)
      << u", UnidadesDecimales = " << (m_unidadesDecimales->Value() == 1 ? 1 : 0) << u", Temporada ='"
      << Doblado(m_temporada->Texto()) << u"', Mod_Ficha = 1 WHERE Cod_Empresa =" << cEmpresa->CodigoArticulos()
      << u" AND Codigo =" << Codigo;
    return s;
}

void frmArticulos_Creacion::Guardar_Articulo()
{
    if (nv::recortado(m_codigo->text()).isEmpty())
        return;
    // Its reference and barcodes would otherwise belong to no item.
    if (Conexion->Ejecutar(sentenciaArticulo()) == 0)
        throw nv::Error{0, u"El artículo %1 ya no existe: se ha borrado desde otro puesto."_s.arg(Codigo), {}};
    Sentencia referencia(u"INSERT INTO Articulos_Ref (Cod_Empresa,Cod_Articulo,Ref,Principal,Fecha,Cod_Prov) Values (");
    referencia << cEmpresa->CodigoArticulos() << u"," << Codigo << u",'" << Doblado(m_referencia->text()) << u"',1,'"
               << cEmpresa->Hoy() << u"'," << m_proveedor->Codigo() << u")";
    Conexion->Ejecutar(referencia);

    const bool automaticas = barrasAutomaticas();
    clsArticulo_CBarra barras;
    barras.setConexion(Conexion);
    barras.setcEmpresa(cEmpresa);
    barras.Cod_Articulo = Codigo;
    const QString automatico = automaticas ? barras.CrearAuto() : QString();
    if (!automatico.isEmpty()) {
        barras.Principal = true;
        barras.Cod_Articulo = Codigo;
        barras.Cod_Barras = automatico;
        barras.Automatico = true;
        barras.Fecha = cEmpresa->Hoy();
        barras.Unidades = 1;
        barras.Insertar();
    }
    // The supplier's own comes second, so that it takes the main mark.
    const QString tecleado = nv::recortado(m_barras->text());
    if (!tecleado.isEmpty()) {
        barras.Cod_Barras = tecleado;
        barras.Fecha = cEmpresa->Hoy();
        barras.Automatico = false;
        barras.Principal = true;
        barras.Unidades = 1;
        barras.Valor_CualidadX = m_valorUnicoX;
        barras.Valor_CualidadY = m_valorUnicoY;
        barras.Insertar();
    }
}

bool frmArticulos_Creacion::barrasAutomaticas()
{
    Sentencia sentencia(u"SELECT CodigoBarrasAuto FROM Empresas WHERE Codigo=");
    sentencia << cEmpresa->Codigo();
    Registros registros = Conexion->Abrir(sentencia);
    return registros.siguiente() && !registros.esNulo(u"CodigoBarrasAuto") && registros.booleano(u"CodigoBarrasAuto");
}

/// The only value of a quality axis; -1 when it has more than one or none.
qint16 frmArticulos_Creacion::Valor_Unico_Cualidad(qint16 eje)
{
    Sentencia sentencia(u" SELECT Cualidades_Des.Codigo "
                        u" FROM Cualidades_Des "
                        u" JOIN ( SELECT Cod_Cualidad, count(*) Contador "
                        u" FROM Cualidades_Des "
                        u" WHERE Cod_Cualidad =  ");
    sentencia << eje
              << u" GROUP BY Cod_Empresa, Cod_Cualidad) AS aux ON aux.Cod_Cualidad = Cualidades_Des.Cod_Cualidad "
                 u" WHERE Contador = 1";
    Registros registros = Conexion->Abrir(sentencia);
    return registros.siguiente() ? registros.entero16(u"Codigo") : SinValorUnico;
}
