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
    QString cortado(const std::function<void(Forma &)> &poner = [](Forma &) {})
    {
        Forma forma(m_ventana.get());
        poner(forma);
        QStringList cortados;
        Conductor conductor;
        conductor.con<Forma>([&](Forma &f) {
            // The item box lays itself out in its own measures, whatever the letter.
            cortados = recortes(&f).filter(QRegularExpression(u"^(?!.* lblNombre )"_s));
            if (const QString carpeta = qEnvironmentVariable("NV_CAPTURAS"); !carpeta.isEmpty())
                f.grab().save(u"%1/%2_%3.png"_s.arg(carpeta, QString::fromLatin1(f.metaObject()->className()))
                                  .arg(QApplication::font().pointSize()));
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
        const std::tuple<QWidget *, QString, QString> casos[] = {
            {&referencia, u"txtReferencia"_s, u"Articulos_Ref.Ref"_s},
            {&barras, u"txtCB"_s, u"Articulos_CBarras.Cod_Barras"_s},
            {&barras, u"txtUnidades"_s, u"Articulos_CBarras.Unidades"_s},
            {&alta, u"txtCodigo"_s, u"Articulos.Codigo"_s},
            {&alta, u"txtRef"_s, u"Articulos_Ref.Ref"_s},
            {&alta, u"txtImpuesto"_s, u"Articulos.TipoImpuesto"_s},
            {&alta, u"txtCodBarras"_s, u"Articulos_CBarras.Cod_Barras"_s},
            {&alta, u"txtDescripcion"_s, u"Articulos.Descripcion"_s},
            {&alta, u"txtDesc_Ticket"_s, u"Articulos.Desc_Ticket"_s},
            {&alta, u"txtTemporada"_s, u"Temporadas.Codigo"_s},
        };
        for (const auto &[forma, nombre, columna] : casos) {
            const QString tipo = m_base->filas(u"SELECT type FROM pragma_table_info('%1') WHERE name = '%2'"_s.arg(
                columna.section(u'.', 0, 0), columna.section(u'.', 1)))[0];
            const int largo = tipo == u"smallint" ? 5 : tipo == u"INT" ? 10 : tipo.section(u'(', 1).chopped(1).toInt();
            auto *widget = forma->findChild<QWidget *>(nombre);
            auto *caja = qobject_cast<QLineEdit *>(widget);
            caja = caja ? caja : widget->findChild<QLineEdit *>();
            caja->setText(QString(largo + 1, u'9'));
            QCOMPARE(nombre + QString::number(caja->text().size()), nombre + QString::number(largo));
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
            QCOMPARE(cortado<frmPLUs>([this](auto &f) { f.cEmpresa = &m_empresa, f.Plu = 4; }), QString());
            QCOMPARE(cortado<frmReferencia_Articulos>(
                         [](auto &f) { f.Referencia = u"R"_s, f.EmpresaArticulos = 2, f.EmpresaProveedores = 3; }),
                     QString());
            QCOMPARE(cortado<frmAlternativos_Eleccion>(), QString());
            QCOMPARE(cortado<frmReferencias_Modificar>([this](auto &f) {
                         f.cEmpresa = &m_empresa, f.Articulo = u"2147483647"_s, f.Proveedor = 1234567;
                     }),
                     QString());
            QCOMPARE(cortado<frmCodBarra_Datos>([this](auto &f) {
                         f.cEmpresa = &m_empresa, f.Articulo = u"2147483647"_s, f.CodBarras = u"1"_s;
                     }),
                     QString());
            QCOMPARE(cortado<frmArticulos_Creacion>([this](auto &f) {
                         f.cEmpresa = &m_empresa, f.Conexion = &m_base->conexion(), f.Proveedor = 1234567;
                         f.TipoImpuesto = 1, f.Marca = 32767, f.CualidadX = f.CualidadY = 3;
                     }),
                     QString());
        }
    }
};

NV_PRUEBA(tst_Cajas)
#include "tst_cajas.moc"
