#pragma once

#include <QPointer>
#include <QWidget>
#include <utility>

namespace nv {

/// When the form hides itself while it is active, its opener's window becomes active again, also where there is no
/// window manager to do it.
void devolverActivacion(QWidget *formulario);

/// A modal form for one use: child of its opener's window, destroyed with this handle unless the window took it along
/// while it was up. `vivo()` says whether its members may still be read.
template <class Formulario>
class DialogoPropio
{
public:
    DialogoPropio() = default;
    template <class Concreto>
    explicit DialogoPropio(Concreto *formulario)
        : m_objeto(formulario)
        , m_formulario(formulario)
    {
        devolverActivacion(formulario);
    }
    DialogoPropio(DialogoPropio &&otro) noexcept
        : m_objeto(std::exchange(otro.m_objeto, {}))
        , m_formulario(std::exchange(otro.m_formulario, nullptr))
    {}
    DialogoPropio &operator=(DialogoPropio &&) = delete;
    ~DialogoPropio() { delete m_objeto.data(); }

    bool vivo() const { return !m_objeto.isNull(); }
    Formulario *operator->() const { return m_formulario; }
    Formulario &operator*() const { return *m_formulario; }

private:
    QPointer<QWidget> m_objeto;
    Formulario *m_formulario = nullptr;
};

} // namespace nv
