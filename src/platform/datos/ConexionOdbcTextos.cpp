#include "platform/datos/ConexionOdbcTextos.h"

#include "nvArticulo/Error.h"
#include "platform/datos/ConexionOdbcErrores.h"

#include <QSqlQuery>
#include <QSqlResult>

#include <array>

using namespace Qt::StringLiterals;

namespace nv::datos {

namespace {

using LeerDato = short (*)(void *, unsigned short, short, void *, qintptr, qintptr *);

// As ODBC numbers them.
constexpr short Correcto = 0;
constexpr short CorrectoConAviso = 1; // there is more to read
constexpr short SinDatos = 100;
constexpr short TextoAncho = -8;
constexpr qintptr Nulo = -1;

} // namespace

QVariant textoEntero(const QSqlQuery &consulta, int columna)
{
    static const auto leer = reinterpret_cast<LeerDato>(funcionOdbc("SQLGetData"));
    const QVariant manejador = consulta.result()->handle();
    if (!leer || !manejador.canConvert<void *>())
        return consulta.value(columna);
    if (columna > 0)
        consulta.value(columna - 1);
    QString texto = u""_s;
    std::array<char16_t, 4096> trozo{};
    while (true) {
        qintptr octetos = 0;
        const short codigo = leer(manejador.value<void *>(), static_cast<unsigned short>(columna + 1), TextoAncho,
                                  trozo.data(), sizeof trozo, &octetos);
        if (codigo == SinDatos)
            return texto;
        if (codigo != Correcto && codigo != CorrectoConAviso)
            throw errorOdbc(consulta);
        if (octetos == Nulo)
            return {};
        texto += QString::fromUtf16(trozo.data()); // up to the end that every piece has
        if (codigo == Correcto)
            return texto;
    }
}

} // namespace nv::datos
