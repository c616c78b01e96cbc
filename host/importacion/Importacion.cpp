#include "importacion/Importacion.h"

#include "barcodes/Ean.h"
#include "catalogo/Catalogo.h"
#include "catalogo/Escritor.h"
#include "catalogo/Maestros.h"
#include "common/Valores.h"
#include "importacion/Csv.h"
#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"

#include <QSet>
#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace mostrador {

namespace {

constexpr qint16 E = EmpresaDemostracion;
constexpr Tabla Articulos{
    u"Articulos", u"Cod_Empresa, Codigo, Descripcion, Desc_Ticket, TipoImpuesto, TipoImpuesto2, FAlta, Mod_Ficha"};
constexpr Tabla CBarras{u"Articulos_CBarras", u"Cod_Empresa, Cod_Articulo, Cod_Barras, Unidades, Fecha, Principal"};
constexpr Tabla Tarifas{u"Articulos_Tarifas", u"Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp"};
constexpr qsizetype LargoDescripcion = 150;
constexpr qsizetype LargoBarras = 30;

class Importador
{
public:
    Importador(Conexion &conexion, QDate dia)
        : m_escritor(conexion)
        , m_dia(dia)
    {
        Sentencia codigos(u"SELECT Codigo FROM Articulos WHERE Cod_Empresa =");
        for (Registros existentes = conexion.Abrir(codigos << E); existentes.siguiente();)
            m_codigos.insert(existentes.entero32(0));
        Sentencia barras(u"SELECT Cod_Barras FROM Articulos_CBarras WHERE Cod_Empresa =");
        for (Registros existentes = conexion.Abrir(barras << E); existentes.siguiente();)
            m_codigosBarras.insert(existentes.texto(0).trimmed());
        if (!m_codigos.isEmpty())
            m_ultimo = *std::max_element(m_codigos.cbegin(), m_codigos.cend());
    }

    ResultadoImportacion importar(const std::vector<RegistroCsv> &registros)
    {
        if (registros.empty())
            throw Error{0, u"El archivo está vacío."_s, u"importarCsv"_s};
        for (const QString &columna : registros.front().campos)
            m_cabecera << columna.trimmed().toLower();
        if (!m_cabecera.contains(u"barcode"_s) || !m_cabecera.contains(u"name"_s))
            throw Error{0, u"La primera línea ha de nombrar las columnas «barcode» y «name»."_s, u"importarCsv"_s};
        for (auto registro = registros.begin() + 1; registro != registros.end(); ++registro) {
            ++m_resultado.leidas;
            m_registro = &*registro;
            const qsizetype campos = registro->campos.size();
            if (campos != m_cabecera.size())
                fallar(u"hay %1 campos y la cabecera tiene %2."_s.arg(campos).arg(m_cabecera.size()));
            tratar();
        }
        m_escritor.cerrar();
        return m_resultado;
    }

private:
    QString campo(const QString &columna) const
    {
        return recortado(m_registro->campos.value(m_cabecera.indexOf(columna)));
    }
    QString enLinea(const QString &motivo) const { return u"Línea %1: %2"_s.arg(m_registro->linea).arg(motivo); }
    [[noreturn]] void fallar(const QString &motivo) const { throw Error{0, enLinea(motivo), u"importarCsv"_s}; }
    void avisar(const QString &motivo) { m_resultado.avisos << enLinea(motivo); }
    void repetido(const QString &motivo)
    {
        ++m_resultado.duplicadas;
        avisar(motivo);
    }

    /// Nothing when the catalogue has it already.
    std::optional<qint32> codigoLibre()
    {
        const QString texto = campo(u"codigo"_s);
        if (texto.isEmpty()) {
            while (m_codigos.contains(++m_ultimo)) {}
            return m_ultimo;
        }
        bool numero = false;
        const qint32 valor = texto.toInt(&numero);
        if (!numero || valor <= 0)
            fallar(u"«%1» no es un código de artículo."_s.arg(texto));
        return m_codigos.contains(valor) ? std::nullopt : std::optional(valor);
    }

    std::optional<Moneda> precio() const
    {
        const QString texto = campo(u"pvp"_s);
        if (texto.isEmpty())
            return std::nullopt;
        QString conPunto = texto;
        if (conPunto.contains(u','))
            conPunto.remove(u'.').replace(u',', u'.');
        try {
            return Moneda::deTexto(conPunto);
        } catch (const Error &) {
            fallar(u"«%1» no es un precio."_s.arg(texto));
        }
    }

    void tratar()
    {
        const QString barras = campo(u"barcode"_s);
        QString nombre = campo(u"name"_s);
        if (nombre.isEmpty())
            fallar(u"el artículo no tiene nombre."_s);
        if (barras.size() > LargoBarras)
            fallar(u"el código de barras «%1» tiene más de %2 caracteres."_s.arg(barras).arg(LargoBarras));
        if (!barras.isEmpty() && m_codigosBarras.contains(barras))
            return repetido(u"el código de barras %1 ya existe; «%2» no se importa."_s.arg(barras, nombre));
        const std::optional<qint32> codigo = codigoLibre();
        if (!codigo)
            return repetido(u"el artículo %1 ya existe; «%2» no se importa."_s.arg(campo(u"codigo"_s), nombre));
        if (!ean::esValido(barras)) {
            ++m_resultado.digitosErroneos;
            avisar(u"el dígito de control de %1 no es correcto."_s.arg(barras));
        }
        if (nombre.size() > LargoDescripcion) {
            avisar(u"el nombre se corta a %1 caracteres."_s.arg(LargoDescripcion));
            nombre.truncate(LargoDescripcion);
        }
        m_codigos.insert(*codigo);
        m_escritor.fila(Articulos, {E, *codigo, nombre, nombre.left(24), 1, 1, m_dia, 1});
        if (!barras.isEmpty()) {
            m_codigosBarras.insert(barras);
            m_escritor.fila(CBarras, {E, *codigo, barras, 1, m_dia, true});
        }
        if (const std::optional<Moneda> pvp = precio())
            m_escritor.fila(Tarifas, {E, *codigo, 1, *pvp});
        ++m_resultado.importadas;
    }

    Escritor m_escritor;
    QDate m_dia;
    QSet<QString> m_codigosBarras;
    QSet<qint32> m_codigos;
    qint32 m_ultimo = 0;
    QStringList m_cabecera;
    const RegistroCsv *m_registro = nullptr; ///< in hand
    ResultadoImportacion m_resultado;
};

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
    const ResultadoImportacion resultado = Importador(conexion, dia).importar(leerCsv(csv));
    transaccion.confirmar();
    return resultado;
}

} // namespace mostrador
