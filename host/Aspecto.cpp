#include "Aspecto.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace mostrador {

void ponerAspecto(std::optional<int> letra, bool oscuro)
{
    if (letra) {
        QFont fuente = QApplication::font();
        fuente.setPointSize(*letra);
        QApplication::setFont(fuente);
    }
    if (!oscuro)
        return;
    // The one style that takes every colour from the palette.
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QPalette paleta(QColor(78, 78, 78), QColor(62, 62, 62));
    paleta.setColor(QPalette::Base, QColor(24, 24, 24));
    paleta.setColor(QPalette::AlternateBase, QColor(36, 36, 36));
    paleta.setColor(QPalette::Highlight, QColor(42, 110, 180));
    paleta.setColor(QPalette::HighlightedText, Qt::white);
    paleta.setColor(QPalette::Link, QColor(110, 180, 250));
    paleta.setColor(QPalette::ToolTipBase, QColor(70, 70, 50));
    paleta.setColor(QPalette::ToolTipText, Qt::white);
    for (const auto papel : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        paleta.setColor(papel, QColor(235, 235, 235));
        paleta.setColor(QPalette::Disabled, papel, QColor(160, 160, 160));
    }
    paleta.setColor(QPalette::PlaceholderText, QColor(190, 190, 190));
    QApplication::setPalette(paleta);
    QToolTip::setPalette(paleta);
}

} // namespace mostrador
