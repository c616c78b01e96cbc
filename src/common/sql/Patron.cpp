#include "common/sql/Patron.h"

namespace nv {

QString patronDesdeComodines(QStringView texto)
{
    QString patron = texto.toString();
    if (!patron.endsWith(u'*'))
        patron += u'*';
    return patron.replace(u'*', u'%');
}

} // namespace nv
