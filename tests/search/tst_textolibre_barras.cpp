#include "tst_textolibre_reales.h"

#include <QTest>
#include <algorithm>

using namespace nv::pruebas;

/// Real barcodes typed as text.
class tst_TextoLibre_Barras : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void every_main_barcode_finds_its_item();
};

/// In catalogues of few items: a number walks the whole of one.
void tst_TextoLibre_Barras::every_main_barcode_finds_its_item()
{
    const std::vector<Producto> productos = productosReales();
    if (productos.empty())
        QSKIP("productos_reales.csv is not there: no real barcode is searched for");
    QVERIFY(productos.size() > 5000);
    constexpr std::size_t articulosPorCatalogo = 100;
    std::unique_ptr<BaseDatos> base;
    for (std::size_t i = 0; i < productos.size(); ++i) {
        if (i % articulosPorCatalogo == 0)
            base = catalogo(productos, i, std::min(i + articulosPorCatalogo, productos.size()));
        const int codigo = static_cast<int>(i) + 1;
        const QString &barras = productos[i].barras;
        for (const Buscador &buscador : Buscadores) {
            const bool soloVendidos = &buscador == &Buscadores.back();
            // Of those that model 8 leaves out, as many as it finds are enough.
            if (soloVendidos && codigo % PasoMuestra > 1)
                continue;
            const bool esperado = !soloVendidos || vendido(codigo);
            QVERIFY2(encontrados(*base, buscador.consulta(barras)).contains(codigo) == esperado, qPrintable(barras));
        }
    }
}

QTEST_GUILESS_MAIN(tst_TextoLibre_Barras)
#include "tst_textolibre_barras.moc"
