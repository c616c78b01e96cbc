#pragma once

#include "catalogo/FichaArticulo.h"
#include "catalogo/Lote.h"

#include <QDate>

namespace nv {

class Conexion;

/// Writes items with all that hangs from them.
class EscritorArticulos
{
public:
    /// `dirImagenes` ends with its separator; empty: no pictures.
    EscritorArticulos(Conexion &conexion, QDate dia, const QString &dirImagenes);

    void escribir(int codigo);
    void cerrar();

private:
    void articulo(const FichaArticulo &ficha, Azar &azar);
    void barras(const FichaArticulo &ficha, Azar &azar);
    void referencias(const FichaArticulo &ficha, Azar &azar);
    void referencia(int articulo, int proveedor, const QString &texto, bool principal);
    void referenciasCliente(const FichaArticulo &ficha, Azar &azar);
    void tarifas(const FichaArticulo &ficha, Azar &azar);
    void tarifa(int articulo, int codigo, Moneda pvp);
    void existencias(const FichaArticulo &ficha, Azar &azar);
    void ventas(int articulo, int almacen, Azar &azar);
    void balanza(const FichaArticulo &ficha, Azar &azar);
    void surtidos(const FichaArticulo &ficha, Azar &azar);
    void imagen(const FichaArticulo &ficha) const;

    QDate m_dia;
    QString m_dirImagenes;
    Lote m_articulos, m_barras, m_referencias, m_referenciasCliente, m_tarifas, m_preciosCliente, m_existencias,
        m_ventas, m_balanzas, m_surtidos;
};

} // namespace nv
