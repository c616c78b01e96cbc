#pragma once

#include <QStringList>
#include <vector>

/// What the demonstration catalogue is made of, from the tables that the program carries with it.
namespace mostrador::tablas {

/// What the names of a section of the shop are made of. Sections are families of level 2, their lines those of level 3.
struct Seccion
{
    qint16 familia1;
    qint16 familia2;
    QString nombre;
    QStringList lineas;
    QStringList productos;
    QStringList calidades;
    QStringList medidas;
    std::vector<qint16> marcas;
    int precioMinimo; ///< cents
    int precioMaximo;
    qint16 impuesto;
    bool conTallas; ///< items have a size and a colour
    bool porPeso;   ///< sold on the scales
};

/// Supplier, customer or department of the scales, and its reference or PLU.
using Anotacion = std::pair<int, QString>;

/// The first items of every catalogue are the same and have what is worth showing: scripts and manuals name them by
/// code. "ABC" is two items of two suppliers, "UNI-1" one item of two suppliers, "CLI-1" two items of two customers,
/// PLU 30 two items on two scales.
struct Muestra
{
    const Seccion *seccion;
    QString descripcion;
    qint16 marca;
    int centimos;
    QString barras; ///< without its check digit; may be empty
    QString notas;
    std::vector<Anotacion> proveedores;
    std::vector<Anotacion> clientes;
    std::vector<Anotacion> balanzas;
    QString estado;       ///< "descatalogada", "bloqueada", "bajo pedido" or empty
    int clienteConPrecio; ///< has a price of its own for this customer; 0 for none
};

const std::vector<Seccion> &secciones();
const std::vector<Muestra> &muestras(); ///< item = position + 1
const QStringList &nombresMarcas();     ///< code of a brand = position + 1
/// What is the same in every catalogue, as statements.
QStringList guionMaestros();

} // namespace mostrador::tablas
