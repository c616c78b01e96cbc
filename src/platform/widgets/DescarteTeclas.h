#pragma once

#include <QObject>

namespace nv {

/// Drops the keys that the window system brings in the first tenth of a second: what was typed before a box or a list
/// appeared, or is the end of the scan that opened it, must not answer it. Goes away by itself; owned by `duenno`.
class DescarteTeclas : public QObject
{
    Q_OBJECT

public:
    explicit DescarteTeclas(QObject *duenno);

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;
};

} // namespace nv
