#include "creation/frmArticulos_Creacion.h"

#include "common/Conexion.h"
#include "common/Error.h"
#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "platform/widgets/Foco.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvTextBox.h"

#include <QPointer>
#include <QPushButton>
#include <algorithm>

using namespace Qt::StringLiterals;
using nv::etiquetado;
using nv::Sentencia;
using nv::mensajes::Icono;

namespace {

Sentencia borraArticulo(qint16 empresa, qint32 codigo)
{
    Sentencia sentencia(u"DELETE FROM Articulos WHERE Cod_Empresa =");
    return sentencia << empresa << u" AND Codigo =" << codigo;
}

} // namespace

void frmArticulos_Creacion::alPulsarF6()
{
    nv::mensajes::guardar(this, u"¡ Atención !"_s, [this] {
        try {
            Sentencia sentencia(u"SELECT IsNull(Max(Codigo), 0) As Codigo FROM Articulos WHERE Cod_Empresa = ");
            sentencia << cEmpresa->CodigoArticulos();
            nv::Registros registros = Conexion->Abrir(sentencia);
            if (registros.siguiente())
                m_codigo->setText(QString::number(registros.entero64(u"Codigo") + 1));
        } catch (const nv::Error &error) {
            if (error.numero != nv::errores::NoCoinciden)
                throw;
            nv::mensajes::mostrar(this, u"¡ Atención !"_s, u"No esta disponible esta opción en códigos alfanuméricos"_s,
                                  Icono::Exclamacion);
            return;
        }
        confirmarCodigo();
    });
}

void frmArticulos_Creacion::confirmarCodigo()
{
    const QString texto = nv::recortado(m_codigo->text());
    if (texto.isEmpty())
        return;
    Codigo = nv::ValEntero32(texto);
    if (Existe()) {
        const QPointer<frmArticulos_Creacion> vivo(this);
        nv::mensajes::mostrar(this, u"¡Atención!"_s, u"Este código ya está asignado a otro artículo."_s,
                              Icono::Informacion);
        if (vivo)
            rechazarCodigo();
        return;
    }
    // An item 0 would read as "none" everywhere else.
    if (Codigo <= 0 || (m_maxCodigoArt > 0 && Codigo > m_maxCodigoArt)) {
        rechazarCodigo();
        return;
    }
    crearFilas();
    // Of "12abc" the item is 12: the box must not go on naming another one.
    if (!std::all_of(texto.begin(), texto.end(), nv::esDigito) || texto != m_codigo->text())
        m_codigo->setText(QString::number(Codigo));
    m_aceptar->setEnabled(true);
    m_cancelar->setEnabled(true);
    nv::foco::adelante(m_codigo);
    m_codigo->setEnabled(false);
}

void frmArticulos_Creacion::rechazarCodigo()
{
    m_codigo->clear();
    m_codigo->setFocus();
}

void frmArticulos_Creacion::crearFilas()
{
    const qint16 empresaArticulos = cEmpresa->CodigoArticulos();
    const qint16 empresa = cEmpresa->Codigo();
    Sentencia articulo(u"INSERT INTO Articulos (Cod_Empresa, Codigo, FAlta, Mod_Ficha) VALUES (");
    articulo << empresaArticulos << u"," << Codigo << u", '" << cEmpresa->Hoy() << u"',  0 )";
    Sentencia almacenes(u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) SELECT ");
    almacenes << empresa << u", Codigo, " << Codigo << u" FROM Almacenes WHERE Cod_Empresa =" << empresa;
    Conexion->Ejecutar(articulo);
    try {
        Conexion->Ejecutar(almacenes);
    } catch (const nv::Error &) {
        // Only our own row: per-warehouse rows that stood there before are somebody else's.
        try {
            Conexion->Ejecutar(borraArticulo(empresaArticulos, Codigo));
        } catch (const nv::Error &) {}
        throw;
    }
}

bool frmArticulos_Creacion::Existe()
{
    return etiquetado(u"frmArticulos_Creacion::Existe"_s, [&] {
        Sentencia sentencia(u"SELECT * FROM Articulos WHERE Cod_Empresa =");
        sentencia << cEmpresa->CodigoArticulos() << u" AND Codigo =" << Codigo;
        return Conexion->Abrir(sentencia).siguiente();
    });
}

bool frmArticulos_Creacion::EliminarF6()
{
    return etiquetado(u"frmArticulos_Creacion::EliminarF6"_s, [&] {
        Sentencia almacenes(u"DELETE FROM Almacen_Articulos WHERE Cod_Empresa =");
        almacenes << cEmpresa->Codigo() << u" AND Cod_Articulo =" << Codigo;
        Conexion->Ejecutar(borraArticulo(cEmpresa->CodigoArticulos(), Codigo));
        Conexion->Ejecutar(almacenes);
        return true;
    });
}
