#pragma once

#include <QGuiApplication>

namespace nv {

/// The wait pointer for as long as this lives.
class PunteroEspera
{
public:
    PunteroEspera() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    PunteroEspera(const PunteroEspera &) = delete;
    PunteroEspera &operator=(const PunteroEspera &) = delete;
    ~PunteroEspera() { QGuiApplication::restoreOverrideCursor(); }
};

} // namespace nv
