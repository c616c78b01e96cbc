#include "nvArticulo/Conexion.h"
#include "search/sql/Modelo2.h"
#include "search/sql/Modelo5.h"
#include "search/sql/Modelo7.h"
#include "search/sql/Modelo8.h"
#include "support/BaseDatos.h"
#include "support/Programa.h"

#include <QFile>
#include <QHash>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using nv::Doblado;
using nv::Sentencia;
using nv::sql::Asterisco;

namespace {

struct Producto
{
    QString barras;
    QString nombre;
};

/// With the row limit out of the way.
const nv::sql::EntornoTextoLibre Entorno{1, 1, 1, 1, true, 100000};
const QDate LimiteVentas(2026, 10, 23);
constexpr std::size_t PasoMuestra = 7;

/// Of the sample all were sold lately, of the others none.
bool vendido(int codigo)
{
    return codigo % PasoMuestra == 1;
}

Sentencia consulta(int modelo, const QString &texto)
{
    switch (modelo) {
    case 2:
        return nv::sql::modelo2(Entorno, texto);
    case 5:
        return nv::sql::modelo5(Entorno, {texto, {}, false, false});
    case 7:
        return nv::sql::modelo7(Entorno, texto, {});
    default:
        return nv::sql::modelo8(Entorno, texto, LimiteVentas);
    }
}

} // namespace

/// The rules of free text over real products, where their file is.
class tst_Reales : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void initTestCase_data()
    {
        QTest::addColumn<int>("modelo");
        for (const int modelo : {2, 5, 7, 8})
            QTest::addRow("model %d", modelo) << modelo;
    }
    void words_of_a_name_find_it_together_and_alone();
    void asterisks_join_or_separate_the_words_of_a_name();
    void main_barcodes_find_their_item();

private:
    QSet<int> encontrados(const QString &texto, BaseDatos *base = nullptr);
    std::unique_ptr<BaseDatos> catalogo(std::size_t primero, std::size_t ultimo);

    std::vector<Producto> m_productos; // their codes count from 1
    std::unique_ptr<BaseDatos> m_base;
};

/// Its fields: code, name, kind, verdict; quotes inside a quoted one are doubled, none spans lines.
void tst_Reales::initTestCase()
{
    QFile fichero(QStringLiteral(NV_RAIZ) + u"/../shared/data/productos_reales.csv"_s);
    if (!fichero.open(QIODevice::ReadOnly))
        QSKIP("productos_reales.csv is not there: no rule is tried on real products");
    QSet<QString> vistos;
    fichero.readLine();
    while (!fichero.atEnd()) {
        const QString linea = QString::fromUtf8(fichero.readLine());
        const QString barras = linea.section(u',', 0, 0);
        const qsizetype nombre = barras.size() + 1;
        const bool entreComillas = linea[nombre] == u'"';
        const qsizetype fin = entreComillas ? linea.lastIndexOf(u"\","_s) : linea.indexOf(u',', nombre);
        if (!vistos.contains(barras))
            m_productos.push_back(
                {barras, linea.sliced(nombre + (entreComillas ? 1 : 0), fin - nombre - (entreComillas ? 1 : 0))
                             .replace(u"\"\""_s, u"\""_s)});
        vistos.insert(barras);
    }
    QVERIFY(m_productos.size() > 5000);
    m_base = catalogo(0, m_productos.size());
}

std::unique_ptr<BaseDatos> tst_Reales::catalogo(std::size_t primero, std::size_t ultimo)
{
    auto base = std::make_unique<BaseDatos>();
    nv::Transaccion transaccion(base->conexion());
    for (std::size_t i = primero; i < ultimo; ++i) {
        const int codigo = static_cast<int>(i) + 1;
        Sentencia articulo(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, ");
        articulo << codigo << u", '" << Doblado(m_productos[i].nombre) << u"')";
        Sentencia barras(
            u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (1, ");
        barras << codigo << u", '" << Doblado(m_productos[i].barras) << u"', 1)";
        Sentencia existencias(
            u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, FUlt_Venta) VALUES "
            u"(1, 1, ");
        existencias << codigo << u", '" << LimiteVentas.addDays(vendido(codigo) ? 1 : 0) << u"')";
        Sentencia precio(u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp) VALUES (1, ");
        precio << codigo << u", 1, 1)";
        for (const Sentencia &alta : {articulo, barras, existencias, precio})
            base->conexion().Ejecutar(alta);
    }
    transaccion.confirmar();
    return base;
}

QSet<int> tst_Reales::encontrados(const QString &texto, BaseDatos *base)
{
    QFETCH_GLOBAL(const int, modelo);
    nv::Registros registros = (base ? *base : *m_base).conexion().Abrir(consulta(modelo, texto));
    QSet<int> codigos;
    while (registros.siguiente())
        codigos.insert(registros.entero32(u"Codigo"));
    return codigos;
}

void tst_Reales::words_of_a_name_find_it_together_and_alone()
{
    QHash<QString, QSet<int>> porPalabra; // names share most of their words
    for (std::size_t i = 0; i < 500; ++i) {
        const int codigo = static_cast<int>(i * PasoMuestra) + 1;
        const QString &nombre = m_productos[i * PasoMuestra].nombre;
        QVERIFY2(encontrados(nombre).contains(codigo), qPrintable(nombre));
        for (const QString &palabra : nombre.split(u' ', Qt::SkipEmptyParts)) {
            if (!porPalabra.contains(palabra))
                porPalabra.insert(palabra, encontrados(palabra));
            QVERIFY2(porPalabra[palabra].contains(codigo), qPrintable(palabra));
        }
    }
}

/// In the place of the blanks they keep the words in order, in model 5 in any; after the last word alone they ask for a
/// name that begins with it, in model 5 for any that has it.
void tst_Reales::asterisks_join_or_separate_the_words_of_a_name()
{
    QFETCH_GLOBAL(const int, modelo);
    for (std::size_t i = 0; i < 500; ++i) {
        const int codigo = static_cast<int>(i * PasoMuestra) + 1;
        const QString &nombre = m_productos[i * PasoMuestra].nombre;
        QStringList palabras = nombre.split(u' ', Qt::SkipEmptyParts);
        const QString ultima = palabras.back();
        std::reverse(palabras.begin(), palabras.end());
        const QString unida = modelo == 5 ? palabras.join(u'*') : QString(nombre).replace(u' ', u'*');
        QVERIFY2(encontrados(unida).contains(codigo), qPrintable(unida));
        const bool empieza = nombre.startsWith(ultima, Qt::CaseInsensitive);
        QVERIFY2(encontrados(ultima + u'*').contains(codigo) == (modelo == 5 || empieza), qPrintable(nombre));
    }
}

/// In catalogues of few items: a number walks the whole of one.
void tst_Reales::main_barcodes_find_their_item()
{
    QFETCH_GLOBAL(const int, modelo);
    std::unique_ptr<BaseDatos> base;
    for (std::size_t i = 0; i < m_productos.size(); ++i) {
        if (i % 100 == 0)
            base = catalogo(i, std::min(i + 100, m_productos.size()));
        const int codigo = static_cast<int>(i) + 1;
        const bool esperado = modelo != 8 || vendido(codigo);
        QVERIFY2(encontrados(m_productos[i].barras, base.get()).contains(codigo) == esperado,
                 qPrintable(m_productos[i].barras));
    }
}

NV_PRUEBA(tst_Reales)
#include "tst_reales.moc"
