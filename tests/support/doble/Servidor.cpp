#include "support/doble/Servidor.h"

#include "common/Error.h"
#include "support/doble/Cable.h"
#include "support/doble/Sesion.h"

#include <QDir>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace nv::doble {

Servidor::Servidor(const QString &carpeta)
    : m_carpeta(carpeta)
    , m_descriptor(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in lugar{};
    lugar.sin_family = AF_INET;
    lugar.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t largo = sizeof lugar;
    auto *direccion = reinterpret_cast<sockaddr *>(&lugar);
    if (::bind(m_descriptor, direccion, largo) != 0 || ::listen(m_descriptor, SOMAXCONN) != 0 ||
        ::getsockname(m_descriptor, direccion, &largo) != 0)
        throw Error{0, u"No se puede escuchar en esta máquina."_s, {}};
    m_puerto = ntohs(lugar.sin_port);
    m_escucha = std::thread(&Servidor::aceptar, this);
}

Servidor::~Servidor()
{
    {
        const std::lock_guard guarda(m_cerrojo);
        m_cerrando = true;
        for (const auto &[numero, descriptor] : m_sesiones)
            ::shutdown(descriptor, SHUT_RDWR);
    }
    ::shutdown(m_descriptor, SHUT_RDWR);
    m_escucha.join();
    for (std::thread &hilo : m_hilos)
        hilo.join();
    ::close(m_descriptor);
}

void Servidor::aceptar()
{
    for (int numero = 51;; ++numero) {
        const int cliente = ::accept4(m_descriptor, nullptr, nullptr, SOCK_CLOEXEC);
        const std::lock_guard guarda(m_cerrojo);
        if (cliente < 0 || m_cerrando) {
            if (cliente >= 0)
                ::close(cliente);
            return;
        }
        m_sesiones[numero] = cliente;
        m_hilos.emplace_back(&Servidor::atender, this, cliente, numero);
    }
}

void Servidor::atender(int descriptor, int numero)
{
    const Canal canal(descriptor);
    std::unique_ptr<Sesion> sesion;
    while (const std::optional<Mensaje> mensaje = canal.leer()) {
        Respuesta respuesta;
        QByteArray lote;
        switch (mensaje->clase) {
        case Clase::Presentacion:
            respuesta.presentacion();
            break;
        case Clase::Entrada:
            try {
                sesion = std::make_unique<Sesion>(base(baseDeEntrada(mensaje->datos)), numero,
                                                  [this](int otro) { return matar(otro); });
                respuesta.entrada();
            } catch (const Error &error) {
                respuesta.error(4060, error.descripcion);
                respuesta.finConError();
            }
            break;
        case Clase::Lote:
            if (sesion)
                lote = sesion->responder(textoDeLote(mensaje->datos));
            break;
        case Clase::Atencion:
            respuesta.finCancelado();
            break;
        default:
            // A prepared call: the driver's own on connecting; nothing of ours may go out as one.
            respuesta.error(50000, u"Only direct statements."_s);
            respuesta.finConError();
        }
        if (!canal.enviar(lote + respuesta.octetos()))
            break;
    }
    const std::lock_guard guarda(m_cerrojo);
    m_sesiones.erase(numero);
}

bool Servidor::matar(int numero)
{
    const std::lock_guard guarda(m_cerrojo);
    const auto lugar = m_sesiones.find(numero);
    return lugar != m_sesiones.end() && ::shutdown(lugar->second, SHUT_RDWR) == 0;
}

BaseSuite &Servidor::base(const QString &nombre)
{
    const std::lock_guard guarda(m_cerrojo);
    const QString propio = nombre.isEmpty() ? u"pruebas"_s : nombre;
    if (propio.contains(QChar(u'\0')))
        throw Error{0, u"Cannot open database \"%1\" requested by the login."_s.arg(propio), {}};
    return m_bases.try_emplace(propio, QDir(m_carpeta).filePath(propio + u".nv"_s)).first->second;
}

} // namespace nv::doble
