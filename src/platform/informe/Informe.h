#pragma once

#include "platform/informe/Plantilla.h"

#include <functional>

class QPagedPaintDevice;

namespace nv {

/// A report: its layout, its numbered parameters and its rows, laid out in pages and painted on a printer or a PDF.
class Informe
{
public:
    /// Told of the work done; false stops it.
    using Avance = std::function<bool(int hecho, int total)>;

    /// Takes the file `directorio` + `fichero`, written with the suite's backslashes, or the layout of that name that
    /// the program carries while there is no such file. Throws Error when it cannot be read.
    Informe(const QString &directorio, const QString &fichero);

    void setParametro(int numero, const QString &valor) { m_parametros[numero] = valor; }
    void setDatos(DatosInforme datos) { m_datos = std::move(datos); }

    /// Paints every page, a first page also without rows. False when it was stopped. Throws Error.
    bool imprimir(QPagedPaintDevice &dispositivo, const Avance &avance) const;

private:
    /// Row counts of the pages; empty when stopped.
    std::vector<std::size_t> repartir(QPagedPaintDevice &dispositivo, const Avance &avance) const;

    Plantilla m_plantilla;
    Plantilla::Parametros m_parametros;
    DatosInforme m_datos;
};

} // namespace nv
