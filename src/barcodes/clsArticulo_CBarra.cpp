#include "barcodes/clsArticulo_CBarra.h"

#include "common/Valores.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Mensajes.h"

using namespace Qt::StringLiterals;
using nv::ComoEscrito;
using nv::etiquetado;
using nv::Registros;
using nv::Sentencia;

namespace {

constexpr qint16 UnidadesPorDefecto = 1; ///< that one scan stands for

QString etiquetaCargar()
{
    return u"clsCodigos_Barra::Cargar"_s;
}

QString etiquetaExiste()
{
    return u"clsCodigos_Barra::Existe"_s;
}

QString etiquetaModificar()
{
    return u"clsCodigos_Barra::Modificar"_s;
}

} // namespace

qint16 clsArticulo_CBarra::empresaArticulos() const
{
    if (!m_empresa)
        throw nv::errores::sinEmpresa();
    if (!m_conexion)
        throw nv::errores::sinConexion();
    return m_empresa->CodigoArticulos();
}

bool clsArticulo_CBarra::leerPrimera(Registros &registros, const Sentencia &sentencia)
{
    registros = m_conexion->Abrir(sentencia);
    if (!registros.siguiente())
        return false;
    clsArticulo_CBarra leido = *this;
    leido.Cod_Articulo = registros.entero32(u"Cod_Articulo");
    leido.Cod_Barras = registros.texto(u"Cod_Barras");
    leido.Unidades = registros.entero16O(u"Unidades", UnidadesPorDefecto);
    leido.Fecha = registros.fechaO(u"Fecha");
    leido.Principal = registros.booleanoO(u"Principal");
    leido.Automatico = registros.booleanoO(u"Automatico");
    leido.m_key = leido.Cod_Articulo;
    *this = leido;
    return true;
}

bool clsArticulo_CBarra::Cargar(Registros &registros, qint32 articulo)
{
    return etiquetado(etiquetaCargar(), [&] {
        Sentencia sentencia(u" SELECT * FROM Articulos_CBarras  WHERE Cod_Articulo = ");
        sentencia << articulo << u" and Cod_Empresa = " << empresaArticulos() << u" ORDER BY Principal DESC";
        return leerPrimera(registros, sentencia);
    });
}

/// `articulo`: the inner query that gives the item whose barcodes are loaded.
bool clsArticulo_CBarra::leerVecino(Registros &registros, const Sentencia &articulo)
{
    Sentencia sentencia(u" SELECT * From Articulos_CBarras  WHERE Cod_Empresa=");
    sentencia << empresaArticulos() << u" and Cod_Articulo =" << articulo << u" ORDER BY Principal DESC";
    return leerPrimera(registros, sentencia);
}

bool clsArticulo_CBarra::Cargar_Siguiente(Registros &registros)
{
    return etiquetado(etiquetaCargar(), [&] {
        Sentencia articulo(u" (SELECT TOP 1 Cod_Articulo FROM Articulos_CBarras  WHERE Cod_Empresa =");
        articulo << empresaArticulos() << u" AND Cod_Articulo  > " << m_key << u" ORDER BY Cod_Articulo ASC)";
        return leerVecino(registros, articulo);
    });
}

bool clsArticulo_CBarra::Cargar_Anterior(Registros &registros)
{
    return etiquetado(etiquetaCargar(), [&] {
        Sentencia articulo(u" (SELECT TOP 1 Cod_Articulo FROM Articulos_CBarras  WHERE Cod_Empresa =");
        articulo << empresaArticulos() << u" AND Cod_Articulo  < " << m_key << u" ORDER BY Cod_Articulo DESC)";
        return leerVecino(registros, articulo);
    });
}

bool clsArticulo_CBarra::Cargar_Primero(Registros &registros)
{
    return etiquetado(etiquetaCargar(), [&] {
        Sentencia articulo(u" (SELECT ISNULL(MIN(Cod_Articulo), '') FROM Articulos_CBarras  WHERE Cod_Empresa =");
        articulo << empresaArticulos() << u")";
        return leerVecino(registros, articulo);
    });
}

bool clsArticulo_CBarra::Cargar_Ultimo(Registros &registros)
{
    return etiquetado(etiquetaCargar(), [&] {
        Sentencia articulo(u" (SELECT ISNULL(MAX(Cod_Articulo), 0) FROM Articulos_CBarras  WHERE Cod_Empresa =");
        articulo << empresaArticulos() << u")";
        return leerVecino(registros, articulo);
    });
}

QString clsArticulo_CBarra::Dev_CodigoBarraPrincipal(qint32 articulo)
{
    return etiquetado(etiquetaExiste(), [&] {
        Sentencia sentencia(u" SELECT Cod_Barras FROM Articulos_CBarras  WHERE Cod_Articulo = ");
        sentencia << articulo << u" AND Cod_Empresa = " << empresaArticulos() << u" AND Principal = 1";
        Registros registros = m_conexion->Abrir(sentencia);
        return registros.siguiente() ? registros.texto(u"Cod_Barras") : QString();
    });
}

bool clsArticulo_CBarra::Existe(const QString &codigoBarras, qint32 &articulo, QString &nombre, qint16 &unidades,
                                bool &principal)
{
    return etiquetado(etiquetaExiste(), [&] {
        Sentencia sentencia(u" SELECT a.Cod_Articulo, a.Unidades, ISNULL(b.Descripcion,'') AS Nombre ,a.Principal "
                            u" FROM Articulos_CBarras a"
                            u" LEFT JOIN Articulos b ON ( b.Cod_Empresa = a.Cod_Empresa"
                            u" and b.Codigo = a.Cod_Articulo)"
                            u" WHERE a.Cod_Barras = '");
        sentencia << ComoEscrito(codigoBarras) << u"' and a.Cod_Empresa = " << empresaArticulos();
        Registros registros = m_conexion->Abrir(sentencia);
        if (!registros.siguiente())
            return false;
        articulo = registros.entero32(u"Cod_Articulo");
        nombre = registros.texto(u"Nombre");
        unidades = registros.entero16O(u"Unidades", UnidadesPorDefecto);
        principal = registros.booleanoO(u"Principal");
        return true;
    });
}

void clsArticulo_CBarra::Insertar()
{
    etiquetado(u"clsCodigos_Barra::Insertar"_s, [&] {
        const qint16 empresa = empresaArticulos();
        Sentencia insertar(u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras,"
                           u" Principal, Fecha, Unidades, Automatico)"
                           u" VALUES (");
        insertar << empresa << u", " << Cod_Articulo << u", '" << ComoEscrito(Cod_Barras) << u"', "
                 << (Principal ? 1 : 0) << u", '" << m_empresa->Hoy() << u"', " << Unidades << u", "
                 << (Automatico ? 1 : 0) << u")";
        insertar.exigirEnviable();
        nv::Transaccion transaccion(*m_conexion);
        if (Principal) {
            Sentencia degradar(u"UPDATE Articulos_CBarras SET Principal =0 WHERE Cod_Empresa =");
            degradar << empresa << u" AND Cod_Articulo =" << Cod_Articulo << u" AND Principal =1";
            m_conexion->Ejecutar(degradar);
        }
        m_conexion->Ejecutar(insertar);
        transaccion.confirmar();
    });
}

std::optional<bool> clsArticulo_CBarra::principalDe(const QString &codigoBarras, qint32 articulo)
{
    Sentencia sentencia(u"SELECT Principal FROM Articulos_CBarras WHERE Cod_Empresa =");
    sentencia << empresaArticulos() << u" AND Cod_Articulo =" << articulo << u" AND Cod_Barras = '"
              << ComoEscrito(codigoBarras) << u"'";
    Registros registros = m_conexion->Abrir(sentencia);
    return registros.siguiente() ? std::optional(registros.booleanoO(u"Principal")) : std::nullopt;
}

void clsArticulo_CBarra::Eliminar(const QString &codigoBarras, qint32 articulo, bool eraPrincipal)
{
    etiquetado(etiquetaExiste(), [&] {
        const qint16 empresa = empresaArticulos();
        Sentencia borrar(u"DELETE FROM Articulos_CBarras WHERE Cod_Empresa = ");
        borrar << empresa << u" and Cod_Articulo = " << articulo << u" and Cod_Barras = '" << ComoEscrito(codigoBarras)
               << u"'";
        borrar.exigirEnviable();
        // A second main one for the item would be made by the word of a caller who has it wrong.
        const bool asciendeOtro = eraPrincipal && principalDe(codigoBarras, articulo).value_or(false);
        nv::Transaccion transaccion(*m_conexion);
        if (asciendeOtro) {
            Sentencia ascender(u" UPDATE Articulos_CBarras  SET Principal= 1"
                               u" FROM (SELECT Top 1 * FROM Articulos_CBarras"
                               u" WHERE Principal = 0 and Cod_Empresa =");
            ascender << empresa << u" and " << u" Cod_Articulo =" << articulo
                     << u") as a  Where a.Cod_Barras = Articulos_CBarras.Cod_Barras ";
            m_conexion->Ejecutar(ascender);
        }
        m_conexion->Ejecutar(borrar);
        transaccion.confirmar();
    });
}

void clsArticulo_CBarra::Cambia_Principal(const QString &codigoBarras)
{
    etiquetado(etiquetaModificar(), [&] {
        const qint16 empresa = empresaArticulos();
        Sentencia degradar(u"UPDATE Articulos_CBarras SET Principal=0  WHERE Cod_Empresa =");
        degradar << empresa << u" AND Cod_Articulo =" << Cod_Articulo << u" AND Principal = 1";
        Sentencia ascender(u"UPDATE Articulos_CBarras SET Principal = 1 WHERE Cod_Empresa =");
        ascender << empresa << u" AND Cod_Articulo =" << Cod_Articulo << u" AND Cod_Barras = '"
                 << ComoEscrito(codigoBarras) << u"'";
        ascender.exigirEnviable();
        nv::Transaccion transaccion(*m_conexion);
        m_conexion->Ejecutar(degradar);
        m_conexion->Ejecutar(ascender);
        transaccion.confirmar();
    });
}

void clsArticulo_CBarra::Modificar(const QString &anterior)
{
    etiquetado(etiquetaModificar(), [&] {
        Sentencia sentencia(u"UPDATE Articulos_CBarras SET Cod_Barras ='");
        sentencia << ComoEscrito(Cod_Barras) << u"', Unidades =" << Unidades << u", Principal =" << (Principal ? 1 : 0)
                  << u" WHERE Cod_Empresa =" << empresaArticulos() << u" AND Cod_Articulo =" << m_key
                  << u" AND Cod_Barras ='" << ComoEscrito(anterior) << u"'";
        m_conexion->Ejecutar(sentencia);
    });
}

void clsArticulo_CBarra::ModificarPrincipal()
{
    etiquetado(etiquetaModificar(), [&] {
        qint32 otro = 0;
        QString nombre;
        qint16 unidades = 0;
        bool principal = false;
        std::optional<bool> traspaso; // whether the other's was its main one
        if (Existe(Cod_Barras, otro, nombre, unidades, principal) && otro != Cod_Articulo) {
            const QString pregunta = u"El EAN "_s + Cod_Barras + u" existe en el artículo "_s + QString::number(otro) +
                                     u" - "_s + nombre + u". ¿Desea Traspasarlo?"_s;
            using nv::mensajes::Respuesta;
            if (nv::mensajes::preguntar(nullptr, u"Confirme la operación..."_s, pregunta, Respuesta::No) ==
                Respuesta::No)
                return;
            traspaso = principal;
        }
        const std::optional<bool> propia = principalDe(Cod_Barras, Cod_Articulo);
        nv::Transaccion transaccion(*m_conexion);
        if (traspaso)
            Eliminar(Cod_Barras, otro, *traspaso);
        if (propia) {
            if (!*propia)
                Cambia_Principal(Cod_Barras);
        } else {
            Sentencia sentencia(u"UPDATE Articulos_CBarras SET Cod_Barras ='");
            sentencia << ComoEscrito(Cod_Barras) << u"' WHERE Cod_Empresa =" << empresaArticulos()
                      << u" AND Cod_Articulo =" << Cod_Articulo << u" AND Principal = 1";
            if (m_conexion->Ejecutar(sentencia) == 0) {
                clsArticulo_CBarra nueva = *this;
                nueva.Principal = true;
                nueva.Insertar();
                Principal = true;
            }
        }
        transaccion.confirmar();
    });
}
