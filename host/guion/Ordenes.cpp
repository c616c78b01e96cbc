#include "common/Error.h"
#include "control/nvArticulo.h"
#include "guion/Reproductor.h"
#include "guion/Teclado.h"
#include "platform/pickers/SelectorCodigo.h"
#include "platform/widgets/Rejilla.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace nv {

namespace {

void pulsarRaton(QWidget *widget, QPoint lugar, bool doble)
{
    const QPointer<QWidget> vivo(widget);
    const auto enviar = [&](QEvent::Type tipo) {
        if (!vivo)
            return;
        const QPointF global = vivo->mapToGlobal(QPointF(lugar));
        const Qt::MouseButtons abajo = tipo == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent evento(tipo, QPointF(lugar), global, Qt::LeftButton, abajo, Qt::NoModifier);
        QApplication::sendEvent(vivo, &evento);
    };
    enviar(QEvent::MouseButtonPress);
    enviar(QEvent::MouseButtonRelease);
    if (doble) {
        enviar(QEvent::MouseButtonDblClick);
        enviar(QEvent::MouseButtonRelease);
    }
}

/// Where a cell is drawn; row 0 is the heading.
std::pair<QWidget *, QPoint> celda(Rejilla *rejilla, int fila, int columna)
{
    if (fila == 0) {
        QHeaderView *titulos = rejilla->horizontalHeader();
        return {titulos->viewport(),
                {titulos->sectionViewportPosition(columna) + titulos->sectionSize(columna) / 2, titulos->height() / 2}};
    }
    const QModelIndex indice = rejilla->model()->index(fila - 1, columna);
    rejilla->scrollTo(indice);
    return {rejilla->viewport(), rejilla->visualRect(indice).center()};
}

QString estado(const QCheckBox *casilla)
{
    switch (casilla->checkState()) {
    case Qt::Unchecked:
        return u"0"_s;
    case Qt::Checked:
        return u"1"_s;
    case Qt::PartiallyChecked:
        break;
    }
    return u"2"_s;
}

QString texto(QWidget *widget)
{
    if (const auto *articulo = qobject_cast<nvArticulo *>(widget))
        return articulo->Text();
    if (const auto *selector = qobject_cast<SelectorCodigo *>(widget))
        return selector->Texto();
    if (const auto *linea = qobject_cast<QLineEdit *>(widget))
        return linea->text();
    if (const auto *etiqueta = qobject_cast<QLabel *>(widget))
        return etiqueta->text();
    if (const auto *casilla = qobject_cast<QCheckBox *>(widget))
        return estado(casilla);
    if (const auto *boton = qobject_cast<QAbstractButton *>(widget))
        return boton->text().remove(u'&');
    if (const auto *lista = qobject_cast<QComboBox *>(widget))
        return lista->currentText();
    if (const auto *rejilla = qobject_cast<Rejilla *>(widget))
        return QString::number(rejilla->filaActual());
    if (const auto *notas = qobject_cast<QPlainTextEdit *>(widget))
        return notas->toPlainText();
    if (const auto *notas = qobject_cast<QTextEdit *>(widget))
        return notas->toPlainText();
    return widget->isVisible() ? u"visible"_s : u"oculto"_s;
}

} // namespace

/// By objectName in the window on top, else in the main one.
QWidget *Reproductor::objeto(const QString &nombre) const
{
    QWidget *activa = guion::ventanaActiva(m_entorno.ventana);
    if (activa->objectName() == nombre)
        return activa;
    if (QWidget *hijo = activa->findChild<QWidget *>(nombre))
        return hijo;
    return m_entorno.ventana->findChild<QWidget *>(nombre);
}

/// Text or state of a widget ("nombre:visible", "nombre:activo" for those states), or a property of the item box.
std::optional<QString> Reproductor::valor(const QString &nombre) const
{
    const QString base = nombre.section(u':', 0, 0);
    const QString estado = nombre.section(u':', 1);
    if (QWidget *widget = objeto(base)) {
        if (estado == u"visible")
            return widget->isVisible() ? u"1"_s : u"0"_s;
        if (estado == u"activo")
            return widget->isEnabled() ? u"1"_s : u"0"_s;
        return texto(widget);
    }
    const QVariant propiedad = m_entorno.articulo->property(nombre.toUtf8().constData());
    if (!propiedad.isValid())
        return std::nullopt;
    if (propiedad.typeId() == QMetaType::Bool)
        return propiedad.toBool() ? u"True"_s : u"False"_s;
    return propiedad.toString();
}

Reproductor::Efecto Reproductor::aunNo(const QString &motivo)
{
    m_motivo = motivo;
    return Efecto::Esperar;
}

Reproductor::Efecto Reproductor::hacer(const Orden &orden)
{
    const QStringList entrada{u"teclea"_s,    u"pulsa"_s,    u"enfoca"_s, u"clic"_s,
                              u"dobleclic"_s, u"responde"_s, u"pon"_s,    u"reinicia"_s};
    try {
        return entrada.contains(orden.nombre) ? hacerEntrada(orden) : hacerConsulta(orden);
    } catch (const Error &error) {
        fallar(u"línea %1: %2"_s.arg(orden.linea).arg(error.descripcion));
        return Efecto::Hecho;
    }
}

Reproductor::Efecto Reproductor::hacerEntrada(const Orden &orden)
{
    if (orden.nombre == u"teclea") {
        const bool comillas = orden.resto.size() >= 2 && orden.resto.startsWith(u'"') && orden.resto.endsWith(u'"');
        guion::teclear(m_entorno.ventana, comillas ? orden.resto.sliced(1, orden.resto.size() - 2) : orden.resto);
    } else if (orden.nombre == u"pulsa") {
        if (!guion::pulsar(m_entorno.ventana, orden.resto))
            malGuion(orden, u"no hay tecla %1"_s.arg(orden.resto));
    } else if (orden.nombre == u"enfoca") {
        QWidget *widget = objeto(orden.resto);
        if (!widget)
            return aunNo(u"no hay objeto %1"_s.arg(orden.resto));
        widget->setFocus();
    } else if (orden.nombre == u"responde") {
        return responder(orden.resto);
    } else if (orden.nombre == u"pon") {
        return poner(orden);
    } else if (orden.nombre == u"reinicia") {
        return reiniciar(orden);
    } else {
        return clic(orden, orden.nombre == u"dobleclic");
    }
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::hacerConsulta(const Orden &orden)
{
    if (orden.nombre == u"sql")
        return consultar(orden.resto);
    if (orden.nombre == u"rejilla")
        return mostrarRejilla(orden);
    if (orden.nombre == u"comprueba")
        return comprobar(orden);
    if (orden.nombre == u"captura")
        return capturar(orden.resto);
    if (orden.nombre == u"traza") {
        m_traza = orden.resto == u"on";
    } else if (orden.nombre == u"muestra") {
        const auto hay = valor(orden.resto);
        if (!hay)
            return aunNo(u"no hay objeto ni propiedad %1"_s.arg(orden.resto));
        decir(orden.resto + u" = "_s + guion::enUnaLinea(*hay));
    } else {
        malGuion(orden, u"no hay orden %1"_s.arg(orden.nombre));
    }
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::clic(const Orden &orden, bool doble)
{
    const QStringList palabras = orden.palabras();
    QWidget *widget = objeto(palabras.value(0));
    if (!widget || !widget->isVisible())
        return aunNo(u"no hay objeto %1 a la vista"_s.arg(palabras.value(0)));
    auto *rejilla = qobject_cast<Rejilla *>(widget);
    if (palabras.size() == 3 && rejilla) {
        const auto [lienzo, lugar] = celda(rejilla, palabras[1].toInt(), palabras[2].toInt());
        pulsarRaton(lienzo, lugar, doble);
    } else if (palabras.size() == 1) {
        const bool casilla = qobject_cast<QCheckBox *>(widget) != nullptr;
        pulsarRaton(widget, casilla ? QPoint(8, widget->height() / 2) : widget->rect().center(), doble);
    } else {
        malGuion(orden, u"clic OBJETO [FILA COLUMNA]"_s);
    }
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::responder(const QString &boton)
{
    auto *caja = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!caja)
        return aunNo(u"no hay ningún mensaje que responder"_s);
    const QList<QAbstractButton *> botones = caja->buttons();
    for (QAbstractButton *candidato : botones) {
        if (candidato->text().remove(u'&') == boton) {
            candidato->click();
            return Efecto::Hecho;
        }
    }
    return aunNo(u"el mensaje no tiene botón %1"_s.arg(boton));
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
        m_entorno.articulo->setModelo(static_cast<qint16>(valor.toInt()));
        return Efecto::Hecho;
    }
    const QMetaObject *clase = m_entorno.articulo->metaObject();
    const int indice = clase->indexOfProperty(nombre.toUtf8().constData());
    if (indice < 0 || !clase->property(indice).isWritable()) {
        malGuion(orden, u"no hay propiedad %1 que se pueda poner"_s.arg(nombre));
        return Efecto::Hecho;
    }
    const bool logica = clase->property(indice).typeId() == QMetaType::Bool;
    clase->property(indice).write(m_entorno.articulo,
                                  logica ? QVariant(valor == u"True" || valor == u"1") : QVariant(valor));
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::consultar(const QString &sentencia)
{
    const Sentencia escrita = Sentencia::deConsola(sentencia);
    if (!sentencia.startsWith(u"SELECT", Qt::CaseInsensitive)) {
        decir(u"%1 filas"_s.arg(m_entorno.conexion->Ejecutar(escrita)));
        return Efecto::Hecho;
    }
    Registros registros = m_entorno.conexion->Abrir(escrita);
    while (registros.siguiente()) {
        QStringList fila;
        for (int i = 0; i < registros.columnas(); ++i)
            fila << registros.textoO(i, u"NULL"_s);
        decir(fila.join(u" | "_s));
    }
    return Efecto::Hecho;
}

Reproductor::Efecto Reproductor::mostrarRejilla(const Orden &orden)
{
    const QStringList palabras = orden.palabras();
    auto *rejilla = qobject_cast<Rejilla *>(objeto(palabras.value(0)));
    if (!rejilla)
        return aunNo(u"no hay rejilla %1"_s.arg(palabras.value(0)));
    const int desde = palabras.value(1, u"0"_s).toInt();
    const int hasta = std::min(palabras.value(2, u"99999"_s).toInt(), rejilla->filas() - 1);
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

Reproductor::Efecto Reproductor::comprobar(const Orden &orden)
{
    const QStringList palabras = orden.palabras();
    if (palabras.value(0) == u"mensaje" && palabras.size() >= 3)
        return comprobarMensaje(palabras);
    if (palabras.value(0) == u"ventana" && palabras.size() == 2)
        return igual(u"ventana"_s, guion::ventanaActiva(m_entorno.ventana)->windowTitle(), palabras[1]);
    if (palabras.value(0) == u"foco" && palabras.size() == 2) {
        QWidget *foco = guion::conFoco(m_entorno.ventana);
        // The box inside a compound counts as the compound.
        while (foco && foco->objectName() != palabras[1] && foco->parentWidget() && !foco->isWindow())
            foco = foco->parentWidget();
        const QString hay =
            foco && foco->objectName() == palabras[1] ? palabras[1] : guion::conFoco(m_entorno.ventana)->objectName();
        return igual(u"foco"_s, hay, palabras[1]);
    }
    const auto comparacion = guion::comparacion(orden.resto);
    if (!comparacion) {
        malGuion(orden, u"comprueba OBJETO = TEXTO"_s);
        return Efecto::Hecho;
    }
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
    static const QStringList nombres{u"sin icono"_s, u"informacion"_s, u"exclamacion"_s, u"critico"_s, u"pregunta"_s};
    const QString hay = caja->windowTitle() + u" / "_s + guion::enUnaLinea(caja->text()) +
                        (palabras.size() > 3 ? u" / "_s + nombres.value(caja->icon()) : QString());
    QString esperado = palabras[1] + u" / "_s + guion::enUnaLinea(palabras[2]);
    if (palabras.size() > 3)
        esperado += u" / "_s + palabras[3];
    return igual(u"mensaje"_s, hay, esperado);
}

Reproductor::Efecto Reproductor::igual(const QString &que, const QString &hay, const QString &esperado)
{
    return hay == esperado ? Efecto::Hecho : aunNo(u"%1: hay «%2», se espera «%3»"_s.arg(que, hay, esperado));
}

Reproductor::Efecto Reproductor::capturar(const QString &nombre)
{
    if (m_entorno.capturas.isEmpty())
        return Efecto::Hecho;
    const QDir carpeta(m_entorno.capturas);
    const bool bien = carpeta.mkpath(u"."_s) &&
                      guion::ventanaActiva(m_entorno.ventana)->grab().save(carpeta.filePath(nombre + u".png"_s));
    if (!bien)
        fallar(u"no se puede guardar la imagen %1"_s.arg(nombre));
    return Efecto::Hecho;
}

/// Closes what is open first; that takes as many turns as there are windows.
Reproductor::Efecto Reproductor::reiniciar(const Orden &orden)
{
    if (QApplication::activeModalWidget()) {
        cerrarModales();
        return aunNo(u"hay una ventana que no se cierra"_s);
    }
    m_entorno.reinicia(orden.resto.isEmpty() ? std::nullopt : std::optional(orden.resto.toInt()));
    return Efecto::Hecho;
}

} // namespace nv
