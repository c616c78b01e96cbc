#include "support/BaseDatos.h"

#include "platform/datos/Cotejo.h"
#include "platform/datos/PatronLike.h"

#include <QtTest>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

/// The server's orders and its LIKE.
class PruebaCotejo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void spanish_order();
    void dates_data();
    void dates();
    void like_data();
    void like();
    void order_is_consistent();
    void prefix_range_loses_no_match();
    void functions_keep_the_order_of_their_column();
};

namespace {

std::string utf8(const QString &texto)
{
    return texto.toStdString();
}

int signo(int valor)
{
    return valor < 0 ? -1 : (valor > 0 ? 1 : 0);
}

/// Short texts over a few letters, so that near misses abound.
QString alAzar(std::minstd_rand &azar, QStringView letras, int largo)
{
    QString texto;
    const int cuantas = std::uniform_int_distribution<int>(0, largo)(azar);
    for (int i = 0; i < cuantas; ++i)
        texto += letras[std::uniform_int_distribution<qsizetype>(0, letras.size() - 1)(azar)];
    return texto;
}

} // namespace

void PruebaCotejo::spanish_order()
{
    // Ascending; "=" joins what is equal.
    const QStringList orden{u""_s,      u"-A"_s,    u"1"_s,   u"10"_s,  u"2"_s,     u"a=A=a  "_s, u"Á=á"_s,
                            u"ab=AB"_s, u"áb=ÁB"_s, u"abc"_s, u"az"_s,  u"b"_s,     u"c"_s,       u"ç"_s,
                            u"ce"_s,    u"n"_s,     u"nz"_s,  u"ñ=Ñ"_s, u"ñandú"_s, u"o"_s,       u"Ö"_s,
                            u"oz"_s,    u"u"_s,     u"ü=Ü"_s, u"z"_s,   u"€"_s};
    for (qsizetype i = 0; i < orden.size(); ++i) {
        for (qsizetype j = 0; j < orden.size(); ++j) {
            const QStringList unos = orden[i].split(u'=');
            const QStringList otros = orden[j].split(u'=');
            for (const QString &uno : unos) {
                for (const QString &otro : otros)
                    QVERIFY2(signo(nv::datos::cotejarTexto(utf8(uno), utf8(otro))) == (i < j ? -1 : (i > j ? 1 : 0)),
                             qPrintable(uno + u" / "_s + otro));
            }
        }
    }
}

void PruebaCotejo::dates_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<int>("orden");
    QTest::newRow("by year, not by day") << u"31/12/2025"_s << u"01/01/2026"_s << -1;
    QTest::newRow("blank before") << u" 22/11/2026"_s << u"22/11/2026 "_s << 0;
    QTest::newRow("ISO against day first") << u"2026-11-22"_s << u"22/11/2026"_s << 0;
    QTest::newRow("one digit") << u"1/2/2026"_s << u"01/02/2026"_s << 0;
    QTest::newRow("midnight is the day") << u"2026-11-22 00:00:00.000"_s << u"22/11/2026"_s << 0;
    QTest::newRow("within the day") << u"22/11/2026 09:30"_s << u"22/11/2026 10:00"_s << -1;
    QTest::newRow("evening before next day") << u"22/11/2026 23:59:59"_s << u"23/11/2026"_s << -1;
    QTest::newRow("empty comes first") << QString() << u"01/01/1900"_s << -1;
    QTest::newRow("month 13 is no date") << u"01/13/2026"_s << u"01/01/1900"_s << -1;
}

void PruebaCotejo::dates()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(int, orden);
    QCOMPARE(signo(nv::datos::cotejarFecha(utf8(a), utf8(b))), orden);
    QCOMPARE(signo(nv::datos::cotejarFecha(utf8(b), utf8(a))), -orden);
}

void PruebaCotejo::like_data()
{
    QTest::addColumn<QString>("patron");
    QTest::addColumn<QString>("casan");
    QTest::addColumn<QString>("noCasan");
    QTest::newRow("whole") << u"torn"_s << u"TORN|Torn  "_s << u"TORNI|ATORN|TÓRN"_s;
    QTest::newRow("begins") << u"BAÑ%"_s << u"bañera|BAÑ"_s << u"BANERA|ABAÑ"_s;
    QTest::newRow("contains") << u"%ñe%"_s << u"BAÑERA|ÑE"_s << u"BANERA|Ñ|"_s;
    QTest::newRow("ends, blanks do not count") << u"%ER"_s << u"TALLER|ERER|TALLER  "_s << u"ERA"_s;
    QTest::newRow("two pieces") << u"%A%A%"_s << u"AA|BABA"_s << u"A|BAB"_s;
    QTest::newRow("backs up") << u"%ABAC%D"_s << u"ABABACD|ABACABACDD"_s << u"ABABCD"_s;
    QTest::newRow("any character, whole letters") << u"_ñ_"_s << u"AÑO|ñÑñ|€ñ€"_s << u"AÑ|AÑOS"_s;
    QTest::newRow("percent then any") << u"%_B"_s << u"AB|ÁÉB"_s << u"B"_s;
    QTest::newRow("set") << u"[a-c]1"_s << u"A1|c1|Á1"_s << u"D1|Ñ1|1"_s;
    QTest::newRow("ñ lies between n and o") << u"[n-o]"_s << u"Ñ|n|O"_s << u"M|P"_s;
    QTest::newRow("set left out") << u"[^0-9]%"_s << u"A1|ñ"_s << u"1A|"_s;
    QTest::newRow("signs in a set") << u"10[%]"_s << u"10%"_s << u"100|10"_s;
    QTest::newRow("unclosed set") << u"A[B"_s << QString() << u"AB|A[B"_s;
    QTest::newRow("quotes and bars are plain") << u"%L'O\\%"_s << u"ZAPATO l'o\\réal"_s << u"LO"_s;
}

void PruebaCotejo::like()
{
    QFETCH(QString, patron);
    QFETCH(QString, casan);
    QFETCH(QString, noCasan);
    nv::datos::PatronLike compilado(utf8(patron));
    for (const QString &valor : casan.isEmpty() ? QStringList() : casan.split(u'|'))
        QVERIFY2(compilado.casa(utf8(valor)), qPrintable(valor));
    for (const QString &valor : noCasan.split(u'|'))
        QVERIFY2(!compilado.casa(utf8(valor)), qPrintable(valor));
}

void PruebaCotejo::order_is_consistent()
{
    std::minstd_rand azar(7);
    std::vector<std::string> textos;
    for (int i = 0; i < 150; ++i)
        textos.push_back(utf8(alAzar(azar, u"aAáÁnñÑo -1€", 4)));
    textos.emplace_back("\xC3");
    textos.emplace_back("\xF0\x9F");
    const auto menor = [](const std::string &a, const std::string &b) { return nv::datos::cotejarTexto(a, b) < 0; };
    std::sort(textos.begin(), textos.end(), menor);
    for (std::size_t i = 0; i < textos.size(); ++i) {
        for (std::size_t j = i + 1; j < textos.size(); ++j)
            QVERIFY(!menor(textos[j], textos[i]));
    }
}

void PruebaCotejo::prefix_range_loses_no_match()
{
    nv::pruebas::BaseDatos base;
    std::minstd_rand azar(11);
    const QStringView letras = u"aÁnÑoÖçC €-'ÿ";
    for (int i = 0; i < 400; ++i)
        base.ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, %1, '%2')"_s.arg(i).arg(
            alAzar(azar, letras, 4).replace(u"'"_s, u"''"_s)));
    const QString consulta = u"SELECT Codigo FROM Articulos WHERE Cod_Empresa =1 AND %1 LIKE '%2%3' ORDER BY Codigo"_s;
    int conFilas = 0;
    for (int i = 0; i < 200; ++i) {
        const QString patron = alAzar(azar, letras, 3).replace(u"'"_s, u"''"_s);
        const QString resto = i % 3 == 0 ? u"_%"_s : (i % 3 == 1 ? u"%"_s : QString());
        const QStringList conRango = base.filas(consulta.arg(u"Descripcion"_s, patron, resto));
        QCOMPARE(conRango, base.filas(consulta.arg(u"ISNULL(Descripcion,'')"_s, patron, resto)));
        conFilas += conRango.isEmpty() ? 0 : 1;
    }
    QVERIFY(conFilas > 50);
}

void PruebaCotejo::functions_keep_the_order_of_their_column()
{
    nv::pruebas::BaseDatos base;
    base.ejecutar(
        u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, FAlta) VALUES (1, 1, ' Ñora ', '5/11/2026')"_s);
    const QStringList condiciones{
        u"ISNULL(Descripcion,'') = ' ÑORA'"_s,         u"LTRIM(RTRIM(Descripcion)) = 'ñora'"_s,
        u"ISNULL(FAlta,'') = '2026-11-05'"_s,          u"ISNULL(FAlta,'') > '30/10/2026'"_s,
        u"REPLACE(Descripcion, 'Ñ', 'n') = ' NORA'"_s, u"LEN(Descripcion) = 5"_s};
    for (const QString &condicion : condiciones)
        QVERIFY2(base.filas(u"SELECT Codigo FROM Articulos WHERE "_s + condicion).size() == 1, qPrintable(condicion));
}

QTEST_GUILESS_MAIN(PruebaCotejo)
#include "tst_cotejo.moc"
