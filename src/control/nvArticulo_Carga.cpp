#include "common/Conexion.h"
#include "common/Error.h"
#include "common/Valores.h"
#include "common/cEmpresa.h"
#include "control/CajaCodigo.h"
#include "control/Consultas.h"
#include "control/Dialogos.h"
#include "control/nvArticulo.h"
#include "platform/widgets/Mensajes.h"

using namespace Qt::StringLiterals;

bool nvArticulo::Refrescar_Datos()
{
    bool encontrado = false;
    nv::mensajes::guardar(window(), u"nvArticulos::Cargar"_s, [&] { encontrado = cargarDescripcion(); });
    return encontrado;
}

/// `Articulos.Descripcion` of the code in the box. Throws nv::Error labelled with the title under which it is shown.
bool nvArticulo::cargarDescripcion()
{
    return nv::etiquetado(u"nvArticulos::Cargar"_s, [this] {
        m_existe = false;
        ponerCaja(m_caja->text().remove(u'.'));
        ponerCaja(m_caja->text().remove(u','));
        nv::Consultas consultas(nv::ranura::exigida(), empresaExigida(), dialogos(), window());
        const std::optional<QString> descripcion = consultas.descripcion(nv::ValTexto(m_caja->text()));
        if (descripcion) {
            m_existe = true;
            ponerNombre(*descripcion);
        } else if (m_vital) {
            ponerCaja({});
            ponerNombre({});
        }
        m_multiCodigo.clear();
        m_multiDescripcion.clear();
        m_pendiente = false;
        return descripcion.has_value();
    });
}
