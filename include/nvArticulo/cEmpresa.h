#pragma once

#include "nvArticulo/Moneda.h"

#include <QDate>
#include <QString>

/// The company context that the host hands in. Borrowed by the component and handed to every dialog.
/// The codes are distinct and must not be interchanged.
class cEmpresa
{
public:
    virtual ~cEmpresa() = default;

    /// Company code: `Empresas`, `Cod_Empresa` of warehouses, stock, warehouse tariffs, scales, customer prices.
    virtual qint16 Codigo() const = 0;
    /// Item-master company code: `Cod_Empresa` of `Articulos` and the item tables.
    virtual qint16 CodigoArticulos() const = 0;
    /// Supplier-master company code: `Cod_Empresa` of `Proveedores`.
    virtual qint16 CodigoProveedores() const = 0;
    /// Customer company code: `Cod_Empresa` of `Clientes`.
    virtual qint16 CodigoClientes() const = 0;

    /// `nivel` 0 to 2; empty when the company does not use the level.
    virtual QString NombreFamilia(int nivel) const = 0;
    /// `eje` 0 for X, 1 for Y.
    virtual QString NombreCualidad(int eje) const = 0;
    /// Name of the first alternative field.
    virtual QString NombreAlternativo1() const = 0;
    /// Fashion edition: True when characters 9-10 of a code with qualities are X and 11-12 are Y.
    virtual bool OrdenCualidades() const = 0;
    /// Decimals of sale prices.
    virtual int DecimalesPvp() const = 0;
    virtual QString DirectorioInformes() const = 0;

    /// Percentage of a tax type, first and second tax; 0 when the type is unknown.
    virtual nv::Moneda PorcentajeImpuesto(qint16 tipo) const = 0;
    virtual nv::Moneda PorcentajeImpuesto2(qint16 tipo) const = 0;

    /// A company setting by name ("BusquedaArticulos", "Almacen_PD", …); empty when it is not set. Throws nv::Error.
    virtual QString Valor(const QString &clave) const = 0;

    /// The workstation's terminal name.
    virtual QString Terminal() const;
    /// Today, from the one clock of the suite.
    virtual QDate Hoy() const;

    /// Settings read as the types that their readers expect: text that is no number gives 0.
    bool ValorBooleano(const QString &clave) const;
    qint16 ValorEntero16(const QString &clave) const;
    qint32 ValorEntero32(const QString &clave) const;
};
