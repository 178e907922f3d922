# The Windows backend: one static executable that needs nothing but the system's own libraries.

nerolith_sources(windows_sources platform/windows)
if(windows_sources AND NEROLITH_PROGRAM)
  add_executable(velmarion WIN32 ${windows_sources})
  target_link_libraries(velmarion PRIVATE nerolith_core strmiids ole32 oleaut32 uuid dsound dxguid
                                          shell32 winmm comctl32 comdlg32)
  set_target_properties(velmarion PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${NEROLITH_OUTPUT_DIR}")
endif()
