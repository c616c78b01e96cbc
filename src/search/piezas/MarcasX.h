#pragma once

#include <QObject>
#include <QStringView>

namespace nv {

class Rejilla;

/// Marks the rows of a grid with an "X" in one of its columns: Space and a double click toggle the current row.
class MarcasX : public QObject
{
    Q_OBJECT

public:
    static constexpr QStringView Marca = u"X";

    MarcasX(Rejilla *rejilla, int columna);

    void marcarTodos();
    void desmarcarTodos();

private:
    void alternar();
    void ponerTodos(QStringView texto);

    Rejilla *m_rejilla;
    int m_columna;
};

} // namespace nv
