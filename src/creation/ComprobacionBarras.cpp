#include "creation/ComprobacionBarras.h"

#include "barcodes/clsArticulo_CBarra.h"
#include "common/Valores.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvTextBox.h"

#include <QGuiApplication>
#include <QPointer>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using nv::mensajes::Icono;
using nv::mensajes::Respuesta;

namespace nv {

ComprobacionBarras::ComprobacionBarras(nvTextBox *caja, const nvTextBox *articulo)
    : QObject(caja)
    , m_caja(caja)
    , m_articulo(articulo)
{
    m_esperaRaton.setInterval(20ms);
    connect(&m_esperaRaton, &QTimer::timeout, this, [this] {
        if (QGuiApplication::mouseButtons() == Qt::NoButton)
            comprobar();
    });
    connect(m_caja, &QLineEdit::textChanged, this, [this] { m_comprobado = false; });
    connect(m_caja, &nvTextBox::Salida, this, &ComprobacionBarras::alSalir);
    // While the focus is on its way the toolkit cannot bear that the window goes with a box: Enter asks before.
    connect(m_caja, &nvTextBox::Intro, this, &ComprobacionBarras::alSalir);
}

void ComprobacionBarras::conectar(::cEmpresa &empresa, Conexion &conexion)
{
    m_empresa = &empresa;
    m_conexion = &conexion;
}

void ComprobacionBarras::alSalir()
{
    if (m_suspendida)
        return;
    // A box that appears between press and release would swallow the click, on "Aceptar" for one.
    if (QGuiApplication::mouseButtons() == Qt::NoButton)
        comprobar();
    else
        m_esperaRaton.start();
}

void ComprobacionBarras::comprobarPendiente()
{
    if (m_esperaRaton.isActive())
        comprobar();
}

void ComprobacionBarras::olvidar()
{
    m_esperaRaton.stop();
}

void ComprobacionBarras::comprobar()
{
    m_esperaRaton.stop();
    mensajes::guardar(m_caja->window(), mensajes::atencion(), [this] { Validar_CodBarras(); });
}

bool ComprobacionBarras::Validar_CodBarras()
{
    if (m_comprobado)
        return true;
    m_comprobado = true;
    clsArticulo_CBarra barras;
    barras.setcEmpresa(m_empresa);
    barras.setConexion(m_conexion);
    QWidget *const formulario = m_caja->window();
    const QPointer<ComprobacionBarras> vivo(this);
    const QString texto = m_caja->text();
    if (texto.size() == 7 && m_empresa->ValorBooleano(u"Check_Barras_7Digitos"_s) &&
        mensajes::preguntar(formulario, u"¡ Atención "_s,
                            u"El código de barras es de 7 dígitos, ¿desea calcular el check automáticamente?"_s) ==
            Respuesta::Si &&
        vivo)
        m_caja->setText(texto + QString::number(barras.Dev_Check(texto)));
    if (!vivo)
        return false;
    barras.Cod_Barras = m_caja->text();
    const bool valido = barras.Validar();
    if (!valido)
        mensajes::mostrar(formulario, u"Código de barras"_s, u"El código de barras introducido no es correcto."_s,
                          Icono::Informacion);
    if (!vivo)
        return false;
    qint32 articulo = 0;
    QString nombre;
    qint16 unidades = 0;
    bool principal = false;
    if (barras.Existe(barras.Cod_Barras, articulo, nombre, unidades, principal) &&
        articulo != ValEntero32(m_articulo->text()))
        mensajes::mostrar(
            formulario, u"Advertencia!"_s,
            u"El EAN %1 existe en el artículo %2 - %3."_s.arg(barras.Cod_Barras, QString::number(articulo), nombre),
            Icono::Exclamacion);
    return valido;
}

} // namespace nv
