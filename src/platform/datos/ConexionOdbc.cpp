#include "platform/datos/ConexionOdbc.h"

#include "nvArticulo/Error.h"
#include "nvArticulo/Motores.h"
#include "platform/datos/Catalogo.h"
#include "platform/datos/ConexionOdbcErrores.h"
#include "platform/datos/ConexionOdbcTextos.h"
#include "platform/datos/ConexionOdbcValores.h"

#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUuid>

#include <algorithm>
#include <map>
#include <utility>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

const auto ControladorQt = "QODBC"_L1;

class CursorOdbc final : public Cursor
{
public:
    /// Reads to the first row, so that what fails fails here.
    explicit CursorOdbc(QSqlQuery &&consulta)
        : m_consulta(std::move(consulta))
    {
        const QSqlRecord campos = m_consulta.record();
        for (int i = 0; i < campos.count(); ++i) {
            m_nombres.push_back(campos.fieldName(i));
            m_clases.push_back(claseOdbc(campos.field(i)));
        }
        adelantar();
    }

    int columnas() const override { return static_cast<int>(m_nombres.size()); }
    QString nombre(int columna) const override { return m_nombres.at(columna); }

    QVariant valor(int columna) const override
    {
        leerTextos(columna);
        const ClaseOdbc clase = m_clases.at(static_cast<std::size_t>(columna));
        return valorOdbc(esTexto(clase) ? m_textos.at(columna) : m_consulta.value(columna), clase);
    }

private:
    /// What the driver does not read whole has to be read before it goes on to the columns behind.
    void leerTextos(int hasta) const
    {
        for (; m_leidas <= hasta && m_leidas < columnas(); ++m_leidas) {
            if (!esTexto(m_clases[static_cast<std::size_t>(m_leidas)]))
                continue;
            if (!m_consulta.driver()->isOpen())
                throw errores::conexionCerrada();
            m_textos[m_leidas] = textoEntero(m_consulta, m_leidas);
        }
    }

    bool paso() override
    {
        m_leidas = 0;
        if (!m_consulta.driver()->isOpen())
            throw errores::conexionCerrada();
        if (m_consulta.next())
            return true;
        const bool fallida = m_consulta.lastError().isValid();
        const Error error = fallida ? errorOdbc(m_consulta) : Error();
        // The connection is free for others with the last row, not when the reader gets round to closing.
        m_consulta.finish();
        if (fallida)
            throw error;
        return false;
    }

    QSqlQuery m_consulta;
    QStringList m_nombres;
    std::vector<ClaseOdbc> m_clases;
    mutable std::map<int, QVariant> m_textos; // of the current row, by column
    mutable int m_leidas = 0;                 // columns of the current row whose texts have been read
};

QSqlDatabase nuevaBase(const QString &nombre)
{
    if (!QSqlDatabase::isDriverAvailable(ControladorQt))
        throw Error{0, u"Falta el controlador de ODBC de Qt."_s, {}};
    return QSqlDatabase::addDatabase(ControladorQt, nombre);
}

/// Qt puts "DSN=" before a text that names neither a driver nor a server, and counts the zero behind the text as part
/// of it: a driver may take it for the end of the last value, as of a password.
QString paraQt(const QString &texto)
{
    const bool conOrigen = texto.startsWith(u"DSN="_s, Qt::CaseInsensitive) &&
                           !texto.contains(u"DRIVER="_s, Qt::CaseInsensitive) &&
                           !texto.contains(u"SERVER="_s, Qt::CaseInsensitive);
    const QString limpio = conOrigen ? texto.sliced(4) : texto;
    return limpio.endsWith(u';') ? limpio : limpio + u';';
}

} // namespace

ConexionOdbc::ConexionOdbc(const QSqlDatabase &base, const QString &nombrePropio)
    : m_base(base)
    , m_nombrePropio(nombrePropio)
{}

ConexionOdbc::ConexionOdbc(const QString &texto)
    : ConexionOdbc(QSqlDatabase(), QUuid::createUuid().toString())
{
    if (texto.trimmed().isEmpty())
        throw Error{0, u"Falta el texto de la conexión con la base de datos."_s, {}};
    m_base = nuevaBase(m_nombrePropio);
    m_base.setConnectOptions(u"SQL_ATTR_LOGIN_TIMEOUT=10"_s);
    m_base.setDatabaseName(paraQt(texto.trimmed()));
    if (!m_base.open()) {
        const Error error = errorOdbc(m_base.lastError());
        throw Error{error.numero, u"No se puede conectar con la base de datos: "_s + error.descripcion, {}};
    }
    ajustarSesion();
}

ConexionOdbc::ConexionOdbc(const QSqlDatabase &ajena)
    : ConexionOdbc(ajena, QString())
{
    if (!m_base.driverName().startsWith(ControladorQt))
        throw Error{0, u"La base de datos no está abierta a través de ODBC."_s, {}};
    if (!m_base.isOpen())
        throw errores::conexionCerrada();
    ajustarSesion();
}

ConexionOdbc::~ConexionOdbc()
{
    soltarResultados();
    m_base = QSqlDatabase();
    if (!m_nombrePropio.isEmpty())
        QSqlDatabase::removeDatabase(m_nombrePropio);
}

/// Statements carry dates as dd/mm/yyyy whatever the language of the login.
void ConexionOdbc::ajustarSesion()
{
    const Sentencia orden(u"SET DATEFORMAT dmy");
    const QSqlDriver::DbmsType tipo = m_base.driver()->dbmsType();
    if (tipo == QSqlDriver::MSSqlServer || tipo == QSqlDriver::Sybase) {
        ejecutada(orden);
    } else if (tipo == QSqlDriver::UnknownDbms) {
        // A server that goes by another name may speak the dialect too; one that does not refuses, and no harm is done.
        try {
            ejecutada(orden);
        } catch (const Error &) {}
    }
}

QSqlQuery ConexionOdbc::ejecutada(const Sentencia &sentencia)
{
    if (!m_base.isOpen())
        throw errores::conexionCerrada();
    QSqlQuery consulta(m_base);
    consulta.setForwardOnly(true);
    consulta.setNumericalPrecisionPolicy(QSql::HighPrecision); // amounts as text, not through a double
    if (!consulta.exec((sentencia.ordenPrescindible() ? sentencia.sinOrden() : sentencia).texto()))
        throw errorOdbc(consulta);
    return consulta;
}

std::unique_ptr<FuenteRegistros> ConexionOdbc::abrirCursor(const Sentencia &sentencia)
{
    return std::make_unique<CursorOdbc>(ejecutada(sentencia));
}

qint64 ConexionOdbc::ejecutarSolo(const Sentencia &sentencia)
{
    QSqlQuery consulta = ejecutada(sentencia);
    const qint64 filas = consulta.isSelect() ? 0 : consulta.numRowsAffected();
    // A trigger's error comes behind the count of the statement that fired it.
    while (consulta.nextResult()) {}
    if (consulta.lastError().isValid())
        throw errorOdbc(consulta);
    return std::max<qint64>(filas, 0);
}

// As text, not through the driver's own switch: after a rollback that fails (the server had done it by itself) that
// switch would leave every later statement in a transaction that nobody ends.
void ConexionOdbc::comenzarSolo()
{
    ejecutada(Sentencia(u"BEGIN TRANSACTION"));
}

void ConexionOdbc::confirmarSolo()
{
    ejecutada(Sentencia(u"COMMIT TRANSACTION"));
}

void ConexionOdbc::deshacerSolo()
{
    try {
        ejecutada(Sentencia(u"ROLLBACK TRANSACTION"));
    } catch (const Error &error) {
        if (!sinTransaccion(error))
            throw;
    }
}

std::unique_ptr<Conexion> abrirOdbc(const QString &textoConexion)
{
    return std::make_unique<ConexionOdbc>(textoConexion);
}

std::unique_ptr<Conexion> sobreOdbc(const QSqlDatabase &base)
{
    return std::make_unique<ConexionOdbc>(base);
}

void crearEsquema(Conexion &conexion)
{
    Transaccion transaccion(conexion);
    const QStringList sentencias = sentenciasDe(Catalogo::unico().esquema());
    for (const QString &sentencia : sentencias)
        conexion.Ejecutar(Sentencia::deConsola(sentencia));
    transaccion.confirmar();
}

} // namespace nv::datos
