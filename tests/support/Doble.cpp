#include "support/Doble.h"

#include "common/Error.h"
#include "platform/datos/Motores.h"
#include "support/BaseDatos.h"

#include <QUuid>

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

BaseOdbc::BaseOdbc(Doble &doble, bool enServidor)
    : m_texto(enServidor    ? qEnvironmentVariable("NVARTICULO_SQLSERVER")
              : doble.hay() ? doble.texto(QUuid::createUuid().toString(QUuid::Id128))
                            : QString())
    , m_enServidor(enServidor)
{
    if (hay())
        datos::crearEsquema(*conectar());
}

BaseOdbc::~BaseOdbc()
{
    if (hay() && m_enServidor)
        borrarEsquema(*conectar());
}

std::unique_ptr<Conexion> BaseOdbc::conectar() const
{
    return datos::abrirOdbc(m_texto);
}

} // namespace nv::pruebas
