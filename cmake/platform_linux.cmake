# The Linux backends: sound, system and windows, and the program that joins them.

find_package(PkgConfig REQUIRED)
pkg_check_modules(NEROLITH_SOUND REQUIRED IMPORTED_TARGET GLOBAL
                  libavformat libavcodec libswresample libavutil libpulse)
# Of FluidSynth only the header: the library is loaded when the first MIDI file is played.
pkg_check_modules(NEROLITH_FLUIDSYNTH REQUIRED fluidsynth)
pkg_check_modules(NEROLITH_GLIB REQUIRED IMPORTED_TARGET GLOBAL glib-2.0)

nerolith_sources(sound_sources platform/linux/sound)
list(FILTER sound_sources EXCLUDE REGEX "/module\\.cpp$")
nerolith_layer(nerolith_linux_sound SOURCES ${sound_sources}
               USES nerolith_core PkgConfig::NEROLITH_SOUND ${CMAKE_DL_LIBS})
target_include_directories(nerolith_linux_sound PRIVATE ${NEROLITH_FLUIDSYNTH_INCLUDE_DIRS})

nerolith_sources(system_sources platform/linux/system)
nerolith_layer(nerolith_linux_system SOURCES ${system_sources}
               USES nerolith_core PkgConfig::NEROLITH_GLIB ${CMAKE_DL_LIBS})

if(NOT NEROLITH_PROGRAM)
  return()
endif()

find_package(Qt6 REQUIRED COMPONENTS DBus Widgets)
pkg_check_modules(NEROLITH_XCB REQUIRED IMPORTED_TARGET xcb)
nerolith_sources(widget_sources platform/linux/widgets)
nerolith_layer(nerolith_linux_widgets SOURCES ${widget_sources}
               USES nerolith_core Qt6::Widgets Qt6::DBus PkgConfig::NEROLITH_XCB)
if(widget_sources)
  set_target_properties(nerolith_linux_widgets PROPERTIES AUTOMOC ON)
  target_compile_options(nerolith_linux_widgets PRIVATE -fpch-preprocess)
  target_precompile_headers(nerolith_linux_widgets PRIVATE <QtWidgets>)
endif()

# What the player is to the rest of the desktop: media controls and sleep, by messages on its buses.
nerolith_sources(desktop_sources platform/linux/desktop)
nerolith_layer(nerolith_linux_desktop SOURCES ${desktop_sources} USES nerolith_core Qt6::DBus)
set_target_properties(nerolith_linux_desktop PROPERTIES AUTOMOC ON)

# The decoders and the sound server's library live in a module of their own: the window is up
# before any of them is loaded.
set(sound_module "${CMAKE_SOURCE_DIR}/src/platform/linux/sound/module.cpp")
if(EXISTS "${sound_module}")
  add_library(velmarion-sound MODULE "${sound_module}")
  target_link_libraries(velmarion-sound PRIVATE nerolith_linux_sound)
  set_target_properties(velmarion-sound PROPERTIES
                        PREFIX "" LIBRARY_OUTPUT_DIRECTORY "${NEROLITH_OUTPUT_DIR}")
  target_link_options(velmarion-sound PRIVATE -Wl,-O1,--as-needed,-z,relro)
endif()

set(program_main "${CMAKE_SOURCE_DIR}/src/platform/linux/main.cpp")
if(EXISTS "${program_main}")
  add_executable(velmarion "${program_main}")
  target_link_libraries(velmarion PRIVATE nerolith_core nerolith_linux_system
                                          nerolith_linux_desktop nerolith_linux_widgets)
  set_target_properties(velmarion PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${NEROLITH_OUTPUT_DIR}")
  target_link_options(velmarion PRIVATE -Wl,-O1,--as-needed,-z,relro)
  if(TARGET velmarion-sound)
    add_dependencies(velmarion velmarion-sound)
  endif()

  set(skin "${CMAKE_SOURCE_DIR}/assets/skin.jpg")
  if(EXISTS "${skin}")
    add_custom_command(OUTPUT "${NEROLITH_OUTPUT_DIR}/skin.jpg"
                       COMMAND ${CMAKE_COMMAND} -E copy "${skin}" "${NEROLITH_OUTPUT_DIR}/skin.jpg"
                       DEPENDS "${skin}" VERBATIM)
    add_custom_target(velmarion_skin ALL DEPENDS "${NEROLITH_OUTPUT_DIR}/skin.jpg")
  endif()
endif()

# What ./run needs and a test build does not wait for.
add_custom_target(player)
foreach(part velmarion velmarion-sound velmarion_skin)
  if(TARGET ${part})
    add_dependencies(player ${part})
  endif()
endforeach()
