#pragma once

#include <QObject>
#include <QString>

class QLabel;
class QWidget;
class cEmpresa;
class nvTextBox;

namespace nv {

namespace sql {
struct CriteriosModelo1;
}

/// The criterion of the first alternative field, with its label: free text, or where the field has a list of values
/// those chosen from it (F3 opens the list, Delete and Backspace clear it). Hidden where the company uses neither.
/// Reads `Alternativos_Valores`. The dialog places both widgets.
class CampoAlternativo : public QObject
{
    Q_OBJECT

public:
    explicit CampoAlternativo(QWidget *padre);

    nvTextBox *caja() const { return m_caja; }
    QLabel *rotulo() const { return m_rotulo; }
    /// Finds out what kind of field it is. Throws Error. Borrows the company.
    void preparar(::cEmpresa &empresa);
    /// Adds what the box asks for. Throws Error for an identifier that is no number.
    void anadirA(sql::CriteriosModelo1 &criterios) const;

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    void elegir();
    void poner(const QString &ids, const QString &textos);

    ::cEmpresa *m_empresa = nullptr;
    nvTextBox *m_caja;
    QLabel *m_rotulo;
    bool m_conLista = false;
    QString m_ids; ///< ",7,3,"
};

} // namespace nv
