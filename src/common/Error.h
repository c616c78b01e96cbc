#pragma once

#include <QString>

namespace nv {

/// The one exception for data and run-time failures.
/// `numero` is the native number of the engine or of the run-time fault (0 when there is none), `descripcion` the
/// text shown to the user, `origen` the label of the operation that raised it last.
struct Error
{
    qint32 numero = 0;
    QString descripcion;
    QString origen;
};

namespace errores {
inline constexpr qint32 Desbordamiento = 6;
inline constexpr qint32 NoCoinciden = 13;
inline constexpr qint32 SinObjeto = 91;
inline constexpr qint32 ValorNulo = 94;
inline constexpr qint32 ComillaSinCerrar = 105;
inline constexpr qint32 ColumnaDesconocida = 3265;
inline constexpr qint32 ConexionCerrada = 3709;
} // namespace errores

/// Runs `operacion`; an Error leaves it with its number and description kept and its origin replaced by `etiqueta`.
template <class Operacion>
auto etiquetado(const QString &etiqueta, Operacion &&operacion) -> decltype(operacion())
{
    try {
        return operacion();
    } catch (Error &error) {
        error.origen = etiqueta;
        throw;
    }
}

} // namespace nv
