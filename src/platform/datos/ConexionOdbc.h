#pragma once

#include "platform/datos/Aparcadero.h"

#include <QSqlDatabase>

class QSqlQuery;

namespace nv::datos {

/// A database of the server through Qt's ODBC driver. Statements go out as text, executed directly: what a prepared
/// call makes (a #table) dies with it. The driver allows one live result, which the base class sees to.
class ConexionOdbc final : public ConexionAparcadora
{
public:
    /// A connection of its own, closed at the end. Throws Error; see abrirOdbc.
    explicit ConexionOdbc(const QString &texto);
    /// Over a database that its host has open and closes. Throws Error; see sobreOdbc.
    explicit ConexionOdbc(const QSqlDatabase &ajena);
    ~ConexionOdbc() override;

private:
    ConexionOdbc(const QSqlDatabase &base, const QString &nombrePropio);

    std::unique_ptr<FuenteRegistros> abrirCursor(const Sentencia &sentencia) override;
    qint64 ejecutarSolo(const Sentencia &sentencia) override;
    void comenzarSolo() override;
    void confirmarSolo() override;
    void deshacerSolo() override;

    void ajustarSesion();
    QSqlQuery ejecutada(const Sentencia &sentencia);

    QSqlDatabase m_base;
    QString m_nombrePropio; // in Qt's list of connections; empty when the host made it
};

} // namespace nv::datos
