#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

class QComboBox;
class nvArticulo;
class nvCheckBox;
class nvProveedor;

namespace mostrador {

class Base;

/// What a company can set and what a form sets in its item box. Writes at once.
class PanelAjustes : public QWidget
{
    Q_OBJECT

public:
    explicit PanelAjustes(QWidget *padre = nullptr);

    /// Borrowed; null for none.
    void setBase(Base *base);
    void setArticulo(nvArticulo *articulo);
    /// Reads everything again, as after a script's change.
    void releer();

Q_SIGNALS:
    /// What the item box keeps for its life has changed: a new one is wanted.
    void ArticuloCaducado();

private:
    QWidget *grupoEmpresa();
    QWidget *grupoArticulo();
    /// A check box over something that is read and written elsewhere.
    nvCheckBox *casilla(const QString &nombre, const QString &texto, std::function<bool()> leer,
                        std::function<void(bool)> cambiar);
    nvCheckBox *ajuste(const QString &clave, const QString &texto);
    nvCheckBox *permiso(const QString &nombre, const QString &texto, int control);
    nvCheckBox *propiedad(const QByteArray &nombre);
    void escribir(const std::function<void()> &cambio);

    Base *m_base = nullptr;
    QPointer<nvArticulo> m_articulo;
    QComboBox *m_modelo;
    nvProveedor *m_proveedor;
    std::vector<std::function<void()>> m_lecturas; ///< each shows in its check box what is set
    bool m_leyendo = false;
};

} // namespace mostrador
