# One static library per layer, from every source below its folder.
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

function(nv_capa nombre carpeta)
  file(GLOB_RECURSE fuentes CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${carpeta}/*.cpp
       ${PROJECT_SOURCE_DIR}/${carpeta}/*.h ${PROJECT_SOURCE_DIR}/${carpeta}/*.qrc)
  if(NOT fuentes)
    return()
  endif()
  add_library(nv_${nombre} STATIC ${fuentes})
  target_include_directories(nv_${nombre} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>
                                                  $<INSTALL_INTERFACE:include/nvArticulo>)
  target_link_libraries(
    nv_${nombre}
    PUBLIC ${ARGN}
    PRIVATE $<BUILD_INTERFACE:nv_avisos>)
  set_target_properties(nv_${nombre} PROPERTIES EXPORT_NAME ${nombre})
  install(TARGETS nv_${nombre} EXPORT nvArticuloTargets ARCHIVE DESTINATION lib)
endfunction()
