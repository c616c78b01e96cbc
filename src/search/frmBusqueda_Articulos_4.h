#pragma once

#include "platform/widgets/Rejilla.h"
#include "search/BusquedaBase.h"
#include "search/sql/Modelo3.h"

class QGridLayout;
class QHBoxLayout;
class QPushButton;
class nvMarca;
class nvProveedor;
class nvTextBox;

namespace nv {
class CascadaFamilias;
class MarcasX;
class Registros;
} // namespace nv

/// Search model 3: items by description, supplier, families and brand. With several results the rows are marked with an
/// "X", one by one or all at once.
class frmBusqueda_Articulos_4 : public nv::BusquedaBase
{
    Q_OBJECT

public:
    explicit frmBusqueda_Articulos_4(QWidget *padre);

    /// Runs the search of the criteria on screen. A failure is shown and leaves the list as it was.
    void Cargar();

protected:
    enum Columna { Marca, CodigoArticulo, DescripcionArticulo, CodigoBarras };
    using Lector = std::function<nv::FilaRejilla(const nv::Registros &)>;

    /// For a dialog with columns of its own after the description.
    frmBusqueda_Articulos_4(QWidget *padre, std::vector<nv::ColumnaRejilla> columnas);

    void cargar() override;
    /// Marks are taken wherever the current row is; none of them is no choice.
    bool puedeAceptar() const override { return MultiResultado || BusquedaBase::puedeAceptar(); }
    nv::Eleccion eleccion() const override;
    nv::ColumnasEleccion columnasEleccion() const override;
    QString tituloAceptar() const override;
    QString tituloBusqueda() const override;
    bool event(QEvent *evento) override;

    /// Gives the pickers what they read from. Throws Error.
    virtual void preparar();
    /// Fills the criteria with what is remembered; whether there is any. Throws Error.
    virtual bool ponerRecordados();
    /// The statement of the criteria on screen, ready to be opened. Throws Error.
    virtual nv::Sentencia consulta();
    /// Looks up the columns of a result, once, and gives the reader of its rows.
    virtual Lector lector(const nv::Registros &registros) const;
    /// The criteria of a search that went well, for the component.
    virtual void recordarCriterios();

    nv::sql::CriteriosModelo3 criteriosEscritos() const;
    /// A row more at the foot of the criteria; a note follows its field on the line.
    void anadirCriterio(const QString &nombreRotulo, const QString &rotulo, QWidget *campo, QWidget *nota = nullptr);

private:
    void montarCriterios();
    QHBoxLayout *botones();
    void conectar();
    void ordenarTabulacion(bool rejillaPrimero);

    QGridLayout *m_filtro;
    nvTextBox *m_nombre;
    nvProveedor *m_proveedor;
    nv::CascadaFamilias *m_familias;
    nvMarca *m_marca;
    nv::MarcasX *m_marcas;
    QPushButton *m_marcarTodos;
    QPushButton *m_desmarcarTodos;
    QPushButton *m_aceptar;
    QPushButton *m_cancelar;
};
