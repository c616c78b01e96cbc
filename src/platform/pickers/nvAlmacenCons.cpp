#include "platform/pickers/nvAlmacenCons.h"

#include "nvArticulo/Conexion.h"
#include "nvArticulo/Error.h"
#include "nvArticulo/cEmpresa.h"
#include "platform/widgets/Campos.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Codigo = Qt::UserRole;

}

nvAlmacenCons::nvAlmacenCons(QWidget *padre)
    : QWidget(padre)
    , m_lista(new QListWidget(this))
{
    m_lista->setObjectName(u"lstAlmacenes"_s);
    m_lista->setAccessibleName(u"Almacenes"_s);
    m_lista->setAlternatingRowColors(true);
    auto *botones = new QVBoxLayout;
    for (const bool marcar : {true, false}) {
        QPushButton *boton =
            nv::nuevoBoton(marcar ? u"&Todos"_s : u"&Ninguno"_s, marcar ? u"cmdTodos"_s : u"cmdNinguno"_s, this);
        connect(boton, &QPushButton::clicked, this, [this, marcar] { marcarTodos(marcar); });
        botones->addWidget(boton);
    }
    botones->addStretch();
    auto *fila = new QHBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    fila->addWidget(m_lista, 1);
    fila->addLayout(botones);
    setFocusProxy(m_lista);
    connect(m_lista, &QListWidget::itemChanged, this, &nvAlmacenCons::Cambio);
}

void nvAlmacenCons::Cargar()
{
    if (!m_empresa)
        throw nv::errores::sinEmpresa();
    nv::Sentencia sentencia(u"SELECT Codigo, Nombre FROM Almacenes WHERE Cod_Empresa =");
    sentencia << m_empresa->Codigo() << u" ORDER BY Codigo";
    nv::Registros registros = (m_conexion ? *m_conexion : nv::ranura::exigida()).Abrir(sentencia);
    const QSignalBlocker sinAvisos(m_lista);
    m_lista->clear();
    while (registros.siguiente()) {
        const qint16 codigo = registros.entero16(u"Codigo");
        auto *entrada =
            new QListWidgetItem(u"%1 - %2"_s.arg(codigo).arg(registros.textoO(u"Nombre").trimmed()), m_lista);
        entrada->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        entrada->setCheckState(Qt::Unchecked);
        entrada->setData(Codigo, int{codigo});
    }
    m_lista->setCurrentRow(0);
}

std::vector<qint16> nvAlmacenCons::Almacenes() const
{
    std::vector<qint16> codigos;
    for (int i = 0; i < m_lista->count(); ++i)
        if (const QListWidgetItem *entrada = m_lista->item(i); entrada->checkState() == Qt::Checked)
            codigos.push_back(static_cast<qint16>(entrada->data(Codigo).toInt()));
    return codigos;
}

void nvAlmacenCons::setAlmacenes(const std::vector<qint16> &almacenes)
{
    for (int i = 0; i < m_lista->count(); ++i) {
        QListWidgetItem *entrada = m_lista->item(i);
        const auto codigo = static_cast<qint16>(entrada->data(Codigo).toInt());
        const bool elegido = std::find(almacenes.begin(), almacenes.end(), codigo) != almacenes.end();
        entrada->setCheckState(elegido ? Qt::Checked : Qt::Unchecked);
    }
}

void nvAlmacenCons::marcarTodos(bool marcados)
{
    for (int i = 0; i < m_lista->count(); ++i)
        m_lista->item(i)->setCheckState(marcados ? Qt::Checked : Qt::Unchecked);
}
