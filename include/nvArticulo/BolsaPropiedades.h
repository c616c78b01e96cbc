#pragma once

#include <QString>
#include <QVariant>
#include <utility>
#include <vector>

namespace nv {

/// The stored properties of a component on its host's form: keys in the order in which they were written. A value equal
/// to its default is not written.
class BolsaPropiedades
{
public:
    QVariant leer(const QString &clave, const QVariant &porDefecto) const;
    void escribir(const QString &clave, const QVariant &valor, const QVariant &porDefecto);
    /// Sets a key whatever its value, as a form file does.
    void poner(const QString &clave, const QVariant &valor);
    bool contiene(const QString &clave) const;
    std::vector<QString> claves() const;

private:
    std::vector<std::pair<QString, QVariant>> m_valores;
};

} // namespace nv
