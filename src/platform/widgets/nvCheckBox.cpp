#include "platform/widgets/nvCheckBox.h"

#include <QKeyEvent>
#include <QMouseEvent>

int nvCheckBox::Value() const
{
    switch (checkState()) {
    case Qt::Unchecked:
        return 0;
    case Qt::Checked:
        return 1;
    case Qt::PartiallyChecked:
        return 2;
    }
    return 0;
}

void nvCheckBox::setValue(int valor)
{
    if (valor == 0)
        setCheckState(Qt::Unchecked);
    else if (valor == 1)
        setCheckState(Qt::Checked);
    else if (valor == 2)
        setCheckState(Qt::PartiallyChecked);
}

void nvCheckBox::nextCheckState()
{
    // Only a program greys the box; the user's click, also through the mnemonic, clears or ticks it.
    if (!m_soloLectura)
        setCheckState(checkState() == Qt::Unchecked ? Qt::Checked : Qt::Unchecked);
}

void nvCheckBox::keyPressEvent(QKeyEvent *evento)
{
    if (m_soloLectura && evento->key() == Qt::Key_Space)
        evento->accept();
    else
        QCheckBox::keyPressEvent(evento);
}

void nvCheckBox::mousePressEvent(QMouseEvent *evento)
{
    if (m_soloLectura)
        evento->accept();
    else
        QCheckBox::mousePressEvent(evento);
}

void nvCheckBox::mouseReleaseEvent(QMouseEvent *evento)
{
    if (m_soloLectura)
        evento->accept();
    else
        QCheckBox::mouseReleaseEvent(evento);
}
