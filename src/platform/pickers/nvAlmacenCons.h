#pragma once

#include <QWidget>
#include <vector>

class QListWidget;
class cEmpresa;

namespace nv {
class Conexion;
}

/// Warehouse-set picker: the company's `Almacenes` in a list, any number of them ticked.
class nvAlmacenCons : public QWidget
{
    Q_OBJECT

public:
    explicit nvAlmacenCons(QWidget *padre = nullptr);

    void setConexion(nv::Conexion *conexion) { m_conexion = conexion; }
    void setcEmpresa(::cEmpresa *empresa) { m_empresa = empresa; }
    /// Who chooses. Every user sees all warehouses of the company.
    void setUsuario(const QString &usuario) { m_usuario = usuario; }
    QString Usuario() const { return m_usuario; }

    /// Lists the warehouses, none ticked. Throws nv::Error.
    void Cargar();
    /// The ticked ones in ascending order.
    std::vector<qint16> Almacenes() const;
    void setAlmacenes(const std::vector<qint16> &almacenes);

Q_SIGNALS:
    void Cambio(); ///< a warehouse was ticked or unticked

private:
    void marcarTodos(bool marcados);

    nv::Conexion *m_conexion = nullptr;
    ::cEmpresa *m_empresa = nullptr;
    QString m_usuario;
    QListWidget *m_lista;
};
