#pragma once

#include <QHostAddress>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

#include <atomic>

namespace nv::pruebas {

/// Stands between an ODBC driver and its server, in a thread of its own: counts round trips and breaks links.
class Puente
{
public:
    enum Corte { Nunca, AntesDePedir, TrasResponder, Callado };

    /// `texto`: connection text of the server ("…;SERVER=…;PORT=…;…").
    explicit Puente(const QString &texto)
        : m_texto(texto)
        , m_donde(QRegularExpression(QStringLiteral("SERVER=([^;]*);PORT=(\\d+)")).match(texto))
    {
        m_servidor->listen(QHostAddress::LocalHost);
        m_texto.replace(m_donde.captured(), QStringLiteral("SERVER=127.0.0.1;PORT=%1").arg(m_servidor->serverPort()));
        m_servidor->moveToThread(&m_hilo);
        QObject::connect(&m_hilo, &QThread::finished, m_servidor, &QObject::deleteLater);
        QObject::connect(m_servidor, &QTcpServer::newConnection, m_servidor, [this] {
            QTcpSocket *cliente = m_servidor->nextPendingConnection();
            auto *motor = new QTcpSocket(cliente);
            motor->connectToHost(m_donde.captured(1), m_donde.captured(2).toUShort());
            cliente->setSocketOption(QTcpSocket::SendBufferSizeSocketOption, 16384); // a list is not there at once
            pasar(cliente, motor, true);
            pasar(motor, cliente, false);
        });
        m_hilo.start();
    }
    ~Puente() { m_hilo.quit(), m_hilo.wait(); }

    const QString &texto() const { return m_texto; }
    /// Since it was asked last: how often the driver asked, having been answered.
    int viajes() { return m_viajes.exchange(0); }
    /// At the next request that holds the text.
    void cortarAl(const QString &texto, Corte corte)
    {
        m_marca = QByteArray(reinterpret_cast<const char *>(texto.utf16()), texto.size() * 2);
        m_corte = corte;
    }
    void cortar()
    {
        const auto todas = [this] {
            for (QTcpSocket *enchufe : m_servidor->findChildren<QTcpSocket *>())
                enchufe->abort();
        };
        QMetaObject::invokeMethod(m_servidor, todas, Qt::BlockingQueuedConnection);
    }

private:
    void pasar(QTcpSocket *de, QTcpSocket *a, bool pide)
    {
        QObject::connect(de, &QTcpSocket::disconnected, a, &QTcpSocket::disconnectFromHost);
        QObject::connect(de, &QTcpSocket::readyRead, a, [=, this] {
            const QByteArray datos = de->readAll();
            m_viajes += pide && !m_pidiendo ? 1 : 0;
            m_pidiendo = pide;
            m_llega = m_corte != Nunca && (m_llega || (pide && datos.contains(m_marca)));
            if (!m_llega || (pide && m_corte == TrasResponder))
                a->write(datos);
            else if (m_corte != Callado)
                m_corte = Nunca, de->abort(), a->abort();
        });
    }

    QString m_texto;
    QRegularExpressionMatch m_donde;
    QThread m_hilo;
    QTcpServer *m_servidor = new QTcpServer;
    std::atomic<int> m_viajes = 0;
    QByteArray m_marca;
    std::atomic<Corte> m_corte = Nunca;
    bool m_llega = false, m_pidiendo = false;
};

} // namespace nv::pruebas
