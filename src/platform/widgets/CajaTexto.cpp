#include "platform/widgets/CajaTexto.h"

#include "common/Valores.h"
#include "platform/widgets/Aviso.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QValidator>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace nv {

/// Sees every change of the text, wherever it comes from.
class CajaTexto::Filtro : public QValidator
{
public:
    explicit Filtro(CajaTexto *caja)
        : QValidator(caja)
        , m_caja(caja)
    {}

    State validate(QString &texto, int &cursor) const override
    {
        const QString anterior = std::exchange(m_anterior, texto);
        const State estado = m_caja->isModified() ? delUsuario(anterior, texto, cursor) : delPrograma(texto, cursor);
        m_anterior = estado == Invalid ? anterior : texto;
        return estado;
    }

private:
    /// setText leaves the box unmodified: that is how a program's text is told from the user's.
    State delPrograma(QString &texto, int &cursor) const
    {
        const auto impropio = [](QChar c) {
            const QChar::Category clase = c.category();
            return clase == QChar::Other_Control || clase == QChar::Other_Format || clase == QChar::Separator_Line ||
                   clase == QChar::Separator_Paragraph;
        };
        const auto raro = [](QChar c) { return c.isSpace() && c != u' '; };
        // A program's own blanks may mean something; no other kind does.
        if (std::any_of(texto.cbegin(), texto.cend(), impropio) ||
            (!texto.isEmpty() && (raro(texto.front()) || raro(texto.back()))))
            texto = lineaLimpia(texto);
        texto.truncate(m_caja->m_maximo);
        cursor = std::min(cursor, static_cast<int>(texto.size()));
        return Acceptable;
    }

    State delUsuario(const QString &anterior, QString &texto, int &cursor) const
    {
        const auto [inicio, longitud] = insertada(anterior, texto);
        QString insertado = texto.mid(inicio, longitud);
        if (!m_caja->m_tecleando)
            insertado = lineaLimpia(insertado);
        insertado = m_caja->admitido(insertado);
        texto.replace(inicio, longitud, insertado);
        cursor = static_cast<int>(std::clamp<qsizetype>(cursor + insertado.size() - longitud, 0, texto.size()));
        if (texto.size() > m_caja->m_maximo && texto.size() > anterior.size()) {
            m_caja->m_rechazado = texto.size();
            m_caja->m_rechazoTecleado = m_caja->m_tecleando;
            return Invalid;
        }
        return m_caja->vale(texto, anterior) ? Acceptable : Invalid;
    }

    struct Tramo
    {
        qsizetype inicio;
        qsizetype longitud;
    };

    /// What is new in the text: what stands in the place of the selection, where that is what happened; else wherever the
    /// two differ.
    Tramo insertada(const QString &anterior, const QString &texto) const
    {
        const qsizetype desde = m_caja->m_desde;
        const qsizetype tras = anterior.size() - desde - m_caja->m_seleccionados;
        const qsizetype nuevos = texto.size() - desde - tras;
        if (tras >= 0 && nuevos >= 0 && QStringView(anterior).first(desde) == QStringView(texto).first(desde) &&
            QStringView(anterior).last(tras) == QStringView(texto).last(tras))
            return {desde, nuevos};
        const qsizetype comun = std::min(anterior.size(), texto.size());
        qsizetype inicio = 0;
        while (inicio < comun && anterior[inicio] == texto[inicio])
            ++inicio;
        qsizetype final = 0;
        while (final < comun - inicio && anterior[anterior.size() - 1 - final] == texto[texto.size() - 1 - final])
            ++final;
        return {inicio, texto.size() - inicio - final};
    }

    CajaTexto *m_caja;
    mutable QString m_anterior;
};

CajaTexto::CajaTexto(QWidget *padre)
    : QLineEdit(padre)
{
    setValidator(new Filtro(this));
    connect(this, &QLineEdit::textChanged, this, [this] { m_incompleto = false; });
    // Told once a change is over: while it is looked at, this is still where it came in.
    connect(this, &QLineEdit::cursorPositionChanged, this, &CajaTexto::anotarLugar);
    connect(this, &QLineEdit::selectionChanged, this, &CajaTexto::anotarLugar);
    connect(this, &QLineEdit::textChanged, this, &CajaTexto::anotarLugar);
    // From the context menu, which no event of the box surrounds: its text must have been put back by then.
    connect(this, &QLineEdit::inputRejected, this, &CajaTexto::atenderRechazo, Qt::QueuedConnection);
}

void CajaTexto::anotarLugar()
{
    m_seleccionados = selectionLength();
    m_desde = hasSelectedText() ? selectionStart() : cursorPosition();
}

bool CajaTexto::rechazaIncompleto()
{
    if (m_incompleto)
        avisarLargo(m_maximo + 1);
    return m_incompleto;
}

void CajaTexto::avisarLargo(qsizetype caracteres)
{
    selectAll();
    Aviso::mostrar(this, caracteres > m_maximo + 1
                             ? u"No cabe: son %1 caracteres y caben %2"_s.arg(caracteres).arg(m_maximo)
                             : u"No cabe: son más de %1 caracteres"_s.arg(m_maximo));
}

void CajaTexto::atenderRechazo()
{
    const qsizetype rechazado = std::exchange(m_rechazado, 0);
    if (rechazado == 0)
        return;
    // Of a scan more keys are to come: selected, the first part of it would be overwritten by the rest.
    if (m_rechazoTecleado) {
        m_incompleto = true;
        Aviso::mostrar(this, u"No cabe: son más de %1 caracteres"_s.arg(m_maximo));
    } else {
        avisarLargo(rechazado);
    }
}

bool CajaTexto::event(QEvent *evento)
{
    const QPointer<CajaTexto> vivo(this);
    const bool tratado = QLineEdit::event(evento);
    if (vivo && m_rechazado > 0)
        atenderRechazo();
    return tratado;
}

template <class Accion>
void CajaTexto::tecleando(Accion &&accion)
{
    const QPointer<CajaTexto> vivo(this); // a host may delete the box when it hears of the change
    m_tecleando = true;
    accion();
    if (vivo)
        m_tecleando = false;
}

void CajaTexto::teclear(const QString &texto)
{
    tecleando([&] { insert(texto); });
}

void CajaTexto::keyPressEvent(QKeyEvent *evento)
{
    m_clicDelFoco = false;
    if (evento->matches(QKeySequence::Paste))
        QLineEdit::keyPressEvent(evento);
    else
        tecleando([&] { QLineEdit::keyPressEvent(evento); });
}

void CajaTexto::inputMethodEvent(QInputMethodEvent *evento)
{
    tecleando([&] { QLineEdit::inputMethodEvent(evento); });
}

void CajaTexto::focusInEvent(QFocusEvent *evento)
{
    QLineEdit::focusInEvent(evento);
    m_clicDelFoco = evento->reason() == Qt::MouseFocusReason && seleccionaAlEntrar();
    if (evento->reason() == Qt::ActiveWindowFocusReason)
        m_vuelta.start();
}

void CajaTexto::mousePressEvent(QMouseEvent *evento)
{
    if (evento->button() != Qt::LeftButton)
        m_clicDelFoco = false;
    // The click that brings the window back leaves the box as it was, with what is selected or half typed.
    constexpr int delClic = 200; // ms
    if (m_vuelta.isValid() && !m_vuelta.hasExpired(delClic) && evento->button() == Qt::LeftButton)
        m_clicDelFoco = true;
    else if (!m_clicDelFoco)
        QLineEdit::mousePressEvent(evento);
    else
        selectAll();
    m_vuelta.invalidate();
}

void CajaTexto::mouseMoveEvent(QMouseEvent *evento)
{
    if (!m_clicDelFoco)
        QLineEdit::mouseMoveEvent(evento);
}

void CajaTexto::mouseReleaseEvent(QMouseEvent *evento)
{
    if (!std::exchange(m_clicDelFoco, false))
        QLineEdit::mouseReleaseEvent(evento);
}

} // namespace nv
