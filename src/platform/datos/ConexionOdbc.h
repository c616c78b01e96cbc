#pragma once

#include "nvArticulo/Error.h"
#include "nvArticulo/Motores.h"
#include "platform/datos/CursorOdbc.h"

#include <QHash>

namespace nv::datos {

/// A database of the server through ODBC. Statements go out as text, executed directly: what a prepared call makes (a
/// #table) dies with it. Drivers allow one live result, which the base class sees to. A link that broke is opened again
/// by the next statement, unless that one needs what went with it.
class ConexionOdbc final : public ConexionAparcadora
{
public:
    /// A connection of its own, closed at the end. Throws Error; see abrirOdbc.
    ConexionOdbc(const QString &texto, const EsperasOdbc &esperas);
    /// Over a handle that its host has connected, and disconnects. Throws Error; see sobreOdbc.
    ConexionOdbc(void *enlace, const EsperasOdbc &esperas);
    ~ConexionOdbc() override;

    /// For the cursors: what has just failed on a statement. Notes it when the link is gone.
    Error fallo(void *consulta);
    /// Reads what else a statement has to say.
    void agotar(void *consulta);

private:
    using Manejador = std::unique_ptr<void, void (*)(void *)>;

    std::unique_ptr<FuenteRegistros> abrirCursor(const Sentencia &sentencia) override;
    qint64 ejecutarSolo(const Sentencia &sentencia) override;
    void comenzarSolo() override;
    void confirmarSolo() override;
    void deshacerSolo() override;

    void conectar();
    void ajustarSesion();
    void reabrir();
    bool muerta() const;
    Error perdida(const QString &porque) const;
    ConsultaOdbc ejecutada(const Sentencia &sentencia);
    ConsultaOdbc enviada(const QString &texto);

    QString m_texto; // empty when the host made the link
    EsperasOdbc m_esperas;
    Manejador m_entorno;
    Manejador m_enlace;
    bool m_caida = false;
    bool m_vencida = false;           // the last failure was that the time was up
    QString m_incierta;               // what was said of a COMMIT without an answer
    int m_sesion = 0;                 // counts them
    QHash<QString, int> m_temporales; // #tables by the session that had them last
};

} // namespace nv::datos
