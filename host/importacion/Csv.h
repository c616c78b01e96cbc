#pragma once

#include <QByteArray>
#include <QStringList>
#include <vector>

namespace mostrador {

struct RegistroCsv
{
    int linea; ///< on which it begins, from 1
    QStringList campos;
};

/// Records of a comma-separated text (RFC 4180, UTF-8, with or without a byte order mark): fields between quotes hold
/// commas, line breaks and doubled quotes; blanks belong to the field; empty lines are none.
/// Throws Error for a text that is no UTF-8 and for a quote left open or out of place.
std::vector<RegistroCsv> leerCsv(const QByteArray &octetos);

} // namespace mostrador
