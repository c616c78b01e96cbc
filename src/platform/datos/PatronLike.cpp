#include "platform/datos/PatronLike.h"

#include "platform/datos/Cotejo.h"

#include <array>

namespace nv::datos {

namespace {

constexpr unsigned char CabezaLatina = 0xC3;  // lead byte of À to ÿ
constexpr unsigned char CabezaTrasera = 0xC5; // of Œ, Š, Ÿ and Ž

using TablaBytes = std::array<unsigned char, 256>;

constexpr TablaBytes construir(unsigned char desde, unsigned char hasta, unsigned char salvo)
{
    TablaBytes tabla{};
    for (std::size_t i = 0; i < tabla.size(); ++i) {
        const auto byte = static_cast<unsigned char>(i);
        const bool minuscula = byte >= desde && byte <= hasta && byte != salvo;
        tabla[i] = minuscula ? static_cast<unsigned char>(byte - 0x20) : byte;
    }
    return tabla;
}

constexpr TablaBytes Normal = construir('a', 'z', 0);
constexpr TablaBytes TrasCabeza = construir(0xA0, 0xBE, 0xB7); // all but the division sign

constexpr TablaBytes construirTrasera()
{
    TablaBytes tabla = construir(1, 0, 0);
    for (const unsigned char mayuscula : std::array<unsigned char, 3>{0x92, 0xA0, 0xBD}) // Œ, Š, Ž
        tabla[mayuscula + 1U] = mayuscula;
    return tabla;
}

constexpr TablaBytes TrasTrasera = construirTrasera();

/// Upper case of the letters that the order takes as equal; the length in bytes stays the same.
void plegar(std::string_view texto, std::string &plegado)
{
    plegado.resize(texto.size());
    unsigned char anterior = 0;
    for (std::size_t i = 0; i < texto.size(); ++i) {
        const auto byte = static_cast<unsigned char>(texto[i]);
        const TablaBytes &tabla = anterior == CabezaLatina    ? TrasCabeza
                                  : anterior == CabezaTrasera ? TrasTrasera
                                                              : Normal;
        plegado[i] = static_cast<char>(tabla[byte]);
        if (anterior == CabezaLatina && byte == 0xBF) { // ÿ
            plegado[i - 1] = static_cast<char>(CabezaTrasera);
            plegado[i] = '\xB8';
        }
        anterior = byte;
    }
}

/// One number that grows with the order of single characters.
char32_t clave(char32_t caracter)
{
    const Peso este = peso(caracter);
    return (este.primario << 4U) | static_cast<char32_t>(este.secundario);
}

std::size_t largoPrimero(std::string_view texto)
{
    std::string_view resto = texto;
    extraer(resto);
    return texto.size() - resto.size();
}

} // namespace

PatronLike::PatronLike(std::string_view patron)
{
    using Tipo = Elemento::Tipo;
    std::string plegado;
    plegar(patron, plegado);
    std::string_view resto = plegado;
    while (!resto.empty() && !m_imposible) {
        const char c = resto.front();
        if (c == '[') {
            leerConjunto(resto);
            continue;
        }
        resto.remove_prefix(1);
        if (c == '%') {
            if (m_elementos.empty() || m_elementos.back().tipo != Tipo::Varios)
                m_elementos.push_back({Tipo::Varios, {}, false, {}});
        } else if (c == '_') {
            m_elementos.push_back({Tipo::Uno, {}, false, {}});
        } else {
            if (m_elementos.empty() || m_elementos.back().tipo != Tipo::Texto)
                m_elementos.push_back({Tipo::Texto, {}, false, {}});
            m_elementos.back().texto += c;
        }
    }
}

void PatronLike::leerConjunto(std::string_view &resto)
{
    Elemento conjunto{Elemento::Tipo::Conjunto, {}, false, {}};
    resto.remove_prefix(1);
    if (resto.starts_with('^')) {
        conjunto.negado = true;
        resto.remove_prefix(1);
    }
    while (!resto.empty() && resto.front() != ']') {
        const char32_t desde = clave(extraer(resto));
        char32_t hasta = desde;
        if (resto.size() >= 2 && resto[0] == '-' && resto[1] != ']') {
            resto.remove_prefix(1);
            hasta = clave(extraer(resto));
        }
        conjunto.tramos.push_back({desde, hasta});
    }
    // A set without its closing bracket fits nothing.
    m_imposible = resto.empty();
    if (!m_imposible)
        resto.remove_prefix(1);
    m_elementos.push_back(std::move(conjunto));
}

std::size_t PatronLike::encaja(const Elemento &elemento, std::string_view valor)
{
    if (elemento.tipo == Elemento::Tipo::Texto)
        return valor.starts_with(elemento.texto) ? elemento.texto.size() : std::string_view::npos;
    if (valor.empty())
        return std::string_view::npos;
    if (elemento.tipo == Elemento::Tipo::Uno)
        return largoPrimero(valor);
    std::string_view resto = valor;
    const char32_t este = clave(extraer(resto));
    bool dentro = false;
    for (const Tramo &tramo : elemento.tramos)
        dentro = dentro || (este >= tramo.desde && este <= tramo.hasta);
    return dentro != elemento.negado ? valor.size() - resto.size() : std::string_view::npos;
}

std::vector<std::string> PatronLike::textos() const
{
    std::vector<std::string> lista;
    for (const Elemento &elemento : m_elementos) {
        if (elemento.tipo == Elemento::Tipo::Texto && !m_imposible)
            lista.push_back(elemento.texto);
    }
    return lista;
}

bool PatronLike::casa(std::string_view valor)
{
    constexpr std::size_t Ninguno = std::string_view::npos;
    if (m_imposible)
        return false;
    plegar(valor, m_plegado);
    const std::string_view texto = m_plegado;
    std::size_t elemento = 0;
    std::size_t lugar = 0;
    std::size_t trasVarios = Ninguno; // the element behind the last "%"
    std::size_t intento = 0;          // where that element is being tried
    for (;;) {
        if (elemento < m_elementos.size() && m_elementos[elemento].tipo == Elemento::Tipo::Varios) {
            if (++elemento == m_elementos.size())
                return true;
            trasVarios = elemento;
            intento = lugar;
        } else if (elemento == m_elementos.size() && texto.find_first_not_of(' ', lugar) == Ninguno) {
            return true;
        } else {
            const std::size_t largo =
                elemento < m_elementos.size() ? encaja(m_elementos[elemento], texto.substr(lugar)) : Ninguno;
            if (largo != Ninguno) {
                lugar += largo;
                ++elemento;
                continue;
            }
            if (trasVarios == Ninguno || intento >= texto.size())
                return false;
            intento += largoPrimero(texto.substr(intento));
        }
        // Straight to the next place where the text behind the "%" stands.
        const Elemento &siguiente = m_elementos[trasVarios];
        if (siguiente.tipo == Elemento::Tipo::Texto) {
            intento = texto.find(siguiente.texto, intento);
            if (intento == Ninguno)
                return false;
        }
        lugar = intento;
        elemento = trasVarios;
    }
}

} // namespace nv::datos
