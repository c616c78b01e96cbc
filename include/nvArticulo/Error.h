#pragma once

#include <QString>
#include <exception>

namespace nv {

/// The one exception for data and run-time failures.
/// `numero` is the native number of the engine or of the run-time fault (0 when there is none), `descripcion` the
/// text shown to the user, `origen` the label of the operation that raised it last.
class Error : public std::exception
{
public:
    Error() = default;
    Error(qint32 num, const QString &texto, const QString &etiqueta = {})
        : numero(num)
        , descripcion(texto)
        , origen(etiqueta)
    {}
    /// The description in UTF-8, for hosts that catch every exception alike.
    const char *what() const noexcept override;

    qint32 numero = 0;
    QString descripcion;
    QString origen;

private:
    mutable QByteArray m_utf8;
};

namespace errores {
inline constexpr qint32 Desbordamiento = 6;
inline constexpr qint32 NoCoinciden = 13;
inline constexpr qint32 SinObjeto = 91;
inline constexpr qint32 ValorNulo = 94;
inline constexpr qint32 ComillaSinCerrar = 105;
inline constexpr qint32 ColumnaDesconocida = 3265;
inline constexpr qint32 ConexionCerrada = 3709;

/// A number that is too large; `nombrado` says of what.
Error desbordamiento(const QString &valor);
Error noCoinciden();
/// Run without the company context that the host hands in.
Error sinEmpresa();
Error sinConexion();
/// The company's search model is none of ours.
Error sinModelo(const QString &modelo);
Error conexionCerrada();
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

/// Runs `operacion`; an Error that a number is too large says of what it is: a field, a setting, a column.
template <class Operacion>
auto nombrado(QStringView que, Operacion &&operacion) -> decltype(operacion())
{
    try {
        return operacion();
    } catch (Error &error) {
        if (error.numero == errores::Desbordamiento && error.descripcion.endsWith(u'.') &&
            !error.descripcion.endsWith(QStringLiteral(").")))
            error.descripcion = error.descripcion.chopped(1) + QStringLiteral(" (%1).").arg(que);
        throw;
    }
}

} // namespace nv
