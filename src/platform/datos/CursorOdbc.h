#pragma once

#include "platform/datos/Aparcadero.h"

#include <QStringList>

namespace nv::datos {

class ConexionOdbc;

/// One message of the driver or the server, as it came.
struct MensajeOdbc
{
    QString estado; // five characters; "01…" is a mere remark
    qint32 numero;
    QString texto;
};

/// What they say of a call, taken together.
struct DichoOdbc
{
    qint32 numero = 0; // the error's own, not that of a remark beside it
    QString texto;     // each message once, without the names of the drivers that it came through
    bool grave = false;
    bool vencido = false; // its time was up
    bool perdida = false; // the link is gone
};
DichoOdbc resumidos(const QList<MensajeOdbc> &mensajes);
DichoOdbc dichoOdbc(short clase, void *manejador);

/// Amounts have four decimals on every engine, whatever the server computed with ("10.5000", "0.333333"); one that a
/// double would not hold stays text.
QVariant importeOdbc(const QString &texto);

struct CierreConsulta
{
    void operator()(void *consulta) const;
};
/// A statement's own handle.
using ConsultaOdbc = std::unique_ptr<void, CierreConsulta>;

/// A result, fetched in blocks of bound columns. From the first column of no declared length on (varchar(max)) it is
/// read row by row, column by column: drivers hand long texts over in no other way.
class CursorOdbc final : public Cursor
{
public:
    /// Reads to the first row, so that what fails fails here.
    CursorOdbc(ConexionOdbc &conexion, ConsultaOdbc consulta);
    CursorOdbc(const CursorOdbc &) = delete;
    CursorOdbc &operator=(const CursorOdbc &) = delete;
    ~CursorOdbc() override;

    int columnas() const override { return static_cast<int>(m_columnas.size()); }
    QString nombre(int columna) const override { return m_columnas.at(static_cast<std::size_t>(columna)).nombre; }
    QVariant valor(int columna) const override;

private:
    enum class Clase { Entero, Real, Decimal, Fecha, TextoFijo, Texto, Largo };
    struct Columna
    {
        Clase clase;
        short tipo;            // as it is asked for
        std::size_t ancho;     // of its place in a row, in octets
        std::size_t lugar = 0; // the count of octets stands there, the value behind it
        QString nombre = {};
        QVariant leida = {}; // of the current row; long ones only
    };

    static Columna comoSeLee(short tipo, std::size_t letras);
    void describir();
    void vincular();
    bool paso() override;
    void traerBloque();
    void leerSueltas();
    QVariant textoLargo(int columna);
    void comprobar(short codigo);

    ConexionOdbc &m_conexion;
    ConsultaOdbc m_consulta;
    std::vector<Columna> m_columnas;
    std::size_t m_vinculadas = 0; // columns in front of the first long one
    std::size_t m_anchoFila = 0;
    std::unique_ptr<std::byte[]> m_filas;
    std::size_t m_capacidad = 1; // rows of a block
    std::size_t m_enBloque = 0;  // as the driver counts them
    std::size_t m_fila = 0;
    bool m_agotado = false;
};

} // namespace nv::datos
