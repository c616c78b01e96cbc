#pragma once

#include "nvArticulo/Sentencia.h"
#include "search/piezas/PrecioArticulo.h"

#include <QFrame>
#include <optional>

class QLabel;
class QPlainTextEdit;
class QVBoxLayout;

namespace nv {

class CajaImagen;
class Conexion;
class Registros;

/// The details of one item: picture, notes, stock of the default warehouse and price (`fraExtendido`).
/// Reads `Empresas`, `Articulos`, `Almacen_Articulos` and what the price reads. Borrows the company.
class PanelDetalles : public QFrame
{
    Q_OBJECT

public:
    explicit PanelDetalles(QWidget *padre);

    /// Before the first item of an opening: reads the picture directory. Throws Error.
    void preparar(const ::cEmpresa &empresa, qint32 cliente);
    /// Shows the item of that code text. Throws Error; what was filled by then stays.
    void DevPropiedades(const QString &codigo);
    /// No item: figures at 0, no notes, no picture. A richer panel clears what it adds.
    virtual void limpiar();

protected:
    /// The stock row of an item. What else it brings is shown by `mostrarExistencias`, which a richer panel extends.
    virtual Sentencia consultaExistencias(qint32 articulo) const;
    virtual void mostrarExistencias(const Registros &registros);

    /// The column under the figures, for further widgets.
    QVBoxLayout *cuerpo() const { return m_cuerpo; }
    /// Throws Error (91) before `preparar`.
    const ::cEmpresa &empresa() const;

private:
    void vaciarCifras();
    void mostrarNotas(Conexion &conexion, qint32 articulo);
    void mostrarFoto(const QString &codigo);
    void avisarFoto(const QString &aviso);
    QLabel *cifra(const QString &nombre, const QString &accesible);
    /// An invalid colour gives the figure its own back.
    void pintarDisponible(const QColor &color);

    const ::cEmpresa *m_empresa = nullptr;
    std::optional<PrecioArticulo> m_precio;
    QString m_directorio;
    QVBoxLayout *m_cuerpo;
    CajaImagen *m_foto;
    QLabel *m_avisoFoto;
    QPlainTextEdit *m_notas;
    QLabel *m_stock;
    QLabel *m_servir;
    QLabel *m_disponible;
    QLabel *m_tituloDisponible;
    QLabel *m_recibir;
    QLabel *m_pvp;
};

} // namespace nv
