#include "creation/frmArticulos_Creacion.h"

#include "barcodes/clsArticulo_CBarra.h"
#include "common/Conexion.h"
#include "common/Error.h"
#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "platform/pickers/nvFamilia.h"
#include "platform/pickers/nvProveedor.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvTextBox.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPointer>

using namespace Qt::StringLiterals;
using nv::recortado;
using nv::mensajes::Icono;
using nv::mensajes::Respuesta;

bool frmArticulos_Creacion::falta(const QString &texto, QWidget *campo)
{
    const QPointer<QWidget> vivo(campo);
    nv::mensajes::mostrar(this, u"Validando artículo..."_s, texto, Icono::Exclamacion);
    if (vivo)
        vivo->setFocus();
    return true;
}

bool frmArticulos_Creacion::Validar_Articulo()
{
    if (recortado(m_codigo->text()).isEmpty() && falta(u"Especifique un código para el artículo"_s, m_codigo))
        return false;
    if (m_proveedor->Codigo() == 0 && falta(u"Especifique un proveedor para el artículo"_s, m_proveedor))
        return false;
    if (recortado(m_referencia->text()).isEmpty() &&
        falta(u"Especifique una referencia para el artículo"_s, m_referencia))
        return false;
    if (m_familiaObligada && faltaFamilia())
        return false;
    if (faltaCualidad(m_cualidadX, 0) || faltaCualidad(m_cualidadY, 1))
        return false;
    const QPointer<QWidget> descripcion(m_descripcion);
    if (recortado(m_descripcion->text()).isEmpty() &&
        nv::mensajes::preguntar(this, u"Confirmar operación.."_s,
                                u"El artículo no tiene descripción. ¿Desea continuar?"_s,
                                Respuesta::No) == Respuesta::No) {
        if (descripcion)
            descripcion->setFocus();
        return false;
    }
    return descripcion && !(referenciaRepetida() && falta(u"La referencia especificada ya existe."_s, m_referencia));
}

bool frmArticulos_Creacion::faltaFamilia()
{
    for (std::size_t i = 0; i < m_familias.size(); ++i) {
        if (!m_rotulosFamilia[i]->isHidden() && m_familias[i]->Texto().isEmpty())
            return falta(u"Especifique el valor de "_s + m_rotulosFamilia[i]->text().chopped(1) +
                             u" para el artículo"_s,
                         m_familias[i]);
    }
    return false;
}

bool frmArticulos_Creacion::faltaCualidad(QComboBox *lista, int eje)
{
    // The first row stands for "not chosen"; so does a list with nothing selected.
    return lista->currentIndex() <= 0 && falta(u"Especifique el valor para "_s + cEmpresa->NombreCualidad(eje), lista);
}

bool frmArticulos_Creacion::referenciaRepetida()
{
    nv::Sentencia sentencia(u"SELECT * FROM Articulos_Ref WHERE Cod_Empresa =");
    sentencia << cEmpresa->CodigoArticulos() << u" AND Cod_Prov =" << m_proveedor->Codigo() << u" And Ref ='"
              << nv::Doblado(m_referencia->text()) << u"' AND Cod_Articulo<>" << nv::NumeroEscrito(m_codigo->text());
    return Conexion->Abrir(sentencia).siguiente();
}

void frmArticulos_Creacion::alSalirBarras()
{
    if (m_suspendido)
        return;
    if (QGuiApplication::mouseButtons() == Qt::NoButton) {
        comprobarBarras();
        return;
    }
    // A box that appears between press and release would swallow the click, on "Aceptar" for one.
    m_barrasPendientes = true;
    m_esperaRaton.start();
}

void frmArticulos_Creacion::comprobarBarras()
{
    m_barrasPendientes = false;
    m_esperaRaton.stop();
    nv::mensajes::guardar(this, u"¡ Atención !"_s, [this] { Validar_CodBarras(); });
}

bool frmArticulos_Creacion::Validar_CodBarras()
{
    if (m_barrasComprobadas)
        return true;
    m_barrasComprobadas = true;
    clsArticulo_CBarra barras;
    barras.setcEmpresa(cEmpresa);
    barras.setConexion(Conexion);
    const QPointer<frmArticulos_Creacion> vivo(this);
    const QString texto = m_barras->text();
    if (texto.size() == 7 && cEmpresa->ValorBooleano(u"Check_Barras_7Digitos"_s) &&
        nv::mensajes::preguntar(this, u"¡ Atención "_s,
                                u"El código de barras es de 7 dígitos, ¿desea calcular el check automáticamente?"_s) ==
            Respuesta::Si &&
        vivo)
        m_barras->setText(texto + QString::number(barras.Dev_Check(texto)));
    if (!vivo)
        return false;
    barras.Cod_Barras = m_barras->text();
    const bool valido = barras.Validar();
    if (!valido)
        nv::mensajes::mostrar(this, u"Código de barras"_s, u"El código de barras introducido no es correcto."_s,
                              Icono::Informacion);
    if (!vivo)
        return false;
    qint32 articulo = 0;
    QString nombre;
    qint16 unidades = 0;
    bool principal = false;
    if (barras.Existe(barras.Cod_Barras, articulo, nombre, unidades, principal) &&
        articulo != nv::ValEntero32(m_codigo->text()))
        nv::mensajes::mostrar(
            this, u"Advertencia!"_s,
            u"El EAN %1 existe en el artículo %2 - %3."_s.arg(barras.Cod_Barras, QString::number(articulo), nombre),
            Icono::Exclamacion);
    return valido;
}
