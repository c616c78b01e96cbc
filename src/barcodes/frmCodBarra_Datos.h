#pragma once

#include <QDialog>

class cEmpresa;
class nvArticulo;
class nvTextBox;

/// Confirms a new barcode for an item: which item, which barcode, how many units one scan stands for. Writes nothing.
/// For one use: members set, shown modally, read while hidden.
class frmCodBarra_Datos : public QDialog
{
    Q_OBJECT

public:
    explicit frmCodBarra_Datos(QWidget *padre);

    /// Fills the fields, shows the dialog, returns once it has hidden itself.
    void MostrarModal();

    ::cEmpresa *cEmpresa = nullptr;
    QString Articulo; ///< item code as text
    QString CodBarras;
    qint16 Unidades = 1; ///< result: units per scan, at least 1
    bool Aceptado = false;

public Q_SLOTS:
    void reject() override;

private:
    void aceptar();

    nvArticulo *m_articulo;
    nvTextBox *m_codBarras;
    nvTextBox *m_unidades;
};
