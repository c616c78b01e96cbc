#pragma once

#include "nvArticulo/Registros.h"
#include "nvArticulo/Sentencia.h"

#include <QDate>
#include <QString>
#include <optional>

class cEmpresa;

namespace nv {
class Conexion;
}

/// The barcodes of the items (`Articulos_CBarras` under the item-master company), one current record at a time, with at
/// most one main barcode per item. Owned by the form that uses it; company and connection are borrowed and set first.
/// Every operation throws nv::Error labelled with its own name; a step that fails leaves record and `Key` as they were.
class clsArticulo_CBarra
{
public:
    void setcEmpresa(::cEmpresa *empresa) { m_empresa = empresa; }
    void setConexion(nv::Conexion *conexion) { m_conexion = conexion; }
    /// Item code of the current position; -1 in a new instance.
    void setKey(qint32 articulo) { m_key = articulo; }

    qint32 Cod_Articulo = 0;
    QString Cod_Barras;
    qint16 Unidades = 0;
    QDate Fecha;
    bool Principal = false;
    bool Automatico = false;
    /// Quality values that an owner may attach; nothing here stores or reads them.
    qint16 Valor_CualidadX = 0;
    qint16 Valor_CualidadY = 0;

    /// Barcodes of an item, main first. True: the record is the first row and `registros` stands on it.
    bool Cargar(nv::Registros &registros, qint32 articulo);
    bool Cargar_Siguiente(nv::Registros &registros);
    bool Cargar_Anterior(nv::Registros &registros);
    bool Cargar_Primero(nv::Registros &registros);
    bool Cargar_Ultimo(nv::Registros &registros);

    /// Empty when the item has no main barcode.
    QString Dev_CodigoBarraPrincipal(qint32 articulo);
    /// Which item carries a barcode; an item whose row is missing has an empty name.
    bool Existe(const QString &codigoBarras, qint32 &articulo, QString &nombre, qint16 &unidades, bool &principal);

    /// Inserts the record, dated today; as main barcode it takes the mark from the former one.
    void Insertar();
    /// Another barcode of the item becomes main first when it was the main one, and `eraPrincipal` says so.
    void Eliminar(const QString &codigoBarras, qint32 articulo, bool eraPrincipal);
    /// Makes a barcode the main one of the record's item.
    void Cambia_Principal(const QString &codigoBarras);
    /// Rewrites the row of item `Key` and barcode `anterior` from the record.
    void Modificar(const QString &anterior);
    /// The record's barcode becomes the item's main one; taken from another item only if the user agrees.
    void ModificarPrincipal();

    /// Check digit of the data digits; of the record's barcode without its last character when they are empty.
    qint16 Dev_Check(const QString &datos = {});
    /// Whether the record's barcode ends in its check digit, or is no EAN.
    bool Validar() const;
    /// Appends the check digit to the stored barcodes of 7 and 12 characters of a range of items. An item that has the
    /// whole one too keeps both; Error names such items once all the others are done.
    void Calc_Check(qint32 primero, qint32 ultimo);
    /// The automatic barcode of the record's item; issues one from `Contador_CBarras` when it has none. The counter is
    /// read, increased and written in one locked unit of work; inside an open transaction it joins that one.
    QString CrearAuto();

private:
    /// Whether an item's barcode is its main one; nothing when it has it not.
    std::optional<bool> principalDe(const QString &codigoBarras, qint32 articulo);
    bool leerPrimera(nv::Registros &registros, const nv::Sentencia &sentencia);
    bool leerVecino(nv::Registros &registros, const nv::Sentencia &articulo);
    QString emitirNumero(bool &sinContador);
    qint16 empresaArticulos() const;

    ::cEmpresa *m_empresa = nullptr;
    nv::Conexion *m_conexion = nullptr;
    qint32 m_key = -1;
};
