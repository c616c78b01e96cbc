#pragma once

#include <QStringList>

namespace nv::medidas {

/// Automatic barcodes issued and stored by one and by four processes, and by four of which twelve are killed on the
/// way: times, numbers issued, stored and lost. On a catalogue file of its own.
void contador();

/// A workstation of `contador`: this program started with --emitir FILE FIRST-ITEM HOW-MANY.
int emitir(const QStringList &argumentos);

} // namespace nv::medidas
