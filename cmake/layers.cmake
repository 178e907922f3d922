# One library for each layer, fed by the folders: a new source file needs no edit here.

# nerolith_sources(OUT FOLDER...): the .cpp files lying directly in the folders of src/.
function(nerolith_sources out)
  set(found)
  foreach(folder IN LISTS ARGN)
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp")
    list(APPEND found ${sources})
  endforeach()
  set(${out} ${found} PARENT_SCOPE)
endfunction()

# nerolith_layer(NAME [SOURCES FILE...] [USES TARGET...]): a static library. A layer that consists
# of headers only becomes an interface library, so that what uses it does not have to care.
function(nerolith_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;USES" ${ARGN})
  if(LAYER_SOURCES)
    add_library(${name} STATIC ${LAYER_SOURCES})
    target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${LAYER_USES})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE "${CMAKE_SOURCE_DIR}/src")
    target_link_libraries(${name} INTERFACE ${LAYER_USES})
  endif()
endfunction()
