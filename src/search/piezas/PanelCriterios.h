#pragma once

#include "platform/widgets/Mensajes.h"
#include "search/sql/Condiciones.h"

#include <QFrame>

class QGridLayout;
class nvMarca;
class nvProveedor;
class nvTextBox;
class cEmpresa;

namespace nv {

class CascadaFamilias;
class Conexion;
struct CriteriosBusqueda;

/// The criteria of a search: description, supplier and families, code and reference or brand.
class PanelCriterios : public QFrame
{
    Q_OBJECT

public:
    /// `conMarca`: a brand in place of code and reference; Enter in the supplier then searches, and that in the families
    /// moves on.
    PanelCriterios(QWidget *padre, bool conMarca);

    nvTextBox *nombre() const { return m_nombre; }
    nvTextBox *codigo() const { return m_codigo; }
    nvTextBox *referencia() const { return m_referencia; }
    nvProveedor *proveedor() const { return m_proveedor; }
    CascadaFamilias *familias() const { return m_familias; }
    QGridLayout *filtro() const { return m_filtro; }
    /// In the order of Tab.
    const QWidgetList &campos() const { return m_campos; }

    /// A row more at the foot; a note follows its field on the line.
    void anadir(const QString &rotulo, const QString &nombreRotulo, QWidget *campo, QWidget *nota = nullptr);
    /// Enter in this box searches where no later field would: the families are fixed, or there are none.
    void buscarConIntro(nvTextBox *caja);

    void conectar(::cEmpresa *empresa, Conexion *conexion);
    /// Fills them with what the component remembers; whether there is any.
    bool poner(const CriteriosBusqueda &recordado);
    /// The names of the codes. Each step fails by itself.
    void cargarNombres(mensajes::Fallos &fallos);
    sql::CriteriosArticulo escritos() const;
    /// Whether a text is sought at the beginning only; puts "*" in front of each that is.
    bool sinAsterisco() const;
    void anteponerAsterisco();
    /// What the component is to remember; a number that names no code is none.
    void recordar(const sql::CriteriosArticulo &criterios, CriteriosBusqueda &memoria) const;

Q_SIGNALS:
    void Buscar();

private:
    nvTextBox *alLado(const QString &texto, const QString &nombreCaja);
    void conectarIntro();
    /// The boxes whose text is a pattern.
    QList<nvTextBox *> patrones() const;

    QGridLayout *m_filtro;
    nvTextBox *m_nombre;
    nvProveedor *m_proveedor;
    CascadaFamilias *m_familias;
    nvTextBox *m_codigo = nullptr;
    nvTextBox *m_referencia = nullptr;
    nvMarca *m_marca = nullptr;
    QWidgetList m_campos;
    int m_fila = 0; ///< the next one
};

} // namespace nv
