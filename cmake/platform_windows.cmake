# The Windows backend: one static executable that needs nothing but the system's own libraries.

nerolith_sources(windows_sources platform/windows)
list(FILTER windows_sources EXCLUDE REGEX "/main\\.cpp$")
nerolith_layer(nerolith_windows_system SOURCES ${windows_sources}
               USES nerolith_core strmiids ole32 oleaut32 uuid dxguid shell32 winmm comdlg32
                    mpr gdi32 windowscodecs user32)

nerolith_sources(form_sources platform/windows/forms)
nerolith_layer(nerolith_windows_forms SOURCES ${form_sources}
               USES nerolith_core comctl32 ole32 uuid gdi32 shell32 oleacc)
if(form_sources)
  target_compile_definitions(nerolith_windows_forms PUBLIC UNICODE NOMINMAX _WIN32_WINNT=0x0A00)
endif()

set(program_main "${CMAKE_SOURCE_DIR}/src/platform/windows/main.cpp")
set(program_resources "${CMAKE_SOURCE_DIR}/src/platform/windows/velmarion.rc")
if(NEROLITH_PROGRAM AND EXISTS "${program_main}")
  enable_language(RC)
  string(REPLACE "." "," version_numbers "${PROJECT_VERSION}.0")
  set_source_files_properties("${program_resources}" PROPERTIES COMPILE_DEFINITIONS
    "NEROLITH_VERSION_NUMBERS=${version_numbers};NEROLITH_VERSION_TEXT=\\\"${PROJECT_VERSION}\\\"")
  add_executable(velmarion WIN32 "${program_main}" "${program_resources}")
  target_link_libraries(velmarion PRIVATE nerolith_core nerolith_windows_system
                                          nerolith_windows_forms)
  set_target_properties(velmarion PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${NEROLITH_OUTPUT_DIR}")
  # wWinMain, and no debug information in what ships.
  target_link_options(velmarion PRIVATE -municode -s)

  set(skin "${CMAKE_SOURCE_DIR}/assets/skin.jpg")
  add_custom_command(OUTPUT "${NEROLITH_OUTPUT_DIR}/skin.jpg"
                     COMMAND ${CMAKE_COMMAND} -E copy "${skin}" "${NEROLITH_OUTPUT_DIR}/skin.jpg"
                     DEPENDS "${skin}" VERBATIM)
  add_custom_target(velmarion_skin ALL DEPENDS "${NEROLITH_OUTPUT_DIR}/skin.jpg")
  add_custom_target(player)
  add_dependencies(player velmarion velmarion_skin)
endif()
