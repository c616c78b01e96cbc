#include "support/Conductor.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QTest>

using namespace Qt::StringLiterals;

/// The window system's door, declared here because its header is not among the public ones. QTest's own keys are
/// delivered at once, which is just what a scanner's are not.
class QWindowSystemInterface
{
public:
    struct AsynchronousDelivery
    {};
    template <typename Entrega>
    static bool handleKeyEvent(QWindow *ventana, QEvent::Type tipo, int tecla, Qt::KeyboardModifiers modificadores,
                               const QString &texto, bool repetida, ushort veces);
};

namespace nv::pruebas {

namespace {

using Interfaz = QWindowSystemInterface;

QString sinNemonico(QString rotulo)
{
    return rotulo.remove(u'&');
}

CajaVista vista(const QMessageBox &caja)
{
    CajaVista v{caja.windowTitle(), caja.text(), caja.icon(), {}};
    const QList<QAbstractButton *> botones = caja.buttons();
    for (const QAbstractButton *boton : botones)
        v.botones.append(sinNemonico(boton->text()));
    return v;
}

QString descripcion(QWidget *ventana)
{
    if (!ventana)
        return u"no modal window"_s;
    const auto *caja = qobject_cast<QMessageBox *>(ventana);
    return caja ? u"box \"%1\" \"%2\""_s.arg(caja->windowTitle(), caja->text())
                : u"%1 \"%2\""_s.arg(QLatin1StringView(ventana->metaObject()->className()), ventana->windowTitle());
}

} // namespace

Conductor::Conductor(int plazo)
    : m_plazo(plazo)
{
    m_desdeAvance.start();
    QCoreApplication::instance()->installEventFilter(this);
    connect(&m_reloj, &QTimer::timeout, this, &Conductor::mirar);
    m_reloj.start(2);
}

Conductor::~Conductor()
{
    if (!m_pasos.empty() && !m_fallido)
        QTest::qFail("Conductor: steps were left: their windows never came", __FILE__, __LINE__);
}

Conductor &Conductor::paso(std::function<bool(QWidget *)> cuando, std::function<void(QWidget *)> accion)
{
    m_pasos.push_back({std::move(cuando), std::move(accion)});
    m_desdeAvance.restart();
    return *this;
}

Conductor &Conductor::responde(const QString &boton)
{
    return con<QMessageBox>([this, boton](QMessageBox &caja) {
        const QList<QAbstractButton *> botones = caja.buttons();
        for (QAbstractButton *b : botones) {
            if (sinNemonico(b->text()) == boton) {
                b->click();
                return;
            }
        }
        fallar(u"no button \"%1\""_s.arg(boton));
    });
}

bool Conductor::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::Show)
        if (const auto *caja = qobject_cast<QMessageBox *>(objeto))
            m_cajas.push_back(vista(*caja));
    return false;
}

void Conductor::mirar()
{
    QWidget *modal = QApplication::activeModalWidget();
    if (m_fallido) {
        // Hidden, not closed: a form may refuse to close, and exec returns once it is hidden.
        if (modal)
            modal->hide();
        return;
    }
    if (modal != m_ultimaModal || !modal) {
        m_ultimaModal = modal;
        m_desdeAvance.restart();
    }
    if (!modal || m_enMarcha)
        return;
    if (!m_pasos.empty() && m_pasos.front().cuando(modal)) {
        m_enMarcha = true;
        QTimer::singleShot(0, this, [this] {
            m_enMarcha = false;
            QWidget *ahora = QApplication::activeModalWidget();
            if (m_pasos.empty() || !ahora || !m_pasos.front().cuando(ahora))
                return;
            const Paso actual = std::move(m_pasos.front());
            m_pasos.pop_front();
            m_desdeAvance.restart();
            actual.accion(ahora);
        });
    } else if (m_desdeAvance.hasExpired(m_plazo)) {
        fallar(m_pasos.empty() ? u"unexpected modal window"_s : u"the step waits for another window"_s);
    }
}

void Conductor::fallar(const QString &motivo)
{
    m_fallido = true;
    const QString texto = u"Conductor: %1; on screen: %2"_s.arg(motivo, descripcion(QApplication::activeModalWidget()));
    QTest::qFail(texto.toUtf8().constData(), __FILE__, __LINE__);
}

void encolarTecla(QWidget *ventana, Qt::Key tecla, const QString &texto)
{
    QWindow *nativa = ventana->window()->windowHandle();
    for (const QEvent::Type tipo : {QEvent::KeyPress, QEvent::KeyRelease})
        Interfaz::handleKeyEvent<Interfaz::AsynchronousDelivery>(nativa, tipo, tecla, Qt::NoModifier, texto, false, 1);
}

void encolarLectura(QWidget *ventana, const QString &codigo)
{
    for (const QChar c : codigo)
        encolarTecla(ventana, static_cast<Qt::Key>(c.toUpper().unicode()), QString(c));
    encolarTecla(ventana, Qt::Key_Return, u"\r"_s);
}

void teclear(QWidget *widget, const QString &texto)
{
    for (const QChar c : texto)
        QTest::sendKeyEvent(QTest::Click, widget, static_cast<Qt::Key>(c.toUpper().unicode()), QString(c),
                            Qt::NoModifier);
}

} // namespace nv::pruebas
