#include "platform/pickers/ListaCodigos.h"

#include "nvArticulo/Registros.h"
#include "platform/widgets/Aviso.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/nvTextBox.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

/// Upper case and without accents: whoever types CINTURON finds "Cinturón".
QString plegado(const QString &texto)
{
    QString limpio;
    for (const QChar c : texto.normalized(QString::NormalizationForm_D))
        if (!c.isMark())
            limpio += c.toUpper();
    return limpio;
}

} // namespace

ListaCodigos::ListaCodigos(const QString &titulo, bool numericos, QWidget *padre)
    : FormularioModal(padre)
    , m_filtro(new nvTextBox(this))
    , m_lista(new Rejilla(this))
{
    setObjectName(u"lista"_s);
    setWindowTitle(titulo);
    m_filtro->setObjectName(u"txtFiltro"_s);
    m_filtro->setClearButtonEnabled(true);
    m_filtro->setPlaceholderText(u"Parte del nombre o del código"_s);
    m_lista->setObjectName(u"vsLista"_s);
    m_lista->setAccessibleName(titulo);
    m_lista->setColumnas({{u"Código", 1100, numericos ? Qt::AlignRight : Qt::AlignLeft}, {u"Nombre", 3000}});
    m_lista->ensanchar(Codigo, u"2147483647"_s);

    auto *arriba = new QHBoxLayout;
    arriba->addWidget(nuevoRotulo(u"&Buscar:"_s, m_filtro, this));
    arriba->addWidget(m_filtro);
    auto *todo = new QVBoxLayout(this);
    todo->addLayout(arriba);
    todo->addWidget(m_lista);
    todo->addLayout(botonera());
    atajosAceptarCancelar();
    dimensionar(6600, 6000);

    m_filtro->installEventFilter(this);
    connect(m_filtro, &QLineEdit::textChanged, this, &ListaCodigos::filtrar);
    connect(m_filtro, &nvTextBox::Intro, this, [this](bool &tratada) {
        tratada = true;
        aceptar();
    });
    connect(m_lista, &Rejilla::Intro, this, &ListaCodigos::aceptar);
    connect(m_lista, &Rejilla::DobleClic, this, &ListaCodigos::aceptar);
    connect(m_lista, &Rejilla::Caracter, this, [this](const QString &texto) {
        m_filtro->setFocus();
        m_filtro->deselect();
        m_filtro->end(false);
        m_filtro->insert(texto);
    });
}

void ListaCodigos::llenar(Registros &registros, const QString &actual)
{
    const int codigo = registros.columna(u"Codigo");
    const int nombre = registros.columna(u"Nombre");
    m_entradas.clear();
    while (registros.siguiente()) {
        FilaRejilla celdas{registros.textoO(codigo).trimmed(), registros.textoO(nombre).trimmed()};
        QString buscable = plegado(celdas[Codigo] + u'\n' + celdas[Nombre]);
        m_entradas.push_back({std::move(celdas), std::move(buscable)});
    }
    m_actual = actual;
    filtrar();
}

void ListaCodigos::filtrar()
{
    const QString buscado = plegado(m_filtro->text().trimmed());
    std::vector<FilaRejilla> visibles;
    int fila = 1;
    for (const Entrada &entrada : m_entradas) {
        if (!entrada.buscable.contains(buscado))
            continue;
        visibles.push_back(entrada.celdas);
        if (entrada.celdas[Codigo] == m_actual)
            fila = static_cast<int>(visibles.size());
    }
    m_lista->vaciar();
    m_lista->anadir(std::move(visibles));
    m_lista->setFilaActual(fila);
    if (m_lista->filasDatos() == 0 && isVisible())
        Aviso::mostrar(m_filtro, u"No hay ninguno así"_s);
}

bool ListaCodigos::eventFilter(QObject *objeto, QEvent *evento)
{
    if (objeto == m_filtro && evento->type() == QEvent::KeyPress) {
        auto *tecla = static_cast<QKeyEvent *>(evento);
        switch (tecla->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            mover(tecla);
            return true;
        default:
            break;
        }
    }
    return FormularioModal::eventFilter(objeto, evento);
}

void ListaCodigos::mover(QKeyEvent *evento)
{
    QKeyEvent copia(evento->type(), evento->key(), evento->modifiers());
    QCoreApplication::sendEvent(m_lista, &copia);
    evento->accept();
}

void ListaCodigos::aceptar()
{
    if (m_lista->filaActual() == 0)
        return;
    m_elegido = m_lista->texto(m_lista->filaActual(), Codigo);
    hide();
}

} // namespace nv
