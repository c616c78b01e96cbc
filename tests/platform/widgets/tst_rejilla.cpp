#include "platform/widgets/Colores.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/Twips.h"
#include "support/Ventana.h"

#include <QAccessible>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace nv::pruebas;
using nv::Rejilla;

class tst_rejilla : public PruebaVentana
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m = new Rejilla;
        m_boton = new QPushButton(u"Aceptar"_s);
        m->setColumnas({{u"Código"_s, 900, Qt::AlignRight}, {u"Descripción"_s, 3000}});
        QVERIFY(abrir({m, m_boton}));
        m_ventana->resize(500, 300);
        m->setFocus();
        connect(m, &Rejilla::Intro, this, [this] { m_sucesos += u"intro "_s; });
        connect(m, &Rejilla::Espacio, this, [this] { m_sucesos += u"espacio "_s; });
        connect(m, &Rejilla::Caracter, this, [this](const QString &c) { m_sucesos += c + u' '; });
        connect(m, &Rejilla::FilaCambiada, this, [this](int f) { m_sucesos += u"%1 "_s.arg(f); });
        connect(m, &Rejilla::Clic, this, [this](int f, int c) { m_sucesos += u"clic %1,%2 "_s.arg(f).arg(c); });
        connect(m, &Rejilla::DobleClic, this, [this](int f, int c) { m_sucesos += u"doble %1,%2 "_s.arg(f).arg(c); });
        connect(m, &Rejilla::TituloPulsado, this, [this](int c) { m_sucesos += u"titulo %1 "_s.arg(c); });
        m_sucesos.clear();
    }

    void rows_move_by_keys_only_and_the_heading_can_be_current()
    {
        filas(10);
        QVERIFY(m->filas() == 11 && m->filaActual() == 0);
        pulsar(m, u"Down End Home"_s);
        m->setFilaActual(0);
        m_boton->setFocus();
        m->setFocus();
        QVERIFY2(m->filaActual() == 0 && !m->selectionModel()->hasSelection(), "the focus moves no row");
        m->setFilaActual(99);
        m->vaciar();
        QVERIFY(m->filaActual() == 0 && m->filaSuperior() == 0);
        filas(1);
        m->setFilaActual(1);
        m->setColumnas({{u"A"_s}});
        m->vaciar();
        for (const bool redibujo : {false, false, true, true, true, false}) { // they nest
            m->setRedibujo(redibujo);
            m_sucesos += m->viewport()->updatesEnabled() ? u'+' : u'-';
        }
        QCOMPARE(m_sucesos, u"1 10 1 0 10 0 1 0 ---++-"_s);
    }

    void keys_and_mouse_reach_the_dialog_once_and_before_the_row_moves()
    {
        filas(3);
        m_boton->setDefault(true);
        connect(m_boton, &QPushButton::clicked, this, [this] { m_sucesos += u"boton "_s; });
        QTest::keyClick(m, Qt::Key_Enter, Qt::KeypadModifier);
        repetir(m, Qt::Key_Return, u"\r"_s);
        teclear(m, u" 7ñ*"_s);
        for (const int con : {int(Qt::ALT), int(Qt::CTRL) | int(Qt::ALT), int(Qt::SHIFT)}) // the second is AltGr
            QTest::sendKeyEvent(QTest::Click, m, Qt::Key_At, u"@"_s, Qt::KeyboardModifiers(con));
        QCOMPARE(m_sucesos, u"intro espacio 7 ñ * @ @ "_s);
        m->setFilaActual(1);
        QString vistas;
        m->alPulsar = [&](QKeyEvent *e) {
            vistas += QString::number(m->filaActual());
            return e->key() == Qt::Key_Up;
        };
        pulsar(m, u"Down Up Tab"_s);
        QVERIFY(m->filaActual() == 2 && vistas == u"12" && m_boton->hasFocus());
        m_sucesos.clear();
        const QPoint celda = m->visualRect(m->model()->index(0, 1)).center();
        const QPoint debajo(10, m->viewport()->height() - 3); // nobody's cell
        using enum Qt::MouseButton;
        for (const auto &[boton, donde] :
             {std::pair{RightButton, QPoint(9, 9)}, {LeftButton, debajo}, {LeftButton, celda}})
            for (const auto raton : {QTest::MouseClick, QTest::MouseDClick})
                QTest::mouseEvent(raton, m->viewport(), boton, {}, donde);
        QTest::mouseClick(m->horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 8));
        QCOMPARE(m_sucesos, u"1 clic 1,1 doble 1,1 titulo 0 "_s);
    }

    void scrolling_tells_each_step_and_appending_from_there_does_not_recur()
    {
        filas(50);
        m->setFilaActual(1);
        QString pasos;
        connect(m, &Rejilla::Desplazada, this, [&](int antes, int ahora) {
            pasos += u"%1>%2 "_s.arg(antes).arg(ahora);
            if (ahora > antes) {
                m->anadir({u"x"_s, u"y"_s});
                m->verticalScrollBar()->setValue(m->verticalScrollBar()->value() + 1);
            }
        });
        m->verticalScrollBar()->setValue(1);
        QVERIFY(m->filas() == 52 && m->filaSuperior() == 3);
        m->verticalScrollBar()->setValue(0);
        QCOMPARE(pasos, u"1>2 3>1 "_s);
        m->setFilaActual(51);
        QVERIFY(pasos.startsWith(u"1>2 3>1 1>"));
        pasos.clear();
        m->ordenar([](int a, int b) { return a > b; });
        QVERIFY2(m->texto(m->filaActual(), 0) == u"x" && m->filaActual() < 9 && m->filaSuperior() < 9, "in view");
        m->setColumnas({{u"A"_s, 9000}, {u"B"_s, 9000}});
        pulsar(m, u"Right Right Left"_s);
        QVERIFY(m->horizontalScrollBar()->value() == m->horizontalScrollBar()->singleStep() && pasos.isEmpty());
    }

    void cells_hold_texts_and_colours_and_are_sorted_with_them()
    {
        m->anadir(std::vector<nv::FilaRejilla>{{u"3"_s, u"b"_s}, {u"1"_s, u"a"_s}, {u"2"_s, u"b"_s}, {u"4"_s}});
        m->setColorTexto(1, 0, Qt::red);
        m->setColorTexto(1, 1, Qt::blue);
        m->setColorTexto(1, 1, QColor());
        m->setColorFondo(1, 0, Qt::yellow);
        m->setTexto(4, 1, u"a"_s);
        m->setFilaActual(3);
        m->ordenar([this](int a, int b) { return m->texto(a, 1) < m->texto(b, 1); });
        QVERIFY(m->filaActual() == 4 && m->selectionModel()->isRowSelected(3));
        QCOMPARE(m->texto(1, 0) + m->texto(2, 0) + m->texto(3, 0) + m->texto(4, 0), u"1432"_s);
        const auto color = [this](int fila, int c, int papel) { return m->model()->index(fila - 1, c).data(papel); };
        QVERIFY(color(3, 0, Qt::ForegroundRole) == QColor(Qt::red) &&
                color(3, 0, Qt::BackgroundRole) == QColor(Qt::yellow));
        for (const auto &[fila, columna] : {std::pair{1, 0}, {3, 1}}) // that of others, and its own again
            QVERIFY(!color(fila, columna, Qt::ForegroundRole).isValid() &&
                    !color(fila, columna, Qt::BackgroundRole).isValid());
        for (const auto &[fila, columna] : {std::pair{0, -1}, {0, 2}, {9, 0}, {0, 1}})
            m->setTexto(fila, columna, u"Marca"_s);
        for (const int columna : {1, 2})
            m->setTextoColumna(columna, u"1"_s);
        QCOMPARE(m->texto(0, 0) + m->texto(0, 1) + m->texto(0, 2) + m->texto(9, 0) + m->texto(1, 2), u"CódigoMarca"_s);
        QCOMPARE(m->texto(1, 1) + m->texto(4, 1), u"11"_s);
    }

    void cells_are_painted_on_one_line_with_ticks_in_the_middle()
    {
        m->setAlternatingRowColors(false);
        for (const QString &texto : {u"u\nd"_s, u"u\rd"_s, u"u\u2028d"_s, u"u d"_s, u"1"_s, u"0"_s})
            m->anadir({texto, texto});
        const auto pixeles = [this](int fila, int columna) {
            return m->viewport()->grab(m->visualRect(m->model()->index(fila - 1, columna))).toImage();
        };
        QVERIFY(pixeles(1, 0) == pixeles(4, 0) && pixeles(2, 0) == pixeles(4, 0) && pixeles(3, 0) == pixeles(4, 0));
        m->setColumnaCasilla(1);
        QVERIFY(pixeles(1, 1) == pixeles(6, 1) && pixeles(5, 1) != pixeles(6, 1) && m->texto(5, 1) == u"1");
        QVERIFY2(pixeles(5, 1).copy(0, 0, 90, 9) == pixeles(6, 1).copy(0, 0, 90, 9), "in the middle of its column");
        const QPoint celda = m->visualRect(m->model()->index(3, 0)).center();
        QCOMPARE(ayuda(m->viewport(), celda), QString());
        m->setTexto(4, 0, u"Un <texto> que no cabe en su columna"_s);
        QCOMPARE(ayuda(m->viewport(), celda), u"<p>Un &lt;texto&gt; que no cabe en su columna</p>"_s);
    }

    void letters_can_be_read_on_any_background_in_a_dark_theme()
    {
        const QColor oscuro(30, 30, 30);
        QPalette tema;
        tema.setColor(QPalette::Base, oscuro);
        tema.setColor(QPalette::Text, Qt::white);
        m->setPalette(tema);
        filas(1);
        m->setFilaActual(0);
        for (const QColor &fondo : {QColor(255, 255, 153), QColor(255, 128, 0), QColor(0, 0, 90), oscuro}) {
            for (const QColor &letra : {QColor(), QColor(192, 0, 0)}) {
                m->setColorFondo(1, 1, fondo);
                m->setColorTexto(1, 1, letra);
                const QImage celda = m->viewport()->grab(m->visualRect(m->model()->index(0, 1))).toImage();
                double mejor = 1;
                for (int i = 0; i < celda.width() * celda.height(); ++i)
                    mejor = std::max(
                        mejor, nv::colores::contraste(celda.pixelColor(i % celda.width(), i / celda.width()), fondo));
                QVERIFY2(mejor > 4, qPrintable(fondo.name() + letra.name()));
            }
        }
    }

    void focus_is_seen_and_the_current_row_keeps_what_its_colours_say()
    {
        filas(2);
        const QColor oferta(255, 255, 153), baja(192, 0, 0);
        m->setColorFondo(1, 1, oferta);
        m->setColorTexto(1, 0, baja);
        m->setNota(1, u"De baja"_s);
        const auto cuantos = [this](int columna, auto cumple) {
            const QImage celda = m->viewport()->grab(m->visualRect(m->model()->index(0, columna))).toImage();
            int suma = 0;
            for (int i = 0; i < celda.width() * celda.height(); ++i)
                suma += cumple(celda.pixelColor(i % celda.width(), i / celda.width())) ? 1 : 0;
            return suma;
        };
        for (const int fila : {0, 1}) {
            m->setFilaActual(fila);
            m->setFocus();
            const QImage con = m->grab().toImage();
            m_boton->setFocus();
            const QImage sin = m->grab().toImage();
            QVERIFY2(con.copy(4, 4, 200, 40) != sin.copy(4, 4, 200, 40), "not its frame alone");
            m->setFocus();
            QVERIFY(cuantos(1, [&](const QColor &c) { return c == oferta; }) > m->columnWidth(1));
            QVERIFY(cuantos(0, [](const QColor &c) { return c.red() > 150 && c.green() < 60 && c.blue() < 60; }) > 2);
        }
        const QPoint celda = m->visualRect(m->model()->index(0, 0)).center();
        QCOMPARE(ayuda(m->viewport(), celda), u"<p>De baja</p>"_s);
        QCOMPARE(QAccessible::queryAccessibleInterface(m)->tableInterface()->cellAt(0, 0)->text(QAccessible::Name),
                 u"1, De baja"_s);
    }

    void last_visible_column_fills_the_width()
    {
        const auto lleno = [this] {
            QCoreApplication::processEvents();
            return m->horizontalHeader()->length() == m->viewport()->width() && !m->horizontalScrollBar()->isVisible();
        };
        const auto ancho = [this](int twips) { return nv::twips::conLetra(twips, m); };
        m->setColumnas({{u"A"_s, 900}, {u"B"_s, 1500}, {u"C"_s, 900, Qt::AlignLeft, true}});
        QVERIFY2(m->isColumnHidden(2) && lleno(), "hidden from the start takes no width");
        m->setColumnaOculta(2, false);
        m->ensanchar(0, u"A"_s);
        QVERIFY(lleno() && m->columnWidth(0) == ancho(900) && m->columnWidth(1) == ancho(1500));
        m->ensanchar(0, u"Un texto más ancho que ella"_s);
        QVERIFY(lleno() && m->columnWidth(0) > ancho(900));
        filas(1);
        for (const int columna : {2, 0})
            m->setColumnaOculta(columna, true);
        m->resize(m->width() - 60, m->height());
        m->setFilaActual(1);
        QVERIFY(lleno() && m->currentIndex().column() == 1);
        filas(100);
        QTRY_VERIFY(lleno() && m->verticalScrollBar()->isVisible());
        m->vaciar();
        QTRY_VERIFY(lleno() && !m->verticalScrollBar()->isVisible());
        m->setColumnas({{u"A"_s}, {u"B"_s, 900}});
        for (const bool oculta : {true, false})
            m->setColumnaOculta(1, oculta);
    }

private:
    void filas(int cuantas)
    {
        for (int i = 1; i <= cuantas; ++i)
            m->anadir({QString::number(i), u"Artículo %1"_s.arg(i)});
    }

    Rejilla *m = nullptr;
    QPushButton *m_boton = nullptr;
    QString m_sucesos;
};

NV_PRUEBA(tst_rejilla)
#include "tst_rejilla.moc"
