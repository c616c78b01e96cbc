#pragma once

#include "nvArticulo/cEmpresa.h"
#include "nvArticulo/clsConfig.h"

#include <QHash>

namespace nv::pruebas {

/// A company whose four codes differ, so that a statement that takes the wrong one finds nothing.
class EmpresaPrueba : public cEmpresa
{
public:
    qint16 Codigo() const override { return 1; }
    qint16 CodigoArticulos() const override { return 2; }
    qint16 CodigoProveedores() const override { return 3; }
    qint16 CodigoClientes() const override { return 4; }
    QString NombreFamilia(int nivel) const override { return familias[nivel]; }
    QString NombreCualidad(int eje) const override { return QLatin1StringView(eje == 0 ? "Talla" : "Color"); }
    QString NombreAlternativo1() const override { return QStringLiteral("Estilo"); }
    bool OrdenCualidades() const override { return ordenCualidades; }
    int DecimalesPvp() const override { return 2; }
    QString DirectorioInformes() const override { return {}; }
    Moneda PorcentajeImpuesto(qint16 tipo) const override { return Moneda::deUnidades(tipo == 1 ? 7 : 0); }
    Moneda PorcentajeImpuesto2(qint16 tipo) const override { return Moneda::deUnidades(tipo == 1 ? 21 : 0); }
    QString Valor(const QString &clave) const override { return valores.value(clave); }
    QString Terminal() const override { return QStringLiteral("CAJA-1"); }
    QDate Hoy() const override { return hoy; }

    QString familias[3] = {QStringLiteral("Familia"), QStringLiteral("SubFamilia"), QStringLiteral("Linea")};
    bool ordenCualidades = false;
    QDate hoy = QDate(2026, 11, 22);
    QHash<QString, QString> valores{{QStringLiteral("Almacen_PD"), QStringLiteral("1")},
                                    {QStringLiteral("Articulos_BusquedaCantMax"), QStringLiteral("150")},
                                    {QStringLiteral("OficinaCentral"), QStringLiteral("1")}};
};

/// Parameters by their whole key.
class ParametrosPrueba : public NVUTConfig::clsConfig
{
public:
    void setcEmpresa(const ::cEmpresa *) override {}
    QVariant GetParametro_App(const QString &clave, const QVariant &defecto) const override
    {
        return deAplicacion.value(clave, defecto);
    }
    QVariant GetParametro_Usuario(const QString &clave, const QVariant &defecto) const override
    {
        return deUsuario.value(clave, defecto);
    }
    QHash<QString, QVariant> deAplicacion;
    QHash<QString, QVariant> deUsuario;
};

} // namespace nv::pruebas
