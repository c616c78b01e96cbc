#include "barcodes/Ean.h"

#include "common/Valores.h"

#include <algorithm>

namespace nv::ean {

qint16 digitoControl(QStringView datos)
{
    int impares = 0;
    int pares = 0;
    const qsizetype ultima = std::min<qsizetype>(datos.size(), 12);
    for (qsizetype i = 0; i < ultima; ++i) {
        const int cifra = esDigito(datos[i]) ? datos[i].unicode() - u'0' : 0;
        (i % 2 == 0 ? impares : pares) += cifra;
    }
    const int total = datos.size() > 8 ? 3 * pares + impares : 3 * impares + pares;
    return static_cast<qint16>((10 - total % 10) % 10);
}

bool esValido(QStringView codigo)
{
    if (codigo.size() < 7 || !std::all_of(codigo.begin(), codigo.end(), esDigito))
        return true;
    return codigo.last(1) == QString::number(digitoControl(codigo.chopped(1)));
}

} // namespace nv::ean
