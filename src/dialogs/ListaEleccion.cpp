#include "dialogs/ListaEleccion.h"

#include "common/Valores.h"
#include "platform/widgets/Campos.h"
#include "platform/widgets/DescarteTeclas.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/nvTextBox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace nv {

ListaEleccion::ListaEleccion(QWidget *padre, const QString &etiqueta, const std::vector<ColumnaRejilla> &columnas,
                             int columnaCodigo)
    : FormularioModal(padre)
    , m_buscado(new nvTextBox(this))
    , m_rejilla(new Rejilla(this))
    , m_columnaCodigo(columnaCodigo)
{
    setWindowTitle(u"Artículos"_s);
    m_buscado->setObjectName(u"txtRef"_s);
    m_buscado->setReadOnly(true);
    m_buscado->setFocusPolicy(Qt::NoFocus);
    m_rejilla->setObjectName(u"vsLineas"_s);
    m_rejilla->setAccessibleName(u"Artículos que coinciden"_s);
    m_rejilla->setColumnas(columnas);
    m_rejilla->ensanchar(columnaCodigo, u"2147483647"_s);

    auto *arriba = new QHBoxLayout;
    arriba->addWidget(nuevoRotulo(etiqueta, m_buscado, this));
    arriba->addWidget(m_buscado, 1);
    arriba->addStretch(1);
    auto *todo = new QVBoxLayout(this);
    todo->addLayout(arriba);
    todo->addWidget(m_rejilla, 1);
    todo->addLayout(botonera());
    atajosAceptarCancelar();
    dimensionar(9000, 4500);

    connect(m_rejilla, &Rejilla::Caracter, this, [this] { m_rafaga.caracter(); });
    connect(m_rejilla, &Rejilla::Intro, this, [this] {
        // The Enter that ends a scanner's burst chooses nothing.
        if (!m_rafaga.enCurso())
            aceptar();
    });
    connect(m_rejilla, &Rejilla::DobleClic, this, [this](int fila, int) {
        if (fila > 0)
            aceptar();
    });
}

void ListaEleccion::MostrarModal()
{
    const QPointer<ListaEleccion> vivo(this);
    m_buscado->setText(textoBuscado());
    try {
        llenar();
    } catch (const Error &error) {
        const QString numero = error.numero > 0 ? u"[%1] "_s.arg(error.numero) : QString();
        mensajes::mostrar(parentWidget(), numero + nombreCarga(), error.descripcion, mensajes::Icono::Critico);
    }
    if (!vivo)
        return;
    if (m_rejilla->filasDatos() > 0)
        m_rejilla->setFilaActual(1);
    m_rejilla->setFocus();
    new DescarteTeclas(this);
    ejecutar();
}

void ListaEleccion::aceptar()
{
    const int fila = m_rejilla->filaActual();
    if (fila < 1)
        return;
    Codigo = ValEntero32(m_rejilla->texto(fila, m_columnaCodigo));
    hide();
}

void ListaEleccion::reject()
{
    Codigo = -1;
    FormularioModal::reject();
}

} // namespace nv
