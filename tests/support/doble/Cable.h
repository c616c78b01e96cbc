#pragma once

#include "support/doble/Tipos.h"

#include <QByteArray>

namespace nv::doble {

/// What a client sends, by its first byte.
enum class Clase : quint8 { Lote = 0x01, Atencion = 0x06, Entrada = 0x10, Presentacion = 0x12 };

struct Mensaje
{
    Clase clase;
    QByteArray datos;
};

/// One client's connection. Closed with the object.
class Canal
{
public:
    explicit Canal(int descriptor)
        : m_descriptor(descriptor)
    {}
    Canal(const Canal &) = delete;
    Canal &operator=(const Canal &) = delete;
    ~Canal();

    /// A whole message; empty when the client has gone.
    std::optional<Mensaje> leer() const;
    /// False when the client has gone.
    bool enviar(const QByteArray &respuesta) const;

private:
    std::optional<QByteArray> leer(qsizetype octetos) const;

    int m_descriptor;
};

/// The server's answer, token by token.
class Respuesta
{
public:
    void presentacion();
    void entrada();
    void columnas(const std::vector<Columna> &columnas);
    void fila(const std::vector<Columna> &columnas, const Fila &fila);
    void error(int numero, const QString &texto) { mensaje(0xAA, numero, 16, texto); }
    /// A remark behind an error.
    void aviso(int numero, const QString &texto) { mensaje(0xAB, numero, 0, texto); }
    void fin() { fin(0, 0); }
    void finConFilas(qint64 filas) { fin(0x10, filas); }
    void finConError() { fin(0x02, 0); }
    void finCancelado() { fin(0x20, 0); }

    const QByteArray &octetos() const { return m_octetos; }

private:
    void mensaje(quint8 ficha, int numero, quint8 gravedad, const QString &texto);
    void fin(quint16 estado, qint64 filas);

    QByteArray m_octetos;
};

/// What a client asks for on entering: the name of the database.
QString baseDeEntrada(const QByteArray &datos);
/// The text of a batch.
QString textoDeLote(const QByteArray &datos);

} // namespace nv::doble
