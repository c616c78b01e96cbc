#pragma once

#include <QtGlobal>

namespace mostrador {

/// Pseudo-random numbers that are the same on every machine (splitmix64). Each item has its own stream, seeded with its
/// code: item 17 is the same in a catalogue of 300 items and in one of 20,000.
class Azar
{
public:
    explicit constexpr Azar(quint64 semilla)
        : m_estado(semilla * 0x9E3779B97F4A7C15u + 0x2545F4914F6CDD1Du)
    {}

    /// 0 to `limite` - 1.
    constexpr int hasta(int limite) { return static_cast<int>(siguiente() % static_cast<quint64>(limite)); }
    constexpr int entre(int minimo, int maximo) { return minimo + hasta(maximo - minimo + 1); }
    constexpr bool deCada100(int veces) { return hasta(100) < veces; }
    template <class Lista>
    constexpr decltype(auto) uno(const Lista &lista)
    {
        return lista[static_cast<decltype(lista.size())>(hasta(static_cast<int>(lista.size())))];
    }

private:
    constexpr quint64 siguiente()
    {
        m_estado += 0x9E3779B97F4A7C15u;
        quint64 z = m_estado;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    quint64 m_estado;
};

} // namespace mostrador
