#include "support/doble/Sesion.h"

#include "common/Error.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace nv::doble {

namespace {

constexpr int ClaveRepetida = 2627;
constexpr int ValorObligatorio = 515;

QString tras(const QString &texto, QStringView cabecera)
{
    return texto.sliced(texto.indexOf(cabecera) + cabecera.size()).trimmed();
}

/// The embedded engine's error in the server's number and words.
Fallo traducido(const Error &error, bool esDrop)
{
    constexpr int Restriccion = 19;
    constexpr int Ocupada = 5;
    constexpr int SinValor = 1299;
    const QString &texto = error.descripcion;
    if ((error.numero & 0xFF) == Restriccion && error.numero > 0xFF)
        return error.numero == SinValor ? Fallo{ValorObligatorio, u"Cannot insert the value NULL: "_s + texto}
                                        : Fallo{ClaveRepetida, u"Violation of a unique key: "_s + texto};
    if (error.numero == Ocupada || error.numero > 0xFF)
        return {1222, u"Lock request time out period exceeded: "_s + texto};
    if (texto.startsWith(u"no such table"_s)) {
        const QString tabla = tras(texto, u":");
        return esDrop ? Fallo{3701, u"Cannot drop the table '%1', because it does not exist."_s.arg(tabla)}
                      : Fallo{208, u"Invalid object name '%1'."_s.arg(tabla)};
    }
    if (texto.startsWith(u"no such column"_s))
        return {207, u"Invalid column name '%1'."_s.arg(tras(texto, u":"))};
    if (texto.contains(u"already exists"_s))
        return {2714, u"There is already an object of that name: "_s + texto};
    return {102, u"Incorrect syntax: "_s + texto};
}

bool cambiaFilas(const Piezas &piezas)
{
    return piezas[0].es(u"INSERT") || piezas[0].es(u"UPDATE") || piezas[0].es(u"DELETE");
}

} // namespace

Sesion::Sesion(BaseSuite &base, int numero, std::function<bool(int)> matar)
    : m_base(base)
    , m_numero(numero)
    , m_matar(std::move(matar))
    , m_conexion(base.conectar())
{}

QByteArray Sesion::responder(const QString &texto)
{
    Respuesta respuesta;
    try {
        orden(texto, respuesta);
    } catch (const Fallo &fallo) {
        if (m_todoONada)
            deshacer();
        respuesta = {};
        respuesta.error(fallo.numero, fallo.texto);
        if (fallo.numero == ClaveRepetida || fallo.numero == ValorObligatorio || fallo.numero == FechaImposible)
            respuesta.aviso(3621, u"The statement has been terminated."_s);
        respuesta.finConError();
    }
    return respuesta.octetos();
}

void Sesion::orden(const QString &texto, Respuesta &respuesta)
{
    const Piezas piezas = piezasDe(texto);
    if (piezas.empty())
        return respuesta.fin();
    if (ordenDeSesion(piezas, respuesta))
        return;
    exigirDelServidor(piezas);
    const QString conDias = conFechas(texto, m_fechas);
    try {
        const Consulta consulta(piezas);
        if (piezas[0].es(u"SELECT") && consulta.destino.isEmpty())
            consultar(conDias, consulta, respuesta);
        else
            escribir(conDias, piezas, respuesta);
    } catch (const Error &error) {
        throw traducido(error, piezas[0].es(u"DROP"));
    }
}

/// What the embedded engine has no part in.
bool Sesion::ordenDeSesion(const Piezas &piezas, Respuesta &respuesta)
{
    const QString segunda = piezas.size() > 1 ? nombreDe(piezas[1]) : QString();
    if (piezas[0].es(u"SET")) {
        if (segunda == u"dateformat" && piezas.size() > 2)
            m_fechas = piezas[2].es(u"dmy") ? OrdenFecha::DiaMesAno : OrdenFecha::MesDiaAno;
        else if (segunda == u"xact_abort" && piezas.size() > 2)
            m_todoONada = piezas[2].es(u"ON");
        respuesta.fin();
    } else if (piezas[0].es(u"KILL")) {
        if (!m_matar(segunda.toInt()))
            throw Fallo{6106, u"Process ID %1 is not an active process ID."_s.arg(segunda)};
        respuesta.fin();
    } else if (segunda == u"@@spid") {
        const std::vector<Columna> columnas{{QString(), TipoSql::entero(2)}};
        respuesta.columnas(columnas);
        respuesta.fila(columnas, {QVariant(static_cast<qlonglong>(m_numero))});
        respuesta.finConFilas(1);
    } else if (piezas[0].es(u"BEGIN")) {
        ++m_nivel;
        respuesta.fin();
    } else if (piezas[0].es(u"COMMIT") || piezas[0].es(u"ROLLBACK")) {
        const bool confirma = piezas[0].es(u"COMMIT");
        if (m_nivel == 0)
            throw Fallo{confirma ? 3902 : 3903,
                        u"The %1 TRANSACTION request has no corresponding BEGIN TRANSACTION."_s.arg(
                            piezas[0].lexema.texto.toString().toUpper())};
        confirma ? confirmar() : deshacer();
        respuesta.fin();
    } else {
        return false;
    }
    return true;
}

void Sesion::confirmar()
{
    if (--m_nivel > 0 || !m_conexion->enTransaccion())
        return;
    try {
        m_conexion->Confirmar();
    } catch (const Error &error) {
        throw traducido(error, false);
    }
}

void Sesion::deshacer()
{
    m_nivel = 0;
    if (m_conexion->enTransaccion())
        m_conexion->Deshacer();
}

void Sesion::consultar(const QString &texto, const Consulta &consulta, Respuesta &respuesta)
{
    Registros registros = m_conexion->Abrir(Sentencia::deConsola(texto));
    const auto ancho = static_cast<std::size_t>(registros.columnas());
    std::vector<Columna> porNombre(ancho);
    for (std::size_t i = 0; i < ancho; ++i)
        porNombre[i].nombre = registros.nombre(static_cast<int>(i));
    std::vector<Fila> filas;
    while (registros.siguiente()) {
        Fila &fila = filas.emplace_back(ancho);
        for (std::size_t i = 0; i < ancho; ++i)
            fila[i] = registros.valor(static_cast<int>(i));
    }
    std::vector<Columna> columnas =
        columnasDe(consulta, filas, [this](const QString &tabla) { return declaradas(tabla); });
    if (columnas.size() != ancho) {
        columnas = porNombre;
        for (std::size_t i = 0; i < ancho; ++i)
            columnas[i].tipo = tipoPorValores(filas, i);
    }
    respuesta.columnas(columnas);
    for (const Fila &fila : filas)
        respuesta.fila(columnas, fila);
    respuesta.finConFilas(static_cast<qint64>(filas.size()));
}

void Sesion::escribir(const QString &texto, const Piezas &piezas, Respuesta &respuesta)
{
    const Consulta consulta(piezas);
    const qint64 filas = ejecutar(texto, piezas, consulta);
    anotar(piezas, consulta);
    if (cambiaFilas(piezas) || !consulta.destino.isEmpty())
        respuesta.finConFilas(filas);
    else
        respuesta.fin();
}

/// The engine's transaction begins with the first statement that changes something, so that, as on a server, reading
/// takes no lock, nor does an update that finds no row.
qint64 Sesion::ejecutar(const QString &texto, const Piezas &piezas, const Consulta &consulta)
{
    const bool empieza = m_nivel > 0 && !m_conexion->enTransaccion();
    if (empieza)
        m_conexion->Comenzar();
    try {
        const qint64 filas = m_conexion->Ejecutar(Sentencia::deConsola(texto));
        if (piezas[0].es(u"CREATE") && consulta.destino.isEmpty() && piezas.size() > 2)
            m_base.completar(*m_conexion, nombreDe(piezas[2]));
        if (empieza && filas == 0 && cambiaFilas(piezas))
            m_conexion->Deshacer();
        return filas;
    } catch (const Error &) {
        if (empieza)
            m_conexion->Deshacer();
        throw;
    }
}

void Sesion::anotar(const Piezas &piezas, const Consulta &consulta)
{
    QString tabla;
    std::vector<Columna> columnas;
    if (!consulta.destino.isEmpty()) {
        tabla = consulta.destino;
        Registros copia = m_conexion->Abrir(Sentencia::deConsola(u"SELECT * FROM "_s + tabla));
        std::vector<Fila> filas;
        while (copia.siguiente()) {
            Fila &fila = filas.emplace_back();
            for (int i = 0; i < copia.columnas(); ++i)
                fila.push_back(copia.valor(i));
        }
        columnas = columnasDe(consulta, filas, [this](const QString &otra) { return declaradas(otra); });
    } else if (piezas.size() > 2 && piezas[0].es(u"CREATE") && piezas[1].es(u"TABLE")) {
        std::tie(tabla, columnas) = tablaDeclarada(piezas);
    }
    if (tabla.startsWith(u'#'))
        m_propias.insert(tabla, columnas);
    else if (!tabla.isEmpty())
        m_base.tablas().anotar(tabla, columnas);
}

std::vector<Columna> Sesion::declaradas(const QString &tabla) const
{
    return tabla.startsWith(u'#') ? m_propias.value(tabla) : m_base.tablas().de(tabla);
}

} // namespace nv::doble
