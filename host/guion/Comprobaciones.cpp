// The commands that look at the program and at its data.
#include "control/nvArticulo.h"
#include "guion/Objetos.h"
#include "guion/Reproductor.h"
#include "guion/Teclado.h"
#include "platform/widgets/Rejilla.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace nv {

/// Text or state of a widget ("nombre:visible", "nombre:activo" for those states), or a property of the item box.
std::optional<QString> Reproductor::valor(const QString &nombre) const
{
    const QString estado = nombre.section(u':', 1);
    if (QWidget *widget = objeto(nombre.section(u':', 0, 0))) {
        if (estado == u"visible")
            return widget->isVisible() ? u"1"_s : u"0"_s;
        if (estado == u"activo")
            return widget->isEnabled() ? u"1"_s : u"0"_s;
        return guion::textoDe(widget);
    }
    if (nombre == u"Modelo")
        return QString::number(articulo().Modelo());
    const QVariant propiedad = articulo().property(nombre.toUtf8().constData());
    if (!propiedad.isValid())
        return std::nullopt;
    if (propiedad.typeId() == QMetaType::Bool)
        return propiedad.toBool() ? u"True"_s : u"False"_s;
    return propiedad.toString();
}

Reproductor::Efecto Reproductor::consultar(const Orden &orden)
{
    const Sentencia escrita = Sentencia::deConsola(orden.resto);
    if (!orden.resto.startsWith(u"SELECT", Qt::CaseInsensitive)) {
        decir(u"%1 filas"_s.arg(m_entorno.conexion->Ejecutar(escrita)));
        return Efecto::Hecho;
    }
    Registros registros = m_entorno.conexion->Abrir(escrita);
    while (registros.siguiente()) {
        QStringList fila;
        for (int i = 0; i < registros.columnas(); ++i)
            fila << guion::enUnaLinea(registros.textoO(i, u"NULL"_s));
        decir(fila.join(u" | "_s));
    }
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::mostrar(const Orden &orden)
{
    const auto hay = valor(orden.resto);
    if (!hay)
        return aunNo(u"no hay objeto ni propiedad %1"_s.arg(orden.resto));
    decir(orden.resto + u" = "_s + guion::enUnaLinea(*hay));
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::mostrarRejilla(const Orden &orden)
{
    const QStringList palabras = orden.palabras();
    const auto *rejilla = qobject_cast<Rejilla *>(objeto(palabras.value(0)));
    if (!rejilla)
        return aunNo(u"no hay rejilla %1"_s.arg(palabras.value(0)));
    const int desde = palabras.value(1).toInt();
    const int ultima = rejilla->filas() - 1;
    const int hasta = palabras.size() > 2 ? std::min(palabras[2].toInt(), ultima) : ultima;
    for (int fila = desde; fila <= hasta; ++fila) {
        QStringList celdas;
        for (int columna = 0; columna < rejilla->model()->columnCount(); ++columna) {
            if (!rejilla->isColumnHidden(columna))
                celdas << guion::enUnaLinea(rejilla->texto(fila, columna));
        }
        decir(celdas.join(u" | "_s));
    }
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::capturar(const Orden &orden)
{
    if (m_entorno.capturas.isEmpty())
        return Efecto::Hecho;
    const QDir carpeta(m_entorno.capturas);
    const QString fichero = carpeta.filePath(orden.resto + u".png"_s);
    if (!carpeta.mkpath(u"."_s) || !guion::ventanaActiva(m_entorno.ventana)->grab().save(fichero))
        fallar(u"línea %1: no se puede guardar la imagen %2"_s.arg(orden.linea).arg(fichero));
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::trazar(const Orden &orden)
{
    if (orden.resto != u"on" && orden.resto != u"off")
        return malGuion(u"línea %1: traza on|off"_s.arg(orden.linea));
    m_traza = orden.resto == u"on";
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::comprobar(const Orden &orden)
{
    const QStringList palabras = orden.palabras();
    if (orden.resto.startsWith(u"mensaje \"") && (palabras.size() == 3 || palabras.size() == 4))
        return comprobarMensaje(palabras);
    if (orden.resto.startsWith(u"ventana \"") && palabras.size() == 2)
        return igual(u"ventana"_s, guion::ventanaActiva(m_entorno.ventana)->windowTitle(), palabras[1]);
    if (orden.resto.startsWith(u"foco ") && palabras.size() == 2)
        return comprobarFoco(palabras[1]);
    const auto comparacion = guion::comparacion(orden.resto);
    if (!comparacion)
        return malGuion(u"línea %1: comprueba OBJETO = TEXTO"_s.arg(orden.linea));
    if (comparacion->objeto.startsWith(u"filas ")) {
        const QString nombre = comparacion->objeto.sliced(6).trimmed();
        const auto *rejilla = qobject_cast<Rejilla *>(objeto(nombre));
        return rejilla ? igual(comparacion->objeto, QString::number(rejilla->filasDatos()), comparacion->texto)
                       : aunNo(u"no hay rejilla %1"_s.arg(nombre));
    }
    const auto hay = valor(comparacion->objeto);
    if (!hay)
        return aunNo(u"no hay objeto ni propiedad %1"_s.arg(comparacion->objeto));
    return igual(comparacion->objeto, guion::enUnaLinea(*hay), comparacion->texto);
}

Reproductor::Efecto Reproductor::comprobarMensaje(const QStringList &palabras)
{
    const auto *caja = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!caja)
        return aunNo(u"no hay ningún mensaje"_s);
    QStringList hay{caja->windowTitle(), caja->text()};
    if (palabras.size() == 4)
        hay << guion::nombreIcono(caja->icon());
    return igual(u"mensaje"_s, guion::enUnaLinea(hay.join(u" / "_s)),
                 guion::enUnaLinea(palabras.sliced(1).join(u" / "_s)));
}

/// A box inside a compound counts as the compound, too.
Reproductor::Efecto Reproductor::comprobarFoco(const QString &nombre)
{
    QWidget *foco = guion::conFoco(m_entorno.ventana);
    const QString hay = foco->objectName();
    while (foco->objectName() != nombre && !foco->isWindow())
        foco = foco->parentWidget();
    return foco->objectName() == nombre ? Efecto::Hecho : igual(u"foco"_s, hay, nombre);
}

Reproductor::Efecto Reproductor::igual(const QString &que, const QString &hay, const QString &esperado)
{
    return hay == esperado ? Efecto::Hecho : aunNo(u"%1: hay «%2», se espera «%3»"_s.arg(que, hay, esperado));
}

} // namespace nv
