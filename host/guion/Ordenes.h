#pragma once

#include "guion/Instruccion.h"
#include "nvArticulo/Conexion.h"

#include <functional>

class QWidget;
class nvArticulo;

namespace mostrador::guion {

using namespace nv;

/// What a script works on. Everything is borrowed.
struct Entorno
{
    QWidget *ventana = nullptr;
    Conexion *conexion = nullptr;
    std::function<nvArticulo &()> articulo;
    /// Writes a company setting.
    std::function<void(const QString &clave, const QString &valor)> ponEmpresa;
    /// Puts box and company back to their start, with a search model where one is given.
    std::function<void(std::optional<int> modelo)> reinicia;
    /// Folder of the pictures; empty: none are taken.
    QString capturas;
};

/// What each command does (see docs/guiones.md).
class Ordenes : public OyenteSentencias
{
public:
    Ordenes(const Entorno &entorno, std::function<void(const QString &)> decir);
    ~Ordenes() override;

    /// Throws AunNo, GuionMalo, and Error for what has failed.
    void hacer(const Instruccion &orden);

    void sentencia(const SucesoSentencia &suceso) override;

private:
    void escribir(const QString &nombre, const QString &texto);
    void enfocar(const QString &nombre);
    void teclear(const QString &texto);
    void pulsar(const QString &tecla);
    void contarTeclas(const QString &admitidas);
    void clic(const QStringList &palabras, bool doble);
    void responder(const QString &boton);
    void poner(const QString &nombre, const QString &valor);
    void reiniciar(const QString &modelo);
    void consultar(const QString &sentencia);
    void mostrarRejilla(const QStringList &palabras);
    void capturar(const QString &nombre);
    void trazar(const QString &como);
    void comprobar(const Instruccion &orden);
    void comprobarFoco(const QString &nombre) const;

    template <class Widget>
    Widget &objeto(const QString &nombre) const;
    QWidget &aMano(const QString &nombre) const;
    QString valor(const QString &nombre) const;
    void imprimir(const QStringList &lineas);

    Entorno m_entorno;
    std::function<void(const QString &)> m_decir;
    QString m_salida;           ///< what the last command that prints has printed, in one line
    int m_teclas = 0;           ///< keys, clicks and answers since the last count
    qsizetype m_caracteres = 0; ///< and what was typed
    bool m_traza = false;
};

} // namespace mostrador::guion
