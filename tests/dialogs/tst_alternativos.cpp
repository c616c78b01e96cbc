#include "dialogs/frmAlternativos_Eleccion.h"
#include "nvArticulo/Conexion.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"
#include "support/Programa.h"

#include <QApplication>
#include <QListWidget>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

class tst_Alternativos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void values_already_chosen_are_selected_data();
    void values_already_chosen_are_selected();
    void accept_returns_identifiers_and_texts_in_list_order();
    void letters_move_without_choosing();
    void cancel_keeps_what_came_in_data();
    void cancel_keeps_what_came_in();
    void list_grows_with_the_window();

private:
    void mostrar(frmAlternativos_Eleccion &dialogo, const std::function<void(frmAlternativos_Eleccion &)> &accion)
    {
        dialogo.cEmpresa = &m_empresa;
        dialogo.Conexion = &m_base->conexion();
        Conductor conductor;
        conductor.con<frmAlternativos_Eleccion>(accion);
        dialogo.MostrarModal();
    }
    static QListWidget *lista(QWidget &dialogo) { return dialogo.findChild<QListWidget *>(u"lstValores"_s); }

    std::unique_ptr<BaseDatos> m_base;
    EmpresaPrueba m_empresa;
};

void tst_Alternativos::init()
{
    m_base = std::make_unique<BaseDatos>();
    m_base->ejecutar(u"INSERT INTO Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES (0, 0, 3, 'ROJO'),"
                     u" (0, 0, 7, 'AZUL'), (0, 0, 12, 'CIELO, CLARO'), (0, 0, 123, 'VERDE'), (1, 0, 1, 'AJENO'),"
                     u" (0, 1, 1, 'AJENO')"_s);
}

void tst_Alternativos::values_already_chosen_are_selected_data()
{
    QTest::addColumn<QString>("ids");
    QTest::addColumn<QString>("elegidos");
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("12 is not 123") << u",12,"_s << u"CIELO, CLARO"_s;
    QTest::newRow("without its commas") << u"12"_s << QString();
    QTest::newRow("the first one of the list is not chosen by being current") << u",123,"_s << u"VERDE"_s;
}

void tst_Alternativos::values_already_chosen_are_selected()
{
    QFETCH(const QString, ids);
    QFETCH(const QString, elegidos);
    frmAlternativos_Eleccion dialogo(nullptr);
    dialogo.Ids = ids;
    mostrar(dialogo, [&](frmAlternativos_Eleccion &d) {
        QStringList textos;
        QStringList marcados;
        for (int i = 0; i < lista(d)->count(); ++i) {
            textos << lista(d)->item(i)->text();
            if (lista(d)->item(i)->isSelected())
                marcados << textos.back();
        }
        QCOMPARE(textos.join(u'|'), u"AZUL|CIELO, CLARO|ROJO|VERDE"_s);
        QCOMPARE(marcados.join(u'|'), elegidos);
        d.close();
    });
}

void tst_Alternativos::accept_returns_identifiers_and_texts_in_list_order()
{
    frmAlternativos_Eleccion dialogo(nullptr);
    dialogo.Ids = u",3,"_s;
    mostrar(dialogo, [](frmAlternativos_Eleccion &d) {
        QTest::keyClick(lista(d), Qt::Key_Space); // AZUL, the current one
        QTest::keyClick(lista(d), Qt::Key_Down);
        QTest::keyClick(lista(d), Qt::Key_Space);
        if (const QString carpeta = qEnvironmentVariable("NV_CAPTURAS"); !carpeta.isEmpty())
            d.grab().save(carpeta + u"/alternativos.png"_s);
        QTest::keyClick(lista(d), Qt::Key_Return);
    });
    QVERIFY(dialogo.Aceptado);
    QCOMPARE(dialogo.Ids, u",7,12,3,"_s);
    QCOMPARE(dialogo.Valores, u"AZUL,CIELO, CLARO,ROJO"_s);

    frmAlternativos_Eleccion ninguno(nullptr);
    mostrar(ninguno, [](frmAlternativos_Eleccion &d) {
        QTest::mouseClick(d.findChild<QWidget *>(u"cmdAceptar"_s), Qt::LeftButton);
    });
    QVERIFY(ninguno.Aceptado);
    QCOMPARE(ninguno.Ids, u","_s);
    QCOMPARE(ninguno.Valores, QString());
}

void tst_Alternativos::letters_move_without_choosing()
{
    frmAlternativos_Eleccion dialogo(nullptr);
    dialogo.Ids = u",3,"_s;
    mostrar(dialogo, [](frmAlternativos_Eleccion &d) {
        QTest::keyClick(lista(d), Qt::Key_R);
        QCOMPARE(lista(d)->currentItem()->text(), u"ROJO"_s);
        QTest::qWait(QApplication::keyboardInputInterval() + 50);
        QTest::keyClick(lista(d), Qt::Key_V);
        QCOMPARE(lista(d)->currentItem()->text(), u"VERDE"_s);
        auto *aceptar = d.findChild<QWidget *>(u"cmdAceptar"_s);
        aceptar->setFocus();
        QTest::keyClick(aceptar, Qt::Key_Return);
    });
    QVERIFY(dialogo.Aceptado);
    QCOMPARE(dialogo.Ids, u",3,"_s);
}

void tst_Alternativos::cancel_keeps_what_came_in_data()
{
    QTest::addColumn<std::function<void(QWidget &)>>("cancelar");
    using Accion = std::function<void(QWidget &)>;
    QTest::newRow("button") << Accion(
        [](QWidget &d) { QTest::mouseClick(d.findChild<QWidget *>(u"cmdCancelar"_s), Qt::LeftButton); });
    QTest::newRow("Esc") << Accion([](QWidget &d) { QTest::keyClick(lista(d), Qt::Key_Escape); });
    QTest::newRow("cross") << Accion([](QWidget &d) { d.close(); });
}

void tst_Alternativos::cancel_keeps_what_came_in()
{
    QFETCH(const std::function<void(QWidget &)>, cancelar);
    frmAlternativos_Eleccion dialogo(nullptr);
    dialogo.Ids = u",3,"_s;
    mostrar(dialogo, [&](frmAlternativos_Eleccion &d) {
        lista(d)->item(0)->setSelected(true);
        cancelar(d);
    });
    QVERIFY(!dialogo.Aceptado);
    QCOMPARE(dialogo.Ids, u",3,"_s);
    QVERIFY(!dialogo.isVisible());
}

void tst_Alternativos::list_grows_with_the_window()
{
    frmAlternativos_Eleccion dialogo(nullptr);
    mostrar(dialogo, [](frmAlternativos_Eleccion &d) {
        const QSize antes = lista(d)->size();
        d.resize(d.size() + QSize(50, 70));
        QTest::qWait(20);
        QCOMPARE(lista(d)->size(), antes + QSize(50, 70));
        d.close();
    });
}

NV_PRUEBA(tst_Alternativos)
#include "tst_alternativos.moc"
