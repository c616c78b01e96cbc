#include "platform/widgets/Campos.h"

#include <QLabel>
#include <QPushButton>
#include <QTextDocumentFragment>

namespace nv {

namespace {

QString sinAdornos(QString rotulo)
{
    rotulo.remove(u'&');
    if (rotulo.endsWith(u':'))
        rotulo.chop(1);
    return rotulo;
}

} // namespace

void nombrar(QWidget *campo, const QString &rotulo)
{
    campo->setAccessibleName(sinAdornos(rotulo));
}

QString nombreDe(const QWidget &campo, const QString &otro)
{
    if (!campo.accessibleName().isEmpty())
        return campo.accessibleName();
    for (const QLabel *rotulo : campo.window()->findChildren<QLabel *>()) {
        if (rotulo->buddy() != &campo)
            continue;
        const bool conFormato = rotulo->textFormat() == Qt::RichText ||
                                (rotulo->textFormat() == Qt::AutoText && Qt::mightBeRichText(rotulo->text()));
        return sinAdornos(conFormato ? QTextDocumentFragment::fromHtml(rotulo->text()).toPlainText() : rotulo->text());
    }
    return otro;
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
