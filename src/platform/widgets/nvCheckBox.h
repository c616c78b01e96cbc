#pragma once

#include <QCheckBox>
#include <QVariant>

/// The suite's check box: `Value` 0 clear, 1 ticked, 2 greyed.
class nvCheckBox : public QCheckBox
{
    Q_OBJECT
    Q_PROPERTY(int Value READ Value WRITE setValue)
    Q_PROPERTY(QVariant InitValue READ InitValue WRITE setInitValue)

public:
    using QCheckBox::QCheckBox;

    int Value() const;
    /// Any other number is ignored.
    void setValue(int valor);
    /// The value that a form's reset gives back; invalid for none.
    QVariant InitValue() const { return m_inicial; }
    void setInitValue(const QVariant &valor) { m_inicial = valor; }
    /// The user can look at it but not change it; it keeps its colours.
    void setSoloLectura(bool valor) { m_soloLectura = valor; }

protected:
    void nextCheckState() override;
    void keyPressEvent(QKeyEvent *evento) override;
    void mousePressEvent(QMouseEvent *evento) override;
    void mouseReleaseEvent(QMouseEvent *evento) override;

private:
    QVariant m_inicial;
    bool m_soloLectura = false;
};
