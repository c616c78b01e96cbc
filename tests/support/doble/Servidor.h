#pragma once

#include "support/doble/BaseSuite.h"

#include <atomic>
#include <list>
#include <map>
#include <mutex>
#include <thread>

namespace nv::doble {

/// Listens on this machine only; a thread and a connection of the embedded engine per client. Ends with the object.
class Servidor
{
public:
    /// Databases are files of that folder, made when a client first names them. Throws Error.
    explicit Servidor(const QString &carpeta);
    Servidor(const Servidor &) = delete;
    Servidor &operator=(const Servidor &) = delete;
    ~Servidor();

    int puerto() const { return m_puerto; }

private:
    void aceptar();
    void atender(int descriptor, int numero);
    bool matar(int numero);
    BaseSuite &base(const QString &nombre);

    QString m_carpeta;
    int m_descriptor;
    int m_puerto = 0;
    std::mutex m_cerrojo; // of what follows
    bool m_cerrando = false;
    std::map<int, int> m_sesiones; // number to descriptor
    std::map<QString, BaseSuite> m_bases;
    std::list<std::thread> m_hilos;
    std::thread m_escucha;
};

} // namespace nv::doble
