#include "support/Conductor.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
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

static const auto rotulo = [](const QAbstractButton *boton) { return boton->text().remove(u'&'); };

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

Conductor &Conductor::responde(const QString &boton)
{
    return con<QMessageBox>([this, boton](QMessageBox &caja) {
        const QList<QAbstractButton *> botones = caja.buttons();
        const auto suyo = std::find_if(botones.begin(), botones.end(), [&](auto *b) { return rotulo(b) == boton; });
        suyo == botones.end() ? fallar(u"no button \"%1\""_s.arg(boton)) : (*suyo)->click();
    });
}

bool Conductor::eventFilter(QObject *objeto, QEvent *evento)
{
    const auto *caja = evento->type() == QEvent::Show ? qobject_cast<QMessageBox *>(objeto) : nullptr;
    if (caja) {
        m_cajas.push_back({caja->windowTitle(), caja->text(), caja->icon(), {}});
        for (const QAbstractButton *boton : caja->buttons())
            m_cajas.back().botones << rotulo(boton);
    }
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
    const QWidget *modal = QApplication::activeModalWidget();
    const QString texto = u"Conductor: %1; on screen: %2 \"%3\" \"%4\""_s.arg(
        motivo, QLatin1StringView(modal ? modal->metaObject()->className() : "nothing modal"),
        modal ? modal->windowTitle() : QString(), modal ? modal->property("text").toString() : QString());
    QTest::qFail(texto.toUtf8().constData(), __FILE__, __LINE__);
}

void encolarTecla(QWidget *ventana, Qt::Key tecla, const QString &texto)
{
    using Interfaz = QWindowSystemInterface;
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
