# The rules of the tree itself, and tests that the checkers of those rules do catch breaches.
if(NOT CMAKE_CROSSCOMPILING AND NOT NEROLITH_SANITIZE)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  add_test(NAME house.layers
           COMMAND Python3::Interpreter "${CMAKE_SOURCE_DIR}/scripts/check_layers.py"
                   "${CMAKE_SOURCE_DIR}")
  add_test(NAME house.format COMMAND "${CMAKE_SOURCE_DIR}/scripts/check_format.sh")
  add_test(NAME house.shell COMMAND "${CMAKE_SOURCE_DIR}/scripts/check_shell.sh")
  set(house_tests house.layers house.format house.shell)
  file(GLOB house_scripts CONFIGURE_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/*_test.py")
  foreach(script IN LISTS house_scripts)
    get_filename_component(name "${script}" NAME_WE)
    add_test(NAME house.${name} COMMAND Python3::Interpreter "${script}")
    list(APPEND house_tests house.${name})
  endforeach()
  set_tests_properties(${house_tests} PROPERTIES LABELS house TIMEOUT 60 SKIP_RETURN_CODE 77)
endif()
