#pragma once

#include <QObject>
#include <QTimer>

class cEmpresa;
class nvTextBox;

namespace nv {

class Conexion;

/// What is said of a supplier barcode when its box is left: that a check digit is missing, that it is wrong, that another
/// item has it. Nothing of it keeps the item from being saved.
class ComprobacionBarras : public QObject
{
    Q_OBJECT

public:
    /// `caja`: the barcode; `articulo`: the item's own code.
    ComprobacionBarras(nvTextBox *caja, const nvTextBox *articulo);
    void conectar(::cEmpresa &empresa, Conexion &conexion);

    /// Checks a text once; what can go wrong with the database is said in a box.
    void comprobar();
    /// At once, if its box was left by a click that is not over yet.
    void comprobarPendiente();
    /// Nothing of the box is worth a word any more.
    void olvidar();
    /// While the form itself fills and empties the box.
    void suspender(bool valor) { m_suspendida = valor; }

private:
    void alSalir();
    bool Validar_CodBarras();

    nvTextBox *m_caja;
    const nvTextBox *m_articulo;
    ::cEmpresa *m_empresa = nullptr;
    Conexion *m_conexion = nullptr;
    bool m_comprobado = false;
    bool m_suspendida = false;
    QTimer m_esperaRaton; ///< runs while a click is not over
};

} // namespace nv
