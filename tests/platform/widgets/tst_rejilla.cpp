#include "platform/widgets/Rejilla.h"
#include "support/Conductor.h"
#include "support/Programa.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

using namespace Qt::StringLiterals;
using nv::FilaRejilla;
using nv::Rejilla;

namespace {

std::vector<FilaRejilla> filas(int desde, int cuantas)
{
    std::vector<FilaRejilla> f;
    for (int i = desde; i < desde + cuantas; ++i)
        f.push_back({QString::number(i), u"Artículo %1"_s.arg(i)});
    return f;
}

} // namespace

class tst_rejilla : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_ventana = std::make_unique<QWidget>();
        auto *caja = new QVBoxLayout(m_ventana.get());
        m_antes = new QLineEdit;
        m_rejilla = new Rejilla;
        m_boton = new QPushButton(u"Aceptar"_s);
        caja->addWidget(m_antes);
        caja->addWidget(m_rejilla);
        caja->addWidget(m_boton);
        m_rejilla->setColumnas({{u"Código"_s, 900, Qt::AlignRight}, {u"Descripción"_s, 3000}});
        m_ventana->resize(500, 300);
        m_ventana->show();
        m_ventana->activateWindow(); // without a window manager nobody else does
        QVERIFY(QTest::qWaitForWindowActive(m_ventana.get()));
    }

    void focus_moves_no_row_and_the_heading_can_be_current()
    {
        QSignalSpy cambios(m_rejilla, &Rejilla::FilaCambiada);
        QCOMPARE(m_rejilla->filas(), 1);
        m_rejilla->anadir(filas(1, 10));
        m_rejilla->setFocus();
        QVERIFY(m_rejilla->hasFocus());
        QCOMPARE(m_rejilla->filaActual(), 0);
        QTest::keyClick(m_rejilla, Qt::Key_Down);
        QCOMPARE(m_rejilla->filaActual(), 1);
        m_rejilla->setFilaActual(0);
        QCOMPARE(m_rejilla->filaActual(), 0);
        QVERIFY(!m_rejilla->selectionModel()->hasSelection());
        m_antes->setFocus();
        m_rejilla->setFocus();
        QCOMPARE(m_rejilla->filaActual(), 0);
        m_rejilla->setFilaActual(99);
        QCOMPARE(m_rejilla->filaActual(), 10);
        m_rejilla->vaciar();
        QCOMPARE(m_rejilla->filaActual(), 0);
        QCOMPARE(m_rejilla->filaSuperior(), 0);
        QCOMPARE(cambios.size(), 4);
        QCOMPARE(cambios.last().first().toInt(), 0);
    }

    void keys_reach_the_dialog_once_and_before_the_row_moves()
    {
        m_rejilla->anadir(filas(1, 300));
        m_rejilla->setFilaActual(1);
        m_rejilla->setFocus();
        QSignalSpy intro(m_rejilla, &Rejilla::Intro);
        QSignalSpy espacio(m_rejilla, &Rejilla::Espacio);
        QSignalSpy caracter(m_rejilla, &Rejilla::Caracter);
        QSignalSpy pulsado(m_boton, &QPushButton::clicked);
        m_boton->setDefault(true);
        QTest::keyClick(m_rejilla, Qt::Key_Return);
        QTest::keyClick(m_rejilla, Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(intro.size(), 2);
        QCOMPARE(pulsado.size(), 0);
        QTest::keyClick(m_rejilla, Qt::Key_Space);
        QCOMPARE(espacio.size(), 1);
        nv::pruebas::teclear(m_rejilla, u"7ñ*"_s);
        QTest::keyClick(m_rejilla, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(m_rejilla, Qt::Key_A, Qt::AltModifier);
        QCOMPARE(caracter.size(), 3);
        QCOMPARE(caracter[1].first().toString(), u"ñ"_s);
        QCOMPARE(m_rejilla->filaActual(), 1);

        QTest::keyClick(m_rejilla, Qt::Key_End);
        QCOMPARE(m_rejilla->filaActual(), 300);
        QTest::keyClick(m_rejilla, Qt::Key_Home);
        QCOMPARE(m_rejilla->filaActual(), 1);

        std::vector<int> vistas;
        m_rejilla->alPulsar = [&](QKeyEvent *e) {
            vistas.push_back(m_rejilla->filaActual());
            return e->key() == Qt::Key_Up;
        };
        QTest::keyClick(m_rejilla, Qt::Key_Down);
        QTest::keyClick(m_rejilla, Qt::Key_Up);
        QCOMPARE(m_rejilla->filaActual(), 2);
        QCOMPARE(vistas, (std::vector<int>{1, 2}));
    }

    void keys_without_meaning_go_on_to_the_form()
    {
        m_rejilla->anadir(filas(1, 3));
        m_rejilla->setFocus();
        struct Oidor : QObject
        {
            std::vector<int> teclas;
            bool eventFilter(QObject *, QEvent *e) override
            {
                if (e->type() == QEvent::KeyPress)
                    teclas.push_back(static_cast<QKeyEvent *>(e)->key());
                return false;
            }
        } oidor;
        m_ventana->installEventFilter(&oidor);
        QTest::keyClick(m_rejilla, Qt::Key_Escape);
        QTest::keyClick(m_rejilla, Qt::Key_F9);
        QTest::keyClick(m_rejilla, Qt::Key_Down);
        QCOMPARE(oidor.teclas, (std::vector<int>{Qt::Key_Escape, Qt::Key_F9}));
        QTest::keyClick(m_rejilla, Qt::Key_Tab);
        QVERIFY(m_boton->hasFocus());
        QTest::keyClick(m_boton, Qt::Key_Backtab);
        QTest::keyClick(m_rejilla, Qt::Key_Backtab);
        QVERIFY(m_antes->hasFocus());
    }

    void mouse_says_the_cell_and_the_heading()
    {
        m_rejilla->anadir(filas(1, 3));
        QSignalSpy clic(m_rejilla, &Rejilla::Clic);
        QSignalSpy doble(m_rejilla, &Rejilla::DobleClic);
        QSignalSpy titulo(m_rejilla, &Rejilla::TituloPulsado);
        QSignalSpy activada(m_rejilla, &QAbstractItemView::activated);
        const QPoint celda = m_rejilla->visualRect(m_rejilla->model()->index(1, 1)).center();
        QTest::mouseClick(m_rejilla->viewport(), Qt::LeftButton, {}, celda);
        QTest::mouseDClick(m_rejilla->viewport(), Qt::LeftButton, {}, celda);
        QCOMPARE(clic.size(), 1);
        QCOMPARE(clic.first(), (QVariantList{2, 1}));
        QCOMPARE(doble.size(), 1);
        QCOMPARE(m_rejilla->filaActual(), 2);
        QCOMPARE(activada.size(), 0);
        // Below the rows is nobody's cell.
        QTest::mouseClick(m_rejilla->viewport(), Qt::LeftButton, {}, QPoint(10, m_rejilla->viewport()->height() - 3));
        QCOMPARE(clic.size(), 1);
        QCOMPARE(m_rejilla->filaActual(), 2);
        QTest::mouseClick(m_rejilla->horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 8));
        QCOMPARE(titulo.size(), 1);
        QCOMPARE(titulo.first().first().toInt(), 0);
    }

    void scrolling_tells_each_step_and_appending_from_there_does_not_recur()
    {
        m_rejilla->anadir(filas(1, 50));
        m_rejilla->setFilaActual(1);
        std::vector<std::pair<int, int>> pasos;
        connect(m_rejilla, &Rejilla::Desplazada, this, [&](int antes, int ahora) {
            pasos.emplace_back(antes, ahora);
            if (ahora > antes) {
                m_rejilla->anadir({u"x"_s, u"y"_s});
                m_rejilla->verticalScrollBar()->setValue(m_rejilla->verticalScrollBar()->value() + 1);
            }
        });
        m_rejilla->verticalScrollBar()->setValue(1);
        QCOMPARE(m_rejilla->filas(), 52);
        QCOMPARE(pasos, (std::vector<std::pair<int, int>>{{1, 2}}));
        QCOMPARE(m_rejilla->filaSuperior(), 3);
        m_rejilla->verticalScrollBar()->setValue(0);
        QCOMPARE(pasos.back(), std::make_pair(3, 1));
        pasos.clear();
        m_rejilla->setFocus();
        for (int i = 0; i < 30 && pasos.empty(); ++i)
            QTest::keyClick(m_rejilla, Qt::Key_Down);
        QCOMPARE(pasos.front(), std::make_pair(1, 2));
        m_rejilla->anadir(filas(1, 50));
        m_rejilla->vaciar();
        QCOMPARE(pasos.size(), std::size_t{1});
    }

    void sorting_is_stable_and_keeps_the_current_item_with_its_colours()
    {
        const std::vector<FilaRejilla> datos = {{u"3"_s, u"b"_s}, {u"1"_s, u"a"_s}, {u"2"_s, u"b"_s}, {u"4"_s, u"a"_s}};
        m_rejilla->anadir(datos);
        m_rejilla->setColorTexto(1, 0, Qt::red);
        m_rejilla->setColorFondo(1, 0, Qt::yellow);
        m_rejilla->setFilaActual(3);
        m_rejilla->ordenar([this](int a, int b) { return m_rejilla->texto(a, 1) < m_rejilla->texto(b, 1); });
        QString orden;
        for (int f = 1; f < m_rejilla->filas(); ++f)
            orden += m_rejilla->texto(f, 0);
        QCOMPARE(orden, u"1432"_s);
        QCOMPARE(m_rejilla->filaActual(), 4);
        QVERIFY(m_rejilla->selectionModel()->isRowSelected(3));
        const QModelIndex tres = m_rejilla->model()->index(2, 0);
        QCOMPARE(tres.data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::red));
        QCOMPARE(tres.data(Qt::BackgroundRole).value<QColor>(), QColor(Qt::yellow));
        QVERIFY(!m_rejilla->model()->index(0, 0).data(Qt::ForegroundRole).isValid());
    }

    void short_rows_heading_texts_and_whole_columns()
    {
        m_rejilla->anadir(FilaRejilla{u"5"_s});
        m_rejilla->anadir(FilaRejilla{u"6"_s});
        QCOMPARE(m_rejilla->texto(1, 1), QString());
        m_rejilla->setTextoColumna(1, u"1"_s);
        QCOMPARE(m_rejilla->texto(2, 1), u"1"_s);
        m_rejilla->setTexto(0, 1, u"Marca"_s);
        QCOMPARE(m_rejilla->texto(0, 1), u"Marca"_s);
        m_rejilla->setTexto(9, 0, u"fuera"_s);
        QCOMPARE(m_rejilla->texto(9, 0), QString());
        m_rejilla->setColumnaCasilla(1);
        QCOMPARE(m_rejilla->model()->index(0, 1).data(Qt::CheckStateRole).value<Qt::CheckState>(), Qt::Checked);
        QCOMPARE(m_rejilla->texto(1, 1), u"1"_s);
    }

    void last_visible_column_fills_the_width()
    {
        m_rejilla->setColumnas({{u"A"_s, 900}, {u"B"_s, 1500}, {u"C"_s, 900}});
        const auto ocupado = [this] { return m_rejilla->horizontalHeader()->length(); };
        QCOMPARE(ocupado(), m_rejilla->viewport()->width());
        const int anchoB = m_rejilla->columnWidth(1);
        m_rejilla->setColumnaOculta(2, true);
        QCOMPARE(ocupado(), m_rejilla->viewport()->width());
        m_rejilla->setColumnaOculta(2, false);
        QCOMPARE(m_rejilla->columnWidth(1), anchoB);
        QCOMPARE(ocupado(), m_rejilla->viewport()->width());
        m_ventana->resize(160, 300);
        QCOMPARE(m_rejilla->columnWidth(2), m_rejilla->columnWidth(0));
    }

    void column_hidden_from_the_start_takes_no_width()
    {
        m_rejilla->setColumnas({{u"A"_s, 900}, {u"B"_s, 900}, {u"C"_s, 900, Qt::AlignLeft, true}});
        QVERIFY(m_rejilla->isColumnHidden(2));
        QCOMPARE(m_rejilla->columnWidth(0) + m_rejilla->columnWidth(1), m_rejilla->viewport()->width());
        QCOMPARE(m_rejilla->horizontalHeader()->length(), m_rejilla->viewport()->width());
        const int anchoA = m_rejilla->columnWidth(0);
        m_rejilla->setColumnaOculta(2, false);
        QCOMPARE(m_rejilla->columnWidth(1), anchoA);
        QCOMPARE(m_rejilla->horizontalHeader()->length(), m_rejilla->viewport()->width());
    }

    void narrower_grid_shows_no_needless_bar()
    {
        m_rejilla->setColumnas({{u"A"_s, 900}, {u"B"_s, 1500}, {u"C"_s, 900}});
        m_rejilla->anadir(filas(1, 1));
        m_rejilla->setColumnaOculta(2, true);
        m_rejilla->resize(m_rejilla->width() - 60, m_rejilla->height());
        QVERIFY(!m_rejilla->horizontalScrollBar()->isVisible());
        // Nor when rows bring the vertical one, and when they go.
        m_rejilla->anadir(filas(2, 100));
        QCoreApplication::processEvents();
        QVERIFY(m_rejilla->verticalScrollBar()->isVisible() && !m_rejilla->horizontalScrollBar()->isVisible());
        m_rejilla->vaciar();
        QCoreApplication::processEvents();
        QVERIFY(!m_rejilla->verticalScrollBar()->isVisible() && !m_rejilla->horizontalScrollBar()->isVisible());
        QCOMPARE(m_rejilla->horizontalHeader()->length(), m_rejilla->viewport()->width());
    }

    void five_hundred_rows_are_on_screen_at_once()
    {
        std::vector<nv::ColumnaRejilla> columnas(9, {u"Columna"_s, 900});
        m_rejilla->setColumnas(columnas);
        std::vector<FilaRejilla> bloque(500, FilaRejilla(9, u"Cinta métrica 25 mm"_s));
        m_ventana->resize(900, 600);
        QElapsedTimer reloj;
        reloj.start();
        m_rejilla->setRedibujo(false);
        m_rejilla->anadir(std::move(bloque));
        m_rejilla->setRedibujo(true);
        m_rejilla->setFilaActual(1);
        m_rejilla->viewport()->repaint();
        qInfo("500 x 9: %.1f ms", static_cast<double>(reloj.nsecsElapsed()) / 1e6);
        QVERIFY(reloj.elapsed() < 200); // generous: an item per cell or a fit to contents takes longer
        QVERIFY(m_rejilla->viewport()->updatesEnabled());
    }

private:
    std::unique_ptr<QWidget> m_ventana;
    QLineEdit *m_antes = nullptr;
    Rejilla *m_rejilla = nullptr;
    QPushButton *m_boton = nullptr;
};

NV_PRUEBA(tst_rejilla)
#include "tst_rejilla.moc"
