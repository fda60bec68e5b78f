# The installed package: the libraries that its targets need, then the targets.

include(CMakeFindDependencyMacro)
find_dependency(ZLIB)
find_dependency(jsoncpp)
include(${CMAKE_CURRENT_LIST_DIR}/TarvikTargets.cmake)
