#include "catalogo/Muestrario.h"

namespace nv {

const std::vector<Muestra> &muestrario()
{
    static const std::vector<Muestra> muestras{
        {u"TORNILLO ROSCA MADERA 4X40 CINCADO CAJA 100 U.", 1, 1, 3, 495, u"841234567890",
         u"Caja de cartón reciclado. Servir por cajas completas."},
        {u"TORNILLO ROSCA MADERA 4X50 CINCADO CAJA 100 U.", 1, 1, 3, 545, u"841234567891"},
        {u"TORNILLO ROSCA CHAPA 3,5X25 INOX A2 BLÍSTER 12 U.", 1, 1, 1, 189, u"841234567892"},
        {u"TUERCA AUTOBLOCANTE M8 INOX A2", 1, 1, 1, 35, u"841234567893"},
        {u"DESTORNILLADOR PH1 AISLADO 1000 V", 1, 2, 2, 895, u"841234567894"},
        {u"GRIFO MONOMANDO LAVABO CROMO CAÑO ALTO", 2, 1, 8, 8990, u"841234567895"},
        {u"PLATO DE DUCHA EXTRAPLANO PIZARRA 80X120", 2, 2, 10, 24900, u"841234567896"},
        {u"CHAMPÚ L'ORÉAL ACEITE DE ARGÁN 400 ML", 6, 1, 24, 745, u"841234567897"},
        {u"TINTE L'ORÉAL CASTAÑO CLARO N.º 5", 6, 1, 24, 990, u"841234567898"},
        {u"JABÓN DE MANOS <PURO> & NATURAL 100% 1 L", 6, 3, 25, 265, u"841234567899"},
        {u"PAÑALES BEBÉ TALLA 3 72 U.", 6, 3, 25, 1490, u"841234567900"},
        {u"LÁMPARA DE TECHO LED REGULABLE 18 W", 1, 3, 5, 3995, u"841234567901"},
        {u"BOMBILLA FILAMENTO E14 60 W (DESCATALOGADA)", 1, 3, 5, 145, u"841234567902"},
        {u"MANGUERA DE JARDÍN TRENZADA 15 MM 25 M", 8, 1, 29, 2190, u"841234567903"},
        {u"CONJUNTO MUEBLE Y LAVABO ROBLE NATURAL 80 CM", 2, 3, 9, 44900, u"841234567904",
         u"TORNILLERÍA Y TACOS INCLUIDOS. Plazo de entrega: tres semanas."},
        {u"CUCHILLO JAMONERO MANGO DE OLIVO 25 CM", 3, 3, 12, 2450, u"841234567905"},
        {u"ATÚN CLARO EN ACEITE DE OLIVA PACK 3 X 80 G", 4, 1, 15, 345, u"841234567906"},
        {u"PIÑA EN SU JUGO 390 G", 4, 1, 17, 195, u"841234567907"},
        {u"QUESO MANCHEGO CURADO CUÑA 300 G", 4, 3, 18, 695, u"841234567908"},
        {u"TOMATE DE RAMA KG", 4, 2, 17, 199},
        {u"MANZANA DE TEMPORADA KG", 4, 2, 17, 179},
        {u"JAMÓN IBÉRICO DE CEBO AL CORTE KG", 4, 4, 16, 5490},
        {u"CHORIZO PICANTE KG", 4, 4, 16, 1290},
        {u"CUADERNO ESPIRAL CUADRÍCULA A4 80 H.", 7, 2, 27, 295, u"8412345"},
        {u"BOLÍGRAFO AZUL PUNTA MEDIA 1 MM", 7, 1, 28, 60, u"8412346"},
        {u"SARTÉN ANTIADHERENTE INDUCCIÓN 28 CM", 3, 1, 12, 2695, u"841234567909"},
        {u"MACETA REDONDA TERRACOTA 20 CM", 8, 2, 29, 425, u"841234567910"},
        {u"ACEITE DE OLIVA VIRGEN EXTRA 5 L", 4, 5, 17, 3890, u"841234567911"},
        {u"VAQUERO SLIM MUJER", 5, 1, 20, 3995, u"841234567912"},
        {u"CAMISETA ALGODÓN MANGA CORTA BÁSICA", 5, 2, 21, 1290, u"841234567913"},
    };
    return muestras;
}

const std::vector<ReferenciaMuestra> &referenciasMuestra()
{
    static const std::vector<ReferenciaMuestra> referencias{
        {1, 7, u"TOR-440"},      {2, 7, u"TOR-450"}, {3, 7, u"ABC"},       {4, 9, u"ABC"},      {5, 7, u"UNI-1"},
        {5, 9, u"UNI-1", false}, {6, 12, u"GR/100"}, {8, 24, u"L'OR-400"}, {30, 21, u"CAM 30"},
    };
    return referencias;
}

const std::vector<ReferenciaMuestra> &referenciasClienteMuestra()
{
    static const std::vector<ReferenciaMuestra> referencias{{5, 5, u"CLI-1"}, {6, 6, u"CLI-1"}, {7, 5, u"CLI-7"}};
    return referencias;
}

const std::vector<PluMuestra> &plusMuestra()
{
    static const std::vector<PluMuestra> plus{{20, 25, 1}, {21, 30, 1}, {22, 30, 2}, {23, 31, 2}};
    return plus;
}

} // namespace nv
