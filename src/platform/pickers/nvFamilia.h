#pragma once

#include "platform/pickers/SelectorCodigo.h"

/// Family picker of one level: `Familias_1` to `Familias_3` of the item-master company. Levels 2 and 3 know only the
/// children of the codes given for the levels above.
class nvFamilia : public nv::SelectorCodigo
{
    Q_OBJECT

public:
    explicit nvFamilia(QWidget *padre = nullptr)
        : SelectorCodigo({u" FROM Familias_1", De::Articulos, Por::Nombre, u"Familia"}, padre)
    {}

    /// 1 to 3; anything else is ignored.
    void setNivel(int nivel);
    int Nivel() const { return m_nivel; }
    /// The level-1 code, for levels 2 and 3; the level-2 code, for level 3. A name already shown is forgotten when its
    /// parent changes.
    void setCodigoPadre1(qint16 codigo);
    void setCodigoPadre2(qint16 codigo);

protected:
    nv::Sentencia desde() const override;
    QString titulo() const override;

private:
    int m_nivel = 1;
    qint16 m_padre1 = 0;
    qint16 m_padre2 = 0;
};
