# What a build may choose, and the flags that every target shares.

set(NEROLITH_SANITIZE "" CACHE STRING "Sanitizers for every target, as for -fsanitize=")
option(NEROLITH_PROGRAM "Build the program with its windows (off: the core and the sound only)" ON)
option(NEROLITH_FUZZ "Build the fuzzers (needs clang)" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_SCAN_FOR_MODULES OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

# Line tables are enough for a backtrace; full debug information triples the link time.
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")

add_compile_options(-Wall -Wextra -Werror -ffunction-sections -fdata-sections)
add_link_options(-Wl,--gc-sections)

if(NEROLITH_SANITIZE)
  add_compile_options(-fsanitize=${NEROLITH_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${NEROLITH_SANITIZE})
endif()

if(NEROLITH_FUZZ)
  # The fuzzers follow what their input does in all of the code beneath them.
  add_compile_options(-fsanitize=fuzzer-no-link,address)
  add_link_options(-fsanitize=fuzzer-no-link,address)
endif()

# A build of one of the presets in its own place (out/build/NAME) leaves the program in out/NAME.
# Any other build directory keeps everything to itself.
get_filename_component(NEROLITH_BUILD_PARENT "${CMAKE_BINARY_DIR}" DIRECTORY)
get_filename_component(NEROLITH_BUILD_NAME "${CMAKE_BINARY_DIR}" NAME)
if(NEROLITH_BUILD_PARENT STREQUAL "${CMAKE_SOURCE_DIR}/out/build")
  set(NEROLITH_OUTPUT_DIR "${CMAKE_SOURCE_DIR}/out/${NEROLITH_BUILD_NAME}")
  set(NEROLITH_DEMO_DIR "${CMAKE_SOURCE_DIR}/out/demo")
  set(NEROLITH_SCREENSHOT_DIR "${CMAKE_SOURCE_DIR}/out/screenshots")
else()
  set(NEROLITH_OUTPUT_DIR "${CMAKE_BINARY_DIR}/bin")
  set(NEROLITH_DEMO_DIR "${CMAKE_BINARY_DIR}/demo-music")
  set(NEROLITH_SCREENSHOT_DIR "${CMAKE_BINARY_DIR}/screenshots")
endif()
