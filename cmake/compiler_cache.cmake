# Compiles through ccache where it is installed. The sloppiness is what precompiled headers need:
# without it ccache refuses every file that uses one.
if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
  find_program(NEROLITH_CCACHE ccache)
  if(NEROLITH_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        ${NEROLITH_CCACHE})
  endif()
endif()
