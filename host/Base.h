#pragma once

#include "common/Conexion.h"
#include "common/EmpresaBD.h"

#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <memory>

class QWidget;

namespace nv {

/// The catalogue that the host works on: connection, company and, for a temporary one, the folder that goes with it.
class Base
{
public:
    Base() = default;
    Base(Base &&) = default;
    Base &operator=(Base &&otra) noexcept;
    ~Base();

    bool abierta() const { return m_conexion != nullptr; }
    Conexion &conexion() { return *m_conexion; }
    EmpresaBD &empresa() { return *m_empresa; }
    const QString &ruta() const { return m_ruta; }
    bool temporal() const { return m_carpeta != nullptr; }

    /// A file of the demonstration; one that does not exist is made with `articulos` items, with a progress box on top
    /// of `padre` while that takes. Throws Error.
    static Base abrir(const QString &ruta, int articulos, QWidget *padre);
    /// An existing file only: a mistyped name is no wish for a new catalogue. Throws Error.
    static Base abrirExistente(const QString &ruta);
    /// In a folder that goes when the object does. Throws Error.
    static Base enTemporal(int articulos, QWidget *padre);
    /// A database of the server, by its ODBC connection text. `crear` makes the schema in an empty one and fills it with
    /// `articulos` items of the demonstration, without pictures. Throws Error.
    static Base enServidor(const QString &textoConexion, bool crear, int articulos, QWidget *padre);
    /// In the user's data folder.
    static QString rutaHabitual();

private:
    std::unique_ptr<QTemporaryDir> m_carpeta;
    std::unique_ptr<Conexion> m_conexion;
    std::unique_ptr<EmpresaBD> m_empresa;
    QString m_ruta;
};

} // namespace nv
