#include "barcodes/frmCodBarra_Datos.h"
#include "creation/frmArticulos_Creacion.h"
#include "dialogs/frmAlternativos_Eleccion.h"
#include "dialogs/frmPLUs.h"
#include "dialogs/frmReferencia_Articulos.h"
#include "dialogs/frmReferencias_Modificar.h"
#include "support/Recortes.h"
#include "support/Ventana.h"

using namespace Qt::StringLiterals;
using namespace nv::pruebas;

/// What the dialogs' boxes and letters have room for.
class tst_Cajas : public PruebaVentana
{
    Q_OBJECT

    /// What is cut of the form while it is up.
    template <class Forma>
    QString cortado(const std::function<void(Forma &)> &poner)
    {
        Forma forma(m_ventana.get());
        poner(forma);
        QStringList cortados;
        Conductor conductor;
        conductor.con<Forma>([&](Forma &f) {
            // The item box lays itself out in its own measures, whatever the letter.
            cortados = recortes(&f).filter(QRegularExpression(u"^(?!.* lblNombre )"_s));
            f.close();
        });
        forma.MostrarModal();
        return conductor.terminado() ? cortados.join(u'\n') : u"not driven"_s;
    }

private Q_SLOTS:
    void boxes_take_what_their_columns_take()
    {
        llenar(u"Marcas (Codigo) VALUES (1)"_s);
        frmReferencias_Modificar referencia(nullptr);
        frmCodBarra_Datos barras(nullptr);
        frmArticulos_Creacion alta(nullptr);
        const QList<QWidget *> formas{&referencia, &barras, &alta};
        for (const QStringList &c :
             tabla(u"0→txtReferencia→Articulos_Ref→Ref;1→txtCB→Articulos_CBarras→Cod_Barras;1→txtUnidades→"
                   u"Articulos_CBarras→Unidades;2→txtCodigo→Articulos→Codigo;2→txtRef→Articulos_Ref→Ref;2→txtImpuesto→"
                   u"Articulos→TipoImpuesto;2→txtCodBarras→Articulos_CBarras→Cod_Barras;2→txtDescripcion→Articulos→"
                   u"Descripcion;2→txtDesc_Ticket→Articulos→Desc_Ticket;2→txtTemporada→Temporadas→Codigo"_s)) {
            const QString tipo =
                m_base->filas(u"SELECT type FROM pragma_table_info('%1') WHERE name = '%2'"_s.arg(c[2], c[3]))[0];
            const int largo = tipo == u"smallint" ? 5 : tipo == u"INT" ? 10 : tipo.section(u'(', 1).chopped(1).toInt();
            auto *widget = formas[c[0].toInt()]->findChild<QWidget *>(c[1]);
            auto *caja = qobject_cast<QLineEdit *>(widget);
            caja = caja ? caja : widget->findChild<QLineEdit *>();
            caja->setText(QString(largo + 1, u'9'));
            QCOMPARE(c[1] + QString::number(caja->text().size()), c[1] + QString::number(largo));
        }
    }

    void nothing_is_cut_at_any_size_of_letter()
    {
        llenar(u"Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (2, 2147483647, 'CAMISA DE MANGA CORTA');"
               u"Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (3, 1234567, 'HIERROS');"
               u"Articulos_Ref (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref) VALUES (2, 2147483647, 1234567, 'R');"
               u"Balanzas_Articulos (Cod_Empresa, Cod_Articulo, Plu, Dpto) VALUES (1, 2147483647, 4, 1);"
               u"Balanzas_Dptos (Cod_Empresa, Codigo, Nombre) VALUES (1, 1, 'CARNES');"
               u"Cualidades (Codigo, Nombre) VALUES (1, '(ninguna)'), (3, 'Tallas europeas de calzado');"
               u"Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES (0, 0, 3, 'ROJO')"_s);
        for (const int puntos : {9, 14, 18}) {
            const auto letra = conLetra(puntos);
            QVERIFY(abrir());
            const auto empresa = [this](auto &f) { f.cEmpresa = &m_empresa, f.Articulo = u"2147483647"_s; };
            const QString todo =
                cortado<frmPLUs>([this](auto &f) { f.cEmpresa = &m_empresa, f.Plu = 4; }) +
                cortado<frmReferencia_Articulos>(
                    [](auto &f) { f.Referencia = u"R"_s, f.EmpresaArticulos = 2, f.EmpresaProveedores = 3; }) +
                cortado<frmAlternativos_Eleccion>([](auto &) {}) +
                cortado<frmReferencias_Modificar>([&](auto &f) { empresa(f), f.Proveedor = 1234567; }) +
                cortado<frmCodBarra_Datos>([&](auto &f) { empresa(f), f.CodBarras = u"1"_s; }) +
                cortado<frmArticulos_Creacion>([this](auto &f) {
                    f.cEmpresa = &m_empresa, f.Conexion = &m_base->conexion(), f.Proveedor = 1234567;
                    f.TipoImpuesto = 1, f.Marca = 32767, f.CualidadX = f.CualidadY = 3;
                });
            QCOMPARE(todo, QString());
        }
    }
};

NV_PRUEBA(tst_Cajas)
#include "tst_cajas.moc"
