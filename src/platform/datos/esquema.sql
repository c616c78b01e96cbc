-- Catalogue of the suite, in the server's types. Statements end with a semicolon at the end of a line; the embedded
-- engine adds its collations and clusters each table on its primary key.

CREATE TABLE Empresas (
  Codigo smallint NOT NULL,
  Nombre varchar(60),
  Cod_Empresa_Articulos smallint,
  Cod_Empresa_Proveedores smallint,
  Cod_Empresa_Clientes smallint,
  NoProcesarPermisosControles bit DEFAULT 0,
  FamiliaObligada bit DEFAULT 0,
  DirImagenArt varchar(255),
  MargenReal_FArt_sUltimoPUC bit DEFAULT 0,
  MaxCodigoArt int DEFAULT 0,
  CualidadX_PorDefecto smallint DEFAULT 0,
  CualidadY_PorDefecto smallint DEFAULT 0,
  Series_Automaticas bit DEFAULT 0,
  CodigoBarrasAuto bit DEFAULT 0,
  Nombre_Familia_1 varchar(30) DEFAULT '',
  Nombre_Familia_2 varchar(30) DEFAULT '',
  Nombre_Familia_3 varchar(30) DEFAULT '',
  Nombre_CualidadX varchar(30) DEFAULT '',
  Nombre_CualidadY varchar(30) DEFAULT '',
  Nombre_Alternativo1 varchar(30) DEFAULT '',
  OrdenCualidades bit DEFAULT 0,
  DecimalesPvp smallint DEFAULT 2,
  DirInformes varchar(255) DEFAULT '',
  PRIMARY KEY (Codigo)
);

CREATE TABLE Parametros_Empresa (
  Cod_Empresa smallint NOT NULL,
  Clave varchar(100) NOT NULL,
  Valor varchar(255),
  PRIMARY KEY (Cod_Empresa, Clave)
);

CREATE TABLE Parametros_App (
  Clave varchar(100) NOT NULL,
  Valor varchar(255),
  PRIMARY KEY (Clave)
);

CREATE TABLE Parametros_Usuario (
  Usuario varchar(50) NOT NULL,
  Clave varchar(100) NOT NULL,
  Valor varchar(255),
  PRIMARY KEY (Usuario, Clave)
);

CREATE TABLE SGD_Controles_Grupos (
  Cod_Formulario smallint NOT NULL,
  Cod_Control smallint NOT NULL,
  Cod_Grupo smallint NOT NULL DEFAULT 0,
  Permiso smallint DEFAULT 0,
  PRIMARY KEY (Cod_Formulario, Cod_Control, Cod_Grupo)
);

CREATE TABLE Tipos_Impuesto (
  Codigo smallint NOT NULL,
  Nombre varchar(60),
  Porcentaje money DEFAULT 0,
  Porcentaje2 money DEFAULT 0,
  PRIMARY KEY (Codigo)
);

CREATE TABLE Familias_1 (
  Cod_Empresa smallint NOT NULL,
  Codigo smallint NOT NULL,
  Nombre varchar(60),
  PRIMARY KEY (Cod_Empresa, Codigo)
);

CREATE TABLE Familias_2 (
  Cod_Empresa smallint NOT NULL,
  Familia_1 smallint NOT NULL,
  Codigo smallint NOT NULL,
  Nombre varchar(60),
  PRIMARY KEY (Cod_Empresa, Familia_1, Codigo)
);

CREATE TABLE Familias_3 (
  Cod_Empresa smallint NOT NULL,
  Familia_1 smallint NOT NULL,
  Familia_2 smallint NOT NULL,
  Codigo smallint NOT NULL,
  Nombre varchar(60),
  PRIMARY KEY (Cod_Empresa, Familia_1, Familia_2, Codigo)
);

CREATE TABLE Temporadas (
  Codigo varchar(20) NOT NULL,
  Nombre varchar(60),
  PRIMARY KEY (Codigo)
);

CREATE TABLE Marcas (
  Codigo smallint NOT NULL,
  Nombre varchar(60),
  PRIMARY KEY (Codigo)
);

CREATE TABLE Proveedores (
  Cod_Empresa smallint NOT NULL,
  Codigo int NOT NULL,
  Nombre varchar(60),
  PRIMARY KEY (Cod_Empresa, Codigo)
);

CREATE TABLE Clientes (
  Cod_Empresa smallint NOT NULL,
  Codigo int NOT NULL,
  Nombre varchar(60),
  Tarifa_Pvp smallint DEFAULT 0,
  Tarifa_Promoc smallint DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Codigo)
);

CREATE TABLE Clientes_Art_PVP (
  Cod_Empresa smallint NOT NULL,
  Cod_Cliente int NOT NULL,
  Cod_Articulo int NOT NULL,
  Fecha_Inicial datetime NOT NULL,
  Fecha_Final datetime,
  Pvp money DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial)
);

CREATE TABLE Almacenes (
  Cod_Empresa smallint NOT NULL,
  Codigo smallint NOT NULL,
  Nombre varchar(60),
  Abrev varchar(10),
  Tarifa smallint DEFAULT 0,
  TarifaProm smallint DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Codigo)
);

CREATE TABLE Tarifas (
  Cod_Empresa smallint NOT NULL,
  Cod_Tarifa smallint NOT NULL,
  Nombre varchar(60),
  Decimales smallint DEFAULT 2,
  BackColor int DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Tarifa)
);

CREATE TABLE Almacen_Tarifas (
  Cod_Empresa smallint NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Cod_Tarifa smallint NOT NULL,
  PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Tarifa)
);

CREATE TABLE Cualidades (
  Codigo smallint NOT NULL,
  Nombre varchar(60),
  PRIMARY KEY (Codigo)
);

CREATE TABLE Cualidades_Des (
  Cod_Empresa smallint NOT NULL,
  Cod_Cualidad smallint NOT NULL,
  Codigo smallint NOT NULL,
  Nombre varchar(60),
  PRIMARY KEY (Cod_Empresa, Cod_Cualidad, Codigo)
);

CREATE TABLE Formacion_Desc (
  Desc_Larga bit NOT NULL,
  Orden smallint NOT NULL,
  Cod_Campo smallint DEFAULT 0,
  Longitud smallint DEFAULT 0,
  PRIMARY KEY (Desc_Larga, Orden)
);

CREATE TABLE Alternativos_Valores (
  Tabla smallint NOT NULL,
  Alternativo smallint NOT NULL,
  id int NOT NULL,
  Valor varchar(60),
  PRIMARY KEY (Tabla, Alternativo, id)
);

-- Many columns left out by the quick creation of an item: each has the value that stands for "none".
CREATE TABLE Articulos (
  Id int IDENTITY(1,1) PRIMARY KEY,
  Cod_Empresa smallint NOT NULL,
  Codigo int NOT NULL,
  Descripcion varchar(150) DEFAULT '',
  Desc_Ticket varchar(60) DEFAULT '',
  Desc_Memo varchar(max),
  Familia_1 smallint DEFAULT 0,
  Familia_2 smallint DEFAULT 0,
  Familia_3 smallint DEFAULT 0,
  Marca smallint DEFAULT 0,
  TipoImpuesto smallint DEFAULT 0,
  TipoImpuesto2 smallint DEFAULT 0,
  CualidadX smallint DEFAULT 0,
  CualidadY smallint DEFAULT 0,
  NoGenerarSerieEAN bit DEFAULT 0,
  UnidadesDecimales bit DEFAULT 0,
  Temporada varchar(20) DEFAULT '',
  Alternativo1 varchar(255) DEFAULT '',
  Largo money DEFAULT 0,
  Ancho money DEFAULT 0,
  Altura money DEFAULT 0,
  BajoPedido bit DEFAULT 0,
  Bloqueado bit DEFAULT 0,
  MotivoBaja smallint DEFAULT 0,
  FAlta datetime,
  Mod_Ficha bit DEFAULT 0,
  UNIQUE (Cod_Empresa, Codigo)
);
CREATE INDEX Articulos_Descripcion ON Articulos (Cod_Empresa, Descripcion, Codigo);
CREATE INDEX Articulos_Familias ON Articulos (Cod_Empresa, Familia_1, Familia_2, Familia_3, Descripcion, Codigo, MotivoBaja);
CREATE INDEX Articulos_Marca ON Articulos (Cod_Empresa, Marca, Codigo);

CREATE TABLE Articulos_CBarras (
  Cod_Empresa smallint NOT NULL,
  Cod_Articulo int NOT NULL,
  Cod_Barras varchar(30) NOT NULL,
  Unidades smallint DEFAULT 1,
  Fecha datetime,
  Principal bit DEFAULT 0,
  Automatico bit DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Barras, Cod_Articulo)
);
CREATE INDEX Articulos_CBarras_Articulo ON Articulos_CBarras (Cod_Empresa, Cod_Articulo, Principal);

CREATE TABLE Contador_CBarras (
  Cod_Empresa smallint NOT NULL,
  Cod_Barras varchar(30) NOT NULL,
  PRIMARY KEY (Cod_Empresa)
);

CREATE TABLE Articulos_Ref (
  Cod_Empresa smallint NOT NULL,
  Cod_Articulo int NOT NULL,
  Cod_Prov int NOT NULL,
  Ref varchar(50) NOT NULL,
  Principal bit DEFAULT 0,
  Fecha datetime,
  PRIMARY KEY (Cod_Empresa, Ref, Cod_Prov, Cod_Articulo)
);
CREATE INDEX Articulos_Ref_Articulo ON Articulos_Ref (Cod_Empresa, Cod_Articulo, Principal);
CREATE INDEX Articulos_Ref_Proveedor ON Articulos_Ref (Cod_Empresa, Cod_Prov, Ref);

CREATE TABLE Articulos_RefCli (
  Cod_Empresa smallint NOT NULL,
  Cod_Articulo int NOT NULL,
  Cod_Cli int NOT NULL,
  Ref varchar(50) NOT NULL,
  PRIMARY KEY (Cod_Empresa, Ref, Cod_Cli, Cod_Articulo)
);

CREATE TABLE Articulos_Tarifas (
  Cod_Empresa smallint NOT NULL,
  Cod_Articulo int NOT NULL,
  Cod_Tarifa smallint NOT NULL,
  Pvp money DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Tarifa)
);

CREATE TABLE Almacen_Articulos (
  Cod_Empresa smallint NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Cod_Articulo int NOT NULL,
  Stock_Actual money DEFAULT 0,
  Stock_MiniCompra money DEFAULT 0,
  Pend_Servir money DEFAULT 0,
  Pend_Recibir money DEFAULT 0,
  Bloqueo bit DEFAULT 0,
  BloqueoVenta bit DEFAULT 0,
  Rotacion money DEFAULT 0,
  FUlt_Venta datetime,
  PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Almacen)
);
CREATE INDEX Almacen_Articulos_Bloqueo ON Almacen_Articulos (Cod_Empresa, Cod_Almacen, Bloqueo, Cod_Articulo);

CREATE TABLE Almacen_Acumulados (
  Cod_Empresa smallint NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Mes smallint NOT NULL,
  Cod_Articulo int NOT NULL,
  Ventas_Unidades money DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Ejercicio, Mes, Cod_Articulo)
);

CREATE TABLE Balanzas_Dptos (
  Cod_Empresa smallint NOT NULL,
  Codigo smallint NOT NULL,
  Nombre varchar(60),
  PRIMARY KEY (Cod_Empresa, Codigo)
);

CREATE TABLE Balanzas_Articulos (
  Cod_Empresa smallint NOT NULL,
  Cod_Articulo int NOT NULL,
  Plu int NOT NULL,
  Dpto smallint NOT NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Plu, Dpto)
);

CREATE TABLE Surtidos_Almacen (
  Cod_Empresa smallint NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Cod_Surtido smallint NOT NULL,
  PRIMARY KEY (Cod_Empresa, Cod_Almacen, Cod_Surtido)
);

CREATE TABLE Surtidos_Articulo_Todos (
  Cod_Empresa smallint NOT NULL,
  Cod_Surtido smallint NOT NULL,
  Cod_Articulo int NOT NULL,
  Obligatorio smallint DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Surtido, Cod_Articulo)
);

CREATE TABLE Articulos_Buscar (
  Terminal varchar(60) NOT NULL,
  Cod_Empresa smallint,
  Cod_Articulo int,
  Descripcion varchar(150)
);
CREATE INDEX Articulos_Buscar_Terminal ON Articulos_Buscar (Terminal);
