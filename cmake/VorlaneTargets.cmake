# One way to declare a library, a program and a test, so that all share their
# include root, warnings and sanitizers.

find_package(PkgConfig REQUIRED)

add_library(vorlane_options INTERFACE)
target_include_directories(vorlane_options INTERFACE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR})
target_compile_options(vorlane_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Werror
  -Wno-restrict)  # GCC 12 sees overlaps in std::string that are not there (bug 105329)
if(VORLANE_SANITIZE)
  target_compile_options(vorlane_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
    -Wno-maybe-uninitialized)  # GCC 12 sees one in an instrumented std::regex
  target_link_options(vorlane_options INTERFACE -fsanitize=address,undefined)
endif()

# vorlane_library(platform_xml SOURCES a.cpp USES platform_runtime PACKAGES libxml-2.0)
# USES names the folders' libraries that this one may include; PACKAGES stay private.
function(vorlane_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES;PACKAGES" ${ARGN})
  add_library(vorlane_${name} STATIC ${ARG_SOURCES})
  target_link_libraries(vorlane_${name} PUBLIC vorlane_options)
  foreach(other IN LISTS ARG_USES)
    target_link_libraries(vorlane_${name} PUBLIC vorlane_${other})
  endforeach()
  foreach(package IN LISTS ARG_PACKAGES)
    string(MAKE_C_IDENTIFIER pc_${package} prefix)
    pkg_check_modules(${prefix} REQUIRED IMPORTED_TARGET GLOBAL ${package})
    target_link_libraries(vorlane_${name} PRIVATE PkgConfig::${prefix})
  endforeach()
endfunction()

# vorlane_program(vorlane-console SOURCES main.cpp USES shell_console)
function(vorlane_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE vorlane_options)
  foreach(other IN LISTS ARG_USES)
    target_link_libraries(${name} PRIVATE vorlane_${other})
  endforeach()
endfunction()

# vorlane_test(platform_xml SOURCES xml_test.cpp USES platform_xml)
# A folder's tests link that folder and what lies below it, no more.
function(vorlane_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES;PACKAGES" ${ARGN})
  add_executable(test_${name} ${ARG_SOURCES})
  target_link_libraries(test_${name} PRIVATE vorlane_options GTest::gtest GTest::gtest_main)
  foreach(other IN LISTS ARG_USES)
    target_link_libraries(test_${name} PRIVATE vorlane_${other})
  endforeach()
  foreach(package IN LISTS ARG_PACKAGES)
    string(MAKE_C_IDENTIFIER pc_${package} prefix)
    pkg_check_modules(${prefix} REQUIRED IMPORTED_TARGET GLOBAL ${package})
    target_link_libraries(test_${name} PRIVATE PkgConfig::${prefix})
  endforeach()
  target_compile_definitions(test_${name} PRIVATE
    VORLANE_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data")
  gtest_discover_tests(test_${name} TEST_PREFIX ${name}. DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES
    PROPERTIES TIMEOUT 120)
endfunction()
