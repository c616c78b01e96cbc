#include "support/BaseDatos.h"

#include "platform/datos/Catalogo.h"

#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace nv::pruebas {

/// Runs `orden` followed by the name of each table of the suite.
static void enCadaTabla(Conexion &conexion, const QString &orden)
{
    static const QRegularExpression tabla(u"CREATE TABLE (\\w+)"_s);
    Transaccion transaccion(conexion);
    for (const QRegularExpressionMatch &vista : tabla.globalMatch(datos::Catalogo::unico().esquema()))
        conexion.Ejecutar(Sentencia::deConsola(orden + vista.captured(1)));
    transaccion.confirmar();
}

/// Connection text of a SQLite file by ODBC; empty without such a driver.
static QString textoSqlite(const QString &archivo)
{
    static const QString controlador = [] {
        for (const QString &nombre : {u"SQLite3"_s, u"libsqlite3odbc.so"_s})
            if (!falla([&] { datos::abrirOdbc(u"DRIVER=%1;Database=:memory:"_s.arg(nombre)); }))
                return nombre;
        return QString();
    }();
    return controlador.isEmpty() ? QString() : u"DRIVER=%1;Database=%2"_s.arg(controlador, archivo);
}

/// CONVERT(VARCHAR, money) of the engine that stands in for the vendor's: " 10.00", "  ,00" or "10,5000", where that
/// one gives two decimals and no blank.
static QString comoElFabricante(QString celda)
{
    static const QRegularExpression importe(u"^( +-?\\d*[.,]\\d\\d *|-?\\d+,\\d{4})$"_s);
    if (!importe.match(celda).hasMatch())
        return celda;
    const QChar signo = celda.contains(u',') ? u',' : u'.';
    return Moneda::deTexto(celda.replace(u',', u'.')).texto(2).replace(u',', signo);
}

QStringList filasDe(Registros &registros)
{
    QStringList filas;
    while (registros.siguiente()) {
        QStringList celdas;
        for (int i = 0; i < registros.columnas(); ++i)
            celdas.push_back(registros.textoO(i, u"NULL"_s));
        filas.push_back(celdas.join(u'|'));
    }
    return filas;
}

QStringList filasDe(Conexion &conexion, const QString &sentencia)
{
    Registros registros = conexion.Abrir(Sentencia::deConsola(sentencia));
    return filasDe(registros);
}

std::unique_ptr<Conexion> catalogoVacio()
{
    static const QString servidor = qEnvironmentVariable("NVARTICULO_FORMAS");
    static bool hecho = false;
    if (servidor.isEmpty())
        return datos::abrirEmbebida(u":memory:"_s);
    std::unique_ptr<Conexion> conexion = datos::abrirOdbc(servidor);
    if (std::exchange(hecho, true) || !falla([&] { filasDe(*conexion, u"SELECT Codigo FROM Empresas"_s); }))
        enCadaTabla(*conexion, u"DELETE FROM "_s);
    else
        datos::crearEsquema(*conexion);
    return conexion;
}

QList<QStringList> tabla(const QString &filas)
{
    QList<QStringList> lista;
    for (const QString &fila : filas.split(u';'))
        lista.push_back(fila.split(u'→'));
    return lista;
}

Error errorDe(const std::function<void()> &operacion)
{
    try {
        operacion();
    } catch (const Error &error) {
        return error.descripcion.isEmpty() ? Error{-2, {}} : error;
    }
    return {-1, {}};
}

Lugar::Lugar(Via via)
    : m_via(via)
    , m_texto(via == Via::Servidor ? qEnvironmentVariable("NVARTICULO_SQLSERVER") : m_carpeta.filePath(u"base.db"_s))
{
    if (via == Via::Odbc || via == Via::Anfitrion)
        m_texto = textoSqlite(m_texto);
    if (via == Via::Anfitrion && !QSqlDatabase::isDriverAvailable(u"QODBC"_s))
        m_texto.clear();
}

Lugar::~Lugar()
{
    for (const QString &nombre : std::as_const(m_delAnfitrion))
        QSqlDatabase::removeDatabase(nombre);
    if (m_conEsquema && m_via == Via::Servidor)
        enCadaTabla(*conectar(), u"DROP TABLE "_s);
}

std::unique_ptr<Conexion> Lugar::conectar()
{
    if (m_via != Via::Anfitrion)
        return conectarA(m_texto);
    m_delAnfitrion << QUuid::createUuid().toString();
    QSqlDatabase base = QSqlDatabase::addDatabase(u"QODBC"_s, m_delAnfitrion.back());
    base.setDatabaseName(m_texto);
    base.open();
    return datos::sobreOdbc(base.driver()->handle().value<void *>());
}

void Lugar::hacerEsquema(Conexion &conexion)
{
    if (m_conEsquema)
        enCadaTabla(conexion, u"DELETE FROM "_s);
    else if (m_via == Via::Servidor)
        datos::crearEsquema(conexion);
    m_conEsquema = true;
}

bool Lugar::cortar(Conexion &conexion)
{
    if (m_via == Via::Anfitrion) {
        QSqlDatabase::database(m_delAnfitrion.back(), false).close();
        return true;
    }
    if (m_via != Via::Servidor)
        return false;
    const QString sesion = filasDe(conexion, u"SELECT @@SPID"_s).value(0);
    return !falla([&] { conectar()->Ejecutar(Sentencia::deConsola(u"KILL "_s + sesion)); });
}

QStringList PruebaVias::filas(const Sentencia &sentencia)
{
    Registros registros = conexion().Abrir(sentencia);
    QStringList filas = filasDe(registros);
    for (qsizetype i = 0; i < filas.size() && m_via == Via::Servidor; ++i) {
        QStringList celdas = filas[i].split(u'|');
        std::transform(celdas.begin(), celdas.end(), celdas.begin(), &comoElFabricante);
        filas[i] = celdas.join(u'|');
    }
    return filas;
}

void PruebaVias::initTestCase_data()
{
    QTest::addColumn<Via>("via");
    const std::pair<const char *, Via> vias[] = {
        {"embedded", Via::Embebida}, {"ODBC", Via::Odbc}, {"host's ODBC", Via::Anfitrion}, {"server", Via::Servidor}};
    for (const auto &[nombre, via] : vias) {
        if (conEsquema() && (via == Via::Odbc || via == Via::Anfitrion))
            continue;
        const QString falta = Lugar(via).falta();
        if (falta.isEmpty())
            QTest::newRow(nombre) << via;
        else if (!m_faltan.contains(falta))
            m_faltan << falta;
    }
}

void PruebaVias::missing_ways_in()
{
    if (m_via == Via::Embebida && !m_faltan.isEmpty())
        QSKIP(qPrintable(u"nothing is proven there: "_s + m_faltan.join(u", ")));
}

void PruebaVias::init()
{
    QFETCH_GLOBAL(Via, via);
    m_via = via;
    m_lugares.try_emplace(via, via);
    if (!m_conexiones[via])
        reconectar();
    if (conEsquema())
        lugar().hacerEsquema(conexion());
    Transaccion transaccion(conexion());
    llenar();
    transaccion.confirmar();
}

void PruebaVias::cleanup()
{
    if (!conEsquema()) {
        soltar();
        m_lugares.erase(m_via);
    }
}

} // namespace nv::pruebas
