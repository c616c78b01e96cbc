#include "support/Doble.h"

#include "common/Error.h"
#include "platform/datos/Motores.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace nv::pruebas {

Doble::~Doble()
{
    m_proceso.closeWriteChannel();
    m_proceso.waitForFinished(10000);
}

bool Doble::hay()
{
    if (std::exchange(m_probado, true))
        return m_puerto != 0;
    m_proceso.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_proceso.start(QStringLiteral(NV_DOBLE), QStringList());
    if (!m_proceso.waitForStarted() || !m_proceso.waitForReadyRead(20000))
        return false;
    m_puerto = m_proceso.readLine().trimmed().toInt();
    try {
        datos::abrirOdbc(texto(u"prueba"_s));
    } catch (const Error &error) {
        qInfo("FreeTDS: %s", qPrintable(error.descripcion));
        m_puerto = 0;
    }
    return m_puerto != 0;
}

QString Doble::texto(const QString &base) const
{
    return u"DRIVER=FreeTDS;SERVER=127.0.0.1;PORT=%1;DATABASE=%2;UID=u;PWD=p;TDS_Version=7.4;ClientCharset=UTF-8"_s
        .arg(m_puerto)
        .arg(base);
}

} // namespace nv::pruebas
