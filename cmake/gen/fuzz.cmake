# Fuzz targets for the ZIP reader and for command text (see fuzz/).
add_subdirectory(${CMAKE_SOURCE_DIR}/fuzz ${CMAKE_BINARY_DIR}/fuzz)
