#include "Propiedades.h"

#include "nvArticulo/nvArticulo.h"

#include <QMetaProperty>

using namespace Qt::StringLiterals;

namespace mostrador::propiedades {

std::optional<QString> leida(nvArticulo &articulo, const QString &nombre)
{
    if (nombre == u"Modelo")
        return QString::number(articulo.Modelo());
    const QVariant valor = nombre == u"Pendiente" ? QVariant(articulo.Pendiente()) : articulo.property(nombre.toUtf8());
    if (!valor.isValid())
        return std::nullopt;
    if (valor.typeId() == QMetaType::Bool)
        return valor.toBool() ? u"True"_s : u"False"_s;
    return valor.toString();
}

bool poner(nvArticulo &articulo, const QString &nombre, const QString &valor)
{
    if (nombre == u"Modelo") {
        articulo.setModelo(static_cast<qint16>(valor.toInt()));
        return true;
    }
    const QMetaObject *clase = articulo.metaObject();
    const QMetaProperty propiedad = clase->property(clase->indexOfProperty(nombre.toUtf8()));
    return propiedad.isWritable() && propiedad.write(&articulo, valor);
}

void copiar(const nvArticulo &de, nvArticulo &a)
{
    const QMetaObject &clase = nvArticulo::staticMetaObject;
    for (int i = clase.propertyOffset(); i < clase.propertyCount(); ++i) {
        const QMetaProperty propiedad = clase.property(i);
        const QLatin1StringView nombre(propiedad.name());
        if (propiedad.isWritable() && nombre != "Text"_L1 && nombre != "Codigo"_L1 && nombre != "Value"_L1)
            propiedad.write(&a, propiedad.read(&de));
    }
}

} // namespace mostrador::propiedades
