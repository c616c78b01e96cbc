#include "Base.h"
#include "Ventana.h"
#include "common/Error.h"
#include "control/nvArticulo.h"
#include "importacion/Csv.h"
#include "importacion/Importacion.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/nvCheckBox.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv;

/// The point of sale as its user meets it.
class tst_Ventana : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_base = Base::enTemporal(60, nullptr);
        m_ventana = std::make_unique<Ventana>();
        m_ventana->setBase(&m_base);
        m_ventana->show();
        QVERIFY(QTest::qWaitForWindowActive(m_ventana.get()));
    }

    void cleanup()
    {
        m_ventana.reset();
        m_base = Base();
    }

    void an_item_and_its_units_become_a_line_with_the_warehouse_price()
    {
        teclear(u"12\r2\r/8412345678905\r\r"_s);
        QCOMPARE(m_ventana->lineas(), 2);
        QCOMPARE(lineas().texto(1, 4), u"79,90"_s);
        QCOMPARE(m_ventana->total(), Moneda::deDiezmilesimas(848500));
        QCOMPARE(QApplication::focusWidget()->objectName(), u"txtCodigo"_s);
        lineas().setFilaActual(1);
        QTest::keyClick(&lineas(), Qt::Key_Delete);
        QCOMPARE(m_ventana->total(), Moneda::deDiezmilesimas(49500));
    }

    void units_without_an_item_add_nothing()
    {
        widget<QLineEdit>("txtUnidades").setFocus();
        teclear(u"3\r"_s);
        QCOMPARE(m_ventana->lineas(), 0);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"txtCodigo"_s);
    }

    void a_scanner_burst_gives_one_line_per_code_and_unknown_codes_none()
    {
        QFile archivo(QStringLiteral(NV_RAIZ "/../shared/data/productos_reales.csv"));
        if (!archivo.open(QIODevice::ReadOnly))
            QSKIP("the file of real products is not here");
        const QByteArray csv = archivo.readAll();
        importarCsv(m_base.conexion(), csv, QDate(2026, 11, 22));
        LectorCsv lector(csv);
        lector.siguiente();
        QStringList codigos;
        QString rafaga;
        while (codigos.size() < 200) {
            codigos << lector.siguiente()->constFirst();
            rafaga += codigos.constLast() + (codigos.size() % 50 == 0 ? u"\r9999999999994\r"_s : u"\r"_s);
        }
        widget<nvCheckBox>("chkEscaner").setChecked(true);
        teclear(rafaga);
        QCOMPARE(m_ventana->lineas(), codigos.size());
        QVERIFY(!QApplication::activeModalWidget());
        for (int i = 0; i < codigos.size(); ++i) {
            Sentencia s(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Barras ='");
            Registros suyo = m_base.conexion().Abrir(s << ComoEscrito(codigos[i]) << u"'");
            QVERIFY(suyo.siguiente());
            QCOMPARE(lineas().texto(i + 1, 0), QString::number(suyo.entero32(0)));
        }
    }

    void a_new_box_keeps_what_was_set_and_asks_for_the_permission_again()
    {
        m_ventana->articulo().setVital(false);
        m_ventana->articulo().setProveedor(7);
        const QPointer<nvArticulo> antes = &m_ventana->articulo();
        widget<nvCheckBox>("chkPermisoReferencias").setChecked(false);
        QVERIFY(!antes);
        QVERIFY(!m_ventana->articulo().Vital());
        QCOMPARE(m_ventana->articulo().Proveedor(), 7);
        m_ventana->articulo().setVital(true);
        // Denied is silent: no question comes up.
        m_ventana->articulo().setFocus();
        teclear(u".NOESTA\r"_s);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(m_ventana->articulo().Text(), QString());
    }

    void without_a_catalogue_the_window_still_works()
    {
        m_ventana->setBase(nullptr);
        QVERIFY(!m_ventana->articulo().isEnabledTo(m_ventana.get()));
        m_base = Base();
        m_base = Base::enTemporal(30, nullptr);
        m_ventana->setBase(&m_base);
        teclear(u"12\r\r"_s);
        QCOMPARE(m_ventana->lineas(), 1);
    }

    void a_file_that_is_missing_or_no_database_is_an_error_and_is_left_alone()
    {
        const QTemporaryDir carpeta;
        const QString ruta = carpeta.filePath(u"no.nv"_s);
        QVERIFY_EXCEPTION_THROWN(Base::abrirExistente(ruta), Error);
        QVERIFY(!QFile::exists(ruta));
        QFile archivo(ruta);
        QVERIFY(archivo.open(QIODevice::WriteOnly));
        const QByteArray contenido(5000, 'x');
        archivo.write(contenido);
        archivo.close();
        QVERIFY_EXCEPTION_THROWN(Base::abrirExistente(ruta), Error);
        QVERIFY(archivo.open(QIODevice::ReadOnly));
        QCOMPARE(archivo.readAll(), contenido);
    }

private:
    template <class Widget>
    Widget &widget(const char *nombre) const
    {
        return *m_ventana->findChild<Widget *>(QString::fromLatin1(nombre));
    }
    Rejilla &lineas() const { return widget<Rejilla>("vsLineas"); }
    /// Each key to whatever has the focus by then, as a keyboard does.
    void teclear(const QString &texto) const
    {
        for (const QChar c : texto) {
            if (c == u'\r')
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            else
                QTest::keyClicks(QApplication::focusWidget(), QString(c));
        }
    }

    Base m_base;
    std::unique_ptr<Ventana> m_ventana;
};

QTEST_MAIN(tst_Ventana)
#include "tst_ventana.moc"
