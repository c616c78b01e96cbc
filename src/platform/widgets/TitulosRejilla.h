#pragma once

#include <QHeaderView>

namespace nv {

class Rejilla;

/// Headings that show that the keys are theirs: no row is current, but the grid has the focus.
class TitulosRejilla : public QHeaderView
{
    Q_OBJECT

public:
    explicit TitulosRejilla(Rejilla *rejilla);

protected:
    void paintSection(QPainter *pintor, const QRect &lugar, int columna) const override;

private:
    Rejilla *m_rejilla;
};

} // namespace nv
