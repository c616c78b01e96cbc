#pragma once

#include <QCommandLineParser>
#include <optional>

namespace mostrador {

/// The command line of the host, by the names of its options.
class Opciones
{
public:
    /// The program's name first. Throws Error with the reason why they cannot be followed.
    explicit Opciones(const QStringList &argumentos);

    bool hay(const QString &opcion) const { return m_lector.isSet(opcion); }
    /// Empty when it was not given.
    QString texto(const QString &opcion) const { return m_lector.value(opcion); }
    int articulos() const { return m_articulos; }
    std::optional<int> modelo() const { return m_modelo; }
    std::optional<int> letra() const { return m_letra; }
    QString ayuda() const { return m_lector.helpText(); }

private:
    QCommandLineParser m_lector;
    int m_articulos;
    std::optional<int> m_modelo;
    std::optional<int> m_letra; ///< points
};

} // namespace mostrador
