#include "common/Conexion.h"
#include "search/sql/Modelo2.h"
#include "search/sql/Modelo5.h"
#include "search/sql/Modelo7.h"
#include "search/sql/Modelo8.h"
#include "support/BaseDatos.h"

#include <QFile>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv::sql;
using nv::Sentencia;

namespace {

struct Producto
{
    QString barras;
    QString nombre;
};

/// Code, name, kind, verdict; quotes inside a quoted field are doubled, no field spans lines.
std::vector<Producto> leer(QFile &fichero)
{
    std::vector<Producto> productos;
    QSet<QString> vistos;
    fichero.readLine();
    while (!fichero.atEnd()) {
        const QString linea = QString::fromUtf8(fichero.readLine());
        QStringList campos(QString{});
        bool entreComillas = false;
        for (const QChar c : linea) {
            if (c == u'"')
                entreComillas = !entreComillas;
            if (c == u',' && !entreComillas)
                campos << QString();
            else
                campos.back() += c;
        }
        QString nombre = campos.value(1);
        if (nombre.startsWith(u'"'))
            nombre = nombre.sliced(1, nombre.size() - 2).replace(u"\"\""_s, u"\""_s);
        if (vistos.contains(campos[0]))
            continue;
        vistos.insert(campos[0]);
        productos.push_back({campos[0], nombre});
    }
    return productos;
}

} // namespace

/// The text rules over the real names and barcodes of products.
class tst_TextoLibre_Reales : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void words_of_a_name_find_it_together_and_alone();
    void every_main_barcode_finds_its_item();
    void main_barcodes_find_items_sold_lately();

private:
    bool encuentra(const Sentencia &sentencia, int codigo)
    {
        nv::Registros registros = m_base->conexion().Abrir(sentencia);
        const int columna = registros.columna(u"Codigo");
        while (registros.siguiente())
            if (registros.entero32(columna) == codigo)
                return true;
        return false;
    }

    std::unique_ptr<nv::pruebas::BaseDatos> m_base;
    std::vector<Producto> m_productos;
    const EntornoTextoLibre m_entorno{1, 1, 1, 1, true, 100000};
    const QDate m_limiteVentas{2026, 10, 23};
};

void tst_TextoLibre_Reales::initTestCase()
{
    QFile fichero(QStringLiteral(NV_RAIZ) + u"/../shared/data/productos_reales.csv"_s);
    if (!fichero.open(QIODevice::ReadOnly))
        QSKIP("productos_reales.csv is not there: the text rules are not tried on real names");
    m_productos = leer(fichero);
    QVERIFY(m_productos.size() > 5000);

    m_base = std::make_unique<nv::pruebas::BaseDatos>();
    nv::Transaccion transaccion(m_base->conexion());
    int codigo = 0;
    for (const Producto &producto : m_productos) {
        ++codigo;
        Sentencia articulo(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, ");
        articulo << codigo << u", '" << nv::Doblado(producto.nombre) << u"')";
        Sentencia barras(
            u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (1, ");
        barras << codigo << u", '" << nv::Doblado(producto.barras) << u"', 1)";
        // Every third one has not been sold lately.
        Sentencia existencias(u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, FUlt_Venta) "
                              u"VALUES (1, 1, ");
        existencias << codigo << u", '" << m_limiteVentas.addDays(codigo % 3 == 0 ? 0 : 1) << u"')";
        Sentencia precio(u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (1, ");
        precio << codigo << u", 1, 1)";
        for (const Sentencia &alta : {articulo, barras, existencias, precio})
            m_base->conexion().Ejecutar(alta);
    }
    transaccion.confirmar();
}

void tst_TextoLibre_Reales::words_of_a_name_find_it_together_and_alone()
{
    // A "[" begins a set of the server's patterns, a "*" is the user's wildcard: such names are not found as typed.
    int probados = 0;
    int sinProbar = 0;
    for (std::size_t i = 0; i < m_productos.size() && probados < 500; i += 7) {
        const int codigo = static_cast<int>(i) + 1;
        const QString &nombre = m_productos[i].nombre;
        if (nombre.contains(u'[') || nombre.contains(u'*')) {
            ++sinProbar;
            continue;
        }
        ++probados;
        QVERIFY2(encuentra(modelo2(m_entorno, nombre), codigo), qPrintable(nombre));
        const QStringList palabras = nombre.split(u' ', Qt::SkipEmptyParts);
        for (const QString &palabra : palabras)
            QVERIFY2(encuentra(modelo2(m_entorno, palabra), codigo), qPrintable(palabra));
    }
    QCOMPARE(probados, 500);
    QVERIFY2(sinProbar < 20, qPrintable(QString::number(sinProbar)));
}

/// In companies of few items: a number walks the whole catalogue of one.
void tst_TextoLibre_Reales::every_main_barcode_finds_its_item()
{
    constexpr int articulosPorEmpresa = 100;
    const auto empresaDe = [](int codigo) { return static_cast<qint16>(2 + codigo / articulosPorEmpresa); };
    nv::Transaccion transaccion(m_base->conexion());
    for (std::size_t i = 0; i < m_productos.size(); ++i) {
        const int codigo = static_cast<int>(i) + 1;
        Sentencia articulo(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (");
        articulo << empresaDe(codigo) << u", " << codigo << u", '" << nv::Doblado(m_productos[i].nombre) << u"')";
        Sentencia barras(u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (");
        barras << empresaDe(codigo) << u", " << codigo << u", '" << nv::Doblado(m_productos[i].barras) << u"', 1)";
        m_base->conexion().Ejecutar(articulo);
        m_base->conexion().Ejecutar(barras);
    }
    transaccion.confirmar();
    for (std::size_t i = 0; i < m_productos.size(); ++i) {
        const int codigo = static_cast<int>(i) + 1;
        const QString &barras = m_productos[i].barras;
        EntornoTextoLibre entorno = m_entorno;
        entorno.empresaArticulos = empresaDe(codigo);
        QVERIFY2(encuentra(modelo2(entorno, barras), codigo), qPrintable(barras));
        QVERIFY2(encuentra(modelo5(entorno, {barras, {}, false, false}), codigo), qPrintable(barras));
        QVERIFY2(encuentra(modelo7(entorno, barras, {}), codigo), qPrintable(barras));
    }
}

void tst_TextoLibre_Reales::main_barcodes_find_items_sold_lately()
{
    for (std::size_t i = 0; i < m_productos.size(); i += 13) {
        const int codigo = static_cast<int>(i) + 1;
        QCOMPARE(encuentra(modelo8(m_entorno, m_productos[i].barras, m_limiteVentas), codigo), codigo % 3 != 0);
    }
}

QTEST_GUILESS_MAIN(tst_TextoLibre_Reales)
#include "tst_textolibre_reales.moc"
