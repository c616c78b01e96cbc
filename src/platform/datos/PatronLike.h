#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace nv::datos {

/// A LIKE pattern of the server, compiled once: "%", "_", "[a-z]", "[^…]"; letters without regard to case, accents
/// count, trailing blanks of the value do not. Works on UTF-8; matching reuses one buffer, so an object is not shared.
class PatronLike
{
public:
    explicit PatronLike(std::string_view patron);

    bool casa(std::string_view valor);
    /// Runs of letters, in upper case, that whatever fits holds; none when nothing fits.
    std::vector<std::string> textos() const;

private:
    struct Tramo
    {
        char32_t desde;
        char32_t hasta;
    };
    struct Elemento
    {
        enum class Tipo { Texto, Uno, Varios, Conjunto };
        Tipo tipo;
        std::string texto;
        bool negado = false;
        std::vector<Tramo> tramos;
    };

    void leerConjunto(std::string_view &resto);
    /// Length of the element at the front of `valor`, npos when it is not there. Not for Varios.
    static std::size_t encaja(const Elemento &elemento, std::string_view valor);

    std::vector<Elemento> m_elementos;
    bool m_imposible = false;
    std::string m_plegado;
};

} // namespace nv::datos
