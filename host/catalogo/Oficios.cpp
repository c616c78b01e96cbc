#include "catalogo/Oficios.h"

using namespace Qt::StringLiterals;

namespace nv {

namespace {

/// A section as it stands in the table: lists with "|" between their members.
struct FilaSeccion
{
    qint16 familia1;
    qint16 familia2;
    const char16_t *nombre;
    const char16_t *lineas;
    const char16_t *productos;
    const char16_t *calidades;
    const char16_t *medidas;
    std::vector<qint16> marcas;
    int precioMinimo;
    int precioMaximo;
    qint16 impuesto;
    bool conTallas = false;
    bool porPeso = false;
};

QStringList lista(const char16_t *texto)
{
    return QString::fromUtf16(texto).split(u'|');
}

const std::vector<FilaSeccion> &tabla()
{
    static const std::vector<FilaSeccion> filas{
        {1,
         1,
         u"TORNILLERÍA",
         u"MADERA|METAL|FIJACIÓN",
         u"TORNILLO ROSCA MADERA|TORNILLO ROSCA CHAPA|TORNILLO ALLEN|TIRAFONDO|TUERCA HEXAGONAL|TUERCA AUTOBLOCANTE|"
         u"ARANDELA PLANA|ARANDELA GROWER|TACO DE NYLON|TACO QUÍMICO|VARILLA ROSCADA|ESPÁRRAGO",
         u"CINCADO|INOX A2|INOX A4|BICROMATADO|LATONADO|NEGRO|CABEZA AVELLANADA|CABEZA DE ESTRELLA",
         u"3X16|3,5X25|4X40|4X50|5X60|6X80|M6|M8|M10|M12|M8X100|CAJA 100 U.|BLÍSTER 12 U.",
         {1, 2, 3},
         35,
         1890,
         1},
        {1,
         2,
         u"HERRAMIENTA MANUAL",
         u"CORTE|GOLPEO|APRIETE",
         u"MARTILLO DE CARPINTERO|DESTORNILLADOR|ALICATE UNIVERSAL|LLAVE INGLESA|LLAVE FIJA|LLAVE DE CARRACA|"
         u"SIERRA DE ARCO|SERRUCHO|FORMÓN|CINTA MÉTRICA|NIVEL DE BURBUJA|TENAZA RUSA",
         u"MANGO BIMATERIA|AISLADO 1000 V|CROMO VANADIO|PROFESIONAL|MANGO DE FRESNO|ACERO FORJADO",
         u"8\"|10\"|12 MM|13 MM|17 MM|19 MM|3 M|5 M|PH1|PH2|T25|400 G|600 G",
         {1, 2, 4},
         290,
         6900,
         1},
        {1,
         3,
         u"ELECTRICIDAD",
         u"MECANISMOS|ILUMINACIÓN|CABLE",
         u"BOMBILLA LED|TUBO LED|LÁMPARA DE TECHO|FOCO EMPOTRABLE|BASE DE ENCHUFE|INTERRUPTOR|CONMUTADOR|"
         u"REGLETA DE 6 TOMAS|ALARGADERA|CABLE UNIPOLAR|MANGUERA ELÉCTRICA|PORTALÁMPARAS",
         u"LUZ CÁLIDA|LUZ FRÍA|REGULABLE|BLANCO|ESTANCO IP65|CON TOMA DE TIERRA|FILAMENTO|SERIE ÑANDÚ",
         u"E14|E27|GU10|7 W|9 W|12 W|18 W|60 CM|1,5 M|3 M|5 M|2,5 MM2|230 V",
         {5, 6},
         120,
         8450,
         1},
        {1,
         4,
         u"CERRAJERÍA",
         u"CERRADURAS|HERRAJES",
         u"CILINDRO DE SEGURIDAD|CERRADURA DE EMBUTIR|CERROJO|CANDADO DE LATÓN|BISAGRA|PERNIO|MANILLA|TIRADOR DE "
         u"MUEBLE|"
         u"CERRADERO|MIRILLA",
         u"LATÓN|NÍQUEL SATINADO|CROMO BRILLO|INOX|NEGRO MATE|ANTIBUMPING",
         u"30X30|30X40|40 MM|50 MM|60 MM|96 MM|128 MM|DERECHA|IZQUIERDA",
         {3, 4, 7},
         180,
         11900,
         1},
        {2,
         1,
         u"GRIFERÍA",
         u"LAVABO|DUCHA|COCINA",
         u"GRIFO MONOMANDO LAVABO|GRIFO MONOMANDO BIDÉ|GRIFO TERMOSTÁTICO DUCHA|GRIFO DE FREGADERO|COLUMNA DE DUCHA|"
         u"ALCACHOFA DE DUCHA|FLEXO DE DUCHA|CARTUCHO CERÁMICO|LLAVE DE ESCUADRA",
         u"CROMO|NEGRO MATE|BLANCO|ORO CEPILLADO|CAÑO ALTO|CAÑO GIRATORIO|EMPOTRADO|ECO",
         u"1/2\"|3/8\"|35 MM|40 MM|1,5 M|1,75 M|20 CM|25 CM",
         {8, 9, 10},
         490,
         32900,
         1},
        {2,
         2,
         u"SANITARIOS",
         u"INODOROS|LAVABOS|PLATOS DE DUCHA",
         u"INODORO SUSPENDIDO|INODORO COMPACTO|BIDÉ|LAVABO SOBRE ENCIMERA|LAVABO MURAL|PEDESTAL|PLATO DE DUCHA|BAÑERA|"
         u"CISTERNA EMPOTRADA|ASIENTO AMORTIGUADO",
         u"BLANCO|PIZARRA|ANTRACITA|SIN BORDE|EXTRAPLANO|CARGA MINERAL|SERIE DAMA|SERIE MERIDIAN",
         u"60X70|70X100|70X120|80X120|80X160|45 CM|55 CM|65 CM",
         {8, 10},
         3900,
         64900,
         1},
        {2,
         3,
         u"MUEBLE DE BAÑO",
         u"CONJUNTOS|ESPEJOS",
         u"CONJUNTO MUEBLE Y LAVABO|MUEBLE SUSPENDIDO|COLUMNA AUXILIAR|ESPEJO|ESPEJO CON LUZ|CAMERINO|ENCIMERA",
         u"ROBLE NATURAL|NOGAL|BLANCO BRILLO|GRIS PERLA|2 CAJONES|3 CAJONES|AÑIL",
         u"60 CM|70 CM|80 CM|100 CM|120 CM",
         {8, 9},
         5900,
         89900,
         1},
        {2,
         4,
         u"ACCESORIOS DE BAÑO",
         u"PARED|SOBREMESA",
         u"TOALLERO DE BARRA|TOALLERO DE ARO|PORTARROLLOS|ESCOBILLERO|DOSIFICADOR DE JABÓN|PERCHA DOBLE|JABONERA|"
         u"CORTINA DE BAÑO|ALFOMBRILLA ANTIDESLIZANTE",
         u"CROMO|INOX|NEGRO|ADHESIVO|BAMBÚ|VENTOSA|CERÁMICA",
         u"30 CM|45 CM|60 CM|180X200|50X80",
         {9, 10},
         390,
         7900,
         1},
        {3,
         1,
         u"COCINA",
         u"SARTENES|OLLAS|UTENSILIOS",
         u"SARTÉN ANTIADHERENTE|CAZUELA|OLLA RÁPIDA|CAZO|PAELLERA|PARRILLA|WOK|TAPA DE CRISTAL|ESPUMADERA|CUCHARÓN|"
         u"PELADOR|RALLADOR|COLADOR",
         u"INOX|ALUMINIO FORJADO|PIEDRA|INDUCCIÓN|ESMALTADA|SILICONA|HIERRO FUNDIDO",
         u"16 CM|18 CM|20 CM|24 CM|26 CM|28 CM|30 CM|4 L|6 L|8 L",
         {11, 12},
         250,
         14900,
         1},
        {3,
         2,
         u"MESA",
         u"VAJILLA|CRISTALERÍA|TEXTIL",
         u"PLATO LLANO|PLATO HONDO|PLATO DE POSTRE|TAZA DE CAFÉ|VASO DE AGUA|COPA DE VINO|JARRA|ENSALADERA|MANTEL|"
         u"SERVILLETAS|BANDEJA|SALERO",
         u"PORCELANA|LOZA|VIDRIO|OPAL|GRES|CON FILO DORADO|DECORADO AÑIL|LINO",
         u"18 CM|20 CM|27 CM|25 CL|33 CL|50 CL|1 L|6 U.|12 U.|140X200",
         {11, 13},
         95,
         5900,
         1},
        {3,
         3,
         u"CUCHILLERÍA",
         u"CUCHILLOS|CUBIERTOS",
         u"CUCHILLO COCINERO|CUCHILLO JAMONERO|CUCHILLO PUNTILLA|CUCHILLO DE PAN|TIJERA DE COCINA|CHAIRA|"
         u"JUEGO DE CUBIERTOS|TENEDOR|CUCHARA SOPERA",
         u"INOX 18/10|MANGO NEGRO|MANGO DE OLIVO|FORJADO|SERIE UNIVERSAL",
         u"10 CM|15 CM|20 CM|25 CM|24 PIEZAS|12 U.",
         {12, 14},
         150,
         9900,
         1},
        {4,
         1,
         u"CONSERVAS",
         u"PESCADO|VEGETAL|DULCE",
         u"ATÚN CLARO|BONITO DEL NORTE|MEJILLONES EN ESCABECHE|SARDINAS|PIMIENTOS DEL PIQUILLO|ESPÁRRAGOS|ALCACHOFAS|"
         u"TOMATE TRITURADO|GARBANZOS COCIDOS|PIÑA EN SU JUGO|MELOCOTÓN EN ALMÍBAR|MERMELADA DE ARÁNDANOS",
         u"EN ACEITE DE OLIVA|AL NATURAL|EXTRA|ECOLÓGICO|BAJO EN SAL|CASERO|100% NATURAL",
         u"80 G|111 G|120 G|220 G|390 G|400 G|800 G|PACK 3",
         {15, 16},
         85,
         1290,
         2},
        {4,
         2,
         u"FRUTA Y VERDURA",
         u"FRUTA|VERDURA",
         u"MANZANA|PERA CONFERENCIA|PLÁTANO DE CANARIAS|NARANJA DE MESA|LIMÓN|PIÑA|SANDÍA|TOMATE DE "
         u"RAMA|PATATA|CEBOLLA|"
         u"CALABACÍN|ÑORA",
         u"A GRANEL|CATEGORÍA I|DE TEMPORADA|ECOLÓGICA|DEL PAÍS|CALIBRE 70",
         u"KG|500 G|MALLA 1 KG|MALLA 2 KG|BANDEJA",
         {17},
         79,
         690,
         3,
         false,
         true},
        {4,
         3,
         u"LÁCTEOS",
         u"LECHE|QUESO|YOGUR",
         u"LECHE ENTERA|LECHE DESNATADA|YOGUR NATURAL|YOGUR GRIEGO|QUESO MANCHEGO|QUESO TIERNO|QUESO DE CABRA|"
         u"MANTEQUILLA|NATA PARA MONTAR|CUAJADA|BATIDO DE CACAO",
         u"SIN LACTOSA|ECOLÓGICO|CURADO|SEMICURADO|DE PASTOREO|CON CALCIO",
         u"1 L|6X1 L|4X125 G|250 G|500 G|CUÑA 300 G",
         {15, 18},
         75,
         1890,
         3},
        {4,
         4,
         u"CHARCUTERÍA",
         u"JAMÓN|EMBUTIDO",
         u"JAMÓN IBÉRICO|JAMÓN SERRANO|JAMÓN COCIDO|LOMO EMBUCHADO|CHORIZO|SALCHICHÓN|MORTADELA|SOBRASADA|MORCILLA|"
         u"PECHUGA DE PAVO",
         u"AL CORTE|DE BELLOTA|DE CEBO|EXTRA|PICANTE|DE LEÓN",
         u"KG|100 G|150 G|LONCHAS|PIEZA",
         {16, 18},
         190,
         8900,
         2,
         false,
         true},
        {4,
         5,
         u"DESPENSA",
         u"ACEITE Y PASTA|DESAYUNO|BEBIDA",
         u"ACEITE DE OLIVA VIRGEN|ARROZ BOMBA|MACARRONES|HARINA DE TRIGO|AZÚCAR MORENO|CAFÉ MOLIDO|GALLETAS MARÍA|"
         u"CEREALES|AGUA MINERAL|ZUMO DE PIÑA|VINO TINTO CRIANZA|CERVEZA",
         u"EXTRA|INTEGRAL|NATURAL|DESCAFEINADO|SELECCIÓN|SIN AZÚCAR|D.O. LA MANCHA",
         u"250 G|500 G|1 KG|33 CL|75 CL|1 L|1,5 L|5 L|PACK 6",
         {15, 16, 17},
         45,
         4590,
         2},
        {5,
         1,
         u"MUJER",
         u"PUNTO|TEJIDO",
         u"CAMISETA|BLUSA|VESTIDO|FALDA|PANTALÓN|CHAQUETA|ABRIGO|JERSEY|CÁRDIGAN|VAQUERO",
         u"ALGODÓN|LINO|ESTAMPADO|MANGA LARGA|MANGA CORTA|ENTALLADO|PLISADO|CUELLO CISNE",
         u"BÁSICO|PREMIUM|SLIM|OVERSIZE",
         {19, 20},
         690,
         12900,
         1,
         true},
        {5,
         2,
         u"HOMBRE",
         u"PUNTO|TEJIDO",
         u"CAMISA|POLO|CAMISETA|PANTALÓN CHINO|VAQUERO|AMERICANA|JERSEY|SUDADERA|CAZADORA|BERMUDA",
         u"ALGODÓN|LINO|CUADROS|RAYAS|MANGA LARGA|MANGA CORTA|CUELLO MAO",
         u"REGULAR|SLIM|CLASSIC|XL",
         {20, 21},
         790,
         15900,
         1,
         true},
        {5,
         3,
         u"NIÑO",
         u"BEBÉ|INFANTIL",
         u"BODY|PELELE|CAMISETA|LEGGING|CHÁNDAL|PIJAMA|VESTIDO|ABRIGO|BAÑADOR",
         u"ALGODÓN|ESTAMPADO|OSITOS|DINOSAURIOS|RAYAS|POLAR",
         u"0-3 M|6-9 M|2 AÑOS|4 AÑOS|8 AÑOS",
         {19, 22},
         390,
         4900,
         1,
         true},
        {5,
         4,
         u"CALZADO",
         u"MUJER|HOMBRE",
         u"ZAPATO|BOTÍN|SANDALIA|ZAPATILLA DEPORTIVA|MOCASÍN|BOTA|ALPARGATA|ZUECO",
         u"PIEL|ANTE|LONA|SUELA DE GOMA|TACÓN|CUÑA",
         u"CLÁSICO|CÓMODO|RUNNING",
         {21, 23},
         1290,
         18900,
         1,
         true},
        {6,
         1,
         u"CABELLO",
         u"CHAMPÚ|COLORACIÓN",
         u"CHAMPÚ|ACONDICIONADOR|MASCARILLA CAPILAR|TINTE|LACA|GEL FIJADOR|SÉRUM",
         u"ANTICASPA|BRILLO|RIZOS|HIDRATANTE|RUBIO CENIZA|CASTAÑO CLARO|ACEITE DE ARGÁN",
         u"250 ML|300 ML|400 ML|500 ML|N.º 5|N.º 7",
         {24, 25},
         195,
         2490,
         1},
        {6,
         2,
         u"FACIAL",
         u"CREMAS|MAQUILLAJE",
         u"CREMA DE DÍA|CREMA DE NOCHE|CONTORNO DE OJOS|AGUA MICELAR|BASE DE MAQUILLAJE|MÁSCARA DE PESTAÑAS|"
         u"BARRA DE LABIOS|COLORETE",
         u"ANTIEDAD|PIEL SENSIBLE|SPF 30|WATERPROOF|MATE|ROSA|ÁCIDO HIALURÓNICO",
         u"15 ML|30 ML|50 ML|200 ML|400 ML",
         {24, 26},
         350,
         5490,
         1},
        {6,
         3,
         u"HIGIENE",
         u"BAÑO|BUCAL",
         u"GEL DE BAÑO|JABÓN DE MANOS|DESODORANTE|PASTA DE DIENTES|CEPILLO DE DIENTES|COLONIA|ESPUMA DE "
         u"AFEITAR|PAÑALES|"
         u"TOALLITAS",
         u"AVENA|LIMÓN|SIN ALCOHOL|BLANQUEADORA|MEDIO|BEBÉ|LAVANDA",
         u"75 ML|100 ML|200 ML|750 ML|1 L|24 U.|72 U.",
         {25, 26},
         95,
         1990,
         2},
        {7,
         1,
         u"ESCRITURA",
         u"BOLÍGRAFOS|LÁPICES",
         u"BOLÍGRAFO|ROTULADOR|LÁPIZ|PORTAMINAS|PLUMA|MARCADOR FLUORESCENTE|GOMA DE BORRAR|SACAPUNTAS",
         u"AZUL|NEGRO|ROJO|PUNTA FINA|PUNTA MEDIA|BORRABLE|GEL",
         u"0,5 MM|0,7 MM|1 MM|HB|12 U.|ESTUCHE 24",
         {27, 28},
         25,
         1890,
         1},
        {7,
         2,
         u"PAPEL",
         u"CUADERNOS|ARCHIVO",
         u"CUADERNO ESPIRAL|LIBRETA|PAPEL FOTOCOPIADORA|CARPETA|ARCHIVADOR|SOBRE|AGENDA|CARTULINA",
         u"CUADRÍCULA|LISO|RAYADO|TAPA DURA|RECICLADO|BLANCO|COLORES",
         u"A4|A5|FOLIO|500 H.|80 H.|100 U.|90 G",
         {27, 28},
         45,
         2490,
         1},
        {8,
         1,
         u"RIEGO",
         u"MANGUERAS|PROGRAMADORES",
         u"MANGUERA DE JARDÍN|PISTOLA DE RIEGO|PROGRAMADOR|ASPERSOR|GOTERO|ENLACE RÁPIDO|CARRO PORTAMANGUERAS",
         u"TRENZADA|AUTOCOMPENSANTE|LATÓN|REFORZADA|1 VÍA|4 VÍAS",
         u"15 MM|19 MM|15 M|25 M|50 M|1/2\"|3/4\"",
         {29, 4},
         45,
         9900,
         1},
        {8,
         2,
         u"MACETAS Y PLANTAS",
         u"MACETAS|SUSTRATOS",
         u"MACETA REDONDA|JARDINERA|MACETERO COLGANTE|SUSTRATO UNIVERSAL|ABONO LÍQUIDO|TIERRA PARA CÉSPED|SEMILLAS DE "
         u"ALBAHACA",
         u"BARRO|PLÁSTICO|CERÁMICA|TERRACOTA|AUTORRIEGO|ECOLÓGICO",
         u"14 CM|20 CM|30 CM|40 CM|5 L|20 L|50 L|1 L",
         {29},
         95,
         4900,
         2},
    };
    return filas;
}

} // namespace

const QStringList &nombresFamilias1()
{
    static const QStringList nombres{u"FERRETERÍA"_s, u"BAÑO"_s,       u"MENAJE"_s,    u"ALIMENTACIÓN"_s,
                                     u"MODA"_s,       u"PERFUMERÍA"_s, u"PAPELERÍA"_s, u"JARDÍN"_s};
    return nombres;
}

const QStringList &nombresMarcas()
{
    static const QStringList nombres{u"FIXAL"_s,        u"HERCAN"_s,      u"TORNIBAL"_s,        u"FORJAS PEÑA"_s,
                                     u"LUMBRÍA"_s,      u"VOLTAJE SUR"_s, u"CERRALBA"_s,        u"AGUARIA"_s,
                                     u"NÁCAR BAÑO"_s,   u"D'AIGUA"_s,     u"MENAJE MONTAÑÉS"_s, u"SARTEX"_s,
                                     u"LA LOZA AÑIL"_s, u"ALBAFILO"_s,    u"HUERTA DEL REY"_s,  u"O'DONNELL & HIJOS"_s,
                                     u"CAMPIÑA"_s,      u"LA QUESERÍA"_s, u"ALMAZARA MODA"_s,   u"COSTURA 9"_s,
                                     u"GARAÑÓN"_s,      u"PEQUEÑÍN"_s,    u"ZAPATERÍA SOL"_s,   u"L'ORÉAL"_s,
                                     u"NATURÍS"_s,      u"BELLA D'OR"_s,  u"TRAZO"_s,           u"PLIEGO & CÍA."_s,
                                     u"VERDECÉSPED"_s};
    return nombres;
}

const std::vector<Seccion> &secciones()
{
    static const std::vector<Seccion> todas = [] {
        std::vector<Seccion> lectura;
        for (const FilaSeccion &fila : tabla())
            lectura.push_back({fila.familia1, fila.familia2, QString::fromUtf16(fila.nombre), lista(fila.lineas),
                               lista(fila.productos), lista(fila.calidades), lista(fila.medidas), fila.marcas,
                               fila.precioMinimo, fila.precioMaximo, fila.impuesto, fila.conTallas, fila.porPeso});
        return lectura;
    }();
    return todas;
}

} // namespace nv
