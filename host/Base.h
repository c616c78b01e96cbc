#pragma once

#include "ParametrosBD.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/EmpresaBD.h"

#include <QTemporaryDir>
#include <memory>

class QWidget;

namespace mostrador {

using namespace nv;

/// The catalogue that the host works on: connection, company and, for a temporary one, the folder that goes with it.
/// Where one is made with `articulos` items of the demonstration, a progress box stands on top of `padre` meanwhile.
class Base
{
public:
    Conexion &conexion() { return *m_conexion; }
    EmpresaBD &empresa() { return m_empresa; }
    ParametrosBD &parametros() { return m_parametros; }
    const QString &ruta() const { return m_ruta; }
    bool temporal() const { return m_carpeta != nullptr; }

    /// A file of the demonstration; one that does not exist is made. Throws Error.
    static std::unique_ptr<Base> abrir(const QString &ruta, int articulos, QWidget *padre);
    /// An existing file only: a mistyped name is no wish for a new catalogue. Throws Error.
    static std::unique_ptr<Base> abrirExistente(const QString &ruta);
    /// In a folder that goes when the object does. Throws Error.
    static std::unique_ptr<Base> enTemporal(int articulos, QWidget *padre);
    /// A database of the server, by its ODBC connection text. `crear` makes the schema in an empty one and fills it,
    /// without pictures. Throws Error.
    static std::unique_ptr<Base> enServidor(const QString &textoConexion, bool crear, int articulos, QWidget *padre);
    /// In the user's data folder.
    static QString rutaHabitual();

private:
    Base(std::unique_ptr<Conexion> conexion, const QString &ruta);

    std::unique_ptr<QTemporaryDir> m_carpeta; ///< outlives the connection, which closes its file
    std::unique_ptr<Conexion> m_conexion;
    EmpresaBD m_empresa;
    ParametrosBD m_parametros;
    QString m_ruta;
};

} // namespace mostrador
