#include "common/Valores.h"
#include "common/sql/Patron.h"
#include "support/BaseDatos.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using nv::Moneda;
using nv::Sentencia;

template <class T>
constexpr bool Entra = requires(Sentencia s, T valor)
{
    s << valor;
};
static_assert(Entra<int> && !Entra<QString> && !Entra<const char16_t *> && !Entra<bool>, "typed text must not slip in");

/// Statements and what goes into them: texts, numbers, amounts.
class tst_Sentencia : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quotes_refuse_or_double()
    {
        const auto entre = [](auto valor) { return Sentencia(u"WHERE Ref ='") << valor << u"'"; };
        QCOMPARE(entre(nv::ComoEscrito(u"A%")).texto(), u"WHERE Ref ='A%'"_s);
        QCOMPARE(entre(nv::Doblado(u"L'O")).texto(), u"WHERE Ref ='L''O'"_s);
        QVERIFY(entre(nv::ComoEscrito(u"A")).defecto().isEmpty() && entre(nv::Doblado(u"L'O")).defecto().isEmpty());
        const QString nulo(QChar::Null);
        const Sentencia mala = entre(nv::ComoEscrito(u"O'R")); // spoils what it is a piece of
        BaseDatos base;
        for (const Sentencia &sentencia :
             {mala, entre(nv::ComoEscrito(nulo)), entre(nv::Doblado(nulo)), Sentencia(u"SELECT 1 FROM t ") << mala,
              (Sentencia(u"SELECT 1 FROM t ") << mala).desdeFrom(), Sentencia(mala) << entre(nv::ComoEscrito(u"A"))}) {
            QCOMPARE(numeroDeError([&] { base.conexion().Abrir(sentencia); }), nv::errores::ComillaSinCerrar);
            QCOMPARE(numeroDeError([&] { base.conexion().Ejecutar(sentencia); }), nv::errores::ComillaSinCerrar);
        }
    }

    void typed_numbers_must_be_numbers()
    {
        const auto defecto = [](QStringView texto) { return (Sentencia(u"=") << nv::NumeroEscrito(texto)).defecto(); };
        for (const QStringView numero : {u"00123", u"-1.5", u"+7", u".5", u"1234567890123456789012345"})
            QCOMPARE(defecto(numero), QString());
        for (const QStringView otro : {u"1 OR 1=1", u"1--", u"", u".", u"-", u"１", u"1.2.3", u"1,5"})
            QVERIFY2(!defecto(otro).isEmpty(), qPrintable(otro.toString()));
        for (const QStringList &caso : tabla(u"ABC→ABC%;ABC*→ABC%;*A*B→%A%B%;50%→50%%"_s))
            QCOMPARE(nv::patronDesdeComodines(caso[0]), caso[1]);
        // Points stand anywhere before the comma, one at a time.
        for (const QStringList &si :
             tabla(u"00012;  12  ;1.234.567;1.2.3;1.234,5;,5;5,;.5;5.;-7;+7;-,5;1E5;1d-5;1e+5;1,5D2"_s))
            QVERIFY2(nv::esNumerico(si[0]), qPrintable(si[0]));
        for (const QStringList &no :
             tabla(u"1,234.5;1,2,3;1..2;--7;7-;1E;1E-;E5;1E5x;.,;-;1 2;&H10;5€;١٢٣;１２;\t1;1/;1:;"_s))
            QVERIFY2(!nv::esNumerico(no[0]), qPrintable(no[0]));
    }

    void knows_its_from_and_its_order()
    {
        Sentencia busqueda(u"SELECT  TOP 150 a.From_, x FROM Articulos a WHERE a.Codigo IN (SELECT c FROM t)");
        busqueda << nv::Orden(u" ORDER BY a.Codigo");
        const QString desde = u"FROM Articulos a WHERE a.Codigo IN (SELECT c FROM t)"_s;
        QCOMPARE(busqueda.desdeFrom().texto(), desde + u" ORDER BY a.Codigo"_s);
        QCOMPARE(busqueda.desdeFrom().sinOrden().texto(), desde);
        QVERIFY(Sentencia(u"select 1 from t").desdeFrom().vacia());
        Sentencia copia(u"INSERT INTO t SELECT 1 ");
        copia << busqueda.desdeFrom();
        QCOMPARE(copia.sinOrden().sinOrden().texto(), u"INSERT INTO t SELECT 1 "_s + desde);
        QVERIFY(!copia.ordenPrescindible());
        copia.hacerOrdenPrescindible();
        QVERIFY(copia.ordenPrescindible() && !copia.sinOrden().ordenPrescindible());
    }

    void amounts_are_exact()
    {
        const auto m = [](QStringView texto) { return Moneda::deTexto(texto); };
        QCOMPARE(m(u"0.1") + m(u"0.2") - m(u"0.3"), Moneda());
        QCOMPARE(Moneda::deReal(0.1 + 0.2), m(u"0.3"));
        // 9.99 × 21 % = 2.0979, rounded to cents before it is added to anything.
        QCOMPARE(m(u"9.99").porcentaje(Moneda::deUnidades(21), 2), m(u"2.10"));
        QCOMPARE(m(u"-0.5").porcentaje(Moneda::deUnidades(1), 2), m(u"-0.01"));
        const Moneda mucho = Moneda::deUnidades(900'000'000'000'000);
        QCOMPARE(mucho.porcentaje(Moneda::deUnidades(50), 4), Moneda::deUnidades(450'000'000'000'000));
        QCOMPARE(numeroDeError([&] { mucho.porcentaje(Moneda::deUnidades(200), 2); }), nv::errores::Desbordamiento);
        QCOMPARE(numeroDeError([] { Moneda::deReal(1e15); }), nv::errores::Desbordamiento);
        for (const QStringList &caso :
             tabla(u"2.675→2→2,68;-2.675→2→-2,68;0→2→0,00;2.5→0→3;-2.49→0→-2;-0.05→4→-0,0500;3→6→3,000000;7→-1→7"_s))
            QCOMPARE(m(caso[0]).texto(caso[1].toInt()), caso[2]);
        for (const QStringList &caso :
             tabla(u"1234567.5→1.234.567,50;-123.4567→-123,4567;-1234→-1.234,00;123→123,00;0.125→0,125"_s))
            QCOMPARE(m(caso[0]).textoAgrupado(), caso[1]);
        for (const QStringList &caso : tabla(u"12.5→12,5;100→100;-0.0001→-0,0001;0→0"_s))
            QVERIFY(m(caso[0]).textoCorto() == caso[1] && m(caso[0]).textoSql() == caso[0]);
        for (const QStringList &caso :
             tabla(u" 10.5000 "
                   u"→105000;-0.00005→-1;0.000049→0;0.000095→1;.5→5000;5.→50000;1.5e2→1500000;2E1→200000;+7→70000;"
                   u"922337203685477.5807→9223372036854775807"_s))
            QCOMPARE(Moneda::deTexto(caso[0]).diezmilesimas(), caso[1].toLongLong());
        for (const QStringView malo : {u"1,5", u"", u"-", u".", u"e5", u"1.2.3", u"1 2", u"--1", u"/", u":"})
            QCOMPARE(numeroDeError([&] { Moneda::deTexto(malo); }), nv::errores::NoCoinciden);
        for (const QStringView largo : {u"922337203685477.5808", u"99999999999999999999", u"1e30"})
            QCOMPARE(numeroDeError([&] { Moneda::deTexto(largo); }), nv::errores::Desbordamiento);
    }

    void val_takes_the_leading_number_that_fits()
    {
        for (const QStringList &caso : tabla(
                 u"  00123 →123;ABC→0;12AB→12;1\t2\n3 4→1234;12.50→12.5;1.2.3→1.2;12,5→12;1E3→1000;1e+3→1000;1E→1;"
                 u"123456789012345678901→123456789012345678901;25D-3→0.025;12.5e1→125;1.25E1→12.5;100→100;0.5→0.5;-0→0;"
                 u"-007→-7;+5→5;1E-400→0;→0"_s)) {
            QCOMPARE(nv::ValTexto(caso[0]), caso[1]);
            QCOMPARE(nv::Val(caso[0]), caso[1].toDouble());
        }
        QVERIFY(nv::ValEntero16(u"32767") == 32767 && nv::ValEntero32(u"-2147483648") == INT_MIN);
        QCOMPARE(nv::ValEntero32(u"2.5") + nv::ValEntero32(u"-3.5"), 3 - 4);
        QCOMPARE(nv::ValTexto(u"1E308"), u'1' + QString(308, u'0'));
        for (const auto &operacion : std::initializer_list<std::function<void()>>{
                 [] { nv::ValEntero16(u"32768"); }, [] { nv::ValEntero16(u"-32769"); }, [] { nv::Val(u"9E999999999"); },
                 [] { nv::ValEntero32(u"8412345678905"); }, [] { nv::ValTexto(u"1E309"); },
                 [] { nv::estrecho<qint16>(40000); }, [] { nv::estrecho<qint16>(-40000); }})
            QCOMPARE(numeroDeError(operacion), nv::errores::Desbordamiento);
    }

    /// As other programs may have written them.
    void settings_and_results_are_read()
    {
        for (const QStringView si : {u"1", u"-1", u"True", u"verdadero", u"SÍ", u"si", u" 2 "})
            QVERIFY2(nv::comoBooleano(si), qPrintable(si.toString()));
        for (const QStringView no : {u"0", u"", u"False", u"no", u"abc", u"1x"})
            QVERIFY2(!nv::comoBooleano(no), qPrintable(no.toString()));
        BaseDatos base;
        nv::Registros fila =
            base.conexion().Abrir(nv::Sentencia(u"SELECT '05/11/2026', ' 5/11/2026 9:30', '2026-11-05T09:30', "
                                                u"'2026-11-05 00:00:00.000', 'x', '', NULL, '99999' AS Tarifa"));
        QVERIFY(fila.siguiente());
        for (int i = 0; i < 8; ++i)
            QCOMPARE(fila.fechaO(i), i < 4 ? QDate(2026, 11, 5) : QDate());
        const nv::Error grande = errorDe([&] { fila.entero16(7); });
        QCOMPARE(grande.numero, nv::errores::Desbordamiento);
        QCOMPARE(grande.descripcion, u"El número 99999 se sale de lo que cabe (Tarifa)."_s);
        QVERIFY(fila.entero32(7) == 99999 && fila.booleano(7) && fila.booleanoO(7));
        QVERIFY(fila.entero32O(6) == 0 && fila.entero16O(6) == 0 && !fila.booleanoO(6) && fila.monedaO(6).esCero());
    }
};

NV_PRUEBA(tst_Sentencia)
#include "tst_sentencia.moc"
