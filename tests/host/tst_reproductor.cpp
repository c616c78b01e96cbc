#include "control/Formulario.h"
#include "guion/Reproductor.h"

#include <QLabel>
#include <QShortcut>
#include <QTemporaryDir>
#include <unistd.h>

using namespace Qt::StringLiterals;
using nv::Entorno;
using nv::Reproductor;

class tst_Reproductor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void keystrokes_resolve_a_code_and_move_the_focus();
    void commands_run_inside_the_windows_that_others_open();
    void shortcuts_come_first_and_any_character_can_be_typed();
    void a_target_that_comes_late_is_waited_for();
    void restarting_closes_what_is_open();
    void a_broken_script_says_so_data();
    void a_broken_script_says_so();
    void commands_come_from_standard_input_as_they_are_written();

private:
    int toca(const QByteArray &guion);

    std::unique_ptr<nv::pruebas::Formulario> m_forma;
    QString m_transcripcion;
    int m_reinicios = 0;
};

void tst_Reproductor::init()
{
    m_forma = std::make_unique<nv::pruebas::Formulario>();
    m_forma->despues->setObjectName(u"despues"_s);
    m_reinicios = 0;
}

void tst_Reproductor::cleanup()
{
    m_forma.reset();
}

int tst_Reproductor::toca(const QByteArray &guion)
{
    QTemporaryDir carpeta;
    const QString ruta = carpeta.filePath(u"a.guion"_s);
    QFile fichero(ruta);
    if (guion != "-" && fichero.open(QIODevice::WriteOnly))
        fichero.write(guion);
    fichero.close();
    Entorno entorno;
    entorno.ventana = m_forma.get();
    entorno.articulo = m_forma->articulo;
    entorno.conexion = m_forma->conexion.get();
    entorno.ponEmpresa = [this](const QString &clave, const QString &valor) {
        m_forma->empresa.valores[clave] = valor;
    };
    // As the host does: another box in the place of the former one.
    entorno.reinicia = [this](std::optional<int>) {
        ++m_reinicios;
        m_forma->despues->setFocus();
        delete std::exchange(m_forma->articulo, new nvArticulo(m_forma.get()));
        m_forma->articulo->setcEmpresa(&m_forma->empresa);
        m_forma->articulo->show();
        m_forma->articulo->setFocus();
    };
    m_transcripcion.clear();
    QTextStream salida(&m_transcripcion);
    Reproductor reproductor(entorno, salida);
    return reproductor.ejecutar(guion == "-" ? u"-"_s : ruta);
}

void tst_Reproductor::keystrokes_resolve_a_code_and_move_the_focus()
{
    QCOMPARE(toca("# a code\n"
                  "teclea 00012\n"
                  "comprueba foco txtCodigo\n"
                  "pulsa Enter\n"
                  "comprueba lblNombre = TORNILLO <M8> & TUERCA\n"
                  "comprueba Existe = True\n"
                  "comprueba foco despues\n"
                  "muestra Codigo\n"
                  "sql SELECT Codigo, CualidadX FROM Articulos WHERE Codigo = 12\n"),
             0);
    QVERIFY2(m_transcripcion.startsWith(u"> teclea 00012\n> comprueba foco txtCodigo\n"), qPrintable(m_transcripcion));
    QVERIFY2(m_transcripcion.contains(u"> muestra Codigo\nCodigo = 12\n"), qPrintable(m_transcripcion));
    QVERIFY2(m_transcripcion.endsWith(u"\n12 | 0\n"), qPrintable(m_transcripcion));
}

/// Question, form, a second form over it: each command from inside the loop of the one before.
void tst_Reproductor::commands_run_inside_the_windows_that_others_open()
{
    QCOMPARE(toca("teclea /999\n"
                  "pulsa Enter\n"
                  "comprueba mensaje \"¡ Atención !\" \"El código de barras especificado no existe. ¿Desea crearlo?\" "
                  "pregunta\n"
                  "responde Sí\n"
                  "comprueba ventana \"Códigos de Barras\"\n"
                  "teclea .COMUN\n"
                  "pulsa Enter\n"
                  "comprueba ventana \"Artículos\"\n"
                  "comprueba filas vsLineas = 2\n"
                  "rejilla vsLineas 0 0\n"
                  "pulsa Esc\n"
                  "comprueba ventana \"Códigos de Barras\"\n"
                  "pulsa Esc\n"
                  "comprueba Text =\n"),
             0);
    QCOMPARE(m_transcripcion.count(u"\nventana \"Códigos de Barras\"\n"_s), 1);
    QCOMPARE(m_transcripcion.count(u"\nventana \"Artículos\"\n"_s), 1);
    QVERIFY2(m_transcripcion.contains(u"> pulsa Enter\nmensaje \"¡ Atención !\" \"El código de barras especificado no "
                                      "existe. ¿Desea crearlo?\" pregunta [Sí, No]\n"),
             qPrintable(m_transcripcion));
    QVERIFY2(m_transcripcion.contains(u"Código | Descripción | Proveedor\n"), qPrintable(m_transcripcion));
}

void tst_Reproductor::shortcuts_come_first_and_any_character_can_be_typed()
{
    int pulsados = 0;
    QShortcut atajo(QKeySequence(u"Ctrl+L"_s), m_forma.get());
    connect(&atajo, &QShortcut::activated, this, [&pulsados] { ++pulsados; });
    QCOMPARE(toca("enfoca despues\n"
                  "teclea \" Ñandú 🙂 '\"\n"
                  "pulsa Ctrl+L\n"
                  "pulsa Shift+Tab\n"
                  "comprueba foco txtCodigo\n"),
             0);
    QCOMPARE(pulsados, 1);
    QCOMPARE(m_forma->despues->text(), u" Ñandú 🙂 '"_s);
}

void tst_Reproductor::a_target_that_comes_late_is_waited_for()
{
    QTimer::singleShot(300, m_forma.get(), [this] {
        auto *tardia = new QLabel(u"dos\nlíneas"_s, m_forma.get());
        tardia->setObjectName(u"tardia"_s);
        tardia->show();
    });
    QCOMPARE(toca("comprueba tardia = dos\\nlíneas\n"), 0);
}

void tst_Reproductor::restarting_closes_what_is_open()
{
    QCOMPARE(toca("teclea /999\npulsa Enter\nresponde Sí\nreinicia\n"
                  "comprueba foco txtCodigo\nteclea 12\npulsa Enter\ncomprueba Existe = True\n"),
             0);
    QCOMPARE(m_reinicios, 1);
}

void tst_Reproductor::a_broken_script_says_so_data()
{
    QTest::addColumn<QByteArray>("guion");
    QTest::addColumn<int>("estado");
    QTest::addColumn<QString>("dice");
    QTest::newRow("a check that does not hold lets the rest run")
        << QByteArray("comprueba Text = 5\nmuestra Existe\n") << 1
        << u"> comprueba Text = 5\nFALLO: línea 1: Text: hay «», se espera «5»\n> muestra Existe\nExiste = False\n"_s;
    QTest::newRow("a form left open") << QByteArray("teclea .COMUN\npulsa Enter\n") << 1
                                      << u"FALLO: el guion acaba con una ventana abierta: Artículos\n"_s;
    QTest::newRow("a question left open") << QByteArray("teclea /999\npulsa Enter\n") << 1
                                          << u"FALLO: el guion acaba con una ventana abierta: ¡ Atención !\n"_s;
    QTest::newRow("an unknown command stops it")
        << QByteArray("\nbaila\nmuestra Text\n") << 2 << u"> baila\nGUION MALO: línea 2: no hay orden baila\n"_s;
    QTest::newRow("an unknown key") << QByteArray("pulsa Intro\n") << 2
                                    << u"GUION MALO: línea 1: no hay tecla Intro\n"_s;
    QTest::newRow("a property that is only read")
        << QByteArray("pon Existe True\n") << 2 << u"no hay propiedad Existe que se pueda poner\n"_s;
    QTest::newRow("a statement that fails")
        << QByteArray("sql SELECT Nada FROM Articulos\n") << 1 << u"FALLO: línea 1: "_s;
}

void tst_Reproductor::a_broken_script_says_so()
{
    QFETCH(QByteArray, guion);
    QFETCH(int, estado);
    QFETCH(QString, dice);
    QCOMPARE(toca(guion), estado);
    QVERIFY2(m_transcripcion.contains(dice), qPrintable(m_transcripcion));
    QVERIFY(!m_transcripcion.contains(u"> muestra Text"));
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_Reproductor::commands_come_from_standard_input_as_they_are_written()
{
    int tubo[2];
    QVERIFY(::pipe(tubo) == 0);
    const int anterior = ::dup(STDIN_FILENO);
    ::dup2(tubo[0], STDIN_FILENO);
    ::close(tubo[0]);
    const auto escribir = [&tubo](const QByteArray &texto) {
        QCOMPARE(::write(tubo[1], texto.constData(), static_cast<std::size_t>(texto.size())), texto.size());
    };
    escribir("teclea 7\nteclea");
    QTimer::singleShot(100, this, [&] {
        QCOMPARE(m_forma->caja()->text(), u"7"_s);
        escribir(" 7\npulsa Enter\ncomprueba lblNombre = DE OTRO");
        ::close(tubo[1]);
    });
    const int estado = toca("-");
    ::dup2(anterior, STDIN_FILENO);
    ::close(anterior);
    QVERIFY2(estado == 0, qPrintable(m_transcripcion));
    QVERIFY(m_transcripcion.contains(u"> comprueba lblNombre = DE OTRO"));
}

QTEST_MAIN(tst_Reproductor)
#include "tst_reproductor.moc"
