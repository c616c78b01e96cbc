#pragma once

#include "platform/informe/Informe.h"

#include <memory>

class QPagedPaintDevice;
class QSaveFile;
class QWidget;

namespace nv {

/// Where a report goes: a printer chosen in the system's dialog, or a PDF file where there is no printer. A file comes
/// into being only once the whole report is in it.
class DestinoInforme
{
public:
    /// Asks the user. `nombre` names the job and is the file name offered.
    DestinoInforme(QWidget *padre, const QString &nombre);
    ~DestinoInforme();

    /// False when the user chose none.
    bool elegido() const { return m_dispositivo != nullptr; }
    /// Prints with a progress box that can stop it; false when it was stopped. Throws Error.
    bool imprimir(const Informe &informe, QWidget *padre);

private:
    void elegirImpresora(QWidget *padre);
    void elegirFichero(QWidget *padre);

    QString m_nombre;
    std::unique_ptr<QSaveFile> m_fichero; // outlives what paints into it
    std::unique_ptr<QPagedPaintDevice> m_dispositivo;
};

} // namespace nv
