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

namespace {

/// Where the letter stands that nobody has yet: at the beginning of a word, or else anywhere; -1 for none.
qsizetype letraLibre(const QString &texto, const QString &ocupadas)
{
    for (const bool inicial : {true, false})
        for (qsizetype i = 0; i < texto.size(); ++i) {
            const QChar letra = texto[i].toUpper();
            const bool sencilla = letra >= u'A' && letra <= u'Z';
            if (sencilla && !ocupadas.contains(letra) && (!inicial || i == 0 || texto[i - 1] == u' '))
                return i;
        }
    return -1;
}

template <class Widget>
void anadirMnemonico(Widget &widget, QString &ocupadas)
{
    QString texto = widget.text();
    const qsizetype lugar = texto.contains(u'&') ? -1 : letraLibre(texto, ocupadas);
    if (lugar < 0)
        return;
    ocupadas += texto[lugar].toUpper();
    widget.setText(texto.insert(lugar, u'&'));
}

} // namespace

void ponerMnemonicos(QWidget &forma)
{
    QString ocupadas;
    const auto ocupar = [&ocupadas](const QString &texto) {
        if (const qsizetype lugar = texto.indexOf(u'&'); lugar >= 0 && lugar + 1 < texto.size())
            ocupadas += texto[lugar + 1].toUpper();
    };
    QList<QLabel *> rotulos = forma.findChildren<QLabel *>();
    rotulos.removeIf([](const QLabel *rotulo) { return !rotulo->buddy() || rotulo->isHidden(); });
    QList<QAbstractButton *> botones = forma.findChildren<QAbstractButton *>();
    botones.removeIf([](const QAbstractButton *boton) { return boton->focusPolicy() == Qt::NoFocus; });
    for (const QLabel *rotulo : rotulos)
        ocupar(rotulo->text());
    for (const QAbstractButton *boton : botones)
        ocupar(boton->text());
    for (QLabel *rotulo : rotulos)
        anadirMnemonico(*rotulo, ocupadas);
    for (QAbstractButton *boton : botones)
        anadirMnemonico(*boton, ocupadas);
}

void tabular(const QWidgetList &orden)
{
    for (qsizetype i = 1; i < orden.size(); ++i)
        QWidget::setTabOrder(orden[i - 1], orden[i]);
}

} // namespace nv
