#include "creation/CodigosElegidos.h"

#include "platform/pickers/SelectorCodigo.h"
#include "platform/widgets/Mensajes.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace nv {

bool cabeLoElegido(QWidget &formulario, const std::vector<CamposCreacion::Existente> &elegidos)
{
    for (const auto &[selector, nombre, maximo] : elegidos) {
        if (!maximo || selector->CodigoBuscado() <= *maximo)
            continue;
        const QPointer<SelectorCodigo> vivo(selector);
        mensajes::mostrar(&formulario, u"Validando artículo..."_s,
                          u"%1 %2 no existe: los códigos llegan a %3."_s.arg(nombre, selector->Texto()).arg(*maximo),
                          mensajes::Icono::Exclamacion);
        if (vivo)
            vivo->setFocus();
        return false;
    }
    return true;
}

bool existeLoElegido(QWidget &formulario, const std::vector<CamposCreacion::Existente> &elegidos)
{
    for (const CamposCreacion::Existente &campo : elegidos) {
        const QPointer<SelectorCodigo> selector(campo.selector);
        const bool ninguno = selector->Texto().isEmpty() || (campo.maximo && selector->CodigoBuscado() == 0);
        if (ninguno || selector->Existe())
            continue;
        const bool sigue =
            mensajes::preguntar(&formulario, u"Confirmar operación.."_s,
                                u"%1 %2 no existe. ¿Desea continuar?"_s.arg(campo.nombre, selector->Texto()),
                                mensajes::Respuesta::No) == mensajes::Respuesta::Si;
        if (selector && !sigue)
            selector->setFocus();
        if (!selector || !sigue)
            return false;
    }
    return true;
}

} // namespace nv
