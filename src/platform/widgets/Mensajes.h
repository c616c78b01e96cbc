#pragma once

#include "nvArticulo/Error.h"

#include <QStringList>
#include <utility>

class QWidget;

/// The one door to message boxes. Buttons are Spanish ("Aceptar", "Sí", "No"), texts are shown as plain text.
/// Keys typed before a box appeared never answer it: queued keyboard events are dropped, and an Enter that ends a burst
/// of characters within a tenth of a second is no answer.
namespace nv::mensajes {

enum class Icono { Critico, Exclamacion, Informacion, Pregunta };
enum class Respuesta { Si, No };

/// The title of what has none of its own.
inline QString atencion()
{
    return QStringLiteral("¡ Atención !");
}

/// The wait pointer and a frozen grid are put right by the caller before this is called.
void mostrar(QWidget *padre, const QString &titulo, const QString &texto, Icono icono);

/// Yes/No with the question icon. Esc and closing the box answer No.
Respuesta preguntar(QWidget *padre, const QString &titulo, const QString &texto, Respuesta porDefecto = Respuesta::Si);

/// The guard of a user-facing procedure: runs `operacion`; an Error is shown with the critical icon under `titulo`.
/// False when one was shown.
template <class Operacion>
bool guardar(QWidget *padre, const QString &titulo, Operacion &&operacion)
{
    try {
        std::forward<Operacion>(operacion)();
        return true;
    } catch (const Error &error) {
        mostrar(padre, titulo, error.descripcion, Icono::Critico);
        return false;
    }
}

/// What fails in the steps of a load: noted, so that the other steps go on, and said once they are done. With the line
/// gone every step says the same: once is enough.
class Fallos
{
public:
    /// False when it failed.
    template <class Operacion>
    bool paso(Operacion &&operacion)
    {
        try {
            std::forward<Operacion>(operacion)();
            return true;
        } catch (const Error &error) {
            if (!m_textos.contains(error.descripcion))
                m_textos.append(error.descripcion);
            return false;
        }
    }
    /// One box for each; false when `formulario` was gone before the last.
    bool mostrar(QWidget *formulario, const QString &titulo) const;

private:
    QStringList m_textos;
};

} // namespace nv::mensajes
