#include "importacion/Importacion.h"

#include "barcodes/Ean.h"
#include "catalogo/Catalogo.h"
#include "catalogo/Lote.h"
#include "catalogo/Maestros.h"
#include "common/Conexion.h"
#include "common/Error.h"
#include "common/Valores.h"
#include "importacion/Csv.h"

#include <QSet>
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

constexpr qint16 E = EmpresaDemostracion;
constexpr qsizetype LargoDescripcion = 150;
constexpr qsizetype LargoBarras = 30;

class Importador
{
public:
    Importador(Conexion &conexion, const QByteArray &csv, QDate dia)
        : m_conexion(conexion)
        , m_lector(csv)
        , m_dia(dia)
        , m_articulos(conexion, u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Desc_Ticket, TipoImpuesto, "
                                u"TipoImpuesto2, FAlta) VALUES ")
        , m_barras(conexion, u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Unidades, Fecha, "
                             u"Principal) VALUES ")
        , m_tarifas(conexion, u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES ")
    {}

    ResultadoImportacion importar()
    {
        leerCabecera();
        leerExistentes();
        while (const std::optional<QStringList> registro = m_lector.siguiente()) {
            ++m_resultado.leidas;
            tratar(*registro);
        }
        m_articulos.cerrar();
        m_barras.cerrar();
        m_tarifas.cerrar();
        return m_resultado;
    }

private:
    [[noreturn]] void fallar(const QString &motivo) const
    {
        throw Error{0, u"Línea %1: %2"_s.arg(m_lector.linea()).arg(motivo), u"importarCsv"_s};
    }
    void avisar(const QString &motivo) { m_resultado.avisos << u"Línea %1: %2"_s.arg(m_lector.linea()).arg(motivo); }

    void leerCabecera();
    void leerExistentes();
    void tratar(const QStringList &registro);
    QString campo(const QStringList &registro, qsizetype columna) const
    {
        return columna < 0 ? QString() : recortado(registro.value(columna));
    }
    std::optional<qint32> codigo(const QString &texto);
    Moneda precio(const QString &texto) const;
    void escribir(qint32 codigo, const QString &nombre, const QString &barras, const QString &pvp);

    Conexion &m_conexion;
    LectorCsv m_lector;
    QDate m_dia;
    Lote m_articulos, m_barras, m_tarifas;
    qsizetype m_columnas = 0;
    qsizetype m_colBarras = -1, m_colNombre = -1, m_colCodigo = -1, m_colPvp = -1;
    QSet<QString> m_barrasConocidas;
    QSet<qint32> m_codigosConocidos;
    qint32 m_ultimo = 0;
    ResultadoImportacion m_resultado;
};

void Importador::leerCabecera()
{
    const std::optional<QStringList> cabecera = m_lector.siguiente();
    if (!cabecera)
        throw Error{0, u"El archivo está vacío."_s, u"importarCsv"_s};
    m_columnas = cabecera->size();
    const auto lugar = [&cabecera](const QString &nombre) {
        const auto hallada = std::find_if(cabecera->begin(), cabecera->end(), [&nombre](const QString &columna) {
            return columna.trimmed().compare(nombre, Qt::CaseInsensitive) == 0;
        });
        return hallada == cabecera->end() ? qsizetype(-1) : hallada - cabecera->begin();
    };
    m_colBarras = lugar(u"barcode"_s);
    m_colNombre = lugar(u"name"_s);
    m_colCodigo = lugar(u"codigo"_s);
    m_colPvp = lugar(u"pvp"_s);
    if (m_colBarras < 0 || m_colNombre < 0)
        throw Error{0, u"La primera línea ha de nombrar las columnas «barcode» y «name»."_s, u"importarCsv"_s};
}

void Importador::leerExistentes()
{
    Sentencia codigos(u"SELECT Codigo FROM Articulos WHERE Cod_Empresa =");
    codigos << E;
    Registros articulos = m_conexion.Abrir(codigos);
    while (articulos.siguiente()) {
        const qint32 conocido = articulos.entero32(0);
        m_codigosConocidos.insert(conocido);
        m_ultimo = std::max(m_ultimo, conocido);
    }
    Sentencia barras(u"SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =");
    barras << E;
    Registros conocidas = m_conexion.Abrir(barras);
    while (conocidas.siguiente())
        m_barrasConocidas.insert(conocidas.texto(0).trimmed());
}

/// Nothing when the catalogue has it already.
std::optional<qint32> Importador::codigo(const QString &texto)
{
    if (texto.isEmpty()) {
        while (m_codigosConocidos.contains(++m_ultimo)) {}
        return m_ultimo;
    }
    bool numero = false;
    const qint32 valor = texto.toInt(&numero);
    if (!numero || valor <= 0)
        fallar(u"«%1» no es un código de artículo."_s.arg(texto));
    return m_codigosConocidos.contains(valor) ? std::nullopt : std::optional(valor);
}

Moneda Importador::precio(const QString &texto) const
{
    QString conPunto = texto;
    if (conPunto.contains(u',')) {
        conPunto.remove(u'.');
        conPunto.replace(u',', u'.');
    }
    try {
        return Moneda::deTexto(conPunto);
    } catch (const Error &) {
        fallar(u"«%1» no es un precio."_s.arg(texto));
    }
}

void Importador::tratar(const QStringList &registro)
{
    if (registro.size() != m_columnas)
        fallar(u"hay %1 campos y la cabecera tiene %2."_s.arg(registro.size()).arg(m_columnas));
    const QString barras = campo(registro, m_colBarras);
    QString nombre = campo(registro, m_colNombre);
    if (nombre.isEmpty())
        fallar(u"el artículo no tiene nombre."_s);
    if (barras.size() > LargoBarras)
        fallar(u"el código de barras «%1» tiene más de %2 caracteres."_s.arg(barras).arg(LargoBarras));
    if (!barras.isEmpty() && m_barrasConocidas.contains(barras)) {
        ++m_resultado.duplicadas;
        avisar(u"el código de barras %1 ya existe; «%2» no se importa."_s.arg(barras, nombre));
        return;
    }
    const QString textoCodigo = campo(registro, m_colCodigo);
    const std::optional<qint32> suyo = codigo(textoCodigo);
    if (!suyo) {
        ++m_resultado.duplicadas;
        avisar(u"el artículo %1 ya existe; «%2» no se importa."_s.arg(textoCodigo, nombre));
        return;
    }
    if (!barras.isEmpty() && !ean::esValido(barras)) {
        ++m_resultado.digitosErroneos;
        avisar(u"el dígito de control de %1 no es correcto."_s.arg(barras));
    }
    if (nombre.size() > LargoDescripcion) {
        avisar(u"el nombre se corta a %1 caracteres."_s.arg(LargoDescripcion));
        nombre.truncate(LargoDescripcion);
    }
    escribir(*suyo, nombre, barras, campo(registro, m_colPvp));
}

void Importador::escribir(qint32 codigo, const QString &nombre, const QString &barras, const QString &pvp)
{
    m_codigosConocidos.insert(codigo);
    Sentencia articulo;
    articulo << E << u", " << codigo << u", '" << Doblado(nombre) << u"', '" << Doblado(nombre.left(24))
             << u"', 1, 1, '" << m_dia << u"'";
    m_articulos.fila(articulo);
    if (!barras.isEmpty()) {
        m_barrasConocidas.insert(barras);
        Sentencia suya;
        suya << E << u", " << codigo << u", '" << Doblado(barras) << u"', 1, '" << m_dia << u"', 1";
        m_barras.fila(suya);
    }
    if (!pvp.isEmpty()) {
        Sentencia tarifa;
        tarifa << E << u", " << codigo << u", 1, " << precio(pvp);
        m_tarifas.fila(tarifa);
    }
    ++m_resultado.importadas;
}

} // namespace

QString ResultadoImportacion::resumen() const
{
    return u"Leídas %1, importadas %2, repetidas %3, con el dígito de control erróneo %4."_s.arg(leidas)
        .arg(importadas)
        .arg(duplicadas)
        .arg(digitosErroneos);
}

ResultadoImportacion importarCsv(Conexion &conexion, const QByteArray &csv, QDate dia)
{
    Transaccion transaccion(conexion);
    if (!tieneEmpresa(conexion))
        escribirMaestros(conexion, dia, {});
    const ResultadoImportacion resultado = Importador(conexion, csv, dia).importar();
    transaccion.confirmar();
    return resultado;
}

} // namespace nv
