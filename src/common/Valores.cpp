#include "common/Valores.h"

#include "nvArticulo/Error.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

/// The leading number of a text in pieces: significant digits without their point, and where the point stands.
struct Numero
{
    bool negativo = false;
    QString cifras;
    qint64 enteras = 0; // how many of `cifras` stand before the decimal point; may be negative or beyond the end
};

Numero numeroInicial(QStringView texto)
{
    QString limpio;
    limpio.reserve(texto.size());
    for (const QChar c : texto) {
        if (c != u' ' && c != u'\t' && c != u'\n')
            limpio += c;
    }
    Numero numero;
    qsizetype i = 0;
    if (limpio.startsWith(u'-') || limpio.startsWith(u'+')) {
        numero.negativo = limpio[0] == u'-';
        i = 1;
    }
    bool punto = false;
    for (; i < limpio.size(); ++i) {
        if (esDigito(limpio[i])) {
            numero.cifras += limpio[i];
            numero.enteras += punto ? 0 : 1;
        } else if (limpio[i] == u'.' && !punto) {
            punto = true;
        } else {
            break;
        }
    }
    if (numero.cifras.isEmpty())
        return {};
    if (i < limpio.size() && u"eEdD"_s.contains(limpio[i])) {
        qsizetype j = i + 1;
        const bool resta = j < limpio.size() && limpio[j] == u'-';
        if (j < limpio.size() && (limpio[j] == u'-' || limpio[j] == u'+'))
            ++j;
        qint64 exponente = 0;
        for (; j < limpio.size() && esDigito(limpio[j]); ++j)
            exponente = std::min<qint64>(exponente * 10 + limpio[j].digitValue(), 100000);
        numero.enteras += resta ? -exponente : exponente;
    }
    return numero;
}

template <class Entero>
Entero redondeadoEn(double valor)
{
    const double redondeado = std::round(valor);
    if (!(redondeado >= std::numeric_limits<Entero>::min() && redondeado <= std::numeric_limits<Entero>::max()))
        throw errores::desbordamiento(QString::number(redondeado, 'f', 0));
    return static_cast<Entero>(redondeado);
}

} // namespace

QString recortado(QStringView texto)
{
    while (texto.startsWith(u' '))
        texto = texto.sliced(1);
    while (texto.endsWith(u' '))
        texto.chop(1);
    return texto.toString();
}

QString lineaLimpia(const QString &texto)
{
    QString linea;
    for (const QChar c : texto) {
        const bool fin = c == u'\n' || c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
        if (fin && !linea.trimmed().isEmpty())
            break;
        const QChar::Category clase = c.category();
        if (c == u'\t')
            linea += u' ';
        else if (!fin && clase != QChar::Other_Control && clase != QChar::Other_Format)
            linea += c;
    }
    return linea.trimmed();
}

bool esNumerico(QStringView texto)
{
    const QString sinBlancos = recortado(texto);
    qsizetype i = 0;
    const auto hay = [&] { return i < sinBlancos.size(); };
    if (hay() && (sinBlancos[i] == u'-' || sinBlancos[i] == u'+'))
        ++i;
    bool cifra = false;
    bool coma = false;
    for (; hay(); ++i) {
        if (esDigito(sinBlancos[i]))
            cifra = true;
        else if (sinBlancos[i] == u',' && !coma)
            coma = true;
        else if (sinBlancos[i] != u'.' || coma || sinBlancos.mid(i + 1).startsWith(u'.'))
            break;
    }
    if (!cifra)
        return false;
    if (!hay())
        return true;
    if (!u"eEdD"_s.contains(sinBlancos[i]))
        return false;
    ++i;
    if (hay() && (sinBlancos[i] == u'-' || sinBlancos[i] == u'+'))
        ++i;
    const qsizetype primera = i;
    while (hay() && esDigito(sinBlancos[i]))
        ++i;
    return !hay() && i > primera;
}

double Val(QStringView texto)
{
    const Numero numero = numeroInicial(texto);
    if (numero.cifras.isEmpty())
        return 0;
    const QString normal =
        (numero.negativo ? u"-0."_s : u"0."_s) + numero.cifras + u'e' + QString::number(numero.enteras);
    bool bien = false;
    const double valor = normal.toDouble(&bien);
    if (!std::isfinite(valor))
        throw errores::desbordamiento(texto.toString());
    return valor;
}

QString ValTexto(QStringView texto)
{
    Numero numero = numeroInicial(texto);
    qsizetype ceros = 0;
    while (ceros < numero.cifras.size() && numero.cifras[ceros] == u'0')
        ++ceros;
    numero.cifras.remove(0, ceros);
    numero.enteras -= ceros;
    while (numero.cifras.endsWith(u'0') && numero.cifras.size() > numero.enteras)
        numero.cifras.chop(1);
    if (numero.cifras.isEmpty())
        return u"0"_s;
    if (numero.enteras > std::numeric_limits<double>::max_exponent10 + 1)
        throw errores::desbordamiento(texto.toString());
    if (numero.enteras < std::numeric_limits<double>::min_exponent10)
        return u"0"_s;
    QString resultado = numero.negativo ? u"-"_s : QString();
    if (numero.enteras >= numero.cifras.size()) {
        resultado += numero.cifras + QString(numero.enteras - numero.cifras.size(), u'0');
    } else if (numero.enteras > 0) {
        resultado += QStringView(numero.cifras).first(numero.enteras);
        resultado += u'.';
        resultado += QStringView(numero.cifras).sliced(numero.enteras);
    } else {
        resultado += u"0."_s + QString(-numero.enteras, u'0') + numero.cifras;
    }
    return resultado;
}

qint16 ValEntero16(QStringView texto)
{
    return redondeadoEn<qint16>(Val(texto));
}

qint32 ValEntero32(QStringView texto)
{
    return redondeadoEn<qint32>(Val(texto));
}

bool comoBooleano(QStringView texto)
{
    const QString valor = recortado(texto).toLower();
    if (valor == u"true" || valor == u"verdadero" || valor == u"sí" || valor == u"si")
        return true;
    return esNumerico(valor) && Val(valor) != 0;
}

QString fechaCorta(QDate fecha)
{
    return fecha.toString(u"dd/MM/yyyy");
}

} // namespace nv
