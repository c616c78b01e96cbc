#include "platform/widgets/Campos.h"

#include <QLabel>
#include <QPushButton>

namespace nv {

void nombrar(QWidget *campo, const QString &rotulo)
{
    QString nombre = rotulo;
    nombre.remove(u'&');
    if (nombre.endsWith(u':'))
        nombre.chop(1);
    campo->setAccessibleName(nombre);
}

QLabel *nuevoRotulo(const QString &texto, QWidget *campo, QWidget *padre, const QString &nombre)
{
    auto *rotulo = new QLabel(texto, padre);
    rotulo->setObjectName(nombre);
    rotulo->setTextFormat(Qt::PlainText);
    rotulo->setBuddy(campo);
    nombrar(campo, texto);
    return rotulo;
}

QPushButton *nuevoBoton(const QString &texto, const QString &nombre, QWidget *padre)
{
    auto *boton = new QPushButton(texto, padre);
    boton->setObjectName(nombre);
    boton->setAutoDefault(false);
    return boton;
}

void tabular(const QWidgetList &orden)
{
    for (qsizetype i = 1; i < orden.size(); ++i)
        QWidget::setTabOrder(orden[i - 1], orden[i]);
}

} // namespace nv
