#pragma once

#include <QObject>
#include <array>

class QLabel;
class QWidget;
class cEmpresa;
class nvFamilia;

namespace nv {

class Conexion;

/// The pickers of the three family levels with their labels: each level lists the children of the ones above, and
/// changing a level empties those below. The dialog places the widgets (`txtFamilia_1` …, `lblTFamilia_1` …).
class CascadaFamilias : public QObject
{
    Q_OBJECT

public:
    using Codigos = std::array<qint32, 3>;

    explicit CascadaFamilias(QWidget *padre);

    /// `nivel` 0 to 2.
    QLabel *etiqueta(std::size_t nivel) const { return m_niveles[nivel].etiqueta; }
    nvFamilia *selector(std::size_t nivel) const { return m_niveles[nivel].selector; }

    /// Names the levels that the company uses and hides the others.
    void preparar(::cEmpresa *empresa, Conexion *conexion);
    /// Codes of 0 or less leave their level empty; the names are loaded. Throws Error.
    void poner(const Codigos &codigos);
    /// As `poner`, and the user cannot change them.
    void fijar(const Codigos &codigos);
    bool fijas() const { return m_fijas; }
    /// Whether the company uses any level.
    bool hayNiveles() const;
    /// Loads the names of fixed families again. Throws Error.
    void recargarFijas();

    Codigos codigos() const;

Q_SIGNALS:
    /// Enter on the last visible level.
    void Buscar();

private:
    struct Nivel
    {
        QLabel *etiqueta;
        nvFamilia *selector;
        bool usado;
    };
    void alCambiar(std::size_t nivel);
    void alPulsarIntro(std::size_t nivel, bool &tratada);

    std::array<Nivel, 3> m_niveles;
    bool m_fijas = false;
};

} // namespace nv
