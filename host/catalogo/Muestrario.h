#pragma once

#include <QString>
#include <vector>

namespace nv {

/// The first items of every demonstration catalogue are the same and have what is worth showing: scripts and manuals
/// name them by code. Item = position + 1.
struct Muestra
{
    const char16_t *descripcion;
    qint16 familia1, familia2;
    qint16 marca;
    int centimos;
    const char16_t *barras = nullptr; ///< without its check digit
    const char16_t *notas = nullptr;
};

struct ReferenciaMuestra
{
    int articulo;
    int tercero; ///< supplier or customer
    const char16_t *referencia;
    bool principal = true;
};

struct PluMuestra
{
    int articulo;
    int plu;
    int departamento;
};

const std::vector<Muestra> &muestrario();
/// Of suppliers: "ABC" is two items of two suppliers, "UNI-1" one item of two suppliers.
const std::vector<ReferenciaMuestra> &referenciasMuestra();
/// Of customers: "CLI-1" is two items of two customers.
const std::vector<ReferenciaMuestra> &referenciasClienteMuestra();
/// PLU 30 is two items on two scales.
const std::vector<PluMuestra> &plusMuestra();

/// 13 discontinued, 14 blocked, 15 on order only; 30 has a size and a colour.
inline constexpr int MuestraDescatalogada = 13;
inline constexpr int MuestraBloqueada = 14;
inline constexpr int MuestraBajoPedido = 15;
/// Has a price of its own for customer 5.
inline constexpr int MuestraPrecioCliente = 1;
inline constexpr int ClienteConPrecio = 5;

} // namespace nv
