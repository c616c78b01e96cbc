#include "control/Formulario.h"
#include "guion/Reproductor.h"
#include "platform/widgets/Mensajes.h"
#include "support/Programa.h"

#include <QDialog>
#include <QShortcut>
#include <QTemporaryFile>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace mostrador;
using namespace nv;

struct Terca : QDialog
{
    using QDialog::QDialog;
    void reject() override {}
};

/// Scripts over a form with an item box; "|" between their lines. What scripts that hold do is in tests/guiones.
class tst_Guion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_forma = std::make_unique<pruebas::Formulario>();
        m_forma->despues->setObjectName(u"despues"_s);
        const auto atajo = [this](const QString &tecla, auto hacer) {
            connect(new QShortcut(tecla, m_forma.get()), &QShortcut::activated, m_forma.get(), hacer);
        };
        atajo(u"Ctrl+L"_s, [this] { m_forma->despues->setText(u"  \"dos\" = 1"_s); });
        atajo(u"Ctrl+T"_s, [this] {
            QTimer::singleShot(300, m_forma.get(), [this] { m_forma->antes->setObjectName(u"tardia"_s); });
        });
        atajo(u"Ctrl+W"_s, [this] {
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
            mensajes::mostrar(m_forma.get(), u"Reloj"_s, u"de arena"_s, mensajes::Icono::Informacion);
            QGuiApplication::restoreOverrideCursor();
        });
        atajo(u"Ctrl+D"_s, [this] { Terca(m_forma.get()).exec(); });
        atajo(u"Ctrl+E"_s, [] { QEventLoop().exec(); });
    }

    void cleanup()
    {
        m_forma.reset();
        // A player that has left every loop has told the toolkit to run none.
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
    }

    /// Status first.
    void a_script_says_what_it_found_data()
    {
        QTest::addColumn<QString>("guion");
        QTest::addColumn<QString>("dice");
        const auto fila = [](const char *situacion, const QString &guion, const QString &dice) {
            QTest::newRow(situacion) << guion << dice;
        };
        fila(
            "0 any character, quotes and signs",
            u"enfoca despues|teclea \" Ñandú 🙂 '\"|comprueba despues = \" Ñandú 🙂 '\"|pulsa "
            u"Shift+Tab|comprueba "
            u"foco "
            u"txtCodigo|pulsa Ctrl+L|comprueba despues = \"  \"dos\" = 1\"|# nada|reinicia|comprueba despues:activo = 1"_s,
            u"> enfoca despues\n> teclea \" Ñandú"_s);
        fila("0 late target", u"pulsa Ctrl+T|enfoca tardia|comprueba tardia:activo = 1"_s, {});
        fila("0 box under the hourglass", u"pulsa Ctrl+W|comprueba mensaje \"Reloj\" \"de arena\"|responde Aceptar"_s,
             {});
        fila("1 check that does not hold", u"comprueba Text = 5|muestra Existe"_s,
             u"FALLO: línea 1: Text: hay «», se espera «5»\n> muestra Existe\nExiste = False\n"_s);
        fila("1 behind a window", u"teclea .COMUN|pulsa Enter|comprueba despues ="_s,
             u"no hay objeto ni propiedad despues\n"_s);
        fila("1 form left open", u"teclea .COMUN|pulsa Enter"_s,
             u"el guion acaba con una ventana abierta: Artículos\n"_s);
        fila("1 focus elsewhere", u"escribe despues 5"_s, u"foco: hay «txtCodigo», se espera «despues»\n"_s);
        fila("1 what was typed is not there", u"pon Locked True|escribe txtCodigo 5"_s, u"después de escribir"_s);
        fila("1 out of reach", u"pon Enabled False|clic txtCodigo"_s, u"txtCodigo no está a mano\n"_s);
        fila("1 statement that fails", u"sql SELECT Nada FROM Articulos"_s, u"FALLO: línea 1: "_s);
        fila("1 form that does not close", u"pulsa Ctrl+D"_s, u"el guion acaba con una ventana abierta"_s);
        fila("1 loop without a window", u"pulsa Ctrl+E|muestra Text"_s,
             u"línea 1: pulsa Ctrl+E no acaba; abierto: nada\n"_s);
        fila("1 too many keys", u"teclea 7|pulsa Tab Tab|teclas 1"_s, u"teclas 2, caracteres 1\nFALLO: línea 3"_s);
        fila("2 unknown command", u"|baila|muestra Text"_s, u"> baila\nGUION MALO: línea 2: no hay orden baila\n"_s);
        fila("2 unknown key", u"pulsa Intro|muestra Text"_s, u"línea 1: no hay tecla Intro\n"_s);
        fila("2 property that is only read", u"pon Existe True|muestra Text"_s, u"no hay propiedad Existe"_s);
        fila("2 nothing to compare", u"comprueba Text|muestra Text"_s, u"comprueba OBJETO = TEXTO"_s);
    }

    void a_script_says_what_it_found()
    {
        QFETCH(QString, guion);
        QFETCH(QString, dice);
        QTemporaryFile fichero;
        QVERIFY(fichero.open());
        fichero.write(guion.replace(u'|', u'\n').toUtf8());
        fichero.close();
        const QDateTime principio = QDateTime::currentDateTime();
        const int estado = tocar(fichero.fileName());
        QVERIFY2(*QTest::currentDataTag() == '0' + estado && m_transcripcion.contains(dice),
                 qPrintable(m_transcripcion));
        QVERIFY2(principio.msecsTo(QDateTime::currentDateTime()) < 5000, "stood still");
        QVERIFY(!QApplication::activeModalWidget() && !m_transcripcion.contains(u"> muestra Text"_s));
    }

    void commands_come_from_standard_input_as_they_are_written()
    {
        int tubo[2];
        QVERIFY(::pipe(tubo) == 0);
        const int anterior = ::dup(STDIN_FILENO);
        ::dup2(tubo[0], STDIN_FILENO);
        ::close(tubo[0]);
        const auto escribe = [&](const QByteArray &texto) {
            return ::write(tubo[1], texto, texto.size()) == texto.size();
        };
        QVERIFY(escribe("teclea 7\nteclea"));
        QTimer::singleShot(100, this, [&] {
            QCOMPARE(m_forma->caja()->text(), u"7"_s);
            QVERIFY(escribe(" 7\npulsa Enter\ncomprueba Nombre = DE OTRO"));
            ::close(tubo[1]);
        });
        const int estado = tocar(u"-"_s);
        ::dup2(anterior, STDIN_FILENO);
        ::close(anterior);
        QVERIFY2(estado == 0 && m_transcripcion.contains(u"DE OTRO"_s), qPrintable(m_transcripcion));
    }

private:
    int tocar(const QString &fichero)
    {
        const auto reinicia = [](std::optional<int>) {};
        const auto articulo = [this]() -> nvArticulo & { return *m_forma->articulo; };
        m_transcripcion.clear();
        QTextStream salida(&m_transcripcion);
        return guion::Reproductor({m_forma.get(), m_forma->conexion.get(), articulo, {}, reinicia, {}}, salida)
            .ejecutar(fichero);
    }

    std::unique_ptr<pruebas::Formulario> m_forma;
    QString m_transcripcion;
};

NV_PRUEBA(tst_Guion)
#include "tst_guion.moc"
