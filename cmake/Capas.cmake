# One object library per layer, from every source below its folder; all of them go into the one library `nvArticulo`.
add_library(nv_avisos INTERFACE)
target_compile_options(nv_avisos INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
target_compile_definitions(
  nv_avisos INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
                      QT_NO_URL_CAST_FROM_STRING)
if(NV_WERROR)
  target_compile_options(nv_avisos INTERFACE -Werror)
endif()
if(NV_SANEADORES)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer
                      -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()

# Reading the toolkit's headers is most of what a source costs: once for all that are compiled alike.
option(NV_PRECOMPILAR "Precompile the toolkit's headers" ON)
set(NV_CABECERAS_BASE <QString> <QVariant> <QHash> <QDate> <algorithm> <array> <functional> <memory> <optional> <vector>)
set(NV_CABECERAS_WIDGETS ${NV_CABECERAS_BASE} <QApplication> <QBoxLayout> <QCheckBox> <QDialog> <QHeaderView>
    <QKeyEvent> <QLabel> <QLineEdit> <QPointer> <QPushButton> <QTableView>)
if(NV_CCACHE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-fpch-preprocess)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${NV_CCACHE})
endif()

# nv_precompilar(TARGET HEADER…) or, with those of a target before it, nv_precompilar(TARGET REUSE_FROM OTHER).
function(nv_precompilar destino)
  if(NV_PRECOMPILAR)
    if(ARGV1 STREQUAL "REUSE_FROM")
      target_precompile_headers(${destino} ${ARGN})
    else()
      target_precompile_headers(${destino} PRIVATE ${ARGN})
    endif()
  endif()
endfunction()

# What only this project may include.
add_library(nv_interno INTERFACE)
target_include_directories(nv_interno INTERFACE ${PROJECT_SOURCE_DIR}/src)

function(nv_capa nombre carpeta)
  file(GLOB_RECURSE fuentes CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${carpeta}/*.cpp
       ${PROJECT_SOURCE_DIR}/${carpeta}/*.h ${PROJECT_SOURCE_DIR}/${carpeta}/*.qrc)
  add_library(nv_${nombre} OBJECT ${fuentes})
  target_include_directories(nv_${nombre} PRIVATE ${PROJECT_SOURCE_DIR}/include)
  target_link_libraries(nv_${nombre} PRIVATE ${ARGN} nv_interno nv_avisos)
  target_sources(nvArticulo PRIVATE $<TARGET_OBJECTS:nv_${nombre}>)
endfunction()
