#include "dialogs/frmAlternativos_Eleccion.h"

#include "nvArticulo/Conexion.h"
#include "platform/widgets/Mensajes.h"

#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int Identificador = Qt::UserRole;

/// A letter goes to the next value that begins with it; the toolkit's own list would choose it or undo its choice too.
class ListaValores : public QListWidget
{
public:
    using QListWidget::QListWidget;

    void keyboardSearch(const QString &comienzo) override
    {
        const QItemSelection elegidos = selectionModel()->selection();
        QListWidget::keyboardSearch(comienzo);
        selectionModel()->select(elegidos, QItemSelectionModel::ClearAndSelect);
    }
};

nv::Sentencia valoresDe(qint16 tabla, qint16 alternativo)
{
    nv::Sentencia s(u"SELECT * FROM Alternativos_Valores WHERE Tabla=");
    return s << tabla << u" AND Alternativo=" << alternativo << u" ORDER BY Valor";
}

} // namespace

frmAlternativos_Eleccion::frmAlternativos_Eleccion(QWidget *padre)
    : FormularioModal(padre)
    , m_lista(new ListaValores(this))
{
    setWindowTitle(u"Elección de Valores"_s);
    m_lista->setObjectName(u"lstValores"_s);
    m_lista->setAccessibleName(u"Valores"_s);
    m_lista->setSelectionMode(QAbstractItemView::MultiSelection);
    auto *todo = new QVBoxLayout(this);
    todo->addWidget(m_lista, 1);
    todo->addLayout(botonera());
    atajosAceptarCancelar();
    for (QPushButton *boton : findChildren<QPushButton *>())
        boton->setText(boton->text().remove(u'&')); // letters go to the list
    dimensionar(4800, 5400);
    for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(tecla, m_lista, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
                &frmAlternativos_Eleccion::aceptar);
}

void frmAlternativos_Eleccion::MostrarModal()
{
    // Opened empty, its Enter would take the former choice away; and the window may go while the box is up.
    if (!nv::mensajes::guardar(parentWidget(), windowTitle(), [this] { llenar(); }))
        return;
    m_lista->setFocus();
    ejecutar();
}

void frmAlternativos_Eleccion::llenar()
{
    nv::Conexion &conexion = Conexion ? *Conexion : nv::ranura::exigida();
    nv::Registros registros = conexion.Abrir(valoresDe(Tabla, Alternativo));
    while (registros.siguiente()) {
        const qint32 id = registros.entero32(u"id");
        auto *entrada = new QListWidgetItem(registros.textoO(u"Valor"), m_lista);
        entrada->setData(Identificador, id);
        entrada->setSelected(Ids.contains(u',' + QString::number(id) + u','));
    }
    // Current without being chosen by it.
    m_lista->setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

void frmAlternativos_Eleccion::aceptar()
{
    Ids = u","_s;
    QStringList valores;
    for (int i = 0; i < m_lista->count(); ++i) {
        const QListWidgetItem *entrada = m_lista->item(i);
        if (!entrada->isSelected())
            continue;
        Ids += QString::number(entrada->data(Identificador).toInt()) + u',';
        valores.append(entrada->text());
    }
    Valores = valores.join(u',');
    Aceptado = true;
    hide();
}
