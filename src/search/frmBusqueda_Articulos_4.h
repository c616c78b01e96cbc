#pragma once

#include "search/BusquedaCriterios.h"

/// Search model 3: items by description, supplier, families and brand. With several results the rows are marked with an
/// "X", one by one or all at once.
class frmBusqueda_Articulos_4 : public nv::BusquedaCriterios
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_4(QWidget *padre);

    /// The search of the criteria on screen.
    void Cargar() { EjecutarBusqueda(); }

protected:
    enum Columna { Marcada, CodigoArticulo, DescripcionArticulo, CodigoBarras };

    /// For a dialog with columns of its own after these; `formulario` names it in its errors.
    frmBusqueda_Articulos_4(QWidget *padre, nv::ConfiguracionCriterios configuracion, const QString &formulario);
    static nv::ConfiguracionCriterios configuracion(nv::TablaColumnas columnas);

    nv::Sentencia consulta(const nv::sql::CriteriosArticulo &criterios) override;
    QString tituloAceptar() const override { return m_formulario + QStringLiteral(":cmdAceptar_Click"); }
    QString tituloBusqueda() const override { return m_formulario + QStringLiteral(":Cargar"); }

private:
    void ajustarAncho(int columnas);

    QString m_formulario;
};
