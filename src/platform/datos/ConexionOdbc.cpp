#include "platform/datos/ConexionOdbc.h"

#include "platform/datos/Catalogo.h"

#include <QElapsedTimer>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <sql.h>
#include <sqlext.h>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

void *segundos(int cuantos)
{
    return reinterpret_cast<void *>(static_cast<qintptr>(std::max(cuantos, 0)));
}

/// For the driver, which reads no further than it is told to.
SQLWCHAR *comoAncho(const QString &texto)
{
    return const_cast<SQLWCHAR *>(reinterpret_cast<const SQLWCHAR *>(texto.utf16()));
}

/// The #tables that a statement names, outside its literals.
QStringList temporales(const QString &texto)
{
    static const QRegularExpression forma(u"'[^']*'|(#+\\w+)"_s, QRegularExpression::UseUnicodePropertiesOption);
    QStringList nombres;
    for (const QRegularExpressionMatch &vista : forma.globalMatch(texto))
        if (vista.hasCaptured(1))
            nombres << vista.captured(1).toLower();
    return nombres;
}

/// Whether a rollback failed because there was nothing left to roll back: some errors make the server do it by itself.
bool sinTransaccion(const Error &error)
{
    constexpr qint32 RollbackSinBegin = 3903;
    return error.numero == RollbackSinBegin ||
           error.descripcion.contains(u"no transaction is active"_s, Qt::CaseInsensitive);
}

} // namespace

ConexionOdbc::ConexionOdbc(const QString &texto, const EsperasOdbc &esperas)
    : m_texto(texto.trimmed())
    , m_esperas(esperas)
    , m_entorno(nullptr, [](void *entorno) { SQLFreeHandle(SQL_HANDLE_ENV, entorno); })
    , m_enlace(nullptr, [](void *enlace) {
        SQLDisconnect(enlace);
        SQLFreeHandle(SQL_HANDLE_DBC, enlace);
    })
{
    if (m_texto.isEmpty())
        throw Error{0, u"Falta el texto de la conexión con la base de datos."_s, {}};
    if (!m_texto.section(u';', 0, 0).contains(u'='))
        m_texto.prepend(u"DSN="_s);
    SQLHANDLE entorno = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &entorno)))
        throw Error{0, u"Falta el gestor de controladores de ODBC."_s, {}};
    m_entorno.reset(entorno);
    SQLSetEnvAttr(entorno, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    conectar();
}

ConexionOdbc::ConexionOdbc(void *enlace, const EsperasOdbc &esperas)
    : m_esperas(esperas)
    , m_entorno(nullptr, [](void *) {})
    , m_enlace(enlace, [](void *) {})
{
    std::array<SQLWCHAR, 8> version{};
    if (!enlace || !SQL_SUCCEEDED(SQLGetInfoW(enlace, SQL_DRIVER_ODBC_VER, version.data(), sizeof version, nullptr)))
        throw errores::conexionCerrada();
    ajustarSesion();
}

ConexionOdbc::~ConexionOdbc()
{
    soltarResultados();
}

void ConexionOdbc::conectar()
{
    m_enlace.reset();
    SQLHANDLE enlace = nullptr;
    SQLAllocHandle(SQL_HANDLE_DBC, m_entorno.get(), &enlace);
    m_enlace.reset(enlace);
    SQLSetConnectAttrW(enlace, SQL_ATTR_LOGIN_TIMEOUT, segundos(m_esperas.conectar), 0);
    if (!SQL_SUCCEEDED(SQLDriverConnectW(enlace, nullptr, comoAncho(m_texto), static_cast<SQLSMALLINT>(m_texto.size()),
                                         nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT))) {
        const DichoOdbc dicho = dichoOdbc(SQL_HANDLE_DBC, enlace);
        throw Error{dicho.numero, u"No se puede conectar con la base de datos: "_s + dicho.texto, {}};
    }
    ajustarSesion();
}

/// Statements carry dates as dd/mm/yyyy whatever the language of the login.
void ConexionOdbc::ajustarSesion()
{
    ++m_sesion;
    m_caida = false;
    std::array<SQLWCHAR, 64> nombre{};
    SQLGetInfoW(m_enlace.get(), SQL_DBMS_NAME, nombre.data(), sizeof nombre, nullptr);
    const QString servidor = QString::fromUtf16(reinterpret_cast<const char16_t *>(nombre.data()));
    try {
        enviada(u"SET DATEFORMAT dmy"_s);
    } catch (const Error &) {
        // A server of another name may speak the dialect too; one that does not refuses, and no harm is done.
        if (m_caida || servidor.contains(u"SQL Server"_s) || servidor.contains(u"Sybase"_s))
            throw;
    }
}

/// Who comes here finds the link gone. Only what can do without all that went with it may have another.
void ConexionOdbc::reabrir()
{
    if (enTransaccion() && !m_incierta.isEmpty())
        throw Error{errores::ConexionCerrada, m_incierta, {}};
    if (enTransaccion())
        throw Error{errores::ConexionCerrada,
                    u"Se ha perdido la conexión con la base de datos, y con ella la transacción que estaba abierta: "
                    u"nada de ella se ha guardado."_s,
                    {}};
    QElapsedTimer reloj;
    reloj.start();
    const auto contar = [&](const QString &error) {
        anunciar({u"-- Se abre de nuevo la conexión con la base de datos."_s, reloj.nsecsElapsed(), -1, error});
    };
    try {
        if (m_texto.isEmpty())
            ajustarSesion(); // its host may have connected it again
        else
            conectar();
    } catch (const Error &error) {
        m_caida = true;
        contar(error.descripcion);
        throw m_texto.isEmpty() ? error : perdida(error.descripcion);
    }
    contar({});
}

bool ConexionOdbc::muerta() const
{
    SQLUINTEGER muerta = SQL_CD_FALSE;
    return SQL_SUCCEEDED(SQLGetConnectAttrW(m_enlace.get(), SQL_ATTR_CONNECTION_DEAD, &muerta, 0, nullptr)) &&
           muerta == SQL_CD_TRUE;
}

Error ConexionOdbc::perdida(const QString &porque) const
{
    const QString quien = m_texto.isEmpty() ? u" Solo puede abrirla de nuevo el programa que la abrió."_s : QString();
    return {
        errores::ConexionCerrada, u"Se ha perdido la conexión con la base de datos.%1 (%2)"_s.arg(quien, porque), {}};
}

Error ConexionOdbc::fallo(void *consulta)
{
    const DichoOdbc dicho = consulta ? dichoOdbc(SQL_HANDLE_STMT, consulta) : dichoOdbc(SQL_HANDLE_DBC, m_enlace.get());
    m_vencida = dicho.vencido;
    m_caida = m_caida || dicho.perdida || muerta();
    if (m_vencida)
        return {dicho.numero,
                u"La consulta ha tardado más de %1 segundos y se ha cancelado."_s.arg(m_esperas.consulta),
                {}};
    return m_caida ? perdida(dicho.texto) : Error{dicho.numero, dicho.texto, {}};
}

ConsultaOdbc ConexionOdbc::enviada(const QString &texto)
{
    SQLHANDLE manejador = nullptr;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, m_enlace.get(), &manejador)))
        throw fallo(nullptr);
    ConsultaOdbc consulta(manejador);
    SQLSetStmtAttrW(manejador, SQL_ATTR_QUERY_TIMEOUT, segundos(m_esperas.consulta), 0);
    const SQLRETURN codigo = SQLExecDirectW(manejador, comoAncho(texto), static_cast<SQLINTEGER>(texto.size()));
    if (!SQL_SUCCEEDED(codigo) && codigo != SQL_NO_DATA) // none is for a statement that changed no row
        throw fallo(manejador);
    return consulta;
}

ConsultaOdbc ConexionOdbc::ejecutada(const Sentencia &sentencia)
{
    if (m_caida)
        reabrir();
    const QString texto = (sentencia.ordenPrescindible() ? sentencia.sinOrden() : sentencia).texto();
    const QStringList tablas = texto.contains(u'#') ? temporales(texto) : QStringList();
    try {
        ConsultaOdbc consulta = enviada(texto);
        for (const QString &tabla : tablas)
            m_temporales[tabla] = m_sesion;
        return consulta;
    } catch (const Error &error) {
        const bool seFue = std::any_of(tablas.begin(), tablas.end(), [&](const QString &tabla) {
            return m_temporales.value(tabla, m_sesion) < m_sesion;
        });
        throw seFue && !m_caida ? perdida(error.descripcion) : error;
    }
}

void ConexionOdbc::agotar(void *consulta)
{
    SQLRETURN codigo = SQL_SUCCESS;
    // A trigger's error comes behind the count of the statement that fired it.
    while (SQL_SUCCEEDED(codigo))
        codigo = SQLMoreResults(consulta);
    if (codigo != SQL_NO_DATA)
        throw fallo(consulta);
}

std::unique_ptr<FuenteRegistros> ConexionOdbc::abrirCursor(const Sentencia &sentencia)
{
    return std::make_unique<CursorOdbc>(*this, ejecutada(sentencia));
}

qint64 ConexionOdbc::ejecutarSolo(const Sentencia &sentencia)
{
    const ConsultaOdbc consulta = ejecutada(sentencia);
    SQLSMALLINT columnas = 0;
    SQLLEN filas = 0;
    SQLNumResultCols(consulta.get(), &columnas);
    if (columnas == 0)
        SQLRowCount(consulta.get(), &filas);
    agotar(consulta.get());
    return std::max<qint64>(filas, 0);
}

// As text, not through the driver's own switch: after a rollback that fails (the server had done it by itself) that
// switch would leave every later statement in a transaction that nobody ends.
void ConexionOdbc::comenzarSolo()
{
    ejecutada(Sentencia(u"BEGIN TRANSACTION"));
    m_incierta.clear();
}

void ConexionOdbc::confirmarSolo()
{
    const bool enviable = !m_caida;
    m_vencida = false;
    try {
        ejecutada(Sentencia(u"COMMIT TRANSACTION"));
    } catch (const Error &error) {
        if (!enviable || !(m_caida || m_vencida))
            throw;
        m_incierta = u"No se sabe si se guardó: compruébelo antes de repetirlo. "_s + error.descripcion;
        throw Error{errores::ConexionCerrada, m_incierta, {}};
    }
}

void ConexionOdbc::deshacerSolo()
{
    // A server undoes by itself what a link leaves behind that is gone.
    if (m_caida)
        return;
    try {
        ejecutada(Sentencia(u"ROLLBACK TRANSACTION"));
    } catch (const Error &error) {
        if (!m_caida && !sinTransaccion(error))
            throw;
    }
}

std::unique_ptr<Conexion> abrirOdbc(const QString &textoConexion, const EsperasOdbc &esperas)
{
    return std::make_unique<ConexionOdbc>(textoConexion, esperas);
}

std::unique_ptr<Conexion> sobreOdbc(void *enlace, const EsperasOdbc &esperas)
{
    return std::make_unique<ConexionOdbc>(enlace, esperas);
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
