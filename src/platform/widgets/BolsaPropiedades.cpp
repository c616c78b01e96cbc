#include "nvArticulo/BolsaPropiedades.h"

#include <algorithm>

namespace nv {

namespace {

auto deClave(const QString &clave)
{
    return [&clave](const std::pair<QString, QVariant> &par) { return par.first == clave; };
}

} // namespace

QVariant BolsaPropiedades::leer(const QString &clave, const QVariant &porDefecto) const
{
    const auto par = std::find_if(m_valores.begin(), m_valores.end(), deClave(clave));
    return par == m_valores.end() ? porDefecto : par->second;
}

void BolsaPropiedades::escribir(const QString &clave, const QVariant &valor, const QVariant &porDefecto)
{
    if (valor == porDefecto)
        std::erase_if(m_valores, deClave(clave));
    else
        poner(clave, valor);
}

void BolsaPropiedades::poner(const QString &clave, const QVariant &valor)
{
    const auto par = std::find_if(m_valores.begin(), m_valores.end(), deClave(clave));
    if (par == m_valores.end())
        m_valores.emplace_back(clave, valor);
    else
        par->second = valor;
}

bool BolsaPropiedades::contiene(const QString &clave) const
{
    return std::any_of(m_valores.begin(), m_valores.end(), deClave(clave));
}

std::vector<QString> BolsaPropiedades::claves() const
{
    std::vector<QString> claves;
    claves.reserve(m_valores.size());
    for (const auto &[clave, valor] : m_valores)
        claves.push_back(clave);
    return claves;
}

} // namespace nv
