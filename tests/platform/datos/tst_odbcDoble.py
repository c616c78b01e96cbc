"""Stands in for a server behind FreeTDS, so that the driver's own rules (one live result, no statement beside it) are
met in the tests. Speaks as much of the wire protocol as that takes and runs the statements on SQLite.

    tst_odbcDoble.py FILE      prints its port on the first line and serves until its standard input closes
"""

import datetime
import itertools
import re
import socket
import socketserver
import sqlite3
import struct
import sys
import threading
from decimal import Decimal

PRELOGIN, LOGIN, BATCH, ATTENTION = 0x12, 0x10, 1, 6
CON_ERROR, CON_FILAS, CANCELADO = 0x02, 0x10, 0x20
ENTEROS = {"smallint": 2, "int": 4, "bigint": 8}
sesiones = {}
numeros = itertools.count(51)


def utf16(texto):
    return texto.encode("utf-16-le")


def corto(texto):
    return bytes([len(texto)]) + utf16(texto)


def fin(estado=0, filas=0):
    return b"\xfd" + struct.pack("<HHQ", estado, 0, filas)


def error(numero, mensaje):
    cuerpo = struct.pack("<IBBH", numero, 1, 16, len(mensaje)) + utf16(mensaje)
    cuerpo += corto("doble") + corto("") + struct.pack("<I", 1)
    return b"\xaa" + struct.pack("<H", len(cuerpo)) + cuerpo


def tipo_en_cable(tipo):
    if tipo in ENTEROS:
        return b"\x26" + bytes([ENTEROS[tipo]])
    fijos = {"bit": b"\x68\x01", "money": b"\x6e\x08", "datetime": b"\x6f\x08", "decimal": b"\x6a\x09\x0c\x03"}
    if tipo in fijos:
        return fijos[tipo]
    orden = b"\x09\x04\xd0\x00\x34"  # a collation of code page 1252
    if tipo.startswith("char"):
        return b"\xaf" + struct.pack("<H", int(tipo[5:-1])) + orden
    return b"\xa7" + struct.pack("<H", 8000) + orden


def valor_en_cable(tipo, valor, formato):
    es_texto = "char" in tipo
    if valor is None:
        return b"\xff\xff" if es_texto else b"\0"
    if tipo in ENTEROS:
        return bytes([ENTEROS[tipo]]) + int(valor).to_bytes(ENTEROS[tipo], "little", signed=True)
    if tipo == "bit":
        return bytes([1, int(valor)])
    if tipo == "money":
        entero = int(Decimal(str(valor)) * 10000) & 0xFFFFFFFFFFFFFFFF
        return b"\x08" + struct.pack("<II", entero >> 32, entero & 0xFFFFFFFF)
    if tipo == "decimal":
        entero = int(Decimal(str(valor)) * 1000)
        return b"\x09" + bytes([entero >= 0]) + abs(entero).to_bytes(8, "little")
    if tipo == "datetime":
        dias = datetime.datetime.strptime(valor.strip(), formato) - datetime.datetime(1900, 1, 1)
        return b"\x08" + struct.pack("<iI", dias.days, 0)
    octetos = str(valor).encode("cp1252", "replace")
    if tipo.startswith("char"):
        octetos = octetos.ljust(int(tipo[5:-1]))
    return struct.pack("<H", len(octetos)) + octetos


def resultado(nombres, tipos, filas, formato=""):
    salida = b"\x81" + struct.pack("<H", len(nombres))
    for nombre, tipo in zip(nombres, tipos):
        salida += struct.pack("<IH", 0, 9) + tipo_en_cable(tipo) + corto(nombre)
    for fila in filas:
        salida += b"\xd1" + b"".join(valor_en_cable(tipo, valor, formato) for tipo, valor in zip(tipos, fila))
    return salida + fin(CON_FILAS, len(filas))


class Sesion(socketserver.BaseRequestHandler):
    def handle(self):
        self.numero = next(numeros)
        sesiones[self.numero] = self.request
        self.formato = "%m/%d/%Y"  # of dates, until the session says otherwise
        self.tipos = {}  # by column name, as the tables of this session declared them
        self.base = sqlite3.connect(sys.argv[1], timeout=20, isolation_level=None)
        self.base.execute("ATTACH ':memory:' AS propia")
        try:
            while True:
                self.responder(*self.mensaje())
        except (EOFError, OSError):
            pass
        finally:
            sesiones.pop(self.numero, None)
            self.base.close()

    def leer(self, cuantos):
        datos = b""
        while len(datos) < cuantos:
            trozo = self.request.recv(cuantos - len(datos))
            if not trozo:
                raise EOFError
            datos += trozo
        return datos

    def mensaje(self):
        datos = b""
        while True:
            clase, estado, largo = struct.unpack(">BBH4x", self.leer(8))
            datos += self.leer(largo - 8)
            if estado & 1:
                return clase, datos

    def enviar(self, datos):
        for i in range(0, len(datos), 4000):
            trozo = datos[i : i + 4000]
            ultimo = i + 4000 >= len(datos)
            self.request.sendall(struct.pack(">BBHHBB", 4, ultimo, len(trozo) + 8, 0, 1, 0) + trozo)

    def responder(self, clase, datos):
        if clase == PRELOGIN:
            opciones = [b"\x0f\0\0\0\0\0", b"\x02", b"\0", b"\0\0\0\0", b"\0"]  # the second: no encryption
            lugar = 5 * len(opciones) + 1
            indice = b""
            for i, opcion in enumerate(opciones):
                indice += struct.pack(">BHH", i, lugar, len(opcion))
                lugar += len(opcion)
            self.enviar(indice + b"\xff" + b"".join(opciones))
        elif clase == LOGIN:
            cuerpo = b"\1\x74\0\0\4" + corto("Microsoft SQL Server") + b"\x0f\0\0\0"
            self.enviar(b"\xad" + struct.pack("<H", len(cuerpo)) + cuerpo + fin())
        elif clase == BATCH:
            cabeceras = struct.unpack("<I", datos[:4])[0]
            self.enviar(self.sentencia(datos[cabeceras:].decode("utf-16-le").strip()))
        elif clase == ATTENTION:
            self.enviar(fin(CANCELADO))
        else:  # a prepared call: Qt's own at the start; nothing of ours may go out as one
            self.enviar(error(50000, "Sólo sentencias directas.") + fin(CON_ERROR))

    def sentencia(self, texto):
        palabra = texto.split()[0].upper()
        if palabra == "SET":
            if texto == "SET DATEFORMAT dmy":
                self.formato = "%d/%m/%Y"
            return fin()
        if palabra == "KILL":
            sesiones[int(texto.split()[1])].shutdown(socket.SHUT_RDWR)
            return fin()
        if "@@SPID" in texto:
            return resultado([""], ["smallint"], [(self.numero,)])
        if palabra in ("COMMIT", "ROLLBACK") and not self.base.in_transaction:
            numero = 3902 if palabra == "COMMIT" else 3903
            return error(numero, f"The {palabra} TRANSACTION request has no corresponding BEGIN.") + fin(CON_ERROR)
        if palabra == "CREATE":
            self.anotar_tipos(texto)
        en_su_base = r"propia.\1" if palabra in ("CREATE", "DROP") else r"\1"
        return self.ejecutar(palabra, re.sub(r"#(\w+)", en_su_base, texto))

    def anotar_tipos(self, texto):
        columnas = texto[texto.index("(") + 1 : texto.rindex(")")]
        for columna in re.split(r",(?![^(]*\))", columnas):
            nombre, tipo = columna.split()[:2]
            self.tipos[nombre.lower()] = "decimal" if tipo.startswith("decimal") else tipo

    def ejecutar(self, palabra, texto):
        try:
            cursor = self.base.execute(texto)
            filas = cursor.fetchall()
        except sqlite3.IntegrityError as fallo:
            return error(2627, str(fallo)) + error(3621, "The statement has been terminated.") + fin(CON_ERROR)
        except sqlite3.Error as fallo:
            return error(208 if "no such" in str(fallo) else 102, str(fallo)) + fin(CON_ERROR)
        if cursor.description is None:
            cambia = palabra in ("INSERT", "UPDATE", "DELETE")
            return fin(CON_FILAS, cursor.rowcount) if cambia else fin()
        nombres = [columna[0] for columna in cursor.description]
        de_valor = ["int" if filas and isinstance(valor, int) else "varchar" for valor in (filas or [nombres])[0]]
        tipos = [self.tipos.get(nombre.lower(), tipo) for nombre, tipo in zip(nombres, de_valor)]
        return resultado(nombres, tipos, filas, self.formato)


class Servidor(socketserver.ThreadingTCPServer):
    daemon_threads = True


if __name__ == "__main__":
    servidor = Servidor(("127.0.0.1", 0), Sesion)
    print(servidor.server_address[1], flush=True)
    threading.Thread(target=servidor.serve_forever, daemon=True).start()
    sys.stdin.read()
