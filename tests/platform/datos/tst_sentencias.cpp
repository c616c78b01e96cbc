#include "CatalogoMinimo.h"
#include "control/Consultas.h"
#include "control/Dialogos.h"
#include "search/sql/CopiaBusqueda.h"
#include "search/sql/Detalles.h"
#include "search/sql/Modelo0.h"
#include "search/sql/Modelo1.h"
#include "search/sql/Modelo2.h"
#include "search/sql/Modelo4.h"
#include "search/sql/Modelo5.h"
#include "search/sql/Modelo6.h"
#include "search/sql/Modelo7.h"
#include "search/sql/Modelo8.h"
#include "support/EmpresaPrueba.h"

using namespace nv::sql;
using nv::Moneda;
using nv::Sentencia;

constexpr qint16 Empresa = 1;
constexpr qint16 Articulos = 2;
const QDate Hoy(2026, 11, 22);
const QDate UnMesAntes(2026, 10, 22);

/// What the component's own statements answer over a small catalogue, on every engine that speaks their dialect.
class PruebaSentencias : public PruebaConCatalogo
{
    Q_OBJECT

private Q_SLOTS:
    void statements_answer()
    {
        const auto m0 = [](const CriteriosArticulo &c, bool conNotas = false, std::optional<qint32> limite = 150) {
            return modelo0(Articulos, limite, c, conNotas);
        };
        const auto m6 = [](std::optional<qint16> almacen) {
            return modelo6(Articulos, {}, {}, false, condicionSurtido(Empresa, almacen));
        };
        // Rows joined by ";". Their first cells are enough.
        const std::pair<Sentencia, QString> casos[] = {
            {m0({}, false, {}), u"4;5;3;2;1;841"_s}, // in the order of the description
            {m0({.descripcion = u"torn"_s, .familias = {1, 1, 0}}), u"1|TORNILLO PLANO|1|1|0|8412345678905"_s},
            {m0({.familias = {0, 2, 0}}, false, 2), u"4;5"_s}, // a level below a free one
            {m0({}, false, 0), {}},
            {m0({.descripcion = u"TORN"_s}, true), u"5;2;1"_s}, // notes too
            {m0({.codigo = u"84"_s}), u"841"_s},
            {m0({.proveedor = 7, .referencia = u"R"_s}), u"1"_s},
            {m0({.proveedor = 7}), u"4;2;1"_s},
            {m0({.referencia = u"12*34"_s}), u"2"_s},
            {m1(150, {1, 2, 3}, {{.descripcion = u"TORNILLO"_s}, {}, {}}),
             u"1|TORNILLO PLANO|1|1|0|8412345678905|R-1|10,50|9,00|0,00|10.5|9|0|0.6|0.6;"
             u"2|Tornillo grande rojo|1|2|0||r-1|1234,57|0,00|0,00|1234.5678|0|0|5|5"_s},
            {m1(1, {2}, {}), u"1|TORNILLO PLANO|1|1|0|8412345678905|R-1|10,50|9,00|0,00|10.5|9|0|0.2|0.2"_s},
            {m1({}, {1}, {{}, {}, {9, 3}}), u"4"_s}, // any of the values chosen
            {m1({}, {1}, {{}, u",3,7,"_s, {}}), u"4"_s},
            {m1({}, {1}, {{.proveedor = 7, .referencia = u"1"_s}, {}, {}}), u"2"_s},
            {modelo3(Articulos, {}, {.marca = 2}), u"4"_s},
            {modelo3(Articulos, {}, {.descripcion = u"*rojo"_s, .proveedor = 8, .familias = {1, 2, 0}}), u"2"_s},
            {modelo4(Empresa, Articulos, {}, {{}, 1, 0}),
             u"4|BAÑERA BLANCA|2|0|0|98100019|0;1|TORNILLO PLANO|1|1|0|8412345678905|1.5"_s},
            {modelo4(Empresa, Articulos, {}, {}), u"4;5;3;2;1;841"_s},
            {m6({}), u"4;1"_s},  // in any warehouse
            {m6(qint16{3}), {}}, // blocked there
            {m6(qint16{2}), u"1"_s},
            {modelo2(entorno(), u"TORN plano"_s), u"1|TORNILLO PLANO|0|0|R-1|8412345678905|0.3|10.5|2"_s},
            {modelo2(entorno(), u"841"_s), u"1;841"_s}, // a number is a barcode or a code too
            {modelo2(entorno(), u"L'ORÉAL"_s), u"841"_s},
            {modelo2(entorno(false), u"x34"_s), u"2|Tornillo grande rojo|0|0|12X34Y|"_s},
            {modelo2(entorno(), u"x34"_s), {}}, // the main one only
            {modelo5(entorno(), {u"BAÑERA"_s, Moneda::deTexto(u"40.5"), false, false}),
             u"4|BAÑERA BLANCA|BÑ|12.5|0|0|0|0|0|0|100|0|0|255|0|120|0|40.5|1|0|0"_s},
            {modelo5(entorno(), {u"plano"_s, {}, false, false}), u"1|TORNILLO PLANO|R-1|0.3|0.2|0.3|0"_s},
            {modelo5(entorno(), {{}, {}, true, false}), u"1"_s}, // offers
            {modelo5(entorno(), {{}, {}, true, true}), u"1"_s},  // one tariff or the other
            {modelo5(entorno(), {{}, {}, false, true}), {}},     // not moved
            {modelo7(entorno(), {}, u"ROCA"_s), u"4|BAÑERA BLANCA|BÑ|98100019|12.5|0|0|100|Roca|0"_s},
            {modelo7(entorno(), u"*GRANDE*"_s, {}), u"2|Tornillo grande rojo|r-1||5|1|0|1234.5678|Acme|0"_s},
            {modelo8(entorno(), {}, UnMesAntes.addDays(1)), u"1"_s}, // sold after the day
            {modelo8(entorno(), {}, UnMesAntes), u"1|TORNILLO PLANO|R-1|8412345678905|0.3|0|0|10.5|Acme|0|Ferretería;"
                                                 u"4|BAÑERA BLANCA|BÑ|98100019|12.5|0|0|100|Roca|0|Baño"_s},
            {modelo8(entorno(), u"oca"_s, UnMesAntes), u"4"_s},
            {directorioImagenes(Empresa), u"C:\\Fotos\\"_s},
            {notas(Articulos, 1), u"NULL"_s},
            {existencias(Empresa, 1, 1), u"0.1|3|0"_s},
            {precioCliente(Empresa, 50, 1, Hoy), u"8.25"_s},         // last day
            {precioCliente(Empresa, 50, 1, Hoy.addDays(1)), {}},     // day after
            {precioCliente(Empresa, 50, 2, Hoy), {}},                // day before
            {precioCliente(Empresa, 50, 2, Hoy.addDays(1)), u"1"_s}, // first day
            {tarifasCliente(4, 50), u"1|2"_s},
            {tarifasAlmacen(Empresa, 2), u"1|0"_s},
            {tarifaAlmacen(Empresa, 2), u"1"_s},
            {precioTarifa(Articulos, 4, 1), u"100"_s},
            {precioTarifa(Articulos, 4, 2), {}},
            {tarifasDeAlmacen(Empresa, 1), u"1|2;2|3"_s},              // in their order
            {existenciasSurtido(Empresa, 1, 1), u"0.1|3|0|1|3|0|0"_s}, // mandatory
            {existenciasSurtido(Empresa, 1, 2), u"5|0|0|2|3|1|0"_s},   // not in it
            {existenciasSurtido(Empresa, 2, 1), u"0.2|0|0|2|0|0|0"_s}, // none there
            {hayAlternativos(), u"0"_s},                               // an alternative field has a list
        };
        for (const auto &[sentencia, filas] : casos) {
            const qsizetype columnas = filas.section(u';', 0, 0).count(u'|') + 1;
            const QString cual = sentencia.texto() + u'\n';
            QCOMPARE(cual + respuesta(sentencia, columnas), cual + filas);
            QCOMPARE(cual + respuesta(sentencia, columnas), cual + filas); // prepared already
        }
    }

    void ranking_is_made_again_under_an_open_list()
    {
        const auto crear = [](QDate hoy) { return crearRanking(Empresa, Articulos, {{}, 1, 2}, hoy); };
        const Sentencia lista = modelo4(Empresa, Articulos, {}, {{}, 1, 2});
        QVERIFY(falla([&] { conexion().Ejecutar(borrarRanking()); })); // its caller ignores it
        QCOMPARE(conexion().Ejecutar(crear(QDate(2027, 1, 31))), 0);
        QCOMPARE(respuesta(lista, 1), QString());
        nv::Registros abierta = conexion().Abrir(lista);
        conexion().Ejecutar(borrarRanking());
        QCOMPARE(conexion().Ejecutar(crear(Hoy)), 2);
        QCOMPARE(respuesta(lista, 7), u"4|BAÑERA BLANCA|2|0|0|98100019|0;1|TORNILLO PLANO|1|1|0|8412345678905|1.5"_s);
        QVERIFY(falla([&] { conexion().Ejecutar(crear(Hoy)); }) && !abierta.siguiente()); // it stands already
    }

    /// Column, what is written; what is kept, or "!" and the words that refuse it. As value, by an expression, by a query.
    void columns_keep_what_their_types_allow()
    {
        for (const QStringList &c : tabla(
                 u"Temporada→'x20'→x20;Temporada→'x20   '→x20;Temporada→'x21'→!demasiado largo: caben 20 caracteres;"
                 u"Temporada→'ñ20'→ñ20;Temporada→NULL→NULL;Temporada→'O''R'→O'R;Marca→7.9→7;Marca→-7.9→-7;"
                 u"Marca→' 12 '→12;Marca→''→0;Marca→'7.5'→!«7.5» no es un número entero;Marca→'-'→!«-» no "
                 u"es;Marca→32767→32767;"
                 u"Marca→40000→!El número 40000 se sale de lo que cabe;Marca→-32769→!El número -32769 se;"
                 u"Marca→'99999999999999999999'→!El número 99999999999999999999 se;"
                 u"Marca→1e20→!El número 100000000000000000000 se;"
                 u"Bloqueado→-1→1;Bloqueado→0.5→1;Bloqueado→'True'→1;Bloqueado→'no'→!«no» no es un sí o un no;"
                 u"Largo→99999999999→99999999999;Largo→'10.5'→10.5;Largo→1e15→!El número 1000000000000000 se;"
                 u"Largo→'ab'→!«ab» no es un importe;FAlta→'29/02/2024'→29/02/2024;FAlta→'30/02/2026'→!«30/02/2026» no;"
                 u"FAlta→''→01/01/1900;FAlta→1→02/01/1900;FAlta→'mañana'→!«mañana» no es una fecha;"
                 u"FAlta→'31/12/1752'→!«31/12/1752» no es;Desc_Memo→'x9000'→x9000"_s)) {
            QString escrito = c[1], leido = c[2];
            for (QString *texto : {&escrito, &leido})
                for (const int veces : {20, 21, 9000})
                    texto->replace(u"x%1"_s.arg(veces), QString(veces, u'x')).replace(u"ñ20"_s, QString(20, u'ñ'));
            for (const QString &como : {u"INSERT INTO Articulos (Cod_Empresa, Codigo, %1) VALUES (9, 1, %2)"_s,
                                        u"INSERT INTO [Articulos] (Cod_Empresa, Codigo, [%1]) SELECT 9, 1, %2"_s,
                                        u"UPDATE Articulos SET Ancho = 1, %1 = %2, Mod_Ficha = 1 WHERE Codigo = 4"_s,
                                        u"UPDATE Articulos SET %1 = ISNULL(%2, NULL) FROM (SELECT 4 AS n) a"
                                        u" WHERE Articulos.Codigo = a.n"_s}) {
                const QString sentencia = como.arg(c[0], escrito);
                const nv::Error error = errorDe([&] { ejecutar(sentencia); });
                const QString suyo =
                    u"SELECT %1 FROM Articulos WHERE Codigo = 4 OR Cod_Empresa = 9 ORDER BY Cod_Empresa"_s.arg(c[0]);
                const QString visto = error.numero == -1 ? filas(suyo).last() : u'!' + error.descripcion;
                const bool rechaza = leido.startsWith(u'!') && visto.startsWith(u'!');
                QVERIFY2(
                    visto == leido || (rechaza && via() == Via::Servidor) ||
                        (rechaza && visto.contains(leido.sliced(1)) && visto.endsWith(u" (Articulos.%1)."_s.arg(c[0]))),
                    qPrintable(sentencia + visto));
                ejecutar(u"DELETE FROM Articulos WHERE Cod_Empresa = 9"_s);
            }
        }
    }

    void copy_takes_the_rows_of_its_search()
    {
        ejecutar(u"INSERT INTO Articulos_Buscar (Terminal, Cod_Articulo) VALUES ('CAJA1', 77), ('CAJA2', 78)"_s);
        const auto copia = [&](const Sentencia &busqueda, nv::Fragmento lista = u", a.Codigo, a.Descripcion ") {
            conexion().Ejecutar(borrarCopia(u"caja1"_s));
            conexion().Ejecutar(insertarCopia(u"CAJA1"_s, Articulos, lista, busqueda));
            // A server takes the rows without the order that it refuses.
            return responde(u"SELECT Cod_Articulo, Cod_Empresa, Descripcion FROM Articulos_Buscar ORDER BY 1"_s);
        };
        const QString ambos = u"1|2|TORNILLO PLANO,2|2|Tornillo grande rojo,78|NULL|NULL"_s;
        QCOMPARE(copia(modelo0(Articulos, 1, {.descripcion = u"*TORN"_s}, false)), ambos); // without its limit
        const Sentencia agrupada = m1(1, {1}, {{.familias = {1, 0, 0}}, {}, {}});
        QCOMPARE(copia(agrupada, u", a.Codigo, MIN(a.Descripcion) AS Descripcion "), ambos);
        QCOMPARE(copia(modelo2(entorno(false), u"grande"_s)), u"2|2|Tornillo grande rojo,78|NULL|NULL"_s);
        QCOMPARE(copia(modelo8(entorno(), {}, UnMesAntes)), u"1|2|TORNILLO PLANO,4|2|BAÑERA BLANCA,78|NULL|NULL"_s);
    }

    void item_box_looks_codes_up()
    {
        EmpresaPrueba empresa;
        const auto dialogos = nv::crearDialogos();
        nv::Consultas consultas(conexion(), empresa, *dialogos, nullptr);
        QVERIFY(consultas.referenciaProveedor(u"r-1 "_s, 8) == 2 && consultas.referenciaProveedor(u"12x34y"_s, 0) == 2);
        QVERIFY(consultas.referenciaCliente(u"c1"_s, 51) == 2 && consultas.referenciaCliente(u"C1"_s, 52) == 0);
        QVERIFY(consultas.codigoBarras(u"abc"_s) == 1 && consultas.codigoBarras(u"ábc"_s) == 0);
        QVERIFY(consultas.referenciaProveedor(u"R-1"_s, 9) == 0 && consultas.plu(5) == 3);
        QCOMPARE(consultas.descripcion(u"00841"_s).value_or(u"-"_s), u"ZAPATO L'ORÉAL"_s);
        QVERIFY(!consultas.descripcion(u"842"_s) && !consultas.cualidades(4, 3, 2));
        const auto nombres = consultas.cualidades(4, 2, 3);
        QVERIFY(nombres && nombres->x == u"L" && nombres->y == u"ROJO");
        QVERIFY(!consultas.permisoCrear(8) && consultas.permisoCrear(19));
    }

private:
    static Sentencia m1(std::optional<qint32> limite, const std::vector<qint16> &almacenes, const CriteriosModelo1 &c)
    {
        return modelo1(Empresa, Articulos, limite, {1, 2, 0}, almacenes, c);
    }
    static EntornoTextoLibre entorno(bool principal = true) { return {Empresa, Articulos, 1, 1, principal, 150}; }
    /// Rows joined by ";", each with its first `columnas` cells.
    QString respuesta(const Sentencia &sentencia, qsizetype columnas)
    {
        QStringList filas = this->filas(sentencia);
        for (QString &fila : filas)
            fila = fila.split(u'|').first(columnas).join(u'|');
        return filas.join(u';');
    }
};

NV_PRUEBA(PruebaSentencias)
#include "tst_sentencias.moc"
