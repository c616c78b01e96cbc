#pragma once

#include <QByteArray>
#include <QDate>
#include <QStringList>

namespace nv {
class Conexion;
}

namespace mostrador {

using namespace nv;

struct ResultadoImportacion
{
    int leidas = 0;
    int importadas = 0;
    int duplicadas = 0;      ///< barcode or code that the catalogue or an earlier row has: left out
    int digitosErroneos = 0; ///< imported, since that is what stands on the packet
    QStringList avisos;      ///< one line each, with the line number of the file

    QString resumen() const;
};

/// Brings in one item per record, with its barcode, for the demonstration company; a catalogue without a company gets
/// its masters first. The header row names the columns, in any order: `barcode` and `name`; `codigo` (the next free
/// one where empty) and `pvp` (decimal comma or point) if present; others are ignored.
/// One transaction: a record that cannot be read is an Error and nothing stays.
ResultadoImportacion importarCsv(Conexion &conexion, const QByteArray &csv, QDate dia);

} // namespace mostrador
