#pragma once

#include "nvArticulo/cEmpresa.h"

#include <QHash>
#include <array>
#include <functional>
#include <optional>

namespace nv {

class Conexion;

/// A company context over the tables of our own schema: `Empresas`, `Parametros_Empresa`, `Tipos_Impuesto`. A suite that
/// keeps its settings elsewhere hands in a `cEmpresa` of its own.
/// Each table is read when it is first asked for and kept for the life of the object, as the suite's programs do: what
/// another workstation changes is seen after `Recargar` or the next start. A read that fails throws Error and is tried
/// again by the next one. Owned by the host; the connection is borrowed and must outlive it.
class EmpresaBD : public ::cEmpresa
{
public:
    EmpresaBD(Conexion &conexion, qint16 codigo);

    qint16 Codigo() const override { return m_codigo; }
    qint16 CodigoArticulos() const override { return ficha().articulos; }
    qint16 CodigoProveedores() const override { return ficha().proveedores; }
    qint16 CodigoClientes() const override { return ficha().clientes; }
    QString Nombre() const { return ficha().nombre; }
    QString NombreFamilia(int nivel) const override;
    QString NombreCualidad(int eje) const override;
    QString NombreAlternativo1() const override { return ficha().alternativo1; }
    bool OrdenCualidades() const override { return ficha().ordenCualidades; }
    int DecimalesPvp() const override { return ficha().decimalesPvp; }
    QString DirectorioInformes() const override { return ficha().dirInformes; }
    Moneda PorcentajeImpuesto(qint16 tipo) const override { return impuesto(tipo)[0]; }
    Moneda PorcentajeImpuesto2(qint16 tipo) const override { return impuesto(tipo)[1]; }
    /// Names of settings are compared without regard to case, as the server does.
    QString Valor(const QString &clave) const override;
    QDate Hoy() const override;

    /// Forgets what was read.
    void Recargar();
    /// Writes the setting's row in `Parametros_Empresa`. Throws Error; the value kept is then the former one.
    void PonerValor(const QString &clave, const QString &valor);
    /// The clock of the day instead of the system's; an empty function gives it back.
    void setReloj(std::function<QDate()> reloj) { m_reloj = std::move(reloj); }

private:
    struct Ficha
    {
        QString nombre;
        qint16 articulos;
        qint16 proveedores;
        qint16 clientes;
        std::array<QString, 3> familias;
        std::array<QString, 2> cualidades;
        QString alternativo1;
        bool ordenCualidades;
        int decimalesPvp;
        QString dirInformes;
    };
    using Impuesto = std::array<Moneda, 2>;

    const Ficha &ficha() const;
    Impuesto impuesto(qint16 tipo) const;
    QHash<QString, QString> &valores() const;

    Conexion &m_conexion;
    qint16 m_codigo;
    std::function<QDate()> m_reloj;
    mutable std::optional<Ficha> m_ficha;
    mutable std::optional<QHash<QString, QString>> m_valores; // by lower-case name
    mutable std::optional<QHash<qint16, Impuesto>> m_impuestos;
};

} // namespace nv
