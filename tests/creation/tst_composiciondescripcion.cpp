#include "creation/ComposicionDescripcion.h"
#include "support/Programa.h"

#include <QTest>

using namespace Qt::StringLiterals;
using nv::CamposDescripcion;
using nv::FormatoDescripcion;

class tst_ComposicionDescripcion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void layouts_data()
    {
        QTest::addColumn<FormatoDescripcion>("formato");
        QTest::addColumn<QString>("descripcion");
        QTest::newRow("brand cut, reference whole") << FormatoDescripcion{{1, 3}, {0, 1}, {2, 10}} << u"ACM B-1234"_s;
        QTest::newRow("families") << FormatoDescripcion{{4, 20}, {5, 2}, {6, 3}} << u"ROPAMAN"_s;
        QTest::newRow("season twice") << FormatoDescripcion{{3, 1}, {0, 2}, {3, 9}} << u"V  V26"_s;
        QTest::newRow("unknown fields and lengths")
            << FormatoDescripcion{{7, 5}, {-1, 5}, {1, -2}, {0, -1}} << QString();
        QTest::newRow("no layout") << FormatoDescripcion{} << QString();
    }
    void layouts()
    {
        QFETCH(FormatoDescripcion, formato);
        // The second level has a name on screen but no code any more.
        const CamposDescripcion campos{
            u"ACME SPORT"_s, u"B-1234"_s, u"V26"_s, {{{1, u"ROPA"_s}, {0, u"CAMISAS"_s}, {6, u"MANGA"_s}}}};
        QTEST(nv::componerDescripcion(formato, campos), "descripcion");
    }
};

NV_PRUEBA(tst_ComposicionDescripcion)
#include "tst_composiciondescripcion.moc"
