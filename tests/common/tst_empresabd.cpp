#include "common/EmpresaBD.h"
#include "common/Error.h"
#include "support/BaseDatos.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv;
using namespace nv::pruebas;

/// The company read from its own tables.
class tst_EmpresaBD : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_base = std::make_unique<BaseDatos>();
        m_base->ejecutar(QStringList{
            u"INSERT INTO Empresas (Codigo, Nombre, Cod_Empresa_Articulos, Cod_Empresa_Proveedores, "
            u"Cod_Empresa_Clientes, Nombre_Familia_1, Nombre_Familia_3, Nombre_CualidadY, OrdenCualidades, "
            u"DecimalesPvp) "
            u"VALUES (1, 'Uno', 2, 3, 4, 'Sección', 'Línea', 'Color', 1, 3)"_s,
            u"INSERT INTO Empresas (Codigo, Nombre) VALUES (9, 'Sola')"_s,
            u"INSERT INTO Parametros_Empresa VALUES (1, 'BusquedaArticulos', '5')"_s,
            u"INSERT INTO Parametros_Empresa VALUES (9, 'BusquedaArticulos', '7')"_s,
            u"INSERT INTO Parametros_Empresa VALUES (1, 'OficinaCentral', NULL)"_s,
            u"INSERT INTO Tipos_Impuesto VALUES (1, 'General', 21, 5.2)"_s,
        });
    }

    void each_master_has_its_own_code()
    {
        const EmpresaBD empresa(m_base->conexion(), 1);
        QCOMPARE((QList<int>{empresa.Codigo(), empresa.CodigoArticulos(), empresa.CodigoProveedores(),
                             empresa.CodigoClientes()}),
                 (QList<int>{1, 2, 3, 4}));
        QCOMPARE((QStringList{empresa.NombreFamilia(0), empresa.NombreFamilia(1), empresa.NombreFamilia(2),
                              empresa.NombreCualidad(0), empresa.NombreCualidad(1), empresa.NombreFamilia(3)}),
                 (QStringList{u"Sección"_s, {}, u"Línea"_s, {}, u"Color"_s, {}}));
        QVERIFY(empresa.OrdenCualidades());
        QCOMPARE(empresa.DecimalesPvp(), 3);
    }

    void a_company_without_masters_is_its_own()
    {
        const EmpresaBD empresa(m_base->conexion(), 9);
        QCOMPARE(empresa.CodigoArticulos(), qint16(9));
        QCOMPARE(empresa.CodigoClientes(), qint16(9));
        QVERIFY(!empresa.OrdenCualidades());
    }

    void settings_are_the_companys_own_and_unset_ones_are_empty()
    {
        const EmpresaBD empresa(m_base->conexion(), 1);
        QCOMPARE(empresa.ValorEntero16(u"busquedaarticulos"_s), qint16(5));
        QCOMPARE(empresa.Valor(u"OficinaCentral"_s), QString());
        QCOMPARE(empresa.Valor(u"EsUlvaro"_s), QString());
    }

    void taxes_of_an_unknown_type_are_zero()
    {
        const EmpresaBD empresa(m_base->conexion(), 1);
        QCOMPARE(empresa.PorcentajeImpuesto(1), Moneda::deUnidades(21));
        QCOMPARE(empresa.PorcentajeImpuesto2(1), Moneda::deDiezmilesimas(52000));
        QVERIFY(empresa.PorcentajeImpuesto(2).esCero());
    }

    void what_another_program_changes_is_seen_after_a_reload()
    {
        EmpresaBD empresa(m_base->conexion(), 1);
        QCOMPARE(empresa.Valor(u"BusquedaArticulos"_s), u"5"_s);
        QCOMPARE(empresa.CodigoArticulos(), qint16(2));
        m_base->ejecutar(u"UPDATE Parametros_Empresa SET Valor = '6' WHERE Cod_Empresa = 1"_s);
        m_base->ejecutar(u"UPDATE Empresas SET Cod_Empresa_Articulos = 1"_s);
        QCOMPARE(empresa.Valor(u"BusquedaArticulos"_s), u"5"_s);
        empresa.Recargar();
        QCOMPARE(empresa.Valor(u"BusquedaArticulos"_s), u"6"_s);
        QCOMPARE(empresa.CodigoArticulos(), qint16(1));
    }

    void a_setting_is_written_once_whether_it_had_a_row_or_not()
    {
        EmpresaBD empresa(m_base->conexion(), 1);
        empresa.PonerValor(u"BusquedaArticulos"_s, u"8"_s);
        empresa.PonerValor(u"Nota"_s, u"L'Oréal"_s);
        empresa.PonerValor(u"NOTA"_s, u"d'Or"_s);
        QCOMPARE(empresa.Valor(u"Nota"_s), u"d'Or"_s);
        QCOMPARE(m_base->filas(u"SELECT Clave, Valor FROM Parametros_Empresa WHERE Cod_Empresa = 1 ORDER BY Clave"_s),
                 (QStringList{u"BusquedaArticulos|8"_s, u"Nota|d'Or"_s, u"OficinaCentral|NULL"_s}));
        QCOMPARE(m_base->filas(u"SELECT Valor FROM Parametros_Empresa WHERE Cod_Empresa = 9"_s), QStringList{u"7"_s});
    }

    void a_read_that_fails_is_tried_again()
    {
        EmpresaBD empresa(m_base->conexion(), 5);
        QVERIFY_EXCEPTION_THROWN(empresa.CodigoArticulos(), Error);
        m_base->ejecutar(u"INSERT INTO Empresas (Codigo, Cod_Empresa_Articulos) VALUES (5, 6)"_s);
        QCOMPARE(empresa.CodigoArticulos(), qint16(6));
    }

    void the_day_comes_from_the_clock_handed_in()
    {
        EmpresaBD empresa(m_base->conexion(), 1);
        empresa.setReloj([] { return QDate(2024, 2, 29); });
        QCOMPARE(empresa.Hoy(), QDate(2024, 2, 29));
        empresa.setReloj({});
        QVERIFY(empresa.Hoy() > QDate(2025, 1, 1));
    }

private:
    std::unique_ptr<BaseDatos> m_base;
};

QTEST_MAIN(tst_EmpresaBD)
#include "tst_empresabd.moc"
