#include "search/sql/Modelo2.h"
#include "search/sql/Modelo5.h"
#include "search/sql/Modelo7.h"
#include "search/sql/Modelo8.h"
#include "support/BaseDatos.h"
#include "support/Programa.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace nv::sql;

/// The rules of free text over real products, where their file is.
class tst_Reales : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /// Fields of the file: code, name, kind, verdict; quotes inside a quoted one are doubled, none spans lines.
    void initTestCase()
    {
        QFile fichero(QStringLiteral(NV_RAIZ) + u"/../shared/data/productos_reales.csv"_s);
        if (!fichero.open(QIODevice::ReadOnly))
            QSKIP("productos_reales.csv is not there: no rule is tried on real products");
        nv::Transaccion transaccion(m_base.conexion());
        fichero.readLine();
        for (int codigo = 1; !fichero.atEnd(); ++codigo) {
            const QString linea = QString::fromUtf8(fichero.readLine());
            const QString barras = linea.section(u',', 0, 0);
            QString nombre = linea.section(u',', 1, -3);
            if (nombre.startsWith(u'"'))
                nombre = nombre.sliced(1, nombre.size() - 2).replace(u"\"\""_s, u"\""_s);
            m_base.ejecutar(u"INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (1, %1, '%2')"_s.arg(
                QString::number(codigo), QString(nombre).replace(u'\'', u"''"_s)));
            m_base.ejecutar(u"INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal)"
                            u" VALUES (1, %1, '%2', 1)"_s.arg(QString::number(codigo), barras));
            if (codigo % 36 == 1)
                m_muestra.emplace_back(codigo, barras, nombre);
        }
        m_base.ejecutar({u"INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo, FUlt_Venta)"
                         u" SELECT 1, 1, Codigo, '24/10/2026' FROM Articulos"_s,
                         u"INSERT INTO Articulos_Tarifas (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp)"
                         u" SELECT 1, Codigo, 1, 1 FROM Articulos"_s});
        transaccion.confirmar();
        QVERIFY(m_muestra.size() > 140);
    }

    /// Asterisks in the place of the blanks keep the words of a name in order, in model 5 in any; after the last word
    /// alone they ask for a name that begins with it, in model 5 for any that has it.
    void names_are_found_by_their_words_and_by_their_barcodes()
    {
        for (const auto &[codigo, barras, nombre] : m_muestra)
            for (const int modelo : {2, 5, 7, 8}) {
                QStringList palabras = nombre.split(u' ', Qt::SkipEmptyParts);
                const QString ultima = palabras.back();
                for (const QString &texto : palabras + QStringList{nombre, barras})
                    QVERIFY2(halla(modelo, texto, codigo), qPrintable(texto));
                std::reverse(palabras.begin(), palabras.end());
                const QString unida = modelo == 5 ? palabras.join(u'*') : QString(nombre).replace(u' ', u'*');
                QVERIFY2(halla(modelo, unida, codigo), qPrintable(unida));
                const bool empieza = modelo == 5 || nombre.startsWith(ultima, Qt::CaseInsensitive);
                QVERIFY2(halla(modelo, ultima + u'*', codigo) == empieza, qPrintable(nombre));
            }
    }

private:
    bool halla(int modelo, const QString &texto, int codigo)
    {
        const EntornoTextoLibre entorno{1, 1, 1, 1, true, {}};
        nv::Registros registros = m_base.conexion().Abrir(modelo == 2   ? modelo2(entorno, texto)
                                                          : modelo == 5 ? modelo5(entorno, {texto, {}})
                                                          : modelo == 7 ? modelo7(entorno, texto, {})
                                                                        : modelo8(entorno, texto, {2026, 10, 23}));
        while (registros.siguiente())
            if (registros.entero32(u"Codigo") == codigo)
                return true;
        return false;
    }

    nv::pruebas::BaseDatos m_base;
    std::vector<std::tuple<int, QString, QString>> m_muestra; // codes, barcodes and names
};

NV_PRUEBA(tst_Reales)
#include "tst_reales.moc"
