#include "nvArticulo/EmpresaBD.h"
#include "support/BaseDatos.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using nv::EmpresaBD;

/// The company read from its own tables.
class tst_EmpresaBD : public PruebaVias
{
    Q_OBJECT

private Q_SLOTS:
    void codes_names_and_settings()
    {
        const EmpresaBD una(conexion(), 1);
        const EmpresaBD suMaestra(conexion(), 9);
        for (const EmpresaBD *e : {&una, &suMaestra}) {
            const QList<int> codigos{e->Codigo(), e->CodigoArticulos(), e->CodigoProveedores(), e->CodigoClientes()};
            QCOMPARE(codigos, e == &una ? (QList<int>{1, 2, 3, 4}) : (QList<int>{9, 9, 9, 9}));
            QVERIFY(e->DecimalesPvp() == (e == &una ? 3 : 2) && e->OrdenCualidades() == (e == &una));
        }
        QStringList nombres{una.NombreAlternativo1(), una.DirectorioInformes(), una.Valor(u"OficinaCentral"_s)};
        for (int i = -1; i < 4; ++i)
            nombres << una.NombreFamilia(i) << una.NombreCualidad(i);
        QCOMPARE(nombres.join(u','), u"Estilo,C:\\Inf,,,,Sección,Talla,,Color,Línea,,,"_s);
        QVERIFY(una.ValorEntero16(u"busqueda"_s) == 5 && una.ValorEntero32(u"Vital"_s) == 70000);
        QVERIFY(errorDe([&] {
                    una.ValorEntero16(u"Vital"_s);
                }).descripcion.endsWith(u"70000 se sale de lo que cabe (Vital)."_s));
        QVERIFY(una.ValorBooleano(u"VITAL"_s) && !una.ValorBooleano(u"Nada"_s));
        QCOMPARE(una.PorcentajeImpuesto(1).textoCorto() + una.PorcentajeImpuesto2(1).textoCorto(), u"215,2"_s);
        QVERIFY2(una.PorcentajeImpuesto(2).esCero(), "a type that is not there");
    }

    void changes_of_others_are_seen_after_a_reload()
    {
        EmpresaBD empresa(conexion(), 1);
        const auto visto = [&] {
            const QString tipo = empresa.PorcentajeImpuesto(1).textoCorto();
            return empresa.Valor(u"Busqueda"_s) + tipo + QString::number(empresa.CodigoArticulos());
        };
        QCOMPARE(visto(), u"5212"_s);
        ejecutar(u"UPDATE Parametros_Empresa SET Valor = '6' WHERE Cod_Empresa = 1"_s);
        ejecutar(u"UPDATE Tipos_Impuesto SET Porcentaje = 4"_s);
        ejecutar(u"UPDATE Empresas SET Cod_Empresa_Articulos = 1"_s);
        QCOMPARE(visto(), u"5212"_s);
        empresa.Recargar();
        QCOMPARE(visto(), u"641"_s);
    }

    void setting_is_written_once_whether_it_had_a_row_or_not()
    {
        EmpresaBD empresa(conexion(), 1);
        empresa.PonerValor(u"Busqueda"_s, u"8"_s);
        empresa.PonerValor(u"Nota"_s, u"L'Oréal"_s);
        empresa.PonerValor(u"NOTA"_s, u"d'Or"_s);
        QCOMPARE(empresa.Valor(u"Nota"_s), u"d'Or"_s);
        QCOMPARE(filas(u"SELECT Cod_Empresa, Clave, Valor FROM Parametros_Empresa ORDER BY 1, 2"_s).join(u';'),
                 u"1|Busqueda|8;1|Nota|d'Or;1|OficinaCentral|NULL;1|Vital|70000;9|Busqueda|7"_s);
    }

    void read_that_fails_is_tried_again()
    {
        EmpresaBD empresa(conexion(), 5);
        QVERIFY(falla([&] { empresa.CodigoArticulos(); }));
        ejecutar(u"INSERT INTO Empresas (Codigo, Cod_Empresa_Articulos) VALUES (5, 6)"_s);
        QCOMPARE(empresa.CodigoArticulos(), qint16(6));
        empresa.setReloj([] { return QDate(2024, 2, 29); });
        QCOMPARE(empresa.Hoy(), QDate(2024, 2, 29));
        empresa.setReloj({});
        QVERIFY(empresa.Hoy() > QDate(2025, 1, 1));
    }

private:
    bool conEsquema() const override { return true; }
    void llenar() override
    {
        ejecutar(u"INSERT INTO Empresas (Codigo, Cod_Empresa_Articulos, Cod_Empresa_Proveedores, Cod_Empresa_Clientes, "
                 u"Nombre_Familia_1, Nombre_Familia_3, Nombre_CualidadX, Nombre_CualidadY, Nombre_Alternativo1, "
                 u"OrdenCualidades, DecimalesPvp, DirInformes) VALUES "
                 u"(1, 2, 3, 4, 'Sección', 'Línea', 'Talla', 'Color', 'Estilo', 1, 3, 'C:\\Inf')"_s);
        ejecutar(u"INSERT INTO Empresas (Codigo, DecimalesPvp, OrdenCualidades) VALUES (9, NULL, NULL)"_s);
        ejecutar(u"INSERT INTO Parametros_Empresa VALUES (1, 'Busqueda', '5'), (9, 'Busqueda', '7'), "
                 u"(1, 'OficinaCentral', NULL), (1, 'Vital', '70000')"_s);
        ejecutar(u"INSERT INTO Tipos_Impuesto VALUES (1, 'General', 21, 5.2)"_s);
    }
};

NV_PRUEBA(tst_EmpresaBD)
#include "tst_empresabd.moc"
