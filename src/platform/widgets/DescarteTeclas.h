#pragma once

#include <QObject>

namespace nv {

/// Drops the keyboard events that the window system still holds, for as long as it takes to drain them: what was typed
/// before a box or a list appeared must not answer it. Goes away by itself; owned by `duenno`.
class DescarteTeclas : public QObject
{
    Q_OBJECT

public:
    explicit DescarteTeclas(QObject *duenno);

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;
};

} // namespace nv
