#include "dialogs/frmAlternativos_Eleccion.h"

#include "common/Conexion.h"
#include "platform/widgets/Anclaje.h"
#include "platform/widgets/Mensajes.h"
#include "platform/widgets/Twips.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

constexpr int Identificador = Qt::UserRole;

// Twips.
constexpr int Ancho = 4800;
constexpr int Alto = 5400;
constexpr int Margen = 90;
constexpr int AnchoBoton = 1140;
constexpr int AltoBoton = 360;

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
    : QDialog(padre)
    , m_lista(new ListaValores(this))
{
    setWindowTitle(u"Elección de Valores"_s);
    const auto px = [this](int twips) { return nv::twips::aPixeles(twips, this); };
    resize(px(Ancho), px(Alto));
    setMinimumSize(px(2 * AnchoBoton + 4 * Margen), px(Alto / 3));
    auto *anclaje = new Anclaje(this);

    m_lista->setObjectName(u"lstValores"_s);
    m_lista->setAccessibleName(u"Valores"_s);
    m_lista->setSelectionMode(QAbstractItemView::MultiSelection);
    const int pieBotones = Alto - Margen - AltoBoton;
    m_lista->setGeometry(px(Margen), px(Margen), px(Ancho - 2 * Margen), px(pieBotones - 2 * Margen));
    anclaje->registrar(m_lista, Qt::LeftEdge | Qt::RightEdge | Qt::TopEdge | Qt::BottomEdge);

    const auto boton = [&](const QString &texto, const QString &nombre, int izquierda) {
        auto *nuevo = new QPushButton(texto, this);
        nuevo->setObjectName(nombre);
        nuevo->setAutoDefault(false);
        nuevo->setGeometry(px(izquierda), px(pieBotones), px(AnchoBoton), px(AltoBoton));
        anclaje->registrar(nuevo, Qt::RightEdge | Qt::BottomEdge);
        return nuevo;
    };
    QPushButton *aceptarBoton = boton(u"Aceptar"_s, u"cmdAceptar"_s, Ancho - 2 * (AnchoBoton + Margen));
    QPushButton *cancelarBoton = boton(u"Cancelar"_s, u"cmdCancelar"_s, Ancho - AnchoBoton - Margen);
    connect(aceptarBoton, &QPushButton::clicked, this, &frmAlternativos_Eleccion::aceptar);
    connect(cancelarBoton, &QPushButton::clicked, this, &frmAlternativos_Eleccion::reject);
    for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(tecla, m_lista, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
                &frmAlternativos_Eleccion::aceptar);
}

void frmAlternativos_Eleccion::MostrarModal()
{
    nv::mensajes::guardar(parentWidget(), windowTitle(), [this] { cargar(); });
    m_lista->setFocus();
    exec();
}

void frmAlternativos_Eleccion::cargar()
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

void frmAlternativos_Eleccion::reject()
{
    Aceptado = false;
    QDialog::reject();
}

void frmAlternativos_Eleccion::keyPressEvent(QKeyEvent *evento)
{
    const bool intro = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
    auto *boton = qobject_cast<QPushButton *>(focusWidget());
    // Without default buttons the toolkit leaves Enter on a focused one without effect.
    if (intro && boton && !evento->isAutoRepeat())
        boton->click();
    else
        QDialog::keyPressEvent(evento);
}
