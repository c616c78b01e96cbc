#pragma once

#include "nvArticulo/Error.h"

#include <QDate>
#include <QString>
#include <limits>

namespace nv {

constexpr bool esDigito(QChar c)
{
    return c.unicode() >= u'0' && c.unicode() <= u'9';
}

/// Without the blanks (U+0020 only) at both ends.
QString recortado(QStringView texto);

/// What a one-line box takes of a text from elsewhere: the first line that holds something, without control characters
/// and without blanks of any kind at its ends.
QString lineaLimpia(const QString &texto);

/// Whether the text reads as a number with Spanish signs: blanks around, one sign in front, ASCII digits, single "." as
/// group separator anywhere before the one decimal ",", an exponent E or D. Nothing else: no hexadecimal, no currency sign.
bool esNumerico(QStringView texto);

/// The number that the text begins with, blanks inside skipped, "." as decimal point, exponent E or D; 0 without one.
double Val(QStringView texto);

/// Val of the text written as shortest decimal text, in full digits however many there are ("00012" gives "12",
/// "ABC" gives "0"). Throws Error (6) when an exponent leaves the range of a double.
QString ValTexto(QStringView texto);

/// Val of the text rounded half away from zero. Throw Error (6) when it does not fit.
qint16 ValEntero16(QStringView texto);
qint32 ValEntero32(QStringView texto);

/// The same number in fewer bits. Throws Error (6) when it does not fit.
template <class Entero>
Entero estrecho(qint64 valor)
{
    if (valor < std::numeric_limits<Entero>::min() || valor > std::numeric_limits<Entero>::max())
        throw errores::desbordamiento(QString::number(valor));
    return static_cast<Entero>(valor);
}

/// The text read as a Boolean setting: "1", "-1", any number but 0, "True", "Verdadero", "Sí", "Si"; all else false.
bool comoBooleano(QStringView texto);

/// dd/MM/yyyy whatever the locale: the form in which every statement of this component writes a date.
QString fechaCorta(QDate fecha);

} // namespace nv
