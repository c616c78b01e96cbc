#include "creation/AltaArticulo.h"

#include "barcodes/clsArticulo_CBarra.h"
#include "common/Valores.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr qint32 CualidadesNoUnicas = -2147221503;
constexpr qint16 SinValorUnico = -1;

Sentencia deArticulo(Sentencia principio, qint16 empresa, const Sentencia &columna, qint32 codigo)
{
    return principio << u" WHERE Cod_Empresa =" << empresa << u" AND " << columna << u" =" << codigo;
}

qint16 bandera(bool valor)
{
    return valor ? qint16{-1} : qint16{0};
}

} // namespace

qint16 tipoImpuesto(const QString &escrito)
{
    return nombrado(u"Igic", [&] { return ValEntero16(escrito.section(u'.', 0, 0)); });
}

DatosCreacion FichaAlta::datos() const
{
    DatosCreacion datos;
    datos.Codigo = nombrado(u"Código", [this] { return ValEntero32(codigo); });
    datos.Ref = referencia;
    datos.Proveedor = proveedor;
    datos.Marca = nombrado(u"Marca", [this] { return estrecho<qint16>(marca); });
    datos.TipoImpuesto = tipoImpuesto(impuesto);
    const auto familia = [this](std::size_t i) {
        return nombrado(u"Familia %1"_s.arg(i + 1), [&] { return estrecho<qint16>(familias[i]); });
    };
    datos.Familia_1 = familia(0);
    datos.Familia_2 = familia(1);
    datos.Familia_3 = familia(2);
    datos.CualidadX = cualidades[0].value_or(0);
    datos.CualidadY = cualidades[1].value_or(0);
    datos.Temporada = temporada;
    datos.NoGenerarSerieEAN = bandera(sinSerieEan);
    datos.UnidadesDecimales = bandera(unidadesDecimales);
    return datos;
}

AltaArticulo::AltaArticulo(::cEmpresa &empresa, Conexion &conexion)
    : m_empresa(empresa)
    , m_conexion(conexion)
{}

const AltaArticulo::Ajustes &AltaArticulo::leerAjustes()
{
    Sentencia sentencia(u"SELECT FamiliaObligada, DirImagenArt, MargenReal_FArt_sUltimoPUC, MaxCodigoArt, "
                        u"CualidadX_PorDefecto, CualidadY_PorDefecto, Series_Automaticas "
                        u" FROM Empresas WHERE Codigo=");
    sentencia << m_empresa.Codigo();
    Registros registros = m_conexion.Abrir(sentencia);
    m_ajustes = {};
    if (registros.siguiente())
        m_ajustes = {registros.booleanoO(u"FamiliaObligada"),
                     registros.entero32O(u"MaxCodigoArt"),
                     {registros.entero16O(u"CualidadX_PorDefecto"), registros.entero16O(u"CualidadY_PorDefecto")},
                     registros.booleanoO(u"Series_Automaticas")};
    return m_ajustes;
}

FormatoDescripcion AltaArticulo::leerFormato(bool larga)
{
    FormatoDescripcion formato;
    Registros registros =
        m_conexion.Abrir(larga ? Sentencia(u"SELECT * FROM Formacion_Desc WHERE Desc_Larga=1 ORDER BY Orden")
                               : Sentencia(u"SELECT * FROM Formacion_Desc WHERE Desc_Larga=0 ORDER BY Orden"));
    while (registros.siguiente())
        formato.push_back({registros.entero16O(u"Cod_Campo"), registros.entero16O(u"Longitud")});
    return formato;
}

std::optional<qint64> AltaArticulo::siguienteCodigo()
{
    Sentencia sentencia(u"SELECT IsNull(Max(Codigo), 0) As Codigo FROM Articulos WHERE Cod_Empresa = ");
    sentencia << m_empresa.CodigoArticulos();
    try {
        Registros registros = m_conexion.Abrir(sentencia);
        return registros.siguiente() ? registros.entero64(u"Codigo") + 1 : 1;
    } catch (const Error &error) {
        if (error.numero != errores::NoCoinciden)
            throw;
        return std::nullopt;
    }
}

bool AltaArticulo::Existe(qint32 codigo)
{
    return m_conexion
        .Abrir(deArticulo(Sentencia(u"SELECT * FROM Articulos"), m_empresa.CodigoArticulos(), Sentencia(u"Codigo"),
                          codigo))
        .siguiente();
}

qint32 AltaArticulo::mayorCodigo() const
{
    return m_ajustes.maxCodigo > 0 ? m_ajustes.maxCodigo : std::numeric_limits<qint32>::max();
}

bool AltaArticulo::cabe(qint32 codigo) const
{
    return codigo > 0 && codigo <= mayorCodigo();
}

void AltaArticulo::abrir(qint32 codigo)
{
    const qint16 empresaArticulos = m_empresa.CodigoArticulos();
    const qint16 empresa = m_empresa.Codigo();
    Sentencia articulo(u"INSERT INTO Articulos (Cod_Empresa, Codigo, FAlta, Mod_Ficha) VALUES (");
    articulo << empresaArticulos << u"," << codigo << u", '" << m_empresa.Hoy() << u"',  0 )";
    Sentencia almacenes(u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) SELECT ");
    almacenes << empresa << u", Codigo, " << codigo << u" FROM Almacenes WHERE Cod_Empresa =" << empresa;
    m_conexion.Ejecutar(articulo);
    try {
        m_conexion.Ejecutar(almacenes);
    } catch (const Error &) {
        // Only our own row: per-warehouse rows that stood there before are somebody else's.
        try {
            m_conexion.Ejecutar(
                deArticulo(Sentencia(u"DELETE FROM Articulos"), empresaArticulos, Sentencia(u"Codigo"), codigo));
        } catch (const Error &) {}
        throw;
    }
    m_abierta = codigo;
}

std::optional<FaltaCreacion> AltaArticulo::falta(const FichaAlta &ficha) const
{
    using Campo = CampoCreacion;
    if (recortado(ficha.codigo).isEmpty())
        return FaltaCreacion{Campo::Codigo, u"Especifique un código para el artículo"_s};
    if (ficha.proveedor == 0)
        return FaltaCreacion{Campo::Proveedor, u"Especifique un proveedor para el artículo"_s};
    if (recortado(ficha.referencia).isEmpty())
        return FaltaCreacion{Campo::Referencia, u"Especifique una referencia para el artículo"_s};
    constexpr std::array familias{Campo::Familia1, Campo::Familia2, Campo::Familia3};
    for (std::size_t i = 0; i < familias.size() && m_ajustes.familiaObligada; ++i) {
        const QString nombre = m_empresa.NombreFamilia(static_cast<int>(i));
        if (!nombre.isEmpty() && !ficha.familiaEscrita[i])
            return FaltaCreacion{familias[i], u"Especifique el valor de "_s + nombre + u" para el artículo"_s};
    }
    constexpr std::array ejes{Campo::CualidadX, Campo::CualidadY};
    for (std::size_t i = 0; i < ejes.size(); ++i) {
        if (!ficha.cualidades[i])
            return FaltaCreacion{ejes[i],
                                 u"Especifique el valor para "_s + m_empresa.NombreCualidad(static_cast<int>(i))};
    }
    return std::nullopt;
}

bool AltaArticulo::referenciaRepetida(const FichaAlta &ficha)
{
    Sentencia sentencia(u"SELECT * FROM Articulos_Ref WHERE Cod_Empresa =");
    sentencia << m_empresa.CodigoArticulos() << u" AND Cod_Prov =" << ficha.proveedor << u" And Ref ='"
              << Doblado(ficha.referencia) << u"' AND Cod_Articulo<>" << NumeroEscrito(ficha.codigo);
    return m_conexion.Abrir(sentencia).siguiente();
}

DatosCreacion AltaArticulo::guardar(const FichaAlta &ficha)
{
    Transaccion transaccion(m_conexion);
    const DatosCreacion datos = ficha.datos();
    std::array<qint16, 2> valoresUnicos{};
    if (!ficha.barras.isEmpty() && m_empresa.ValorBooleano(u"EsUlvaro"_s)) {
        valoresUnicos = {Valor_Unico_Cualidad(datos.CualidadX), Valor_Unico_Cualidad(datos.CualidadY)};
        if (valoresUnicos[0] == SinValorUnico || valoresUnicos[1] == SinValorUnico)
            throw Error{CualidadesNoUnicas,
                        u" En este formulario no es posible establecer un código de barras de proveedor a un "
                        u"artículo con cualidades no únicas, debe ir a la ficha de artículo. "_s,
                        {}};
    }
    try {
        Guardar_Articulo(ficha, valoresUnicos);
    } catch (const Error &) {
        if (!transaccion.propia())
            quitarLoEscrito();
        throw;
    }
    transaccion.confirmar();
    m_abierta.reset();
    return datos;
}

void AltaArticulo::Guardar_Articulo(const FichaAlta &ficha, const std::array<qint16, 2> &valoresUnicos)
{
    // Its reference and barcodes would otherwise belong to no item.
    if (m_conexion.Ejecutar(completa(ficha)) == 0)
        throw Error{0, u"El artículo %1 ya no existe: se ha borrado desde otro puesto."_s.arg(*m_abierta), {}};
    Sentencia referencia(u"INSERT INTO Articulos_Ref (Cod_Empresa,Cod_Articulo,Ref,Principal,Fecha,Cod_Prov) Values (");
    referencia << m_empresa.CodigoArticulos() << u"," << *m_abierta << u",'" << Doblado(ficha.referencia) << u"',1,'"
               << m_empresa.Hoy() << u"'," << ficha.proveedor << u")";
    m_conexion.Ejecutar(referencia);
    insertarBarras(ficha, valoresUnicos);
}

Sentencia AltaArticulo::completa(const FichaAlta &ficha) const
{
    Sentencia s(u"UPDATE Articulos SET Descripcion ='");
    s << Doblado(ficha.descripcion) << u"', Desc_Ticket ='" << Doblado(ficha.ticket) << u"', Familia_1 ="
      << ficha.familias[0] << u", Familia_2 =" << ficha.familias[1] << u", Familia_3 =" << ficha.familias[2]
      << u", Marca =" << ficha.marca << u", TipoImpuesto =" << NumeroEscrito(ficha.impuesto) << u", CualidadX ="
      << ficha.cualidades[0].value_or(0) << u", CualidadY =" << ficha.cualidades[1].value_or(0)
      << u", NoGenerarSerieEAN = " << (ficha.sinSerieEan ? 1 : 0) << u", UnidadesDecimales = "
      << (ficha.unidadesDecimales ? 1 : 0) << u", Temporada ='" << Doblado(ficha.temporada)
      << u"', Mod_Ficha = 1 WHERE Cod_Empresa =" << m_empresa.CodigoArticulos() << u" AND Codigo =" << *m_abierta;
    return s;
}

void AltaArticulo::insertarBarras(const FichaAlta &ficha, const std::array<qint16, 2> &valoresUnicos)
{
    const bool automaticas = barrasAutomaticas();
    clsArticulo_CBarra barras;
    barras.setConexion(&m_conexion);
    barras.setcEmpresa(&m_empresa);
    barras.Cod_Articulo = *m_abierta;
    const auto insertar = [&](const QString &codigo, bool automatica) {
        barras.Principal = true;
        barras.Cod_Articulo = *m_abierta;
        barras.Cod_Barras = codigo;
        barras.Automatico = automatica;
        barras.Fecha = m_empresa.Hoy();
        barras.Unidades = 1;
        barras.Insertar();
    };
    const QString automatica = automaticas ? barras.CrearAuto() : QString();
    if (!automatica.isEmpty())
        insertar(automatica, true);
    // The supplier's own comes second, so that it takes the main mark.
    const QString tecleada = recortado(ficha.barras);
    if (tecleada.isEmpty())
        return;
    barras.Valor_CualidadX = valoresUnicos[0];
    barras.Valor_CualidadY = valoresUnicos[1];
    insertar(tecleada, false);
}

void AltaArticulo::quitarLoEscrito()
{
    const qint16 empresa = m_empresa.CodigoArticulos();
    try {
        m_conexion.Ejecutar(
            deArticulo(Sentencia(u"DELETE FROM Articulos_Ref"), empresa, Sentencia(u"Cod_Articulo"), *m_abierta));
        m_conexion.Ejecutar(
            deArticulo(Sentencia(u"DELETE FROM Articulos_CBarras"), empresa, Sentencia(u"Cod_Articulo"), *m_abierta));
    } catch (const Error &) {
        // The first error is the one to be told.
    }
}

void AltaArticulo::deshacer()
{
    if (!m_abierta)
        return;
    m_conexion.Ejecutar(
        deArticulo(Sentencia(u"DELETE FROM Articulos"), m_empresa.CodigoArticulos(), Sentencia(u"Codigo"), *m_abierta));
    m_conexion.Ejecutar(deArticulo(Sentencia(u"DELETE FROM Almacen_Articulos"), m_empresa.Codigo(),
                                   Sentencia(u"Cod_Articulo"), *m_abierta));
    m_abierta.reset();
}

bool AltaArticulo::barrasAutomaticas()
{
    Sentencia sentencia(u"SELECT CodigoBarrasAuto FROM Empresas WHERE Codigo=");
    sentencia << m_empresa.Codigo();
    Registros registros = m_conexion.Abrir(sentencia);
    return registros.siguiente() && registros.booleanoO(u"CodigoBarrasAuto");
}

/// The only value of a quality axis; -1 when it has more than one or none.
qint16 AltaArticulo::Valor_Unico_Cualidad(qint16 eje)
{
    Sentencia sentencia(u" SELECT Cualidades_Des.Codigo "
                        u" FROM Cualidades_Des "
                        u" JOIN ( SELECT Cod_Cualidad, count(*) Contador "
                        u" FROM Cualidades_Des "
                        u" WHERE Cod_Cualidad =  ");
    sentencia << eje
              << u" GROUP BY Cod_Empresa, Cod_Cualidad) AS aux ON aux.Cod_Cualidad = Cualidades_Des.Cod_Cualidad "
                 u" WHERE Contador = 1";
    Registros registros = m_conexion.Abrir(sentencia);
    return registros.siguiente() ? registros.entero16(u"Codigo") : SinValorUnico;
}

} // namespace nv
