#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTextStream>
#include <algorithm>
#include <vector>

namespace nv::medidas {

using namespace Qt::StringLiterals;

constexpr int Aperturas = 15;

inline QTextStream &salida()
{
    static QTextStream texto(stdout);
    return texto;
}

/// The times of one operation.
struct Medida
{
    std::vector<double> micros;

    template <class Operacion>
    void toma(Operacion &&operacion)
    {
        QElapsedTimer reloj;
        reloj.start();
        operacion();
        micros.push_back(static_cast<double>(reloj.nsecsElapsed()) / 1000.0);
    }
    double percentil(double parte)
    {
        std::sort(micros.begin(), micros.end());
        return micros[static_cast<std::size_t>(parte * static_cast<double>(micros.size() - 1))];
    }
    void escribe(const QString &nombre)
    {
        salida() << u"  %1 p50 %2 µs   p99 %3 µs\n"_s.arg(nombre, -58)
                        .arg(percentil(0.5), 9, 'f', 1)
                        .arg(percentil(0.99), 9, 'f', 1);
    }
};

} // namespace nv::medidas
