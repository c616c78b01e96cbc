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
/// changing a level empties those below. The form places the widgets (`txtFamilia_1` …, `lblTFamilia_1` …); levels that
/// the company does not use stay hidden.
class CascadaFamilias : public QObject
{
    Q_OBJECT

public:
    using Codigos = std::array<qint32, 3>;

    explicit CascadaFamilias(QWidget *padre);

    /// `nivel` 0 to 2.
    QLabel *etiqueta(std::size_t nivel) const { return m_niveles[nivel].etiqueta; }
    nvFamilia *selector(std::size_t nivel) const { return m_niveles[nivel].selector; }
    /// Whether the company uses the level; none before they are named.
    bool usado(std::size_t nivel) const { return m_niveles[nivel].usado; }

    void conectar(::cEmpresa *empresa, Conexion *conexion);
    /// Labels the levels that the company uses and shows them. Throws Error.
    void nombrarNiveles(const ::cEmpresa &empresa);
    /// Codes of 0 or less leave their level empty.
    void poner(const Codigos &codigos);
    /// As `poner`, and the user cannot change them.
    void fijar(const Codigos &codigos);
    bool fijas() const { return m_fijas; }
    /// Loads the names of the codes. Throws Error.
    void Cargar();
    void Limpiar();

    /// 0 for none.
    Codigos codigos() const;
    /// As criteria of a search: a number that is no code finds nothing.
    std::array<qint64, 3> buscados() const;

Q_SIGNALS:
    /// Enter on the last level that the company uses.
    void Fin();

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
