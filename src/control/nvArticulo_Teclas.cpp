#include "common/Error.h"
#include "common/Valores.h"
#include "control/CajaCodigo.h"
#include "control/Ocupada.h"
#include "control/nvArticulo.h"
#include "platform/widgets/Foco.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Teclas.h"
#include "platform/widgets/Twips.h"

#include <QPointer>

using namespace Qt::StringLiterals;

void nvArticulo::alTeclaAbajo(qint16 &codigo, qint16 &estado)
{
    const QPointer<nvArticulo> vivo(this);
    const bool arriba = codigo == nv::teclas::Arriba && m_keyUpChangeFocus;
    if (codigo == nv::teclas::F3 && !nv::mensajes::guardar(window(), u"¡ Atención !"_s, [this] { lanzarBusqueda(); }))
        return;
    if (!vivo)
        return;
    Q_EMIT KeyDown(codigo, estado);
    if (vivo && arriba)
        nv::foco::atras(m_caja);
}

void nvArticulo::alIntro()
{
    const QPointer<nvArticulo> vivo(this);
    qint16 ascii = nv::teclas::Intro;
    const Resultado resultado = resolver(ascii, true);
    if (!vivo || resultado.fallida)
        return;
    Q_EMIT KeyPress(ascii);
    if (vivo && resultado.avanza)
        nv::foco::adelante(m_caja);
}

/// The host hears of the change first and still sees the former state.
void nvArticulo::alCambiar()
{
    const QPointer<nvArticulo> vivo(this);
    Q_EMIT Change();
    if (!vivo)
        return;
    m_existe = false;
    m_pendiente = true;
}

void nvArticulo::alEnfocar()
{
    if (Enabled())
        m_caja->pintarFondo(QColor(192, 255, 255));
}

/// Leaving the box resolves nothing: what was typed stays, and stays pending.
void nvArticulo::alDesenfocar()
{
    if (Enabled())
        m_caja->restaurarFondo();
}

void nvArticulo::reenviarRaton(void (nvArticulo::*senal)(qint16 &, qint16 &, float &, float &), qint16 boton,
                               qint16 estado, QPointF lugar)
{
    auto x = static_cast<float>(nv::twips::dePixeles(qRound(lugar.x()), this));
    auto y = static_cast<float>(nv::twips::dePixeles(qRound(lugar.y()), this));
    Q_EMIT(this->*senal)(boton, estado, x, y);
}

qint32 nvArticulo::Buscar()
{
    if (m_ocupada)
        return 0;
    const QPointer<nvArticulo> vivo(this);
    ponerCaja({});
    qint16 codigo = nv::teclas::F3;
    qint16 estado = 0;
    alTeclaAbajo(codigo, estado);
    if (!vivo)
        return 0;
    try {
        return nv::ValEntero32(m_caja->text());
    } catch (const nv::Error &) {
        return 0;
    }
}

QVariant nvArticulo::Emular_Enter(const QString &strCodigo)
{
    const QVariant nada = QVariant::fromValue(qint16(0));
    if (m_ocupada)
        return nada;
    const QPointer<nvArticulo> vivo(this);
    ponerCaja(strCodigo);
    alIntro();
    return vivo && m_existe ? QVariant(Codigo()) : nada;
}
