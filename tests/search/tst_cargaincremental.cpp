#include "common/Error.h"
#include "search/piezas/CargaIncremental.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A result that breaks at a row, as when the server goes away: no embedded catalogue does that on request.
class FuenteRota : public nv::FuenteRegistros
{
public:
    explicit FuenteRota(int sanas)
        : m_sanas(sanas)
    {}
    bool avanzar() override
    {
        if (++m_fila > m_sanas)
            throw nv::Error{11, u"Se ha perdido la conexión."_s, {}};
        return true;
    }
    int columnas() const override { return 1; }
    QString nombre(int) const override { return u"Codigo"_s; }
    QVariant valor(int) const override { return m_fila; }

private:
    int m_sanas;
    int m_fila = 0;
};

nv::Registros rota(int sanas)
{
    return nv::Registros(std::make_unique<FuenteRota>(sanas));
}

nv::CargaIncremental::Lector soloCodigo(const nv::Registros &registros)
{
    const int codigo = registros.columna(u"Codigo");
    return [codigo](const nv::Registros &r) { return nv::FilaRejilla{r.texto(codigo)}; };
}

} // namespace

class tst_CargaIncremental : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_result_that_breaks_at_once_leaves_the_grid();
    void a_result_that_breaks_later_keeps_its_rows();
};

void tst_CargaIncremental::a_result_that_breaks_at_once_leaves_the_grid()
{
    nv::Rejilla rejilla;
    rejilla.setColumnas({{u"Código"_s}});
    nv::CargaIncremental carga(&rejilla, soloCodigo);
    carga.mostrar(rota(600));
    rejilla.setFilaActual(7);
    QVERIFY_EXCEPTION_THROWN(carga.mostrar(rota(499)), nv::Error);
    QCOMPARE(rejilla.filasDatos(), 500);
    QCOMPARE(rejilla.filaActual(), 7);

    rejilla.setFilaActual(499);
    carga.alPaginar();
    QVERIFY2(rejilla.filasDatos() > 500, "the former result still gives rows");
}

void tst_CargaIncremental::a_result_that_breaks_later_keeps_its_rows()
{
    nv::Rejilla rejilla;
    rejilla.setColumnas({{u"Código"_s}});
    rejilla.resize(200, 200);
    rejilla.show();
    QVERIFY(QTest::qWaitForWindowExposed(&rejilla));
    nv::CargaIncremental carga(&rejilla, soloCodigo);
    QSignalSpy fallos(&carga, &nv::CargaIncremental::Fallo);
    carga.mostrar(rota(501));
    rejilla.setFilaActual(1);
    QScrollBar *barra = rejilla.verticalScrollBar();
    for (int paso = 1; paso <= 4; ++paso)
        barra->setValue(paso);
    QCOMPARE(rejilla.filasDatos(), 501);
    QCOMPARE(fallos.size(), 1);
    QCOMPARE(fallos[0][0].toString(), u"Se ha perdido la conexión."_s);
}

QTEST_MAIN(tst_CargaIncremental)
#include "tst_cargaincremental.moc"
