#include "platform/datos/CursorOdbc.h"

#include "nvArticulo/Error.h"
#include "nvArticulo/Moneda.h"
#include "platform/datos/ConexionOdbc.h"

#include <QDateTime>

#include <algorithm>
#include <array>
#include <cstring>
#include <sql.h>
#include <sqlext.h>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t) && sizeof(SQLULEN) == sizeof(std::size_t));

constexpr std::size_t OctetosDeBloque = 64 * 1024;
constexpr std::size_t FilasDeBloque = 256;
constexpr SQLULEN LetrasVinculadas = 8000; // a longer text is read piece by piece

/// Up to the zero that ends it unless told: what drivers say of the length of names differs.
QString deAncho(const SQLWCHAR *texto, qsizetype letras = -1)
{
    return QString::fromUtf16(reinterpret_cast<const char16_t *>(texto), letras);
}

/// "[Driver][Server]Text" → "Text".
QString sinPrefijos(const QString &mensaje)
{
    QStringView texto = QStringView(mensaje).trimmed();
    while (texto.startsWith(u'[') && texto.contains(u']'))
        texto = texto.sliced(texto.indexOf(u']') + 1);
    return texto.trimmed().toString();
}

template <class Valor>
Valor leido(const std::byte *dato)
{
    Valor valor;
    std::memcpy(&valor, dato, sizeof valor);
    return valor;
}

} // namespace

DichoOdbc resumidos(const QList<MensajeOdbc> &mensajes)
{
    DichoOdbc dicho;
    dicho.perdida = mensajes.isEmpty(); // nothing has a word to say where the handle itself is gone
    QStringList textos;
    for (const MensajeOdbc &mensaje : mensajes) {
        const bool grave = !mensaje.estado.startsWith(u"01");
        // Some drivers call a broken link a remark, with nothing else beside it.
        if (mensaje.numero != 0 && (dicho.numero == 0 || (grave && !dicho.grave)))
            dicho.numero = mensaje.numero;
        dicho.grave |= grave;
        dicho.vencido |= mensaje.estado.contains(u"T0");
        dicho.perdida |= mensaje.estado.startsWith(u"08");
        const QString limpio = sinPrefijos(mensaje.texto);
        if (limpio.isEmpty() || textos.contains(limpio))
            continue;
        textos.push_back(limpio);
        if (!dicho.texto.isEmpty())
            dicho.texto += dicho.texto.back().isPunct() ? u" "_s : u". "_s;
        dicho.texto += limpio;
    }
    if (dicho.texto.isEmpty())
        dicho.texto = u"La base de datos no responde."_s;
    return dicho;
}

DichoOdbc dichoOdbc(short clase, void *manejador)
{
    QList<MensajeOdbc> mensajes;
    std::array<SQLWCHAR, 6> estado{};
    std::array<SQLWCHAR, 2048> texto{};
    SQLINTEGER numero = 0;
    constexpr SQLSMALLINT Mensajes = 16;
    for (SQLSMALLINT i = 1;
         i <= Mensajes && SQL_SUCCEEDED(SQLGetDiagRecW(clase, manejador, i, estado.data(), &numero, texto.data(),
                                                       static_cast<SQLSMALLINT>(texto.size()), nullptr));
         ++i)
        mensajes.push_back({deAncho(estado.data()), numero, deAncho(texto.data())});
    return resumidos(mensajes);
}

QVariant importeOdbc(const QString &texto)
{
    constexpr qsizetype CifrasDeReal = 11; // in front of the point
    const qsizetype punto = texto.indexOf(u'.');
    if ((punto < 0 ? texto.size() : punto) - (texto.startsWith(u'-') ? 1 : 0) > CifrasDeReal)
        return texto;
    return static_cast<double>(Moneda::deTexto(texto).diezmilesimas()) / static_cast<double>(Moneda::Escala);
}

void CierreConsulta::operator()(void *consulta) const
{
    SQLFreeHandle(SQL_HANDLE_STMT, consulta);
}

CursorOdbc::CursorOdbc(ConexionOdbc &conexion, ConsultaOdbc consulta)
    : m_conexion(conexion)
    , m_consulta(std::move(consulta))
{
    describir();
    vincular();
    adelantar();
}

/// Closing a result that has more to come makes the driver ask the server to stop, and wait for its answer: little is
/// read faster than that.
CursorOdbc::~CursorOdbc()
{
    try {
        for (std::size_t leidas = 0; !m_agotado && leidas < FilasDeBloque; leidas += m_enBloque)
            traerBloque();
    } catch (const Error &) {} // noted by the connection; nobody reads on here
}

/// How a column of a type is asked for. Amounts as text, not through a double.
CursorOdbc::Columna CursorOdbc::comoSeLee(short tipo, std::size_t letras)
{
    const auto octetos = [&](std::size_t demas) { return (letras + demas) * sizeof(SQLWCHAR); };
    switch (tipo) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return {Clase::Entero, SQL_C_SBIGINT, sizeof(SQLBIGINT)};
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return {Clase::Real, SQL_C_DOUBLE, sizeof(double)};
    case SQL_NUMERIC:
    case SQL_DECIMAL:
        return {Clase::Decimal, SQL_C_WCHAR, octetos(4)}; // a sign, a point, a zero before it and one at the end
    case SQL_DATE: // so called over the handle of a host that asked for the second version of ODBC, as Qt does
    case SQL_TIMESTAMP:
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
        return {Clase::Fecha, SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)};
    case SQL_CHAR:
    case SQL_WCHAR:
    case SQL_VARCHAR:
    case SQL_WVARCHAR:
        if (letras > 0 && letras <= LetrasVinculadas)
            return {tipo == SQL_CHAR || tipo == SQL_WCHAR ? Clase::TextoFijo : Clase::Texto, SQL_C_WCHAR, octetos(1)};
        break;
    default:
        break;
    }
    return {Clase::Largo, SQL_C_WCHAR, 0};
}

void CursorOdbc::describir()
{
    SQLSMALLINT cuantas = 0;
    comprobar(SQLNumResultCols(m_consulta.get(), &cuantas));
    if (cuantas == 0) {
        m_agotado = true;
        m_conexion.agotar(m_consulta.get());
    }
    for (SQLUSMALLINT i = 1; i <= cuantas; ++i) {
        std::array<SQLWCHAR, 256> nombre{};
        SQLSMALLINT tipo = 0;
        SQLULEN largo = 0;
        comprobar(SQLDescribeColW(m_consulta.get(), i, nombre.data(), static_cast<SQLSMALLINT>(nombre.size()), nullptr,
                                  &tipo, &largo, nullptr, nullptr));
        Columna columna = comoSeLee(tipo, largo);
        columna.nombre = deAncho(nombre.data());
        columna.lugar = m_anchoFila;
        m_anchoFila += sizeof(SQLLEN) + (columna.ancho + sizeof(SQLLEN) - 1) / sizeof(SQLLEN) * sizeof(SQLLEN);
        m_columnas.push_back(columna);
    }
}

void CursorOdbc::vincular()
{
    const auto larga = std::find_if(m_columnas.begin(), m_columnas.end(),
                                    [](const Columna &columna) { return columna.clase == Clase::Largo; });
    m_vinculadas = static_cast<std::size_t>(larga - m_columnas.begin());
    if (larga == m_columnas.end() && m_anchoFila > 0)
        m_capacidad = std::clamp<std::size_t>(OctetosDeBloque / m_anchoFila, 1, FilasDeBloque);
    m_filas = std::make_unique_for_overwrite<std::byte[]>(m_capacidad * m_anchoFila);
    const auto poner = [&](SQLINTEGER atributo, std::size_t valor) {
        comprobar(SQLSetStmtAttrW(m_consulta.get(), atributo, reinterpret_cast<SQLPOINTER>(valor), 0));
    };
    poner(SQL_ATTR_ROW_BIND_TYPE, m_anchoFila);
    poner(SQL_ATTR_ROW_ARRAY_SIZE, m_capacidad);
    comprobar(SQLSetStmtAttrW(m_consulta.get(), SQL_ATTR_ROWS_FETCHED_PTR, &m_enBloque, 0));
    for (std::size_t i = 0; i < m_vinculadas; ++i) {
        const Columna &columna = m_columnas[i];
        std::byte *lugar = m_filas.get() + columna.lugar;
        comprobar(SQLBindCol(m_consulta.get(), static_cast<SQLUSMALLINT>(i + 1), columna.tipo, lugar + sizeof(SQLLEN),
                             static_cast<SQLLEN>(columna.ancho), reinterpret_cast<SQLLEN *>(lugar)));
    }
}

bool CursorOdbc::paso()
{
    if (++m_fila < m_enBloque)
        return true;
    if (m_agotado)
        return false;
    traerBloque();
    if (m_enBloque == 0)
        return false;
    if (m_vinculadas < m_columnas.size())
        leerSueltas();
    return true;
}

void CursorOdbc::traerBloque()
{
    m_fila = 0;
    m_enBloque = 0;
    m_agotado = true; // unless all goes well
    // Not SQLFetch, which knows no blocks where the host asked for the second version of ODBC.
    const SQLRETURN codigo = SQLFetchScroll(m_consulta.get(), SQL_FETCH_NEXT, 0);
    comprobar(codigo);
    if (codigo == SQL_NO_DATA)
        m_enBloque = 0;
    m_agotado = m_enBloque < m_capacidad;
    // The connection is free for others with the last row fetched, not when the reader gets round to closing.
    if (m_agotado)
        SQLFreeStmt(m_consulta.get(), SQL_CLOSE);
}

void CursorOdbc::leerSueltas()
{
    for (std::size_t i = m_vinculadas; i < m_columnas.size(); ++i) {
        Columna &columna = m_columnas[i];
        if (columna.clase == Clase::Largo) {
            columna.leida = textoLargo(static_cast<int>(i));
            continue;
        }
        std::byte *lugar = m_filas.get() + columna.lugar;
        comprobar(SQLGetData(m_consulta.get(), static_cast<SQLUSMALLINT>(i + 1), columna.tipo, lugar + sizeof(SQLLEN),
                             static_cast<SQLLEN>(columna.ancho), reinterpret_cast<SQLLEN *>(lugar)));
    }
}

QVariant CursorOdbc::textoLargo(int columna)
{
    QString texto = u""_s;
    std::array<SQLWCHAR, 4096> trozo; // not cleared: it is read up to the zero that the driver puts
    while (true) {
        SQLLEN octetos = 0;
        const SQLRETURN codigo = SQLGetData(m_consulta.get(), static_cast<SQLUSMALLINT>(columna + 1), SQL_C_WCHAR,
                                            trozo.data(), sizeof trozo, &octetos);
        comprobar(codigo);
        if (codigo == SQL_NO_DATA)
            return texto;
        if (octetos == SQL_NULL_DATA)
            return {};
        texto += deAncho(trozo.data());
        if (codigo == SQL_SUCCESS)
            return texto;
    }
}

/// An error that comes behind rows of the same block is reported beside them, by a call that succeeded.
void CursorOdbc::comprobar(short codigo)
{
    if (codigo == SQL_SUCCESS)
        return;
    if (!SQL_SUCCEEDED(codigo) && codigo != SQL_NO_DATA)
        throw m_conexion.fallo(m_consulta.get());
    if (dichoOdbc(SQL_HANDLE_STMT, m_consulta.get()).grave)
        throw m_conexion.fallo(m_consulta.get());
}

QVariant CursorOdbc::valor(int columna) const
{
    const Columna &esta = m_columnas.at(static_cast<std::size_t>(columna));
    if (esta.clase == Clase::Largo)
        return esta.leida;
    const std::byte *lugar = m_filas.get() + m_fila * m_anchoFila + esta.lugar;
    const std::byte *dato = lugar + sizeof(SQLLEN);
    const auto octetos = leido<SQLLEN>(lugar);
    if (octetos == SQL_NULL_DATA)
        return {};
    const auto texto = [&] {
        if (octetos < 0 || static_cast<std::size_t>(octetos) >= esta.ancho)
            throw Error{0, u"Un texto de la columna «%1» es más largo de lo que ella declara."_s.arg(esta.nombre), {}};
        return deAncho(reinterpret_cast<const SQLWCHAR *>(dato), octetos / static_cast<SQLLEN>(sizeof(SQLWCHAR)));
    };
    switch (esta.clase) {
    case Clase::Entero:
        return QVariant(static_cast<qlonglong>(leido<SQLBIGINT>(dato)));
    case Clase::Real:
        return importeOdbc(QString::number(leido<double>(dato), 'f', 4));
    case Clase::Decimal:
        return importeOdbc(texto());
    case Clase::Fecha: {
        const auto cuando = leido<SQL_TIMESTAMP_STRUCT>(dato);
        constexpr SQLUINTEGER NanosPorMili = 1'000'000;
        const auto milis = static_cast<int>(cuando.fraction / NanosPorMili);
        const QTime hora(cuando.hour, cuando.minute, cuando.second, milis);
        return QDateTime({cuando.year, cuando.month, cuando.day}, hora, Qt::UTC); // this machine's zone has no say
    }
    case Clase::TextoFijo: {
        QString relleno = texto();
        while (relleno.endsWith(u' '))
            relleno.chop(1);
        return relleno;
    }
    default:
        return texto();
    }
}

} // namespace nv::datos
