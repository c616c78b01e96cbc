INSERT INTO Empresas (Codigo, Nombre, Cod_Empresa_Articulos, Cod_Empresa_Proveedores, Cod_Empresa_Clientes, NoProcesarPermisosControles, FamiliaObligada, DirImagenArt, MaxCodigoArt, CualidadX_PorDefecto, CualidadY_PorDefecto, Series_Automaticas, CodigoBarrasAuto, Nombre_Familia_1, Nombre_Familia_2, Nombre_Familia_3, Nombre_CualidadX, Nombre_CualidadY, Nombre_Alternativo1, OrdenCualidades, DecimalesPvp, DirInformes)
VALUES (1, 'COMERCIAL LA MAÑANA, S.L.', 1, 1, 1, 0, 0, '', 99999, 1, 2, 1, 0, 'Familia', 'SubFamilia', 'Linea', 'Talla', 'Color', 'Estilo', 1, 2, '');
INSERT INTO Parametros_Empresa (Cod_Empresa, Clave, Valor) VALUES
(1, 'BusquedaArticulos', '0'), (1, 'OficinaCentral', '1'), (1, 'EsUlvaro', '0'), (1, 'Check_Barras_7Digitos', '0'),
(1, 'Articulos_CheckRefProv', '0'), (1, 'Articulos_BusquedaCantMax', '150'), (1, 'Almacen_PD', '1'),
(1, 'UsuarioActual', 'DEMO'), (1, 'DeclaraIgic', '0'), (1, 'Articulos_FichaVerPvpConIgic', '1'), (1, 'Articulos_FichaVerPvpConIva', '1');
INSERT INTO Parametros_App (Clave, Valor) VALUES ('nvArticulo.BuscadorM2.MaxCargaFilas', '200');
-- A row denies: these are of another form or control, so that what the item box asks for is granted.
INSERT INTO SGD_Controles_Grupos (Cod_Formulario, Cod_Control, Cod_Grupo, Permiso) VALUES (2, 8, 1, 1), (2, 19, 1, 1), (1, 3, 1, 1);
INSERT INTO Tipos_Impuesto (Codigo, Nombre, Porcentaje, Porcentaje2) VALUES (1, 'GENERAL', 7, 21), (2, 'REDUCIDO', 3, 10), (3, 'SUPERREDUCIDO', 0, 4), (4, 'EXENTO', 0, 0);
INSERT INTO Formacion_Desc (Desc_Larga, Orden, Cod_Campo, Longitud) VALUES
(0, 1, 1, 8), (0, 2, 0, 1), (0, 3, 2, 12),
(1, 1, 5, 20), (1, 2, 0, 1), (1, 3, 1, 15), (1, 4, 0, 1), (1, 5, 2, 20), (1, 6, 0, 1), (1, 7, 3, 6);
INSERT INTO Alternativos_Valores (Tabla, Alternativo, id, Valor) VALUES
(0, 0, 1, 'CLÁSICO'), (0, 0, 2, 'MODERNO'), (0, 0, 3, 'RÚSTICO'), (0, 0, 4, 'INDUSTRIAL'), (0, 0, 5, 'NÓRDICO'), (0, 0, 6, 'INFANTIL');
INSERT INTO Familias_1 (Cod_Empresa, Codigo, Nombre) VALUES
(1, 1, 'FERRETERÍA'), (1, 2, 'BAÑO'), (1, 3, 'MENAJE'), (1, 4, 'ALIMENTACIÓN'), (1, 5, 'MODA'), (1, 6, 'PERFUMERÍA'), (1, 7, 'PAPELERÍA'), (1, 8, 'JARDÍN');
INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, Abrev, Tarifa, TarifaProm) VALUES
(1, 1, 'TIENDA CENTRAL', 'CEN', 1, 2), (1, 2, 'TIENDA PUERTO', 'PTO', 1, 2), (1, 3, 'TIENDA LA VEGA', 'VEG', 1, 2), (1, 4, 'TIENDA MONTAÑA', 'MÑA', 1, 2),
(1, 5, 'TIENDA EL RÍO', 'RÍO', 1, 2), (1, 10, 'ALMACÉN MAYORISTA', 'MAY', 4, 0), (1, 11, 'TIENDA EN LÍNEA', 'WEB', 5, 0);
-- Colours as red + 256 green + 65536 blue: light yellow for offers, light blue for slow stock.
INSERT INTO Tarifas (Cod_Empresa, Cod_Tarifa, Nombre, Decimales, BackColor) VALUES
(1, 1, 'P.V.P. TIENDA', 2, 0), (1, 2, 'OFERTA', 2, 10089215), (1, 3, 'NO MOVIDOS', 2, 16766900), (1, 4, 'MAYORISTA', 3, 0), (1, 5, 'EN LÍNEA', 2, 0);
INSERT INTO Almacen_Tarifas (Cod_Empresa, Cod_Almacen, Cod_Tarifa) VALUES
(1, 1, 1), (1, 1, 2), (1, 1, 4), (1, 2, 1), (1, 2, 2), (1, 2, 4), (1, 3, 1), (1, 3, 2), (1, 3, 4), (1, 4, 1), (1, 4, 2), (1, 4, 4),
(1, 5, 1), (1, 5, 2), (1, 5, 4), (1, 10, 1), (1, 10, 2), (1, 10, 4), (1, 11, 1), (1, 11, 2), (1, 11, 4);
-- The wholesale warehouse and the one on line take everything: no assortment.
INSERT INTO Surtidos_Almacen (Cod_Empresa, Cod_Almacen, Cod_Surtido) VALUES (1, 1, 1), (1, 2, 2), (1, 3, 2), (1, 4, 2), (1, 5, 2);
INSERT INTO Balanzas_Dptos (Cod_Empresa, Codigo, Nombre) VALUES (1, 1, 'FRUTERÍA'), (1, 2, 'CHARCUTERÍA'), (1, 3, 'PESCADERÍA');
-- The first row counts as not chosen where an item is created.
INSERT INTO Cualidades (Codigo, Nombre) VALUES (0, '(ninguna)'), (1, 'TALLA'), (2, 'COLOR'), (3, 'NÚMERO');
INSERT INTO Cualidades_Des (Cod_Empresa, Cod_Cualidad, Codigo, Nombre) VALUES
(1, 1, 1, 'XS'), (1, 1, 2, 'S'), (1, 1, 3, 'M'), (1, 1, 4, 'L'), (1, 1, 5, 'XL'), (1, 1, 6, 'XXL'),
(1, 2, 1, 'BLANCO'), (1, 2, 2, 'NEGRO'), (1, 2, 3, 'GRIS'), (1, 2, 4, 'AZUL MARINO'), (1, 2, 5, 'ROJO'), (1, 2, 6, 'VERDE'), (1, 2, 7, 'MARRÓN'), (1, 2, 8, 'AÑIL'),
(1, 3, 22, '22'), (1, 3, 23, '23'), (1, 3, 24, '24'), (1, 3, 25, '25'), (1, 3, 26, '26'), (1, 3, 27, '27'), (1, 3, 28, '28'), (1, 3, 29, '29'), (1, 3, 30, '30'),
(1, 3, 31, '31'), (1, 3, 32, '32'), (1, 3, 33, '33'), (1, 3, 34, '34'), (1, 3, 35, '35'), (1, 3, 36, '36'), (1, 3, 37, '37'), (1, 3, 38, '38'), (1, 3, 39, '39'),
(1, 3, 40, '40'), (1, 3, 41, '41'), (1, 3, 42, '42'), (1, 3, 43, '43'), (1, 3, 44, '44'), (1, 3, 45, '45'), (1, 3, 46, '46');
