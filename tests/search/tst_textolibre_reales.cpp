#include "tst_textolibre_reales.h"

#include <QHash>
#include <QTest>
#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// The text rules over the real names of products.
class tst_TextoLibre_Reales : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void words_of_a_name_find_it_together_and_alone_data() { buscadores(); }
    void words_of_a_name_find_it_together_and_alone();
    void asterisks_join_or_separate_the_words_of_a_name_data() { buscadores(); }
    void asterisks_join_or_separate_the_words_of_a_name();

private:
    static void buscadores()
    {
        QTest::addColumn<std::size_t>("buscador");
        for (std::size_t i = 0; i < Buscadores.size(); ++i)
            QTest::newRow(Buscadores[i].nombre) << i;
    }
    bool encuentra(const nv::Sentencia &sentencia, int codigo)
    {
        return encontrados(*m_base, sentencia).contains(codigo);
    }
    /// Calls `prueba` with the name and the code of each item of the sample.
    void cadaNombre(const std::function<void(const QString &, int)> &prueba)
    {
        constexpr std::size_t muestra = 500;
        for (std::size_t i = 0; i < muestra && !QTest::currentTestFailed(); ++i)
            prueba(m_productos[i * PasoMuestra].nombre, static_cast<int>(i * PasoMuestra) + 1);
    }

    std::unique_ptr<BaseDatos> m_base;
    std::vector<Producto> m_productos;
};

void tst_TextoLibre_Reales::initTestCase()
{
    m_productos = productosReales();
    if (m_productos.empty())
        QSKIP("productos_reales.csv is not there: the text rules are not tried on real names");
    QVERIFY(m_productos.size() > 5000);
    m_base = catalogo(m_productos, 0, m_productos.size());
}

void tst_TextoLibre_Reales::words_of_a_name_find_it_together_and_alone()
{
    QFETCH(const std::size_t, buscador);
    const auto consulta = Buscadores[buscador].consulta;
    QHash<QString, QSet<int>> porPalabra; // names share most of their words
    cadaNombre([&](const QString &nombre, int codigo) {
        QVERIFY2(encuentra(consulta(nombre), codigo), qPrintable(nombre));
        const QStringList palabras = nombre.split(u' ', Qt::SkipEmptyParts);
        for (const QString &palabra : palabras) {
            if (!porPalabra.contains(palabra))
                porPalabra.insert(palabra, encontrados(*m_base, consulta(palabra)));
            QVERIFY2(porPalabra[palabra].contains(codigo), qPrintable(palabra));
        }
    });
}

/// In the place of the blanks they keep the words in order, in model 5 in any; after the last word alone they ask for a
/// name that begins with it, in model 5 for any that has it.
void tst_TextoLibre_Reales::asterisks_join_or_separate_the_words_of_a_name()
{
    QFETCH(const std::size_t, buscador);
    const bool separa = Buscadores[buscador].asterisco == nv::sql::Asterisco::Blanco;
    const auto consulta = Buscadores[buscador].consulta;
    cadaNombre([&](const QString &nombre, int codigo) {
        QStringList palabras = nombre.split(u' ', Qt::SkipEmptyParts);
        const QString ultima = palabras.back();
        std::reverse(palabras.begin(), palabras.end());
        const QString unida = separa ? palabras.join(u'*') : QString(nombre).replace(u' ', u'*');
        QVERIFY2(encuentra(consulta(unida), codigo), qPrintable(unida));
        const bool empieza = nombre.startsWith(ultima, Qt::CaseInsensitive);
        QVERIFY2(encuentra(consulta(ultima + u'*'), codigo) == (separa || empieza), qPrintable(nombre));
    });
}

QTEST_GUILESS_MAIN(tst_TextoLibre_Reales)
#include "tst_textolibre_reales.moc"
