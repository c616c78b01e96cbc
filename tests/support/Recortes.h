#pragma once

#include "platform/widgets/EtiquetaElidida.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDebug>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScopeGuard>
#include <QTabBar>
#include <QTableView>

namespace nv::pruebas {

/// The letter of the whole program until the result goes: to be set before the forms are made.
[[nodiscard]] inline auto conLetra(int puntos)
{
    const QFont antes = QApplication::font();
    QFont grande = antes;
    grande.setPointSize(puntos);
    QApplication::setFont(grande);
    return qScopeGuard([antes] { QApplication::setFont(antes); });
}

/// What is cut of a form that is up, one line each. A name that ends in an ellipsis on purpose may be too narrow.
inline QStringList recortes(QWidget *forma)
{
    QStringList cortados;
    const auto anotar = [&](const QWidget *w, const QString &que, const auto &tiene, const auto &pide) {
        QString linea;
        QDebug(&linea).nospace().noquote() << w->metaObject()->className() << ' ' << w->objectName() << " \"" << que
                                           << "\": " << tiene << " of " << pide;
        cortados += linea;
    };
    for (auto *w : forma->findChildren<QWidget *>()) {
        if (!w->isVisibleTo(forma) || w->window() != forma->window())
            continue;
        QString texto;
        QSize pide(0, 0);
        if (const auto *tabla = qobject_cast<QTableView *>(w)) {
            const QHeaderView *titulos = tabla->horizontalHeader();
            for (int c = 0; c < titulos->count() && titulos->isVisible(); ++c) {
                const QString titulo = tabla->model()->headerData(c, Qt::Horizontal).toString();
                const int ancho = titulos->fontMetrics().horizontalAdvance(titulo);
                if (!tabla->isColumnHidden(c) && tabla->columnWidth(c) < ancho)
                    anotar(w, titulo, tabla->columnWidth(c), ancho);
            }
            const int alto = tabla->fontMetrics().height();
            if (tabla->verticalHeader()->defaultSectionSize() < alto)
                anotar(w, QStringLiteral("rows"), tabla->verticalHeader()->defaultSectionSize(), alto);
            pide = {0, titulos->height() + 2 * alto};
        } else if (const auto *rotulo = qobject_cast<QLabel *>(w)) {
            texto = rotulo->text();
            if (texto.isEmpty())
                continue;
            const bool libre = rotulo->wordWrap() || qobject_cast<EtiquetaElidida *>(w);
            pide = {libre ? 0 : w->sizeHint().width(),
                    rotulo->wordWrap() ? w->heightForWidth(w->width()) : w->sizeHint().height()};
        } else if (const auto *boton = qobject_cast<QAbstractButton *>(w)) {
            texto = boton->text();
            pide = texto.isEmpty() ? QSize() : w->sizeHint();
        } else if (const auto *caja = qobject_cast<QLineEdit *>(w)) {
            // Of a text only what does not fit can be scrolled to; a number is read as a whole.
            const bool numero = caja->alignment().testFlag(Qt::AlignRight);
            texto = caja->text().isEmpty() ? caja->placeholderText() : numero ? caja->text() : QString();
            pide = {caja->fontMetrics().horizontalAdvance(texto), w->sizeHint().height()};
        } else if (const auto *lista = qobject_cast<QComboBox *>(w)) {
            texto = lista->currentText();
            // Its frame and arrow take what its hint has beyond the widest of its texts.
            int masAncho = 0;
            for (int i = 0; i < lista->count(); ++i)
                masAncho = std::max(masAncho, w->fontMetrics().horizontalAdvance(lista->itemText(i)));
            pide = {w->sizeHint().width() - masAncho + w->fontMetrics().horizontalAdvance(texto),
                    w->sizeHint().height()};
        } else if (qobject_cast<QTabBar *>(w)) {
            pide = w->sizeHint();
        }
        if (w->width() < pide.width() || w->height() < pide.height())
            anotar(w, texto, w->size(), pide);
        else if (pide.isValid() && !pide.isNull() && !w->parentWidget()->rect().contains(w->geometry()))
            anotar(w, texto, w->geometry(), w->parentWidget()->rect());
    }
    return cortados;
}

} // namespace nv::pruebas
