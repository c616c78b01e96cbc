#pragma once

#include <QSize>
#include <QVariant>
#include <optional>
#include <vector>

class cEmpresa;

namespace nv {

class BusquedaBase;
class Rejilla;

/// What the user has made of a search dialog: its size, the widths of its columns, and what a dialog adds. Kept from one
/// opening to the next in the host's `QSettings`, by user and dialog; nowhere while the program has no organisation.
class AspectoBusqueda
{
public:
    /// Remembers nothing.
    AspectoBusqueda() = default;
    AspectoBusqueda(const ::cEmpresa &empresa, const QString &formulario);

    QVariant valor(const QString &nombre) const;
    void guardar(const QString &nombre, const QVariant &valor) const;

    /// Gives form and list what is remembered of them in this form (`variante`: with its details, say).
    void poner(QWidget &forma, Rejilla &rejilla, const QString &variante);
    /// Keeps what has been changed by hand since.
    void anotar(const QWidget &forma, const Rejilla &rejilla, const QString &variante) const;
    /// Forgets all of it, and gives form and list what they had before `poner`.
    void restaurar(QWidget &forma, Rejilla &rejilla);

private:
    struct Medidas
    {
        QSize tamano;
        std::vector<int> anchos; ///< of the columns; 0: hidden
    };
    static Medidas medidas(const QWidget &forma, const Rejilla &rejilla);

    QString m_grupo; ///< empty: nothing is remembered
    Medidas m_deFabrica;
    Medidas m_puestas;
    QString m_variante;
};

} // namespace nv
