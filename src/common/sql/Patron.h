#pragma once

#include <QString>

namespace nv {

/// The wildcard rule of the criteria: a "*" is appended unless the text ends in one, then every "*" becomes "%".
QString patronDesdeComodines(QStringView texto);

} // namespace nv
