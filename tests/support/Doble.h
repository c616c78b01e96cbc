#pragma once

#include <QProcess>
#include <QString>

namespace nv::pruebas {

/// The stand-in for a server, for as long as the object lives. Reached through FreeTDS.
class Doble
{
public:
    ~Doble();

    /// Without that driver, or without the program, there is nothing to be proven.
    bool hay();
    /// Connection text of one of its databases; a name that is new is an empty database.
    QString texto(const QString &base) const;

private:
    QProcess m_proceso;
    bool m_probado = false;
    int m_puerto = 0;
};

} // namespace nv::pruebas
