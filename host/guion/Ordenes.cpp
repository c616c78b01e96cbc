#include "guion/Ordenes.h"

#include "Propiedades.h"
#include "guion/Persona.h"
#include "nvArticulo/Error.h"
#include "platform/widgets/Rejilla.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QHash>
#include <QLineEdit>
#include <QMessageBox>
#include <utility>

using namespace Qt::StringLiterals;

namespace mostrador::guion {

namespace {

void exigirIgual(const QString &que, const QString &hay, const QString &esperado)
{
    const QString uno = enUnaLinea(hay);
    const QString otro = enUnaLinea(esperado);
    if (uno != otro)
        throw AunNo{u"%1: hay «%2», se espera «%3»"_s.arg(que, uno, otro)};
}

QMessageBox &mensaje()
{
    auto *caja = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!caja)
        throw AunNo{u"no hay ningún mensaje"_s};
    return *caja;
}

} // namespace

Ordenes::Ordenes(const Entorno &entorno, std::function<void(const QString &)> decir)
    : m_entorno(entorno)
    , m_decir(std::move(decir))
{
    m_entorno.conexion->escuchar(this);
}

Ordenes::~Ordenes()
{
    m_entorno.conexion->dejarDeEscuchar(this);
}

void Ordenes::hacer(const Instruccion &orden)
{
    using Ejecutor = std::function<void(Ordenes &, const Instruccion &)>;
    static const QHash<QString, Ejecutor> ordenes{
        {u"teclea"_s, [](Ordenes &o, const Instruccion &que) { o.teclear(sinComillas(que.resto)); }},
        {u"escribe"_s, [](Ordenes &o, const Instruccion &que) { o.escribir(que.primera(), sinComillas(que.demas())); }},
        {u"pulsa"_s, [](Ordenes &o, const Instruccion &que) { o.pulsar(que.resto); }},
        {u"teclas"_s, [](Ordenes &o, const Instruccion &que) { o.contarTeclas(que.resto); }},
        {u"lee"_s, [](Ordenes &o, const Instruccion &que) { leer(o.m_entorno.ventana, que.leido()); }},
        {u"enfoca"_s, [](Ordenes &o, const Instruccion &que) { o.enfocar(que.resto); }},
        {u"clic"_s, [](Ordenes &o, const Instruccion &que) { o.clic(que.palabras(), false); }},
        {u"dobleclic"_s, [](Ordenes &o, const Instruccion &que) { o.clic(que.palabras(), true); }},
        {u"responde"_s, [](Ordenes &o, const Instruccion &que) { o.responder(que.resto); }},
        {u"pon"_s, [](Ordenes &o, const Instruccion &que) { o.poner(que.primera(), que.demas()); }},
        {u"reinicia"_s, [](Ordenes &o, const Instruccion &que) { o.reiniciar(que.resto); }},
        {u"sql"_s, [](Ordenes &o, const Instruccion &que) { o.consultar(que.resto); }},
        {u"muestra"_s,
         [](Ordenes &o, const Instruccion &que) { o.imprimir({que.resto + u" = "_s + o.valor(que.resto)}); }},
        {u"rejilla"_s, [](Ordenes &o, const Instruccion &que) { o.mostrarRejilla(que.palabras()); }},
        {u"captura"_s, [](Ordenes &o, const Instruccion &que) { o.capturar(que.resto); }},
        {u"traza"_s, [](Ordenes &o, const Instruccion &que) { o.trazar(que.resto); }},
        {u"comprueba"_s, [](Ordenes &o, const Instruccion &que) { o.comprobar(que); }}};
    const auto ejecutor = ordenes.constFind(orden.nombre);
    if (ejecutor == ordenes.constEnd())
        throw GuionMalo{u"no hay orden %1"_s.arg(orden.nombre)};
    (*ejecutor)(*this, orden);
}

/// In the window on top.
template <class Widget>
Widget &Ordenes::objeto(const QString &nombre) const
{
    if (auto *widget = qobject_cast<Widget *>(buscado(ventanaActiva(m_entorno.ventana), nombre)))
        return *widget;
    throw AunNo{
        u"no hay %1 %2 en la ventana"_s.arg(std::is_same_v<Widget, Rejilla> ? u"rejilla"_s : u"objeto"_s, nombre)};
}

/// What a person can reach.
QWidget &Ordenes::aMano(const QString &nombre) const
{
    auto &widget = objeto<QWidget>(nombre);
    if (!widget.isVisible() || !widget.isEnabled())
        throw AunNo{u"%1 no está a mano"_s.arg(nombre)};
    return widget;
}

/// Text or state of a widget ("nombre:visible"…), or a property of the item box.
QString Ordenes::valor(const QString &nombre) const
{
    const QString estado = nombre.section(u':', 1);
    if (QWidget *widget = buscado(ventanaActiva(m_entorno.ventana), nombre.section(u':', 0, 0))) {
        if (estado.isEmpty())
            return enUnaLinea(textoDe(widget));
        if (estado == u"visible")
            return QString::number(widget->isVisible());
        if (estado == u"activo")
            return QString::number(widget->isEnabled());
        if (auto *linea = qobject_cast<QLineEdit *>(widget); linea && estado == u"seleccion")
            return linea->selectedText();
    } else if (const auto propiedad = propiedades::leida(m_entorno.articulo(), nombre)) {
        return enUnaLinea(*propiedad);
    }
    throw AunNo{u"no hay objeto ni propiedad %1"_s.arg(nombre)};
}

void Ordenes::imprimir(const QStringList &lineas)
{
    for (const QString &linea : lineas)
        m_decir(linea);
    m_salida = lineas.join(u"\\n"_s);
}

/// Counted first: a window that the key opens keeps it.
void Ordenes::teclear(const QString &texto)
{
    m_caracteres += texto.size();
    guion::teclear(m_entorno.ventana, texto);
}

void Ordenes::pulsar(const QString &tecla)
{
    ++m_teclas;
    guion::pulsar(m_entorno.ventana, tecla);
}

void Ordenes::contarTeclas(const QString &admitidas)
{
    bool numero = false;
    const int maximo = admitidas.toInt(&numero);
    if (!numero)
        throw GuionMalo{u"teclas N"_s};
    const int teclas = std::exchange(m_teclas, 0);
    imprimir({u"teclas %1, caracteres %2"_s.arg(teclas).arg(std::exchange(m_caracteres, 0))});
    if (teclas > maximo)
        throw Error{0, u"%1 teclas, se admiten %2"_s.arg(teclas).arg(maximo)};
}

/// In place of what stands there. Boxes may change the case of what is typed, no more.
void Ordenes::escribir(const QString &nombre, const QString &texto)
{
    comprobarFoco(nombre);
    pulsar(u"Ctrl+A"_s);
    teclear(texto);
    const QString hay = textoDe(&objeto<QWidget>(nombre));
    if (hay.compare(texto, Qt::CaseInsensitive) != 0)
        throw Error{0, u"%1: hay «%2» después de escribir «%3»"_s.arg(nombre, hay, texto)};
}

void Ordenes::enfocar(const QString &nombre)
{
    aMano(nombre).setFocus();
    comprobarFoco(nombre);
}

void Ordenes::clic(const QStringList &palabras, bool doble)
{
    if (palabras.size() != 1 && palabras.size() != 3)
        throw GuionMalo{u"clic OBJETO [FILA COLUMNA]"_s};
    QWidget &widget = aMano(palabras[0]);
    if (palabras.size() == 1) {
        ++m_teclas;
        const bool casilla = qobject_cast<QCheckBox *>(&widget) != nullptr;
        return pulsarRaton(&widget, casilla ? QPoint(8, widget.height() / 2) : widget.rect().center(), doble);
    }
    auto &rejilla = objeto<Rejilla>(palabras[0]);
    const int fila = palabras[1].toInt();
    const int columna = palabras[2].toInt();
    if (fila >= rejilla.filas() || columna >= rejilla.model()->columnCount())
        throw AunNo{u"%1 no tiene la celda %2 %3"_s.arg(palabras[0], palabras[1], palabras[2])};
    ++m_teclas;
    const auto [lienzo, lugar] = celda(rejilla, fila, columna);
    pulsarRaton(lienzo, lugar, doble);
}

void Ordenes::responder(const QString &boton)
{
    for (QAbstractButton *candidato : mensaje().buttons()) {
        if (textoDe(candidato) == boton) {
            ++m_teclas;
            return candidato->click();
        }
    }
    throw AunNo{u"el mensaje no tiene botón %1"_s.arg(boton)};
}

void Ordenes::poner(const QString &nombre, const QString &valor)
{
    if (nombre.startsWith(u"empresa."))
        m_entorno.ponEmpresa(nombre.sliced(8), valor);
    else if (!propiedades::poner(m_entorno.articulo(), nombre, valor))
        throw GuionMalo{u"no hay propiedad %1 que se pueda poner"_s.arg(nombre)};
}

/// Closes what is open first; that takes as many turns as there are windows.
void Ordenes::reiniciar(const QString &modelo)
{
    if (QWidget *modal = QApplication::activeModalWidget()) {
        cerrar(modal);
        throw AunNo{u"hay una ventana que no se cierra"_s};
    }
    m_teclas = 0;
    m_caracteres = 0;
    m_entorno.reinicia(modelo.isEmpty() ? std::nullopt : std::optional(modelo.toInt()));
}

void Ordenes::consultar(const QString &sentencia)
{
    const Sentencia escrita = Sentencia::deConsola(sentencia);
    if (!sentencia.startsWith(u"SELECT", Qt::CaseInsensitive))
        return imprimir({u"%1 filas"_s.arg(m_entorno.conexion->Ejecutar(escrita))});
    QStringList filas;
    for (Registros registros = m_entorno.conexion->Abrir(escrita); registros.siguiente();) {
        QStringList fila;
        for (int i = 0; i < registros.columnas(); ++i)
            fila << enUnaLinea(registros.textoO(i, u"NULL"_s));
        filas << fila.join(u" | "_s);
    }
    imprimir(filas);
}

void Ordenes::mostrarRejilla(const QStringList &palabras)
{
    const auto &rejilla = objeto<Rejilla>(palabras.value(0));
    const int ultima = rejilla.filas() - 1;
    const int hasta = palabras.size() > 2 ? std::min(palabras[2].toInt(), ultima) : ultima;
    QStringList filas;
    for (int fila = palabras.value(1).toInt(); fila <= hasta; ++fila)
        filas << textoDeFila(rejilla, fila);
    imprimir(filas);
}

void Ordenes::capturar(const QString &nombre)
{
    if (m_entorno.capturas.isEmpty())
        return;
    const QDir carpeta(m_entorno.capturas);
    const QString fichero = carpeta.filePath(nombre + u".png"_s);
    if (!carpeta.mkpath(u"."_s) || !ventanaActiva(m_entorno.ventana)->grab().save(fichero))
        throw Error{0, u"no se puede guardar la imagen %1"_s.arg(fichero)};
}

void Ordenes::trazar(const QString &como)
{
    m_traza = como == u"on";
    if (!m_traza && como != u"off")
        throw GuionMalo{u"traza on|off"_s};
}

void Ordenes::comprobar(const Instruccion &orden)
{
    const QStringList palabras = orden.palabras();
    const auto empieza = [&](const QString &que, qsizetype minimo, qsizetype maximo) {
        return orden.resto.startsWith(que) && palabras.size() >= minimo && palabras.size() <= maximo;
    };
    const QWidget *modal = QApplication::activeModalWidget();
    const auto comparacion = orden.comparacion();
    const QString &que = comparacion ? comparacion->first : palabras.value(0);
    const auto igual = [&](const QString &hay) { exigirIgual(que, hay, comparacion->second); };
    // With its icon when the script names it.
    if (empieza(u"mensaje \""_s, 3, 4))
        exigirIgual(u"mensaje"_s, leido(mensaje()).first(palabras.size() - 1).join(u" / "_s),
                    palabras.sliced(1).join(u" / "_s));
    else if (empieza(u"ventana \""_s, 2, 2))
        exigirIgual(que, ventanaActiva(m_entorno.ventana)->windowTitle(), palabras[1]);
    else if (empieza(u"foco "_s, 2, 2))
        comprobarFoco(palabras[1]);
    else if (orden.resto == u"nada abierto")
        exigirIgual(u"abierto"_s, modal ? modal->windowTitle() : QString(), {});
    else if (!comparacion)
        throw GuionMalo{u"comprueba OBJETO = TEXTO"_s};
    else if (que == u"salida")
        igual(m_salida);
    else if (que.startsWith(u"filas "))
        igual(QString::number(objeto<Rejilla>(que.sliced(6).trimmed()).filasDatos()));
    else
        igual(valor(que));
}

/// A box inside a compound counts as the compound, too.
void Ordenes::comprobarFoco(const QString &nombre) const
{
    const QWidget *foco = conFoco(m_entorno.ventana);
    const QString hay = foco ? foco->objectName() : QString();
    while (foco && foco->objectName() != nombre)
        foco = foco->isWindow() ? nullptr : foco->parentWidget();
    if (!foco)
        exigirIgual(u"foco"_s, hay, nombre);
}

void Ordenes::sentencia(const SucesoSentencia &suceso)
{
    if (!m_traza)
        return;
    m_decir(u"  sql "_s + suceso.texto);
    if (!suceso.error.isEmpty())
        m_decir(u"  error "_s + enUnaLinea(suceso.error));
}

} // namespace mostrador::guion
