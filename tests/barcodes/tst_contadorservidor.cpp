#include "barcodes/clsArticulo_CBarra.h"
#include "common/Error.h"
#include "support/BaseDatos.h"
#include "support/Doble.h"
#include "support/EmpresaPrueba.h"

#include <QTest>

#include <array>
#include <barrier>
#include <set>
#include <thread>

using namespace Qt::StringLiterals;
using nv::Sentencia;
using nv::pruebas::BaseOdbc;

/// The counter of automatic barcodes where no lock holds a row that is not there yet.
class tst_ContadorServidor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void second_to_make_the_counter_starts_again_data() { servidores(); }
    void second_to_make_the_counter_starts_again();
    void two_workstations_share_no_number_data() { servidores(); }
    void two_workstations_share_no_number();

private:
    static void servidores()
    {
        QTest::addColumn<bool>("enServidor");
        QTest::newRow("FreeTDS") << false;
        QTest::newRow("server") << true;
    }

    clsArticulo_CBarra nueva(nv::Conexion &conexion, qint32 articulo)
    {
        clsArticulo_CBarra barra;
        barra.setcEmpresa(&m_empresa);
        barra.setConexion(&conexion);
        barra.Cod_Articulo = articulo;
        return barra;
    }

    nv::pruebas::EmpresaPrueba m_empresa;
    nv::pruebas::Doble m_doble;
};

/// Between our look, which finds no row, and our write the other workstation makes it.
void tst_ContadorServidor::second_to_make_the_counter_starts_again()
{
    QFETCH(bool, enServidor);
    const BaseOdbc base(m_doble, enServidor);
    if (!base.hay())
        QSKIP("there is no such driver or server here");
    const std::unique_ptr<nv::Conexion> una = base.conectar();
    const std::unique_ptr<nv::Conexion> otra = base.conectar();
    struct Rival : nv::OyenteSentencias
    {
        std::function<void()> adelantarse;
        QStringList errores;
        void sentencia(const nv::SucesoSentencia &suceso) override
        {
            if (!suceso.error.isEmpty())
                errores << suceso.texto.section(u' ', 0, 2);
            if (adelantarse && suceso.texto.startsWith(u"UPDATE Contador_CBarras"_s))
                std::exchange(adelantarse, {})();
        }
    } rival;
    QString suyo;
    rival.adelantarse = [&] { suyo = nueva(*otra, 61).CrearAuto(); };
    una->escuchar(&rival);
    const QString numero = nueva(*una, 60).CrearAuto();
    una->dejarDeEscuchar(&rival);
    QCOMPARE(suyo, u"98100019"_s);
    QVERIFY2(numero.startsWith(u"9810002"_s), qPrintable(numero));
    QCOMPARE(rival.errores, QStringList{u"INSERT INTO Contador_CBarras"_s}); // it met the key
    QVERIFY(!una->enTransaccion());
    QCOMPARE(nv::pruebas::filasDe(*otra, u"SELECT Cod_Barras FROM Contador_CBarras"_s), QStringList{u"9810002"_s});
}

void tst_ContadorServidor::two_workstations_share_no_number()
{
    QFETCH(bool, enServidor);
    const BaseOdbc base(m_doble, enServidor);
    if (!base.hay())
        QSKIP("there is no such driver or server here");
    constexpr int PorPuesto = 30;
    std::array<QStringList, 2> emitidos;
    std::array<QString, 2> fallos;
    std::barrier salida(2);
    const auto emitir = [&](std::size_t puesto) {
        try {
            const std::unique_ptr<nv::Conexion> propia = base.conectar();
            salida.arrive_and_wait();
            for (int i = 0; i < PorPuesto; ++i) {
                auto barra = nueva(*propia, 1000 * static_cast<qint32>(puesto + 1) + i);
                barra.Cod_Barras = barra.CrearAuto();
                barra.Automatico = true;
                barra.Principal = true;
                barra.Unidades = 1;
                barra.Insertar();
                emitidos.at(puesto) << barra.Cod_Barras;
            }
        } catch (const nv::Error &error) {
            fallos.at(puesto) = error.descripcion;
            (void)salida.arrive();
        }
    };
    std::thread uno(emitir, 0U);
    std::thread dos(emitir, 1U);
    uno.join();
    dos.join();
    QCOMPARE(fallos[0] + fallos[1], QString());
    std::set<QString> distintos(emitidos[0].begin(), emitidos[0].end());
    distintos.insert(emitidos[1].begin(), emitidos[1].end());
    QCOMPARE(distintos.size(), std::size_t{2 * PorPuesto});
    QVERIFY2(distintos.rbegin()->startsWith(QString::number(9810000 + 2 * PorPuesto)), "no number is left out");
}

QTEST_MAIN(tst_ContadorServidor)
#include "tst_contadorservidor.moc"
