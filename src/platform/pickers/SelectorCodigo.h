#pragma once

#include "nvArticulo/Sentencia.h"

#include <QWidget>

class cEmpresa;
class QLabel;
class nvTextBox;

namespace nv {

class Conexion;

/// A code box with the name of its code beside it: base of the suite's pickers. F3 lists what can be chosen; an unknown
/// code says so beside the box. Keys 0 or empty mean none: setting code 0 leaves the box empty.
/// The name is loaded by `Cargar`, by Enter and on leaving the box.
class SelectorCodigo : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString Texto READ Texto WRITE setTexto)

public:
    void setConexion(Conexion *conexion) { m_conexion = conexion; }
    void setcEmpresa(::cEmpresa *empresa) { m_empresa = empresa; }

    /// Numeric value of the box; 0 when empty, no number or out of 32 bits.
    qint32 Codigo() const;
    /// The code as a criterion of a search: 0 asks for any (empty, or 0), and a number that no code can be is beyond 32
    /// bits, so that it finds nothing.
    qint64 CodigoBuscado() const;
    void setCodigo(qint32 codigo);
    /// Text of the box, trimmed.
    QString Texto() const;
    void setTexto(const QString &texto);
    /// Name shown; empty while nothing known is chosen.
    QString Nombre() const { return m_nombre; }
    /// Whether the code in the box was found the last time it was loaded.
    bool Existe() const { return m_existe; }
    /// Loads the name of the code in the box; true when it exists. An empty box is no error. Throws nv::Error.
    bool Cargar();
    void Limpiar() { setTexto(QString()); }
    /// Loads the name unless that has been done since the code changed; a failure is shown. True when none was.
    bool Asentar();

    nvTextBox *caja() const { return m_caja; }

Q_SIGNALS:
    void Cambio();             ///< the text of the box changed
    void Cargado();            ///< the code was looked up: the name is that of the code, or gone
    void Salida();             ///< the box lost the focus, its name loaded
    void Intro(bool &tratada); ///< Enter, the name already loaded; set `tratada` to keep the focus here

protected:
    /// Whose: every company's, the company's own, or of the one that keeps a kind of master data.
    enum class De { Todas, Empresa, Articulos, Proveedores, Clientes };
    enum class Por { Codigo, Nombre };
    /// What is offered: a table with `Codigo` and `Nombre`.
    struct Tabla
    {
        Fragmento desde; ///< " FROM Marcas"
        De de;
        Por orden;
        QStringView titulo;    ///< of the list and of the error messages
        bool numericos = true; ///< the box then takes digits only
    };

    SelectorCodigo(const Tabla &tabla, QWidget *padre);
    void setDesde(Fragmento desde) { m_tabla.desde = desde; }

    ::cEmpresa *empresa() const { return m_empresa; }
    /// The name on screen is no longer that of the code, as when what it depends on has changed.
    void olvidarNombre();
    bool event(QEvent *evento) override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

    /// FROM and WHERE of the codes, up to where " AND" may follow; throws Error (91) while there is no company.
    virtual Sentencia desde() const;
    virtual QString titulo() const { return m_tabla.titulo.toString(); }

private:
    Conexion &conexion() const;
    Sentencia consultaNombre(const QString &codigo) const;
    Sentencia consultaLista() const;
    void alPulsarIntro(bool &tratada);
    void alSalir();
    void elegirEnLista();
    void mostrarNombre(const QString &nombre, bool existe);

    Tabla m_tabla;
    Conexion *m_conexion = nullptr;
    ::cEmpresa *m_empresa = nullptr;
    nvTextBox *m_caja;
    QLabel *m_etiqueta;
    QString m_nombre;
    bool m_existe = false;
    bool m_pendiente = false; ///< the code has not been looked up yet
};

} // namespace nv
