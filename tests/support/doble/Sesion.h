#pragma once

#include "support/doble/BaseSuite.h"
#include "support/doble/Cable.h"
#include "support/doble/Reparos.h"

#include <QHash>

#include <functional>

namespace nv::doble {

/// One client's session: runs its statements on the embedded engine and answers as a server does. Belongs to one thread.
class Sesion
{
public:
    /// `matar` ends the session of a number; false when there is none.
    Sesion(BaseSuite &base, int numero, std::function<bool(int)> matar);

    QByteArray responder(const QString &texto);

private:
    void orden(const QString &texto, Respuesta &respuesta);
    bool ordenDeSesion(const Piezas &piezas, Respuesta &respuesta);
    void consultar(const QString &texto, const Consulta &consulta, Respuesta &respuesta);
    void escribir(const QString &texto, const Piezas &piezas, Respuesta &respuesta);
    qint64 ejecutar(const QString &texto, const Piezas &piezas, const Consulta &consulta);
    void anotar(const Piezas &piezas, const Consulta &consulta);
    void confirmar();
    void deshacer();
    std::vector<Columna> declaradas(const QString &tabla) const;

    BaseSuite &m_base;
    int m_numero;
    std::function<bool(int)> m_matar;
    std::unique_ptr<Conexion> m_conexion;
    QHash<QString, std::vector<Columna>> m_propias; // its #tables
    OrdenFecha m_fechas = OrdenFecha::MesDiaAno;    // until the session says otherwise
    bool m_todoONada = false;                       // any error rolls its transaction back
    int m_nivel = 0;                                // transactions begun
};

} // namespace nv::doble
