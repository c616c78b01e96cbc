#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

class QComboBox;
class nvArticulo;
class nvCheckBox;
class nvProveedor;

namespace nv {

class Conexion;
class EmpresaBD;

/// What a company can set and what a form sets in its item box. Writes at once.
class PanelAjustes : public QWidget
{
    Q_OBJECT

public:
    explicit PanelAjustes(QWidget *padre = nullptr);

    /// All borrowed; null clears.
    void setOrigen(Conexion *conexion, EmpresaBD *empresa);
    void setArticulo(nvArticulo *articulo);
    /// Reads everything again, as after a script's change.
    void releer();
    /// Stands where the window puts it: it is used while selling.
    nvCheckBox *casillaEscaner() const;

Q_SIGNALS:
    /// What the item box keeps for its life has changed: a new one is wanted.
    void ArticuloCaducado();
    void ModoEscaner(bool activo);

private:
    /// A check box over something that is read and written elsewhere.
    struct Casilla
    {
        nvCheckBox *caja;
        std::function<bool()> leer;
        std::function<void(bool)> escribir;
    };
    nvCheckBox *casilla(const QString &nombre, const QString &texto, std::function<bool()> leer,
                        std::function<void(bool)> escribir);
    nvCheckBox *ajuste(const QString &clave, const QString &texto);
    nvCheckBox *permiso(const QString &nombre, const QString &texto, int control);
    QWidget *grupoEmpresa();
    QWidget *grupoArticulo();
    void cambiarModelo(int modelo);
    bool denegado(int control) const;
    void denegar(int control, bool denegado);

    Conexion *m_conexion = nullptr;
    EmpresaBD *m_empresa = nullptr;
    QPointer<nvArticulo> m_articulo;
    std::vector<Casilla> m_casillas;
    QComboBox *m_modelo = nullptr;
    nvCheckBox *m_escaner = nullptr;
    nvProveedor *m_proveedor = nullptr;
    bool m_leyendo = false;
};

} // namespace nv
