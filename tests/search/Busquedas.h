#pragma once

#include "platform/widgets/Rejilla.h"
#include "search/BusquedaBase.h"
#include "search/Fabrica.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"

#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace nv::pruebas {

using namespace Qt::StringLiterals;

/// A program whose settings are kept, for as long as this lasts.
struct Organizacion
{
    Organizacion()
    {
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, carpeta.path());
        QCoreApplication::setOrganizationName(u"Pruebas"_s);
    }
    ~Organizacion() { QCoreApplication::setOrganizationName({}); }
    QTemporaryDir carpeta;
};

/// A search dialog on screen, and the hands of who works with it.
struct Vista
{
    BusquedaBase &d;
    int modelo;

    template <class Widget = QWidget>
    Widget *campo(const char *nombre) const
    {
        return d.findChild<Widget *>(QLatin1StringView(nombre));
    }
    /// Without its underlined letter.
    QString rotulo(const char *nombre) const { return campo(nombre)->property("text").toString().remove(u'&'); }
    bool llevaRotulo(const QWidget *campo) const
    {
        const auto rotulos = d.findChildren<QLabel *>();
        return std::any_of(rotulos.begin(), rotulos.end(), [=](const QLabel *r) { return r->buddy() == campo; });
    }
    Rejilla *lista() const { return d.findChild<Rejilla *>(); }
    bool porCriterios() const { return modelo != 2 && modelo != 5 && modelo < 7; }
    /// The box of the description.
    const char *caja() const { return porCriterios() ? "txtNombre" : modelo >= 7 ? "txtDescripcion" : "txtBusqueda"; }
    int columnaCodigo() const { return modelo == 8 ? 2 : modelo == 0 || modelo == 6 ? 0 : 1; }
    bool enfocado(const char *nombre) const
    {
        const auto *widget = campo(nombre);
        return widget == d.focusWidget() || widget->isAncestorOf(d.focusWidget());
    }
    void pulsa(Qt::Key tecla) const { QTest::keyClick(d.focusWidget(), tecla); }
    void aprieta(const char *boton) const { QTest::mouseClick(campo(boton), Qt::LeftButton); }
    void escribe(const char *nombre, const QString &texto) const
    {
        campo(nombre)->setFocus();
        qobject_cast<QLineEdit *>(d.focusWidget())->selectAll();
        pulsa(Qt::Key_Delete);
        teclear(d.focusWidget(), texto);
    }
    void busca(const QString &texto) const
    {
        if (!campo(caja())->isVisible())
            pulsa(Qt::Key_F9);
        escribe(caja(), texto);
        pulsa(porCriterios() ? Qt::Key_F9 : Qt::Key_Return);
        if (modelo == 7)
            pulsa(Qt::Key_Return);
    }
    QString columna(int numero) const
    {
        QStringList textos;
        for (int fila = 1; fila < lista()->filas(); ++fila)
            textos << lista()->texto(fila, numero);
        return textos.join(u'|');
    }
    QString codigos() const { return columna(columnaCodigo()); }
    QString fila(int numero, int desde = 0) const
    {
        QStringList textos;
        for (int c = desde; c < lista()->model()->columnCount(); ++c)
            textos << lista()->texto(numero, c);
        return textos.join(u'|');
    }
    QPoint punto(int fila, int c) const { return lista()->visualRect(lista()->model()->index(fila - 1, c)).center(); }
    QWidget *celdas() const { return lista()->viewport(); }
    void clic(int fila, int col) const { QTest::mouseClick(celdas(), Qt::LeftButton, {}, punto(fila, col)); }
    void dobleClic(int fila, int col) const { QTest::mouseDClick(celdas(), Qt::LeftButton, {}, punto(fila, col)); }
    /// On the marks: 0 for none.
    void marca(std::initializer_list<int> filas) const
    {
        for (const int fila : filas) {
            lista()->setFilaActual(fila);
            QTest::keyClick(lista(), Qt::Key_Space);
        }
    }
};

/// One catalogue for the nine dialogs: company 1, items of company 2, suppliers of company 3; default warehouse 1.
class CatalogoBusquedas : public BaseDatos, public OyenteSentencias
{
public:
    CatalogoBusquedas();
    ~CatalogoBusquedas() override { conexion().dejarDeEscuchar(this); }
    using Preparar = std::function<void(ContratoBusqueda &)>;
    using Accion = std::function<void(const Vista &)>;
    /// Opens a dialog, runs `accion` in it once it is up, and cancels it if that left it open.
    void abrir(int modelo, const Preparar &preparar, const Accion &accion)
    {
        const DialogoPropio<ContratoBusqueda> dialogo = crearDialogoBusqueda(static_cast<qint16>(modelo), nullptr);
        *dialogo = pedido;
        if (preparar)
            preparar(*dialogo);
        conductor.con<BusquedaBase>([&accion, modelo](BusquedaBase &d) {
            accion(Vista{d, modelo});
            if (d.isVisible())
                d.reject();
        });
        dialogo->MostrarModal();
        QVERIFY2(conductor.terminado() && dialogo.vivo(), "hidden, not gone");
        codigo = dialogo->Codigo;
        descripcion = dialogo->Descripcion;
        varios = dialogo->MultiResultado;
        criterios = *dialogo;
    }
    void abrir(int modelo, const Accion &accion) { abrir(modelo, {}, accion); }
    void sentencia(const SucesoSentencia &suceso) override
    {
        sentencias << suceso.texto;
        if (alBuscar && suceso.texto.contains(u"FROM Articulos a"_s))
            alBuscar();
    }
    /// Items 1001 on, "ZZ 0001" on.
    void articulosZZ(int cuantos)
    {
        empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"50000"_s;
        QStringList valores;
        for (int i = 1; i <= cuantos; ++i)
            valores << u"(2, %1, 'ZZ %2')"_s.arg(1000 + i).arg(i, 4, 10, QChar(u'0'));
        ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES "_s + valores.join(u','));
    }
    /// As if the server had lost it.
    void quitar(const QString &tabla) { ejecutar(u"ALTER TABLE "_s + tabla + u" RENAME TO Fuera"_s); }
    void devolver(const QString &tabla) { ejecutar(u"ALTER TABLE Fuera RENAME TO "_s + tabla); }
    qsizetype busquedas() const { return sentencias.filter(u"FROM Articulos a"_s).size(); }
    QString copia() { return filas(u"SELECT Cod_Articulo FROM Articulos_Buscar ORDER BY 1"_s).join(u'|'); }
    struct Pedido : ContratoBusqueda
    {
        void MostrarModal() override {}
    } pedido; ///< what the component asks of every dialog
    EmpresaPrueba empresa;
    ParametrosPrueba parametros;
    Conductor conductor;
    QStringList sentencias;
    std::function<void()> alBuscar; ///< while the engine works
    // What the last dialog left.
    QString codigo;
    QString descripcion;
    bool varios = false;
    CriteriosBusqueda criterios;
};

inline CatalogoBusquedas::CatalogoBusquedas()
{
    ranura::ofrecer(&conexion());
    pedido.cEmpresa = &empresa;
    pedido.Parametros = &parametros;
    const auto pon = [this](const QString &tabla, const QString &filas) {
        ejecutar(u"INSERT INTO "_s + tabla + u" VALUES "_s + filas);
    };
    pon(u"Articulos (Cod_Empresa, Codigo, Descripcion, Familia_1, Familia_2, Familia_3, Marca, Alternativo1,"
        u" MotivoBaja)"_s,
        u"(2, 1, 'TORNILLO ROJO', 1, 2, 3, 1, ',3,7,', 0), (2, 2, 'TORNILLO GRANDE', 1, 2, 0, 2, ',7,', 0),"
        u" (2, 3, 'TUERCA GRANDE', 1, 5, 0, 0, '', 0), (2, 10, 'ARANDELA ROJO', 2, 0, 0, 3, ',33,', 0),"
        u" (2, 24, 'CLAVO', 0, 0, 0, 0, '', 1), (2, 841, 'CHAMPÚ L''ORÉAL', 2, 0, 0, 1, '', 0),"
        u" (1, 9, 'TORNILLO AJENO', 1, 2, 3, 1, '', 0)"_s);
    ejecutar(u"UPDATE Articulos SET Desc_Memo = 'Tornillería fina', TipoImpuesto = 1 WHERE Codigo = 3"_s);
    pon(u"Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal)"_s,
        u"(2, 1, '8412345678905', 1), (2, 2, '8499', 0), (2, 3, '98100019', 1)"_s);
    pon(u"Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal)"_s,
        u"(2, 1, 7, 'R-1', 1), (2, 2, 7, 'X12Y', 0), (2, 2, 8, 'R-2', 1), (2, 3, 7, 'ROJO-7', 1),"
        u" (2, 10, 8, 'R-10', 1)"_s);
    pon(u"Proveedores (Cod_Empresa, Codigo, Nombre)"_s, u"(3, 7, 'HIERROS'), (3, 8, 'ACEROS')"_s);
    pon(u"Marcas (Codigo, Nombre)"_s, u"(1, 'ROCA'), (2, 'DUROCANTO'), (3, 'OTRA')"_s);
    pon(u"Familias_1 (Cod_Empresa, Codigo, Nombre)"_s, u"(2, 1, 'FERRETERÍA'), (2, 2, 'BAÑO')"_s);
    pon(u"Familias_2 (Cod_Empresa, Familia_1, Codigo, Nombre)"_s, u"(2, 1, 2, 'ROSCAS')"_s);
    pon(u"Familias_3 (Cod_Empresa, Familia_1, Familia_2, Codigo, Nombre)"_s, u"(2, 1, 2, 3, 'MACHO')"_s);
    pon(u"Almacenes (Cod_Empresa, Codigo, Nombre, Abrev, Tarifa)"_s,
        u"(1, 1, 'TIENDA', 'TIE', 1), (1, 2, 'NAVE', 'NAV', 4), (1, 10, 'MAYOR', 'MAY', 4),"
        u" (2, 3, 'AJENO', 'AJE', 1)"_s);
    pon(u"Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, Stock_Actual, Stock_MiniCompra, Rotacion, Bloqueo,"
        u" FUlt_Venta)"_s,
        u"(1, 1, 1, 12, 0.5, 1, 0, '21/11/2026'), (1, 2, 1, 3, 0, 3.456, 0, '21/11/2026'),"
        u" (1, 1, 2, 0, 0, 0, 0, '24/10/2026'), (1, 2, 2, 4, 0, 2, 0, NULL), (1, 1, 3, 4, 0, 0, 0, '20/11/2026'),"
        u" (1, 2, 10, 1, 0, 0, 1, '20/11/2026'), (2, 2, 24, 99, 0, 9, 0, '20/11/2026')"_s);
    pon(u"Tarifas (Cod_Empresa, Cod_Tarifa, Decimales, BackColor)"_s,
        u"(1, 4, 2, 0), (1, 6, 0, 0), (2, 4, 2, 0), (2, 1, 3, 0), (2, 2, 2, 10092543), (2, 3, 2, 16766900)"_s);
    pon(u"Almacen_Tarifas (Cod_Empresa, Cod_Almacen, Cod_Tarifa)"_s, u"(1, 1, 6), (1, 1, 4), (1, 2, 9)"_s);
    pon(u"Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp)"_s,
        u"(2, 1, 4, 10.5), (2, 2, 4, 9), (2, 10, 4, 100), (2, 1, 6, 7), (1, 1, 4, 777), (2, 1, 1, 1234.5678),"
        u" (2, 2, 1, 2), (2, 3, 1, 100), (2, 10, 1, 4)"_s);
    conexion().escuchar(this);
}

} // namespace nv::pruebas
