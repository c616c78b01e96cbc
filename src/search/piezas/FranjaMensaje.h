#pragma once

#include <QFrame>
#include <QPointer>

namespace nv {

class Rejilla;

/// The strip over a grid that says that a search is running (`pctMsg`). Painted by itself, before the search blocks.
class FranjaMensaje : public QFrame
{
    Q_OBJECT

public:
    /// `sobre` is the grid that it lies on; both are children of one form.
    explicit FranjaMensaje(Rejilla *sobre);

    /// The strip on screen and the grid not redrawn for as long as this lives; nothing without a strip.
    class Aviso
    {
    public:
        explicit Aviso(FranjaMensaje *franja);
        Aviso(const Aviso &) = delete;
        Aviso &operator=(const Aviso &) = delete;
        ~Aviso();

    private:
        QPointer<FranjaMensaje> m_franja;
    };

private:
    void aparecer();

    Rejilla *m_rejilla;
};

} // namespace nv
