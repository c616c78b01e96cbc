#include "control/Asignaciones.h"

#include "platform/widgets/Mensajes.h"

using namespace Qt::StringLiterals;

namespace nv {

bool asignarReferencia(QWidget *padre, qint32 &, qint32 &, QString &)
{
    mensajes::mostrar(padre, u"¡ Atención !"_s, u"La asignación de referencias todavía no está disponible."_s,
                      mensajes::Icono::Exclamacion);
    return false;
}

bool asignarCodigoBarras(QWidget *padre, qint32 &, QString &)
{
    mensajes::mostrar(padre, u"¡ Atención !"_s, u"La asignación de códigos de barras todavía no está disponible."_s,
                      mensajes::Icono::Exclamacion);
    return false;
}

} // namespace nv
