#pragma once

#include <QElapsedTimer>

namespace nv {

/// Tells a scanner's burst from what a hand types: characters that follow each other within a tenth of a second, with
/// the Enter that ends them.
class Rafaga
{
public:
    static constexpr int Plazo = 100; // ms

    void caracter() { m_ultimo.start(); }
    bool enCurso() const { return m_ultimo.isValid() && !m_ultimo.hasExpired(Plazo); }

private:
    QElapsedTimer m_ultimo;
};

} // namespace nv
