// The commands that act on the program; those that look at it stand in Comprobaciones.cpp.
#include "common/Error.h"
#include "control/nvArticulo.h"
#include "guion/Objetos.h"
#include "guion/Reproductor.h"
#include "guion/Teclado.h"
#include "platform/widgets/Rejilla.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QHash>
#include <QMessageBox>
#include <QMetaProperty>

using namespace Qt::StringLiterals;

namespace nv {

Reproductor::Efecto Reproductor::aunNo(const QString &motivo)
{
    m_motivo = motivo;
    return Efecto::Esperar;
}

Reproductor::Efecto Reproductor::hacer(const Orden &orden)
{
    using Ejecutor = Efecto (Reproductor::*)(const Orden &);
    static const QHash<QString, Ejecutor> ordenes{
        {u"teclea"_s, &Reproductor::teclear},      {u"pulsa"_s, &Reproductor::pulsarTecla},
        {u"enfoca"_s, &Reproductor::enfocar},      {u"clic"_s, &Reproductor::clic},
        {u"dobleclic"_s, &Reproductor::clic},      {u"responde"_s, &Reproductor::responder},
        {u"pon"_s, &Reproductor::poner},           {u"reinicia"_s, &Reproductor::reiniciar},
        {u"sql"_s, &Reproductor::consultar},       {u"muestra"_s, &Reproductor::mostrar},
        {u"captura"_s, &Reproductor::capturar},    {u"rejilla"_s, &Reproductor::mostrarRejilla},
        {u"comprueba"_s, &Reproductor::comprobar}, {u"traza"_s, &Reproductor::trazar}};
    const Ejecutor ejecutor = ordenes.value(orden.nombre);
    if (!ejecutor)
        return malGuion(u"línea %1: no hay orden %2"_s.arg(orden.linea).arg(orden.nombre));
    try {
        return (this->*ejecutor)(orden);
    } catch (const Error &error) {
        fallar(u"línea %1: %2"_s.arg(orden.linea).arg(error.descripcion));
        return Efecto::Hecho;
    }
}

/// Restarting may have put another box in its place.
nvArticulo &Reproductor::articulo() const
{
    auto *actual = m_entorno.ventana->findChild<nvArticulo *>(m_nombreArticulo);
    if (!actual)
        throw Error{0, u"la ventana no tiene caja de artículo"_s, {}};
    return *actual;
}

/// By objectName in the window on top, else in the main one, where the item box's own children come first.
QWidget *Reproductor::objeto(const QString &nombre) const
{
    QWidget *activa = guion::ventanaActiva(m_entorno.ventana);
    if (activa != m_entorno.ventana) {
        if (QWidget *widget = guion::buscado(activa, nombre))
            return widget;
    }
    auto *propio = articulo().findChild<QWidget *>(nombre);
    return propio ? propio : guion::buscado(m_entorno.ventana, nombre);
}

Reproductor::Efecto Reproductor::teclear(const Orden &orden)
{
    const bool comillas = orden.resto.size() >= 2 && orden.resto.startsWith(u'"') && orden.resto.endsWith(u'"');
    guion::teclear(m_entorno.ventana, comillas ? orden.resto.sliced(1, orden.resto.size() - 2) : orden.resto);
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::pulsarTecla(const Orden &orden)
{
    if (!guion::pulsar(m_entorno.ventana, orden.resto))
        return malGuion(u"línea %1: no hay tecla %2"_s.arg(orden.linea).arg(orden.resto));
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::enfocar(const Orden &orden)
{
    QWidget *widget = objeto(orden.resto);
    if (!widget || !widget->isVisible() || !widget->isEnabled() ||
        widget->window() != guion::ventanaActiva(m_entorno.ventana))
        return aunNo(u"no se puede enfocar %1"_s.arg(orden.resto));
    widget->setFocus();
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::clic(const Orden &orden)
{
    const bool doble = orden.nombre == u"dobleclic";
    const QStringList palabras = orden.palabras();
    QWidget *widget = objeto(palabras.value(0));
    if (!widget || !widget->isVisible() || widget->window() != guion::ventanaActiva(m_entorno.ventana))
        return aunNo(u"no hay objeto %1 a la vista"_s.arg(palabras.value(0)));
    auto *rejilla = qobject_cast<Rejilla *>(widget);
    if (palabras.size() == 3 && rejilla) {
        const int fila = palabras[1].toInt();
        const int columna = palabras[2].toInt();
        if (fila >= rejilla->filas() || columna >= rejilla->model()->columnCount())
            return aunNo(u"%1 no tiene la celda %2 %3"_s.arg(palabras[0], palabras[1], palabras[2]));
        const auto [lienzo, lugar] = guion::celda(*rejilla, fila, columna);
        guion::pulsarRaton(lienzo, lugar, doble);
    } else if (palabras.size() == 1) {
        const bool casilla = qobject_cast<QCheckBox *>(widget) != nullptr;
        guion::pulsarRaton(widget, casilla ? QPoint(8, widget->height() / 2) : widget->rect().center(), doble);
    } else {
        return malGuion(u"línea %1: %2 OBJETO [FILA COLUMNA]"_s.arg(orden.linea).arg(orden.nombre));
    }
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::responder(const Orden &orden)
{
    auto *caja = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!caja)
        return aunNo(u"no hay ningún mensaje que responder"_s);
    const QList<QAbstractButton *> botones = caja->buttons();
    for (QAbstractButton *candidato : botones) {
        if (candidato->text().remove(u'&') == orden.resto) {
            candidato->click();
            return Efecto::Hecho;
        }
    }
    return aunNo(u"el mensaje no tiene botón %1"_s.arg(orden.resto));
}

Reproductor::Efecto Reproductor::poner(const Orden &orden)
{
    const QString nombre = orden.resto.section(u' ', 0, 0);
    const QString valor = orden.resto.section(u' ', 1).trimmed();
    if (nombre.startsWith(u"empresa.")) {
        m_entorno.ponEmpresa(nombre.sliced(8), valor);
        return Efecto::Hecho;
    }
    if (nombre == u"Modelo") {
        articulo().setModelo(static_cast<qint16>(valor.toInt()));
        return Efecto::Hecho;
    }
    const QMetaObject *clase = articulo().metaObject();
    const QMetaProperty propiedad = clase->property(clase->indexOfProperty(nombre.toUtf8().constData()));
    if (!propiedad.isWritable())
        return malGuion(u"línea %1: no hay propiedad %2 que se pueda poner"_s.arg(orden.linea).arg(nombre));
    const bool logica = propiedad.typeId() == QMetaType::Bool;
    propiedad.write(&articulo(), logica ? QVariant(valor == u"True" || valor == u"1") : QVariant(valor));
    return Efecto::Hecho;
}

/// Closes what is open first; that takes as many turns as there are windows.
Reproductor::Efecto Reproductor::reiniciar(const Orden &orden)
{
    if (QApplication::activeModalWidget()) {
        cerrarModal();
        return aunNo(u"hay una ventana que no se cierra"_s);
    }
    m_entorno.reinicia(orden.resto.isEmpty() ? std::nullopt : std::optional(orden.resto.toInt()));
    return Efecto::Hecho;
}

} // namespace nv
