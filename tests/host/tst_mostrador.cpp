#include "Documento.h"
#include "Lineas.h"
#include "Mostrador.h"
#include "importacion/Csv.h"
#include "importacion/Importacion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/nvArticulo.h"
#include "platform/pickers/SelectorCodigo.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/Programa.h"
#include "support/Recortes.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QKeyEvent>
#include <QScreen>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace mostrador;
using namespace nv;
using namespace nv::pruebas;

/// The point of sale as its user meets it.
class tst_Mostrador : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_mostrador = std::make_unique<Mostrador>(m_opciones);
        m_mostrador->abrir();
        m_mostrador->aplicarOpciones();
        m_mostrador->show();
        QVERIFY(QTest::qWaitForWindowActive(m_mostrador.get()));
    }
    void cleanup() { m_mostrador.reset(); }

    void a_scanner_burst_gives_one_line_per_code_also_for_an_unknown_one()
    {
        QFile archivo(QStringLiteral(NV_RAIZ "/../shared/data/productos_reales.csv"));
        if (!archivo.open(QIODevice::ReadOnly))
            QSKIP("the file of real products is not here");
        const QByteArray csv = archivo.readAll();
        Conexion &conexion = m_mostrador->base().conexion();
        QCOMPARE(importarCsv(conexion, csv, QDate(2026, 11, 22)).resumen(),
                 u"Leídas 5422, importadas 5421, repetidas 1, con el dígito de control erróneo 4."_s);
        QStringList codigos;
        for (const RegistroCsv &registro : leerCsv(csv))
            codigos << registro.campos.constFirst();
        codigos = codigos.sliced(1, 200) << codigos[1];
        widget<QCheckBox>("chkEscaner").setChecked(true);
        teclear(codigos.join(u'\r') + u"\r9999999999994\r"_s);
        QVERIFY(!QApplication::activeModalWidget());
        const Lineas &lineas = m_mostrador->documento().lineas();
        QCOMPARE(lineas.numero(), codigos.size() + 1);
        QVERIFY(lineas.leido(lineas.numero()) == u"9999999999994" && lineas.enEspera() == 1);
        for (int i = 0; i < codigos.size(); ++i) {
            Sentencia s(u"SELECT Cod_Articulo FROM Articulos_CBarras WHERE Cod_Barras ='");
            Registros suyo = conexion.Abrir(s << ComoEscrito(codigos[i]) << u"'");
            QVERIFY(suyo.siguiente());
            QCOMPARE(lineas.rejilla().texto(i + 1, 0), QString::number(suyo.entero32(0)));
        }
    }

    void the_line_feed_of_a_slow_scanner_answers_no_question()
    {
        m_mostrador->base().empresa().PonerValor(u"OficinaCentral"_s, u"1"_s);
        const auto tecla = [](QWidget *donde, int cual, const QString &texto, quint64 cuando) {
            QKeyEvent evento(QEvent::KeyPress, cual, Qt::NoModifier, texto);
            evento.setTimestamp(cuando);
            QCoreApplication::sendEvent(donde, &evento);
        };
        Conductor conductor;
        conductor.con<QMessageBox>([&](QMessageBox &pregunta) {
            QTest::qWait(60); // until what was typed before is no longer dropped
            tecla(pregunta.focusWidget(), Qt::Key_Return, u"\r"_s, 1060);
            QVERIFY(pregunta.isVisible());
            pregunta.reject();
        });
        for (quint64 i = 0; const QChar c : u"/5901234123464\r"_s)
            tecla(QApplication::focusWidget(), c == u'\r' ? Qt::Key_Return : Qt::Key(c.unicode()), c, 1000 - 14 + i++);
        QVERIFY(conductor.terminado() && m_mostrador->documento().articulo()->Text().isEmpty());
    }

    void settings_are_the_companys_and_a_new_box_keeps_those_of_the_former()
    {
        for (const char *casilla : {"chkVital", "chkMultiResultado", "chkEsUlvaro", "chkOrdenCualidades"})
            widget<QCheckBox>(casilla).toggle();
        widget<QComboBox>("cboModelo").setCurrentIndex(3);
        widget<SelectorCodigo>("txtProveedor").setCodigo(7);
        widget<SelectorCodigo>("txtCliente").setCodigo(5);
        widget<QCheckBox>("chkPermisoReferencias").setChecked(false);
        nvArticulo &articulo = *m_mostrador->documento().articulo();
        QVERIFY(!articulo.Vital() && articulo.MultiResultado && articulo.Inicial() && articulo.Modelo() == 3);
        QVERIFY(articulo.Proveedor() == 7 && articulo.Cliente == 5);
        EmpresaBD empresa(m_mostrador->base().conexion(), 1);
        QVERIFY(empresa.ValorBooleano(u"EsUlvaro"_s) && !empresa.OrdenCualidades());
        m_mostrador->reiniciar(5);
        QVERIFY(m_mostrador->documento().articulo()->Modelo() == 5 && widget<QCheckBox>("chkVital").isChecked());
        QVERIFY(!widget<QCheckBox>("chkPermisoReferencias").isChecked());
    }

    void the_window_is_no_larger_than_the_screen()
    {
        const auto grande = conLetra(24);
        m_mostrador = std::make_unique<Mostrador>(m_opciones);
        m_mostrador->show();
        const QSize pantalla = m_mostrador->screen()->availableSize();
        QCOMPARE(m_mostrador->size().expandedTo(pantalla), pantalla);
    }

    void without_a_catalogue_the_window_still_works()
    {
        m_mostrador->poner(nullptr);
        QVERIFY(!m_mostrador->documento().articulo()->isEnabledTo(m_mostrador.get()));
        m_mostrador->abrir();
        teclear(u"12\r\r"_s);
        QCOMPARE(m_mostrador->documento().lineas().numero(), 1);
    }

    void a_file_that_is_missing_or_no_database_is_an_error_and_is_left_alone()
    {
        const QTemporaryDir carpeta;
        QFile archivo(carpeta.filePath(u"no.nv"_s));
        QVERIFY_EXCEPTION_THROWN(Base::abrirExistente(archivo.fileName()), Error);
        const Lugar vacia(Via::Odbc);
        const QString queja = vacia.falta().isEmpty()
                                  ? errorDe([&] { Base::enServidor(vacia.texto(), false, 0, nullptr); }).descripcion
                                  : u"faltan las tablas; --crear"_s;
        QVERIFY2(queja.contains(u"faltan las tablas; --crear"), qPrintable(queja));
        QVERIFY(!archivo.exists() && archivo.open(QIODevice::ReadWrite));
        archivo.write(QByteArray(5000, 'x'));
        archivo.close();
        QVERIFY_EXCEPTION_THROWN(Base::abrirExistente(archivo.fileName()), Error);
        QVERIFY(archivo.open(QIODevice::ReadOnly) && archivo.readAll() == QByteArray(5000, 'x'));
    }

    void options_that_make_no_sense_are_told()
    {
        for (const QString &mala :
             {u"--modelo 9"_s, u"--modelo dos"_s, u"--articulos 0"_s, u"--letra 2"_s, u"--base a --temporal"_s,
              u"--odbc a --temporal"_s, u"--crear"_s, u"--nada"_s, u"sobra"_s})
            QVERIFY_EXCEPTION_THROWN(Opciones((u"mostrador "_s + mala).split(u' ')), Error);
        const Opciones buenas(u"mostrador --modelo 0 --odbc a --crear --letra 18"_s.split(u' '));
        QVERIFY(buenas.modelo() == 0 && buenas.articulos() == 20000 && buenas.letra() == 18);
    }

private:
    template <class Widget>
    Widget &widget(const char *nombre) const
    {
        return *m_mostrador->findChild<Widget *>(QString::fromLatin1(nombre));
    }
    /// Each key to whatever has the focus by then, as a keyboard does.
    static void teclear(const QString &texto)
    {
        for (const QChar c : texto)
            QTest::keyEvent(QTest::Click, QApplication::focusWidget(),
                            c == u'\r' ? Qt::Key_Return : Qt::Key(c.unicode()));
    }

    const Opciones m_opciones{u"mostrador --temporal --articulos 60"_s.split(u' ')};
    std::unique_ptr<Mostrador> m_mostrador;
};

NV_PRUEBA(tst_Mostrador)
#include "tst_mostrador.moc"
