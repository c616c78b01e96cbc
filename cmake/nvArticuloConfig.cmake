include(CMakeFindDependencyMacro)
find_dependency(Qt6 6.4 COMPONENTS Core Gui Widgets Sql PrintSupport)
find_dependency(SQLite3)
include(${CMAKE_CURRENT_LIST_DIR}/nvArticuloTargets.cmake)
