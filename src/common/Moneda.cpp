#include "nvArticulo/Moneda.h"

#include "nvArticulo/Error.h"

#include <cmath>
#include <limits>

namespace nv {

namespace {

constexpr qint64 Potencias[] = {1, 10, 100, 1000, 10000};

__extension__ using Entero128 = __int128;

Entero128 divididoRedondeando(Entero128 dividendo, Entero128 divisor)
{
    const Entero128 mitad = divisor / 2;
    return dividendo < 0 ? (dividendo - mitad) / divisor : (dividendo + mitad) / divisor;
}

Error demasiado(double valor)
{
    constexpr double Legible = 1e21;
    return errores::desbordamiento(QString::number(valor, std::abs(valor) < Legible ? 'f' : 'g', 0));
}

bool cabe(Entero128 valor)
{
    return valor <= std::numeric_limits<qint64>::max() && valor >= std::numeric_limits<qint64>::min();
}

qint64 enRango(Entero128 valor)
{
    if (!cabe(valor))
        throw demasiado(static_cast<double>(valor) / Moneda::Escala);
    return static_cast<qint64>(valor);
}

/// Digits of the absolute value with all four decimals, at least five of them.
QString cifras(qint64 valor)
{
    const quint64 absoluto = valor < 0 ? 0 - static_cast<quint64>(valor) : static_cast<quint64>(valor);
    return QString::number(absoluto).rightJustified(5, u'0');
}

QString compuesto(qint64 valor, int decimales, QChar coma)
{
    const QString todas = cifras(valor);
    QString texto = valor < 0 ? QStringLiteral("-") : QString();
    texto += QStringView(todas).chopped(4);
    if (decimales > 0) {
        texto += coma;
        texto += QStringView(todas).last(4).first(decimales);
    }
    return texto;
}

int decimalesSignificativos(qint64 valor, int minimo)
{
    int decimales = 4;
    while (decimales > minimo && valor % Potencias[5 - decimales] == 0)
        --decimales;
    return decimales;
}

} // namespace

Moneda Moneda::deTexto(QStringView texto)
{
    const QStringView recortado = texto.trimmed();
    qsizetype i = 0;
    const bool negativo = recortado.startsWith(u'-');
    if (negativo || recortado.startsWith(u'+'))
        i = 1;
    Entero128 valor = 0;
    int decimales = -1;
    bool hayCifra = false;
    bool sube = false;
    for (; i < recortado.size(); ++i) {
        const char16_t c = recortado[i].unicode();
        if (c == u'.' && decimales < 0) {
            decimales = 0;
        } else if (c >= u'0' && c <= u'9') {
            hayCifra = true;
            if (decimales == 4) {
                sube = c >= u'5';
                decimales = 5;
            } else if (decimales < 4) {
                valor = valor * 10 + (c - u'0');
                if (!cabe(valor))
                    throw errores::desbordamiento(recortado.toString());
                decimales += decimales >= 0 ? 1 : 0;
            }
        } else if ((c == u'e' || c == u'E') && hayCifra) {
            return deReal(recortado.toDouble());
        } else {
            hayCifra = false;
            break;
        }
    }
    if (!hayCifra)
        throw errores::noCoinciden();
    valor *= Potencias[4 - std::min(std::max(decimales, 0), 4)];
    valor += sube ? 1 : 0;
    return Moneda(enRango(negativo ? -valor : valor));
}

Moneda Moneda::deReal(double valor)
{
    const double escalado = std::round(valor * static_cast<double>(Escala));
    if (!(std::abs(escalado) < 9.2e18))
        throw demasiado(valor);
    return Moneda(static_cast<qint64>(escalado));
}

Moneda Moneda::redondeada(int decimales) const
{
    const qint64 paso = Potencias[4 - decimales];
    return Moneda(enRango(divididoRedondeando(m_valor, paso) * paso));
}

Moneda Moneda::porcentaje(Moneda porcentaje, int decimales) const
{
    const qint64 paso = Potencias[4 - decimales];
    const Entero128 producto = static_cast<Entero128>(m_valor) * porcentaje.m_valor;
    return Moneda(enRango(divididoRedondeando(producto, static_cast<Entero128>(Escala) * 100 * paso) * paso));
}

QString Moneda::texto(int decimales) const
{
    const int visibles = std::min(std::max(decimales, 0), 4);
    QString texto = compuesto(redondeada(visibles).m_valor, visibles, u',');
    if (decimales > 4)
        texto += QString(decimales - 4, u'0');
    return texto;
}

QString Moneda::textoAgrupado() const
{
    QString texto = compuesto(m_valor, decimalesSignificativos(m_valor, 2), u',');
    const qsizetype primera = m_valor < 0 ? 1 : 0;
    for (qsizetype i = texto.indexOf(u',') - 3; i > primera; i -= 3)
        texto.insert(i, u'.');
    return texto;
}

QString Moneda::textoCorto() const
{
    return compuesto(m_valor, decimalesSignificativos(m_valor, 0), u',');
}

QString Moneda::textoSql() const
{
    return compuesto(m_valor, decimalesSignificativos(m_valor, 0), u'.');
}

} // namespace nv
