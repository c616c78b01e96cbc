#pragma once

#include "common/Conexion.h"
#include "platform/widgets/Rejilla.h"
#include "platform/widgets/Twips.h"
#include "search/frmBusqueda_Articulos_1.h"
#include "support/BaseDatos.h"
#include "support/Conductor.h"
#include "support/EmpresaPrueba.h"

#include <QTest>

namespace nv::pruebas {

using namespace Qt::StringLiterals;

/// What went out through the connection.
class Oyente : public nv::OyenteSentencias
{
public:
    explicit Oyente(nv::Conexion &conexion)
        : m_conexion(conexion)
    {
        m_conexion.escuchar(this);
    }
    ~Oyente() override { m_conexion.dejarDeEscuchar(this); }
    void sentencia(const nv::SucesoSentencia &suceso) override { textos.append(suceso.texto); }
    int veces(const QString &comienzo) const
    {
        return static_cast<int>(
            std::count_if(textos.begin(), textos.end(), [&](const QString &t) { return t.startsWith(comienzo); }));
    }
    QStringList textos;

private:
    nv::Conexion &m_conexion;
};

template <class Widget = QWidget>
Widget *campo(QWidget &dialogo, const QString &nombre)
{
    return dialogo.findChild<Widget *>(nombre);
}

inline nv::Rejilla *listado(QWidget &dialogo)
{
    return campo<nv::Rejilla>(dialogo, u"vsListado"_s);
}

inline void pulsa(QWidget &dialogo, Qt::Key tecla)
{
    QTest::keyClick(dialogo.focusWidget(), tecla);
}

inline QStringList columna(QWidget &dialogo, int numero)
{
    QStringList textos;
    for (int fila = 1; fila < listado(dialogo)->filas(); ++fila)
        textos.append(listado(dialogo)->texto(fila, numero));
    return textos;
}

inline int twips(const QWidget *widget, int pixeles)
{
    return nv::twips::dePixeles(pixeles, widget);
}

/// The dialog of search model 0 over a small catalogue.
class BusquedaAbierta
{
public:
    BusquedaAbierta();
    /// Opens the dialog with `preparar`, runs `accion` in it and closes it if it is still there.
    void abrir(const std::function<void(frmBusqueda_Articulos_1 &)> &preparar,
               const std::function<void(frmBusqueda_Articulos_1 &)> &accion);
    void articulo(int codigo, const QString &descripcion, const QString &resto = u"NULL, 0, 0, 0"_s);
    void mil_doscientos();

    BaseDatos base;
    EmpresaPrueba empresa;
    QString codigoElegido;
    QString descripcionElegida;
};

inline BusquedaAbierta::BusquedaAbierta()
{
    nv::ranura::ofrecer(&base.conexion());
    articulo(1, u"TORNILLO"_s, u"NULL, 1, 2, 3"_s);
    articulo(2, u"TUERCA"_s, u"'Tornillería fina', 1, 2, 4"_s);
    articulo(3, u"ARANDELA"_s, u"'De los tornillos', 1, 5, 0"_s);
    articulo(24, u"Clavo"_s, u"NULL, 6, 0, 0"_s);
    base.ejecutar(
        {u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, 9, 'TORNILLO AJENO')"_s,
         u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (2, 1, '841', 1)"_s,
         u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (2, 2, '842', 0)"_s,
         u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 1, 7, '12X34')"_s,
         u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 2, 7, '99')"_s,
         u"INSERT INTO Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 3, 8, '12-345')"_s,
         u"INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 7, 'HIERROS')"_s,
         u"INSERT INTO Familias_1 (Cod_Empresa, Codigo, Nombre) VALUES (2, 1, 'FERRETERIA')"_s,
         u"INSERT INTO Familias_2 (Cod_Empresa, Familia_1, Codigo, Nombre) VALUES (2, 1, 2, 'ROSCAS')"_s,
         u"INSERT INTO Familias_3 (Cod_Empresa, Familia_1, Familia_2, Codigo, Nombre) VALUES (2, 1, 2, 3, 'MACHO')"_s});
}

inline void BusquedaAbierta::articulo(int codigo, const QString &descripcion, const QString &resto)
{
    base.ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion, Desc_Memo, Familia_1, Familia_2,"
                  u" Familia_3) VALUES (2, %1, '%2', %3)"_s.arg(codigo)
                      .arg(descripcion, resto));
}

inline void BusquedaAbierta::mil_doscientos()
{
    empresa.valores[u"Articulos_BusquedaCantMax"_s] = u"5000"_s;
    nv::Transaccion transaccion(base.conexion());
    for (int i = 1; i <= 1200; ++i)
        articulo(10000 + i, u"ZZ %1"_s.arg(i, 4, 10, QChar(u'0')));
    transaccion.confirmar();
}

inline void BusquedaAbierta::abrir(const std::function<void(frmBusqueda_Articulos_1 &)> &preparar,
                                   const std::function<void(frmBusqueda_Articulos_1 &)> &accion)
{
    frmBusqueda_Articulos_1 dialogo(nullptr);
    dialogo.cEmpresa = &empresa;
    preparar(dialogo);
    Conductor conductor;
    conductor.con<frmBusqueda_Articulos_1>([&](frmBusqueda_Articulos_1 &d) {
        accion(d);
        if (d.isVisible())
            d.close();
    });
    dialogo.MostrarModal();
    QVERIFY(conductor.terminado());
    codigoElegido = dialogo.Codigo;
    descripcionElegida = dialogo.Descripcion;
}

} // namespace nv::pruebas
