#include "guion/Objetos.h"

#include "control/nvArticulo.h"
#include "platform/pickers/SelectorCodigo.h"
#include "platform/widgets/Rejilla.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace nv::guion {

QWidget *buscado(QWidget *ventana, const QString &nombre)
{
    if (ventana->objectName() == nombre)
        return ventana;
    QWidget *oculto = nullptr;
    const QList<QWidget *> candidatos = ventana->findChildren<QWidget *>(nombre);
    for (QWidget *candidato : candidatos) {
        if (candidato->window() != ventana)
            continue;
        if (candidato->isVisible())
            return candidato;
        oculto = oculto ? oculto : candidato;
    }
    return oculto;
}

QString textoDe(QWidget *widget)
{
    if (const auto *articulo = qobject_cast<nvArticulo *>(widget))
        return articulo->Text();
    if (const auto *selector = qobject_cast<SelectorCodigo *>(widget))
        return selector->Texto();
    if (const auto *linea = qobject_cast<QLineEdit *>(widget))
        return linea->text();
    if (const auto *etiqueta = qobject_cast<QLabel *>(widget))
        return etiqueta->text();
    if (const auto *casilla = qobject_cast<QCheckBox *>(widget))
        return QString::number(casilla->checkState() == Qt::PartiallyChecked ? 2 : casilla->isChecked() ? 1 : 0);
    if (const auto *boton = qobject_cast<QAbstractButton *>(widget))
        return boton->text().remove(u'&');
    if (const auto *lista = qobject_cast<QComboBox *>(widget))
        return lista->currentText();
    if (const auto *rejilla = qobject_cast<Rejilla *>(widget))
        return QString::number(rejilla->filaActual());
    if (const auto *notas = qobject_cast<QPlainTextEdit *>(widget))
        return notas->toPlainText();
    if (const auto *notas = qobject_cast<QTextEdit *>(widget))
        return notas->toPlainText();
    // Spin boxes, date boxes and whatever else has one value for the user.
    const QMetaProperty valor = widget->metaObject()->userProperty();
    return valor.isValid() ? valor.read(widget).toString() : QString();
}

std::pair<QWidget *, QPoint> celda(Rejilla &rejilla, int fila, int columna)
{
    if (fila == 0) {
        QHeaderView *titulos = rejilla.horizontalHeader();
        return {titulos->viewport(),
                {titulos->sectionViewportPosition(columna) + titulos->sectionSize(columna) / 2, titulos->height() / 2}};
    }
    const QModelIndex indice = rejilla.model()->index(fila - 1, columna);
    rejilla.scrollTo(indice);
    return {rejilla.viewport(), rejilla.visualRect(indice).center()};
}

void pulsarRaton(QWidget *widget, QPoint lugar, bool doble)
{
    const QPointer<QWidget> vivo(widget);
    const auto enviar = [&](QEvent::Type tipo) {
        if (!vivo)
            return;
        const Qt::MouseButtons abajo = tipo == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent evento(tipo, lugar, vivo->mapToGlobal(QPointF(lugar)), Qt::LeftButton, abajo, Qt::NoModifier);
        QApplication::sendEvent(vivo, &evento);
    };
    // As the window system does, a click gives the focus to what takes it.
    QWidget *receptor = widget;
    while (receptor && !(receptor->focusPolicy() & Qt::ClickFocus) && !receptor->isWindow())
        receptor = receptor->parentWidget();
    if (receptor && (receptor->focusPolicy() & Qt::ClickFocus))
        receptor->setFocus(Qt::MouseFocusReason);
    enviar(QEvent::MouseButtonPress);
    enviar(QEvent::MouseButtonRelease);
    if (doble) {
        enviar(QEvent::MouseButtonDblClick);
        enviar(QEvent::MouseButtonRelease);
    }
}

QString nombreIcono(QMessageBox::Icon icono)
{
    switch (icono) {
    case QMessageBox::Critical:
        return u"critico"_s;
    case QMessageBox::Warning:
        return u"exclamacion"_s;
    case QMessageBox::Information:
        return u"informacion"_s;
    case QMessageBox::Question:
        return u"pregunta"_s;
    case QMessageBox::NoIcon:
        break;
    }
    return u"sin icono"_s;
}

} // namespace nv::guion
